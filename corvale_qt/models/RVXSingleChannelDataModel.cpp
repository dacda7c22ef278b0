// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXSingleChannelDataModel.h"

#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/Logging_p.h"
#include "corvale_qt/models/SampleRing_p.h"
#include "corvale_qt/units/MeasurementUnit.h"
#include "corvale_qt/units/NumberText_p.h"
#include "corvale_qt/units/UnitTraits_p.h"

#include <QFile>

namespace Corvale_Qt {

class RVXSingleChannelDataModelPrivate : public LibraryBulkData
{
public:
    explicit RVXSingleChannelDataModelPrivate(const RVXSingleChannelDataModel *model)
        : q(model)
        , announcesEach(model->autoUpdateFlag())
        , times(int(RVXAbstractDeviceDataModel::maxBufferSize))
        , values(RVXAbstractDeviceDataModel::maxBufferSize)
    {
    }

    const std::type_info &vouchedType() const override { return typeid(RVXSingleChannelDataModel); }
    void read(int column, int firstRow, int count, double *out) const override;
    bool columnSpans(int column, int firstRow, int count, RingSpans &spans) const override;
    bool xRises() const override { return times.rises(); }
    bool appendText(QByteArray &text, int row, int column) const override;
    quint64 xVersion() const override { return times.version(); }

    bool has(int row) const { return row >= 1 && row <= int(values.size()); }
    //! Returns whether a reading only needs to be stored: it starts no new acquisition, repeats no stamp, and no row is announced or removed.
    bool isOnlyStored(double time) const
    {
        return time != 0.0 && !announcesEach && !values.full() && !times.endsWith(time);
    }
    // Inline, since a fast channel calls it for each reading.
    Q_ALWAYS_INLINE void store(double time, double value)
    {
        values.push_back(value);
        ++taken;
        times.push_back(time);
    }
    QVariant displayText(int row, int column) const;
    QVariant toolTip(int row, int column) const;
    bool write(QIODevice &file) const;

    const RVXSingleChannelDataModel *const q;
    const bool &announcesEach;
    TimeRing times;
    SampleRing values;
    mutable BlockRanges ranges; // of the stored values
    qint64 taken = 0; // how many values were ever stored
    int visibleRows = 0;
    int plotWidthHintPoints = 0;
    QString channelName;
};

namespace {

constexpr int numChannels = 1;

} // namespace

void RVXSingleChannelDataModelPrivate::read(int column, int firstRow, int count, double *out) const
{
    const Units::MeasurementUnit *unit = q->units();
    if (column == 0)
        readRing(times.times(), firstRow - 1, count, out, [](double time) {
            return time;
        });
    else if (unit && Units::UnitTraits::isPlain(*unit))
        // scale(1.0) is the product that scale() forms first, to the last bit.
        readRing(values, firstRow - 1, count, out, [factor = unit->scale(1.0)](double v) {
            return factor * v;
        });
    else if (unit)
        readRing(values, firstRow - 1, count, out, [unit](double v) {
            return unit->scale(v);
        });
    else
        readRing(values, firstRow - 1, count, out, [](double v) {
            return v;
        });
    const bool withHeader = firstRow <= 0 && firstRow + count > 0;
    if (withHeader)
        out[-firstRow] = column;
}

bool RVXSingleChannelDataModelPrivate::columnSpans(int column,
                                                   int firstRow,
                                                   int count,
                                                   RingSpans &spans) const
{
    if (column == 0)
        return times.spans(firstRow - 1, count, taken, spans);
    const Units::MeasurementUnit *unit = q->units();
    if (unit && !Units::UnitTraits::isPlain(*unit))
        return false;
    if (!ringSpans(values, firstRow - 1, count, spans))
        return false;
    ranges.serve(spans, taken - qint64(values.size()) + firstRow - 1);
    // scale(1.0) is the product that scale() forms first, to the last bit.
    spans.factor = unit ? unit->scale(1.0) : 1.0;
    return true;
}

bool RVXSingleChannelDataModelPrivate::appendText(QByteArray &text, int row, int column) const
{
    if (!has(row))
        return false;
    const Units::MeasurementUnit *unit = q->units();
    if (column == 0)
        Units::appendNumber(text, times.times()[row - 1], 'e', 3);
    else if (unit)
        Units::UnitTraits::appendFormatted(text, *unit, values[row - 1]);
    else
        Units::appendNumber(text, values[row - 1], 'g', 6);
    return true;
}

QVariant RVXSingleChannelDataModelPrivate::displayText(int row, int column) const
{
    if (row == 0 && column >= 1)
        return QString::number(column);
    QByteArray text;
    return appendText(text, row, column) ? QString::fromUtf8(text) : QVariant();
}

QVariant RVXSingleChannelDataModelPrivate::toolTip(int row, int column) const
{
    if (column == 0)
        return displayText(row, column);
    if (!has(row))
        return QVariant();
    const double value = values[row - 1];
    const Units::MeasurementUnit *unit = q->units();
    return unit ? unit->formatSuffix(value) : QString::number(value);
}

bool RVXSingleChannelDataModelPrivate::write(QIODevice &file) const
{
    constexpr int piece = 1 << 16;
    QByteArray text = "timestamp(s),channel_" + QByteArray::number(numChannels) + ",\n";
    text.reserve(piece + 256);
    bool good = true;
    for (int i = 0; i < visibleRows && good; ++i) {
        Units::appendNumber(text, times.times()[i], 'f', 9);
        text.append(',');
        Units::appendNumber(text, values[i], 'g', 6);
        text.append(",\n");
        if (text.size() >= piece) {
            good = file.write(text) == text.size();
            text.resize(0);
        }
    }
    return good && file.write(text) == text.size();
}

RVXSingleChannelDataModel::RVXSingleChannelDataModel(QObject *parent)
    : RVXAbstractDeviceDataModel(parent)
    , d_ptr(new RVXSingleChannelDataModelPrivate(this))
{
}

RVXSingleChannelDataModel::~RVXSingleChannelDataModel() = default;

const RVXBulkPlotData *RVXSingleChannelDataModel::bulkPlotData() const
{
    Q_D(const RVXSingleChannelDataModel);
    return d;
}

void RVXSingleChannelDataModel::AddData(double timestamp, double value)
{
    Q_D(RVXSingleChannelDataModel);
    if (d->isOnlyStored(timestamp)) {
        d->store(timestamp, value);
        return;
    }

    // A stamp of 0 begins anew, and the newest stamp is not stored again.
    if (timestamp == 0.0)
        Clear();
    if (d->times.endsWith(timestamp))
        return;

    if (autoUpdate() || d->values.full())
        addVisibly(timestamp, value);
    else
        d->store(timestamp, value);
}

//! Adds a reading and announces its row, the removal of the oldest row, or both.
void RVXSingleChannelDataModel::addVisibly(double timestamp, double value)
{
    Q_D(RVXSingleChannelDataModel);
    const bool full = d->values.full();
    const bool announced = autoUpdate();
    const int stored = int(d->values.size());
    // A row must have been announced before it can be removed; all rows have been unless auto update was off.
    if (full && announced)
        UpdateView();
    const bool dropsVisible = full && d->visibleRows > 0;

    // Existing hosts rely on the insertion being opened around the removal.
    if (full) {
        if (announced)
            beginInsertRows(QModelIndex(), stored, stored);
        if (dropsVisible)
            beginRemoveRows(QModelIndex(), 1, 1);
        if (dropsVisible && !announced)
            --d->visibleRows;
    } else {
        ++d->visibleRows;
        beginInsertRows(QModelIndex(), d->visibleRows, d->visibleRows);
    }
    d->store(timestamp, value);
    if (dropsVisible)
        endRemoveRows();
    if (announced)
        endInsertRows();
}

void RVXSingleChannelDataModel::UpdateView()
{
    Q_D(RVXSingleChannelDataModel);
    const int stored = int(d->values.size());
    if (stored <= d->visibleRows)
        return;
    beginInsertRows(QModelIndex(), d->visibleRows + 1, stored);
    d->visibleRows = stored;
    endInsertRows();
}

void RVXSingleChannelDataModel::Clear()
{
    Q_D(RVXSingleChannelDataModel);
    beginResetModel();
    d->visibleRows = 0;
    d->times.clear();
    d->values.clear();
    endResetModel();
}

bool RVXSingleChannelDataModel::SaveDataToFile(const QString &fileName) const
{
    Q_D(const RVXSingleChannelDataModel);
    if (fileName.isEmpty())
        return false;
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    const bool complete = d->write(file) && file.flush();
    const QString reason = file.errorString();
    file.close();
    if (!complete || file.error() != QFileDevice::NoError)
        qCWarning(modelsLog).noquote() << "Data file" << fileName << "is not complete:" << reason;
    return true;
}

int RVXSingleChannelDataModel::PlotWidthHintPoints() const
{
    Q_D(const RVXSingleChannelDataModel);
    return d->plotWidthHintPoints != 0 ? d->plotWidthHintPoints
                                       : RVXAbstractDeviceDataModel::PlotWidthHintPoints();
}

void RVXSingleChannelDataModel::setPlotWidthHintPoints(int points)
{
    Q_D(RVXSingleChannelDataModel);
    d->plotWidthHintPoints = points;
}

QString RVXSingleChannelDataModel::channelName() const
{
    Q_D(const RVXSingleChannelDataModel);
    return d->channelName;
}

void RVXSingleChannelDataModel::setChannelName(const QString &name)
{
    Q_D(RVXSingleChannelDataModel);
    if (name == d->channelName)
        return;
    d->channelName = name;
    // A proxy above may show the name as its title.
    Q_EMIT headerDataChanged(Qt::Horizontal, 1, 1);
}

int RVXSingleChannelDataModel::rowCount(const QModelIndex &parent) const
{
    Q_D(const RVXSingleChannelDataModel);
    return parent.isValid() ? 0 : d->visibleRows + 1;
}

QModelIndex RVXSingleChannelDataModel::index(int row, int column, const QModelIndex &parent) const
{
    Q_D(const RVXSingleChannelDataModel);
    if (parent.isValid() || column > numChannels || row > d->visibleRows)
        return QModelIndex();
    return createIndex(row, column);
}

double RVXSingleChannelDataModel::doubleData(int row, int column) const
{
    Q_D(const RVXSingleChannelDataModel);
    if (row == 0)
        return column;
    if (!d->has(row))
        return 0.0;
    if (column == 0)
        return d->times.times()[row - 1];
    const Units::MeasurementUnit *unit = units();
    return unit ? unit->scale(d->values[row - 1]) : d->values[row - 1];
}

bool RVXSingleChannelDataModel::isOverrange(int, int) const
{
    return false;
}

QVariant RVXSingleChannelDataModel::deviceSpecificData(const QModelIndex &index, int role) const
{
    Q_D(const RVXSingleChannelDataModel);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return d->displayText(index.row(), index.column());
    case Qt::ToolTipRole:
        return d->toolTip(index.row(), index.column());
    case NumericValueRole:
        if (index.row() != 0 && !d->has(index.row()))
            return QVariant();
        return doubleData(index.row(), index.column());
    default:
        return QVariant();
    }
}

} // namespace Corvale_Qt
