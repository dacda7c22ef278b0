// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LineCounts.h"
#include "monitor/input/FrameRowReader.h"
#include "monitor/input/Metadata.h"
#include "monitor/input/RowReader.h"
#include "monitor/input/StreamSink.h"
#include "monitor/input/TimeOrder.h"

#include <memory>

namespace Monitor {

class LineNumbers;

/*! Reads the lines of an instrument or of a table one after the other and reports their contents to a sink.

    A line of data is "t,v1,v2,...", or the same with white space instead of commas. A frame is "#frame t rows columns" and a
    line of numbers for each row. Other lines that begin with "#" describe
    the data. A line of names before the first line of data is the header of a table. Nothing is fatal: a line that
    makes no sense is counted, reported and dropped. docs/line-protocol.md describes the whole protocol.

    Readings with doubtful times are held back for a few lines (see TimeOrder): a client that connects mid-stream sees
    a partial first line, and one wrong time must not end a stream. */
class LineProtocol
{
public:
    //! \a sink must outlive the protocol.
    explicit LineProtocol(StreamSink &sink);
    ~LineProtocol();

    //! Call this when a connection was made or made again. Earlier metadata still holds; times may start over.
    void beginStream();
    //! Sets the time in seconds of all following lines that have no time.
    void setArrivalTime(double seconds) { m_arrivalTime = seconds; }
    //! Returns whether the last reading was a line of numbers, one of them its time; any other may have got that of its arrival.
    bool statesTimes() const { return m_statesTimes; }
    //! Sets whether those times are only the numbers of the lines: readings without a time of their own have none then.
    void setArrivalCounted(bool on) { m_isArrivalCounted = on; }
    /*! Sets where the numbers of lines may have been read ahead, null for nowhere. They must be those of the lines that takeLine() gets from
        now on, and must outlive the protocol or the next call. */
    void setNumbersAhead(LineNumbers *numbers) { m_ahead = numbers; }
    //! Returns how many numbers a line has that is worth reading ahead; 0 if that is not known.
    int numbersOfPlainLine() const { return m_rows ? m_rows->numbersOfPlainLine() : 0; }
    //! Takes a line without its line end; \a tooLong if it is only the beginning of a longer line.
    void takeLine(std::string_view line, bool tooLong);
    //! Ends the stream: hands on the readings that were held back.
    void finish();

    //! Returns whether the columns are known, from a header line or from a line of data.
    bool hasColumns() const { return m_rows != nullptr; }
    //! Returns whether rows of a frame are still to come.
    bool isInFrame() const { return m_frames && m_frames->isOpen(); }
    /*! Forgets a frame whose last rows have not come. Returns whether there was one. */
    bool dropOpenFrame();
    //! Returns whether the line that was taken last is the header of a table.
    bool isAtHeader() const { return m_headerLine.number == m_counts.lines; }
    //! Returns the counts since construction.
    const LineCounts &counts() const { return m_counts; }
    //! Sets the counts from which counting goes on, in the middle of a file.
    void setCounts(const LineCounts &counts) { m_counts = counts; }

private:
    void takeLine(bool tooLong);
    void beginAcquisition();
    void takeMetadata(std::string_view line);
    void beginFrame(std::string_view text);
    void takeFrameRow();
    void refuseOpenFrame();
    void takeFields(std::string_view line);
    bool takeNumbersAhead();
    bool takePlainRow(std::string_view line);
    bool expectsPlainRow() const;
    void notePlainRow();
    bool takeHeader();
    bool mayNameTheOnlyColumn(const RowReader &rows) const;
    bool adoptShape();
    bool adoptFrames(int values);
    void shapeMismatch(std::string_view line);
    void forgetGuessedShape();
    void forgetShape();
    void takeReading(double time, const double *values);
    void follow(const TimeOrder::Verdict &verdict);
    void deliver(double time, const double *values);
    RefusedLine currentLine(Refusal refusal) const;
    RefusedLine tooManyValues() const;
    void refuse(const RefusedLine &line);

    StreamSink &m_sink;
    LineCounts m_counts;
    double m_arrivalTime = 0.0;
    bool m_isArrivalCounted = false;
    bool m_statesTimes = false;
    LineNumbers *m_ahead = nullptr;
    std::string_view m_line; //!< the line that is being taken; empty between lines
    RowReader::Fields m_fields;

    Metadata m_metadata;
    std::unique_ptr<RowReader> m_rows;
    const RowReader::RowHandler m_rowHandler;
    bool m_hasNamedColumns = false;
    bool m_hasOneName = false; //!< the line of names was a single word
    //! The reader of frames of several lines, if m_rows is one.
    FrameRowReader *m_frames = nullptr;
    //! Whether the stream has frames of several lines, so that other lines of numbers belong to none.
    bool m_hasFrames = false;
    RefusedLine m_frameLine; //!< what to report if rows of the present frame are missing
    RefusedLine m_headerLine;
    bool m_shapeProven = false;
    std::size_t m_otherCount = 0;
    int m_otherCountRun = 0;

    //! Whether the next line may be a header, because the stream or its shape has just begun.
    bool m_mayBeHeader = true;
    bool m_headerTold = false;
    TimeOrder m_order;
};

} // namespace Monitor
