// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/proxies/RunningAverages_p.h"

#include <algorithm>

namespace Corvale_Qt {

namespace {

// Rows read at once. With eight channels side by side the chunks fill half of a usual first-level cache.
constexpr int chunk = 256;
// A step waits for the one before it; steps of other channels fill the time.
constexpr int lanes = 8;

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

} // namespace

void RunningAverages::reset(int channels, int capacity)
{
    m_rings.clear();
    m_rings.resize(std::max(channels, 0));
    m_starts.resize(m_rings.size());
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

void RunningAverages::dropOldest(int column, qint64 rows)
{
    SampleRing &ring = m_rings[column - 1];
    ring.erase_begin(SampleRing::size_type(std::clamp<qint64>(rows, 0, qint64(ring.size()))));
}

void RunningAverages::truncate(int column, int rows)
{
    SampleRing &ring = m_rings[column - 1];
    if (int(ring.size()) > rows)
        ring.resize(SampleRing::size_type(std::max(rows, 0)));
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
    ring.resize(size);
    return std::max(std::min(from, firstWithout), 1);
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

template<int Lanes>
void RunningAverages::average(const PlotColumnReader &source, int firstColumn, int from, int rows)
{
    const double alpha = 1.0 / m_length;
    const double keep = 1.0 - alpha;
    double running[Lanes] = {};
    double x[Lanes][chunk];

    for (int row = from; row <= rows; row += chunk) {
        const int count = std::min(chunk, rows - row + 1);
        for (int lane = 0; lane < Lanes; ++lane) {
            source.read(firstColumn + lane, row, count, x[lane]);
            if (row == from)
                running[lane] = row == 1 ? x[lane][0] : value(row - 1, firstColumn + lane);
        }
        for (int i = row == 1 ? 1 : 0; i < count; ++i) {
            for (int lane = 0; lane < Lanes; ++lane) {
                running[lane] = keep * running[lane] + alpha * x[lane][i];
                x[lane][i] = running[lane];
            }
        }
        for (int lane = 0; lane < Lanes; ++lane)
            forPieces(m_rings[firstColumn + lane - 1],
                      row - 1,
                      count,
                      [&](double *memory, int offset, int n) {
                          std::copy_n(x[lane] + offset, n, memory);
                      });
    }
}

} // namespace Corvale_Qt
