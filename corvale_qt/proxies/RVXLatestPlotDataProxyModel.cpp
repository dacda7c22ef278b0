// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RVXLatestPlotDataProxyModel.h"

#include "corvale_qt/proxies/ChannelNameList_p.h"
#include "corvale_qt/proxies/LatestCells_p.h"
#include "corvale_qt/proxies/ProxyIndexes_p.h"
#include "corvale_qt/proxies/UpstreamChain_p.h"
#include "corvale_qt/proxies/UpstreamSignals_p.h"

#include <QMimeData>
#include <QPointer>
#include <QSize>
#include <QVector>

#include <algorithm>
#include <utility>

namespace Corvale_Qt {

namespace {

enum Column {
    ChannelColumn,
    DataColumn,
    ColumnCount
};

} // namespace

class RVXLatestPlotDataProxyModelPrivate
{
public:
    explicit RVXLatestPlotDataProxyModelPrivate(RVXLatestPlotDataProxyModel *model)
        : q(model)
    {
    }

    void _q_sourceRowsInserted(const QModelIndex &parent, int first, int last);
    void _q_sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight);
    void _q_sourceModelAboutToBeReset();
    void _q_sourceModelReset();

    int channels() const { return source ? std::max(source->columnCount() - 1, 0) : 0; }
    int newestRow() const { return source->rowCount() - 1; }
    void attach(QAbstractItemModel *model);
    void detach();
    void sourceDestroyed();
    void newestChanged();
    void announce(int firstRow, int lastRow, int firstColumn, int lastColumn);

    void followUnits();
    bool readUnits();
    void retitle();
    QVariant titleNow() const { return dataTitle(source, hasSiPrefix || unitsDiffer(source)); }

    RVXLatestPlotDataProxyModel *const q;
    QPointer<QAbstractItemModel> source;
    // The cell that is being edited, and whether a change in its row was held back.
    QModelIndex edited;
    bool editedChanged = false;
    bool resetting = false;
    // Whether each reading shows its unit, since the title cannot.
    bool showsUnits = false;
    bool hasSiPrefix = false;
    mutable LatestPrefixes prefixes; // a cell's text depends on the readings before

private:
    using Connections = QVector<QMetaObject::Connection>;
    static void cut(Connections &connections);

    Connections connections;
    // To the source and the models below it, from which units may come.
    Connections unitConnections;
    // The title that views show.
    QString title;
};

void RVXLatestPlotDataProxyModelPrivate::_q_sourceRowsInserted(const QModelIndex &parent, int, int)
{
    if (!parent.isValid())
        newestChanged();
}

void RVXLatestPlotDataProxyModelPrivate::_q_sourceDataChanged(const QModelIndex &topLeft,
                                                              const QModelIndex &bottomRight)
{
    if (!topLeft.isValid() || !bottomRight.isValid())
        return;
    const bool header = topLeft.row() == 0;
    const bool newest = bottomRight.row() == newestRow();
    if (header || newest)
        announce(std::max(topLeft.column(), 1) - 1,
                 bottomRight.column() - 1,
                 header ? ChannelColumn : DataColumn,
                 newest ? DataColumn : ChannelColumn);
    if (header) // the title shows the check state of all channels together
        Q_EMIT q->headerDataChanged(Qt::Horizontal, ChannelColumn, ChannelColumn);
    // A change of unit arrives as a change of all samples; the proxies below may not pass on any other signal. Changes of
    // single channels, such as merged channels that roll over, are too frequent to look up all units.
    const bool everySample =
        newest && topLeft.row() <= 1 && topLeft.column() <= 1 && bottomRight.column() >= channels();
    if (header || everySample)
        retitle();
}

void RVXLatestPlotDataProxyModelPrivate::_q_sourceModelAboutToBeReset()
{
    if (resetting)
        return;
    resetting = true;
    q->beginResetModel();
    edited = QModelIndex();
    editedChanged = false;
}

void RVXLatestPlotDataProxyModelPrivate::_q_sourceModelReset()
{
    if (!resetting)
        return;
    resetting = false;
    prefixes.restart(source);
    followUnits();
    q->endResetModel();
}

void RVXLatestPlotDataProxyModelPrivate::attach(QAbstractItemModel *model)
{
    q->QAbstractProxyModel::setSourceModel(model);
    source = model;
    if (!source)
        return;
    const auto wire = [this](const char *signal, const char *slot) {
        connections << QObject::connect(source, signal, q, slot);
    };
    wire(SIGNAL(rowsInserted(QModelIndex, int, int)),
         SLOT(_q_sourceRowsInserted(QModelIndex, int, int)));
    wire(SIGNAL(dataChanged(QModelIndex, QModelIndex)),
         SLOT(_q_sourceDataChanged(QModelIndex, QModelIndex)));
    wire(SIGNAL(modelAboutToBeReset()), SLOT(_q_sourceModelAboutToBeReset()));
    wire(SIGNAL(modelReset()), SLOT(_q_sourceModelReset()));
    followUnits();

    // The newest sample may be removed or moved, and channels may change.
    using Model = QAbstractItemModel;
    const auto on = [this](auto signal, auto act) {
        connections << QObject::connect(source.data(), signal, q, act);
    };
    const auto newest = [this] {
        newestChanged();
    };
    const auto begin = [this] {
        _q_sourceModelAboutToBeReset();
    };
    const auto end = [this] {
        _q_sourceModelReset();
    };
    on(&Model::rowsRemoved, newest);
    on(&Model::rowsMoved, newest);
    on(&Model::layoutChanged, [this] {
        announce(0, channels() - 1, ChannelColumn, DataColumn);
        retitle();
    });
    on(&Model::columnsAboutToBeInserted, begin);
    on(&Model::columnsInserted, end);
    on(&Model::columnsAboutToBeRemoved, begin);
    on(&Model::columnsRemoved, end);
    on(&Model::columnsAboutToBeMoved, begin);
    on(&Model::columnsMoved, end);
    on(&QObject::destroyed, [this] {
        sourceDestroyed();
    });
}

void RVXLatestPlotDataProxyModelPrivate::detach()
{
    cut(connections);
    source = nullptr;
}

//! Disconnects \a connections only, so that connections made by a host stay.
void RVXLatestPlotDataProxyModelPrivate::cut(Connections &connections)
{
    for (const QMetaObject::Connection &connection : connections)
        QObject::disconnect(connection);
    connections.clear();
}

/*! Listens to unitsChanged() of all models below, since a proxy shows its source's units without a signal that says when
    they change. */
void RVXLatestPlotDataProxyModelPrivate::followUnits()
{
    cut(unitConnections);
    const QAbstractItemModel *model = source;
    while (model) {
        unitConnections << connectUnitsChanged(model, q, SLOT(UpdateHeaders()));
        model = sourceOf(model);
    }
    readUnits();
}

//! Decides whether the title or each reading shows the unit. Returns whether the title has changed.
bool RVXLatestPlotDataProxyModelPrivate::readUnits()
{
    const bool shownBefore = std::exchange(showsUnits, hasSiPrefix || unitsDiffer(source));
    const QString oldTitle = std::exchange(title, dataTitle(source, showsUnits));
    if (showsUnits != shownBefore)
        newestChanged();
    return title != oldTitle;
}

//! Announces the title if it has changed.
void RVXLatestPlotDataProxyModelPrivate::retitle()
{
    if (readUnits())
        Q_EMIT q->headerDataChanged(Qt::Horizontal, DataColumn, DataColumn);
}

void RVXLatestPlotDataProxyModelPrivate::sourceDestroyed()
{
    source = nullptr; // too little of it is left to be asked
    _q_sourceModelAboutToBeReset();
    detach();
    attach(nullptr);
    _q_sourceModelReset();
}

void RVXLatestPlotDataProxyModelPrivate::newestChanged()
{
    announce(0, channels() - 1, DataColumn, DataColumn);
}

//! Emits dataChanged() for these cells, except those of the row that is being edited.
void RVXLatestPlotDataProxyModelPrivate::announce(int firstRow,
                                                  int lastRow,
                                                  int firstColumn,
                                                  int lastColumn)
{
    if (resetting)
        return;
    lastRow = std::min(lastRow, channels() - 1);
    const auto rows = [&](int first, int last) {
        if (first <= last)
            Q_EMIT q->dataChanged(q->index(first, firstColumn), q->index(last, lastColumn));
    };
    const int row = edited.isValid() ? edited.row() : -1;
    if (row < firstRow || row > lastRow) {
        rows(firstRow, lastRow);
        return;
    }
    editedChanged = true;
    rows(firstRow, row - 1);
    rows(row + 1, lastRow);
}

RVXLatestPlotDataProxyModel::RVXLatestPlotDataProxyModel(QObject *parent)
    : QAbstractProxyModel(parent)
    , d_ptr(new RVXLatestPlotDataProxyModelPrivate(this))
{
}

RVXLatestPlotDataProxyModel::~RVXLatestPlotDataProxyModel() = default;

QModelIndex RVXLatestPlotDataProxyModel::index(int row, int column, const QModelIndex &parent) const
{
    return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

QModelIndex RVXLatestPlotDataProxyModel::parent(const QModelIndex &) const
{
    return QModelIndex();
}

int RVXLatestPlotDataProxyModel::rowCount(const QModelIndex &parent) const
{
    Q_D(const RVXLatestPlotDataProxyModel);
    return parent.isValid() ? 0 : d->channels();
}

int RVXLatestPlotDataProxyModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

bool RVXLatestPlotDataProxyModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

QVariant RVXLatestPlotDataProxyModel::data(const QModelIndex &index, int role) const
{
    Q_D(const RVXLatestPlotDataProxyModel);
    const QModelIndex source = mapToSource(index);
    if (index.column() == DataColumn) {
        if (d->source && d->newestRow() < 1)
            return cellWithoutSample(role);
        if (role != Qt::DisplayRole || !d->showsUnits || !source.isValid())
            return source.data(role);
        return d->hasSiPrefix ? d->prefixes.reading(source) : readingWithUnit(source);
    }
    if (role == Qt::BackgroundRole && source.isValid())
        return channelBackground(source);
    if (role == Qt::ForegroundRole && source.isValid())
        return channelForeground(source);
    return source.data(role);
}

QVariant
RVXLatestPlotDataProxyModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    Q_D(const RVXLatestPlotDataProxyModel);
    if (orientation != Qt::Horizontal)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        if (section == ChannelColumn)
            return tr("Channel");
        return section == DataColumn ? d->titleNow() : QVariant();
    case Qt::TextAlignmentRole:
        return Qt::AlignHCenter;
    case Qt::CheckStateRole:
        return section == ChannelColumn ? checkStateOfAll(d->source) : QVariant();
    default:
        return QVariant();
    }
}

bool RVXLatestPlotDataProxyModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    return d_func()->source && QAbstractProxyModel::setData(index, value, role);
}

bool RVXLatestPlotDataProxyModel::setHeaderData(int section,
                                                Qt::Orientation orientation,
                                                const QVariant &value,
                                                int role)
{
    return d_func()->source
        && QAbstractProxyModel::setHeaderData(section, orientation, value, role);
}

QSize RVXLatestPlotDataProxyModel::span(const QModelIndex &index) const
{
    return d_func()->source ? QAbstractProxyModel::span(index) : QSize(1, 1);
}

bool RVXLatestPlotDataProxyModel::canFetchMore(const QModelIndex &parent) const
{
    return d_func()->source && QAbstractProxyModel::canFetchMore(parent);
}

void RVXLatestPlotDataProxyModel::fetchMore(const QModelIndex &parent)
{
    if (d_func()->source)
        QAbstractProxyModel::fetchMore(parent);
}

void RVXLatestPlotDataProxyModel::sort(int column, Qt::SortOrder order)
{
    if (d_func()->source)
        QAbstractProxyModel::sort(column, order);
}

bool RVXLatestPlotDataProxyModel::submit()
{
    return !d_func()->source || QAbstractProxyModel::submit(); // nothing is left to submit
}

void RVXLatestPlotDataProxyModel::revert()
{
    if (d_func()->source)
        QAbstractProxyModel::revert();
}

bool RVXLatestPlotDataProxyModel::canDropMimeData(const QMimeData *data,
                                                  Qt::DropAction action,
                                                  int row,
                                                  int column,
                                                  const QModelIndex &parent) const
{
    return d_func()->source
        && QAbstractProxyModel::canDropMimeData(data, action, row, column, parent);
}

bool RVXLatestPlotDataProxyModel::dropMimeData(const QMimeData *data,
                                               Qt::DropAction action,
                                               int row,
                                               int column,
                                               const QModelIndex &parent)
{
    return d_func()->source && QAbstractProxyModel::dropMimeData(data, action, row, column, parent);
}

Qt::DropActions RVXLatestPlotDataProxyModel::supportedDragActions() const
{
    return d_func()->source ? QAbstractProxyModel::supportedDragActions() : Qt::IgnoreAction;
}

Qt::DropActions RVXLatestPlotDataProxyModel::supportedDropActions() const
{
    return d_func()->source ? QAbstractProxyModel::supportedDropActions() : Qt::IgnoreAction;
}

QModelIndex RVXLatestPlotDataProxyModel::buddy(const QModelIndex &index) const
{
    return index;
}

QStringList RVXLatestPlotDataProxyModel::mimeTypes() const
{
    return {channelNameListType()};
}

QMimeData *RVXLatestPlotDataProxyModel::mimeData(const QModelIndexList &indexes) const
{
    QStringList names;
    for (const QModelIndex &index : indexes) {
        if (index.isValid())
            names.append(data(index, Qt::DisplayRole).toString());
    }
    auto *mime = new QMimeData;
    mime->setData(channelNameListType(), writeChannelNames(names));
    return mime;
}

Qt::ItemFlags RVXLatestPlotDataProxyModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::ItemIsEnabled;
    if (index.column() == ChannelColumn)
        return Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsUserCheckable
            | Qt::ItemIsEnabled;
    Q_D(const RVXLatestPlotDataProxyModel);
    return d->source ? d->source->flags(mapToSource(index)) : Qt::NoItemFlags;
}

void RVXLatestPlotDataProxyModel::setSourceModel(QAbstractItemModel *model)
{
    Q_D(RVXLatestPlotDataProxyModel);
    if (model == d->source || standsOn(model, this))
        return;
    d->_q_sourceModelAboutToBeReset();
    d->detach();
    d->attach(model);
    d->_q_sourceModelReset();
}

QModelIndex RVXLatestPlotDataProxyModel::mapToSource(const QModelIndex &proxyIndex) const
{
    Q_D(const RVXLatestPlotDataProxyModel);
    if (!d->source || !proxyIndex.isValid())
        return QModelIndex();
    switch (proxyIndex.column()) {
    case ChannelColumn:
        return d->source->index(0, proxyIndex.row() + 1);
    case DataColumn:
        return d->source->index(d->newestRow(), proxyIndex.row() + 1);
    default:
        qFatal("Invalid model index passed to RVXLatestPlotDataProxyModel::mapToSource");
    }
}

QModelIndex RVXLatestPlotDataProxyModel::mapFromSource(const QModelIndex &sourceIndex) const
{
    Q_D(const RVXLatestPlotDataProxyModel);
    if (!d->source || !sourceIndex.isValid() || sourceIndex.column() < 1)
        return QModelIndex();
    if (sourceIndex.row() == 0)
        return createIndex(sourceIndex.column() - 1, ChannelColumn);
    if (sourceIndex.row() == d->newestRow())
        return createIndex(sourceIndex.column() - 1, DataColumn);
    return QModelIndex();
}

QItemSelection
RVXLatestPlotDataProxyModel::mapSelectionToSource(const QItemSelection &selection) const
{
    return mapRanges(selection, [this](const QModelIndex &index) {
        return mapToSource(index);
    });
}

QItemSelection
RVXLatestPlotDataProxyModel::mapSelectionFromSource(const QItemSelection &selection) const
{
    return mapRanges(selection, [this](const QModelIndex &index) {
        return mapFromSource(index);
    });
}

bool RVXLatestPlotDataProxyModel::hasSiPrefix() const
{
    Q_D(const RVXLatestPlotDataProxyModel);
    return d->hasSiPrefix;
}

void RVXLatestPlotDataProxyModel::setSiPrefix(bool on)
{
    Q_D(RVXLatestPlotDataProxyModel);
    if (on == d->hasSiPrefix)
        return;
    d->hasSiPrefix = on;
    d->prefixes.clear();
    d->retitle();
    d->newestChanged();
    Q_EMIT siPrefixChanged(on);
}

QString RVXLatestPlotDataProxyModel::valueUnit() const
{
    Q_D(const RVXLatestPlotDataProxyModel);
    return d->prefixes.fixedUnit();
}

void RVXLatestPlotDataProxyModel::setValueUnit(const QString &symbol)
{
    Q_D(RVXLatestPlotDataProxyModel);
    if (symbol == valueUnit())
        return;
    d->prefixes.setFixedUnit(symbol);
    d->newestChanged();
    Q_EMIT valueUnitChanged(symbol);
}

void RVXLatestPlotDataProxyModel::edit(const QModelIndex &index)
{
    Q_D(RVXLatestPlotDataProxyModel);
    d->edited = index;
    d->editedChanged = false;
}

void RVXLatestPlotDataProxyModel::editingFinished()
{
    Q_D(RVXLatestPlotDataProxyModel);
    const int row = d->edited.row();
    d->edited = QModelIndex();
    if (std::exchange(d->editedChanged, false))
        d->announce(row, row, ChannelColumn, DataColumn);
}

void RVXLatestPlotDataProxyModel::UpdateHeaders()
{
    Q_D(RVXLatestPlotDataProxyModel);
    d->readUnits();
    Q_EMIT headerDataChanged(Qt::Horizontal, ChannelColumn, DataColumn);
}

} // namespace Corvale_Qt

#include "moc_RVXLatestPlotDataProxyModel.cpp"
