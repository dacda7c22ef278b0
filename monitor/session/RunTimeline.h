// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"

#include <optional>

namespace Monitor {

/*! Lays the parts of a run on one line of time. When an instrument starts over, its clock begins again; on the line, its
    readings then go on as much later as they arrive, or as the stated moments of t = 0 are apart. */
class RunTimeline
{
public:
    //! Begins a run: its times are shown as they are.
    void begin(const StreamHeader &header);
    //! Replaces the header of the run, whose times go on.
    void setHeader(const StreamHeader &header) { m_header = header; }
    //! Returns whether a stream with this header can go on in the run: it has the same channels and limits.
    bool goesOnWith(const StreamHeader &header) const;
    //! Begins another part of the run with the next readings.
    void beginPart(const StreamHeader &header);
    /*! Returns a line for the log, once, if these readings, which arrive at \a now seconds, are the first of another
        part. */
    std::optional<QString> takeBegunPart(const ReadingBlock &readings, double now);
    /*! Returns readings with their times on the line, valid until the next call. Where curves are drawn, a missing reading
        separates the parts. */
    const ReadingBlock &place(const ReadingBlock &readings, double now);

private:
    double offsetFor(double firstTime, double now) const;

    StreamHeader m_header; //!< of the first part
    QDateTime m_partStart;
    bool m_isPartDue = false;
    bool m_any = false;
    int m_parts = 1;
    double m_offset = 0.0;
    double m_lastTime = 0.0; //!< on the line
    double m_lastArrival = 0.0;
    std::optional<double> m_separatedAt;
    ReadingBlock m_placed;
};

} // namespace Monitor
