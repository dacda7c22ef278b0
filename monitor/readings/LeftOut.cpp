// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/LeftOut.h"

#include "monitor/core/NumberText.h"
#include "monitor/core/Text.h"
#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"
#include <corvale_qt/detector/DetectorFrame.h>

namespace Monitor {

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
    return (what == What::Cells ? Text::tr("%1 cells are not wired: %2 left out")
                                : Text::tr("%1 readings belong to no cell: %2 left out"))
        .arg(count)
        .arg(amount);
}

void LeftOutCount::take(const StreamHeader &header, const ReadingBlock &readings)
{
    if (header.detector.isEmpty() || header.detector.kind() == Corvale_Qt::DetectorKind::Channels)
        return;
    for (int row = 0; row < readings.size(); ++row) {
        const auto frame = Corvale_Qt::DetectorFrame::of(header.detector,
                                                         readings.values(row),
                                                         readings.channels());
        if (frame.leftOut > 0 && m_count++ == 0) {
            m_first = LeftOut::of(frame, header.readingUnit());
            m_firstTime = readings.time(row);
        }
    }
}

QString LeftOutCount::text() const
{
    if (m_count == 0)
        return {};
    return Text::tr(
               "readings with charge where the detector has no cell: %1; the first, at %2 s: %3")
        .arg(m_count)
        .arg(numberText(m_firstTime, 12), m_first.text());
}

} // namespace Monitor
