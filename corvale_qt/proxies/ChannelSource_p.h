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

#include <QPointer>
#include <QVector>

#include <limits>
#include <memory>
#include <vector>

namespace Corvale_Qt {

//! What a source announces before it does it, and again when it is done.
enum class SourceChange {
    RowInsertion = 1,
    RowRemoval = 2,
    RowMove = 4,
    Columns = 8,
    Layout = 16,
    Reset = 32
};

/*! One source model of a RVXMultichannelProxyModel: hears its signals, so that nobody needs to ask who sent them (which
    costs more the more sources there are), and keeps what the proxy knows of it. A model that serves several
    channels has one ChannelSource. */
class ChannelSource : public QObject
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

    //! The model's plot side; null as soon as the model's deletion has begun.
    RVXAbstractPlotDataModel *plot() const { return items ? m_plot : nullptr; }
    int rowCount() const { return items ? items->rowCount() : 0; }
    QModelIndex index(int row, int column) const
    {
        return items ? items->index(row, column) : QModelIndex();
    }
    //! Whether the model has a row. While nothing is under way it has what it announced: it is not asked for each point.
    bool has(int row) const
    {
        return items && ((isSteady() && row <= rows) || row < items->rowCount());
    }
    //! \a row or, where this model is shorter than the proxy, the row of its newest sample; below 1 without samples.
    int shownRow(int row) const { return has(row) ? row : rowCount() - 1; }

    //! Null as soon as the model's deletion has begun.
    const QPointer<QAbstractItemModel> items;
    const PlotColumnReader reader;

    //! Columns of the proxy that show this model, ascending.
    QVector<int> columns;

    // The rest is the account that RowLedger keeps of this source.

    //! Sample rows when it last ended a change, and columns when it was last reset.
    int rows = 0;
    int ownColumns = 0;
    //! Rows dropped at the front since the proxy's last reset.
    qint64 dropped = 0;
    //! SourceChanges that it announced and did not end yet.
    int openChanges = 0;

    //! What has happened since the proxy last told its views.
    struct News
    {
        //! Sample rows that read otherwise now.
        int firstRow = std::numeric_limits<int>::max();
        int lastRow = 0;
        //! Rows that left at the front.
        int dropped = 0;
        bool header = false;
    };
    News news;

private:
    ChannelSource *self() { return this; }
    //! Heard, and between two changes.
    bool isSteady() const { return m_wired && openChanges == 0; }

    void _q_sourceRowsAboutToBeInserted(const QModelIndex &parent, int first, int last);
    void _q_sourceRowsInserted(const QModelIndex &parent, int first, int last);
    void _q_sourceRowsAboutToBeRemoved(const QModelIndex &parent, int first, int last);
    void _q_sourceRowsRemoved(const QModelIndex &parent, int first, int last);
    void _q_sourceRowsAboutToBeMoved(const QModelIndex &,
                                     int first,
                                     int last,
                                     const QModelIndex &,
                                     int row);
    void _q_sourceRowsMoved(const QModelIndex &, int, int, const QModelIndex &, int);
    void _q_sourceColumnsAboutToBeInserted(const QModelIndex &, int, int);
    void _q_sourceColumnsInserted(const QModelIndex &, int, int);
    void _q_sourceColumnsAboutToBeRemoved(const QModelIndex &, int, int);
    void _q_sourceColumnsRemoved(const QModelIndex &, int, int);
    void _q_sourceColumnsAboutToBeMoved(const QModelIndex &, int, int, const QModelIndex &, int);
    void _q_sourceColumnsMoved(const QModelIndex &, int, int, const QModelIndex &, int);
    void _q_sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight);
    void _q_sourceHeaderDataChanged(Qt::Orientation orientation, int first, int last);
    void _q_sourceLayoutAboutToBeChanged();
    void _q_sourceLayoutChanged();
    void _q_sourceModelAboutToBeReset();
    void _q_sourceModelReset();

    RVXMultichannelProxyModel *const q;
    RVXMultichannelProxyModelPrivate *const d;
    RVXAbstractPlotDataModel *const m_plot;
    bool m_wired = false;

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

    //! Whether the source has the column.
    bool exists() const { return column >= 0 && column < source->ownColumns; }
    //! The source's row that is shown in \a row of the proxy; below 1 where the channel has no reading to show.
    int shownRow(int row) const { return exists() ? source->shownRow(row) : 0; }
};

using ChannelSources = std::vector<std::unique_ptr<ChannelSource>>;

} // namespace Corvale_Qt
