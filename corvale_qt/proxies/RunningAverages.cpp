// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/proxies/RunningAverages_p.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Corvale_Qt {

namespace {

// How many rows are computed at a time.
constexpr int chunk = 256;
// How many channels are computed side by side. Each step waits for the one before it, and steps of other channels fill
// that time. The addresses of more channels do not fit into the registers.
constexpr int lanes = 4;
// Prefetch a page ahead: the hardware prefetcher does not cross into the next page.
constexpr int prefetched = 512;

//! Calls use(memory, offset, count) for each of the one or two arrays that hold \a count elements from \a first on.
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

//! Returns the address of \a count elements from \a first on, or null if the ring wraps within them.
double *straightPiece(SampleRing &ring, int first, int count)
{
    const auto one = ring.array_one();
    const int inOne = int(one.second);
    if (first + count <= inOne)
        return one.first + first;
    return first >= inOne ? ring.array_two().first + (first - inOne) : nullptr;
}

//! A stretch of rows of one channel: readings in, averages out.
struct Lane
{
    const double *in;
    double *out;
    double factor; //!< a reading is factor * in[i] - zero, as in RingSpans
    double zero;
};

//! Copies \a count averages into \a ring, from row \a row on.
void store(SampleRing &ring, int row, int count, const double *averages)
{
    forPieces(ring, row - 1, count, [averages](double *memory, int offset, int n) {
        std::copy_n(averages + offset, n, memory);
    });
}

//! Computes the recurrence for finite readings. A reading that is not finite makes \a running NaN or infinite for good.
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

void RunningAverages::setLength(int length)
{
    m_length = length;
    if (length == 1)
        clear();
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

bool RunningAverages::spans(int column, int firstRow, int count, RingSpans &spans) const
{
    const Channel &own = channel(column);
    if (!ringSpans(own.ring, firstRow - 1, count, spans))
        return false;
    own.ranges.serve(spans, own.taken - qint64(own.ring.size()) + firstRow - 1);
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

//! Returns the average from which row \a row continues: the last finite one before it, or NaN.
double RunningAverages::Channel::before(int row) const
{
    // Appending is the usual case and must not search through a long gap each time.
    if (row == int(ring.size()) + 1)
        return newest;
    for (int i = row - 2; i >= 0; --i) {
        if (std::isfinite(ring[SampleRing::size_type(i)]))
            return ring[SampleRing::size_type(i)];
    }
    return dropped;
}

void RunningAverages::update(const PlotDataReader &source,
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
        if (startsTogether(column, lastColumn)) {
            average<lanes>(source, column, start, rows);
            column += lanes;
        } else {
            average<1>(source, column, start, rows);
            ++column;
        }
    }
}

//! Returns whether the next \c lanes channels exist and start at the same row.
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

//! Resizes the ring to \a rows rows, and finds the row to start at and the average to continue from.
void RunningAverages::prepare(Channel &channel, int from, int rows)
{
    SampleRing &ring = channel.ring;
    const auto size = SampleRing::size_type(std::max(rows, 0));
    const int firstWithout = int(ring.size()) + 1;
    channel.start = std::max(std::min(from, firstWithout), 1);
    // An average that is computed from the first row on starts afresh.
    if (channel.start == 1)
        channel.newest = channel.dropped = std::numeric_limits<double>::quiet_NaN();
    channel.newest = channel.before(channel.start);
    // A source may exceed its buffer size. Capacity grows by doubling, so that not every new row moves all others.
    if (size > ring.capacity())
        ring.set_capacity(std::max(size, 2 * ring.capacity()));
    resize(channel, int(size));
    if (channel.start < firstWithout)
        channel.ranges.forget();
}

void RunningAverages::resize(Channel &channel, int rows)
{
    const int added = rows - int(channel.ring.size());
    // One reading more is the usual case and worth a separate call.
    if (added == 1)
        channel.ring.push_back(0.0);
    else
        channel.ring.resize(SampleRing::size_type(rows));
    channel.taken += added;
    // The next averages get the numbers of those that are removed, whose ranges no longer hold.
    if (added < 0)
        channel.ranges.forget();
}

//! Computes a stretch from the source's memory into the ring. Returns false if either of them is not contiguous there.
template<int Lanes>
bool RunningAverages::averageInPlace(const PlotDataReader &source,
                                     int firstColumn,
                                     int row,
                                     int count,
                                     double (&running)[Lanes])
{
    Lane stretch[Lanes];
    for (int k = 0; k < Lanes; ++k) {
        RingSpans spans;
        double *const out = straightPiece(channel(firstColumn + k).ring, row - 1, count);
        if (!out || !source.spans(firstColumn + k, row, count, spans)
            || (spans.size[0] > 0 && spans.size[1] > 0))
            return false;
        stretch[k] = {spans.piece[spans.size[0] > 0 ? 0 : 1], out, spans.factor, spans.zero};
    }
    recur(stretch, running, count, 1.0 / m_length);
    return true;
}

//! Computes a stretch like averageInPlace(), by way of a buffer.
template<int Lanes>
void RunningAverages::averageByCopy(const PlotDataReader &source,
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

/*! Computes a stretch of one channel reading by reading: for readings that are not all finite, and for a channel that
    has no average yet. Returns the average from which the next row continues. */
double RunningAverages::averageWithGaps(const PlotDataReader &source,
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
void RunningAverages::averageStretch(const PlotDataReader &source,
                                     int firstColumn,
                                     int row,
                                     int count,
                                     double (&running)[Lanes])
{
    double next[Lanes];
    std::copy_n(running, Lanes, next);
    if (!averageInPlace(source, firstColumn, row, count, next))
        averageByCopy(source, firstColumn, row, count, next);
    // A reading that is not finite shows in the last average, so readings need no test each.
    for (int k = 0; k < Lanes; ++k) {
        if (!std::isfinite(next[k]))
            next[k] = averageWithGaps(source, firstColumn + k, row, count, running[k]);
    }
    std::copy_n(next, Lanes, running);
}

template<int Lanes>
void RunningAverages::average(const PlotDataReader &source, int firstColumn, int from, int rows)
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
