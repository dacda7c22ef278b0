// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/BlockOfReadings_p.h"
#include "corvale_qt/models/HistoryPyramid_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

constexpr int fewestBlocks = 64;

static_assert(sizeof(RVXPlotHistory::Interval) == 32 && sizeof(RVXPlotHistory::Block) == 32,
              "the memory of a history is stated in blocks of 32 bytes");

} // namespace

int HistoryPyramid::blocksFor(qint64 bytes, int channels)
{
    const qint64 blocks = bytes / mostBytes(1, channels);
    return int(std::clamp<qint64>(blocks, fewestBlocks, std::numeric_limits<int>::max()));
}

qint64 HistoryPyramid::mostBytes(int blocksOfLevel, int channels)
{
    return qint64(levels) * blocksOfLevel
        * (qint64(sizeof(Interval)) + channels * qint64(sizeof(Block)));
}

HistoryPyramid::HistoryPyramid(int channels, int blocksOfLevel, double span)
    : m_channels(channels)
    , m_blocks(std::max(blocksOfLevel, fewestBlocks))
    , m_span(span)
{
    clear();
}

void HistoryPyramid::clear()
{
    for (Level &level : m_levels) {
        level = Level();
        level.blocks.resize(size_t(m_channels));
    }
    m_rows = 0;
    m_isOpen = false;
}

void HistoryPyramid::exchange(const std::vector<int> &former, int blocksOfLevel)
{
    m_channels = int(former.size());
    m_blocks = std::max(blocksOfLevel, fewestBlocks);
    for (Level &level : m_levels) {
        const size_t most = size_t(m_blocks);
        dropOldest(level, std::max(level.intervals.size(), most) - most);
        const size_t capacity = std::min(level.intervals.capacity(), most);
        level.intervals.set_capacity(capacity);
        std::vector<boost::circular_buffer<Block>> exchanged;
        for (const int channel : former) {
            if (channel < 0)
                exchanged.emplace_back(capacity, level.intervals.size(), emptyBlock());
            else
                exchanged.push_back(level.blocks[size_t(channel)]);
            exchanged.back().set_capacity(capacity);
        }
        level.blocks = std::move(exchanged);
    }
}

void HistoryPyramid::append(const Rows &rows)
{
    for (int row = 0; row < rows.count;) {
        double time = rows.times[row];
        const bool isFirst = at(0).intervals.empty();
        if (isFirst && !std::isfinite(time)) { // nobody could tell where it belongs
            ++m_rows;
            ++row;
            continue;
        }
        if (isFirst || time < m_newest - largestStepBack)
            begin(time);
        // A row without a time, or a little before the newest one, is counted at the newest.
        time = std::isfinite(time) ? std::max(time, m_newest) : m_newest;
        const double gap = time - m_newest;
        if (gap > usualLength())
            closeBefore(gap);
        if (!m_isOpen) {
            push(0, {time, time, m_rows, 0, 0.0F});
            m_isOpen = true;
        }
        const int room = baseRows - at(0).intervals.back().rows;
        const Stretch next = stretch(rows.times + row, std::min(room, rows.count - row), time);
        extend(rows, row, next);
        row += next.count;
        if (at(0).intervals.back().rows == baseRows)
            closeBase();
    }
}

void HistoryPyramid::append(const HistoryPyramid &later)
{
    const qint64 rowsBefore = m_rows;
    m_rows += later.m_rows;
    if (later.at(0).intervals.empty()) // none of the rows has a time
        return;
    const bool goesOn = !at(0).intervals.empty() && later.m_firstRow == 0
        && later.m_first >= m_newest - largestStepBack;
    if (goesOn) {
        closeAll();
    } else {
        begin(later.m_first);
        m_firstRow = rowsBefore + later.m_firstRow;
    }
    const double newest = m_newest;
    for (int level = 0; level < levels; ++level)
        appendBlocks(level, later, rowsBefore, newest);
    m_newest = std::max(newest, later.m_newest);
    m_isOpen = later.m_isOpen;
    for (Level &level : m_levels)
        dropOld(level);
}

//! Adds the blocks of one level of a later pyramid. None of them begins before \a newest, the time of the last row before.
void HistoryPyramid::appendBlocks(int level,
                                  const HistoryPyramid &later,
                                  qint64 rowsBefore,
                                  double newest)
{
    Level &own = at(level);
    const Level &added = later.at(level);
    own.pending = added.pending;
    if (added.intervals.empty())
        return;
    // A level leaves out no row, so it forgets what is before rows that it does not have.
    if (!own.intervals.empty()) {
        const Interval &last = own.intervals.back();
        if (last.firstRow + last.rows != rowsBefore + added.intervals.front().firstRow)
            dropOldest(own, own.intervals.size());
    }
    for (size_t i = 0; i < added.intervals.size(); ++i) {
        Interval interval = added.intervals[i];
        interval.firstRow += rowsBefore;
        interval.first = std::max(interval.first, newest);
        interval.last = std::max(interval.last, newest);
        push(level, interval);
        for (size_t channel = 0; channel < own.blocks.size(); ++channel)
            own.blocks[channel].back() = added.blocks[channel][i];
    }
}

//! Begins an acquisition, of which \a time is that of the first row. What was before it is forgotten.
void HistoryPyramid::begin(double time)
{
    const qint64 rows = m_rows;
    clear();
    m_rows = rows;
    m_firstRow = rows;
    m_first = time;
    m_newest = time;
}

//! Returns how long a block of level 0 usually takes, outages included.
double HistoryPyramid::usualLength() const
{
    const qint64 steps = m_rows - m_firstRow - 1;
    return steps < 1 ? kInfinity : (m_newest - m_first) / double(steps) * baseRows;
}

//! Finds how many of at most \a most rows go into one block, the first of which counts at \a start.
HistoryPyramid::Stretch HistoryPyramid::stretch(const double *times, int most, double start) const
{
    const double usual = usualLength();
    const double stepBefore = start - m_newest;
    Stretch found{1, start, at(0).intervals.back().rows > 0 ? stepBefore : 0.0};
    for (; found.count < most; ++found.count) {
        const double step = times[found.count] - found.last;
        const bool jumps = step < -largestStepBack || (step > usual && step < kInfinity);
        if (jumps)
            break;
        if (step > 0.0 && step < kInfinity) {
            found.last = times[found.count];
            found.longestStep = std::max(found.longestStep, step);
        }
    }
    return found;
}

//! Adds rows to the block that is open.
void HistoryPyramid::extend(const Rows &rows, int first, const Stretch &stretch)
{
    Level &base = at(0);
    Interval &interval = base.intervals.back();
    interval.last = stretch.last;
    interval.rows += stretch.count;
    interval.longestStep = std::max(interval.longestStep, float(stretch.longestStep));
    if (stretch.count == 1) { // as from a device that is read row by row
        for (int channel = 0; channel < m_channels; ++channel)
            addReading(rows.readings[channel][first], base.blocks[size_t(channel)].back());
    } else {
        for (int channel = 0; channel < m_channels; ++channel)
            addReadings(rows.readings[channel] + first,
                        stretch.count,
                        base.blocks[size_t(channel)].back());
    }
    m_newest = stretch.last;
    m_rows += stretch.count;
}

void HistoryPyramid::closeBase()
{
    if (!m_isOpen)
        return;
    m_isOpen = false;
    if (++at(0).pending == growth)
        combine(1);
}

//! Closes the blocks of each level that usually take less time than passes before the next row.
void HistoryPyramid::closeBefore(double gap)
{
    closeBase();
    double usual = usualLength();
    for (int level = 1; level < levels && gap > usual; ++level) {
        if (at(level - 1).pending > 0)
            combine(level);
        usual *= growth;
    }
}

//! Closes the blocks of all levels, so that each level ends with the last row.
void HistoryPyramid::closeAll()
{
    closeBase();
    for (int level = 1; level < levels; ++level) {
        if (at(level - 1).pending > 0)
            combine(level);
    }
}

//! Makes a block of a level from those of the level below that are in none yet.
void HistoryPyramid::combine(int level)
{
    Level &lower = at(level - 1);
    if (usualLength() * std::pow(growth, level)
        > m_span) { // such a block would be older than the span
        lower.pending = 0;
        return;
    }
    const size_t first = lower.intervals.size() - size_t(lower.pending);
    Interval whole = lower.intervals[first];
    for (size_t i = first + 1; i < lower.intervals.size(); ++i) {
        const Interval &part = lower.intervals[i];
        whole.longestStep =
            std::max({whole.longestStep, part.longestStep, float(part.first - whole.last)});
        whole.last = part.last;
        whole.rows += part.rows;
    }
    push(level, whole);
    for (size_t channel = 0; channel < lower.blocks.size(); ++channel) {
        Block &block = at(level).blocks[channel].back();
        for (size_t i = first; i < lower.intervals.size(); ++i)
            addBlock(lower.blocks[channel][i], block);
    }
    lower.pending = 0;
    if (level + 1 < levels && ++at(level).pending == growth)
        combine(level + 1);
}

//! Adds a block without readings to a level.
void HistoryPyramid::push(int level, const Interval &interval)
{
    Level &own = at(level);
    if (level == 0)
        std::for_each(m_levels.begin(), m_levels.end(), [this](Level &each) {
            dropOld(each);
        });
    enlarge(own);
    own.intervals.push_back(interval);
    for (auto &blocks : own.blocks)
        blocks.push_back(emptyBlock());
    ++own.taken;
}

//! Removes what is older than the span.
void HistoryPyramid::dropOld(Level &level) const
{
    size_t old = 0;
    while (level.intervals.size() - old > size_t(level.pending)
           && level.intervals[old].last < m_newest - m_span)
        ++old;
    dropOldest(level, old);
}

void HistoryPyramid::dropOldest(Level &level, size_t blocks)
{
    if (blocks == 0)
        return;
    level.intervals.erase_begin(blocks);
    for (auto &each : level.blocks)
        each.erase_begin(blocks);
}

//! Makes room in a full level by doubling it. One that has all of its blocks loses the oldest.
void HistoryPyramid::enlarge(Level &level) const
{
    const size_t capacity = level.intervals.capacity();
    if (!level.intervals.full() || capacity >= size_t(m_blocks))
        return;
    const size_t wanted = std::min(std::max(2 * capacity, size_t(fewestBlocks)), size_t(m_blocks));
    level.intervals.set_capacity(wanted);
    for (auto &blocks : level.blocks)
        blocks.set_capacity(wanted);
}

const RVXPlotHistory::Interval &HistoryPyramid::interval(int level, qint64 block) const
{
    return at(level).intervals[size_t(block - firstBlock(level))];
}

const RVXPlotHistory::Block &HistoryPyramid::block(int level, int channel, qint64 block) const
{
    return at(level).blocks[size_t(channel)][size_t(block - firstBlock(level))];
}

qint64 HistoryPyramid::bytes() const
{
    qint64 bytes = 0;
    for (const Level &level : m_levels)
        bytes += qint64(level.intervals.capacity())
            * (qint64(sizeof(Interval)) + m_channels * qint64(sizeof(Block)));
    return bytes;
}

} // namespace Corvale_Qt
