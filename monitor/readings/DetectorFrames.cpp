// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/DetectorFrames.h"

#include "monitor/readings/PixelShape.h"
#include "monitor/readings/UnitSymbols.h"

#include <cmath>

namespace Monitor {

namespace {

constexpr int side = 12;
constexpr int strips = 32;
constexpr int firstStripOfY = 64;

//! The reading that each pixel is wired to, the row of the largest y first; -1 where the round matrix has none.
constexpr int wiring[side][side] = {
    {-1, -1, -1, 49, 43, 37, 27, 28, 29, -1, -1, -1},
    {-1, -1, 54, 48, 42, 36, 23, 24, 25, 26, -1, -1},
    {-1, 58, 53, 47, 41, 35, 18, 19, 20, 21, 22, -1},
    {61, 57, 52, 46, 40, 34, 12, 13, 14, 15, 16, 17},
    {60, 56, 51, 45, 39, 33, 6, 7, 8, 9, 10, 11},
    {59, 55, 50, 44, 38, 32, 0, 1, 2, 3, 4, 5},
    {69, 68, 67, 66, 65, 64, 96, 102, 108, 114, 119, 123},
    {75, 74, 73, 72, 71, 70, 97, 103, 109, 115, 120, 124},
    {81, 80, 79, 78, 77, 76, 98, 104, 110, 116, 121, 125},
    {-1, 86, 85, 84, 83, 82, 99, 105, 111, 117, 122, -1},
    {-1, -1, 90, 89, 88, 87, 100, 106, 112, 118, -1, -1},
    {-1, -1, -1, 93, 92, 91, 101, 107, 113, -1, -1, -1},
};

} // namespace

DetectorFrames::DetectorFrames(const StreamHeader &header)
{
    const PixelShape grid = PixelShape::of(header);
    const bool pixels = grid.rows == side && grid.columns == side;
    const bool stripPair =
        header.kind == StreamKind::Strips && header.channels.size() == 2 * strips;
    const bool wiredAlready =
        header.kind == StreamKind::Pixels && header.channels.size() == readings;
    if (!pixels && !stripPair && !wiredAlready)
        return;
    m_cells.fill(-1, readings);
    for (int i = 0; stripPair && i < strips; ++i) {
        m_cells[i] = i;
        m_cells[firstStripOfY + i] = strips + i;
    }
    for (int i = 0; wiredAlready && i < readings; ++i)
        m_cells[i] = i;
    for (int row = 0; pixels && row < side; ++row)
        for (int column = 0; column < side; ++column)
            if (const int reading = wiring[side - 1 - row][column]; reading >= 0)
                m_cells[reading] = row * side + column;
    if (const auto unit = unitFromSymbol(header.commonUnit()))
        m_factor = unit->unscale(1.0);
}

QVector<double> DetectorFrames::readingsOf(const double *values) const
{
    QVector<double> frame(m_cells.size());
    for (int i = 0; i < m_cells.size(); ++i) {
        const double value = m_cells[i] >= 0 ? values[m_cells[i]] : 0.0;
        frame[i] = std::isfinite(value) ? value * m_factor : 0.0;
    }
    return frame;
}

} // namespace Monitor
