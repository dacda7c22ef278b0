// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"

#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/models/RVXSeriesData.h"
#include "corvale_qt/proxies/ChannelNameList_p.h"
#include "corvale_qt/proxies/Logging_p.h"
#include "corvale_qt/proxies/MultichannelFile_p.h"
#include "corvale_qt/proxies/ProxyIndexes_p.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel_p.h"
#include "corvale_qt/proxies/UpstreamChain_p.h"
#include "corvale_qt/units/Units.h"

#include <QBrush>
#include <QFile>
#include <QMimeData>

namespace Corvale_Qt {

namespace {

constexpr int plotWidthHintPoints = 256;

// Made when they are first asked for, so that loading the library takes no memory.
const Units::MeasurementUnit *unitWithoutChannels()
{
    static const Units::MeasurementUnit ampere(1.0, QStringLiteral("A"), 1.0);
    return &ampere;
}

const Units::MeasurementUnit *xUnitWithoutChannels()
{
    static const Units::S seconds;
    return &seconds;
}

bool isTaken(Qt::DropAction action)
{
    return action == Qt::CopyAction || action == Qt::LinkAction;
}

} // namespace

RVXMultichannelProxyModel::RVXMultichannelProxyModel(QObject *parent)
    : QAbstractProxyModel(parent)
    , d_ptr(new RVXMultichannelProxyModelPrivate(this))
{
}

RVXMultichannelProxyModel::~RVXMultichannelProxyModel() = default;

const RVXBulkPlotData *RVXMultichannelProxyModel::bulkPlotData() const
{
    Q_D(const RVXMultichannelProxyModel);
    return d;
}

void RVXMultichannelProxyModel::insertSourceModel(int position,
                                                  QAbstractItemModel *model,
                                                  int column)
{
    Q_D(RVXMultichannelProxyModel);
    auto *plot = dynamic_cast<RVXAbstractPlotDataModel *>(model);
    if (plot && !standsOn(model, this) && d->hasRoom())
        d->insert(position, model, plot, column);
}

void RVXMultichannelProxyModel::addSourceModel(QAbstractItemModel *model, int column)
{
    Q_D(RVXMultichannelProxyModel);
    insertSourceModel(d->channels.size(), model, column);
}

void RVXMultichannelProxyModel::addChannel(const QString &name)
{
    Q_D(RVXMultichannelProxyModel);
    if (!d->factory || !d->hasRoom())
        return;
    int column = 1;
    QAbstractItemModel *const model = d->factory->createModel(QStringList(name), &column, this);
    addSourceModel(model, column);
}

void RVXMultichannelProxyModel::removeSourceModel(QAbstractItemModel *model)
{
    Q_D(RVXMultichannelProxyModel);
    if (MergedInput *input = d->inputOf(model))
        d->remove(input);
}

QStringList RVXMultichannelProxyModel::channelNames() const
{
    Q_D(const RVXMultichannelProxyModel);
    QStringList names;
    for (const Channel &channel : d->channels) {
        const QAbstractItemModel *const items = channel.input->items;
        const QString name = items ? items->property("channel").toString() : QString();
        if (!name.isEmpty())
            names.append(name);
    }
    return names;
}

void RVXMultichannelProxyModel::setChannelNames(const QStringList &names)
{
    Q_D(RVXMultichannelProxyModel);
    for (const QString &name : names) {
        if (!d->hasRoom())
            break;
        addChannel(name);
    }
}

bool RVXMultichannelProxyModel::showNames() const
{
    Q_D(const RVXMultichannelProxyModel);
    return d->showNames;
}

void RVXMultichannelProxyModel::setShowNames(bool show)
{
    Q_D(RVXMultichannelProxyModel);
    if (show == d->showNames)
        return;
    d->showNames = show;
    if (!d->channels.isEmpty())
        d->titlesChanged(1, d->channels.size());
    Q_EMIT showNamesChanged(show);
}

void RVXMultichannelProxyModel::setChannelModelFactory(AbstractChannelModelFactory *factory)
{
    Q_D(RVXMultichannelProxyModel);
    if (factory == d->factory)
        return;
    delete d->factory;
    d->factory = factory;
}

QModelIndex RVXMultichannelProxyModel::index(int row, int column, const QModelIndex &parent) const
{
    Q_D(const RVXMultichannelProxyModel);
    const bool inside = row >= 0 && row <= d->announcer.rows() && column >= 0
        && column <= d->channels.size() && !parent.isValid();
    return inside ? createIndex(row, column) : QModelIndex();
}

QModelIndex RVXMultichannelProxyModel::parent(const QModelIndex &) const
{
    return QModelIndex();
}

int RVXMultichannelProxyModel::rowCount(const QModelIndex &parent) const
{
    Q_D(const RVXMultichannelProxyModel);
    return parent.isValid() ? 0 : d->announcer.rows() + 1;
}

int RVXMultichannelProxyModel::columnCount(const QModelIndex &parent) const
{
    Q_D(const RVXMultichannelProxyModel);
    return parent.isValid() ? 0 : d->channels.size() + 1;
}

bool RVXMultichannelProxyModel::hasChildren(const QModelIndex &parent) const
{
    return !parent.isValid();
}

QVariant RVXMultichannelProxyModel::data(const QModelIndex &index, int role) const
{
    Q_D(const RVXMultichannelProxyModel);
    const Channel *const channel = index.isValid() ? d->channel(index.column()) : nullptr;
    if (channel && index.row() == 0 && role == Qt::BackgroundRole)
        return QBrush(RVXPlotColors::color(index.column() - 1));
    if (channel && index.row() == 0 && role == ChannelUnitRole)
        return RVXMultichannelProxyModelPrivate::unitOf(*channel);
    if (channel && index.row() == 0 && (role == Qt::DisplayRole || role == Qt::EditRole)) {
        const QString name = d->shownName(*channel);
        if (!name.isEmpty())
            return name;
    }
    if (channel && index.row() >= 1 && channel->shownRow(index.row()) < 1)
        return RVXMultichannelProxyModelPrivate::withoutReading(role);
    return mapToSource(index).data(role);
}

bool RVXMultichannelProxyModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    Q_D(RVXMultichannelProxyModel);
    const Channel *channel = index.isValid() ? d->channel(index.column()) : nullptr;
    return channel && channel->input->items
        && channel->input->items->setData(mapToSource(index), value, role);
}

QVariant
RVXMultichannelProxyModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    Q_D(const RVXMultichannelProxyModel);
    const int sections = orientation == Qt::Horizontal ? columnCount() : rowCount();
    if (section < 0 || section >= sections)
        return QVariant();
    if (orientation != Qt::Horizontal || d->channels.isEmpty())
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    const Channel &channel = section == 0 ? d->channels.first() : *d->channel(section);
    const QAbstractItemModel *const items = channel.input->items;
    if (!items || !(section == 0 || channel.exists()))
        return QVariant();
    if (section > 0 && role == Qt::DisplayRole) {
        const QString name = d->shownName(channel);
        if (!name.isEmpty())
            return name;
    }
    return items->headerData(section == 0 ? 0 : channel.column, orientation, role);
}

QModelIndex RVXMultichannelProxyModel::buddy(const QModelIndex &index) const
{
    return index;
}

QStringList RVXMultichannelProxyModel::mimeTypes() const
{
    return {channelNameListType(), QStringLiteral("text/plain")};
}

bool RVXMultichannelProxyModel::canDropMimeData(const QMimeData *data,
                                                Qt::DropAction action,
                                                int,
                                                int,
                                                const QModelIndex &) const
{
    return data && isTaken(action) && (data->hasFormat(channelNameListType()) || data->hasText());
}

bool RVXMultichannelProxyModel::dropMimeData(const QMimeData *data,
                                             Qt::DropAction action,
                                             int,
                                             int,
                                             const QModelIndex &)
{
    Q_D(RVXMultichannelProxyModel);
    if (action == Qt::IgnoreAction)
        return true;
    if (!data || !isTaken(action))
        return false;

    QStringList names;
    if (data->hasFormat(channelNameListType()))
        // One name too many is read, so that the refusal is reported.
        names = readChannelNames(data->data(channelNameListType()),
                                 RVXMultichannelProxyModelPrivate::mostChannels + 1);
    else if (data->hasText())
        names.append(data->text());
    else
        return false;

    for (const QString &name : qAsConst(names)) {
        if (!d->hasRoom())
            break;
        qCDebug(proxiesLog) << "Drop channel" << name;
        addChannel(name);
    }
    return true;
}

Qt::DropActions RVXMultichannelProxyModel::supportedDropActions() const
{
    return Qt::CopyAction | Qt::LinkAction;
}

bool RVXMultichannelProxyModel::insertRows(int, int, const QModelIndex &)
{
    return false;
}

bool RVXMultichannelProxyModel::insertColumns(int, int, const QModelIndex &)
{
    return false;
}

bool RVXMultichannelProxyModel::removeRows(int, int, const QModelIndex &)
{
    return false;
}

bool RVXMultichannelProxyModel::removeColumns(int, int, const QModelIndex &)
{
    return false;
}

Qt::ItemFlags RVXMultichannelProxyModel::flags(const QModelIndex &index) const
{
    // Views ask with an invalid index whether names can be dropped on their empty area.
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    const QModelIndex source = mapToSource(index);
    return source.isValid() ? source.flags() : Qt::ItemIsSelectable | Qt::ItemIsEnabled;
}

QModelIndexList RVXMultichannelProxyModel::match(const QModelIndex &start,
                                                 int role,
                                                 const QVariant &value,
                                                 int hits,
                                                 Qt::MatchFlags flags) const
{
    const QModelIndex source = mapToSource(start);
    if (!source.isValid())
        return QModelIndexList();
    // The source searches one of its columns, which several channels may show: hits belong to the column asked for.
    return mapIndexes(source.model()->match(source, role, value, hits, flags),
                      [&](const QModelIndex &hit) {
                          return index(hit.row(), start.column());
                      });
}

void RVXMultichannelProxyModel::setSourceModel(QAbstractItemModel *) { }

QModelIndex RVXMultichannelProxyModel::mapToSource(const QModelIndex &proxyIndex) const
{
    Q_D(const RVXMultichannelProxyModel);
    if (!proxyIndex.isValid())
        return QModelIndex();
    const int row = proxyIndex.row();
    if (const Channel *channel = d->channel(proxyIndex.column())) {
        const int shown = row == 0 ? 0 : channel->shownRow(row);
        return shown >= 1 || row == 0 ? channel->input->index(shown, channel->column)
                                      : QModelIndex();
    }
    if (proxyIndex.column() != 0)
        return QModelIndex();
    for (const Channel &channel : d->channels) {
        if (row < channel.input->rowCount())
            return channel.input->index(row, 0);
    }
    return QModelIndex();
}

QModelIndex RVXMultichannelProxyModel::mapFromSource(const QModelIndex &sourceIndex) const
{
    Q_D(const RVXMultichannelProxyModel);
    const MergedInput *input = sourceIndex.isValid() ? d->inputOf(sourceIndex.model()) : nullptr;
    if (!input)
        return QModelIndex();
    const int column = sourceIndex.column() == 0 ? 0 : input->columns.first();
    return createIndex(sourceIndex.row(), column, sourceIndex.internalPointer());
}

QItemSelection
RVXMultichannelProxyModel::mapSelectionToSource(const QItemSelection &selection) const
{
    return mapRanges(selection, [this](const QModelIndex &index) {
        return mapToSource(index);
    });
}

QItemSelection
RVXMultichannelProxyModel::mapSelectionFromSource(const QItemSelection &selection) const
{
    return mapRanges(selection, [this](const QModelIndex &index) {
        return mapFromSource(index);
    });
}

bool RVXMultichannelProxyModel::SaveDataToFile(const QString &fileName) const
{
    Q_D(const RVXMultichannelProxyModel);
    if (d->channels.isEmpty() || fileName.isEmpty())
        return false;
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    const bool complete = writeChannels(file, d->channels, d->announcer.rows()) && file.flush();
    file.close();
    return complete && file.error() == QFileDevice::NoError;
}

void RVXMultichannelProxyModel::Clear()
{
    Q_D(RVXMultichannelProxyModel);
    QList<QPointer<MergedInput>> inputs;
    for (const auto &input : d->inputs)
        inputs.append(input.get());
    d->announcer.beginReset();
    for (const QPointer<MergedInput> &input : qAsConst(inputs)) {
        if (input && input->plot() && !input->columns.isEmpty())
            input->plot()->Clear();
    }
    d->announcer.endReset();
}

int RVXMultichannelProxyModel::PlotWidthHintPoints() const
{
    Q_D(const RVXMultichannelProxyModel);
    return d->firstPlot() ? d->firstPlot()->PlotWidthHintPoints() : plotWidthHintPoints;
}

double RVXMultichannelProxyModel::PlotWidthHint() const
{
    Q_D(const RVXMultichannelProxyModel);
    return d->firstPlot() ? d->firstPlot()->PlotWidthHint() : 0.0;
}

const Units::MeasurementUnit *RVXMultichannelProxyModel::units() const
{
    Q_D(const RVXMultichannelProxyModel);
    return d->firstPlot() ? d->firstPlot()->units() : unitWithoutChannels();
}

const Units::MeasurementUnit *RVXMultichannelProxyModel::xUnits() const
{
    Q_D(const RVXMultichannelProxyModel);
    return d->firstPlot() ? d->firstPlot()->xUnits() : xUnitWithoutChannels();
}

int RVXMultichannelProxyModel::MaxBufferSize() const
{
    Q_D(const RVXMultichannelProxyModel);
    return d->firstPlot() ? d->firstPlot()->MaxBufferSize() : 0;
}

double RVXMultichannelProxyModel::doubleData(int row, int column) const
{
    Q_D(const RVXMultichannelProxyModel);
    if (column == 0) {
        const bool isOfFirst = !d->channels.isEmpty() && d->channels.first().input->has(row);
        return isOfFirst ? d->channels.first().input->numberOf(row, 0) : d->time(row);
    }
    const Channel *channel = d->channel(column);
    if (row == 0 && column > 0)
        return column;
    if (!channel || row < 0)
        return 0.0;
    if (channel->exists() && channel->input->has(row))
        return channel->input->numberOf(row, channel->column);
    return channel->newestNumber();
}

QwtSeriesData<QPointF> *
RVXMultichannelProxyModel::seriesData(int column, int startRow, int endRow) const
{
    return new RVXSeriesData(*this, column, startRow, endRow);
}

void RVXMultichannelProxyModel::sourceRowsInserted(const QModelIndex &, int, int) { }
void RVXMultichannelProxyModel::sourceRowsRemoved(const QModelIndex &, int, int) { }
void RVXMultichannelProxyModel::sourceModelReset() { }
void RVXMultichannelProxyModel::sourceDataChanged(const QModelIndex &, const QModelIndex &) { }

} // namespace Corvale_Qt
