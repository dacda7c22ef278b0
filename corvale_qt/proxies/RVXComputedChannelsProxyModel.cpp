// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RVXComputedChannelsProxyModel.h"

#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/models/RVXPlotHistory.h"
#include "corvale_qt/proxies/ComputedReadings_p.h"
#include "corvale_qt/proxies/UnitText_p.h"

#include <QBrush>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cmath>

namespace Corvale_Qt {

namespace {

//! The history of the source, which knows nothing of computed channels.
class HistoryOfSource : public RVXPlotHistory
{
public:
    void set(const RVXPlotHistory *source, int columns)
    {
        m_source = source;
        m_columns = columns;
    }
    int levels() const override { return m_source->levels(); }
    qint64 firstBlock(int level) const override { return m_source->firstBlock(level); }
    qint64 endBlock(int level) const override { return m_source->endBlock(level); }
    Interval interval(int level, qint64 block) const override
    {
        return m_source->interval(level, block);
    }
    bool read(int level, int column, qint64 first, int count, Block *out) const override
    {
        return column < m_columns && m_source->read(level, column, first, count, out);
    }

private:
    const RVXPlotHistory *m_source = nullptr;
    int m_columns = 0;
};

//! Returns the unit that a symbol stands for; null for none.
std::shared_ptr<const Units::MeasurementUnit> unitOf(const QString &symbol)
{
    using Units::MeasurementUnit;
    if (symbol.isEmpty())
        return nullptr;
    std::shared_ptr<const MeasurementUnit> known(MeasurementUnit::fromString(symbol));
    return known ? known : std::make_shared<const MeasurementUnit>(1.0, symbol, 1.0);
}

} // namespace

class RVXComputedChannelsProxyModelPrivate : public LibraryBulkData
{
public:
    explicit RVXComputedChannelsProxyModelPrivate(RVXComputedChannelsProxyModel *model)
        : q(model)
    {
    }

    const std::type_info &vouchedType() const override
    {
        return typeid(RVXComputedChannelsProxyModel);
    }
    void read(int column, int firstRow, int count, double *out) const override;
    bool columnSpans(int column, int firstRow, int count, RingSpans &spans) const override;
    bool xRises() const override { return source.xRises(); }
    quint64 xVersion() const override { return source.xVersion(); }
    qint64 droppedRows(int column) const override
    {
        return isComputed(column) ? -1 : source.droppedRows(column);
    }

    int sourceColumns() const { return q->RVXPlotProxyModel::columnCount(); }
    int sampleRows() const { return std::max(q->rowCount() - 1, 0); }
    bool isComputed(int column) const { return column >= std::max(sourceColumns(), 1); }
    int channelOf(int column) const { return column - sourceColumns(); }
    QStringList sourceNames() const;
    void take(const QVector<ComputedChannel> &newChannels);
    void compileAndRebuild();
    void rebuild();
    void update(int from);
    void followColumnsOf(const QAbstractItemModel *model);
    QVariant header(int column, int role) const;
    QVariant sample(const QModelIndex &index, int role) const;

    RVXComputedChannelsProxyModel *const q;
    QVector<ComputedChannel> channels;
    QVector<bool> shown;
    QVector<std::shared_ptr<const Units::MeasurementUnit>> units;
    QStringList names; // of the source's channels, as they were compiled
    ExpressionFault fault;
    PlotDataReader source;
    bool isStored = true; // rows are computed when they come, otherwise when they are read
    mutable ComputedReadings readings;
    HistoryOfSource history;

private:
    std::array<QMetaObject::Connection, 3> columnConnections;
};

void RVXComputedChannelsProxyModelPrivate::read(int column,
                                                int firstRow,
                                                int count,
                                                double *out) const
{
    if (!isComputed(column)) {
        source.read(column, firstRow, count, out);
        return;
    }
    std::fill_n(out, std::max(count, 0), 0.0);
    const int channel = channelOf(column);
    const int first = std::max(firstRow, 1);
    const int end = std::min(firstRow + count, sampleRows() + 1);
    if (channel >= channels.size())
        return;
    if (isStored)
        readRing(readings.ring(channel), firstRow - 1, count, out, [](double value) {
            return value;
        });
    else if (first < end)
        readings.compute(source, channel, first, end - first, out + (first - firstRow));
    if (firstRow <= 0 && firstRow + count > 0)
        out[-firstRow] = column;
}

bool RVXComputedChannelsProxyModelPrivate::columnSpans(int column,
                                                       int firstRow,
                                                       int count,
                                                       RingSpans &spans) const
{
    if (!isComputed(column))
        return source.spans(column, firstRow, count, spans);
    return isStored && channelOf(column) < channels.size()
        && readings.spans(channelOf(column), firstRow, count, spans);
}

//! Returns the names of the source's channels, without the units that some models show behind them.
QStringList RVXComputedChannelsProxyModelPrivate::sourceNames() const
{
    static const QRegularExpression unit(QStringLiteral("\\s*\\([^()]*\\)$"));
    QStringList found;
    for (int column = 1; column < sourceColumns(); ++column)
        found.append(q->data(q->index(0, column), Qt::DisplayRole).toString().remove(unit));
    return found;
}

void RVXComputedChannelsProxyModelPrivate::take(const QVector<ComputedChannel> &newChannels)
{
    channels = newChannels;
    shown = QVector<bool>(channels.size(), true);
    units.clear();
    for (const ComputedChannel &channel : newChannels)
        units.append(unitOf(channel.unit));
    compileAndRebuild();
}

void RVXComputedChannelsProxyModelPrivate::compileAndRebuild()
{
    names = sourceNames();
    readings.compile(names, channels, &fault);
    rebuild();
}

void RVXComputedChannelsProxyModelPrivate::rebuild()
{
    source = PlotDataReader(q->sourcePlotModel());
    isStored = !readings.hasOwnDrops(source);
    readings.reset(isStored ? q->MaxBufferSize() : 0);
    update(1);
}

void RVXComputedChannelsProxyModelPrivate::update(int from)
{
    if (isStored && q->sourcePlotModel() && !channels.isEmpty())
        readings.update(source, from, sampleRows());
}

/*! Announces the computed channels as changed when columns of the source have changed: expressions may find other channels
    under their names, or none. These connections come after those of the base class, so that views hear of the columns first. */
void RVXComputedChannelsProxyModelPrivate::followColumnsOf(const QAbstractItemModel *model)
{
    for (const QMetaObject::Connection &connection : columnConnections)
        QObject::disconnect(connection);
    if (!model)
        return;
    const auto announce = [this] {
        if (!channels.isEmpty() && q->sourcePlotModel())
            Q_EMIT q->dataChanged(q->index(0, sourceColumns()),
                                  q->index(sampleRows(), q->columnCount() - 1));
    };
    columnConnections = {QObject::connect(model, &QAbstractItemModel::columnsInserted, q, announce),
                         QObject::connect(model, &QAbstractItemModel::columnsRemoved, q, announce),
                         QObject::connect(model, &QAbstractItemModel::columnsMoved, q, announce)};
}

QVariant RVXComputedChannelsProxyModelPrivate::header(int column, int role) const
{
    const int channel = channelOf(column);
    const ComputedChannel &own = channels[channel];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return own.unit.isEmpty() ? own.name : QStringLiteral("%1 (%2)").arg(own.name, own.unit);
    case Qt::ToolTipRole:
        return QString(own.name + QLatin1String(" = ") + own.expression
                       + (fault.isEmpty() ? QString() : QLatin1Char('\n') + fault.message()))
            .toHtmlEscaped();
    case Qt::CheckStateRole:
        return shown[channel] ? Qt::Checked : Qt::Unchecked;
    case Qt::BackgroundRole:
        return QBrush(RVXPlotColors::color(column - 1));
    case RVXAbstractPlotDataModel::NumericValueRole:
        return double(column);
    case RVXAbstractPlotDataModel::
        ChannelUnitRole: // null: it has none, whatever the unit of the source
        return QVariant::fromValue(units[channel].get());
    default:
        return q->data(q->index(0, sourceColumns() - 1), role);
    }
}

QVariant RVXComputedChannelsProxyModelPrivate::sample(const QModelIndex &index, int role) const
{
    if (!asksForReading(role))
        return q->data(q->index(index.row(), 0), role);
    const double value = q->doubleData(index.row(), index.column());
    if (std::isnan(value) && role != RVXAbstractPlotDataModel::NumericValueRole)
        return role == Qt::ToolTipRole ? RVXComputedChannelsProxyModel::tr("no reading")
                                       : QVariant();
    return readingFor(role, units[channelOf(index.column())].get(), value);
}

RVXComputedChannelsProxyModel::RVXComputedChannelsProxyModel(QObject *parent)
    : RVXPlotProxyModel(parent)
    , d_ptr(new RVXComputedChannelsProxyModelPrivate(this))
{
    // Hooks do not report these. The connections are the first, so they run before any view asks for a number.
    using Model = QAbstractItemModel;
    const auto recompile = [this] {
        d_func()->compileAndRebuild();
    };
    connect(this, &Model::columnsInserted, this, recompile);
    connect(this, &Model::columnsRemoved, this, recompile);
    connect(this, &Model::columnsMoved, this, recompile);
    const auto rebuild = [this] {
        d_func()->rebuild();
    };
    connect(this, &Model::rowsMoved, this, rebuild);
    connect(this, &Model::layoutChanged, this, rebuild);
}

RVXComputedChannelsProxyModel::~RVXComputedChannelsProxyModel() = default;

const RVXBulkPlotData *RVXComputedChannelsProxyModel::bulkPlotData() const
{
    Q_D(const RVXComputedChannelsProxyModel);
    return d;
}

const RVXPlotHistory *RVXComputedChannelsProxyModel::plotHistory() const
{
    // Found anew each time: the source may have begun or ended its history.
    const RVXPlotHistory *const source = RVXPlotHistory::of(sourcePlotModel());
    d_ptr->history.set(source, d_ptr->sourceColumns());
    return source ? &d_ptr->history : nullptr;
}

bool RVXComputedChannelsProxyModel::setComputedChannels(const QVector<ComputedChannel> &channels,
                                                        ExpressionFault *fault)
{
    Q_D(RVXComputedChannelsProxyModel);
    ExpressionFault found;
    ChannelExpressions trial;
    const bool isGood = trial.compile(d->sourceNames(), channels, &found);
    if (fault)
        *fault = found;
    if (!isGood)
        return false;
    beginSharedReset();
    d->take(channels);
    endSharedReset();
    return true;
}

QVector<ComputedChannel> RVXComputedChannelsProxyModel::computedChannels() const
{
    Q_D(const RVXComputedChannelsProxyModel);
    return d->channels;
}

ExpressionFault RVXComputedChannelsProxyModel::fault() const
{
    Q_D(const RVXComputedChannelsProxyModel);
    return d->fault;
}

// No cell has cells below it. The base class would ask the source, which does not know the computed ones.
int RVXComputedChannelsProxyModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : RVXPlotProxyModel::rowCount();
}

int RVXComputedChannelsProxyModel::columnCount(const QModelIndex &parent) const
{
    Q_D(const RVXComputedChannelsProxyModel);
    if (parent.isValid())
        return 0;
    const int columns = RVXPlotProxyModel::columnCount();
    return columns < 1 ? columns : columns + d->channels.size();
}

bool RVXComputedChannelsProxyModel::hasChildren(const QModelIndex &parent) const
{
    return !parent.isValid() && RVXPlotProxyModel::hasChildren();
}

QModelIndex
RVXComputedChannelsProxyModel::index(int row, int column, const QModelIndex &parent) const
{
    Q_D(const RVXComputedChannelsProxyModel);
    if (!d->isComputed(column) || parent.isValid())
        return RVXPlotProxyModel::index(row, column, parent);
    const bool exists = row >= 0 && row < rowCount() && column < columnCount();
    return exists ? createIndex(row, column) : QModelIndex();
}

QModelIndex RVXComputedChannelsProxyModel::mapToSource(const QModelIndex &proxyIndex) const
{
    Q_D(const RVXComputedChannelsProxyModel);
    return d->isComputed(proxyIndex.column()) ? QModelIndex()
                                              : RVXPlotProxyModel::mapToSource(proxyIndex);
}

QVariant RVXComputedChannelsProxyModel::data(const QModelIndex &index, int role) const
{
    Q_D(const RVXComputedChannelsProxyModel);
    if (!sourcePlotModel()) // its deletion may have begun while its item model is still there
        return QVariant();
    if (!d->isComputed(index.column()) || index.column() >= columnCount())
        return RVXPlotProxyModel::data(index, role);
    return index.row() == 0 ? d->header(index.column(), role) : d->sample(index, role);
}

bool RVXComputedChannelsProxyModel::setData(const QModelIndex &index,
                                            const QVariant &value,
                                            int role)
{
    Q_D(RVXComputedChannelsProxyModel);
    if (!d->isComputed(index.column()) || index.column() >= columnCount())
        return RVXPlotProxyModel::setData(index, value, role);
    if (index.row() != 0 || role != Qt::CheckStateRole)
        return false;
    bool &shown = d->shown[d->channelOf(index.column())];
    if (shown == value.toBool())
        return true;
    shown = value.toBool();
    Q_EMIT dataChanged(index, index);
    return true;
}

QVariant
RVXComputedChannelsProxyModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    Q_D(const RVXComputedChannelsProxyModel);
    if (orientation != Qt::Horizontal || !d->isComputed(section) || section >= columnCount())
        return RVXPlotProxyModel::headerData(section, orientation, role);
    return role == Qt::DisplayRole
        ? data(index(0, section), role)
        : RVXPlotProxyModel::headerData(d->sourceColumns() - 1, orientation, role);
}

Qt::ItemFlags RVXComputedChannelsProxyModel::flags(const QModelIndex &index) const
{
    Q_D(const RVXComputedChannelsProxyModel);
    if (!index.isValid() || !d->isComputed(index.column()))
        return RVXPlotProxyModel::flags(index);
    const Qt::ItemFlags readable = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return index.row() == 0 ? readable | Qt::ItemIsUserCheckable : readable;
}

double RVXComputedChannelsProxyModel::doubleData(int row, int column) const
{
    Q_D(const RVXComputedChannelsProxyModel);
    const RVXAbstractPlotDataModel *const plot = sourcePlotModel();
    if (!d->isComputed(column))
        return plot ? plot->doubleData(row, column) : 0.0;
    double value = 0.0;
    if (plot)
        d->read(column, row, 1, &value);
    return value;
}

void RVXComputedChannelsProxyModel::sourceRowsInserted(const QModelIndex &, int first, int)
{
    Q_D(RVXComputedChannelsProxyModel);
    d->update(first);
}

void RVXComputedChannelsProxyModel::sourceRowsRemoved(const QModelIndex &, int first, int last)
{
    Q_D(RVXComputedChannelsProxyModel);
    if (!d->isStored)
        return;
    if (first <= 1)
        d->readings.dropOldest(last - std::max(first, 1) + 1);
    // Rows were inserted between others, or the source already has rows that it has not announced.
    d->update(first <= 1 ? d->readings.rows() + 1 : first);
}

void RVXComputedChannelsProxyModel::sourceModelReset()
{
    Q_D(RVXComputedChannelsProxyModel);
    d->followColumnsOf(sourcePlotModel() ? sourceModel() : nullptr);
    d->compileAndRebuild();
}

void RVXComputedChannelsProxyModel::sourceDataChanged(const QModelIndex &topLeft,
                                                      const QModelIndex &bottomRight)
{
    Q_D(RVXComputedChannelsProxyModel);
    if (!topLeft.isValid() || d->channels.isEmpty())
        return;
    const bool isRenamed = topLeft.row() == 0 && d->sourceNames() != d->names;
    if (isRenamed)
        d->compileAndRebuild();
    else if (bottomRight.row() >= 1 && bottomRight.column() >= 1)
        d->update(std::max(topLeft.row(), 1));
    const int top = isRenamed ? 0 : std::max(topLeft.row(), 1);
    const int bottom = isRenamed ? d->sampleRows() : bottomRight.row();
    if (top <= bottom)
        Q_EMIT dataChanged(index(top, d->sourceColumns()), index(bottom, columnCount() - 1));
}

} // namespace Corvale_Qt
