// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/detector/DetectorLayout.h"

#include <QSharedDataPointer>
#include <QString>

namespace Corvale_Qt {

class DetectorLinesData;

/*! Collects the lines of a stream that describe its detector, in any order: `#detector {...}`, `#layout strips 16 16`,
    `#pitch x 2 mm`, `#positions`, `#widths`, `#offset`, `#direction`, `#gain`, `#pedestal`, `#saturation`, `#dead`, `#noise`
    and `#density`. docs/line-protocol.md describes them.

    Copies share their data. */
class CORVALE_QT_EXPORT DetectorLines
{
public:
    //! What a line turned out to be.
    enum class Line {
        Other, //!< it does not describe a detector
        Taken,
        Wrong, //!< it begins with a word of ours, but makes no sense; nothing has changed
    };

    //! Starts without any line.
    DetectorLines();
    //! Shares the data of \a other.
    DetectorLines(const DetectorLines &other);
    //! Shares the data of \a other.
    DetectorLines &operator=(const DetectorLines &other);
    ~DetectorLines();

    //! Takes a line without its line end.
    Line take(const QString &line);
    //! Returns what was wrong with the last line, if it was.
    const DetectorFault &fault() const;
    //! Returns whether no line has been taken.
    bool isEmpty() const;
    /*! Returns the layout of a stream. \a stream says what is known without the lines: the kind, the number of readings, and
        for a matrix its rows and columns. Strips are shared evenly between x and y if no line says otherwise. The layout is
        empty if no line was taken, or if the lines contradict each other or the stream; \a fault then says where. */
    DetectorLayout layout(const DetectorDescription &stream, DetectorFault *fault = nullptr) const;

private:
    QSharedDataPointer<DetectorLinesData> d;
};

} // namespace Corvale_Qt
