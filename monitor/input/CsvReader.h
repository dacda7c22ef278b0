// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/LineProtocol.h"
#include "monitor/input/LineSplitter.h"

#include <QFile>

namespace Monitor {

/*! Reads a table from a file, piece by piece: recordings of the monitor, what the library's models save, and any
    CSV with a line of names. Rows without a time (lists of spots) get one each spotInterval seconds. */
class CsvReader
{
public:
    static constexpr double spotInterval = 0.02;

    //! \a sink takes what is read; it must outlive the reader.
    explicit CsvReader(StreamSink &sink);

    //! False, with errorString(), where the file cannot be read or is no regular file.
    bool open(const QString &path);
    /*! Reads on, about that many bytes. False at the end, when all has been handed over, and after an error. */
    bool read(int bytes);
    //! Back to the beginning; counts go on.
    bool rewind();

    bool hasFailed() const { return m_failed; }
    QString errorString() const;
    LineCounts counts() const;
    //! How much of the file has been read, 0 to 1.
    double progress() const;

private:
    void takeLine(std::string_view line, bool tooLong);
    void finish();

    StreamSink &m_sink;
    QFile m_file;
    QString m_error;
    bool m_failed = false;
    bool m_isRecording = false;
    qint64 m_row = -1; //!< the header counts as the row before the first
    LineSplitter m_splitter;
    std::unique_ptr<LineProtocol> m_protocol;
    LineCounts m_countsBefore;
};

} // namespace Monitor
