// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/NexusSegments.h"

#include "monitor/core/EnglishTexts.h"
#include "monitor/core/RegularFile.h"
#include "monitor/core/Text.h"
#include "monitor/input/CsvReader.h"
#include "monitor/nexus/NexusFiles.h"
#include "monitor/nexus/NexusReader.h"
#include "monitor/nexus/NexusWriter.h"
#include "monitor/recording/RecordingWriter.h"
#include "monitor/recording/ZstdSegments.h"

#include <QCryptographicHash>

namespace Monitor {

namespace {

using GoesOn = SegmentConversion::GoesOn;

constexpr int segmentPiece = 256 * 1024;

//! Hands what is read of a recording to a writer.
class WriterSink : public StreamSink
{
public:
    explicit WriterSink(NexusWriter &writer)
        : m_writer(writer)
    {
    }
    void streamStarted(const StreamHeader &header) override { m_writer.startStream(header); }
    void reading(double time, const double *values) override { m_writer.addReading(time, values); }
    void eventNoted(const QString &text) override { m_writer.addEvent(text); }
    void lineRefused(const RefusedLine &line) override
    {
        const EnglishTexts english; // of what the log says
        if (refused.isEmpty())
            refused = line.phrase();
    }

    QString refused; //!< the first line that cannot be read

private:
    NexusWriter &m_writer;
};

//! Sums up what is read of a file: every bit of it, in its order.
class DigestSink : public StreamSink
{
public:
    void streamStarted(const StreamHeader &header) override
    {
        m_values = header.valuesPerReading();
        add('s', recordingHeader(header, {}));
    }
    void reading(double time, const double *values) override
    {
        add('r', bytesOf(&time, 1));
        m_hash.addData(bytesOf(values, m_values));
    }
    void eventNoted(const QString &text) override { add('e', text.toUtf8() + '\0'); }
    void lineRefused(const RefusedLine &) override { add('x', {}); }

    QByteArray result() const { return m_hash.result(); }

private:
    static QByteArray bytesOf(const double *numbers, int count)
    {
        return QByteArray::fromRawData(reinterpret_cast<const char *>(numbers),
                                       count * int(sizeof(double)));
    }
    void add(char kind, const QByteArray &bytes)
    {
        m_hash.addData(&kind, 1);
        m_hash.addData(bytes);
    }

    QCryptographicHash m_hash{QCryptographicHash::Sha1};
    int m_values = 0;
};

//! Reads a file to its end. Returns false if that is not possible, or if it is not to go on.
bool readAll(TableReader *reader, const QString &path, const GoesOn &goesOn)
{
    if (!reader->open(path))
        return false;
    while (reader->read(segmentPiece))
        if (!goesOn(reader->progress()))
            return false;
    return !reader->hasFailed();
}

//! Returns the source that a recording names in its first lines; empty if it names none.
QString sourceNamedIn(const QString &path)
{
    constexpr int enough = 65536;
    const QByteArray sign = "# source: ";
    QFile file(path);
    const QByteArray text = openRegular(file) ? file.read(enough) : QByteArray();
    for (const QByteArray &line : text.split('\n'))
        if (line.startsWith(sign))
            return QString::fromUtf8(line.mid(sign.size())).trimmed();
    return {};
}

//! Returns whether a recording has a reading. One without would be an HDF5 file that does not even name its channels.
bool hasReadings(const QString &path)
{
    class FirstReading : public StreamSink
    {
    public:
        void streamStarted(const StreamHeader &) override { }
        void reading(double, const double *) override { isFound = true; }
        void eventNoted(const QString &) override { }
        void lineRefused(const RefusedLine &) override
        {
            isFound = true;
        } // which the writer tells of

        bool isFound = false;
    };
    FirstReading sink;
    CsvReader reader(sink);
    bool more = reader.open(path);
    while (more && !sink.isFound)
        more = reader.read(segmentPiece);
    return sink.isFound || reader.hasFailed();
}

bool writeSegment(const QString &text, const QString &draft, const GoesOn &goesOn, QString *why)
{
    NexusWriter writer;
    WriterSink sink(writer);
    CsvReader reader(sink);
    bool isWritten = writer.open(draft, sourceNamedIn(text));
    isWritten = isWritten && readAll(&reader, text, [&](double progress) {
                    return goesOn(progress) && !writer.hasFailed() && sink.refused.isEmpty();
                });
    isWritten = writer.finish() && isWritten;
    if (writer.hasFailed())
        *why = writer.errorString();
    else if (reader.hasFailed())
        *why = reader.errorString();
    else if (!sink.refused.isEmpty())
        *why =
            Text::tr("it has a line that cannot be read and would be lost: %1").arg(sink.refused);
    return isWritten && sink.refused.isEmpty();
}

bool compareSegment(const QString &text, const QString &draft, const GoesOn &goesOn, QString *why)
{
    constexpr double half = 0.5;
    DigestSink ofText, ofDraft;
    CsvReader textReader(ofText);
    NexusReader draftReader(ofDraft);
    const bool areRead = readAll(&textReader,
                                 text,
                                 [&](double progress) {
                                     return goesOn(progress * half);
                                 })
        && readAll(&draftReader, draft, [&](double progress) {
                             return goesOn(half + progress * half);
                         });
    const bool isSame = areRead && ofText.result() == ofDraft.result();
    if (!isSame)
        *why = Text::tr("what was written is not what was recorded");
    return isSame;
}

} // namespace

SegmentConversion nexusConversion()
{
    SegmentConversion conversion;
    conversion.form = SegmentForm::Hdf5;
    conversion.suits = hasReadings;
    conversion.write = writeSegment;
    conversion.compare = compareSegment;
    return conversion;
}

SegmentConversion segmentConversion(SegmentForm form, bool overwrites)
{
    SegmentConversion conversion = form == SegmentForm::Hdf5 ? nexusConversion() : zstdConversion();
    conversion.replaces = overwrites;
    return conversion;
}

} // namespace Monitor
