// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QItemSelectionModel>
#include <QVector>

#include <vector>

namespace Corvale_Qt {

//! Neighbouring rows, from the first to the last.
struct RowSpan
{
    int first;
    int last;
};
using RowSpans = std::vector<RowSpan>;

/*! The selected rows of a view. A rubber band may select thousands of rows far apart, of which the selection model compares each with
    each, both to join them and to find what has changed, and which it copies whenever it is asked for them. So the rows are remembered
    until the selection model tells of other ones, and a step of the band hands over only what differs. */
class RowSelection
{
public:
    /*! Does what QItemSelectionModel::select() does with \a rows, which must rise. Where the last selection is replaced, this takes a
        time that grows with the number of rows. The selection model emits the same signal, once; this object may be deleted then. */
    void select(QItemSelectionModel &selection,
                const QModelIndex &parent,
                const QVector<int> &rows,
                QItemSelectionModel::SelectionFlags command);
    /*! Returns the rows under \a parent of which something is selected. They rise, and no row is there twice. The reference is valid
        until the next call to this object. */
    const RowSpans &rows(const QItemSelectionModel &selection, const QModelIndex &parent);
    //! Call it with the argument of each signal of the selection model, the very object.
    void selectionChanged(const QItemSelection &selected);
    //! Call it when rows have moved, or when the model or the parent is another one.
    void forget();

private:
    struct Table;

    //! Makes the remembered rows those of the selection model.
    void read(const QItemSelectionModel &selection, const Table &table);
    //! Replaces the remembered rows, what is selected, by \a rows.
    void replace(QItemSelectionModel &selection,
                 const Table &table,
                 const RowSpans &rows,
                 QItemSelectionModel::SelectionFlags command);
    //! Adds ranges behind the others.
    void addRanges(const Table &table, const RowSpans &spans);
    //! Removes ranges. What stays keeps its order.
    void dropRanges(const RowSpans &spans);
    bool isKnown(const QItemSelectionModel &selection, const QModelIndex &parent) const;

    RowSpans m_rows;
    bool m_areWhole = false; //!< whether nothing is selected but whole rows, each once
    /*! One range for each span of these rows, if they are whole, in the order in which they were selected. Their indexes lie in memory in
        that order, and the selection model goes over them several times. */
    QItemSelection m_ranges;
    std::vector<int> m_tops; //!< the first row of each range
    bool m_isKnown = false;
    int m_rowCount = 0; //!< of the model
    int m_lastColumn = 0;
    const QItemSelection *m_announced = nullptr; //!< only compared, never used
};

} // namespace Corvale_Qt
