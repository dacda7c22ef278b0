// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CsvReader.h"
#include "monitor/recording/RecordingRows.h"
#include "monitor/recording/RecordingWriter.h"
#include "monitor/recording/ShortestNumber.h"
#include "tests/monitor/support/FileSizeLimit.h"
#include "tests/monitor/support/ReadTable.h"
#include "tests/monitor/support/Recording.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/detector/DetectorFile.h>

#include <charconv>
#include <cstdlib>
#include <cstring>

using namespace Monitor;

//! Returns any pattern of bits that is a number, down to the smallest.
static double anyNumber(std::mt19937_64 &dice)
{
    const quint64 bits = dice();
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    return std::isnan(value) ? std::nan("") : value;
}

//! Collects the times and values of all readings in one list.
class NumberSink : public TextSink
{
public:
    void reading(double time, const double *values) override
    {
        numbers.push_back(time);
        numbers.insert(numbers.end(), values, values + header().valuesPerReading());
    }
    std::vector<double> numbers;
};

//! Records readings of any numbers and reads them back into \a read. Returns what went wrong; empty if nothing did.
static QString whatDiffersReadBack(const QString &path, const StreamHeader &header, int readings,
                                   NumberSink &read)
{
    NumberSink written;
    written.streamStarted(header);
    std::mt19937_64 dice(3);
    ReadingBlock sent(header.valuesPerReading());
    std::vector<double> values(std::size_t(header.valuesPerReading()));
    for (int i = 0; i < readings; ++i) {
        for (double &value : values)
            value = anyNumber(dice);
        sent.append(i / 3.0, values.data());
        written.reading(i / 3.0, values.data());
    }
    Recording recording(path);
    const bool isStarted = recording.recorder().start();
    recording.recorder().startStream(header);
    recording.recorder().addReadings(sent);
    if (!isStarted || !recording.recorder().finish())
        return "not recorded: " + recording.recorder().error().shown();
    CsvReader reader(read);
    if (!reader.open(path))
        return "not read: " + reader.errorString();
    while (reader.read(10000)) { }
    if (reader.counts().bad() > 0)
        return "lines were refused";
    const std::size_t size = written.numbers.size();
    const bool isSame = read.numbers.size() == size
        && std::memcmp(read.numbers.data(), written.numbers.data(), size * sizeof(double)) == 0;
    return isSame ? QString() : QString("other numbers were read");
}

static QByteArray shortest(double value)
{
    char text[longestNumber];
    return QByteArray(text, int(writeShortest(text, value) - text));
}

//! Returns the digits of a number without its sign, point, exponent and the zeros at both ends.
static QByteArray digitsOf(QByteArray text)
{
    text = text.split('e').first().replace('-', "").replace('.', "");
    while (text.startsWith('0'))
        text.remove(0, 1);
    while (text.endsWith('0'))
        text.chop(1);
    return text;
}

class tst_Recorder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theArrivalDatesAStream_data()
    {
        columns<double, int, QString>("first", "readings", "t0");
        row("one reading", 2.0, 1, "2026-03-01T12:01:38.000Z +- 0.02");
        row("three at once", 2.0, 3, "2026-03-01T12:01:36.000Z +- 2");
        row("times whose difference has no short decimals", 4.1, 3,
            "2026-03-01T12:01:33.900Z +- 2");
        row("a time since 1970, by a clock that is slow", 1772366495.0, 1,
            "1970-01-01T00:00:00.000Z +- 0");
        row("a time that is none", 1e300, 1, "none");
    }
    //! At 100 s of the clock it is 12:01:40.
    void theArrivalDatesAStream()
    {
        QFETCH(double, first);
        QFETCH(int, readings);
        Recording file(path("dated.csv"), true);
        file.options.datesArrival = true;
        file.options.source = "tcp://here";
        QVERIFY(file.begin());
        QCOMPARE(fileContents(path("dated.csv")), QByteArray());
        file.recorder().addReadings(block(first, readings));
        file.recorder().addReadings(block(first + readings, 1));
        QVERIFY(file.recorder().finish());
        TextSink sink;
        CsvReader reader(sink);
        QVERIFY(reader.open(path("dated.csv")));
        while (reader.read(1000)) { }
        QCOMPARE(reader.counts().readings, qint64(readings + 1));
        const StreamHeader header = sink.header();
        const QString t0 = header.startTime.isValid()
            ? QString("%1 +- %2")
                  .arg(header.startTime.toString(Qt::ISODateWithMs))
                  .arg(header.startUncertainty)
            : QString("none");
        QTEST(t0, "t0");
        const QByteArray text = fileContents(path("dated.csv"));
        QCOMPARE(text.count("#corvale 1"), 1);
        QVERIFY(text.contains("# source: tcp://here\n# program: corvale-monitor 2."));
    }

    void aStatedDateIsKept()
    {
        Recording file(path("stated.csv"), true);
        file.options.datesArrival = true;
        QVERIFY(file.recorder().start());
        StreamHeader header = twoChannels();
        header.startTime = QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC);
        file.recorder().startStream(header);
        file.recorder().addReadings(block(0.0, 2));
        QVERIFY(file.recorder().finish());
        const QByteArray text = fileContents(path("stated.csv"));
        QVERIFY(text.contains("#t0 2026-01-02T03:04:05.000Z\n") && !text.contains("uncertainty"));
    }

    void init() { m_dir = std::make_unique<QTemporaryDir>(); }

    void readsBackBitForBit()
    {
        NumberSink read;
        QCOMPARE(whatDiffersReadBack(path("a.csv"), twoChannels(), 5000, read), QString());
        QCOMPARE(read.text(), QString("start channels left:nA right"));
    }

    //! Frames of any numbers, whatever the detector, read back as the same frames.
    void framesReadBackBitForBit_data()
    {
        columns<QString>("detector");
        row("rows and columns", R"("kind":"matrix","x":{"cells":3},"y":{"cells":7})");
        row("one row", R"("kind":"matrix","x":{"cells":4},"y":{"cells":1})");
        row("one column", R"("kind":"matrix","x":{"cells":1},"y":{"cells":4})");
        row("lengths and a calibration",
            R"("kind":"matrix","x":{"cells":20,"pitch":2,"unit":"mm"},"y":{"cells":16},)"
            R"("channels":{"gain":1.5})");
        row("wide strips", R"("kind":"strips","x":{"cells":200},"y":{"cells":100})");
        row("a wired matrix with more readings than cells",
            R"("kind":"matrix","readings":300,"x":{"cells":2},"y":{"cells":1},"wiring":[300,0])");
    }
    void framesReadBackBitForBit()
    {
        QFETCH(QString, detector);
        StreamHeader header;
        header.setFrames(Corvale_Qt::detectorFromJson("{\"detector\":1," + detector.toUtf8() + "}"),
                         "nC");
        NumberSink read;
        QCOMPARE(whatDiffersReadBack(path("a.csv"), header, 20, read), QString());
        QVERIFY(read.header().detector == header.detector);
        QCOMPARE(read.header().frameUnit, QString("nC"));
    }

    //! Its description would be a line that no reader takes.
    void aDetectorThatIsNotDescribedIsTold()
    {
        QByteArrayList gains;
        for (int i = 0; i < 256 * 256; ++i)
            gains += QByteArray::number(1.0 + i * 1e-5 / 3.0, 'g', 17);
        const QByteArray numbers = '[' + gains.join(',') + ']';
        StreamHeader header;
        header.setFrames(
            Corvale_Qt::detectorFromJson(
                R"({"detector":1,"kind":"matrix","x":{"cells":256},"y":{"cells":256},"channels":{"gain":)"
                + numbers + R"(,"pedestal":)" + numbers + R"(,"saturation":)" + numbers + "}}"),
            {});
        Recording r(path("a.csv"));
        QVERIFY(r.recorder().start());
        QStringList notes;
        QObject::connect(&r.recorder(), &Recorder::noted, &r.clock,
                         [&](const QString &text) { notes += text; });
        r.recorder().startStream(header);
        QVERIFY(r.recorder().finish());
        QCOMPARE(notes.size(), 1);
        QVERIFY(notes[0].contains("does not describe the detector"));
        QFile file(path("a.csv"));
        QVERIFY(file.open(QIODevice::ReadOnly) && file.readAll().contains("is missing\n"));
    }

    void aFrameThatWasCutIsWholeInTheNextFile_data()
    {
        QTest::addColumn<bool>("hasTimes");
        QTest::newRow("with times") << true;
        QTest::newRow("counted") << false;
    }

    //! The disk is full in the middle of any row, and then the file is removed.
    void aFrameThatWasCutIsWholeInTheNextFile()
    {
        QFETCH(bool, hasTimes);
        StreamHeader header;
        header.hasTimes = hasTimes;
        header.setFrames(Corvale_Qt::detectorFromJson(
                             R"({"detector":1,"kind":"matrix","x":{"cells":2},"y":{"cells":3}})"),
                         {});
        ReadingBlock frames(6);
        for (int i = 0; i < 3; ++i) {
            const double values[] = {i + 1.0, 2, 3, 4, 5, 6};
            frames.append(i, values);
        }
        FileSizeLimit limit;
        for (rlim_t size = 100; size < 240; size += 3) {
            Recording r(path("a.csv"));
            QVERIFY(r.recorder().start());
            limit.set(size);
            r.recorder().startStream(header);
            r.recorder().addReadings(frames);
            r.clock.advance(1.0);
            limit.lift();
            const QString before = readTable(path("a.csv"));
            QVERIFY(QFile::remove(path("a.csv")));
            r.clock.advance(1.0);
            QVERIFY(r.recorder().finish());
            // Together the files hold every frame, and the second one no part of a frame.
            const QString after = readTable(path("a.csv"));
            QVERIFY2(!after.contains("refused"), qPrintable(after));
            for (int i = 0; i < 3; ++i) {
                const QString time =
                    hasTimes ? QString::number(i) : QString(); // a file counts from 1
                const QString frame = QString("%1: %2 2 3 4 5 6").arg(time).arg(i + 1);
                QVERIFY2((before + after).contains(frame), qPrintable(frame + after));
            }
            QVERIFY(QFile::remove(path("a.csv")));
        }
    }

    //! A kill -9 leaves what the system has been given; at most the last second is missing.
    void isOnDiskWithinASecond()
    {
        Recording r(path("a.csv"));
        QVERIFY(r.begin());
        for (int i = 0; i < 50; ++i) {
            r.recorder().addReadings(block(i, 1));
            r.clock.advance(0.1);
            TextSink sink;
            CsvReader reader(sink);
            QVERIFY(reader.open(r.options.path));
            while (reader.read(10000)) { }
            QVERIFY(i - reader.counts().readings <= 10);
            QCOMPARE(reader.counts().bad(), qint64(0));
            QCOMPARE(sink.lines.filter(QString("event")).size(), 0); // whole lines only
        }
    }

    //! The disk is full in the middle of any line, and then the file is removed.
    void aLineThatWasCutIsWholeInTheNextFile()
    {
        StreamHeader oneChannel;
        oneChannel.channels = {{"centre", "mm"}};
        ReadingBlock one(1);
        const double value = 0.25;
        one.append(7.0, &value);
        FileSizeLimit limit;
        for (rlim_t size = 3; size < 106; size += 3) {
            Recording r(path("a.csv"));
            Recorder &recorder = r.recorder();
            QVERIFY(recorder.start());
            limit.set(size);
            recorder.startStream(twoChannels());
            recorder.addReadings(block(0, 2));
            recorder.startStream(oneChannel); // on a full disk it goes on in the same file
            recorder.addReadings(one);
            for (const int more : {0, 20, 85}) { // into the other stream's header, in the end
                limit.set(size + rlim_t(more));
                r.clock.advance(1.0);
            }
            QVERIFY(recorder.error().shown().contains("File too large"));
            const QString written = readTable(path("a.csv"));
            QVERIFY(QFile::remove(path("a.csv")));
            limit.lift();
            r.clock.advance(1.0);
            QVERIFY(recorder.finish());
            QStringList lines = readTable(path("a.csv")).split(" | ");
            QVERIFY(lines.takeFirst().startsWith("event recording: "));
            const QString rest = lines.join(" | ");
            // No line comes twice or in halves, each is under its own header; whole lines went with the file.
            const QString all =
                QStringLiteral("start channels left:nA right | 0: 0 0.5 | 1: 1 0.5 | "
                               "start channels centre:mm | 7: 0.25");
            const int had = written.count(QString("0.5"));
            const QString expected = had == 0 ? all
                : had == 1                    ? QString(all).remove(QString("0: 0 0.5 | "))
                                              : all.section(" | ", 3);
            QVERIFY2(rest == expected, qPrintable(QString::number(size) + QLatin1Char(' ') + rest));
            QVERIFY(QFile::remove(path("a.csv")));
        }
    }

    //! An event loop that is busy reading does not deliver the ticks of the clock.
    void aFloodWithoutTicksIsWritten()
    {
        Recording r(path("a.csv"));
        Recorder &recorder = r.recorder();
        QVERIFY(r.begin());
        for (int i = 0; i < 30; ++i) {
            recorder.addReadings(block(i, 1));
            const int written = readTable(path("a.csv")).count(QString(" 0.5"));
            QVERIFY2(i - written < 10, qPrintable(QString::number(written))); // 0.1 s each
            r.clock.advanceSilently(0.1);
        }
        // What does not fit into a megabyte is not held for half a second.
        r.clock.advanceSilently(1.0);
        recorder.addReadings(block(30, 1));
        recorder.addReadings(block(31, 100000));
        QTRY_VERIFY(QFileInfo(path("a.csv")).size() > qint64(1024) * 1024);
    }

    //! Each turn brings more than the thread gathers before it writes.
    void aFloodBeginsItsNextFileInTime()
    {
        constexpr int channels = 1000, rows = 1100;
        Recording r(path("a.csv"));
        r.options.rotateSeconds = 1.0;
        QSignalSpy files(&r.recorder(), &Recorder::fileStarted);
        StreamHeader header;
        header.channels.resize(channels);
        QVERIFY(r.recorder().start());
        r.recorder().startStream(header);
        const std::vector<double> missing(channels, std::nan(""));
        ReadingBlock readings(channels);
        for (int row = 0; row < rows; ++row)
            readings.append(0.0, missing.data());
        for (int turn = 0; turn < 5; ++turn) {
            r.recorder().addReadings(readings);
            r.clock.advanceSilently(0.4);
        }
        QCOMPARE(files.count(), 2);
    }

    //! It is noticed at the next large piece, not only when the next look is due.
    void aFileThatIsRemovedInAFloodBeginsAnew()
    {
        Recording r(path("a.csv"));
        QVERIFY(r.begin());
        r.recorder().addReadings(block(0, 1));
        r.clock.advance(1.0);
        QVERIFY(QFile::remove(path("a.csv")));
        r.recorder().addReadings(block(1, 100000));
        const ReadingBlock none(2);
        QTRY_VERIFY((r.recorder().addReadings(none), QFile::exists(path("a.csv"))));
        QVERIFY(r.recorder().finish());
        QCOMPARE(fileContents(path("a.csv")).count(",0.5\n"), 100000);
    }

    void aFloodKeepsItsOrder_data()
    {
        columns<qint64>("room");
        row("on a disk with room", qint64(1) << 40);
        row("on a disk that is full for a while", qint64(1) << 20);
    }
    //! Much more than the thread takes at once: readings in pieces of all sizes, events, and three streams.
    void aFloodKeepsItsOrder()
    {
        Recording r(m_dir->path());
        Recorder &recorder = r.recorder();
        QSignalSpy files(&recorder, &Recorder::fileStarted);
        QVERIFY(recorder.start());
        FileSizeLimit limit;
        limit.set(rlim_t(cell<qint64>("room")));
        std::mt19937_64 dice(5);
        QByteArray expected;
        for (const int channels : {2, 3, 2}) { // the last one begins no file so soon
            StreamHeader header = twoChannels();
            if (channels > 2)
                header.channels.push_back({QString("centre"), QString("mm")});
            recorder.startStream(header);
            expected += recordingHeader(header, {});
            for (int i = 0; i < 40; ++i) {
                ReadingBlock readings(channels);
                for (quint64 count = dice() % 2000; count > 0; --count) {
                    const double values[] = {anyNumber(dice), double(count), double(i)};
                    readings.append(i, values);
                    appendRecordingRow(&expected, i, values, channels);
                }
                recorder.addReadings(readings);
                appendRecordingEvent(&expected, QString::number(i));
                recorder.addEvent(QString::number(i));
            }
        }
        limit.lift();
        r.clock.advance(1.0);
        QVERIFY(recorder.finish());
        QByteArray written;
        for (const QList<QVariant> &arguments : std::as_const(files))
            written += fileContents(arguments.first().toString());
        QVERIFY(expected.size() > RecordingWorker::mostQueued);
        QVERIFY(written == expected);
    }

    void aFullDiskLosesNothingOnceThereIsRoom()
    {
        Recording r(path("a.csv"));
        Recorder &recorder = r.recorder();
        QSignalSpy failed(&recorder, &Recorder::failed);
        QSignalSpy recovered(&recorder, &Recorder::recovered);
        QVERIFY(r.begin());

        FileSizeLimit limit;
        limit.set(301);
        for (int i = 0; i < 50; ++i) {
            recorder.addReadings(block(i, 1));
            r.clock.advance(0.1);
        }
        limit.lift();
        QCOMPARE(failed.count(), 1); // once, however often it tries again
        QVERIFY(recorder.error().shown().contains("File too large"));
        QCOMPARE(QFileInfo(r.options.path).size(), qint64(301));
        r.clock.advance(1.0);
        QCOMPARE(recovered.count(), 1);
        QVERIFY(recorder.finish());
        const QStringList lines = readTable(r.options.path).split(" | ");
        QCOMPARE(lines.size(), 51);
        QCOMPARE(lines.last(), QString("49: 49 0.5"));
    }

    void writesAsAPersonWould_data()
    {
        tableFrom(R"(| double number | text
            zero          | 0                    | 0
            negative zero | -0.0                 | -0
            decimals      | -100.37              | -100.37
            whole         | 300000               | 300000
            round         | 300000000000         | 300000000000
            15 digits     | 123456789012345      | 123456789012345
            16 digits     | 0.1234567890123456   | 0.1234567890123456
            below 1       | 0.00015              | 0.00015
            exponent      | 0.000015             | 1.5e-05
            billionth     | 1.5e-9               | 1.5e-09
            one digit     | 1e-12                | 1e-12
            large         | 1e300                | 1e+300
            smallest      | 5e-324               | 5e-324
            infinity      | -inf                 | -inf)");
    }
    void writesAsAPersonWould() { QTEST(QString(shortest(cell<double>("number"))), "text"); }
    //! Compares with the standard library, for numbers of 1 to 17 digits around the powers of ten that are used.
    void readsBackAndIsShortest()
    {
        std::mt19937_64 dice(7);
        for (int i = 0; i < 200000; ++i) {
            const QByteArray sent = QByteArray::number(quint64(dice())).left(1 + int(dice() % 17))
                + "e" + QByteArray::number(int(dice() % 45) - 38);
            const double value = sent.toDouble();
            const QByteArray text = shortest(value);
            const double read = text.toDouble();
            QVERIFY2(std::memcmp(&read, &value, sizeof read) == 0, sent);
            char scientific[longestNumber];
            const char *const end = std::to_chars(scientific, scientific + sizeof scientific, value,
                                                  std::chars_format::scientific)
                                        .ptr;
            const QByteArray expected = digitsOf({scientific, int(end - scientific)});
            const bool isLargeWhole = value >= 1e15 && !text.contains('e');
            QVERIFY2(isLargeWhole || digitsOf(text) == expected, sent);
        }
    }

private:
    QString path(const char *name) { return m_dir->filePath(QLatin1String(name)); }
    std::unique_ptr<QTemporaryDir> m_dir;
};

CORVALE_QT_TEST_MAIN(tst_Recorder)
#include "tst_Recorder.moc"
