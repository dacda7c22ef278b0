// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RowLedger_p.h"

#include <algorithm>
#include <utility>

namespace Corvale_Qt {

namespace {

constexpr int toTheEnd = std::numeric_limits<int>::max();

// The header row is not the ledger's.
int sampleRowsIn(int first, int last)
{
    return std::max(last - std::max(first, 1) + 1, 0);
}

bool isFront(int first)
{
    return first <= 1;
}

void addRows(ChannelSource::News &news, int first, int last)
{
    news.firstRow = std::min(news.firstRow, std::max(first, 1));
    news.lastRow = std::max(news.lastRow, last);
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

bool RowLedger::begin(ChannelSource &source, SourceChange change)
{
    // One that is begun again was never ended, and is not waited for twice.
    if ((source.openChanges & int(change)) == 0) {
        source.openChanges |= int(change);
        ++m_open;
    }
    return m_change == Change::None;
}

void RowLedger::end(ChannelSource &source, SourceChange change)
{
    if ((source.openChanges & int(change)) == 0) {
        // Begun before the proxy listened, or before a reset of its own.
        m_needsReset = true;
    } else {
        source.openChanges &= ~int(change);
        --m_open;
    }
    count(source);
    settle();
}

void RowLedger::rowsAboutToBeInserted(ChannelSource &source, int last)
{
    if (begin(source, SourceChange::RowInsertion) && last > m_rows)
        open(Change::Insertion, m_rows + 1, last, m_shifted);
}

void RowLedger::rowsInserted(ChannelSource &source, int first)
{
    // To the end: rows that the source does not have repeat its newest sample.
    addRows(newsOf(source), first, toTheEnd);
    end(source, SourceChange::RowInsertion);
}

void RowLedger::rowsAboutToBeRemoved(ChannelSource &source, int first, int last)
{
    // It is the nested one of two if the source has begun something else.
    const bool isNested = source.openChanges != 0;
    if (!begin(source, SourceChange::RowRemoval))
        return;
    const int removed = sampleRowsIn(first, last);
    if (isFront(first)) {
        const bool rowsRemain = isNested || source.rows > removed || longestBeside(source) > 0;
        const qint64 dropped = source.dropped + removed;
        const int lead = announcedLead(dropped, rowsRemain);
        if (lead > 0)
            open(Change::Removal, 1, lead, dropped);
    } else if (source.rows == m_rows && longestBeside(source) <= source.rows - removed) {
        open(Change::Removal, first, std::min(last, m_rows), m_shifted);
    }
}

void RowLedger::rowsRemoved(ChannelSource &source, int first, int last)
{
    const int removed = sampleRowsIn(first, last);
    ChannelSource::News &news = newsOf(source);
    if (isFront(first)) {
        source.dropped += removed;
        m_mostDropped = std::max(m_mostDropped, source.dropped);
        news.dropped += removed;
        if (news.lastRow > 0 && news.firstRow <= news.lastRow)
            news.firstRow = std::max(news.firstRow - removed, 1);
    } else {
        addRows(news, first, toTheEnd);
    }
    end(source, SourceChange::RowRemoval);
}

void RowLedger::rowsAboutToBeMoved(ChannelSource &source, int first, int last, int before)
{
    // Rows of the table move where one source is all of it. Otherwise the cells of one do.
    if (m_sources.size() > 1) {
        layoutAboutToBeChanged(source, SourceChange::RowMove);
    } else if (!begin(source, SourceChange::RowMove)) {
        m_needsReset = true;
    } else {
        announceBegin(Change::Move, [&] {
            const bool moves = q->beginMoveRows(QModelIndex(), first, last, QModelIndex(), before);
            m_needsReset = m_needsReset || !moves;
            return moves;
        });
    }
}

void RowLedger::layoutAboutToBeChanged(ChannelSource &source, SourceChange change)
{
    if (begin(source, change))
        openLayout();
    else if (m_change != Change::Layout)
        m_needsReset = true;
}

void RowLedger::aboutToBeReset(ChannelSource &source, SourceChange change)
{
    begin(source, change);
    openReset();
}

void RowLedger::cellsChangedMeanwhile(ChannelSource &source, int firstRow, int lastRow)
{
    ChannelSource::News &news = newsOf(source);
    news.header = news.header || firstRow <= 0;
    if (lastRow >= 1)
        addRows(news, firstRow, lastRow);
}

void RowLedger::beginReset()
{
    ++m_open;
    if (!m_beginning)
        close();
    openReset();
}

void RowLedger::endReset()
{
    --m_open;
    finishReset();
    // Sources in the middle of a change may have been counted wrongly: they are counted again at its end.
    m_needsReset = isBusy();
}

void RowLedger::abandon(ChannelSource &source)
{
    for (; source.openChanges != 0; source.openChanges &= source.openChanges - 1)
        --m_open;
    source.news = ChannelSource::News();
    m_withNews.removeOne(&source);
}

//! \a announce says whether there is an end to come.
template<typename Announce>
void RowLedger::announceBegin(Change change, Announce announce)
{
    m_change = change;
    const bool outer = std::exchange(m_beginning, true);
    ++m_open;
    const bool opened = announce();
    --m_open;
    m_beginning = outer;
    if (!opened)
        m_change = Change::None;
    // A listener may have taken out the source that would have ended it.
    settle();
}

void RowLedger::open(Change change, int first, int last, qint64 shift)
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

void RowLedger::openLayout()
{
    announceBegin(Change::Layout, [this] {
        // Views keep their selections in persistent indexes when they hear this, so it comes before the search.
        Q_EMIT q->layoutAboutToBeChanged();
        m_held.hold(q->persistentIndexList(), [this](const QModelIndex &index) {
            return q->mapToSource(index);
        });
        return true;
    });
}

void RowLedger::openReset()
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

//! Ends what is announced, as it was announced; but for a reset, which counts anew.
void RowLedger::close()
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

void RowLedger::closeLayout()
{
    // A channel's cell stays in its column, also where another channel shows the same one of the source.
    const auto now = m_held.now([this](const QModelIndex &source, const QModelIndex &before) {
        return source.isValid() ? q->index(source.row(), before.column()) : QModelIndex();
    });
    q->changePersistentIndexList(m_held.before(), now);
    m_held.clear();
    Q_EMIT q->layoutChanged();
}

//! Counts all rows anew and ends the reset; begins it as well where something else was announced until now.
void RowLedger::finishReset()
{
    if (m_change == Change::Reset)
        m_change = Change::None;
    else
        q->beginResetModel();
    m_needsReset = false;
    countAll();
    q->sourceModelReset();
    q->endResetModel();
}

void RowLedger::announce(Change change, int first, int last)
{
    if (first > last)
        return;
    ++m_open; // a listener to the beginning must not end it
    open(change, first, last, m_shifted);
    --m_open;
    close();
}

/*! By how many rows the table shifts when \a dropped are to be gone. While any rows remain one stays announced: were all
    of them to leave and come back, averages of the other channels would begin anew. */
int RowLedger::announcedLead(qint64 dropped, bool rowsRemain) const
{
    const int most = rowsRemain ? m_rows - 1 : m_rows;
    return int(std::min<qint64>(dropped - m_shifted, most));
}

bool RowLedger::isSettled() const
{
    return m_change == Change::None && !m_needsReset && m_withNews.isEmpty() && m_rows == m_longest
        && m_shifted >= m_mostDropped;
}

//! Tells what there is to tell, once no source is in the middle of a change.
void RowLedger::settle()
{
    // Listeners may bring more.
    while (!isBusy() && !m_beginning && !isSettled()) {
        if (m_needsReset) {
            close();
            finishReset();
        } else {
            settleRows();
        }
    }
}

void RowLedger::settleRows()
{
    const qint64 shifted = m_shifted;
    int known = m_rows;
    close();
    known = std::min(known, m_rows);
    if (m_shifted < m_mostDropped) {
        const int lead = announcedLead(m_mostDropped, m_longest > 0);
        m_shifted = m_mostDropped;
        announce(Change::Removal, 1, lead);
    }
    announce(Change::Removal, m_longest + 1, m_rows);
    known = std::min(known, m_rows);
    announce(Change::Insertion, m_rows + 1, m_longest);
    while (!isBusy() && !m_withNews.isEmpty())
        tell(*m_withNews.takeFirst(), known, m_shifted - shifted);
}

/*! Tells of the cells of \a source that read otherwise now, among the \a knownRows that views knew before and know
    still. \a shift is by how much the table was shifted. */
void RowLedger::tell(ChannelSource &source, int knownRows, qint64 shift)
{
    const ChannelSource::News news = std::exchange(source.news, ChannelSource::News());
    int first = news.firstRow;
    int last = std::min(news.lastRow, knownRows);
    if (news.dropped > 0 && source.rows == 0) {
        first = 1; // nothing is left to repeat
        last = m_rows;
    } else if (news.dropped > 0 && news.dropped != shift && first > last && m_rows > 1) {
        first = last = m_rows; // a single row would begin its averages anew
    }
    if (news.header) {
        const QVector<int> columns = source.columns; // a listener may take the source out
        for (const int column : columns)
            announceCells(0, column, 0, column);
    }
    columnsChanged(source, first, last);
}

//! The samples of \a source changed on these rows, and the times where it is the source that gives them.
void RowLedger::columnsChanged(const ChannelSource &source, int first, int last)
{
    if (first > last)
        return;
    const QVector<int> columns = source.columns;
    const int lastTime = std::min(last, source.rows);
    const int firstTime = std::max(first, longestBefore(source, lastTime) + 1);
    if (firstTime <= lastTime)
        announceCells(firstTime, 0, lastTime, 0);
    for (const int column : columns)
        announceCells(first, column, last, column);
}

void RowLedger::announceCells(int firstRow, int firstColumn, int lastRow, int lastColumn)
{
    const QModelIndex from = q->index(firstRow, firstColumn);
    const QModelIndex to = q->index(lastRow, lastColumn);
    if (!from.isValid() || !to.isValid())
        return; // a listener has reset the table or made it shorter
    q->sourceDataChanged(from, to);
    Q_EMIT q->dataChanged(from, to);
}

ChannelSource::News &RowLedger::newsOf(ChannelSource &source)
{
    if (!m_withNews.contains(&source))
        m_withNews.append(&source);
    return source.news;
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
        source->ownColumns = source->items ? source->items->columnCount() : 0;
        source->dropped = 0;
        source->news = ChannelSource::News();
    }
    m_withNews.clear();
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
