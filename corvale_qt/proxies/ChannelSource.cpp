// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/ChannelSource_p.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModelPrivate_p.h"
#include "corvale_qt/proxies/SourceSignals_p.h"

#include <algorithm>

namespace Corvale_Qt {

ChannelSource::ChannelSource(RVXMultichannelProxyModel *proxy,
                             RVXMultichannelProxyModelPrivate *proxyPrivate,
                             QAbstractItemModel *model,
                             RVXAbstractPlotDataModel *plotModel)
    : SourceRelay(proxy)
    , items(model)
    , plot(plotModel)
    , reader(plotModel)
    , d(proxyPrivate)
{
    connect(items, &QObject::destroyed, this, [this] {
        m_wired = false;
        d->sourceDestroyed(this);
    });
}

void ChannelSource::wire()
{
    if (m_wired)
        return;
    m_wired = true;
    connectSource(items, this);
    connectUnitsChanged(items, q, SIGNAL(unitsChanged(const Corvale_Qt::Units::MeasurementUnit *)));
}

void ChannelSource::unwire()
{
    if (m_wired)
        disconnectSource(items, this);
    m_wired = false;
    endChanges();
}

void ChannelSource::retire()
{
    unwire();
    disconnect(items, nullptr, this, nullptr);
    columns.clear();
    setParent(q);
    deleteLater();
}

//! What the model has announced and not ended never will be.
void ChannelSource::endChanges()
{
    d->ledger.abandon(*this);
    for (; m_openResets > 0; --m_openResets)
        d->ledger.endReset();
}

void ChannelSource::_q_sourceRowsAboutToBeInserted(const QModelIndex &, int, int last)
{
    d->ledger.rowsAboutToBeInserted(*this, last);
}

void ChannelSource::_q_sourceRowsInserted(const QModelIndex &, int first, int)
{
    d->ledger.rowsInserted(*this, first);
}

void ChannelSource::_q_sourceRowsAboutToBeRemoved(const QModelIndex &, int first, int last)
{
    d->ledger.rowsAboutToBeRemoved(*this, first, last);
}

void ChannelSource::_q_sourceRowsRemoved(const QModelIndex &, int first, int last)
{
    d->ledger.rowsRemoved(*this, first, last);
}

void ChannelSource::_q_sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight)
{
    if (!topLeft.isValid() || !bottomRight.isValid() || columns.isEmpty())
        return;
    // The newest sample is shown again on the rows that this source does not have.
    const int announced = d->ledger.rows();
    const bool withNewest = bottomRight.row() >= 1 && bottomRight.row() >= rowCount() - 1;
    const int lastRow = withNewest ? announced : std::min(bottomRight.row(), announced);
    const auto relay = [&](int firstColumn, int lastColumn) {
        const QModelIndex from = q->index(topLeft.row(), firstColumn);
        const QModelIndex to = q->index(lastRow, lastColumn);
        if (topLeft.row() > lastRow)
            return; // a row that is not announced yet
        q->sourceDataChanged(from, to);
        Q_EMIT q->dataChanged(from, to);
    };
    const QVector<int> shown = columns; // whoever listens may take this source out
    relay(topLeft.column() == 0 ? 0 : shown.first(), bottomRight.column() == 0 ? 0 : shown.first());
    for (int i = 1; i < shown.size() && bottomRight.column() > 0; ++i)
        relay(shown[i], shown[i]);
}

void ChannelSource::_q_sourceModelAboutToBeReset()
{
    ++m_openResets;
    d->ledger.beginReset();
}

void ChannelSource::_q_sourceModelReset()
{
    if (m_openResets == 0)
        return;
    --m_openResets;
    d->ledger.endReset();
}

} // namespace Corvale_Qt
