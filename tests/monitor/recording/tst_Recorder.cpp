// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CsvReader.h"
#include "monitor/recording/Recorder.h"
#include "monitor/recording/SegmentCompressor.h"
#include "tests/monitor/support/FileSizeLimit.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/monitor/support/ReadTable.h"
#include "tests/support/Files.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/detector/DetectorFile.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <random>

using namespace Monitor;

static StreamHeader twoChannels()
{
    StreamHeader header;
    header.channels = {{"left", "nA"}, {"right", ""}};
    return header;
}

//! A recorder that writes to a file or a folder, with its clock and its notes.
struct Recording
{
    explicit Recording(const QString &path, bool overwrite = false)
    {
        options.path = path;
        options.overwrite = overwrite;
    }
    //! Starts the recorder with a stream of two channels.
    bool begin()
    {
        const bool started = recorder().start();
        if (started)
            recorder().startStream(twoChannels());
        return started;
    }
    Recorder &recorder()
    {
        if (!m_recorder) {
            m_recorder = std::make_unique<Recorder>(clock, options);
            QObject::connect(m_recorder.get(),
                             &Recorder::noted,
                             &clock,
                             [this](const QString &text) {
                                 notes.append(text);
                             });
            if (options.compress)
                QObject::connect(m_recorder.get(),
                                 &Recorder::fileCompleted,
                                 &clock,
                                 [this](const QString &name) {
                                     compressor.add(name);
                                 });
        }
        return *m_recorder;
    }

    ManualClock clock;
    Recorder::Options options;
    SegmentCompressor compressor;
    QStringList notes;

private:
    std::unique_ptr<Recorder> m_recorder;
};

static ReadingBlock block(double firstTime, int count)
{
    ReadingBlock readings(2);
    for (int i = 0; i < count; ++i) {
        const double values[] = {firstTime + i, 0.5};
        readings.append(firstTime + i, values);
    }
    return readings;
}

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
static QString
whatDiffersReadBack(const QString &path, const StreamHeader &header, int readings, NumberSink &read)
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
        return "not recorded: " + recording.recorder().errorString();
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

class tst_Recorder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theArrivalDatesAStream_data()
    {
        columns<double, int, QString>("first", "readings", "t0");
        row("one reading", 2.0, 1, "2026-03-01T12:01:38.000Z +- 0.02");
        row("three at once", 2.0, 3, "2026-03-01T12:01:36.000Z +- 2");
        row("a time since 1970", 1772366500.0, 1, "1970-01-01T00:00:00.000Z +- 0.02");
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

    //! Files that are complete are compressed, and read back as what was recorded.
    void compressesWhatIsComplete()
    {
        Recording file(path("packed.csv"));
        file.options.compress = true;
        file.options.rotateBytes = 300;
        file.options.rotateSeconds = 1000.0;
        QVERIFY(file.begin());
        for (int i = 0; i < 3; ++i) {
            file.recorder().addReadings(block(100.0 * i, 50));
            file.clock.advance(2.0);
        }
        QVERIFY(file.recorder().finish());
        file.compressor.finish();
        QVERIFY(file.notes.isEmpty() && file.compressor.takeErrors().isEmpty());
        const QStringList files =
            QDir(m_dir->path()).entryList({"packed*"}, QDir::Files, QDir::Name);
        QCOMPARE(files.join(' '),
                 QString("packed-2.csv.zst packed-3.csv.zst packed-4.csv.zst packed.csv.zst"));
        for (int i = 0; i < 3; ++i) {
            const QString name =
                i == 0 ? "packed.csv.zst" : QString("packed-%1.csv.zst").arg(i + 1);
            const QString text = readTable(m_dir->filePath(name));
            QVERIFY2(text.startsWith("start channels left:nA right"), qPrintable(text));
            QVERIFY(text.endsWith(QString("%1: %1 0.5").arg(100 * i + 49)));
            QVERIFY(!text.contains("refused"));
        }
        // The name is taken, although the file itself is gone.
        Recording again(path("packed.csv"));
        again.options.compress = true;
        QVERIFY(!again.begin());
        QVERIFY(again.recorder().errorString().contains("packed.csv.zst exists already"));
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

    //! The disk is full in the middle of any row, and then the file is removed.
    void aFrameThatWasCutIsWholeInTheNextFile()
    {
        StreamHeader header;
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
                const QString frame = QString("%1: %2 2 3 4 5 6").arg(i).arg(i + 1);
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

    void opensNoExistingFile()
    {
        putFile(path("a.csv"), "precious");
        Recording careful(path("a.csv"));
        QVERIFY(!careful.begin());
        QVERIFY(careful.recorder().errorString().contains("exists already"));
        QCOMPARE(fileContents(path("a.csv")), QByteArray("precious"));

        Recording told(path("a.csv"), true);
        QVERIFY(told.begin());
        told.recorder().addReadings(block(0, 1));
        QVERIFY(told.recorder().finish());
        QCOMPARE(readTable(path("a.csv")), QString("start channels left:nA right | 0: 0 0.5"));

        Recording nowhere(path("no/such/folder/a.csv"), true);
        QVERIFY(!nowhere.begin());
        QVERIFY(nowhere.recorder().errorString().contains("cannot be written"));
    }

    void namesFilesInAFolder()
    {
        Recording first(m_dir->path()), second(m_dir->path()); // their clocks say 12:01:40
        QVERIFY(first.begin() && second.begin());
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files).join(' '),
                 QString("corvale-20260301-120140-2.csv corvale-20260301-120140.csv"));
    }

    void rotates_data()
    {
        columns<double, qint64>("seconds", "bytes");
        row("by time", 5.0, qint64(0));
        row("by size", 0.0, qint64(180));
    }
    void rotates()
    {
        QFETCH(double, seconds);
        QFETCH(qint64, bytes);
        Recording r(path("a.csv"));
        r.options.rotateSeconds = seconds;
        r.options.rotateBytes = bytes;
        QVERIFY(r.begin());
        for (int i = 0; i < 20; ++i) {
            r.recorder().addReadings(block(i, 1));
            r.clock.advance(1.0);
        }
        QVERIFY(r.recorder().finish());
        // Every file reads alone, and together they hold all readings once.
        const int files = QDir(m_dir->path()).entryList(QDir::Files).size();
        QVERIFY(files >= 3);
        QStringList all;
        for (int i = 1; i <= files; ++i) {
            const QString file = m_dir->filePath(i == 1 ? "a.csv" : QString("a-%1.csv").arg(i));
            QVERIFY(i == files || QFileInfo(file).size() >= bytes);
            QStringList lines = readTable(file).split(" | ");
            if (lines.first().isEmpty())
                continue; // begun with the last tick, and no reading came
            QCOMPARE(lines.takeFirst(), QString("start channels left:nA right"));
            all += lines;
        }
        QStringList expected;
        for (int i = 0; i < 20; ++i)
            expected << QString("%1: %1 0.5").arg(i);
        QCOMPARE(all, expected);
    }

    void anotherAcquisitionIsAnotherFile()
    {
        Recording r(path("a.csv"));
        Recorder &recorder = r.recorder();
        QVERIFY(r.begin());
        recorder.addReadings(block(5, 2));
        recorder.addEvent(QString("beam off"));
        recorder.startStream(twoChannels());
        recorder.addReadings(block(0, 1));
        QVERIFY(recorder.finish());
        QCOMPARE(readTable(path("a.csv")),
                 QString("start channels left:nA right | 5: 5 0.5 | 6: 6 0.5 | event beam off"));
        QCOMPARE(readTable(path("a-2.csv")), QString("start channels left:nA right | 0: 0 0.5"));
    }

    void goesOnInAFileThatCanBeFound_data()
    {
        // The command runs in the folder above run/, which holds the recording. The last column is what became of the
        // first file, in TextSink's words.
        columns<bool, QString, QString, QString>("toFolder", "command", "said", "before");
        const QString gone = "was removed or renamed";
        const QString one = "start channels left:nA right | 0: 0 0.5";
        const QString other = "start channels ch1 ch2 | 7: 8 9";
        row("the file is removed", false, "rm run/a.csv", gone, QString());
        row("the file is renamed", false, "mv run/a.csv kept.csv", gone, one);
        row("the folder is removed", false, "rm -r run", gone, QString());
        row("the folder is renamed", false, "mv run old; cp old/a.csv kept.csv", gone, one);
        row("a file takes its place",
            false,
            "echo 7,8,9 > other; mv other run/a.csv; cp run/a.csv kept.csv",
            "was replaced by another file",
            other);
        row("another program writes into it",
            false,
            "echo 7,8,9 > run/a.csv; cp run/a.csv kept.csv",
            "was changed by another program",
            other);
        row("the folder of many is renamed", true, "mv run old; cp old/*.csv kept.csv", gone, one);
    }
    void goesOnInAFileThatCanBeFound()
    {
        QFETCH(bool, toFolder);
        QFETCH(QString, command);
        QFETCH(QString, said);
        QFETCH(QString, before);
        QVERIFY(QDir(m_dir->path()).mkdir(QString("run")));
        Recording r(path(toFolder ? "run" : "run/a.csv"));
        r.options.rotateSeconds = 3600.0;
        Recorder &recorder = r.recorder();
        QVERIFY(r.begin());
        recorder.addReadings(block(0, 1));
        r.clock.advance(0.6);
        const QString shell = QString("cd '%1' && { %2; }").arg(m_dir->path(), command);
        QCOMPARE(std::system(qPrintable(shell)), 0);
        recorder.addReadings(block(1, 2));
        r.clock.advance(1.0); // twice as early as promised
        QCOMPARE(r.notes.size(), 1);
        QVERIFY2(r.notes.first().contains(said), qPrintable(r.notes.first()));
        QVERIFY(recorder.errorString().isEmpty());
        recorder.addReadings(block(3, 1));
        QVERIFY(recorder.finish());

        const QFileInfo now(recorder.fileName());
        QCOMPARE(now.path(), path("run"));
        QCOMPARE(now.suffix(), QString("csv"));
        const QString text = readTable(now.filePath());
        QVERIFY2(text.startsWith(QString("event recording: ")), qPrintable(text));
        QVERIFY2(text.endsWith(QStringLiteral(
                     "start channels left:nA right | 1: 1 0.5 | 2: 2 0.5 | 3: 3 0.5")),
                 qPrintable(text));
        if (!before.isEmpty())
            QCOMPARE(readTable(path("kept.csv")), before);
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
            QVERIFY(recorder.errorString().contains("File too large"));
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

    void aFileIsOneRecordersOnly()
    {
        Recording first(path("a.csv"), true), second(path("a.csv"), true);
        QVERIFY(first.begin());
        first.recorder().addReadings(block(0, 1));
        first.clock.advance(1.0);
        QVERIFY(!second.begin());
        QVERIFY(second.recorder().errorString().contains("another recorder"));
        QVERIFY(first.recorder().finish());
        QCOMPARE(readTable(path("a.csv")), QString("start channels left:nA right | 0: 0 0.5"));
        QVERIFY(second.begin());
    }

    void aStreamThatStartsOverMakesFewFiles()
    {
        Recording r(path("a.csv"));
        Recorder &recorder = r.recorder();
        QVERIFY(recorder.start());
        const auto files = [this] {
            return QDir(m_dir->path()).entryList(QDir::Files).size();
        };
        const auto startOver = [&] {
            recorder.startStream(twoChannels());
            recorder.addReadings(block(0, 2));
        };
        for (int i = 0; i < 500; ++i) { // 5 s
            startOver();
            r.clock.advance(0.01);
        }
        QVERIFY2(files() >= 5 && files() <= 6, qPrintable(QString::number(files())));
        for (int i = 0; i < 500; ++i) {
            startOver();
            r.clock.advance(1.5);
        }
        QCOMPARE(files(), 1 + Recorder::maxStreamFiles);
        QCOMPARE(r.notes.size(), 1);
        QVERIFY(r.notes.first().contains("a-101.csv"));
        QVERIFY(recorder.finish());
        QCOMPARE(recorder.fileName(), path("a-101.csv"));
        // Every stream is there under its own header.
        int streams = 0, readings = 0;
        for (const QFileInfo &file : QDir(m_dir->path()).entryInfoList(QDir::Files)) {
            const QString text = readTable(file.filePath());
            streams += text.count(QString("start channels"));
            readings += text.count(QString(" 0.5"));
        }
        QCOMPARE(streams, 1000);
        QCOMPARE(readings, 2000);
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
        QVERIFY(recorder.errorString().contains("File too large"));
        QCOMPARE(QFileInfo(r.options.path).size(), qint64(301));
        r.clock.advance(1.0);
        QCOMPARE(recovered.count(), 1);
        QVERIFY(recorder.finish());
        const QStringList lines = readTable(r.options.path).split(" | ");
        QCOMPARE(lines.size(), 51);
        QCOMPARE(lines.last(), QString("49: 49 0.5"));
    }

private:
    QString path(const char *name) { return m_dir->filePath(QLatin1String(name)); }
    std::unique_ptr<QTemporaryDir> m_dir;
};

CORVALE_QT_TEST_MAIN(tst_Recorder)
#include "tst_Recorder.moc"
