// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CsvReader.h"
#include "monitor/recording/Recorder.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/monitor/support/TextSink.h"
#include "tests/support/TestMain.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <cmath>
#include <csignal>
#include <cstring>
#include <random>
#include <sys/resource.h>

using namespace Monitor;

class tst_Recorder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void readsBackBitForBit();
    void isOnDiskWithinASecond();
    void opensNoExistingFile();
    void namesFilesInAFolder();
    void rotates_data();
    void rotates();
    void anotherAcquisitionIsAnotherFile();
    void aFullDeviceIsReported();
    void aFullDiskLosesNothingOnceThereIsRoom();

private:
    QString path(const char *name) { return m_dir->filePath(QLatin1String(name)); }
    std::unique_ptr<QTemporaryDir> m_dir;
};

static StreamHeader twoChannels()
{
    StreamHeader header;
    header.channels = {{"left", "nA"}, {"right", ""}};
    return header;
}

static ReadingBlock block(double firstTime, int count)
{
    ReadingBlock readings(2);
    for (int i = 0; i < count; ++i) {
        const double values[] = {firstTime + i, 0.5};
        readings.append(firstTime + i, values);
    }
    return readings;
}

static QString readBack(const QString &path)
{
    TextSink sink;
    CsvReader reader(sink);
    if (!reader.open(path))
        return reader.errorString();
    while (reader.read(10000)) { }
    return sink.text();
}

void tst_Recorder::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
}

void tst_Recorder::readsBackBitForBit()
{
    std::mt19937_64 dice(3);
    ReadingBlock written(2);
    for (int i = 0; i < 5000; ++i) {
        // Any pattern of bits that is a number, down to the smallest.
        double values[2];
        for (double &value : values) {
            const quint64 bits = dice();
            std::memcpy(&value, &bits, sizeof value);
            if (std::isnan(value))
                value = std::nan("");
        }
        written.append(i / 3.0, values);
    }
    ManualClock clock;
    Recorder::Options options;
    options.path = path("a.csv");
    Recorder recorder(clock, options);
    QVERIFY(recorder.start());
    recorder.startStream(twoChannels());
    recorder.addReadings(written);
    QVERIFY(recorder.finish());

    class Comparison : public TextSink
    {
    public:
        explicit Comparison(const ReadingBlock &block)
            : m_block(block)
        {
        }
        void reading(double time, const double *values) override
        {
            const double read[] = {time, values[0], values[1]};
            const double expected[] = {m_block.time(row),
                                       m_block.values(row)[0],
                                       m_block.values(row)[1]};
            for (int i = 0; i < 3; ++i)
                same = same
                    && (std::isnan(expected[i])
                            ? std::isnan(read[i])
                            : std::memcmp(&read[i], &expected[i], sizeof(double)) == 0);
            ++row;
        }
        int row = 0;
        bool same = true;

    private:
        const ReadingBlock &m_block;
    } comparison(written);
    CsvReader reader(comparison);
    QVERIFY(reader.open(options.path));
    while (reader.read(10000)) { }
    QCOMPARE(comparison.row, 5000);
    QVERIFY(comparison.same);
    QCOMPARE(comparison.text(), QStringLiteral("start channels left:nA right"));
}

//! What a kill -9 leaves is what the system has been given: no more than the last second is missing.
void tst_Recorder::isOnDiskWithinASecond()
{
    ManualClock clock;
    Recorder::Options options;
    options.path = path("a.csv");
    Recorder recorder(clock, options);
    QVERIFY(recorder.start());
    recorder.startStream(twoChannels());
    for (int i = 0; i < 50; ++i) {
        recorder.addReadings(block(i, 1));
        clock.advance(0.1);
        TextSink sink;
        CsvReader reader(sink);
        QVERIFY(reader.open(options.path));
        while (reader.read(10000)) { }
        QVERIFY(i - reader.counts().readings <= 10);
        QCOMPARE(reader.counts().bad(), qint64(0));
        QCOMPARE(sink.lines.filter(QStringLiteral("event")).size(), 0); // whole lines only
    }
}

void tst_Recorder::opensNoExistingFile()
{
    QFile existing(path("a.csv"));
    QVERIFY(existing.open(QIODevice::WriteOnly));
    existing.write("precious");
    existing.close();
    ManualClock clock;
    Recorder::Options options;
    options.path = existing.fileName();
    Recorder careful(clock, options);
    QVERIFY(!careful.start());
    QVERIFY(careful.errorString().contains(QLatin1String("exists already")));
    QVERIFY(existing.open(QIODevice::ReadOnly));
    QCOMPARE(existing.readAll(), QByteArray("precious"));
    existing.close();

    options.overwrite = true;
    Recorder told(clock, options);
    QVERIFY(told.start());
    told.startStream(twoChannels());
    told.addReadings(block(0, 1));
    QVERIFY(told.finish());
    QCOMPARE(readBack(options.path), QStringLiteral("start channels left:nA right | 0: 0 0.5"));

    options.path = path("no/such/folder/a.csv");
    Recorder nowhere(clock, options);
    QVERIFY(!nowhere.start());
    QVERIFY(nowhere.errorString().contains(QLatin1String("cannot be written")));
}

void tst_Recorder::namesFilesInAFolder()
{
    ManualClock clock; // says 12:01:40 at first
    Recorder::Options options;
    options.path = m_dir->path();
    Recorder first(clock, options), second(clock, options);
    QVERIFY(first.start() && second.start());
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files).join(' '),
             QStringLiteral("corvale-20260301-120140-2.csv corvale-20260301-120140.csv"));
}

void tst_Recorder::rotates_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<qint64>("bytes");
    QTest::newRow("by time") << 5.0 << qint64(0);
    QTest::newRow("by size") << 0.0 << qint64(180);
}

void tst_Recorder::rotates()
{
    QFETCH(double, seconds);
    QFETCH(qint64, bytes);
    ManualClock clock;
    Recorder::Options options;
    options.path = path("a.csv");
    options.rotateSeconds = seconds;
    options.rotateBytes = bytes;
    Recorder recorder(clock, options);
    QVERIFY(recorder.start());
    recorder.startStream(twoChannels());
    for (int i = 0; i < 20; ++i) {
        recorder.addReadings(block(i, 1));
        clock.advance(1.0);
    }
    QVERIFY(recorder.finish());

    QStringList names = QDir(m_dir->path()).entryList(QDir::Files);
    QVERIFY(names.size() >= 3);
    QVERIFY(names.contains(QStringLiteral("a.csv")) && names.contains(QStringLiteral("a-2.csv")));
    // Every file reads alone, and together they hold all readings once.
    QStringList all;
    for (int i = 1; i <= names.size(); ++i) {
        const QString name = i == 1 ? QStringLiteral("a.csv") : QStringLiteral("a-%1.csv").arg(i);
        QStringList lines = readBack(m_dir->filePath(name)).split(QStringLiteral(" | "));
        if (lines.first().isEmpty())
            continue; // begun with the last tick, and no reading came
        QCOMPARE(lines.takeFirst(), QStringLiteral("start channels left:nA right"));
        all += lines;
    }
    QCOMPARE(all.size(), 20);
    QCOMPARE(all.first(), QStringLiteral("0: 0 0.5"));
    QCOMPARE(all.last(), QStringLiteral("19: 19 0.5"));
}

void tst_Recorder::anotherAcquisitionIsAnotherFile()
{
    ManualClock clock;
    Recorder::Options options;
    options.path = path("a.csv");
    Recorder recorder(clock, options);
    QVERIFY(recorder.start());
    recorder.startStream(twoChannels());
    recorder.addReadings(block(5, 2));
    recorder.addEvent(QStringLiteral("beam off"));
    recorder.startStream(twoChannels());
    recorder.addReadings(block(0, 1));
    QVERIFY(recorder.finish());
    QCOMPARE(readBack(path("a.csv")),
             QStringLiteral("start channels left:nA right | 5: 5 0.5 | 6: 6 0.5 | event beam off"));
    QCOMPARE(readBack(path("a-2.csv")), QStringLiteral("start channels left:nA right | 0: 0 0.5"));
}

void tst_Recorder::aFullDeviceIsReported()
{
    ManualClock clock;
    Recorder::Options options;
    options.path = QStringLiteral("/dev/full");
    options.overwrite = true;
    Recorder recorder(clock, options);
    QSignalSpy failed(&recorder, &Recorder::failed);
    QVERIFY(recorder.start());
    recorder.startStream(twoChannels());
    recorder.addReadings(block(0, 10));
    clock.advance(1.0);
    QCOMPARE(failed.count(), 1); // within two seconds, and once
    QVERIFY(recorder.errorString().contains(QLatin1String("No space left")));
    clock.advance(5.0);
    QCOMPARE(failed.count(), 1);
    QVERIFY(!recorder.finish());
}

//! The limit of a file's size stands for a disk that is full in the middle of a line and has room later.
void tst_Recorder::aFullDiskLosesNothingOnceThereIsRoom()
{
    ManualClock clock;
    Recorder::Options options;
    options.path = path("a.csv");
    Recorder recorder(clock, options);
    QSignalSpy failed(&recorder, &Recorder::failed);
    QSignalSpy recovered(&recorder, &Recorder::recovered);
    QVERIFY(recorder.start());
    recorder.startStream(twoChannels());

    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small{301, before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
    for (int i = 0; i < 50; ++i) {
        recorder.addReadings(block(i, 1));
        clock.advance(0.1);
    }
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
    QCOMPARE(failed.count(), 1);
    QCOMPARE(QFileInfo(options.path).size(), qint64(301));
    clock.advance(1.0);
    QCOMPARE(recovered.count(), 1);
    QVERIFY(recorder.finish());
    const QStringList lines = readBack(options.path).split(QStringLiteral(" | "));
    QCOMPARE(lines.size(), 51);
    QCOMPARE(lines.last(), QStringLiteral("49: 49 0.5"));
}

CORVALE_QT_TEST_MAIN(tst_Recorder)
#include "tst_Recorder.moc"
