// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/proxies/RunningAverages_p.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Corvale_Qt {

namespace {

// Rows taken at once.
constexpr int chunk = 256;
// A step waits for the one before it; steps of other channels fill the time. More of them than this would not find
// room for their addresses in registers.
constexpr int lanes = 4;
// A page ahead: the processor looks ahead by itself, but not into the next page.
constexpr int prefetched = 512;

/*! Calls use(memory, offset, rows) for the one or two straight pieces that hold \a count elements from \a first on. */
template<typename Use>
void forPieces(SampleRing &ring, int first, int count, Use use)
{
    const auto one = ring.array_one();
    const auto two = ring.array_two();
    const int inOne = std::clamp(int(one.second) - first, 0, count);
    if (inOne > 0)
        use(one.first + first, 0, inOne);
    if (inOne < count)
        use(two.first + (first + inOne - int(one.second)), inOne, count - inOne);
}

//! Where \a count elements from \a first on lie, or null where they are not in one piece.
double *straightPiece(SampleRing &ring, int first, int count)
{
    const auto one = ring.array_one();
    const int inOne = int(one.second);
    if (first + count <= inOne)
        return one.first + first;
    return first >= inOne ? ring.array_two().first + (first - inOne) : nullptr;
}

//! A stretch of one channel: numbers in, averages out.
struct Lane
{
    const double *in;
    double *out;
    double factor; //!< with zero, as in ColumnSpans
    double zero;
};

//! Copies \a count averages from row \a row on to where they are kept.
void store(SampleRing &ring, int row, int count, const double *averages)
{
    forPieces(ring, row - 1, count, [averages](double *memory, int offset, int n) {
        std::copy_n(averages + offset, n, memory);
    });
}

//! The recurrence, for readings that are finite; one that is not stays in \a running for ever.
template<int Lanes>
void recur(const Lane (&lane)[Lanes], double (&running)[Lanes], int count, double alpha)
{
    const double keep = 1.0 - alpha;
    double kept[Lanes];
    std::copy_n(running, Lanes, kept);
    for (int i = 0; i < count; ++i) {
#pragma GCC unroll 8
        for (int k = 0; k < Lanes; ++k) {
            kept[k] = keep * kept[k] + alpha * (lane[k].factor * lane[k].in[i] - lane[k].zero);
            lane[k].out[i] = kept[k];
        }
        if (i % 8 == 0) {
            for (int k = 0; k < Lanes; ++k) {
                __builtin_prefetch(lane[k].in + i + prefetched);
                __builtin_prefetch(lane[k].out + i + prefetched, 1);
            }
        }
    }
    std::copy_n(kept, Lanes, running);
}

} // namespace

void RunningAverages::reset(int channels, int capacity)
{
    m_channels.clear();
    insertChannels(1, std::max(channels, 0), capacity);
}

void RunningAverages::clear()
{
    for (Channel &channel : m_channels)
        channel.ring.clear();
}

void RunningAverages::insertChannels(int column, int count, int capacity)
{
    std::vector<Channel> added(static_cast<size_t>(count));
    for (Channel &channel : added)
        channel.ring.set_capacity(SampleRing::capacity_type(std::max(capacity, 0)));
    m_channels.insert(m_channels.begin() + (column - 1),
                      std::make_move_iterator(added.begin()),
                      std::make_move_iterator(added.end()));
}

void RunningAverages::removeChannels(int column, int count)
{
    const auto first = m_channels.begin() + (column - 1);
    m_channels.erase(first, first + count);
}

void RunningAverages::moveChannels(int column, int count, int before)
{
    const auto first = m_channels.begin() + (column - 1);
    const auto last = first + count;
    const auto to = m_channels.begin() + (before - 1);
    if (to < first)
        std::rotate(to, first, last);
    else
        std::rotate(first, last, to);
}

bool RunningAverages::has(int row, int column) const
{
    return row >= 1 && column >= 1 && column <= channels()
        && row <= int(channel(column).ring.size());
}

bool RunningAverages::spans(int column, int firstRow, int count, ColumnSpans &spans) const
{
    const Channel &own = channel(column);
    if (!ringSpans(own.ring, firstRow - 1, count, spans))
        return false;
    spans.blocks = &own.ranges;
    spans.number = own.taken - qint64(own.ring.size()) + firstRow - 1;
    return true;
}

void RunningAverages::dropOldest(int column, qint64 rows)
{
    Channel &own = channel(column);
    const auto leaving =
        SampleRing::size_type(std::clamp<qint64>(rows, 0, qint64(own.ring.size())));
    own.dropped = own.before(int(leaving) + 1);
    own.ring.erase_begin(leaving);
}

void RunningAverages::followDrops(int column, qint64 dropped)
{
    Channel &own = channel(column);
    dropOldest(column, dropped - own.followedDrops);
    own.followedDrops = dropped;
}

void RunningAverages::truncate(int column, int rows)
{
    Channel &own = channel(column);
    rows = std::max(rows, 0);
    if (int(own.ring.size()) <= rows)
        return;
    own.newest = own.before(rows + 1);
    resize(own, rows);
}

//! The average that row \a row goes on from: the last finite one before it, or NaN.
double RunningAverages::Channel::before(int row) const
{
    // What is appended, which is the usual case, must not search through a long gap each time.
    if (row == int(ring.size()) + 1)
        return newest;
    for (int i = row - 2; i >= 0; --i) {
        if (std::isfinite(ring[SampleRing::size_type(i)]))
            return ring[SampleRing::size_type(i)];
    }
    return dropped;
}

void RunningAverages::update(const PlotColumnReader &source,
                             int firstColumn,
                             int lastColumn,
                             int from,
                             int rows)
{
    lastColumn = std::min(lastColumn, channels());
    firstColumn = std::max(firstColumn, 1);
    for (int column = firstColumn; column <= lastColumn; ++column)
        prepare(channel(column), from, rows);

    for (int column = firstColumn; column <= lastColumn;) {
        const int start = channel(column).start;
        if (m_length == 1) {
            copy(source, column, start, rows);
            ++column;
        } else if (startsTogether(column, lastColumn)) {
            average<lanes>(source, column, start, rows);
            column += lanes;
        } else {
            average<1>(source, column, start, rows);
            ++column;
        }
    }
}

//! Whether as many channels as are computed side by side start at the same row.
bool RunningAverages::startsTogether(int column, int lastColumn) const
{
    if (column + lanes - 1 > lastColumn)
        return false;
    const int start = channel(column).start;
    for (int next = column + 1; next < column + lanes; ++next) {
        if (channel(next).start != start)
            return false;
    }
    return true;
}

//! Makes room up to row \a rows, and finds where to start and what to go on from.
void RunningAverages::prepare(Channel &channel, int from, int rows)
{
    SampleRing &ring = channel.ring;
    const auto size = SampleRing::size_type(std::max(rows, 0));
    const int firstWithout = int(ring.size()) + 1;
    channel.start = std::max(std::min(from, firstWithout), 1);
    // From the first row on, averages start afresh.
    if (channel.start == 1)
        channel.newest = channel.dropped = std::numeric_limits<double>::quiet_NaN();
    channel.newest = channel.before(channel.start);
    // A source that grows past the buffer size that it named must not cost a move of all rows at each of them.
    if (size > ring.capacity())
        ring.set_capacity(std::max(size, 2 * ring.capacity()));
    resize(channel, int(size));
    if (channel.start < firstWithout)
        channel.ranges.forget();
}

void RunningAverages::resize(Channel &channel, int rows)
{
    const int added = rows - int(channel.ring.size());
    // The usual case, one reading more, is worth its own call.
    if (added == 1)
        channel.ring.push_back(0.0);
    else
        channel.ring.resize(SampleRing::size_type(rows));
    channel.taken += added;
    // The next ones get the names of those that leave.
    if (added < 0)
        channel.ranges.forget();
}

void RunningAverages::copy(const PlotColumnReader &source, int column, int from, int rows)
{
    if (from > rows)
        return;
    forPieces(channel(column).ring,
              from - 1,
              rows - from + 1,
              [&](double *memory, int offset, int count) {
                  source.read(column, from + offset, count, memory);
              });
}

//! One stretch from the source's memory into the ring's; false where either is not in one piece.
template<int Lanes>
bool RunningAverages::averageInPlace(const PlotColumnReader &source,
                                     int firstColumn,
                                     int row,
                                     int count,
                                     double (&running)[Lanes])
{
    Lane stretch[Lanes];
    for (int k = 0; k < Lanes; ++k) {
        ColumnSpans spans;
        double *const out = straightPiece(channel(firstColumn + k).ring, row - 1, count);
        if (!out || !source.spans(firstColumn + k, row, count, spans)
            || (spans.size[0] > 0 && spans.size[1] > 0))
            return false;
        stretch[k] = {spans.piece[spans.size[0] > 0 ? 0 : 1], out, spans.factor, spans.zero};
    }
    recur(stretch, running, count, 1.0 / m_length);
    return true;
}

//! The same by way of a buffer.
template<int Lanes>
void RunningAverages::averageByCopy(const PlotColumnReader &source,
                                    int firstColumn,
                                    int row,
                                    int count,
                                    double (&running)[Lanes])
{
    double x[Lanes][chunk];
    Lane stretch[Lanes];
    for (int k = 0; k < Lanes; ++k) {
        source.read(firstColumn + k, row, count, x[k]);
        stretch[k] = {x[k], x[k], 1.0, 0.0};
    }
    recur(stretch, running, count, 1.0 / m_length);
    for (int k = 0; k < Lanes; ++k)
        store(channel(firstColumn + k).ring, row, count, x[k]);
}

/*! The same for a channel whose readings are not all finite, or that has no average yet: a reading at a time. Returns
    what the next row goes on from. */
double RunningAverages::averageWithGaps(const PlotColumnReader &source,
                                        int column,
                                        int row,
                                        int count,
                                        double running)
{
    const double alpha = 1.0 / m_length;
    double x[chunk];
    source.read(column, row, count, x);
    for (int i = 0; i < count; ++i) {
        if (!std::isfinite(x[i]))
            continue;
        if (std::isfinite(running))
            x[i] = (1.0 - alpha) * running + alpha * x[i];
        running = x[i];
    }
    store(channel(column).ring, row, count, x);
    return running;
}

template<int Lanes>
void RunningAverages::averageStretch(const PlotColumnReader &source,
                                     int firstColumn,
                                     int row,
                                     int count,
                                     double (&running)[Lanes])
{
    double next[Lanes];
    std::copy_n(running, Lanes, next);
    if (!averageInPlace(source, firstColumn, row, count, next))
        averageByCopy(source, firstColumn, row, count, next);
    // Readings are not tested one by one: a gap shows at the end.
    for (int k = 0; k < Lanes; ++k) {
        if (!std::isfinite(next[k]))
            next[k] = averageWithGaps(source, firstColumn + k, row, count, running[k]);
    }
    std::copy_n(next, Lanes, running);
}

template<int Lanes>
void RunningAverages::average(const PlotColumnReader &source, int firstColumn, int from, int rows)
{
    double running[Lanes];
    for (int k = 0; k < Lanes; ++k)
        running[k] = channel(firstColumn + k).newest;
    for (int row = from; row <= rows; row += chunk)
        averageStretch(source, firstColumn, row, std::min(chunk, rows - row + 1), running);
    for (int k = 0; k < Lanes; ++k)
        channel(firstColumn + k).newest = running[k];
}

} // namespace Corvale_Qt
