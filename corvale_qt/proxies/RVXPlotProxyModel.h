// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXAbstractPlotDataModel.h"

#include <QAbstractProxyModel>

#include <memory>

namespace Corvale_Qt {

template<typename Proxy>
class UpstreamRelay;
class RVXPlotProxyModelPrivate;

/*! Base of the proxies that stand on one plot model and show other values in the same table.

    Rows and columns map one to one, every announcement of the source is passed on, and the plot interface answers as
    the source does, except for doubleData(), which a subclass implements. A subclass that keeps state for rows or
    channels updates it in the four protected hooks, which run before views hear of the change.

    A proxy is a plot model itself, so proxies stack. The source is not owned. Without a source, and after its deletion,
    the table is empty, numbers are 0, units are null, and SaveDataToFile() returns false. */
class CORVALE_QT_EXPORT RVXPlotProxyModel : public QAbstractProxyModel,
                                            public RVXAbstractPlotDataModel
{
    Q_OBJECT

public:
    //! Creates a proxy without a source.
    explicit RVXPlotProxyModel(QObject *parent = nullptr);
    ~RVXPlotProxyModel() override;

    /*! Sets the source in one reset. \a model must be a RVXAbstractPlotDataModel as well. Any other model, null, the
        current source, the proxy itself and a model that stands on it are silently ignored. */
    void setSourceModel(QAbstractItemModel *model) override;
    //! Returns the plot interface of the source; null without a source.
    RVXAbstractPlotDataModel *sourcePlotModel();
    //! Returns the plot interface of the source; null without a source.
    const RVXAbstractPlotDataModel *sourcePlotModel() const;

    QModelIndex
    index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    //! Passes the drop on to the source; returns false without one.
    bool dropMimeData(const QMimeData *data,
                      Qt::DropAction action,
                      int row,
                      int column,
                      const QModelIndex &parent) override;
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool insertColumns(int column, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeColumns(int column, int count, const QModelIndex &parent = QModelIndex()) override;
    //! Searches the source and returns the hits as indexes of the proxy.
    QModelIndexList match(const QModelIndex &start,
                          int role,
                          const QVariant &value,
                          int hits = 1,
                          Qt::MatchFlags flags = Qt::MatchFlags(Qt::MatchStartsWith
                                                                | Qt::MatchWrap)) const override;
    // These answer for the source while it lives; a proxy that has not heard yet that its source is deleted is empty.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant
    headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QModelIndex buddy(const QModelIndex &index) const override;
    QSize span(const QModelIndex &index) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;
    bool setHeaderData(int section,
                       Qt::Orientation orientation,
                       const QVariant &value,
                       int role = Qt::EditRole) override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
    bool submit() override;
    void revert() override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    bool canDropMimeData(const QMimeData *data,
                         Qt::DropAction action,
                         int row,
                         int column,
                         const QModelIndex &parent) const override;
    Qt::DropActions supportedDragActions() const override;
    Qt::DropActions supportedDropActions() const override;
    QModelIndex mapToSource(const QModelIndex &proxyIndex) const override;
    QModelIndex mapFromSource(const QModelIndex &sourceIndex) const override;
    QItemSelection mapSelectionToSource(const QItemSelection &selection) const override;
    QItemSelection mapSelectionFromSource(const QItemSelection &selection) const override;

    //! Lets the source write its samples: the file does not contain the values of the proxy.
    bool SaveDataToFile(const QString &fileName) const override;
    void Clear() override;
    int PlotWidthHintPoints() const override;
    double PlotWidthHint() const override;
    const Units::MeasurementUnit *units() const override;
    const Units::MeasurementUnit *xUnits() const override;
    QwtSeriesData<QPointF> *seriesData(int column, int startRow, int endRow) const override;
    int MaxBufferSize() const override;

protected:
    //! Called after rows \a first to \a last were inserted into the source. The proxy has the same rows.
    virtual void sourceRowsInserted(const QModelIndex &parent, int first, int last);
    //! Called after rows \a first to \a last were removed from the source.
    virtual void sourceRowsRemoved(const QModelIndex &parent, int first, int last);
    //! Called after the source was reset, exchanged or deleted.
    virtual void sourceModelReset();
    //! Called after cells of the source changed; the corners are indexes of the proxy.
    virtual void sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight);

    /*! Called by a hook whose subclass shows other values from row \a firstRow to the newest as well. For changed cells
        the range of dataChanged() is extended to the newest row, in the same columns. For inserted, removed or moved
        rows dataChanged() follows for all channels, after the end signal. */
    void alsoChanged(int firstRow);

    /*! Begins a reset that may enclose resets of the source: views hear of a single reset. Each call needs a call of
        endSharedReset(). */
    void beginSharedReset();
    //! Ends what beginSharedReset() began. Views hear modelReset() at the outermost end.
    void endSharedReset();

private:
    Q_DECLARE_PRIVATE(RVXPlotProxyModel)
    friend class UpstreamRelay<RVXPlotProxyModel>;
    const std::unique_ptr<RVXPlotProxyModelPrivate> d_ptr;

    // clang-format off
    Q_PRIVATE_SLOT(d_func(), void _q_sourceRowsAboutToBeInserted(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceRowsInserted(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceRowsAboutToBeRemoved(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceRowsRemoved(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceRowsAboutToBeMoved(const QModelIndex &, int, int, const QModelIndex &, int))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceRowsMoved(const QModelIndex &, int, int, const QModelIndex &, int))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceColumnsAboutToBeInserted(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceColumnsInserted(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceColumnsAboutToBeRemoved(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceColumnsRemoved(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceColumnsAboutToBeMoved(const QModelIndex &, int, int, const QModelIndex &, int))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceColumnsMoved(const QModelIndex &, int, int, const QModelIndex &, int))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceDataChanged(const QModelIndex &, const QModelIndex &))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceHeaderDataChanged(Qt::Orientation, int, int))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceLayoutAboutToBeChanged())
    Q_PRIVATE_SLOT(d_func(), void _q_sourceLayoutChanged())
    Q_PRIVATE_SLOT(d_func(), void _q_sourceModelAboutToBeReset())
    Q_PRIVATE_SLOT(d_func(), void _q_sourceModelReset())
    // clang-format on
};

} // namespace Corvale_Qt
