// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/SourceRelay_p.h"

#include <QVector>

#include <memory>
#include <vector>

namespace Corvale_Qt {

/*! One source model of a RVXMultichannelProxyModel: hears its signals, so that nobody needs to ask who sent them (which
    costs more the more sources there are), and keeps what the proxy knows of it. A model that serves several
    channels has one ChannelSource. */
class ChannelSource : public QObject, public SourceRelay<RVXMultichannelProxyModel>
{
    Q_OBJECT

public:
    ChannelSource(RVXMultichannelProxyModel *proxy,
                  RVXMultichannelProxyModelPrivate *proxyPrivate,
                  QAbstractItemModel *model,
                  RVXAbstractPlotDataModel *plotModel);

    //! Listens, to unitsChanged() too; does nothing while it listens.
    void wire();
    //! Listens no longer, but for the end of the model.
    void unwire();
    //! The proxy shows the model no more. Deleted later: one of its own signals may have led here.
    void retire();

    int rowCount() const { return items->rowCount(); }
    //! Whether the model has a row. While nothing is under way it has what it announced: it is not asked for each point.
    bool has(int row) const { return (isSteady() && row <= rows) || row < rowCount(); }
    //! \a row or, where this model is shorter than the proxy, the row of its newest sample.
    int shownRow(int row) const { return has(row) ? row : rowCount() - 1; }

    QAbstractItemModel *const items;
    RVXAbstractPlotDataModel *const plot;
    const PlotColumnReader reader;

    //! Columns of the proxy that show this model, ascending.
    QVector<int> columns;
    //! Sample rows when it last announced something.
    int rows = 0;
    //! Rows dropped at the front since the proxy's last reset.
    qint64 dropped = 0;
    //! Insertions and removals that it announced and did not end yet.
    int openChanges = 0;

private:
    ChannelSource *self() { return this; }
    //! Heard, and between two changes.
    bool isSteady() const { return m_wired && openChanges == 0 && m_openResets == 0; }

    void _q_sourceRowsAboutToBeInserted(const QModelIndex &parent, int first, int last);
    void _q_sourceRowsInserted(const QModelIndex &parent, int first, int last);
    void _q_sourceRowsAboutToBeRemoved(const QModelIndex &parent, int first, int last);
    void _q_sourceRowsRemoved(const QModelIndex &parent, int first, int last);
    void _q_sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight);
    void _q_sourceModelAboutToBeReset();
    void _q_sourceModelReset();

    void endChanges();

    RVXMultichannelProxyModelPrivate *const d;
    bool m_wired = false;
    int m_openResets = 0;

    // clang-format off
    Q_PRIVATE_SLOT(self(), void _q_sourceRowsAboutToBeInserted(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(self(), void _q_sourceRowsInserted(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(self(), void _q_sourceRowsAboutToBeRemoved(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(self(), void _q_sourceRowsRemoved(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(self(), void _q_sourceRowsAboutToBeMoved(const QModelIndex &, int, int, const QModelIndex &, int))
    Q_PRIVATE_SLOT(self(), void _q_sourceRowsMoved(const QModelIndex &, int, int, const QModelIndex &, int))
    Q_PRIVATE_SLOT(self(), void _q_sourceColumnsAboutToBeInserted(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(self(), void _q_sourceColumnsInserted(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(self(), void _q_sourceColumnsAboutToBeRemoved(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(self(), void _q_sourceColumnsRemoved(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(self(), void _q_sourceColumnsAboutToBeMoved(const QModelIndex &, int, int, const QModelIndex &, int))
    Q_PRIVATE_SLOT(self(), void _q_sourceColumnsMoved(const QModelIndex &, int, int, const QModelIndex &, int))
    Q_PRIVATE_SLOT(self(), void _q_sourceDataChanged(const QModelIndex &, const QModelIndex &))
    Q_PRIVATE_SLOT(self(), void _q_sourceHeaderDataChanged(Qt::Orientation, int, int))
    Q_PRIVATE_SLOT(self(), void _q_sourceLayoutAboutToBeChanged())
    Q_PRIVATE_SLOT(self(), void _q_sourceLayoutChanged())
    Q_PRIVATE_SLOT(self(), void _q_sourceModelAboutToBeReset())
    Q_PRIVATE_SLOT(self(), void _q_sourceModelReset())
    // clang-format on
};

//! A channel of the proxy: a column of one of its sources.
struct Channel
{
    ChannelSource *source;
    int column;
};

using ChannelSources = std::vector<std::unique_ptr<ChannelSource>>;

} // namespace Corvale_Qt
