// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CsvReader.h"
#include "monitor/input/ImportGuess.h"
#include "monitor/recording/RecordingRows.h"
#include "monitor/recording/RecordingWriter.h"
#include "tests/support/FuzzTarget.h"

#include <QTemporaryFile>

using namespace Monitor;

namespace {

/*! Returns a table with this many columns, beyond those that channels may have: strips of two planes, pixels in rows of 20, or
    columns that are neither. */
std::string wideTable(int columns, const char *name, const char *nameOfOtherHalf)
{
    constexpr int rowLength = 20;
    std::string names = "time_s", values = "0";
    for (int i = 0; i < columns; ++i) {
        const bool isOther = nameOfOtherHalf && i >= columns / 2;
        const bool isPixel = !nameOfOtherHalf && name[0] == 'r';
        const int number = isPixel ? i / rowLength : isOther ? i - columns / 2 : i;
        names += ','
            + QString::asprintf(isOther ? nameOfOtherHalf : name, number + 1, i % rowLength + 1)
                  .toStdString();
        values += "," + std::to_string(i % 10);
    }
    return names + '\n' + values + '\n';
}

} // namespace

std::vector<std::string> fuzzSeeds()
{
    return {
        "time_s,left_A,x_mm\n0,1e-9,2\n0.5,2e-9,3\n",
        "timestamp(s),channel_1,\n12.500000000,0.000123,\n",
        "hannel__timestamp(s),hannel_,annel__timestamp(s),annel_,\n1,5,1,7,\n2,6,1.5,8,\n,,3,9,\n",
        "#corvale 1\n#layout pixels\n#channels a,b\n#unit nA,\ntime_s,a_nA,b\n0,1,2\n1,,4\n",
        "time_s,, \x01,a \x01,\xc2\xa0 b \n0,1,2,3,4\n1,5,6,7,8\n",
        "time_s," + std::string(63, 'n') + "\xf0\x9f\x92\xa5,m" + std::string(63, ' ')
            + "m\n0,1,2\n",
        ("#corvale 1\n#channels a\n#t0 9999-12-31T23:00:00-05:00\n#range "
         "-inf,1e-400\n9,1\n#corvale "
         "1\n0,1e-400\n"),
        "0,1\n1e6,1\n1,1\n2,1\n3,1\n4,1\n5,1\n6,1\n7,1\n8,1\n9,1\n10,1\n11,1\n",
        "frame,time_s,r01c01,r01c02\n0,0,1,2\n1,1,2,3\n",
        "#corvale 2\n#unit nC\n#gain 2\n#frame 0 2 2\n1,2\n3,4\n#frame 1 2 2\n5,nan\n7,1e-400\n",
        "layer,x_mm,y_mm,mu,sigma_x_mm,sigma_y_mm\n1,2,3,4,5,6\n",
        "Zeit;left (nA);\"right; [uA]\"\n0,5;1,25;2\n1;2,5;3\n",
        "when,a\n2026-03-01T12:00:00.123456Z,1\n2026-03-01T12:00:01+05:00,2\n",
        "01.03.2026 12:00:00;1,5\n01.03.2026 12:00:02;2,5\n",
        "left_nA,right_nA\n1,2\n3,4\n",
        "\"0\",\"1\"\"\"\n\"1\",\"2\"\n",
        wideTable(300, "x%02d", "y%02d"),
        wideTable(400, "r%02dc%02d", nullptr),
        wideTable(300, "a%d", nullptr),
        "\xef\xbb\xbftime_s,a_nA\n0,1\n1,2\n",
        std::string("\x28\xb5\x2f\xfd\x20\x08\x41\x00\x00\x30\x2c\x31\x0a\x31\x2c\x32\x0a", 17)};
}

namespace {

//! Writes the streams and readings it receives as a recording.
class RecordingSink : public StreamSink
{
public:
    void streamStarted(const StreamHeader &header) override
    {
        m_header = header;
        channels += header.channels;
        text += recordingHeader(header, QStringLiteral("fuzz"));
    }
    void reading(double time, const double *values) override
    {
        appendRecordingReading(&text, readingShape(m_header), time, values);
    }
    void eventNoted(const QString &) override { }
    void lineRefused(const RefusedLine &) override { ++refused; }

    QByteArray text;
    QVector<Channel> channels; //!< of all streams, in their order
    int refused = 0;

private:
    StreamHeader m_header;
};

//! Reads a table of another program in the way that it was refused with; it is not refused again.
void readAsGuessed(const QString &path, const QByteArray &content, RecordingSink *sink)
{
    ImportGuess guess = ImportGuess::of(content);
    // What is in a compressed file is looked at by the reader alone.
    if (!guess.isNeeded)
        return;
    if (guess.lacksInterval)
        guess.options.interval = 1e-3;
    ImportOptions options;
    QString error;
    FUZZ_REQUIRE(ImportOptions::fromText(guess.options.text(), &options, &error));
    FUZZ_REQUIRE(options.text() == guess.options.text());
    CsvReader reader(*sink);
    reader.setImport(options);
    FUZZ_REQUIRE(reader.open(path));
    while (reader.read(100)) { }
}

//! A table that is read again from its beginning gives the same; one that is read again from an entry can be read.
void readAgain(CsvReader *reader, RecordingSink *sink)
{
    const QByteArray once = sink->text;
    FUZZ_REQUIRE(reader->progress() >= 0.0);
    ReadPoint entry;
    FUZZ_REQUIRE(reader->rewind());
    sink->text.clear();
    while (reader->read(100))
        if (reader->readPoint().isEntry)
            entry = reader->readPoint();
    FUZZ_REQUIRE(sink->text == once);
    if (entry.isEntry) {
        FUZZ_REQUIRE(reader->resume(entry));
        while (reader->read(100)) { }
    }
    FUZZ_REQUIRE(!reader->hasFailed() || !reader->errorString().isEmpty());
    sink->text = once;
}

void readInto(const QByteArray &content, RecordingSink *sink)
{
    static QTemporaryFile file;
    if (!file.isOpen())
        file.open();
    file.resize(0);
    file.seek(0);
    file.write(content);
    file.flush();
    CsvReader reader(*sink);
    reader.setPassingDamage(true);
    reader.setDamageHandler(
        [](CsvReader::Damage, const QString &text) { FUZZ_REQUIRE(!text.isEmpty()); });
    if (!reader.open(file.fileName())) {
        readAsGuessed(file.fileName(), content, sink);
        return;
    }
    while (reader.read(100)) { }
    const QVector<Channel> channels = sink->channels;
    const int refused = sink->refused;
    if (!reader.hasFailed())
        readAgain(&reader, sink);
    sink->channels = channels;
    sink->refused = refused;
}

} // namespace

//! The recording of any table reads back as the same recording, without a refused line.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    RecordingSink first, second;
    readInto(QByteArray(reinterpret_cast<const char *>(data), int(size)), &first);
    readInto(first.text, &second);
    FUZZ_REQUIRE(second.refused == 0);
    FUZZ_REQUIRE(second.channels == first.channels);
    FUZZ_REQUIRE(second.text == first.text);
    return 0;
}
