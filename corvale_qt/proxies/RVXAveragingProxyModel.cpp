// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"

#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXPlotHistory.h"
#include "corvale_qt/proxies/ChannelUnit_p.h"
#include "corvale_qt/proxies/RunningAverages_p.h"
#include "corvale_qt/proxies/UnitText_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

class RVXAveragingProxyModelPrivate : public LibraryBulkData
{
public:
    explicit RVXAveragingProxyModelPrivate(RVXAveragingProxyModel *model)
        : q(model)
    {
    }

    const std::type_info &vouchedType() const override { return typeid(RVXAveragingProxyModel); }
    void read(int column, int firstRow, int count, double *out) const override;
    bool columnSpans(int column, int firstRow, int count, RingSpans &spans) const override;
    bool xRises() const override { return source.xRises(); }
    quint64 xVersion() const override { return source.xVersion(); }
    qint64 droppedRows(int column) const override { return source.droppedRows(column); }

    int sampleRows() const;
    bool has(int row, int column) const;
    void rebuild();
    void insertColumns(int first, int last);
    void removeColumns(int first, int last);
    void moveColumns(int first, int last, int before);
    void update(int firstColumn, int lastColumn, int from);
    void announceFrom(int row);
    bool dropWithSource(int column);
    void dropOldest(int rows);

    RVXAveragingProxyModel *const q;
    RunningAverages averages;
    PlotDataReader source;
    int announcedRows = 0; // the source may have further rows that it has not announced
};

void RVXAveragingProxyModelPrivate::read(int column, int firstRow, int count, double *out) const
{
    const bool averaged = column >= 1 && column <= averages.channels();
    const int rows = averaged ? int(averages.column(column).size()) : 0;
    // The rows before, within and after the averages.
    const int before = std::clamp(1 - firstRow, 0, count);
    const int within = std::clamp(rows - (firstRow + before) + 1, 0, count - before);
    source.read(column, firstRow, before, out);
    if (within > 0)
        readRing(averages.column(column),
                 firstRow + before - 1,
                 within,
                 out + before,
                 [](double average) {
                     return average;
                 });
    const int done = before + within;
    source.read(column, firstRow + done, count - done, out + done);
}

bool RVXAveragingProxyModelPrivate::columnSpans(int column,
                                                int firstRow,
                                                int count,
                                                RingSpans &spans) const
{
    if (column < 1 || column > averages.channels() || averages.length() == 1)
        return source.spans(column, firstRow, count, spans);
    return averages.spans(column, firstRow, count, spans);
}

int RVXAveragingProxyModelPrivate::sampleRows() const
{
    return q->rowCount() - 1;
}

//! Returns whether a row of a channel has been announced.
bool RVXAveragingProxyModelPrivate::has(int row, int column) const
{
    return row >= 1 && row <= announcedRows && column >= 1 && column <= averages.channels();
}

void RVXAveragingProxyModelPrivate::rebuild()
{
    source = PlotDataReader(q->sourcePlotModel());
    averages.reset();
    announcedRows = 0;
    insertColumns(1, q->columnCount() - 1);
}

//! Computes the new channels \a first to \a last; the others keep their averages.
void RVXAveragingProxyModelPrivate::insertColumns(int first, int last)
{
    if (first < 1 || first > averages.channels() + 1) {
        rebuild();
        return;
    }
    averages.insertChannels(first, std::max(last - first + 1, 0), q->MaxBufferSize());
    for (int column = first; column <= last; ++column)
        averages.startFollowing(column, source.droppedRows(column));
    update(first, last, 1);
}

void RVXAveragingProxyModelPrivate::removeColumns(int first, int last)
{
    if (first < 1 || last > averages.channels())
        rebuild();
    else
        averages.removeChannels(first, last - first + 1);
}

void RVXAveragingProxyModelPrivate::moveColumns(int first, int last, int before)
{
    if (first < 1 || before < 1 || std::max(last, before - 1) > averages.channels())
        rebuild();
    else
        averages.moveChannels(first, last - first + 1, before);
}

void RVXAveragingProxyModelPrivate::update(int firstColumn, int lastColumn, int from)
{
    if (!q->sourcePlotModel())
        return;
    announcedRows = sampleRows();
    if (averages.length() == 1)
        return; // readings are shown as they are
    lastColumn = std::min(lastColumn, averages.channels());
    for (int column = firstColumn; column <= lastColumn; ++column)
        dropWithSource(column);
    averages.update(source, firstColumn, lastColumn, std::max(from, 1), announcedRows);
}

//! Announces that averages from \a row on have changed. At length 1 readings are shown as they are and have not.
void RVXAveragingProxyModelPrivate::announceFrom(int row)
{
    if (averages.length() > 1)
        q->alsoChanged(row);
}

//! Follows a column that drops rows by itself. Returns false if the source announces the rows that it drops.
bool RVXAveragingProxyModelPrivate::dropWithSource(int column)
{
    const qint64 dropped = source.droppedRows(column);
    if (dropped < 0)
        return false;
    averages.followDrops(column, dropped);
    return true;
}

void RVXAveragingProxyModelPrivate::dropOldest(int rows)
{
    const int left = announcedRows = sampleRows();
    if (averages.length() == 1)
        return;
    for (int column = 1; column <= averages.channels(); ++column) {
        const bool onItsOwn = dropWithSource(column);
        if (!onItsOwn)
            averages.dropOldest(column, rows);
        averages.truncate(column, left);
        if (onItsOwn) // the column may have dropped more rows than announced, and repeat a sample at its end
            averages.update(source, column, column, left + 1, left);
    }
}

RVXAveragingProxyModel::RVXAveragingProxyModel(QObject *parent)
    : RVXPlotProxyModel(parent)
    , d_ptr(new RVXAveragingProxyModelPrivate(this))
{
    // Hooks do not report new, removed or moved channels, nor samples in another order. These connections are the
    // first, so they run before any view asks for a number.
    using Model = QAbstractItemModel;
    connect(this, &Model::columnsInserted, this, [this](const QModelIndex &, int first, int last) {
        d_func()->insertColumns(first, last);
    });
    connect(this, &Model::columnsRemoved, this, [this](const QModelIndex &, int first, int last) {
        d_func()->removeColumns(first, last);
    });
    connect(this,
            &Model::columnsMoved,
            this,
            [this](const QModelIndex &, int first, int last, const QModelIndex &, int before) {
                d_func()->moveColumns(first, last, before);
            });
    connect(this, &Model::rowsMoved, this, [this] {
        d_func()->rebuild();
        d_func()->announceFrom(1);
    });
    connect(this, &Model::layoutChanged, this, [this] {
        d_func()->rebuild();
    });
}

RVXAveragingProxyModel::~RVXAveragingProxyModel() = default;

const RVXBulkPlotData *RVXAveragingProxyModel::bulkPlotData() const
{
    Q_D(const RVXAveragingProxyModel);
    return d;
}

const RVXPlotHistory *RVXAveragingProxyModel::plotHistory() const
{
    return averaging() == 1 ? RVXPlotHistory::of(sourcePlotModel()) : nullptr;
}

int RVXAveragingProxyModel::averaging() const
{
    Q_D(const RVXAveragingProxyModel);
    return d->averages.length();
}

void RVXAveragingProxyModel::setAveraging(int length)
{
    Q_D(RVXAveragingProxyModel);
    if (length <= 0)
        return;
    beginSharedReset();
    d->averages.setLength(length);
    d->update(1, d->averages.channels(), 1);
    endSharedReset();
}

QVariant RVXAveragingProxyModel::data(const QModelIndex &index, int role) const
{
    Q_D(const RVXAveragingProxyModel);
    if (!sourcePlotModel()) // its deletion may have begun while its item model is still there
        return QVariant();
    const int row = index.row();
    const int column = index.column();
    const bool isSample = row >= 1 && column >= 1 && column <= d->averages.channels();
    if (!isSample || !asksForReading(role))
        return RVXPlotProxyModel::data(index, role);
    if (!d->has(row, column))
        return QVariant();
    const double average = doubleData(row, column);
    // A value that is not finite is shown as the source shows it.
    if (!std::isfinite(average))
        return RVXPlotProxyModel::data(index, role);
    return readingFor(role, channelUnit(this, column), average);
}

void RVXAveragingProxyModel::Clear()
{
    Q_D(RVXAveragingProxyModel);
    beginSharedReset();
    d->averages.clear();
    d->announcedRows = 0;
    RVXPlotProxyModel::Clear();
    endSharedReset();
}

double RVXAveragingProxyModel::doubleData(int row, int column) const
{
    Q_D(const RVXAveragingProxyModel);
    if (d->averages.has(row, column))
        return d->averages.value(row, column);
    const RVXAbstractPlotDataModel *const plot = sourcePlotModel();
    return plot ? plot->doubleData(row, column) : 0.0;
}

void RVXAveragingProxyModel::sourceRowsInserted(const QModelIndex &, int first, int last)
{
    Q_D(RVXAveragingProxyModel);
    const bool isBetweenRows = d->averages.has(first, 1);
    d->update(1, d->averages.channels(), first);
    if (isBetweenRows)
        d->announceFrom(last + 1);
}

void RVXAveragingProxyModel::sourceRowsRemoved(const QModelIndex &, int first, int last)
{
    Q_D(RVXAveragingProxyModel);
    if (first <= 1) {
        d->dropOldest(last - std::max(first, 1) + 1);
        return;
    }
    // The rows that follow now continue from another average.
    d->update(1, d->averages.channels(), first);
    d->announceFrom(first);
}

void RVXAveragingProxyModel::sourceModelReset()
{
    Q_D(RVXAveragingProxyModel);
    d->rebuild();
}

void RVXAveragingProxyModel::sourceDataChanged(const QModelIndex &topLeft,
                                               const QModelIndex &bottomRight)
{
    Q_D(RVXAveragingProxyModel);
    // No average depends on a cell of the header row.
    if (!topLeft.isValid() || bottomRight.row() < 1 || bottomRight.column() < 1)
        return;
    d->update(std::max(topLeft.column(), 1), bottomRight.column(), topLeft.row());
    // Every later average depends on the changed ones.
    d->announceFrom(bottomRight.row() + 1);
}

} // namespace Corvale_Qt
