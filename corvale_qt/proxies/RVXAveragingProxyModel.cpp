// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"

#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/proxies/RunningAverages_p.h"
#include "corvale_qt/proxies/UnitText_p.h"

#include <algorithm>

namespace Corvale_Qt {

class RVXAveragingProxyModelPrivate : public PlotColumns
{
public:
    explicit RVXAveragingProxyModelPrivate(RVXAveragingProxyModel *model)
        : q(model)
    {
    }

    void read(int column, int firstRow, int count, double *out) const override;
    bool spans(int column, int firstRow, int count, ColumnSpans &spans) const override;
    bool xRises() const override { return source.xRises(); }
    quint64 xVersion() const override { return source.xVersion(); }
    qint64 droppedRows(int column) const override { return source.droppedRows(column); }

    int sampleRows() const;
    void rebuild();
    void update(int firstColumn, int lastColumn, int from);
    bool dropWithSource(int column);
    void dropAnnounced(int rows);

    RVXAveragingProxyModel *const q;
    RunningAverages averages;
    RVXAbstractPlotDataModel *plot = nullptr;
    PlotColumnReader source;
    // For each channel, how much of the source's droppedRows() its averages have followed.
    QVector<qint64> followedDrops;

private:
    static const PlotColumns *find(const RVXAbstractPlotDataModel &model);
    static const bool known;
};

const PlotColumns *RVXAveragingProxyModelPrivate::find(const RVXAbstractPlotDataModel &model)
{
    return static_cast<const RVXAveragingProxyModel &>(model).d_func();
}

const bool RVXAveragingProxyModelPrivate::known =
    PlotColumns::add(typeid(RVXAveragingProxyModel), find);

void RVXAveragingProxyModelPrivate::read(int column, int firstRow, int count, double *out) const
{
    const bool averaged = column >= 1 && column <= averages.channels();
    const int rows = averaged ? int(averages.column(column).size()) : 0;
    // Before, within and after the averages.
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

bool RVXAveragingProxyModelPrivate::spans(int column,
                                          int firstRow,
                                          int count,
                                          ColumnSpans &spans) const
{
    if (column < 1 || column > averages.channels())
        return source.spans(column, firstRow, count, spans);
    return averages.spans(column, firstRow, count, spans);
}

int RVXAveragingProxyModelPrivate::sampleRows() const
{
    return q->sourceModel()->rowCount() - 1;
}

void RVXAveragingProxyModelPrivate::rebuild()
{
    plot = q->sourcePlotModel();
    source = PlotColumnReader(plot);
    const int channels = plot ? std::max(q->sourceModel()->columnCount() - 1, 0) : 0;
    averages.reset(channels, plot ? plot->MaxBufferSize() : 0);
    followedDrops.resize(channels);
    for (int column = 1; column <= channels; ++column)
        followedDrops[column - 1] = source.droppedRows(column);
    update(1, channels, 1);
}

void RVXAveragingProxyModelPrivate::update(int firstColumn, int lastColumn, int from)
{
    if (!plot)
        return;
    lastColumn = std::min(lastColumn, averages.channels());
    for (int column = firstColumn; column <= lastColumn; ++column)
        dropWithSource(column);
    averages.update(source, firstColumn, lastColumn, std::max(from, 1), sampleRows());
}

//! Follows a column that drops rows on its own; false where the source announces what is dropped.
bool RVXAveragingProxyModelPrivate::dropWithSource(int column)
{
    const qint64 dropped = source.droppedRows(column);
    if (dropped < 0)
        return false;
    averages.dropOldest(column, dropped - followedDrops[column - 1]);
    followedDrops[column - 1] = dropped;
    return true;
}

void RVXAveragingProxyModelPrivate::dropAnnounced(int rows)
{
    const int left = sampleRows();
    for (int column = 1; column <= averages.channels(); ++column) {
        const bool onItsOwn = dropWithSource(column);
        if (!onItsOwn)
            averages.dropOldest(column, rows);
        averages.truncate(column, left);
        if (onItsOwn) // it may have dropped more than was announced, and repeat a sample at its end
            averages.update(source, column, column, left + 1, left);
    }
}

RVXAveragingProxyModel::RVXAveragingProxyModel(QObject *parent)
    : RVXPlotProxyModel(parent)
    , d_ptr(new RVXAveragingProxyModelPrivate(this))
{
    // What the hooks do not tell of: the source has other channels, or its samples in another order. Connected
    // first, this runs before any view asks.
    const auto rebuild = [this] {
        d_func()->rebuild();
    };
    connect(this, &QAbstractItemModel::columnsInserted, this, rebuild);
    connect(this, &QAbstractItemModel::columnsRemoved, this, rebuild);
    connect(this, &QAbstractItemModel::columnsMoved, this, rebuild);
    connect(this, &QAbstractItemModel::rowsMoved, this, rebuild);
    connect(this, &QAbstractItemModel::layoutChanged, this, rebuild);
}

RVXAveragingProxyModel::~RVXAveragingProxyModel() = default;

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
    const int row = index.row();
    const int column = index.column();
    if (row < 1 || column < 1 || column > d->averages.channels())
        return RVXPlotProxyModel::data(index, role);

    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return shownText(units(), doubleData(row, column));
    case Qt::ToolTipRole:
        return shownTextWithUnit(units(), d->averages.column(column).at(row - 1));
    case NumericValueRole:
        return doubleData(row, column);
    default:
        return RVXPlotProxyModel::data(index, role);
    }
}

void RVXAveragingProxyModel::Clear()
{
    Q_D(RVXAveragingProxyModel);
    beginSharedReset();
    d->averages.clear();
    RVXPlotProxyModel::Clear();
    endSharedReset();
}

double RVXAveragingProxyModel::doubleData(int row, int column) const
{
    Q_D(const RVXAveragingProxyModel);
    if (d->averages.has(row, column))
        return d->averages.value(row, column);
    return d->plot ? d->plot->doubleData(row, column) : 0.0;
}

void RVXAveragingProxyModel::sourceRowsInserted(const QModelIndex &, int first, int)
{
    Q_D(RVXAveragingProxyModel);
    d->update(1, d->averages.channels(), first);
}

void RVXAveragingProxyModel::sourceRowsRemoved(const QModelIndex &, int first, int last)
{
    Q_D(RVXAveragingProxyModel);
    if (d->plot)
        d->dropAnnounced(last - std::max(first, 1) + 1);
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
    if (!topLeft.isValid() || !bottomRight.isValid())
        return;
    // Every later average depends on the changed one.
    d->update(std::max(topLeft.column(), 1), bottomRight.column(), topLeft.row());
}

} // namespace Corvale_Qt
