// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXAbstractPlotDataModel.h"

#include <QAbstractProxyModel>

#include <memory>

namespace Corvale_Qt {

template<typename Proxy>
class SourceRelay;
class RVXPlotProxyModelPrivate;

/*! Base of the proxies that stand on one plot model and show other values in the same table.

    Rows and columns map one to one, every announcement of the source is passed on, and the plot model's side is
    the source's but for doubleData(), which a subclass supplies. A subclass that keeps something per row or
    per channel brings it up to date in the four hooks at the end; they run before views hear of the change.

    A proxy is a plot model itself, so proxies stack. The source is not owned. Without one, and after it was
    deleted, the table is empty, numbers are 0, units null, and SaveDataToFile() is false. */
class CORVALE_QT_EXPORT RVXPlotProxyModel : public QAbstractProxyModel,
                                            public RVXAbstractPlotDataModel
{
    Q_OBJECT

public:
    explicit RVXPlotProxyModel(QObject *parent = nullptr);
    ~RVXPlotProxyModel() override;

    /*! Takes a model that is a RVXAbstractPlotDataModel as well, in one reset. Any other model, null, the present
        source, the proxy itself and a model that stands on it are refused without a word. */
    void setSourceModel(QAbstractItemModel *model) override;
    //! The source's plot side; null without a source.
    RVXAbstractPlotDataModel *sourcePlotModel();
    const RVXAbstractPlotDataModel *sourcePlotModel() const;

    QModelIndex
    index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool dropMimeData(const QMimeData *data,
                      Qt::DropAction action,
                      int row,
                      int column,
                      const QModelIndex &parent) override;
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool insertColumns(int column, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeColumns(int column, int count, const QModelIndex &parent = QModelIndex()) override;
    QModelIndexList match(const QModelIndex &start,
                          int role,
                          const QVariant &value,
                          int hits = 1,
                          Qt::MatchFlags flags = Qt::MatchFlags(Qt::MatchStartsWith
                                                                | Qt::MatchWrap)) const override;
    QModelIndex mapToSource(const QModelIndex &proxyIndex) const override;
    QModelIndex mapFromSource(const QModelIndex &sourceIndex) const override;
    QItemSelection mapSelectionToSource(const QItemSelection &selection) const override;
    QItemSelection mapSelectionFromSource(const QItemSelection &selection) const override;

    //! The source's samples, as the source writes them: what a proxy makes of them is not in the file.
    bool SaveDataToFile(const QString &fileName) const override;
    void Clear() override;
    int PlotWidthHintPoints() const override;
    double PlotWidthHint() const override;
    const Units::MeasurementUnit *units() const override;
    const Units::MeasurementUnit *xUnits() const override;
    QwtSeriesData<QPointF> *seriesData(int column, int startRow, int endRow) const override;
    int MaxBufferSize() const override;

protected:
    //! Rows \a first to \a last of the source are new; numbers are the source's, and the proxy's.
    virtual void sourceRowsInserted(const QModelIndex &parent, int first, int last);
    //! Rows \a first to \a last of the source are gone.
    virtual void sourceRowsRemoved(const QModelIndex &parent, int first, int last);
    //! The source was reset, is another one, or is gone.
    virtual void sourceModelReset();
    //! Cells of the source changed; the corners are indexes of the proxy.
    virtual void sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight);

    /*! For a hook: samples from row \a firstRow to the newest changed with what the source announced. dataChanged() says
        so: in one range with the cells that the source announced as changed, in the same columns; for all channels
        once views know which rows came, went or moved. */
    void alsoChanged(int firstRow);

    //! As beginResetModel(), for a change in which the source resets as well: views hear of one reset.
    void beginSharedReset();
    void endSharedReset();

private:
    Q_DECLARE_PRIVATE(RVXPlotProxyModel)
    friend class SourceRelay<RVXPlotProxyModel>;
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
