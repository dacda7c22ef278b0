// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LineCounts.h"
#include "monitor/input/Metadata.h"
#include "monitor/input/RowReader.h"
#include "monitor/input/StreamSink.h"
#include "monitor/input/TimeOrder.h"

#include <memory>

namespace Monitor {

/*! Reads the lines of an instrument or of a table, one after the other, and tells the sink what they say.

    Lines of data are "t,v1,v2,..." or white space instead of commas; "#" lines describe them; a line of names
    before the first line of data is the header of a table. Nothing is fatal: a line that makes no sense is
    counted, reported and dropped. docs/line-protocol.md has the whole of it.

    Readings whose times cannot be believed yet are held back for a few lines (see TimeOrder): a program that joins a
    line which is already talking sees the end of a line first, and one wrong time must not end a stream. */
class LineProtocol
{
public:
    explicit LineProtocol(StreamSink &sink);
    ~LineProtocol();

    /*! The line was cut and made again (or is the first). What was said of the channels still holds; times may
        start over. */
    void beginStream();
    //! The time of lines that bring none of their own, for all that follow.
    void setArrivalTime(double seconds) { m_arrivalTime = seconds; }
    //! A line without its end; \a tooLong where it is only the beginning of one.
    void takeLine(std::string_view line, bool tooLong);
    //! The stream is over: hands on what was held back.
    void finish();

    //! Whether the columns are known, from a header line or from a line of data.
    bool hasColumns() const { return m_rows != nullptr; }
    const LineCounts &counts() const { return m_counts; }

private:
    void beginAcquisition();
    void takeMetadata(std::string_view line);
    void takeFields(std::string_view line);
    bool takeHeader();
    bool adoptShape();
    void shapeMismatch(std::string_view line);
    void forgetShape();
    void takeReading(double time, const double *values);
    void follow(const TimeOrder::Verdict &verdict);
    void deliver(double time, const double *values);
    RefusedLine currentLine(Refusal refusal) const;
    void refuse(const RefusedLine &line);

    StreamSink &m_sink;
    LineCounts m_counts;
    double m_arrivalTime = 0.0;
    std::string_view m_line;
    RowReader::Fields m_fields;

    Metadata m_metadata;
    std::unique_ptr<RowReader> m_rows;
    const RowReader::RowHandler m_rowHandler;
    bool m_hasNamedColumns = false;
    RefusedLine m_headerLine;
    bool m_shapeProven = false;
    std::size_t m_otherCount = 0;
    int m_otherCountRun = 0;

    //! The next line may be one of names, since the stream or its shape began anew.
    bool m_mayBeHeader = true;
    bool m_headerTold = false;
    TimeOrder m_order;
};

} // namespace Monitor
