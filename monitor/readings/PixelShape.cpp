// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/PixelShape.h"

#include <QRegularExpression>

#include <cmath>

namespace Monitor {

PixelShape PixelShape::of(const StreamHeader &header)
{
    PixelShape grid;
    if (header.kind != StreamKind::Pixels || header.channels.isEmpty())
        return grid;
    const int cells = header.valuesPerReading();
    using Axis = Corvale_Qt::DetectorLayout::Axis;
    if (header.hasFrames())
        return {header.detector.cells(Axis::Y), header.detector.cells(Axis::X)};
    if (header.detector.kind() == Corvale_Qt::DetectorKind::Matrix
        && header.detector.cells() == cells)
        return {header.detector.cells(Axis::Y), header.detector.cells(Axis::X)};
    static const QRegularExpression name(QStringLiteral("^r(\\d+)c(\\d+)$"));
    const QRegularExpressionMatch last = name.match(header.channels.last().name);
    if (last.hasMatch()) {
        grid.rows = last.captured(1).toInt();
        grid.columns = last.captured(2).toInt();
    }
    const bool fits = qint64(grid.rows) * grid.columns == cells;
    if (!fits) {
        const int side = int(std::lround(std::sqrt(double(cells))));
        const bool square = side * side == cells;
        grid = square ? PixelShape{side, side} : PixelShape{1, cells};
    }
    return grid;
}

} // namespace Monitor
