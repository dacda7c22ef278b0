// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"

#include <QPointer>
#include <QVector>

#include <limits>
#include <memory>
#include <vector>

namespace Corvale_Qt {

//! The changes that a model announces twice: before and after they happen. Values are bits of openChanges.
enum class InputChange {
    RowInsertion = 1,
    RowRemoval = 2,
    RowMove = 4,
    Columns = 8,
    Layout = 16,
    Reset = 32
};

/*! One source model of a RVXMultichannelProxyModel. It receives the model's signals, so that the sender is known without
    a search, and keeps what the proxy knows about the model. A model that serves several channels has one
    MergedInput. */
class MergedInput : public QObject
{
    Q_OBJECT

public:
    MergedInput(RVXMultichannelProxyModel *proxy,
                RVXMultichannelProxyModelPrivate *proxyPrivate,
                QAbstractItemModel *model,
                RVXAbstractPlotDataModel *plotModel);

    //! Connects to the signals of the model, unitsChanged() included. Does nothing if it is connected already.
    void wire();
    //! Disconnects from the signals of the model, except from destroyed().
    void unwire();
    //! Leaves the proxy. Deleted later, since a signal of the model may have led here.
    void retire();

    //! Returns the plot interface of the model, or null as soon as the model's deletion has begun.
    RVXAbstractPlotDataModel *plot() const { return items ? m_plot : nullptr; }
    //! Returns what writes the texts of cells without the item model; null unless the class is exactly a library's.
    const LibraryBulkData *texts() const { return items ? m_texts : nullptr; }
    int rowCount() const { return items ? items->rowCount() : 0; }
    QModelIndex index(int row, int column) const
    {
        return items ? items->index(row, column) : QModelIndex();
    }
    //! Returns whether the model has \a row. Between changes the announced rows are trusted, so as not to ask for each point.
    bool has(int row) const { return items && ((isSteady() && row <= rows) || hasNow(row)); }
    /*! Returns a number of the model as it is, without looking again whether the model is there: only for a row that it has, as
        has() says. */
    double numberOf(int row, int column) const { return m_plot->doubleData(row, column); }
    //! Returns \a row or, if the model is shorter than that, the row of its newest sample; below 1 without samples.
    int shownRow(int row) const { return has(row) ? row : rowCount() - 1; }

    //! The model; null as soon as its deletion has begun.
    const QPointer<QAbstractItemModel> items;
    const PlotDataReader reader;

    //! The columns of the proxy that show this model, ascending.
    QVector<int> columns;

    // The members below belong to RowAnnouncer and InputRows.

    //! Sample rows when the model last ended a change, and columns when it was last reset.
    int rows = 0;
    int ownColumns = 0;
    //! Rows that the model has dropped at its front since the last reset of the proxy.
    qint64 dropped = 0;
    //! InputChange bits that the model has begun and not ended.
    int openChanges = 0;

    //! Changes that the proxy has not announced yet.
    struct News
    {
        //! Sample rows whose cells have changed.
        int firstRow = std::numeric_limits<int>::max();
        int lastRow = 0;
        //! The most sample rows that there were before rows were removed; the times of those that are gone may be others.
        int rowsBefore = 0;
        //! Rows dropped at the front.
        int dropped = 0;
        //! Whether the header row has changed.
        bool header = false;
    };
    News news;

private:
    MergedInput *self() { return this; }
    //! Returns whether the model is connected and between two changes.
    bool isSteady() const { return m_wired && openChanges == 0; }
    Q_NEVER_INLINE bool hasNow(int row) const;

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
    const LibraryBulkData *const m_texts;
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

//! A channel of the proxy: a column of one of its inputs.
struct Channel
{
    MergedInput *input;
    int column;

    //! Returns whether the input has the column.
    bool exists() const { return column >= 0 && column < input->ownColumns; }
    //! Returns the row of the input that is shown in \a row of the proxy; below 1 if the channel has no reading to show.
    int shownRow(int row) const { return exists() ? input->shownRow(row) : 0; }
    //! Returns the number of the newest reading, which is repeated in the rows that the input does not have; NaN without one.
    Q_NEVER_INLINE double newestNumber() const;
};

using MergedInputs = std::vector<std::unique_ptr<MergedInput>>;

} // namespace Corvale_Qt
