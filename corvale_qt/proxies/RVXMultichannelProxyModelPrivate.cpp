// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RVXMultichannelProxyModelPrivate_p.h"
#include "corvale_qt/proxies/SingleChannelModelFactory.h"

#include <QBrush>
#include <QDebug>

#include <algorithm>
#include <limits>

namespace Corvale_Qt {

const PlotColumns *RVXMultichannelProxyModelPrivate::find(const RVXAbstractPlotDataModel &model)
{
    return static_cast<const RVXMultichannelProxyModel &>(model).d_func();
}

const bool RVXMultichannelProxyModelPrivate::known =
    PlotColumns::add(typeid(RVXMultichannelProxyModel), find);

RVXMultichannelProxyModelPrivate::RVXMultichannelProxyModelPrivate(RVXMultichannelProxyModel *proxy)
    : q(proxy)
    , ledger(proxy, sources, channels)
    , unitsRelay(proxy)
    , factory(new SingleChannelModelFactory)
{
}

RVXMultichannelProxyModelPrivate::~RVXMultichannelProxyModelPrivate()
{
    if (factory && !factory->parent())
        delete factory;
}

void RVXMultichannelProxyModelPrivate::read(int column, int firstRow, int count, double *out) const
{
    const Channel *shown = channel(column);
    if (column == 0)
        readTimes(firstRow, count, out);
    else if (shown)
        readChannel(*shown, firstRow, count, out);
    else
        std::fill_n(out, std::max(count, 0), 0.0);
    const bool withHeader = firstRow <= 0 && firstRow + count > 0;
    if (withHeader && column > 0)
        out[-firstRow] = column;
}

bool RVXMultichannelProxyModelPrivate::spans(int column,
                                             int firstRow,
                                             int count,
                                             ColumnSpans &spans) const
{
    const Channel *shown = column == 0 && timesAreOfFirst() ? &channels.first() : channel(column);
    // Rows beyond the source's own repeat its newest sample, which lies there once.
    if (!shown || !(column == 0 || shown->exists()) || firstRow < 1
        || firstRow + count > shown->source->rowCount())
        return false;
    return shown->source->reader.spans(column == 0 ? 0 : shown->column, firstRow, count, spans);
}

bool RVXMultichannelProxyModelPrivate::xRises() const
{
    return timesAreOfFirst() && channels.first().source->reader.xRises();
}

quint64 RVXMultichannelProxyModelPrivate::xVersion() const
{
    return timesAreOfFirst() ? channels.first().source->reader.xVersion() : 0;
}

//! Whether the first source is long enough for all rows.
bool RVXMultichannelProxyModelPrivate::timesAreOfFirst() const
{
    return !channels.isEmpty() && channels.first().source->rowCount() > ledger.rows();
}

qint64 RVXMultichannelProxyModelPrivate::droppedRows(int column) const
{
    const Channel *shown = channel(column);
    if (!shown)
        return -1;
    const qint64 ownWay = shown->source->reader.droppedRows(shown->column);
    return ownWay >= 0 ? ownWay : shown->source->dropped;
}

const Channel *RVXMultichannelProxyModelPrivate::channel(int column) const
{
    return column >= 1 && column <= channels.size() ? &channels.at(column - 1) : nullptr;
}

ChannelSource *RVXMultichannelProxyModelPrivate::sourceOf(const QAbstractItemModel *model) const
{
    const auto found = std::find_if(sources.begin(), sources.end(), [model](const auto &source) {
        return source->items == model;
    });
    return found == sources.end() ? nullptr : found->get();
}

QVector<const QAbstractItemModel *>
RVXMultichannelProxyModelPrivate::models(const RVXMultichannelProxyModel &proxy)
{
    QVector<const QAbstractItemModel *> found;
    for (const auto &source : proxy.d_func()->sources)
        found.append(source->items);
    return found;
}

RVXAbstractPlotDataModel *RVXMultichannelProxyModelPrivate::firstPlot() const
{
    return channels.isEmpty() ? nullptr : channels.first().source->plot();
}

bool RVXMultichannelProxyModelPrivate::hasRoom() const
{
    if (channels.size() < mostChannels)
        return true;
    qDebug() << "No more than" << mostChannels << "channels: the rest is refused";
    return false;
}

void RVXMultichannelProxyModelPrivate::insert(int position,
                                              QAbstractItemModel *items,
                                              RVXAbstractPlotDataModel *plot,
                                              int column)
{
    ledger.beginReset();
    ChannelSource *source = sourceOf(items);
    if (!source) {
        sources.push_back(std::make_unique<ChannelSource>(q, this, items, plot));
        source = sources.back().get();
    }
    channels.insert(qBound(0, position, channels.size()), Channel{source, column});
    channelsChanged();
    source->wire();
    ledger.endReset();
}

void RVXMultichannelProxyModelPrivate::remove(ChannelSource *source)
{
    ledger.beginReset();
    source->unwire();
    // Kept on purpose, for hosts already built: the relay is doubled instead of cut ...
    unitsRelay.relayTwice(source->items);
    // ... and a model that is found at position 0 stays.
    while (!channels.isEmpty() && channels.first().source != source) {
        const auto found =
            std::find_if(channels.begin(), channels.end(), [source](const Channel &c) {
                return c.source == source;
            });
        if (found == channels.end())
            break;
        channels.erase(found);
    }
    channelsChanged();
    ledger.endReset();
}

void RVXMultichannelProxyModelPrivate::sourceDestroyed(ChannelSource *source)
{
    // Little is left of the model: nobody may reach it, whoever listens to the reset included.
    const auto isOfSource = [source](const Channel &channel) {
        return channel.source == source;
    };
    channels.erase(std::remove_if(channels.begin(), channels.end(), isOfSource), channels.end());
    channelsChanged();
    // Proxies that stand on the model may not have announced their reset yet. They are asked how many rows they have;
    // the account is out of date.
    for (const auto &other : sources)
        other->rows = 0;
    ledger.beginReset();
    ledger.endReset();
}

void RVXMultichannelProxyModelPrivate::sourceTitlesChanged(const ChannelSource *source,
                                                           int first,
                                                           int last)
{
    const auto isChanged = [&](int section) {
        const Channel *const shown = section == 0 ? channels.constData() : channel(section);
        const int own = section == 0 ? 0 : shown ? shown->column : -1;
        return shown && shown->source == source && own >= first && own <= last;
    };
    for (int section = 0; section <= channels.size(); ++section) {
        if (isChanged(section))
            Q_EMIT q->headerDataChanged(Qt::Horizontal, section, section);
    }
}

QVariant RVXMultichannelProxyModelPrivate::unitOf(const Channel &channel)
{
    const QVariant own =
        channel.source->index(0, channel.column).data(RVXAbstractPlotDataModel::ChannelUnitRole);
    const RVXAbstractPlotDataModel *const plot = channel.source->plot();
    return own.isValid() || !plot ? own : QVariant::fromValue(plot->units());
}

QVariant RVXMultichannelProxyModelPrivate::withoutReading(int role)
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
    case Qt::ToolTipRole:
        return QStringLiteral("N/A");
    case Qt::TextAlignmentRole:
        return int(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::BackgroundRole:
        return QBrush(Qt::black);
    case Qt::ForegroundRole:
        return QBrush(Qt::green);
    case RVXAbstractPlotDataModel::NumericValueRole:
        return std::numeric_limits<double>::quiet_NaN();
    default:
        return QVariant();
    }
}

double RVXMultichannelProxyModelPrivate::time(int row) const
{
    double newest = 0.0;
    for (const Channel &channel : channels) {
        if (channel.source->has(row))
            return channel.source->plot()->doubleData(row, 0);
        const int rows = channel.source->rowCount();
        if (rows > 1)
            newest = channel.source->plot()->doubleData(rows - 1, 0);
    }
    return newest;
}

void RVXMultichannelProxyModelPrivate::readTimes(int firstRow, int count, double *out) const
{
    int done = 0;
    for (const Channel &channel : channels) {
        const int available =
            std::min(channel.source->rowCount() - (firstRow + done), count - done);
        if (available <= 0)
            continue;
        channel.source->reader.read(0, firstRow + done, available, out + done);
        done += available;
    }
    if (done < count)
        std::fill(out + done, out + count, time(firstRow + done));
}

void RVXMultichannelProxyModelPrivate::readChannel(const Channel &channel,
                                                   int firstRow,
                                                   int count,
                                                   double *out) const
{
    // The header row is not the channel's.
    const int before = std::clamp(1 - firstRow, 0, count);
    std::fill_n(out, before, 0.0);
    const int rows = channel.exists() ? channel.source->rowCount() : 0;
    const int own = std::clamp(rows - (firstRow + before), 0, count - before);
    channel.source->reader.read(channel.column, firstRow + before, own, out + before);
    if (before + own == count)
        return;
    double newest = std::numeric_limits<double>::quiet_NaN();
    if (rows > 1)
        channel.source->reader.read(channel.column, rows - 1, 1, &newest);
    std::fill(out + before + own, out + count, newest);
}

//! Numbers the columns of the sources, and lets go of those that no channel shows.
void RVXMultichannelProxyModelPrivate::channelsChanged()
{
    for (const auto &source : sources)
        source->columns.clear();
    for (int i = 0; i < channels.size(); ++i)
        channels[i].source->columns.append(i + 1);
    const auto firstUnused =
        std::stable_partition(sources.begin(), sources.end(), [](const auto &source) {
            return !source->columns.isEmpty();
        });
    ChannelSources unused(std::make_move_iterator(firstUnused),
                          std::make_move_iterator(sources.end()));
    sources.erase(firstUnused, sources.end());
    for (auto &source : unused)
        source.release()->retire();
}

} // namespace Corvale_Qt
