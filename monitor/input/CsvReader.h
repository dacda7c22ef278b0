// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/LineProtocol.h"
#include "monitor/input/LineSplitter.h"

#include <QFile>

namespace Monitor {

/*! Reads a table from a file, piece by piece: a recording of the monitor, a file that a model of the library saved, or
    any CSV file with a header line. Rows without a time (lists of spots) are spotInterval seconds apart. */
class CsvReader
{
public:
    //! Seconds between two rows of a table without times.
    static constexpr double spotInterval = 0.02;

    //! \a sink receives what is read; it must outlive the reader.
    explicit CsvReader(StreamSink &sink);

    //! Returns false, with errorString(), if the file cannot be read or is not a regular file.
    bool open(const QString &path);
    /*! Reads about that many further bytes. Returns false at the end of the file, when everything has been handed
        over, and after an error. */
    bool read(int bytes);
    //! Goes back to the beginning of the file; the counts go on. Returns false, with errorString(), on failure.
    bool rewind();

    //! Returns whether open(), read() or rewind() failed last; errorString() gives the reason.
    bool hasFailed() const { return m_failed; }
    QString errorString() const;
    //! Returns the counts of all rounds through the file.
    LineCounts counts() const;
    //! Returns how much of the file has been read, from 0 to 1.
    double progress() const;

private:
    void takeLine(std::string_view line, bool tooLong);
    void finish();

    StreamSink &m_sink;
    QFile m_file;
    QString m_error;
    bool m_failed = false;
    bool m_isRecording = false;
    qint64 m_row = -1; //!< row of the table, from 0; -1 until the header has been read
    LineSplitter m_splitter;
    std::unique_ptr<LineProtocol> m_protocol;
    LineCounts m_countsBefore;
};

} // namespace Monitor
