// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/MergedInput_p.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel_p.h"
#include "corvale_qt/proxies/UpstreamSignals_p.h"

#include <algorithm>

namespace Corvale_Qt {

MergedInput::MergedInput(RVXMultichannelProxyModel *proxy,
                         RVXMultichannelProxyModelPrivate *proxyPrivate,
                         QAbstractItemModel *model,
                         RVXAbstractPlotDataModel *plotModel)
    : items(model)
    , reader(plotModel)
    , q(proxy)
    , d(proxyPrivate)
    , m_plot(plotModel)
    , m_texts(LibraryBulkData::of(plotModel))
{
    connect(model, &QObject::destroyed, this, [this] {
        m_wired = false;
        d->inputDestroyed(this);
    });
}

void MergedInput::wire()
{
    if (m_wired)
        return;
    m_wired = true;
    connectUpstream(items, this);
    d->unitsRelay.relay(items);
}

void MergedInput::unwire()
{
    if (m_wired && items)
        disconnectUpstream(items, this);
    m_wired = false;
    d->announcer.abandon(*this);
}

//! Asks the model. Apart from has(), so that what is called for each point stays short.
bool MergedInput::hasNow(int row) const
{
    return row < items->rowCount();
}

void MergedInput::retire()
{
    unwire();
    if (items)
        disconnect(items, nullptr, this, nullptr);
    columns.clear();
    setParent(q);
    deleteLater();
}

double Channel::newestNumber() const
{
    const int newest = exists() ? input->rowCount() - 1 : 0;
    return newest >= 1 ? input->plot()->doubleData(newest, column)
                       : std::numeric_limits<double>::quiet_NaN();
}

void MergedInput::_q_sourceRowsAboutToBeInserted(const QModelIndex &, int, int last)
{
    d->announcer.rowsAboutToBeInserted(*this, last);
}

void MergedInput::_q_sourceRowsInserted(const QModelIndex &, int first, int)
{
    d->announcer.rowsInserted(*this, first);
}

void MergedInput::_q_sourceRowsAboutToBeRemoved(const QModelIndex &, int first, int last)
{
    d->announcer.rowsAboutToBeRemoved(*this, first, last);
}

void MergedInput::_q_sourceRowsRemoved(const QModelIndex &, int first, int last)
{
    d->announcer.rowsRemoved(*this, first, last);
}

void MergedInput::_q_sourceRowsAboutToBeMoved(const QModelIndex &,
                                              int first,
                                              int last,
                                              const QModelIndex &,
                                              int row)
{
    d->announcer.rowsAboutToBeMoved(*this, first, last, row);
}

void MergedInput::_q_sourceRowsMoved(const QModelIndex &, int, int, const QModelIndex &, int)
{
    d->announcer.end(*this, InputChange::RowMove);
}

// After a change of columns their old numbers no longer identify the channels, so the proxy is reset.
void MergedInput::_q_sourceColumnsAboutToBeInserted(const QModelIndex &, int, int)
{
    d->announcer.aboutToBeReset(*this, InputChange::Columns);
}

void MergedInput::_q_sourceColumnsInserted(const QModelIndex &, int, int)
{
    d->announcer.end(*this, InputChange::Columns);
}

void MergedInput::_q_sourceColumnsAboutToBeRemoved(const QModelIndex &, int, int)
{
    d->announcer.aboutToBeReset(*this, InputChange::Columns);
}

void MergedInput::_q_sourceColumnsRemoved(const QModelIndex &, int, int)
{
    d->announcer.end(*this, InputChange::Columns);
}

void MergedInput::_q_sourceColumnsAboutToBeMoved(const QModelIndex &,
                                                 int,
                                                 int,
                                                 const QModelIndex &,
                                                 int)
{
    d->announcer.aboutToBeReset(*this, InputChange::Columns);
}

void MergedInput::_q_sourceColumnsMoved(const QModelIndex &, int, int, const QModelIndex &, int)
{
    d->announcer.end(*this, InputChange::Columns);
}

void MergedInput::_q_sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight)
{
    if (!topLeft.isValid() || !bottomRight.isValid() || columns.isEmpty())
        return;
    // The newest sample is repeated on the rows that this input does not have.
    const bool withNewest = bottomRight.row() >= 1 && bottomRight.row() >= rowCount() - 1;
    const int last = withNewest ? std::numeric_limits<int>::max() : bottomRight.row();
    if (d->announcer.isBusy()) {
        d->announcer.cellsChangedMeanwhile(*this, topLeft.row(), last);
        return;
    }
    const int lastRow = std::min(last, d->announcer.rows());
    if (topLeft.row() > lastRow)
        return; // the row is not announced yet
    const QVector<int> shown = columns; // a listener may remove this input
    const int firstChannel = shown.first();
    d->announcer.announceCells(topLeft.row(),
                               topLeft.column() == 0 ? 0 : firstChannel,
                               lastRow,
                               bottomRight.column() == 0 ? 0 : firstChannel);
    for (int i = 1; i < shown.size() && bottomRight.column() > 0; ++i)
        d->announcer.announceCells(topLeft.row(), shown[i], lastRow, shown[i]);
}

void MergedInput::_q_sourceHeaderDataChanged(Qt::Orientation orientation, int first, int last)
{
    if (orientation == Qt::Horizontal)
        d->inputTitlesChanged(this, first, last);
    else
        Q_EMIT q->headerDataChanged(orientation, first, last);
}

void MergedInput::_q_sourceLayoutAboutToBeChanged()
{
    d->announcer.layoutAboutToBeChanged(*this, InputChange::Layout);
}

void MergedInput::_q_sourceLayoutChanged()
{
    d->announcer.end(*this, InputChange::Layout);
}

void MergedInput::_q_sourceModelAboutToBeReset()
{
    d->announcer.aboutToBeReset(*this, InputChange::Reset);
}

void MergedInput::_q_sourceModelReset()
{
    d->announcer.end(*this, InputChange::Reset);
}

} // namespace Corvale_Qt
