// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QAbstractProxyModel>

#include <memory>

namespace Corvale_Qt {

class AbstractChannelModelFactory;
class ChannelSource;
class RowLedger;
class RVXMultichannelProxyModelPrivate;

/*! Lays plot models side by side as the channels of one table: column c shows one column of the c-th source, column 0 the
    time of the first source that has the row. A source with fewer samples than the longest repeats its newest. A
    channel without a reading (its source has no sample, or not the column) is NaN, "N/A" in tables.

    Sources may stand on each other: a device may be shown beside its own average. Each channel has the unit of its
    source, which its header cell answers for ChannelUnitRole.

    Sources are given as models, as names for which a factory makes models, or by dropping names on a view of this
    proxy ("application/vnd.text.list", as RVXLatestPlotDataProxyModel drags them, or "text/plain"). At most 256
    channels are taken; more are refused with a line on the debug stream. Models that are given are not owned;
    those that the factory makes are children of the proxy. A source that is deleted takes its channels with
    it, in one reset.

    When sources with full buffers roll over together, the first of a round is announced as a removal at the front
    and an insertion at the end, the others as changes of their columns. Proxies of this library on top follow each
    channel's own history, whatever the order.

    \code
    RVXMultichannelProxyModel merged;
    merged.addSourceModel(&electrometer, 1);
    merged.addChannel("ionisation chamber 2"); // the factory's model, to be fed by whoever made the factory
    \endcode */
class CORVALE_QT_EXPORT RVXMultichannelProxyModel : public QAbstractProxyModel,
                                                    public RVXAbstractPlotDataModel
{
    Q_OBJECT

public:
    explicit RVXMultichannelProxyModel(QObject *parent = nullptr);
    ~RVXMultichannelProxyModel() override;

    /*! Makes column \a column of \a model the channel at \a position, counted from 0; a position out of range is the
        nearest one. What is not a RVXAbstractPlotDataModel, and what stands on this proxy, is ignored. One reset. */
    void insertSourceModel(int position, QAbstractItemModel *model, int column);
    //! The same at the end.
    void addSourceModel(QAbstractItemModel *model, int column);
    //! Appends a channel with a model that the factory makes for \a name, a child of this proxy.
    void addChannel(const QString &name);
    /*! Takes out the channels that show \a model, in one reset, and deletes nothing. Kept for hosts already built: a
        model whose first channel is at position 0 stays in the table, though its signals are no longer heard,
        and unitsChanged() of a removed model is still passed on, twice until it is inserted again. */
    void removeSourceModel(QAbstractItemModel *model);

    /*! The dynamic property "channel" of each source that has one, in order; a source without it adds nothing, so there
        may be fewer names than channels. */
    QStringList channelNames() const;
    //! addChannel() for each name. The channels that there are stay.
    void setChannelNames(const QStringList &names);

    /*! Who makes models from now on; SingleChannelModelFactory at first. The factory before it is deleted at once. This
        one is deleted with the proxy, unless it has a parent. */
    void setChannelModelFactory(AbstractChannelModelFactory *factory);

    QModelIndex
    index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant
    headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QModelIndex buddy(const QModelIndex &index) const override;
    QStringList mimeTypes() const override;
    bool canDropMimeData(const QMimeData *data,
                         Qt::DropAction action,
                         int row,
                         int column,
                         const QModelIndex &parent) const override;
    //! Appends the names as channels, wherever they were dropped; for a copy or a link only.
    bool dropMimeData(const QMimeData *data,
                      Qt::DropAction action,
                      int row,
                      int column,
                      const QModelIndex &parent) override;
    Qt::DropActions supportedDropActions() const override;
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool insertColumns(int column, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeColumns(int column, int count, const QModelIndex &parent = QModelIndex()) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QModelIndexList match(const QModelIndex &start,
                          int role,
                          const QVariant &value,
                          int hits = 1,
                          Qt::MatchFlags flags = Qt::MatchFlags(Qt::MatchStartsWith
                                                                | Qt::MatchWrap)) const override;
    //! Does nothing: sources are inserted and removed.
    void setSourceModel(QAbstractItemModel *model) override;
    QModelIndex mapToSource(const QModelIndex &proxyIndex) const override;
    //! A model that serves several channels is found in the first of them.
    QModelIndex mapFromSource(const QModelIndex &sourceIndex) const override;
    QItemSelection mapSelectionToSource(const QItemSelection &selection) const override;
    QItemSelection mapSelectionFromSource(const QItemSelection &selection) const override;

    /*! Writes all channels as CSV, for each a time and a value as its model displays them; where a channel has no sample
        in a row both fields are empty. The titles are cut in a way that readers of these files know, and are kept
        so for them. False without channels, and when the file cannot be written. */
    bool SaveDataToFile(const QString &fileName) const override;
    //! Clears every source, in one reset.
    void Clear() override;
    //! These five ask the first source; without one they are 256, 0, ampere, seconds and 0.
    int PlotWidthHintPoints() const override;
    double PlotWidthHint() const override;
    const Units::MeasurementUnit *units() const override;
    const Units::MeasurementUnit *xUnits() const override;
    int MaxBufferSize() const override;
    double doubleData(int row, int column) const override;
    QwtSeriesData<QPointF> *seriesData(int column, int startRow, int endRow) const override;

Q_SIGNALS:
    //! Passed on from every source.
    void unitsChanged(const Corvale_Qt::Units::MeasurementUnit *unit);

protected:
    //! As in RVXPlotProxyModel; rows and indexes are those of this proxy.
    virtual void sourceRowsInserted(const QModelIndex &parent, int first, int last);
    virtual void sourceRowsRemoved(const QModelIndex &parent, int first, int last);
    virtual void sourceModelReset();
    virtual void sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight);

private:
    Q_DECLARE_PRIVATE(RVXMultichannelProxyModel)
    friend class ChannelSource;
    friend class RowLedger;
    const std::unique_ptr<RVXMultichannelProxyModelPrivate> d_ptr;
};

} // namespace Corvale_Qt
