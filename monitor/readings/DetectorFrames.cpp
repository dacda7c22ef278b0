// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/DetectorFrames.h"

#include "monitor/readings/PixelShape.h"
#include "monitor/readings/UnitSymbols.h"
#include <corvale_qt/numerics/RoundPixelDetector.h>

#include <cmath>

namespace Monitor {

namespace {

constexpr int side = Corvale_Qt::RoundPixelDetector::kSide;
constexpr int strips = 32;
constexpr int firstStripOfY = 64;

} // namespace

DetectorFrames::DetectorFrames(const StreamHeader &header)
{
    const PixelShape grid = PixelShape::of(header);
    const bool pixels = grid.rows == side && grid.columns == side;
    const bool stripPair = header.kind == StreamKind::Strips && !header.hasFrames()
        && header.channels.size() == 2 * strips;
    const bool wiredAlready =
        header.kind == StreamKind::Pixels && header.valuesPerReading() == readings;
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
            // The stream counts rows from below.
            if (const int reading =
                    Corvale_Qt::RoundPixelDetector::readingAt(side - 1 - row, column);
                reading >= 0)
                m_cells[reading] = row * side + column;
    if (const auto unit = unitFromSymbol(header.readingUnit()))
        m_factor = unit->unscale(1.0);
    m_unit = header.readingUnit();
    for (int i = 0; i < header.valuesPerReading(); ++i)
        if (!m_cells.contains(i))
            m_unwired.append(i);
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

LeftOut DetectorFrames::leftOutOf(const double *values) const
{
    LeftOut leftOut{LeftOut::What::Cells, 0, 0.0, m_unit};
    for (const int cell : m_unwired) {
        if (!std::isfinite(values[cell]) || values[cell] == 0.0)
            continue;
        leftOut.count = m_unwired.size();
        leftOut.sum += values[cell];
    }
    return leftOut;
}

} // namespace Monitor
