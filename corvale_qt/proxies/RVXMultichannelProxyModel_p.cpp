// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RVXMultichannelProxyModel_p.h"

#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/Logging_p.h"
#include "corvale_qt/proxies/SingleChannelModelFactory.h"
#include "corvale_qt/proxies/UpstreamSignals_p.h"

#include <QAbstractProxyModel>
#include <QBrush>
#include <QString>

#include <algorithm>
#include <limits>

namespace Corvale_Qt {

namespace {

const char *const changed = SIGNAL(unitsChanged(const Corvale_Qt::Units::MeasurementUnit *));

/*! Returns the name of the channel in \a column of \a model, or an empty string if it has none. In this order: the
    dynamic property "channel" of a model with a single channel; the text in the header row of the innermost model, the
    proxies in between skipped, unless the text is only the number of the column; the name of a
    RVXSingleChannelDataModel. */
QString channelName(const QAbstractItemModel *model, int column);

//! Follows proxies down to the cell that they show.
QModelIndex innermost(QModelIndex index)
{
    while (const auto *proxy = qobject_cast<const QAbstractProxyModel *>(index.model()))
        index = proxy->mapToSource(index);
    return index;
}

QString channelName(const QAbstractItemModel *model, int column)
{
    if (!model)
        return QString();
    // A property belongs to a whole model, so it cannot tell several channels apart.
    QString property =
        model->columnCount() <= 2 ? model->property("channel").toString() : QString();
    if (!property.isEmpty())
        return property;
    const QModelIndex header = innermost(model->index(0, column));
    QString text = header.data().toString();
    if (!text.isEmpty() && text != QString::number(header.column()))
        return text;
    const auto *single = qobject_cast<const RVXSingleChannelDataModel *>(header.model());
    return single ? single->channelName() : QString();
}

} // namespace

UnitsRelay::UnitsRelay(QObject *proxy)
    : m_proxy(proxy)
{
    connectUnitsChanged(this, m_proxy, changed);
}

void UnitsRelay::relay(const QObject *model)
{
    connectUnitsChanged(model, m_proxy, changed, Qt::UniqueConnection);
    disconnect(model, nullptr, this, nullptr);
}

void UnitsRelay::relayTwice(const QObject *model)
{
    relay(model);
    connectUnitsChanged(model, this, changed);
}

RVXMultichannelProxyModelPrivate::RVXMultichannelProxyModelPrivate(RVXMultichannelProxyModel *proxy)
    : q(proxy)
    , announcer(proxy, inputs, channels)
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

bool RVXMultichannelProxyModelPrivate::columnSpans(int column,
                                                   int firstRow,
                                                   int count,
                                                   RingSpans &spans) const
{
    const Channel *shown = column == 0 && timesAreOfFirst() ? &channels.first() : channel(column);
    // Rows beyond those of the input repeat its newest sample, which is stored only once.
    if (!shown || !(column == 0 || shown->exists()) || firstRow < 1
        || firstRow + count > shown->input->rowCount())
        return false;
    return shown->input->reader.spans(column == 0 ? 0 : shown->column, firstRow, count, spans);
}

bool RVXMultichannelProxyModelPrivate::xRises() const
{
    return timesAreOfFirst() && channels.first().input->reader.xRises();
}

quint64 RVXMultichannelProxyModelPrivate::xVersion() const
{
    return timesAreOfFirst() ? channels.first().input->reader.xVersion() : 0;
}

//! Returns whether the first input provides the times of all rows.
bool RVXMultichannelProxyModelPrivate::timesAreOfFirst() const
{
    return !channels.isEmpty() && channels.first().input->rowCount() > announcer.rows();
}

qint64 RVXMultichannelProxyModelPrivate::droppedRows(int column) const
{
    const Channel *shown = channel(column);
    if (!shown)
        return -1;
    const qint64 ownWay = shown->input->reader.droppedRows(shown->column);
    return ownWay >= 0 ? ownWay : shown->input->dropped;
}

MergedInput *RVXMultichannelProxyModelPrivate::inputOf(const QAbstractItemModel *model) const
{
    const auto found = std::find_if(inputs.begin(), inputs.end(), [model](const auto &input) {
        return model && input->items == model; // a source that is dying is null already
    });
    return found == inputs.end() ? nullptr : found->get();
}

QVector<const QAbstractItemModel *>
RVXMultichannelProxyModelPrivate::models(const RVXMultichannelProxyModel &proxy)
{
    QVector<const QAbstractItemModel *> found;
    for (const auto &input : proxy.d_func()->inputs)
        found.append(input->items);
    return found;
}

RVXAbstractPlotDataModel *RVXMultichannelProxyModelPrivate::firstPlot() const
{
    return channels.isEmpty() ? nullptr : channels.first().input->plot();
}

bool RVXMultichannelProxyModelPrivate::hasRoom() const
{
    if (channels.size() < mostChannels)
        return true;
    qCDebug(proxiesLog) << "No more than" << mostChannels << "channels: the rest is refused";
    return false;
}

void RVXMultichannelProxyModelPrivate::insert(int position,
                                              QAbstractItemModel *items,
                                              RVXAbstractPlotDataModel *plot,
                                              int column)
{
    announcer.beginReset();
    MergedInput *input = inputOf(items);
    if (!input) {
        inputs.push_back(std::make_unique<MergedInput>(q, this, items, plot));
        input = inputs.back().get();
    }
    channels.insert(qBound(0, position, channels.size()), Channel{input, column});
    channelsChanged();
    input->wire();
    announcer.endReset();
}

void RVXMultichannelProxyModelPrivate::remove(MergedInput *input)
{
    announcer.beginReset();
    input->unwire();
    // Existing hosts rely on this: unitsChanged() is passed on twice instead of no longer ...
    unitsRelay.relayTwice(input->items);
    // ... and a model whose channel is at position 0 stays.
    while (!channels.isEmpty() && channels.first().input != input) {
        const auto found =
            std::find_if(channels.begin(), channels.end(), [input](const Channel &c) {
                return c.input == input;
            });
        if (found == channels.end())
            break;
        channels.erase(found);
    }
    channelsChanged();
    announcer.endReset();
}

void RVXMultichannelProxyModelPrivate::inputDestroyed(MergedInput *input)
{
    // Little is left of the model, so listeners to the reset must not reach it.
    const auto isOfSource = [input](const Channel &channel) {
        return channel.input == input;
    };
    channels.erase(std::remove_if(channels.begin(), channels.end(), isOfSource), channels.end());
    channelsChanged();
    // Proxies that stand on the model may not have announced their reset yet, so their counts may be too high. With a
    // count of 0 they are asked for their rows.
    for (const auto &other : inputs)
        other->rows = 0;
    announcer.beginReset();
    announcer.endReset();
}

void RVXMultichannelProxyModelPrivate::inputTitlesChanged(const MergedInput *input,
                                                          int first,
                                                          int last)
{
    const auto isChanged = [&](int section) {
        const Channel *const shown = section == 0 ? channels.constData() : channel(section);
        const int own = section == 0 ? 0 : shown ? shown->column : -1;
        return shown && shown->input == input && own >= first && own <= last;
    };
    for (int section = 0; section <= channels.size(); ++section) {
        if (!isChanged(section))
            continue;
        if (showNames && section > 0)
            titlesChanged(section, section);
        else
            Q_EMIT q->headerDataChanged(Qt::Horizontal, section, section);
    }
}

void RVXMultichannelProxyModelPrivate::titlesChanged(int first, int last)
{
    Q_EMIT q->headerDataChanged(Qt::Horizontal, first, last);
    // Views of plots read the header row.
    Q_EMIT q->dataChanged(q->index(0, first), q->index(0, last), {Qt::DisplayRole, Qt::EditRole});
}

QString RVXMultichannelProxyModelPrivate::shownName(const Channel &channel) const
{
    return showNames ? channelName(channel.input->items, channel.column) : QString();
}

QVariant RVXMultichannelProxyModelPrivate::unitOf(const Channel &channel)
{
    const QVariant own =
        channel.input->index(0, channel.column).data(RVXAbstractPlotDataModel::ChannelUnitRole);
    const RVXAbstractPlotDataModel *const plot = channel.input->plot();
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
        if (channel.input->has(row))
            return channel.input->numberOf(row, 0);
        const int rows = channel.input->rowCount();
        if (rows > 1)
            newest = channel.input->plot()->doubleData(rows - 1, 0);
    }
    return newest;
}

void RVXMultichannelProxyModelPrivate::readTimes(int firstRow, int count, double *out) const
{
    int done = 0;
    for (const Channel &channel : channels) {
        const int available = std::min(channel.input->rowCount() - (firstRow + done), count - done);
        if (available <= 0)
            continue;
        channel.input->reader.read(0, firstRow + done, available, out + done);
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
    // The header row is not read from the channel.
    const int before = std::clamp(1 - firstRow, 0, count);
    std::fill_n(out, before, 0.0);
    const int rows = channel.exists() ? channel.input->rowCount() : 0;
    const int own = std::clamp(rows - (firstRow + before), 0, count - before);
    channel.input->reader.read(channel.column, firstRow + before, own, out + before);
    if (before + own == count)
        return;
    double newest = std::numeric_limits<double>::quiet_NaN();
    if (rows > 1)
        channel.input->reader.read(channel.column, rows - 1, 1, &newest);
    std::fill(out + before + own, out + count, newest);
}

//! Updates the columns of each input and removes the inputs that no channel shows.
void RVXMultichannelProxyModelPrivate::channelsChanged()
{
    for (const auto &input : inputs)
        input->columns.clear();
    for (int i = 0; i < channels.size(); ++i)
        channels[i].input->columns.append(i + 1);
    const auto firstUnused =
        std::stable_partition(inputs.begin(), inputs.end(), [](const auto &input) {
            return !input->columns.isEmpty();
        });
    MergedInputs unused(std::make_move_iterator(firstUnused),
                        std::make_move_iterator(inputs.end()));
    inputs.erase(firstUnused, inputs.end());
    for (auto &input : unused)
        input.release()->retire();
}

} // namespace Corvale_Qt
