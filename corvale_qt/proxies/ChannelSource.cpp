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
    : items(model)
    , reader(plotModel)
    , q(proxy)
    , d(proxyPrivate)
    , m_plot(plotModel)
{
    connect(model, &QObject::destroyed, this, [this] {
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
    d->unitsRelay.relay(items);
}

void ChannelSource::unwire()
{
    if (m_wired && items)
        disconnectSource(items, this);
    m_wired = false;
    d->ledger.abandon(*this);
}

void ChannelSource::retire()
{
    unwire();
    if (items)
        disconnect(items, nullptr, this, nullptr);
    columns.clear();
    setParent(q);
    deleteLater();
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

void ChannelSource::_q_sourceRowsAboutToBeMoved(const QModelIndex &,
                                                int first,
                                                int last,
                                                const QModelIndex &,
                                                int row)
{
    d->ledger.rowsAboutToBeMoved(*this, first, last, row);
}

void ChannelSource::_q_sourceRowsMoved(const QModelIndex &, int, int, const QModelIndex &, int)
{
    d->ledger.end(*this, SourceChange::RowMove);
}

// Once the columns of the source have changed, their old numbers no longer say which channel is which.
void ChannelSource::_q_sourceColumnsAboutToBeInserted(const QModelIndex &, int, int)
{
    d->ledger.aboutToBeReset(*this, SourceChange::Columns);
}

void ChannelSource::_q_sourceColumnsInserted(const QModelIndex &, int, int)
{
    d->ledger.end(*this, SourceChange::Columns);
}

void ChannelSource::_q_sourceColumnsAboutToBeRemoved(const QModelIndex &, int, int)
{
    d->ledger.aboutToBeReset(*this, SourceChange::Columns);
}

void ChannelSource::_q_sourceColumnsRemoved(const QModelIndex &, int, int)
{
    d->ledger.end(*this, SourceChange::Columns);
}

void ChannelSource::_q_sourceColumnsAboutToBeMoved(const QModelIndex &,
                                                   int,
                                                   int,
                                                   const QModelIndex &,
                                                   int)
{
    d->ledger.aboutToBeReset(*this, SourceChange::Columns);
}

void ChannelSource::_q_sourceColumnsMoved(const QModelIndex &, int, int, const QModelIndex &, int)
{
    d->ledger.end(*this, SourceChange::Columns);
}

void ChannelSource::_q_sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight)
{
    if (!topLeft.isValid() || !bottomRight.isValid() || columns.isEmpty())
        return;
    // The newest sample is shown again on the rows that this source does not have.
    const bool withNewest = bottomRight.row() >= 1 && bottomRight.row() >= rowCount() - 1;
    const int last = withNewest ? std::numeric_limits<int>::max() : bottomRight.row();
    if (d->ledger.isBusy()) {
        d->ledger.cellsChangedMeanwhile(*this, topLeft.row(), last);
        return;
    }
    const int lastRow = std::min(last, d->ledger.rows());
    if (topLeft.row() > lastRow)
        return; // a row that is not announced yet
    const QVector<int> shown = columns; // a listener may take this source out
    const int firstChannel = shown.first();
    d->ledger.announceCells(topLeft.row(),
                            topLeft.column() == 0 ? 0 : firstChannel,
                            lastRow,
                            bottomRight.column() == 0 ? 0 : firstChannel);
    for (int i = 1; i < shown.size() && bottomRight.column() > 0; ++i)
        d->ledger.announceCells(topLeft.row(), shown[i], lastRow, shown[i]);
}

void ChannelSource::_q_sourceHeaderDataChanged(Qt::Orientation orientation, int first, int last)
{
    if (orientation == Qt::Horizontal)
        d->sourceTitlesChanged(this, first, last);
    else
        Q_EMIT q->headerDataChanged(orientation, first, last);
}

void ChannelSource::_q_sourceLayoutAboutToBeChanged()
{
    d->ledger.layoutAboutToBeChanged(*this, SourceChange::Layout);
}

void ChannelSource::_q_sourceLayoutChanged()
{
    d->ledger.end(*this, SourceChange::Layout);
}

void ChannelSource::_q_sourceModelAboutToBeReset()
{
    d->ledger.aboutToBeReset(*this, SourceChange::Reset);
}

void ChannelSource::_q_sourceModelReset()
{
    d->ledger.end(*this, SourceChange::Reset);
}

} // namespace Corvale_Qt
