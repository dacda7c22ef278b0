// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/RowSelection_p.h"

#include <QSignalBlocker>

#include <algorithm>
#include <vector>

namespace Corvale_Qt {

namespace {

//! With fewer ranges, comparing each with each costs nothing.
constexpr std::size_t fewRanges = 64;

//! Neighbouring rows, from the first to the last.
struct Span
{
    int first;
    int last;
};
using Spans = std::vector<Span>;

//! The rows of a model under a parent, of which all columns up to the last one are selected.
struct Table
{
    const QAbstractItemModel &model;
    QModelIndex parent;
    int lastColumn = 0;

    QItemSelectionRange rangeOf(const Span &span) const
    {
        return QItemSelectionRange(model.index(span.first, 0, parent),
                                   model.index(span.last, lastColumn, parent));
    }

    QItemSelection selectionOf(const Spans &spans) const
    {
        QItemSelection selection;
        selection.reserve(int(spans.size()));
        for (const Span &span : spans)
            selection.append(rangeOf(span));
        return selection;
    }

    bool isWhole(const QItemSelectionRange &range) const
    {
        // To ask a model for an index costs less than to ask it for a parent.
        return range.left() == 0 && range.right() == lastColumn
            && range.topLeft() == model.index(range.top(), 0, parent);
    }
};

//! What was selected before: ranges that rise, and their rows.
struct Selected
{
    explicit Selected(const QItemSelection &selection)
        : ranges(selection)
    {
        const auto isBefore = [](const auto &one, const auto &other) {
            return one.top() < other.top();
        };
        if (!std::is_sorted(ranges.cbegin(), ranges.cend(), isBefore))
            std::sort(ranges.begin(), ranges.end(), isBefore);
        rows.reserve(std::size_t(ranges.size()));
        for (const QItemSelectionRange &range : qAsConst(ranges))
            rows.push_back({range.top(), range.bottom()});
    }

    QItemSelection ranges;
    Spans rows;
};

Spans spansOf(const QVector<int> &rows)
{
    Spans spans;
    for (const int row : rows) {
        if (!spans.empty() && spans.back().last + 1 == row)
            spans.back().last = row;
        else
            spans.push_back({row, row});
    }
    return spans;
}

//! Returns the rows of \a all that are not among \a others. Both rise.
Spans without(const Spans &all, const Spans &others)
{
    Spans left;
    auto other = others.begin();
    for (Span span : all) {
        while (other != others.end() && other->last < span.first)
            ++other;
        for (auto next = other; next != others.end() && next->first <= span.last; ++next) {
            if (next->first > span.first)
                left.push_back({span.first, next->first - 1});
            span.first = next->last + 1;
        }
        if (span.first <= span.last)
            left.push_back(span);
    }
    return left;
}

/*! Returns the selection of rows that rise. Ranges that were selected before are taken from there, since their indexes need not be
    looked up among those that the model keeps up to date. */
QItemSelection selectionOf(const Spans &rows, const Table &table, const Selected &before)
{
    QItemSelection selection;
    selection.reserve(int(rows.size()));
    std::size_t next = 0;
    for (const Span &span : rows) {
        while (next < before.rows.size() && before.rows[next].first < span.first)
            ++next;
        const bool isKnown = next < before.rows.size() && before.rows[next].first == span.first
            && before.rows[next].last == span.last;
        selection.append(isKnown ? before.ranges.at(int(next)) : table.rangeOf(span));
    }
    return selection;
}

//! Replaces \a before, what is selected, by \a rows and emits the difference as the selection model would.
void replace(QItemSelectionModel &selection,
             const Table &table,
             const Selected &before,
             const Spans &rows,
             QItemSelectionModel::SelectionFlags command)
{
    const QItemSelection chosen = selectionOf(rows, table, before);
    {
        // Cleared first, there is nothing that the selection model could compare the rows with.
        const QSignalBlocker quiet(&selection);
        selection.select(QItemSelection(), QItemSelectionModel::Clear);
        command.setFlag(QItemSelectionModel::Clear, false);
        selection.select(chosen, command);
    }
    // What is selected now is known: asking for it would copy thousands of ranges several times.
    const bool selects = command & (QItemSelectionModel::Select | QItemSelectionModel::Toggle)
        && !command.testFlag(QItemSelectionModel::Deselect);
    const Spans now = selects ? rows : Spans();
    const Spans added = without(now, before.rows), removed = without(before.rows, now);
    if (!added.empty() || !removed.empty())
        Q_EMIT selection.selectionChanged(table.selectionOf(added), table.selectionOf(removed));
}

} // namespace

void selectRows(QItemSelectionModel &selection,
                const QModelIndex &parent,
                const QVector<int> &rows,
                QItemSelectionModel::SelectionFlags command)
{
    const QAbstractItemModel &model = *selection.model();
    const bool wholeRows = command.testFlag(QItemSelectionModel::Rows);
    const Table table{model, parent, wholeRows ? model.columnCount(parent) - 1 : 0};
    const Spans chosen = spansOf(rows);
    // The selection model would make rows of these ranges again, and compare each with each.
    command.setFlag(QItemSelectionModel::Rows, false);
    // A class derived from it may have signals of its own.
    const bool isPlain = selection.metaObject() == &QItemSelectionModel::staticMetaObject;
    if (isPlain && wholeRows && chosen.size() > fewRanges
        && command.testFlag(QItemSelectionModel::Clear)) {
        const QItemSelection before = selection.selection();
        const bool areRows = std::all_of(before.begin(), before.end(), [&](const auto &range) {
            return table.isWhole(range);
        });
        if (areRows) {
            replace(selection, table, Selected(before), chosen, command);
            return;
        }
    }
    selection.select(table.selectionOf(chosen), command);
}

} // namespace Corvale_Qt
