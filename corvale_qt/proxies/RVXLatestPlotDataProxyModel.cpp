// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RVXLatestPlotDataProxyModel.h"

#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/proxies/ChannelNameList_p.h"
#include "corvale_qt/proxies/ProxyIndexes_p.h"
#include "corvale_qt/proxies/SourceSignals_p.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QBrush>
#include <QMimeData>

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

    QVariant withoutSample(int role) const;
    QVariant channelBackground(const QModelIndex &index) const;
    QString dataTitle() const;
    QVariant checkStateOfAll() const;

    RVXLatestPlotDataProxyModel *const q;
    QAbstractItemModel *source = nullptr;
    QModelIndex edited;
    // Whether a change was kept back because of it.
    bool editedChanged = false;
    bool resetting = false;
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
    if (header) // the check state of all channels together
        Q_EMIT q->headerDataChanged(Qt::Horizontal, ChannelColumn, ChannelColumn);
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
    q->endResetModel();
}

void RVXLatestPlotDataProxyModelPrivate::attach(QAbstractItemModel *model)
{
    q->QAbstractProxyModel::setSourceModel(model);
    source = model;
    if (!source)
        return;
    QObject::connect(source,
                     SIGNAL(rowsInserted(QModelIndex, int, int)),
                     q,
                     SLOT(_q_sourceRowsInserted(QModelIndex, int, int)));
    QObject::connect(source,
                     SIGNAL(dataChanged(QModelIndex, QModelIndex)),
                     q,
                     SLOT(_q_sourceDataChanged(QModelIndex, QModelIndex)));
    QObject::connect(source,
                     SIGNAL(modelAboutToBeReset()),
                     q,
                     SLOT(_q_sourceModelAboutToBeReset()));
    QObject::connect(source, SIGNAL(modelReset()), q, SLOT(_q_sourceModelReset()));
    connectUnitsChanged(source, q, SLOT(UpdateHeaders()));

    // A source whose newest sample leaves, or whose channels come and go.
    using Model = QAbstractItemModel;
    const auto begin = [this] {
        _q_sourceModelAboutToBeReset();
    };
    const auto end = [this] {
        _q_sourceModelReset();
    };
    QObject::connect(source, &Model::rowsRemoved, q, [this] {
        newestChanged();
    });
    QObject::connect(source, &Model::columnsAboutToBeInserted, q, begin);
    QObject::connect(source, &Model::columnsInserted, q, end);
    QObject::connect(source, &Model::columnsAboutToBeRemoved, q, begin);
    QObject::connect(source, &Model::columnsRemoved, q, end);
    QObject::connect(source, &Model::columnsAboutToBeMoved, q, begin);
    QObject::connect(source, &Model::columnsMoved, q, end);
    QObject::connect(source, &QObject::destroyed, q, [this] {
        sourceDestroyed();
    });
}

void RVXLatestPlotDataProxyModelPrivate::detach()
{
    if (!source)
        return;
    source->disconnect(q);
    source = nullptr;
}

void RVXLatestPlotDataProxyModelPrivate::sourceDestroyed()
{
    source = nullptr; // little is left of it
    _q_sourceModelAboutToBeReset();
    attach(nullptr);
    _q_sourceModelReset();
}

void RVXLatestPlotDataProxyModelPrivate::newestChanged()
{
    announce(0, channels() - 1, DataColumn, DataColumn);
}

//! dataChanged() for these cells but those of the row that is being edited.
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

QVariant RVXLatestPlotDataProxyModelPrivate::withoutSample(int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return QStringLiteral("N/A");
    case Qt::EditRole:
        return QStringLiteral("0");
    case Qt::BackgroundRole:
        return QBrush(Qt::black);
    case Qt::ForegroundRole:
        return QBrush(QColor(0, 255, 0));
    case RVXAbstractPlotDataModel::NumericValueRole:
        return 0;
    default:
        return QVariant();
    }
}

QVariant RVXLatestPlotDataProxyModelPrivate::channelBackground(const QModelIndex &index) const
{
    const auto brush = q->mapToSource(index).data(Qt::BackgroundRole).value<QBrush>();
    return QBrush(brush.color().lighter(140));
}

QString RVXLatestPlotDataProxyModelPrivate::dataTitle() const
{
    const auto *plot = dynamic_cast<const RVXAbstractPlotDataModel *>(source);
    if (plot && plot->units())
        return RVXLatestPlotDataProxyModel::tr("Data (%1)").arg(plot->units()->name());
    return RVXLatestPlotDataProxyModel::tr("Data");
}

QVariant RVXLatestPlotDataProxyModelPrivate::checkStateOfAll() const
{
    const auto state = [this](int channel) {
        return source->index(0, channel + 1).data(Qt::CheckStateRole).toInt();
    };
    const int count = channels();
    if (count == 0)
        return QVariant();
    const int first = state(0);
    for (int channel = 1; channel < count; ++channel) {
        const bool differs = (state(channel) == Qt::Unchecked) != (first == Qt::Unchecked);
        if (differs)
            return Qt::PartiallyChecked;
    }
    return first;
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
    if (index.column() == DataColumn && d->source && d->newestRow() < 1)
        return d->withoutSample(role);
    if (index.column() == ChannelColumn && role == Qt::BackgroundRole && source.isValid())
        return d->channelBackground(index);
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
        return section == DataColumn ? d->dataTitle() : QVariant();
    case Qt::FontRole:
        return QAbstractItemModel::headerData(section, orientation, role);
    case Qt::TextAlignmentRole:
        return Qt::AlignHCenter;
    case Qt::CheckStateRole:
        return section == ChannelColumn ? d->checkStateOfAll() : QVariant();
    default:
        return QVariant();
    }
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
    if (model == d->source || model == this)
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
    Q_EMIT headerDataChanged(Qt::Horizontal, ChannelColumn, DataColumn);
}

} // namespace Corvale_Qt

#include "moc_RVXLatestPlotDataProxyModel.cpp"
