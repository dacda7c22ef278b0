// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CsvReader.h"

#include <QFileInfo>

namespace Monitor {

CsvReader::CsvReader(StreamSink &sink)
    : m_sink(sink)
    , m_protocol(std::make_unique<LineProtocol>(m_sink))
{
}

bool CsvReader::open(const QString &path)
{
    m_file.setFileName(path);
    const QFileInfo info(path);
    m_failed = true;
    if (info.exists() && !info.isFile()) {
        m_error = QStringLiteral("it is not a regular file");
        return false;
    }
    m_failed = !m_file.open(QIODevice::ReadOnly);
    return !m_failed;
}

bool CsvReader::read(int bytes)
{
    const QByteArray piece = m_file.read(bytes);
    m_splitter.feed({piece.constData(), std::size_t(piece.size())},
                    [this](std::string_view line, bool tooLong) {
                        takeLine(line, tooLong);
                    });
    m_failed = m_file.error() != QFileDevice::NoError;
    if (!piece.isEmpty() && !m_file.atEnd())
        return true;
    finish();
    return false;
}

bool CsvReader::rewind()
{
    m_countsBefore += m_protocol->counts();
    m_protocol = std::make_unique<LineProtocol>(m_sink);
    m_splitter.clear();
    m_isRecording = false;
    m_row = -1;
    m_failed = !m_file.seek(0);
    return !m_failed;
}

QString CsvReader::errorString() const
{
    return m_error.isEmpty() ? m_file.errorString() : m_error;
}

LineCounts CsvReader::counts() const
{
    LineCounts counts = m_countsBefore;
    counts += m_protocol->counts();
    return counts;
}

double CsvReader::progress() const
{
    return m_file.size() > 0 ? double(m_file.pos()) / double(m_file.size()) : 1.0;
}

void CsvReader::takeLine(std::string_view line, bool tooLong)
{
    // A byte order mark is not part of the first name.
    if (m_protocol->counts().lines == 0 && line.substr(0, 3) == "\xef\xbb\xbf")
        line.remove_prefix(3);
    if (line.substr(0, 8) == "#corvale")
        m_isRecording = true;
    m_protocol->setArrivalTime(double(qMax<qint64>(m_row, 0)) * spotInterval);
    m_protocol->takeLine(line, tooLong);
    const bool isMetadata = line.empty() || line.front() == '#';
    if (!isMetadata && m_protocol->hasColumns())
        ++m_row;
}

void CsvReader::finish()
{
    // Every line of a recording has a line end. A last line without one was cut off while it was written, and a
    // number in it may have lost digits.
    if (m_isRecording && m_splitter.hasRest()) {
        m_sink.eventNoted(
            QStringLiteral("the recording's last line is incomplete and was left out"));
        m_splitter.clear();
    }
    m_splitter.finish([this](std::string_view line, bool tooLong) {
        takeLine(line, tooLong);
    });
    if (m_isRecording && m_protocol->dropOpenFrame())
        m_sink.eventNoted(
            QStringLiteral("the recording's last frame is incomplete and was left out"));
    m_protocol->finish();
}

} // namespace Monitor
