// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RVXPlotProxyModel.h"

#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXSeriesData.h"
#include "corvale_qt/proxies/ProxyIndexes_p.h"
#include "corvale_qt/proxies/UpstreamChain_p.h"
#include "corvale_qt/proxies/UpstreamRelay_p.h"
#include "corvale_qt/proxies/UpstreamSignals_p.h"

#include <QPointer>

namespace Corvale_Qt {

class RVXPlotProxyModelPrivate : public UpstreamRelay<RVXPlotProxyModel>
{
public:
    using UpstreamRelay::UpstreamRelay;

    void setSource(QAbstractItemModel *newItems, RVXAbstractPlotDataModel *newPlot);
    void sourceDestroyed();
    void noticeDeletion();

    //! Returns the plot interface of the source, or null as soon as the source's deletion has begun.
    RVXAbstractPlotDataModel *plot() const { return items ? plotSide : nullptr; }

    // The two interfaces of the source, which is one object.
    QPointer<QAbstractItemModel> items;
    RVXAbstractPlotDataModel *plotSide = nullptr;
    // A host's model may return indexes of cells that it does not have, and a host's proxy may have fewer cells than
    // its source. The library's classes need no check.
    bool checksIndexes = true;

private:
    QMetaObject::Connection destroyed;
};

void RVXPlotProxyModelPrivate::setSource(QAbstractItemModel *newItems,
                                         RVXAbstractPlotDataModel *newPlot)
{
    endChanges();
    beginReset();
    if (items)
        disconnectUpstream(items, q);
    QObject::disconnect(destroyed); // also of a source whose deletion has begun
    q->QAbstractProxyModel::setSourceModel(newItems);
    items = newItems;
    plotSide = newPlot;
    checksIndexes = !LibraryBulkData::of(newPlot) || !LibraryBulkData::of(q);
    connectUpstream(items, q);
    destroyed = QObject::connect(items, &QObject::destroyed, q, [this] {
        sourceDestroyed();
    });
    q->sourceModelReset();
    endAllResets();
}

void RVXPlotProxyModelPrivate::sourceDestroyed()
{
    // Little is left of the source, so listeners to the reset must not reach it: the hook comes first.
    items = nullptr;
    plotSide = nullptr;
    q->sourceModelReset();
    endChanges();
    beginReset();
    q->QAbstractProxyModel::setSourceModel(nullptr);
    endAllResets();
}

/*! Lets go of a source whose deletion has begun. Qt's reset asks the source for its roles, and a listener that hears of the
    deletion first may cause a reset. */
void RVXPlotProxyModelPrivate::noticeDeletion()
{
    if (items || !plotSide)
        return;
    QObject::disconnect(destroyed);
    sourceDestroyed();
}

RVXPlotProxyModel::RVXPlotProxyModel(QObject *parent)
    : QAbstractProxyModel(parent)
    , d_ptr(new RVXPlotProxyModelPrivate(this))
{
}

RVXPlotProxyModel::~RVXPlotProxyModel() = default;

void RVXPlotProxyModel::setSourceModel(QAbstractItemModel *model)
{
    Q_D(RVXPlotProxyModel);
    auto *plot = dynamic_cast<RVXAbstractPlotDataModel *>(model);
    if (!plot || model == d->items || standsOn(model, this))
        return;
    d->setSource(model, plot);
}

RVXAbstractPlotDataModel *RVXPlotProxyModel::sourcePlotModel()
{
    Q_D(RVXPlotProxyModel);
    return d->plot();
}

const RVXAbstractPlotDataModel *RVXPlotProxyModel::sourcePlotModel() const
{
    Q_D(const RVXPlotProxyModel);
    return d->plot();
}

QModelIndex RVXPlotProxyModel::index(int row, int column, const QModelIndex &parent) const
{
    Q_D(const RVXPlotProxyModel);
    // The check asks the whole stack of proxies below.
    if (!d->items || (d->checksIndexes && !hasIndex(row, column, parent)))
        return QModelIndex();
    return mapFromSource(d->items->index(row, column, mapToSource(parent)));
}

QModelIndex RVXPlotProxyModel::parent(const QModelIndex &) const
{
    return QModelIndex();
}

int RVXPlotProxyModel::rowCount(const QModelIndex &parent) const
{
    Q_D(const RVXPlotProxyModel);
    if (!d->items)
        return 0;
    // Called for each reading, nearly always with an invalid parent.
    return d->items->rowCount(parent.isValid() ? mapToSource(parent) : QModelIndex());
}

int RVXPlotProxyModel::columnCount(const QModelIndex &parent) const
{
    Q_D(const RVXPlotProxyModel);
    if (!d->items)
        return 0;
    // Called for each reading, nearly always with an invalid parent.
    return d->items->columnCount(parent.isValid() ? mapToSource(parent) : QModelIndex());
}

bool RVXPlotProxyModel::dropMimeData(const QMimeData *data,
                                     Qt::DropAction action,
                                     int row,
                                     int column,
                                     const QModelIndex &parent)
{
    Q_D(RVXPlotProxyModel);
    return d->items && d->items->dropMimeData(data, action, row, column, mapToSource(parent));
}

bool RVXPlotProxyModel::insertRows(int row, int count, const QModelIndex &parent)
{
    Q_D(RVXPlotProxyModel);
    return d->items && d->items->insertRows(row, count, mapToSource(parent));
}

bool RVXPlotProxyModel::insertColumns(int column, int count, const QModelIndex &parent)
{
    Q_D(RVXPlotProxyModel);
    return d->items && d->items->insertColumns(column, count, mapToSource(parent));
}

bool RVXPlotProxyModel::removeRows(int row, int count, const QModelIndex &parent)
{
    Q_D(RVXPlotProxyModel);
    return d->items && d->items->removeRows(row, count, mapToSource(parent));
}

bool RVXPlotProxyModel::removeColumns(int column, int count, const QModelIndex &parent)
{
    Q_D(RVXPlotProxyModel);
    return d->items && d->items->removeColumns(column, count, mapToSource(parent));
}

QModelIndexList RVXPlotProxyModel::match(const QModelIndex &start,
                                         int role,
                                         const QVariant &value,
                                         int hits,
                                         Qt::MatchFlags flags) const
{
    Q_D(const RVXPlotProxyModel);
    if (!d->items)
        return QModelIndexList();
    return mapIndexes(d->items->match(mapToSource(start), role, value, hits, flags),
                      [this](const QModelIndex &index) {
                          return mapFromSource(index);
                      });
}

QVariant RVXPlotProxyModel::data(const QModelIndex &index, int role) const
{
    return d_func()->items ? QAbstractProxyModel::data(index, role) : QVariant();
}

bool RVXPlotProxyModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    return d_func()->items && QAbstractProxyModel::setData(index, value, role);
}

QVariant RVXPlotProxyModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return d_func()->items ? QAbstractProxyModel::headerData(section, orientation, role)
                           : QVariant();
}

Qt::ItemFlags RVXPlotProxyModel::flags(const QModelIndex &index) const
{
    return d_func()->items ? QAbstractProxyModel::flags(index) : Qt::NoItemFlags;
}

QModelIndex RVXPlotProxyModel::buddy(const QModelIndex &index) const
{
    return d_func()->items ? QAbstractProxyModel::buddy(index) : index;
}

QSize RVXPlotProxyModel::span(const QModelIndex &index) const
{
    return d_func()->items ? QAbstractProxyModel::span(index) : QSize(1, 1);
}

bool RVXPlotProxyModel::hasChildren(const QModelIndex &parent) const
{
    return d_func()->items && QAbstractProxyModel::hasChildren(parent);
}

bool RVXPlotProxyModel::canFetchMore(const QModelIndex &parent) const
{
    return d_func()->items && QAbstractProxyModel::canFetchMore(parent);
}

void RVXPlotProxyModel::fetchMore(const QModelIndex &parent)
{
    if (d_func()->items)
        QAbstractProxyModel::fetchMore(parent);
}

bool RVXPlotProxyModel::setHeaderData(int section,
                                      Qt::Orientation orientation,
                                      const QVariant &value,
                                      int role)
{
    return d_func()->items && QAbstractProxyModel::setHeaderData(section, orientation, value, role);
}

void RVXPlotProxyModel::sort(int column, Qt::SortOrder order)
{
    if (d_func()->items)
        QAbstractProxyModel::sort(column, order);
}

bool RVXPlotProxyModel::submit()
{
    return !d_func()->items || QAbstractProxyModel::submit(); // nothing is left to submit
}

void RVXPlotProxyModel::revert()
{
    if (d_func()->items)
        QAbstractProxyModel::revert();
}

QStringList RVXPlotProxyModel::mimeTypes() const
{
    return d_func()->items ? QAbstractProxyModel::mimeTypes() : QStringList();
}

QMimeData *RVXPlotProxyModel::mimeData(const QModelIndexList &indexes) const
{
    return d_func()->items ? QAbstractProxyModel::mimeData(indexes) : nullptr;
}

bool RVXPlotProxyModel::canDropMimeData(const QMimeData *data,
                                        Qt::DropAction action,
                                        int row,
                                        int column,
                                        const QModelIndex &parent) const
{
    return d_func()->items
        && QAbstractProxyModel::canDropMimeData(data, action, row, column, parent);
}

Qt::DropActions RVXPlotProxyModel::supportedDragActions() const
{
    return d_func()->items ? QAbstractProxyModel::supportedDragActions() : Qt::IgnoreAction;
}

Qt::DropActions RVXPlotProxyModel::supportedDropActions() const
{
    return d_func()->items ? QAbstractProxyModel::supportedDropActions() : Qt::IgnoreAction;
}

QModelIndex RVXPlotProxyModel::mapToSource(const QModelIndex &proxyIndex) const
{
    Q_D(const RVXPlotProxyModel);
    if (!d->items || !proxyIndex.isValid())
        return QModelIndex();
    return d->items->index(proxyIndex.row(), proxyIndex.column(), QModelIndex());
}

QModelIndex RVXPlotProxyModel::mapFromSource(const QModelIndex &sourceIndex) const
{
    Q_D(const RVXPlotProxyModel);
    if (!d->items || !sourceIndex.isValid())
        return QModelIndex();
    return createIndex(sourceIndex.row(), sourceIndex.column(), sourceIndex.internalPointer());
}

QItemSelection RVXPlotProxyModel::mapSelectionToSource(const QItemSelection &selection) const
{
    return mapRanges(selection, [this](const QModelIndex &index) {
        return mapToSource(index);
    });
}

QItemSelection RVXPlotProxyModel::mapSelectionFromSource(const QItemSelection &selection) const
{
    return mapRanges(selection, [this](const QModelIndex &index) {
        return mapFromSource(index);
    });
}

bool RVXPlotProxyModel::SaveDataToFile(const QString &fileName) const
{
    Q_D(const RVXPlotProxyModel);
    return d->plot() && d->plot()->SaveDataToFile(fileName);
}

void RVXPlotProxyModel::Clear()
{
    Q_D(RVXPlotProxyModel);
    if (d->plot())
        d->plot()->Clear();
}

int RVXPlotProxyModel::PlotWidthHintPoints() const
{
    Q_D(const RVXPlotProxyModel);
    return d->plot() ? d->plot()->PlotWidthHintPoints() : 0;
}

double RVXPlotProxyModel::PlotWidthHint() const
{
    Q_D(const RVXPlotProxyModel);
    return d->plot() ? d->plot()->PlotWidthHint() : 0.0;
}

const Units::MeasurementUnit *RVXPlotProxyModel::units() const
{
    Q_D(const RVXPlotProxyModel);
    return d->plot() ? d->plot()->units() : nullptr;
}

const Units::MeasurementUnit *RVXPlotProxyModel::xUnits() const
{
    Q_D(const RVXPlotProxyModel);
    return d->plot() ? d->plot()->xUnits() : nullptr;
}

QwtSeriesData<QPointF> *RVXPlotProxyModel::seriesData(int column, int startRow, int endRow) const
{
    return new RVXSeriesData(*this, column, startRow, endRow);
}

int RVXPlotProxyModel::MaxBufferSize() const
{
    Q_D(const RVXPlotProxyModel);
    return d->plot() ? d->plot()->MaxBufferSize() : 0;
}

void RVXPlotProxyModel::sourceRowsInserted(const QModelIndex &, int, int) { }
void RVXPlotProxyModel::sourceRowsRemoved(const QModelIndex &, int, int) { }
void RVXPlotProxyModel::sourceModelReset() { }
void RVXPlotProxyModel::sourceDataChanged(const QModelIndex &, const QModelIndex &) { }

void RVXPlotProxyModel::alsoChanged(int firstRow)
{
    Q_D(RVXPlotProxyModel);
    d->alsoChanged(firstRow);
}

void RVXPlotProxyModel::beginSharedReset()
{
    Q_D(RVXPlotProxyModel);
    d->noticeDeletion();
    d->beginReset();
}

void RVXPlotProxyModel::endSharedReset()
{
    Q_D(RVXPlotProxyModel);
    d->endReset();
}

} // namespace Corvale_Qt

#include "moc_RVXPlotProxyModel.cpp"
