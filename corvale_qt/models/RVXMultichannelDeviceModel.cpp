// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"

#include "corvale_qt/models/Acquisition_p.h"
#include "corvale_qt/models/ChannelLimit_p.h"
#include "corvale_qt/models/Logging_p.h"
#include "corvale_qt/models/RVXMultichannelDeviceModel_p.h"
#include "corvale_qt/models/SaveProgress.h"

#include <algorithm>
#include <limits>

namespace Corvale_Qt {

namespace {

//! Returns how many of \a count channels there may be; says so on the debug stream if not all of them.
int allowedChannels(int count)
{
    if (count > maxChannels)
        qCWarning(modelsLog) << "No more than" << maxChannels << "channels:" << count
                             << "are too many";
    return std::clamp(count, 0, maxChannels);
}

} // namespace

RVXMultichannelDeviceModel::RVXMultichannelDeviceModel(int channels, QObject *parent)
    : RVXAbstractDeviceDataModel(parent)
    , d_ptr(new RVXMultichannelDeviceModelPrivate(this, allowedChannels(channels)))
{
    // A worker's signal with a block is queued, which needs the name of its arguments' type.
    qRegisterMetaType<QVector<double>>();
}

RVXMultichannelDeviceModel::~RVXMultichannelDeviceModel() = default;

const RVXBulkPlotData *RVXMultichannelDeviceModel::bulkPlotData() const
{
    Q_D(const RVXMultichannelDeviceModel);
    return d;
}

const RVXPlotHistory *RVXMultichannelDeviceModel::plotHistory() const
{
    Q_D(const RVXMultichannelDeviceModel);
    return d->rings.history() ? &d->history : nullptr;
}

void RVXMultichannelDeviceModel::setChannels(const QVector<Channel> &channels)
{
    Q_D(RVXMultichannelDeviceModel);
    const int count = allowedChannels(channels.size());
    beginResetModel();
    beginAcquisition(this);
    d->channels = channels.mid(0, count);
    d->removeRows(count);
    endResetModel();
}

void RVXMultichannelDeviceModel::setChannelCount(int count)
{
    setChannels(QVector<Channel>(std::max(count, 0)));
}

void RVXMultichannelDeviceModel::exchangeChannels(const QVector<Channel> &channels,
                                                  const QVector<int> &former)
{
    Q_D(RVXMultichannelDeviceModel);
    const int count = allowedChannels(channels.size());
    std::vector<int> from;
    from.reserve(std::size_t(count));
    for (int i = 0; i < count; ++i)
        from.push_back(d->isChannel(former.value(i)) ? former[i] - 1 : ChannelRings::noChannel);
    beginResetModel();
    beginAcquisition(this);
    d->channels = channels.mid(0, count);
    d->rings.exchange(from);
    d->deviceFits.clear();
    endResetModel();
}

void RVXMultichannelDeviceModel::setReadings(int column, const QVector<double> &readings)
{
    Q_D(RVXMultichannelDeviceModel);
    if (!d->isChannel(column) || readings.size() != d->visibleRows) {
        qCWarning(modelsLog) << readings.size() << "readings of column" << column
                             << "do not belong to the" << d->visibleRows << "rows of"
                             << d->rings.channels() << "channels";
        return;
    }
    if (readings.isEmpty())
        return;
    d->rings.replace(column - 1, readings.constData(), readings.size());
    Q_EMIT dataChanged(index(1, column), index(d->visibleRows, column));
}

RVXMultichannelDeviceModel::Channel RVXMultichannelDeviceModel::channel(int column) const
{
    Q_D(const RVXMultichannelDeviceModel);
    return d->channels.value(column - 1);
}

void RVXMultichannelDeviceModel::setChannelName(int column, const QString &name)
{
    Q_D(RVXMultichannelDeviceModel);
    if (!d->isChannel(column) || d->channels[column - 1].name == name)
        return;
    d->channels[column - 1].name = name;
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
    Q_EMIT dataChanged(index(0, column), index(0, column));
}

void RVXMultichannelDeviceModel::setChannelUnit(int column, const Units::MeasurementUnit *unit)
{
    Q_D(RVXMultichannelDeviceModel);
    if (!d->isChannel(column) || d->channels[column - 1].unit == unit)
        return;
    // A reset, since proxies look only then whether channels have units of their own.
    beginResetModel();
    d->channels[column - 1].unit = unit;
    endResetModel();
}

void RVXMultichannelDeviceModel::appendRow(double time,
                                           const double *values,
                                           const QVariantList &deviceFits)
{
    appendRows(&time, values, 1, deviceFits);
}

void RVXMultichannelDeviceModel::appendRows(const double *times,
                                            const double *values,
                                            int rows,
                                            const QVariantList &deviceFits)
{
    Q_D(RVXMultichannelDeviceModel);
    if (rows < 1)
        return;
    if (!d->isOwnThread()) {
        d->handOver({times, values}, rows, deviceFits, false);
        return;
    }
    const auto taken = d->select(times, rows);
    const bool withLast = !taken.isEmpty() && taken.last().first + taken.last().count == rows;
    d->store({times, values}, taken, withLast ? deviceFits : QVariantList());
}

void RVXMultichannelDeviceModel::appendRows(const QVector<double> &times,
                                            const QVector<double> &values)
{
    if (values.size() != qint64(times.size()) * NumberOfChannels())
        qCWarning(modelsLog) << values.size() << "values are not" << times.size() << "rows of"
                             << NumberOfChannels() << "channels";
    else
        appendRows(times.constData(), values.constData(), times.size());
}

void RVXMultichannelDeviceModel::storeRows(const double *times, const double *values, int rows)
{
    Q_D(RVXMultichannelDeviceModel);
    if (rows < 1)
        return;
    if (!d->isOwnThread()) {
        d->handOver({times, values}, rows, QVariantList(), true);
        return;
    }
    RVXMultichannelDeviceModelPrivate::Stretches all;
    all.append({0, rows});
    d->store({times, values}, all, QVariantList());
}

void RVXMultichannelDeviceModel::UpdateView()
{
    Q_D(RVXMultichannelDeviceModel);
    if (d->rings.rows() <= d->visibleRows)
        return;
    beginInsertRows(QModelIndex(), d->visibleRows + 1, d->rings.rows());
    d->visibleRows = d->rings.rows();
    endInsertRows();
}

int RVXMultichannelDeviceModel::capacity() const
{
    Q_D(const RVXMultichannelDeviceModel);
    return d->rings.capacity();
}

void RVXMultichannelDeviceModel::setCapacity(int rows)
{
    Q_D(RVXMultichannelDeviceModel);
    if (rows < 1 || rows == capacity())
        return;
    beginResetModel();
    const int lost = std::max(d->rings.rows() - rows, 0);
    d->rings.setCapacity(rows);
    d->visibleRows = std::max(d->visibleRows - lost, 0);
    endResetModel();
}

double RVXMultichannelDeviceModel::historySpan() const
{
    Q_D(const RVXMultichannelDeviceModel);
    return d->historySpan;
}

void RVXMultichannelDeviceModel::setHistorySpan(double seconds)
{
    Q_D(RVXMultichannelDeviceModel);
    const double span = seconds > 0.0 ? seconds : 0.0; // NaN is not a span
    if (span == d->historySpan)
        return;
    d->historySpan = span;
    d->rings.setHistory(span, d->historyMemory);
}

qint64 RVXMultichannelDeviceModel::historyMemory() const
{
    Q_D(const RVXMultichannelDeviceModel);
    return d->historyMemory;
}

void RVXMultichannelDeviceModel::setHistoryMemory(qint64 bytes)
{
    Q_D(RVXMultichannelDeviceModel);
    if (bytes < 1 || bytes == d->historyMemory)
        return;
    d->historyMemory = bytes;
    d->rings.setHistory(d->historySpan, bytes);
}

qint64 RVXMultichannelDeviceModel::historyMemoryInUse() const
{
    Q_D(const RVXMultichannelDeviceModel);
    return d->rings.history() ? d->rings.history()->bytes() : 0;
}

double RVXMultichannelDeviceModel::givenValue(int row, int column) const
{
    Q_D(const RVXMultichannelDeviceModel);
    return d->has(row) && d->isChannel(column) ? d->rings.value(row - 1, column - 1)
                                               : std::numeric_limits<double>::quiet_NaN();
}

void RVXMultichannelDeviceModel::setPlotWidthHintPoints(int points)
{
    Q_D(RVXMultichannelDeviceModel);
    d->plotWidthHintPoints = points;
}

void RVXMultichannelDeviceModel::setPlotWidthHint(double seconds)
{
    Q_D(RVXMultichannelDeviceModel);
    d->plotWidthHint = seconds;
}

void RVXMultichannelDeviceModel::Clear()
{
    Q_D(RVXMultichannelDeviceModel);
    beginResetModel();
    d->removeRows(d->rings.channels());
    endResetModel();
}

std::shared_ptr<RVXMultichannelDeviceModel::TakenReadings>
RVXMultichannelDeviceModel::takeReadings()
{
    Q_D(RVXMultichannelDeviceModel);
    beginResetModel();
    auto taken = std::make_shared<TakenReadings>(d->rings.take());
    d->removeRows(d->rings.channels());
    endResetModel();
    return taken;
}

void RVXMultichannelDeviceModel::putReadingsBefore(const std::shared_ptr<TakenReadings> &taken)
{
    Q_D(RVXMultichannelDeviceModel);
    if (!taken)
        return;
    if (taken->rings.channels() != d->rings.channels()) {
        qCWarning(modelsLog) << "Readings of" << taken->rings.channels()
                             << "channels do not belong before those of" << d->rings.channels();
        return;
    }
    beginResetModel();
    const int unannounced = d->rings.rows() - d->visibleRows;
    d->fittedRow += d->rings.putBefore(taken->rings.take());
    d->visibleRows = d->rings.rows() - unannounced;
    endResetModel();
}

bool RVXMultichannelDeviceModel::SaveDataToFile(const QString &fileName) const
{
    Q_D(const RVXMultichannelDeviceModel);
    return !fileName.isEmpty()
        && SaveProgress::writeWhole(fileName,
                                    QIODevice::WriteOnly | QIODevice::Text,
                                    [d](QIODevice &file) {
                                        return d->write(file);
                                    });
}

int RVXMultichannelDeviceModel::NumberOfChannels() const
{
    Q_D(const RVXMultichannelDeviceModel);
    return d->rings.channels();
}

int RVXMultichannelDeviceModel::MaxBufferSize() const
{
    return capacity();
}

int RVXMultichannelDeviceModel::PlotWidthHintPoints() const
{
    Q_D(const RVXMultichannelDeviceModel);
    return d->plotWidthHintPoints != 0 ? d->plotWidthHintPoints
                                       : RVXAbstractDeviceDataModel::PlotWidthHintPoints();
}

double RVXMultichannelDeviceModel::PlotWidthHint() const
{
    Q_D(const RVXMultichannelDeviceModel);
    return d->plotWidthHint;
}

int RVXMultichannelDeviceModel::rowCount(const QModelIndex &parent) const
{
    Q_D(const RVXMultichannelDeviceModel);
    return parent.isValid() ? 0 : d->visibleRows + 1;
}

QModelIndex RVXMultichannelDeviceModel::index(int row, int column, const QModelIndex &parent) const
{
    Q_D(const RVXMultichannelDeviceModel);
    // Asked for each cell that a view or a proxy looks at, so without the virtual calls of hasIndex().
    const bool exists = !parent.isValid() && row >= 0 && row <= d->visibleRows && column >= 0
        && column <= d->rings.channels();
    return exists ? createIndex(row, column) : QModelIndex();
}

QVariant RVXMultichannelDeviceModel::data(const QModelIndex &index, int role) const
{
    Q_D(const RVXMultichannelDeviceModel);
    if (role == DeviceFitRole && index.isValid() && index.column() == 0) {
        const QVariantList fits = d->fitsOf(index.row());
        return fits.isEmpty() ? QVariant() : fits;
    }
    if (role == ChannelUnitRole && index.row() == 0 && d->isChannel(index.column())) {
        const Units::MeasurementUnit *const own = channel(index.column()).unit;
        return own ? QVariant::fromValue(own) : QVariant();
    }
    return RVXAbstractDeviceDataModel::data(index, role);
}

double RVXMultichannelDeviceModel::doubleData(int row, int column) const
{
    Q_D(const RVXMultichannelDeviceModel);
    if (row == 0)
        return column;
    if (!d->has(row) || !(column == 0 || d->isChannel(column)))
        return 0.0;
    return column == 0 ? d->rings.time(row - 1)
                       : d->shown(column)(d->rings.value(row - 1, column - 1));
}

bool RVXMultichannelDeviceModel::isOverrange(int, int) const
{
    return false;
}

QVariant RVXMultichannelDeviceModel::deviceSpecificData(const QModelIndex &index, int role) const
{
    Q_D(const RVXMultichannelDeviceModel);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return d->text(index.row(), index.column());
    case Qt::ToolTipRole:
        return d->toolTip(index.row(), index.column());
    case NumericValueRole:
        return doubleData(index.row(), index.column());
    default:
        return QVariant();
    }
}

} // namespace Corvale_Qt
