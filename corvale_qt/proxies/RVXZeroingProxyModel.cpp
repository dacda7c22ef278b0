// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"

#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXPlotHistory.h"
#include "corvale_qt/proxies/ChannelUnit_p.h"
#include "corvale_qt/proxies/UnitText_p.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace Corvale_Qt {

class RVXZeroingProxyModelPrivate;

//! The history of the source, from whose readings the zero is subtracted as from those of the rows.
class ZeroedHistory : public RVXPlotHistory
{
public:
    explicit ZeroedHistory(const RVXZeroingProxyModelPrivate &model)
        : m_model(model)
    {
    }

    //! Sets the history that is read, which may be null; then no other function may be called.
    void setSource(const RVXPlotHistory *source) { m_source = source; }
    int levels() const override { return m_source->levels(); }
    qint64 firstBlock(int level) const override { return m_source->firstBlock(level); }
    qint64 endBlock(int level) const override { return m_source->endBlock(level); }
    Interval interval(int level, qint64 block) const override
    {
        return m_source->interval(level, block);
    }
    bool read(int level, int column, qint64 first, int count, Block *out) const override;

private:
    const RVXZeroingProxyModelPrivate &m_model;
    const RVXPlotHistory *m_source = nullptr;
};

class RVXZeroingProxyModelPrivate : public LibraryBulkData
{
public:
    explicit RVXZeroingProxyModelPrivate(RVXZeroingProxyModel *model)
        : q(model)
    {
    }

    const std::type_info &vouchedType() const override { return typeid(RVXZeroingProxyModel); }
    void read(int column, int firstRow, int count, double *out) const override;
    bool columnSpans(int column, int firstRow, int count, RingSpans &spans) const override;
    bool xRises() const override { return source.xRises(); }
    quint64 xVersion() const override { return source.xVersion(); }
    qint64 droppedRows(int column) const override { return source.droppedRows(column); }

    bool isZeroed(int row, int column) const;
    const Units::MeasurementUnit *unitOf(int column) const;
    double shownZero(int column) const;
    double newestReading(int column) const;
    void takeChannels(int channels);
    void startZeros();
    bool hasZeroedSince() const;
    void columnsInserted(int first, int last);
    void columnsRemoved(int first, int last);
    void end();
    void followColumnsOf(const QAbstractItemModel *model);

    RVXZeroingProxyModel *const q;
    // The zero of each channel in the base unit. Channels appended after zeroNow() have none.
    QVector<double> zeros;
    int channels = 0;
    bool active = false;
    // Whether the zeros are newer than the beginning of the change of columns that is announced now.
    bool isNewer = false;
    // Whether channels may have different units, which take longer to look up.
    bool unitsDiffer = false;
    PlotDataReader source;
    ZeroedHistory history{*this};

private:
    void announceEnd();

    bool endIsToBeAnnounced = false;
    std::array<QMetaObject::Connection, 3> sourceColumns;
};

bool ZeroedHistory::read(int level, int column, qint64 first, int count, Block *out) const
{
    if (!m_source->read(level, column, first, count, out))
        return false;
    const double zero = m_model.isZeroed(1, column) ? m_model.shownZero(column) : 0.0;
    for (int i = 0; i < count && zero != 0.0; ++i) {
        out[i].least -= zero;
        out[i].greatest -= zero;
        out[i].mean -= zero;
    }
    return true;
}

void RVXZeroingProxyModelPrivate::read(int column, int firstRow, int count, double *out) const
{
    source.read(column, firstRow, count, out);
    if (!isZeroed(1, column))
        return;
    const double zero = shownZero(column);
    const int end = std::clamp(q->rowCount() - firstRow, 0, count);
    for (int i = std::max(1 - firstRow, 0); i < end; ++i)
        out[i] -= zero;
    // A cell without a sample reads 0 and stays 0.
    for (int i = end; i < count; ++i)
        out[i] -= out[i] == 0.0 ? 0.0 : zero;
}

bool RVXZeroingProxyModelPrivate::columnSpans(int column,
                                              int firstRow,
                                              int count,
                                              RingSpans &spans) const
{
    if (!source.spans(column, firstRow, count, spans))
        return false;
    if (!isZeroed(1, column))
        return true;
    // Spans have room for one subtraction. If the source needs it, the numbers are read instead.
    if (spans.zero != 0.0 || firstRow < 1)
        return false;
    spans.zero = shownZero(column);
    return true;
}

bool RVXZeroingProxyModelPrivate::isZeroed(int row, int column) const
{
    return active && row >= 1 && column >= 1 && column <= zeros.size();
}

const Units::MeasurementUnit *RVXZeroingProxyModelPrivate::unitOf(int column) const
{
    return unitsDiffer ? channelUnit(q, column) : q->units();
}

double RVXZeroingProxyModelPrivate::shownZero(int column) const
{
    const Units::MeasurementUnit *unit = unitOf(column);
    return unit ? unit->scale(zeros[column - 1]) : zeros[column - 1];
}

/*! Returns the newest finite sample of a channel, or 0 without one. A gap is not a zero: it would make every later
    sample a gap. */
double RVXZeroingProxyModelPrivate::newestReading(int column) const
{
    const RVXAbstractPlotDataModel *const plot = q->sourcePlotModel();
    const int newest = q->rowCount() - 1;
    // The header row does not hold samples: its numbers are those of the columns.
    double reading = plot->doubleData(newest >= 1 ? newest : -1, column);
    for (int row = newest - 1; row >= 1 && !std::isfinite(reading); --row)
        reading = plot->doubleData(row, column);
    return std::isfinite(reading) ? reading : 0.0;
}

void RVXZeroingProxyModelPrivate::takeChannels(int count)
{
    if (count != channels) {
        zeros.resize(count);
        active = false;
    }
    channels = count;
}

//! Prepares for zeros of the channels that there are now.
void RVXZeroingProxyModelPrivate::startZeros()
{
    channels = std::max(q->columnCount() - 1, 0);
    unitsDiffer = hasChannelUnits(q);
    isNewer = true;
}

//! Returns whether a listener that heard of a change of columns before this proxy has zeroed what is there after it.
bool RVXZeroingProxyModelPrivate::hasZeroedSince() const
{
    return isNewer && channels == std::max(q->columnCount() - 1, 0);
}

void RVXZeroingProxyModelPrivate::columnsInserted(int first, int last)
{
    if (hasZeroedSince())
        return;
    if (first <= channels)
        end();
    channels += last - first + 1;
}

void RVXZeroingProxyModelPrivate::columnsRemoved(int first, int last)
{
    if (hasZeroedSince())
        return;
    if (first <= zeros.size())
        end();
    channels -= last - first + 1;
}

//! Stops subtracting, since a zero must not apply to another channel that moves into its column.
void RVXZeroingProxyModelPrivate::end()
{
    endIsToBeAnnounced = endIsToBeAnnounced || active;
    active = false;
}

void RVXZeroingProxyModelPrivate::announceEnd()
{
    if (!std::exchange(endIsToBeAnnounced, false))
        return;
    q->beginSharedReset();
    q->endSharedReset();
}

/*! Resets the proxy when a change of the source's columns has ended the zeros, since the numbers of all channels change.
    These connections come after those of the base class, so that views hear of the columns first. */
void RVXZeroingProxyModelPrivate::followColumnsOf(const QAbstractItemModel *model)
{
    for (const QMetaObject::Connection &connection : sourceColumns)
        QObject::disconnect(connection);
    if (!model)
        return;
    const auto announce = [this] {
        announceEnd();
    };
    sourceColumns = {QObject::connect(model, &QAbstractItemModel::columnsInserted, q, announce),
                     QObject::connect(model, &QAbstractItemModel::columnsRemoved, q, announce),
                     QObject::connect(model, &QAbstractItemModel::columnsMoved, q, announce)};
}

RVXZeroingProxyModel::RVXZeroingProxyModel(QObject *parent)
    : RVXPlotProxyModel(parent)
    , d_ptr(new RVXZeroingProxyModelPrivate(this))
{
    // These connections are the first, so they run before any view asks for a number.
    Q_D(RVXZeroingProxyModel);
    for (const auto begins : {&QAbstractItemModel::columnsAboutToBeInserted,
                              &QAbstractItemModel::columnsAboutToBeRemoved})
        connect(this, begins, this, [d] {
            d->isNewer = false;
        });
    connect(this,
            &QAbstractItemModel::columnsInserted,
            this,
            [d](const QModelIndex &, int first, int last) {
                d->columnsInserted(first, last);
            });
    connect(this,
            &QAbstractItemModel::columnsRemoved,
            this,
            [d](const QModelIndex &, int first, int last) {
                d->columnsRemoved(first, last);
            });
    connect(this, &QAbstractItemModel::columnsMoved, this, [d] {
        d->end();
    });
}

RVXZeroingProxyModel::~RVXZeroingProxyModel() = default;

const RVXBulkPlotData *RVXZeroingProxyModel::bulkPlotData() const
{
    Q_D(const RVXZeroingProxyModel);
    return d;
}

const RVXPlotHistory *RVXZeroingProxyModel::plotHistory() const
{
    // Found anew each time: the source may have begun or ended its history.
    const RVXPlotHistory *const source = RVXPlotHistory::of(sourcePlotModel());
    ZeroedHistory &own = d_ptr->history;
    own.setSource(source);
    return source ? &own : nullptr;
}

void RVXZeroingProxyModel::zeroNow()
{
    Q_D(RVXZeroingProxyModel);
    if (!sourcePlotModel())
        return;
    beginSharedReset();
    d->startZeros();
    d->zeros.resize(d->channels);
    for (int column = 1; column <= d->channels; ++column) {
        const double shown = d->newestReading(column);
        const Units::MeasurementUnit *unit = d->unitOf(column);
        d->zeros[column - 1] = unit ? unit->unscale(shown) : shown;
    }
    d->active = true;
    endSharedReset();
}

void RVXZeroingProxyModel::zeroClear()
{
    Q_D(RVXZeroingProxyModel);
    beginSharedReset();
    d->active = false;
    endSharedReset();
}

bool RVXZeroingProxyModel::isZeroed() const
{
    Q_D(const RVXZeroingProxyModel);
    return d->active;
}

QVector<double> RVXZeroingProxyModel::zeros() const
{
    Q_D(const RVXZeroingProxyModel);
    return d->active ? d->zeros : QVector<double>();
}

void RVXZeroingProxyModel::setZeros(const QVector<double> &zeros)
{
    Q_D(RVXZeroingProxyModel);
    beginSharedReset();
    d->startZeros();
    d->zeros = zeros.mid(0, d->channels);
    d->active = !d->zeros.isEmpty();
    endSharedReset();
}

QVariant RVXZeroingProxyModel::data(const QModelIndex &index, int role) const
{
    Q_D(const RVXZeroingProxyModel);
    if (!sourcePlotModel()) // its deletion may have begun while its item model is still there
        return QVariant();
    const int row = index.row();
    const int column = index.column();
    if (!d->isZeroed(row, column) || !asksForReading(role))
        return RVXPlotProxyModel::data(index, role);
    if (row >= rowCount())
        return QVariant();
    const double value = doubleData(row, column);
    // A value that is not finite is shown as the source shows it.
    if (!std::isfinite(value))
        return RVXPlotProxyModel::data(index, role);
    return readingFor(role, d->unitOf(column), value);
}

double RVXZeroingProxyModel::doubleData(int row, int column) const
{
    Q_D(const RVXZeroingProxyModel);
    const RVXAbstractPlotDataModel *const plot = sourcePlotModel();
    const double value = plot ? plot->doubleData(row, column) : 0.0;
    if (!d->isZeroed(row, column))
        return value;
    // A cell without a sample reads 0 and stays 0. Rows are counted only then, since that asks the whole stack.
    if (value == 0.0 && row >= rowCount())
        return value;
    return value - d->shownZero(column);
}

void RVXZeroingProxyModel::sourceModelReset()
{
    Q_D(RVXZeroingProxyModel);
    const RVXAbstractPlotDataModel *const plot = sourcePlotModel();
    d->source = PlotDataReader(plot);
    d->followColumnsOf(plot ? sourceModel() : nullptr);
    d->unitsDiffer = hasChannelUnits(this);
    const int columns = columnCount();
    d->takeChannels(std::max(columns - 1, 0));
    if (columns < 1)
        d->active = false;
}

} // namespace Corvale_Qt
