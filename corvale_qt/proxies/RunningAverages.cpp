// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/proxies/RunningAverages_p.h"

#include <algorithm>

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

template<int Lanes>
void averageStretch(const Lane (&lane)[Lanes], double (&running)[Lanes], int count, double alpha)
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
    m_rings.clear();
    m_rings.resize(std::max(channels, 0));
    m_starts.resize(m_rings.size());
    m_ranges.assign(size_t(m_rings.size()), BlockRanges());
    m_taken.assign(size_t(m_rings.size()), 0);
    for (SampleRing &ring : m_rings)
        ring.set_capacity(SampleRing::capacity_type(std::max(capacity, 0)));
}

void RunningAverages::clear()
{
    for (SampleRing &ring : m_rings)
        ring.clear();
}

bool RunningAverages::has(int row, int column) const
{
    return row >= 1 && column >= 1 && column <= channels()
        && row <= int(m_rings[column - 1].size());
}

bool RunningAverages::spans(int column, int firstRow, int count, ColumnSpans &spans) const
{
    const SampleRing &ring = m_rings[column - 1];
    if (!ringSpans(ring, firstRow - 1, count, spans))
        return false;
    spans.blocks = &m_ranges[size_t(column - 1)];
    spans.number = m_taken[size_t(column - 1)] - qint64(ring.size()) + firstRow - 1;
    return true;
}

void RunningAverages::dropOldest(int column, qint64 rows)
{
    SampleRing &ring = m_rings[column - 1];
    ring.erase_begin(SampleRing::size_type(std::clamp<qint64>(rows, 0, qint64(ring.size()))));
}

void RunningAverages::truncate(int column, int rows)
{
    SampleRing &ring = m_rings[column - 1];
    if (int(ring.size()) > rows)
        resize(column, std::max(rows, 0));
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
        m_starts[column - 1] = prepare(column, from, rows);

    for (int column = firstColumn; column <= lastColumn;) {
        const int start = m_starts[column - 1];
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
    const auto first = m_starts.begin() + (column - 1);
    return std::count(first, first + lanes, *first) == lanes;
}

//! Makes room up to row \a rows; the row from which on averages are to be computed.
int RunningAverages::prepare(int column, int from, int rows)
{
    SampleRing &ring = m_rings[column - 1];
    const auto size = SampleRing::size_type(std::max(rows, 0));
    const int firstWithout = int(ring.size()) + 1;
    // A source that grows past the buffer size that it named must not cost a move of all rows at each of them.
    if (size > ring.capacity())
        ring.set_capacity(std::max(size, 2 * ring.capacity()));
    resize(column, int(size));
    const int start = std::max(std::min(from, firstWithout), 1);
    if (start < firstWithout)
        m_ranges[size_t(column - 1)].forget();
    return start;
}

void RunningAverages::resize(int column, int rows)
{
    SampleRing &ring = m_rings[column - 1];
    const int added = rows - int(ring.size());
    // The usual case, one reading more, is worth its own call.
    if (added == 1)
        ring.push_back(0.0);
    else
        ring.resize(SampleRing::size_type(rows));
    m_taken[size_t(column - 1)] += added;
    // The next ones get the names of those that leave.
    if (added < 0)
        m_ranges[size_t(column - 1)].forget();
}

void RunningAverages::copy(const PlotColumnReader &source, int column, int from, int rows)
{
    if (from > rows)
        return;
    forPieces(m_rings[column - 1],
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
        double *const out = straightPiece(m_rings[firstColumn + k - 1], row - 1, count);
        if (!out || !source.spans(firstColumn + k, row, count, spans)
            || (spans.size[0] > 0 && spans.size[1] > 0))
            return false;
        stretch[k] = {spans.piece[spans.size[0] > 0 ? 0 : 1], out, spans.factor, spans.zero};
    }
    averageStretch(stretch, running, count, 1.0 / m_length);
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
    averageStretch(stretch, running, count, 1.0 / m_length);
    for (int k = 0; k < Lanes; ++k)
        forPieces(m_rings[firstColumn + k - 1],
                  row - 1,
                  count,
                  [&](double *memory, int offset, int n) {
                      std::copy_n(x[k] + offset, n, memory);
                  });
}

template<int Lanes>
void RunningAverages::average(const PlotColumnReader &source, int firstColumn, int from, int rows)
{
    if (from > rows)
        return;
    double running[Lanes];
    for (int k = 0; k < Lanes; ++k) {
        if (from > 1) {
            running[k] = value(from - 1, firstColumn + k);
            continue;
        }
        source.read(firstColumn + k, 1, 1, &running[k]);
        m_rings[firstColumn + k - 1][0] = running[k];
    }
    for (int row = std::max(from, 2); row <= rows; row += chunk) {
        const int count = std::min(chunk, rows - row + 1);
        if (!averageInPlace(source, firstColumn, row, count, running))
            averageByCopy(source, firstColumn, row, count, running);
    }
}

} // namespace Corvale_Qt
