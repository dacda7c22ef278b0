// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RowLedger_p.h"

#include <algorithm>

namespace Corvale_Qt {

namespace {

// The header row is not the ledger's.
int sampleRowsIn(int first, int last)
{
    return std::max(last - std::max(first, 1) + 1, 0);
}

bool isFront(int first)
{
    return first <= 1;
}

} // namespace

RowLedger::RowLedger(RVXMultichannelProxyModel *proxy,
                     const ChannelSources &sources,
                     const QVector<Channel> &channels)
    : q(proxy)
    , m_sources(sources)
    , m_channels(channels)
{
}

void RowLedger::rowsAboutToBeInserted(ChannelSource &source, int last)
{
    ++source.openChanges;
    if (!isBusy() && last > m_rows)
        open(Change::Insertion, &source, m_rows + 1, last);
}

void RowLedger::rowsInserted(ChannelSource &source, int first)
{
    const int known = m_rows;
    source.openChanges = std::max(source.openChanges - 1, 0);
    closeFor(source, Change::Insertion);
    count(source);
    settle(source);
    // To the end: rows that the source does not have repeat its newest sample.
    columnChanged(source, first, known);
}

void RowLedger::rowsAboutToBeRemoved(ChannelSource &source, int first, int last)
{
    ++source.openChanges;
    if (isBusy())
        return;
    const int removed = sampleRowsIn(first, last);
    if (isFront(first)) {
        // It is the nested one of the two if the source has opened another change.
        const bool rowsRemain =
            source.openChanges > 1 || source.rows > removed || longestBeside(source) > 0;
        const int lead = announcedLead(source.dropped + removed, rowsRemain);
        if (lead > 0)
            open(Change::Removal, &source, 1, lead);
    } else if (source.rows == m_rows && longestBeside(source) <= source.rows - removed) {
        open(Change::Removal, &source, first, std::min(last, m_rows));
    }
}

void RowLedger::rowsRemoved(ChannelSource &source, int first, int last)
{
    source.openChanges = std::max(source.openChanges - 1, 0);
    const int removed = sampleRowsIn(first, last);
    const bool front = isFront(first);
    const qint64 shifted = m_shifted;
    if (front) {
        source.dropped += removed;
        m_mostDropped = std::max(m_mostDropped, source.dropped);
        if (isOpenFor(source, Change::Removal))
            m_shifted = source.dropped;
    }
    closeFor(source, Change::Removal);
    count(source);
    settle(source);
    // An insertion around this removal will bring the change of the column.
    const bool isNested = source.openChanges > 0;
    if (!front)
        columnChanged(source, first, m_rows);
    else if (!isNested)
        frontDropped(source, m_shifted - shifted == removed);
}

//! Tells of the column of \a source, of which the oldest rows left, where the shift of the table did not.
void RowLedger::frontDropped(const ChannelSource &source, bool tableWentAlong)
{
    if (source.rows == 0)
        columnChanged(source, 1, m_rows); // nothing is left to repeat
    else if (!tableWentAlong && m_rows > 1) // a single row would begin its averages anew
        columnChanged(source, m_rows, m_rows);
}

void RowLedger::beginReset()
{
    if (m_resets++ > 0)
        return;
    q->beginResetModel();
    m_rows = 0;
}

void RowLedger::endReset()
{
    countAll();
    q->sourceModelReset();
    if (--m_resets == 0)
        q->endResetModel();
}

void RowLedger::abandon(ChannelSource &source)
{
    source.openChanges = 0;
    if (m_opener != &source)
        return;
    m_change = Change::None;
    m_opener = nullptr;
}

void RowLedger::open(Change change, const ChannelSource *by, int first, int last)
{
    m_change = change;
    m_opener = by;
    m_first = first;
    m_last = last;
    if (change == Change::Insertion)
        q->beginInsertRows(QModelIndex(), first, last);
    else
        q->beginRemoveRows(QModelIndex(), first, last);
}

void RowLedger::close()
{
    const Change change = m_change;
    const int first = m_first;
    const int last = m_last;
    m_change = Change::None;
    m_opener = nullptr;
    if (change == Change::Insertion) {
        m_rows += last - first + 1;
        q->sourceRowsInserted(QModelIndex(), first, last);
        q->endInsertRows();
    } else {
        m_rows -= last - first + 1;
        q->sourceRowsRemoved(QModelIndex(), first, last);
        q->endRemoveRows();
    }
}

bool RowLedger::isOpenFor(const ChannelSource &source, Change change) const
{
    return m_opener == &source && m_change == change;
}

void RowLedger::closeFor(const ChannelSource &source, Change change)
{
    if (isOpenFor(source, change))
        close();
}

void RowLedger::announce(Change change, int first, int last)
{
    if (first > last)
        return;
    open(change, nullptr, first, last);
    close();
}

/*! By how many rows the table shifts when \a dropped are to be gone. While any rows remain one stays announced: were all
    of them to leave and come back, averages of the other channels would begin anew. */
int RowLedger::announcedLead(qint64 dropped, bool rowsRemain) const
{
    const int most = rowsRemain ? m_rows - 1 : m_rows;
    return int(std::min<qint64>(dropped - m_shifted, most));
}

//! Announces what is left between the rows announced and the rows that there are.
void RowLedger::settle(const ChannelSource &source)
{
    if (isBusy() || source.openChanges > 0)
        return;
    if (m_shifted < m_mostDropped) {
        const int lead = announcedLead(m_mostDropped, m_longest > 0);
        m_shifted = m_mostDropped;
        announce(Change::Removal, 1, lead);
    }
    announce(Change::Removal, m_longest + 1, m_rows);
    announce(Change::Insertion, m_rows + 1, m_longest);
}

//! The samples of \a source changed on these rows, and the times where it is the source that gives them.
void RowLedger::columnChanged(const ChannelSource &source, int first, int last)
{
    first = std::max(first, 1);
    last = std::min(last, m_rows);
    if (m_resets > 0 || first > last)
        return;
    const int lastTime = std::min(last, source.rows);
    const int firstTime = std::max(first, longestBefore(source, lastTime) + 1);
    if (firstTime <= lastTime)
        cellsChanged(0, firstTime, lastTime);
    const QVector<int> columns = source.columns; // whoever listens may take the source out
    for (const int column : columns)
        cellsChanged(column, first, last);
}

void RowLedger::cellsChanged(int column, int first, int last)
{
    const QModelIndex from = q->index(first, column);
    const QModelIndex to = q->index(last, column);
    q->sourceDataChanged(from, to);
    Q_EMIT q->dataChanged(from, to);
}

void RowLedger::count(ChannelSource &source)
{
    const int rows = std::max(source.rowCount() - 1, 0);
    if (rows == source.rows)
        return;
    const bool heldLongest = source.rows == m_longest;
    source.rows = rows;
    if (rows > m_longest) {
        m_longest = rows;
        m_holders = 1;
    } else if (rows == m_longest) {
        ++m_holders;
    } else if (heldLongest && --m_holders == 0) {
        countLongest();
    }
}

void RowLedger::countLongest()
{
    m_longest = 0;
    m_holders = 0;
    for (const auto &source : m_sources) {
        if (source->rows > m_longest) {
            m_longest = source->rows;
            m_holders = 0;
        }
        m_holders += source->rows == m_longest ? 1 : 0;
    }
}

void RowLedger::countAll()
{
    for (const auto &source : m_sources) {
        source->rows = std::max(source->rowCount() - 1, 0);
        source->dropped = 0;
    }
    m_shifted = 0;
    m_mostDropped = 0;
    countLongest();
    m_rows = m_longest;
}

//! Sample rows of the longest source that comes before \a source, or any number from \a enough on.
int RowLedger::longestBefore(const ChannelSource &source, int enough) const
{
    int rows = 0;
    for (const Channel &channel : m_channels) {
        if (channel.source == &source || rows >= enough)
            break;
        rows = std::max(rows, channel.source->rows);
    }
    return rows;
}

int RowLedger::longestBeside(const ChannelSource &source) const
{
    int rows = 0;
    for (const auto &other : m_sources) {
        if (other.get() != &source)
            rows = std::max(rows, other->rows);
    }
    return rows;
}

} // namespace Corvale_Qt
