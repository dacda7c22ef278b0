// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/models/ChannelLimit_p.h"
#include "corvale_qt/proxies/AbstractChannelModelFactory.h"
#include "corvale_qt/proxies/RowLedger_p.h"
#include "corvale_qt/proxies/UnitsRelay_p.h"

#include <QPointer>

namespace Corvale_Qt {

class RVXMultichannelProxyModelPrivate : public PlotColumns
{
public:
    explicit RVXMultichannelProxyModelPrivate(RVXMultichannelProxyModel *proxy);
    ~RVXMultichannelProxyModelPrivate() override;

    void read(int column, int firstRow, int count, double *out) const override;
    bool spans(int column, int firstRow, int count, ColumnSpans &spans) const override;
    bool xRises() const override;
    quint64 xVersion() const override;
    qint64 droppedRows(int column) const override;

    //! The channel of a column; null where there is none.
    const Channel *channel(int column) const;
    //! The source that is \a model; null where none is.
    ChannelSource *sourceOf(const QAbstractItemModel *model) const;
    RVXAbstractPlotDataModel *firstPlot() const;

    static constexpr int mostChannels = maxChannels;
    //! Whether one more channel may be added; says so on the debug stream if not.
    bool hasRoom() const;
    void
    insert(int position, QAbstractItemModel *items, RVXAbstractPlotDataModel *plot, int column);
    void remove(ChannelSource *source);
    void sourceDestroyed(ChannelSource *source);
    //! Header sections \a first to \a last of \a source changed.
    void sourceTitlesChanged(const ChannelSource *source, int first, int last);

    double time(int row) const;
    //! Its own, or that of its model, for RVXAbstractPlotDataModel::ChannelUnitRole.
    static QVariant unitOf(const Channel &channel);
    //! What a cell answers for a role that would show a reading, where the channel has none.
    static QVariant withoutReading(int role);

    //! The models that \a proxy reads.
    static QVector<const QAbstractItemModel *> models(const RVXMultichannelProxyModel &proxy);

    RVXMultichannelProxyModel *const q;
    // One for each model, and one channel for each column of the proxy but the first.
    ChannelSources sources;
    QVector<Channel> channels;
    RowLedger ledger;
    UnitsRelay unitsRelay;
    QPointer<AbstractChannelModelFactory> factory;

private:
    bool timesAreOfFirst() const;
    void readTimes(int firstRow, int count, double *out) const;
    void readChannel(const Channel &channel, int firstRow, int count, double *out) const;
    void channelsChanged();

    static const PlotColumns *find(const RVXAbstractPlotDataModel &model);
    static const bool known;
};

} // namespace Corvale_Qt
