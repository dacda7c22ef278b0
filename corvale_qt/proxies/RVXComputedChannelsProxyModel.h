// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/proxies/ChannelExpressions.h"
#include "corvale_qt/proxies/RVXPlotProxyModel.h"

#include <QVector>

namespace Corvale_Qt {

class RVXBulkPlotData;
class RVXComputedChannelsProxyModelPrivate;
class RVXPlotHistory;

/*! Adds channels that are computed from those of the source by expressions (ChannelExpressions): sums, ratios, differences over
    sums, averages, the position of a fit. They come after the channels of the source and are channels like them, with a name, a
    colour, a check state, and a unit of their own or none.

    An expression reads the numbers that the source shows, in the units that it shows them in. The names are those that the
    source's header row shows, without a unit in parentheses at the end. Each row is computed once, when it comes. Files contain
    the samples of the source.

    If the source has other channels later and an expression no longer makes sense, the computed channels read NaN, and fault()
    says why.

    \code
    RVXComputedChannelsProxyModel computed;
    computed.setSourceModel(&model);
    ExpressionFault fault;
    if (!computed.setComputedChannels({{"asymmetry", "", "(A - B) / (A + B)"}}, &fault))
        qWarning() << fault.message();
    \endcode */
class CORVALE_QT_EXPORT RVXComputedChannelsProxyModel : public RVXPlotProxyModel
{
    Q_OBJECT
    //! What RVXBulkPlotData::of() returns for this class.
    Q_PROPERTY(const Corvale_Qt::RVXBulkPlotData *bulkPlotData READ bulkPlotData
                   DESIGNABLE false STORED false)
    //! What RVXPlotHistory::of() returns for this class: the source's history, without blocks of the computed channels.
    Q_PROPERTY(const Corvale_Qt::RVXPlotHistory *plotHistory READ plotHistory
                   DESIGNABLE false STORED false)

public:
    //! Creates a proxy without a source and without computed channels.
    explicit RVXComputedChannelsProxyModel(QObject *parent = nullptr);
    ~RVXComputedChannelsProxyModel() override;

    /*! Replaces the computed channels, in one reset. Returns false, and changes nothing, if one of them makes no sense with the
        channels of the source; \a fault, which may be null, says what is wrong. */
    bool setComputedChannels(const QVector<ComputedChannel> &channels,
                             ExpressionFault *fault = nullptr);
    //! Returns the computed channels.
    QVector<ComputedChannel> computedChannels() const;
    //! Returns why the computed channels read NaN; empty if they are computed.
    ExpressionFault fault() const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex
    index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex mapToSource(const QModelIndex &proxyIndex) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant
    headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    double doubleData(int row, int column) const override;

protected:
    void sourceRowsInserted(const QModelIndex &parent, int first, int last) override;
    void sourceRowsRemoved(const QModelIndex &parent, int first, int last) override;
    void sourceModelReset() override;
    void sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight) override;

private:
    const RVXBulkPlotData *bulkPlotData() const;
    const RVXPlotHistory *plotHistory() const;

    Q_DECLARE_PRIVATE(RVXComputedChannelsProxyModel)
    const std::unique_ptr<RVXComputedChannelsProxyModelPrivate> d_ptr;
};

} // namespace Corvale_Qt
