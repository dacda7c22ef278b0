// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RowAnnouncer_p.h"

#include <algorithm>
#include <utility>

namespace Corvale_Qt {

namespace {

constexpr int toTheEnd = std::numeric_limits<int>::max();

//! Returns how many of the rows \a first to \a last hold samples: the header row does not.
int sampleRowsIn(int first, int last)
{
    return std::max(last - std::max(first, 1) + 1, 0);
}

//! Returns whether rows from \a first on include the oldest sample.
bool isFront(int first)
{
    return first <= 1;
}

void addRows(MergedInput::News &news, int first, int last)
{
    news.firstRow = std::min(news.firstRow, std::max(first, 1));
    news.lastRow = std::max(news.lastRow, last);
}

} // namespace

RowAnnouncer::RowAnnouncer(RVXMultichannelProxyModel *proxy,
                           const MergedInputs &inputs,
                           const QVector<Channel> &channels)
    : q(proxy)
    , m_inputs(inputs)
    , m_counts(inputs, channels)
{
}

bool RowAnnouncer::begin(MergedInput &input, InputChange change)
{
    // A change that begins again without having ended is counted, and waited for, once.
    if ((input.openChanges & int(change)) == 0) {
        input.openChanges |= int(change);
        ++m_open;
    }
    return m_change == Change::None;
}

void RowAnnouncer::end(MergedInput &input, InputChange change)
{
    if ((input.openChanges & int(change)) == 0) {
        // The change began before the proxy listened, or before the proxy was reset.
        m_needsReset = true;
    } else {
        input.openChanges &= ~int(change);
        --m_open;
    }
    m_counts.count(input);
    settle();
}

void RowAnnouncer::rowsAboutToBeInserted(MergedInput &input, int last)
{
    if (begin(input, InputChange::RowInsertion) && last > m_rows)
        open(Change::Insertion, m_rows + 1, last, m_shifted);
}

void RowAnnouncer::rowsInserted(MergedInput &input, int first)
{
    // The news reaches to the end, since rows beyond those of the input repeat its newest sample.
    addRows(newsOf(input), first, toTheEnd);
    end(input, InputChange::RowInsertion);
}

void RowAnnouncer::rowsAboutToBeRemoved(MergedInput &input, int first, int last)
{
    // An input that has begun another change removes these rows within it.
    const bool isNested = input.openChanges != 0;
    if (!begin(input, InputChange::RowRemoval))
        return;
    const int removed = sampleRowsIn(first, last);
    if (isFront(first)) {
        const bool rowsRemain =
            isNested || input.rows > removed || m_counts.longestBeside(input) > 0;
        const qint64 dropped = input.dropped + removed;
        const int lead = announcedLead(dropped, rowsRemain);
        if (lead > 0)
            open(Change::Removal, 1, lead, dropped);
    } else if (input.rows == m_rows && m_counts.longestBeside(input) <= input.rows - removed) {
        open(Change::Removal, first, std::min(last, m_rows), m_shifted);
    }
}

void RowAnnouncer::rowsRemoved(MergedInput &input, int first, int last)
{
    const int removed = sampleRowsIn(first, last);
    MergedInput::News &news = newsOf(input);
    news.rowsBefore = std::max(news.rowsBefore, input.rows);
    if (isFront(first)) {
        input.dropped += removed;
        m_mostDropped = std::max(m_mostDropped, input.dropped);
        news.dropped += removed;
        if (news.lastRow > 0 && news.firstRow <= news.lastRow)
            news.firstRow = std::max(news.firstRow - removed, 1);
    } else {
        addRows(news, first, toTheEnd);
        if (m_change == Change::Removal && m_first > 1)
            tellOfRowsBehind(m_first);
    }
    end(input, InputChange::RowRemoval);
}

//! Notes that rows were removed from the middle of the table, although the samples of other inputs stay where they are.
void RowAnnouncer::tellOfRowsBehind(int first)
{
    for (const auto &input : m_inputs)
        addRows(newsOf(*input), first, toTheEnd);
}

void RowAnnouncer::rowsAboutToBeMoved(MergedInput &input, int first, int last, int before)
{
    // With a single input rows of the table move. With more of them only the cells of one input do.
    if (m_inputs.size() > 1) {
        layoutAboutToBeChanged(input, InputChange::RowMove);
    } else if (!begin(input, InputChange::RowMove)) {
        m_needsReset = true;
    } else {
        announceBegin(Change::Move, [&] {
            const bool moves = q->beginMoveRows(QModelIndex(), first, last, QModelIndex(), before);
            m_needsReset = m_needsReset || !moves;
            return moves;
        });
    }
}

void RowAnnouncer::layoutAboutToBeChanged(MergedInput &input, InputChange change)
{
    if (begin(input, change))
        openLayout();
    else if (m_change != Change::Layout)
        m_needsReset = true;
}

void RowAnnouncer::aboutToBeReset(MergedInput &input, InputChange change)
{
    begin(input, change);
    openReset();
}

void RowAnnouncer::cellsChangedMeanwhile(MergedInput &input, int firstRow, int lastRow)
{
    MergedInput::News &news = newsOf(input);
    news.header = news.header || firstRow <= 0;
    if (lastRow >= 1)
        addRows(news, firstRow, lastRow);
}

void RowAnnouncer::beginReset()
{
    ++m_open;
    if (!m_beginning)
        close();
    openReset();
}

void RowAnnouncer::endReset()
{
    --m_open;
    finishReset();
    // An input in the middle of a change may have been counted wrongly; it is counted again when the change ends.
    m_needsReset = isBusy();
}

void RowAnnouncer::abandon(MergedInput &input)
{
    for (; input.openChanges != 0; input.openChanges &= input.openChanges - 1)
        --m_open;
}

//! Opens \a change. \a announce tells the views and returns whether an end will follow.
template<typename Announce>
void RowAnnouncer::announceBegin(Change change, Announce announce)
{
    m_change = change;
    const bool outer = std::exchange(m_beginning, true);
    ++m_open;
    const bool opened = announce();
    --m_open;
    m_beginning = outer;
    if (!opened)
        m_change = Change::None;
    // A listener may have removed the input that would have ended the change.
    settle();
}

void RowAnnouncer::open(Change change, int first, int last, qint64 shift)
{
    m_first = first;
    m_last = last;
    m_shift = shift;
    announceBegin(change, [&] {
        if (change == Change::Insertion)
            q->beginInsertRows(QModelIndex(), first, last);
        else
            q->beginRemoveRows(QModelIndex(), first, last);
        return true;
    });
}

void RowAnnouncer::openLayout()
{
    announceBegin(Change::Layout, [this] {
        // Views store their selections in persistent indexes when they receive this signal, so it comes first.
        Q_EMIT q->layoutAboutToBeChanged();
        m_held.hold(q->persistentIndexList(), [this](const QModelIndex &index) {
            return q->mapToSource(index);
        });
        return true;
    });
}

void RowAnnouncer::openReset()
{
    m_needsReset = true;
    if (m_change != Change::None)
        return;
    m_change = Change::Reset;
    ++m_open;
    q->beginResetModel();
    --m_open;
    if (m_change == Change::Reset)
        m_rows = 0;
}

//! Ends the change that is announced, with the rows it was announced with. A reset is ended by finishReset().
void RowAnnouncer::close()
{
    if (m_change == Change::Reset)
        return;
    switch (std::exchange(m_change, Change::None)) {
    case Change::Insertion:
        m_rows += m_last - m_first + 1;
        q->sourceRowsInserted(QModelIndex(), m_first, m_last);
        q->endInsertRows();
        break;
    case Change::Removal:
        m_rows -= m_last - m_first + 1;
        m_shifted = m_shift;
        q->sourceRowsRemoved(QModelIndex(), m_first, m_last);
        q->endRemoveRows();
        break;
    case Change::Move:
        q->endMoveRows();
        break;
    case Change::Layout:
        closeLayout();
        break;
    default:
        break;
    }
}

void RowAnnouncer::closeLayout()
{
    // A cell stays in the column of its channel, even if another channel shows the same column of the source.
    const auto now = m_held.now([this](const QModelIndex &source, const QModelIndex &before) {
        return source.isValid() ? q->index(source.row(), before.column()) : QModelIndex();
    });
    q->changePersistentIndexList(m_held.before(), now);
    m_held.clear();
    Q_EMIT q->layoutChanged();
}

//! Counts all rows again and ends the reset. Begins the reset first unless it is already announced.
void RowAnnouncer::finishReset()
{
    if (m_change == Change::Reset)
        m_change = Change::None;
    else
        q->beginResetModel();
    m_needsReset = false;
    m_counts.countAll();
    m_withNews.clear();
    m_shifted = 0;
    m_mostDropped = 0;
    m_rows = m_counts.longest();
    q->sourceModelReset();
    q->endResetModel();
}

void RowAnnouncer::announce(Change change, int first, int last)
{
    if (first > last)
        return;
    ++m_open; // a listener to the beginning must not end the change
    open(change, first, last, m_shifted);
    --m_open;
    close();
}

/*! Returns by how many rows the table shifts when an input has dropped \a dropped rows in all. As long as rows remain,
    at least one stays announced: if all rows left and came back, averages of the other channels would start afresh. */
int RowAnnouncer::announcedLead(qint64 dropped, bool rowsRemain) const
{
    const int most = rowsRemain ? m_rows - 1 : m_rows;
    return int(std::min<qint64>(dropped - m_shifted, most));
}

bool RowAnnouncer::isSettled() const
{
    return m_change == Change::None && !m_needsReset && m_withNews.isEmpty()
        && m_rows == m_counts.longest() && m_shifted >= m_mostDropped;
}

//! Announces what is left to announce, once no input is in the middle of a change.
void RowAnnouncer::settle()
{
    // Listeners may cause further changes.
    while (!isBusy() && !m_beginning && !isSettled()) {
        if (m_needsReset) {
            close();
            finishReset();
        } else {
            settleRows();
        }
    }
}

void RowAnnouncer::settleRows()
{
    const qint64 shifted = m_shifted;
    int known = m_rows;
    close();
    known = std::min(known, m_rows);
    if (m_shifted < m_mostDropped) {
        const int lead = announcedLead(m_mostDropped, m_counts.longest() > 0);
        m_shifted = m_mostDropped;
        announce(Change::Removal, 1, lead);
    }
    announce(Change::Removal, m_counts.longest() + 1, m_rows);
    known = std::min(known, m_rows);
    announce(Change::Insertion, m_rows + 1, m_counts.longest());
    while (!isBusy() && !m_withNews.isEmpty())
        tell(*m_withNews.takeFirst(), known, m_shifted - shifted);
}

/*! Announces the changed cells of \a input among the first \a knownRows rows: those that views knew before this round
    of changes and still know. \a shift is the number of rows by which the round shifted the table. */
void RowAnnouncer::tell(MergedInput &input, int knownRows, qint64 shift)
{
    const MergedInput::News news = std::exchange(input.news, MergedInput::News());
    int first = news.firstRow;
    int last = std::min(news.lastRow, knownRows);
    if (news.dropped > 0 && input.rows == 0) {
        first = 1; // no sample is left to repeat
        last = m_rows;
    } else if (news.dropped > 0 && news.dropped != shift && first > last && m_rows > 1) {
        first = last = m_rows; // with a single row, averages would start afresh
    }
    if (news.header) {
        const QVector<int> columns = input.columns; // a listener may remove the input
        for (const int column : columns)
            announceCells(0, column, 0, column);
    }
    columnsChanged(input, first, last, news.rowsBefore);
}

/*! Announces the samples of \a input on these rows, and the times of those rows whose time it provides, or did while it had
    \a rowsBefore rows. */
void RowAnnouncer::columnsChanged(const MergedInput &input, int first, int last, int rowsBefore)
{
    if (first > last)
        return;
    const QVector<int> columns = input.columns;
    const int lastTime = std::min(last, std::max(input.rows, rowsBefore));
    const int firstTime = std::max(first, m_counts.longestBefore(input, lastTime) + 1);
    if (firstTime <= lastTime)
        announceCells(firstTime, 0, lastTime, 0);
    for (const int column : columns)
        announceCells(first, column, last, column);
}

void RowAnnouncer::announceCells(int firstRow, int firstColumn, int lastRow, int lastColumn)
{
    const QModelIndex from = q->index(firstRow, firstColumn);
    const QModelIndex to = q->index(lastRow, lastColumn);
    if (!from.isValid() || !to.isValid())
        return; // a listener has reset or shortened the table
    q->sourceDataChanged(from, to);
    Q_EMIT q->dataChanged(from, to);
}

MergedInput::News &RowAnnouncer::newsOf(MergedInput &input)
{
    if (!m_withNews.contains(&input))
        m_withNews.append(&input);
    return input.news;
}

} // namespace Corvale_Qt
