// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QAbstractProxyModel>

#include <memory>

namespace Corvale_Qt {

class RVXBulkPlotData;
class AbstractChannelModelFactory;
class MergedInput;
class RowAnnouncer;
class RVXMultichannelProxyModelPrivate;

/*! Shows plot models side by side as the channels of one table. Column c, from 1, shows one column of the c-th source;
    column 0 shows the time from the first source that has the row. A source with fewer samples than the longest
    one repeats its newest sample. A channel without a reading, because its source has no sample or lacks the
    column, is NaN, or "N/A" in tables.

    Sources may stand on each other: a device can be shown beside its own average. Each channel has the unit of its
    source; its header cell returns it for ChannelUnitRole.

    Sources are added as models, as names for which a factory creates models, or by dropping names on a view of this
    proxy ("application/vnd.text.list", as RVXLatestPlotDataProxyModel drags them, or "text/plain"). Beyond 256
    channels, further ones are refused with a line on the debug stream (category "corvale.proxies"). Models that
    are added are not owned; those that the factory creates are children of the proxy. The channels of a source that
    is deleted are removed in one reset.

    When sources with full buffers roll over together, the first one is announced as a removal at the front and an
    insertion at the end, the others as changes of their columns. Proxies of this library on top follow the history
    of each channel, whatever the order.

    \code
    RVXMultichannelProxyModel merged;
    merged.addSourceModel(&electrometer, 1);
    merged.addChannel("ionisation chamber 2"); // a model that the factory creates and its author feeds
    \endcode */
class CORVALE_QT_EXPORT RVXMultichannelProxyModel : public QAbstractProxyModel,
                                                    public RVXAbstractPlotDataModel
{
    Q_OBJECT
    //! Whether the header row and the header show the channels' own names. Off at the start.
    Q_PROPERTY(bool showNames READ showNames WRITE setShowNames NOTIFY showNamesChanged)
    //! What RVXBulkPlotData::of() returns for this class.
    Q_PROPERTY(const Corvale_Qt::RVXBulkPlotData *bulkPlotData READ bulkPlotData
                   DESIGNABLE false STORED false)

public:
    //! Creates a proxy without channels, with a SingleChannelModelFactory.
    explicit RVXMultichannelProxyModel(QObject *parent = nullptr);
    ~RVXMultichannelProxyModel() override;

    /*! Inserts column \a column of \a model as the channel at \a position, counted from 0 and clamped to the range, in one
        reset. A model that is not a RVXAbstractPlotDataModel, or that stands on this proxy, is ignored. */
    void insertSourceModel(int position, QAbstractItemModel *model, int column);
    //! Appends column \a column of \a model as a channel; see insertSourceModel().
    void addSourceModel(QAbstractItemModel *model, int column);
    //! Appends a channel with a model that the factory creates for \a name, as a child of this proxy.
    void addChannel(const QString &name);
    /*! Removes the channels that show \a model, in one reset, and deletes nothing. Existing hosts rely on two exceptions:
        if the first channel of the table shows \a model, all of its channels stay, though its signals are no longer
        heard; and unitsChanged() of a removed model is still passed on, twice, until it is inserted again. */
    void removeSourceModel(QAbstractItemModel *model);

    /*! Returns the dynamic property "channel" of the source of each channel, in order. A source without it is left out, so
        there may be fewer names than channels. */
    QStringList channelNames() const;
    //! Calls addChannel() for each name. The channels that exist stay.
    void setChannelNames(const QStringList &names);

    //! Returns whether channels with a name of their own show it; see setShowNames().
    bool showNames() const;
    /*! Shows the name of each channel in the header row and the header, or with false what its model shows there, which for
        a RVXSingleChannelDataModel is its column's number. The name is the dynamic property "channel" of a model with a
        single channel, else the title that the model gives the column, else RVXSingleChannelDataModel::channelName(),
        also through the proxies that the model stands on. A channel without a name keeps the number. Emits
        showNamesChanged(), and announces the titles as changed.

        Set the property "channel" before the model is added: a later change is not announced. */
    void setShowNames(bool show);

    /*! Sets the factory that creates models from now on; null for none. The previous factory is deleted at once. The proxy
        deletes \a factory in its destructor unless it has a parent. */
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
    //! Accepts copies and links of channel names or of a text, anywhere.
    bool canDropMimeData(const QMimeData *data,
                         Qt::DropAction action,
                         int row,
                         int column,
                         const QModelIndex &parent) const override;
    //! Appends the names as channels, wherever they are dropped. Accepts copies and links only.
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
    //! Searches the source of the channel at \a start and returns hits in the column of \a start.
    QModelIndexList match(const QModelIndex &start,
                          int role,
                          const QVariant &value,
                          int hits = 1,
                          Qt::MatchFlags flags = Qt::MatchFlags(Qt::MatchStartsWith
                                                                | Qt::MatchWrap)) const override;
    //! Does nothing: use insertSourceModel() and removeSourceModel().
    void setSourceModel(QAbstractItemModel *model) override;
    QModelIndex mapToSource(const QModelIndex &proxyIndex) const override;
    //! Maps to the first of the channels if a model serves several.
    QModelIndex mapFromSource(const QModelIndex &sourceIndex) const override;
    QItemSelection mapSelectionToSource(const QItemSelection &selection) const override;
    QItemSelection mapSelectionFromSource(const QItemSelection &selection) const override;

    /*! Writes all channels as CSV: for each row and channel the time and the value as the model displays them, or two empty
        fields if the channel has no sample there. Titles lack their first letters, as readers of these files expect.
        Returns false without channels, and if the file cannot be written. */
    bool SaveDataToFile(const QString &fileName) const override;
    //! Clears every source in one reset.
    void Clear() override;
    //! Returns the hint of the first source; 256 without a source.
    int PlotWidthHintPoints() const override;
    //! Returns the hint of the first source; 0 without a source.
    double PlotWidthHint() const override;
    //! Returns the unit of the first source; ampere without a source.
    const Units::MeasurementUnit *units() const override;
    //! Returns the unit of the times of the first source; seconds without a source.
    const Units::MeasurementUnit *xUnits() const override;
    //! Returns the buffer size of the first source; 0 without a source.
    int MaxBufferSize() const override;
    double doubleData(int row, int column) const override;
    QwtSeriesData<QPointF> *seriesData(int column, int startRow, int endRow) const override;

Q_SIGNALS:
    //! Emitted when any source emits it, with the unit of that source.
    void unitsChanged(const Corvale_Qt::Units::MeasurementUnit *unit);
    //! Emitted when showNames() has changed to \a show.
    void showNamesChanged(bool show);

protected:
    //! Called after rows \a first to \a last of this proxy were inserted, before views hear of it.
    virtual void sourceRowsInserted(const QModelIndex &parent, int first, int last);
    //! Called after rows \a first to \a last of this proxy were removed, before views hear of it.
    virtual void sourceRowsRemoved(const QModelIndex &parent, int first, int last);
    //! Called before the end of a reset of this proxy.
    virtual void sourceModelReset();
    //! Called after cells of this proxy changed, before views hear of it.
    virtual void sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight);

private:
    const RVXBulkPlotData *bulkPlotData() const;

    Q_DECLARE_PRIVATE(RVXMultichannelProxyModel)
    friend class MergedInput;
    friend class RowAnnouncer;
    const std::unique_ptr<RVXMultichannelProxyModelPrivate> d_ptr;
};

} // namespace Corvale_Qt
