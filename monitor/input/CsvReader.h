// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/OrderedWorker.h"
#include "monitor/input/LineNumbers.h"
#include "monitor/input/LineProtocol.h"
#include "monitor/input/LineSplitter.h"
#include "monitor/input/TableImport.h"
#include "monitor/input/TableReader.h"
#include "monitor/input/ZstdFrames.h"

#include <QFile>

namespace Monitor {

/*! Reads a table from a file, piece by piece: a recording of the monitor, a file that a model of the library saved, or
    any CSV file with a header line; also if it is compressed by zstd. Rows without a time (lists of spots) are counted: the time of a
    reading is its number, from 1, unless an interval is given. */
class CsvReader : public TableReader
{
public:
    //! \a sink receives what is read; it must outlive the reader.
    explicit CsvReader(StreamSink &sink);
    ~CsvReader() override;

    //! Sets how the lines of a table of another program are to be read; call it before open().
    void setImport(const ImportOptions &options);
    //! Sets whether reading goes on behind a damaged part of a compressed file, with an event that says so.
    void setPassingDamage(bool on) { m_passesDamage = on; }
    //! How a part of a file was lost that no refused line tells of.
    enum class Damage {
        UnfinishedEnd, //!< it was still being written, as after a kill or a power cut
        Inside,
    };
    //! Sets what is called where such a part is lost, with a line for a person.
    void setDamageHandler(const std::function<void(Damage damage, const QString &text)> &handler)
    {
        m_damageHandler = handler;
    }

    //! Also returns false if the file is not a regular one, or is a table that nobody said how to read.
    bool open(const QString &path) override;
    bool read(int bytes) override;
    //! Has another thread turn the digits of plain lines into numbers, two pieces ahead; not of compressed or imported tables.
    void setReadingAhead(bool on) override { m_isReadingAhead = on; }
    bool rewind() override;
    bool resume(const ReadPoint &point) override;

    //! Returns the place up to which whole lines were read; its context ends with the newest line that describes readings.
    ReadPoint readPoint() const override;
    //! Returns the length of the text in bytes, also of a compressed one; -1 if it is unknown.
    qint64 textSize() const override;

    bool hasFailed() const override { return m_failed; }
    QString errorString() const override;
    LineCounts counts() const override;
    double progress() const override;

private:
    //! A part of the text, which may end inside a line.
    struct Piece
    {
        QByteArray text;
        bool isLast = false;
        bool hasFailed = false;
        int numbersOfLine = 0; //!< that are worth reading ahead; 0 for none
        LineNumbers numbers;
    };

    Piece nextPiece(int bytes);
    Piece pieceAtPlace(int bytes);
    void takeLine(std::string_view line, bool tooLong);
    void takeProtocolLine(std::string_view line, bool tooLong);
    void beginProtocol();
    bool isCounted(qint64 badBefore) const;
    bool isFrameOver() const;
    bool isCounting() const { return m_rowInterval == 0.0; }
    ReadPoint pointAtLine() const;
    void noteContext(std::string_view line);
    void readPiece(int bytes, QByteArray *text);
    bool passDamage();
    void noteDamage(Damage damage, const QString &text);
    void startOver(qint64 offset);
    void finish();

    StreamSink &m_sink;
    QFile m_file;
    QString m_error;
    bool m_failed = false;
    bool m_isRecording = false;
    bool m_passesDamage = false;
    std::function<void(Damage, const QString &)> m_damageHandler;
    qint64 m_row = 0; //!< rows or frames of the table that were read; readings, if they are counted
    qint64 m_offset = 0; //!< bytes of the text that were read
    ReadPoint m_frame; //!< where the present frame begins
    qint64 m_badAtFrame = 0; //!< bad lines up to there
    QByteArray m_context;
    bool m_contextTooLong = false;
    std::unique_ptr<ZstdFrames> m_frames; //!< null if the file is not compressed
    ImportOptions m_options;
    std::unique_ptr<TableImport> m_import; //!< null for what the line protocol describes
    double m_rowInterval = 0.0; //!< seconds; 0 to count rows without a time
    LineSplitter m_splitter;
    std::unique_ptr<LineProtocol> m_protocol;
    LineCounts m_countsBefore;
    bool m_isReadingAhead = false;
    Piece m_spare; //!< one that was used, for its memory
    bool m_isLastAhead = false; //!< whether the last piece waits in m_ahead
    std::unique_ptr<OrderedWorker<Piece>>
        m_ahead; //!< the pieces that were read ahead; null before the first
};

} // namespace Monitor
