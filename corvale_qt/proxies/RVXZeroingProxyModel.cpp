// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"

#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/proxies/UnitText_p.h"

#include <QVector>

#include <algorithm>

namespace Corvale_Qt {

class RVXZeroingProxyModelPrivate : public PlotColumns
{
public:
    explicit RVXZeroingProxyModelPrivate(RVXZeroingProxyModel *model)
        : q(model)
    {
    }

    void read(int column, int firstRow, int count, double *out) const override;
    bool spans(int column, int firstRow, int count, ColumnSpans &spans) const override;
    bool xRises() const override { return source.xRises(); }
    quint64 xVersion() const override { return source.xVersion(); }
    qint64 droppedRows(int column) const override { return source.droppedRows(column); }

    bool isZeroed(int row, int column) const;
    double shownZero(int column) const;
    void sourceChannels(int channels);

    const RVXZeroingProxyModel *const q;
    // For each channel, in the base unit.
    QVector<double> zeros;
    bool active = false;
    RVXAbstractPlotDataModel *plot = nullptr;
    PlotColumnReader source;

private:
    static const PlotColumns *find(const RVXAbstractPlotDataModel &model);
    static const bool known;
};

const PlotColumns *RVXZeroingProxyModelPrivate::find(const RVXAbstractPlotDataModel &model)
{
    return static_cast<const RVXZeroingProxyModel &>(model).d_func();
}

const bool RVXZeroingProxyModelPrivate::known =
    PlotColumns::add(typeid(RVXZeroingProxyModel), find);

void RVXZeroingProxyModelPrivate::read(int column, int firstRow, int count, double *out) const
{
    source.read(column, firstRow, count, out);
    if (!isZeroed(1, column))
        return;
    const double zero = shownZero(column);
    for (int i = std::max(1 - firstRow, 0); i < count; ++i)
        out[i] -= zero;
}

bool RVXZeroingProxyModelPrivate::spans(int column,
                                        int firstRow,
                                        int count,
                                        ColumnSpans &spans) const
{
    if (!source.spans(column, firstRow, count, spans))
        return false;
    if (!isZeroed(1, column))
        return true;
    // One subtraction has a place there; with a second one below this, the numbers are read instead.
    if (spans.zero != 0.0 || firstRow < 1)
        return false;
    spans.zero = shownZero(column);
    return true;
}

bool RVXZeroingProxyModelPrivate::isZeroed(int row, int column) const
{
    return active && plot && row >= 1 && column >= 1 && column <= zeros.size();
}

double RVXZeroingProxyModelPrivate::shownZero(int column) const
{
    const Units::MeasurementUnit *unit = q->units();
    return unit ? unit->scale(zeros[column - 1]) : zeros[column - 1];
}

void RVXZeroingProxyModelPrivate::sourceChannels(int channels)
{
    if (channels == zeros.size())
        return;
    zeros.resize(channels);
    active = false;
}

RVXZeroingProxyModel::RVXZeroingProxyModel(QObject *parent)
    : RVXPlotProxyModel(parent)
    , d_ptr(new RVXZeroingProxyModelPrivate(this))
{
    // A zero must not stay where another channel moves in. Connected first, this runs before any view asks.
    const auto forget = [this] {
        d_func()->active = false;
    };
    connect(this, &QAbstractItemModel::columnsInserted, this, forget);
    connect(this, &QAbstractItemModel::columnsRemoved, this, forget);
    connect(this, &QAbstractItemModel::columnsMoved, this, forget);
}

RVXZeroingProxyModel::~RVXZeroingProxyModel() = default;

void RVXZeroingProxyModel::zeroNow()
{
    Q_D(RVXZeroingProxyModel);
    if (!d->plot)
        return;
    beginSharedReset();
    const int channels = std::max(sourceModel()->columnCount() - 1, 0);
    const int newest = sourceModel()->rowCount() - 1;
    // The header row is no sample: its numbers count the channels.
    const int row = newest >= 1 ? newest : -1;
    const Units::MeasurementUnit *unit = units();
    d->zeros.resize(channels);
    for (int column = 1; column <= channels; ++column) {
        const double shown = d->plot->doubleData(row, column);
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

QVariant RVXZeroingProxyModel::data(const QModelIndex &index, int role) const
{
    Q_D(const RVXZeroingProxyModel);
    if (!d->isZeroed(index.row(), index.column()))
        return RVXPlotProxyModel::data(index, role);

    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return shownText(units(), doubleData(index.row(), index.column()));
    case Qt::ToolTipRole:
        return shownTextWithUnit(units(), doubleData(index.row(), index.column()));
    case NumericValueRole:
        return doubleData(index.row(), index.column());
    default:
        return RVXPlotProxyModel::data(index, role);
    }
}

double RVXZeroingProxyModel::doubleData(int row, int column) const
{
    Q_D(const RVXZeroingProxyModel);
    const double value = d->plot ? d->plot->doubleData(row, column) : 0.0;
    return d->isZeroed(row, column) ? value - d->shownZero(column) : value;
}

void RVXZeroingProxyModel::sourceModelReset()
{
    Q_D(RVXZeroingProxyModel);
    d->plot = sourcePlotModel();
    d->source = PlotColumnReader(d->plot);
    const int columns = d->plot ? sourceModel()->columnCount() : 0;
    if (columns >= 1) {
        d->sourceChannels(columns - 1);
    } else {
        d->zeros.clear();
        d->active = false;
    }
}

} // namespace Corvale_Qt
