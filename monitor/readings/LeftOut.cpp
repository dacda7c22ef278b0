// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/LeftOut.h"

#include "monitor/core/NumberText.h"
#include "monitor/core/Text.h"
#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"
#include <corvale_qt/detector/DetectorFrame.h>

#include <cmath>

namespace Monitor {

namespace {

//! Returns whether nothing can be left out, so that the readings need not be put on the cells.
bool hasCellForAll(const Corvale_Qt::DetectorLayout &layout)
{
    return layout.unwiredCells() == 0 && layout.readings() == layout.cells();
}

} // namespace

LeftOut LeftOut::of(const Corvale_Qt::DetectorFrame &frame, const QString &unit)
{
    LeftOut leftOut{What::Readings, frame.leftOut, frame.leftOutSum, unit};
    // A stream with a reading for each cell of a matrix, of which some are not wired.
    const Corvale_Qt::DetectorLayout &layout = frame.layout;
    if (leftOut.count > 0 && layout.unwiredCells() > 0 && layout.readings() == layout.cells()) {
        leftOut.what = What::Cells;
        leftOut.count = layout.unwiredCells();
    }
    return leftOut;
}

QString LeftOut::text() const
{
    if (count == 0)
        return {};
    const QString amount =
        numberText(sum, 6) + (unit.isEmpty() ? QString() : QLatin1Char(' ') + unit);
    const QString things = what == What::Cells
        ? Text::counted("%n cell(s) is/are not wired", nullptr, count)
        : Text::counted("%n reading(s) belong(s) to no cell", nullptr, count);
    return Text::tr("%1: %2 left out").arg(things, amount);
}

void LeftOutCount::take(const StreamHeader &header, const ReadingBlock &readings)
{
    const Corvale_Qt::DetectorLayout &layout = header.detector;
    if (layout.isEmpty() || layout.kind() == Corvale_Qt::DetectorKind::Channels
        || hasCellForAll(layout))
        return;
    for (int row = 0; row < readings.size(); ++row) {
        const auto frame =
            Corvale_Qt::DetectorFrame::of(layout, readings.values(row), readings.channels());
        if (frame.leftOut == 0)
            continue;
        if (m_count++ == 0 || std::abs(frame.leftOutSum) > std::abs(m_worst.sum)) {
            m_worst = LeftOut::of(frame, header.readingUnit());
            m_worstTime = readings.time(row);
        }
    }
}

QString LeftOutCount::text() const
{
    if (m_count == 0)
        return {};
    return Text::tr(
               "readings with charge where the detector has no cell: %1; the worst, at %2 s: %3")
        .arg(QString::number(m_count), numberText(m_worstTime, 12), m_worst.text());
}

} // namespace Monitor
