// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/RowSelection_p.h"

#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace Corvale_Qt {

namespace {

//! With fewer ranges, comparing each with each costs nothing.
constexpr std::size_t fewRanges = 64;

RowSpans spansOf(const QVector<int> &rows)
{
    RowSpans spans;
    for (const int row : rows) {
        if (!spans.empty() && spans.back().last + 1 == row)
            spans.back().last = row;
        else
            spans.push_back({row, row});
    }
    return spans;
}

//! Returns the rows of \a all that are not among \a others. Both rise.
RowSpans without(const RowSpans &all, const RowSpans &others)
{
    RowSpans left;
    auto other = others.begin();
    for (RowSpan span : all) {
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

bool isSame(const RowSpan &one, const RowSpan &other)
{
    return one.first == other.first && one.last == other.last;
}

//! Returns the spans of \a all that are not among \a others. Both rise.
RowSpans notAmong(const RowSpans &others, const RowSpans &all)
{
    RowSpans left;
    auto other = others.begin();
    for (const RowSpan &span : all) {
        while (other != others.end() && other->first < span.first)
            ++other;
        if (other == others.end() || !isSame(*other, span))
            left.push_back(span);
    }
    return left;
}

} // namespace

//! The rows of a model under a parent, of which all columns up to the last one are selected.
struct RowSelection::Table
{
    const QAbstractItemModel &model;
    QModelIndex parent;
    int lastColumn = 0;

    QItemSelectionRange rangeOf(const RowSpan &span) const
    {
        return QItemSelectionRange(model.index(span.first, 0, parent),
                                   model.index(span.last, lastColumn, parent));
    }

    QItemSelection selectionOf(const RowSpans &spans) const
    {
        QItemSelection selection;
        selection.reserve(int(spans.size()));
        for (const RowSpan &span : spans)
            selection.append(rangeOf(span));
        return selection;
    }

    //! Returns whether a range lies under the parent. To ask a model for an index costs less than to ask it for a parent.
    bool holds(const QItemSelectionRange &range) const
    {
        return range.topLeft() == model.index(range.top(), range.left(), parent);
    }

    bool isWhole(const QItemSelectionRange &range) const
    {
        return range.left() == 0 && range.right() == lastColumn;
    }
};

void RowSelection::select(QItemSelectionModel &selection,
                          const QModelIndex &parent,
                          const QVector<int> &rows,
                          QItemSelectionModel::SelectionFlags command)
{
    const QAbstractItemModel &model = *selection.model();
    const bool wholeRows = command.testFlag(QItemSelectionModel::Rows);
    const Table table{model, parent, wholeRows ? model.columnCount(parent) - 1 : 0};
    const RowSpans chosen = spansOf(rows);
    // The selection model would make rows of these ranges again, and compare each with each.
    command.setFlag(QItemSelectionModel::Rows, false);
    // A class derived from it may have signals of its own.
    const bool isPlain = selection.metaObject() == &QItemSelectionModel::staticMetaObject;
    if (isPlain && wholeRows && chosen.size() > fewRanges
        && command.testFlag(QItemSelectionModel::Clear)) {
        if (!isKnown(selection, parent))
            read(selection, table);
        if (m_areWhole && table.lastColumn == m_lastColumn) {
            replace(selection, table, chosen, command);
            return;
        }
    }
    selection.select(table.selectionOf(chosen), command);
}

void RowSelection::replace(QItemSelectionModel &selection,
                           const Table &table,
                           const RowSpans &rows,
                           QItemSelectionModel::SelectionFlags command)
{
    const bool selects = command & (QItemSelectionModel::Select | QItemSelectionModel::Toggle)
        && !command.testFlag(QItemSelectionModel::Deselect);
    const RowSpans before = std::exchange(m_rows, selects ? rows : RowSpans());
    const RowSpans gone = notAmong(m_rows, before), come = notAmong(before, m_rows);
    {
        // Cleared first, there is nothing that the selection model could compare the rows with, and it shares none of the ranges.
        const QSignalBlocker quiet(&selection);
        selection.select(QItemSelection(), QItemSelectionModel::Clear);
        dropRanges(gone);
        addRanges(table, come);
        command.setFlag(QItemSelectionModel::Clear, false);
        selection.select(m_ranges, command);
    }
    if (gone.empty() && come.empty())
        return;
    // What is selected now is known: asking for it would copy thousands of ranges several times.
    const QItemSelection selected = table.selectionOf(without(come, gone));
    const QItemSelection deselected = table.selectionOf(without(gone, come));
    if (selected.isEmpty() && deselected.isEmpty())
        return;
    // A selection model that a host keeps quiet tells nobody, and the next announcement at this place would be somebody else's.
    m_announced = selection.signalsBlocked() ? nullptr : &selected;
    Q_EMIT selection.selectionChanged(selected, deselected);
}

void RowSelection::addRanges(const Table &table, const RowSpans &spans)
{
    for (const RowSpan &span : spans) {
        m_ranges.append(table.rangeOf(span));
        m_tops.push_back(span.first);
    }
}

void RowSelection::dropRanges(const RowSpans &spans)
{
    if (spans.empty())
        return;
    std::vector<bool> isGone(std::size_t(m_rowCount), false);
    for (const RowSpan &span : spans)
        isGone[std::size_t(span.first)] = true;
    auto keptRange = m_ranges.begin(), range = keptRange;
    auto keptTop = m_tops.begin();
    for (const int top : m_tops) {
        if (!isGone[std::size_t(top)]) {
            *keptTop++ = top;
            if (keptRange != range)
                *keptRange = std::move(*range); // its indexes need not be looked up again
            ++keptRange;
        }
        ++range;
    }
    m_ranges.erase(keptRange, m_ranges.end());
    m_tops.erase(keptTop, m_tops.end());
}

const RowSpans &RowSelection::rows(const QItemSelectionModel &selection, const QModelIndex &parent)
{
    const QAbstractItemModel *model = selection.model();
    if (!model) // deleted
        forget();
    else if (!isKnown(selection, parent))
        read(selection, {*model, parent, model->columnCount(parent) - 1});
    return m_rows;
}

void RowSelection::selectionChanged(const QItemSelection &selected)
{
    // What a host selects while it is told of rows is told before, after or within that.
    if (&selected != std::exchange(m_announced, nullptr))
        forget();
}

void RowSelection::forget()
{
    m_isKnown = false;
    m_rows.clear();
    m_ranges.clear();
    m_tops.clear();
}

bool RowSelection::isKnown(const QItemSelectionModel &selection, const QModelIndex &parent) const
{
    // While a model removes rows, what is read is that of before.
    return m_isKnown && m_rowCount == selection.model()->rowCount(parent);
}

void RowSelection::read(const QItemSelectionModel &selection, const Table &table)
{
    forget();
    const QItemSelection ranges = selection.selection();
    std::vector<std::pair<int, int>> order; // the first rows of the ranges, and their places
    order.reserve(std::size_t(ranges.size()));
    for (int place = 0; place < ranges.size(); ++place)
        order.emplace_back(ranges.at(place).top(), place);
    std::sort(order.begin(), order.end());
    bool areWhole = true;
    for (const auto &[top, place] : order) {
        const QItemSelectionRange &range = ranges.at(place);
        const bool isHeld = table.holds(range);
        areWhole = areWhole && isHeld && table.isWhole(range);
        if (!isHeld)
            continue;
        m_ranges.append(range);
        m_tops.push_back(top);
        if (m_rows.empty() || m_rows.back().last < top)
            m_rows.push_back({top, range.bottom()});
        else // other columns of the same rows
            m_rows.back().last = std::max(m_rows.back().last, range.bottom());
    }
    m_areWhole = areWhole && std::size_t(m_ranges.size()) == m_rows.size();
    if (!m_areWhole) {
        m_ranges.clear();
        m_tops.clear();
    }
    m_isKnown = true;
    m_rowCount = table.model.rowCount(table.parent);
    m_lastColumn = table.lastColumn;
}

} // namespace Corvale_Qt
