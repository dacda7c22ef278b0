// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/FileSource.h"
#include "monitor/sources/SimulatorSource.h"
#include "monitor/sources/SourceFactory.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/monitor/support/SourceLog.h"
#include "tests/support/TestMain.h"

#include <QTemporaryDir>

#include <cmath>

using namespace Monitor;

//! What plays by the clock: files and the simulator, and how sources are named.
class tst_FileSource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void playsInRealTime();
    void playsFaster();
    void playsAWindowOfTheFile();
    void loopsWithTimesThatGoOn();
    void playsOneStreamAfterTheOther_data();
    void playsOneStreamAfterTheOther();
    void playsAsFastAsPossible();
    void failsWithAReason();
    void simulatorsShowTheBeam_data();
    void simulatorsShowTheBeam();
    void sameSeedSameBeam();
    void factoryKnowsItsSources_data();
    void factoryKnowsItsSources();

private:
    QTemporaryDir m_dir;
    QString m_path;
};

void tst_FileSource::initTestCase()
{
    m_path = m_dir.filePath(QStringLiteral("table.csv"));
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("time_s,a\n100,1\n100.5,2\n101,3\n104,4\n");
}

void tst_FileSource::playsInRealTime()
{
    ManualClock clock;
    FileSource source(clock, m_path, {});
    SourceLog log(source);
    source.start();
    clock.advance(0.4);
    QCOMPARE(log.times, QVector<double>({100.0}));
    clock.advance(0.2);
    QCOMPARE(log.times, QVector<double>({100.0, 100.5}));
    clock.advance(3.3);
    QCOMPARE(log.times.size(), 3);
    QCOMPARE(source.state(), Source::State::Running);
    clock.advance(0.3);
    QCOMPARE(log.text(), QStringLiteral("start channels a | 100: 1 | 100.5: 2 | 101: 3 | 104: 4"));
    QCOMPARE(log.stateNames(), QStringLiteral("Running Finished"));
}

void tst_FileSource::playsFaster()
{
    ManualClock clock;
    FileSource::Options options;
    options.speed = 10.0;
    FileSource source(clock, m_path, options);
    SourceLog log(source);
    source.start();
    clock.advance(0.2);
    QCOMPARE(log.times.size(), 3);
    clock.advance(0.3);
    QCOMPARE(source.state(), Source::State::Finished);
}

void tst_FileSource::playsAWindowOfTheFile()
{
    ManualClock clock;
    FileSource::Options options;
    options.from = 100.2;
    options.to = 101.5;
    FileSource source(clock, m_path, options);
    SourceLog log(source);
    source.start();
    clock.advance(0.1);
    QCOMPARE(log.times, QVector<double>({100.5})); // at once: what was left out is not waited for
    clock.advance(1.0);
    QCOMPARE(log.times, QVector<double>({100.5, 101.0}));
    QCOMPARE(source.state(), Source::State::Finished);
}

void tst_FileSource::loopsWithTimesThatGoOn()
{
    ManualClock clock;
    FileSource::Options options;
    options.loop = true;
    options.to = 101.0;
    FileSource source(clock, m_path, options);
    SourceLog log(source);
    source.start();
    clock.advance(3.1);
    QCOMPARE(log.times.mid(0, 7),
             QVector<double>({100.0, 100.5, 101.0, 101.5, 102.0, 102.5, 103.0}));
    QCOMPARE(log.sink.lines.filter(QStringLiteral("start")).size(), 1);
    QCOMPARE(source.state(), Source::State::Running);
}

void tst_FileSource::playsOneStreamAfterTheOther_data()
{
    QTest::addColumn<double>("speed");
    QTest::addColumn<bool>("loop");
    QTest::newRow("once") << 1.0 << false;
    QTest::newRow("again and again") << 1.0 << true;
    QTest::newRow("as fast as possible") << 0.0 << false;
}

//! A recording that went on under another header: neither runs ahead, nor does its time go back within a stream.
void tst_FileSource::playsOneStreamAfterTheOther()
{
    QFETCH(double, speed);
    QFETCH(bool, loop);
    const QString path = m_dir.filePath(QStringLiteral("parts.csv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("#corvale 1\n#channels a\n5,1\n6,2\n#corvale 1\n#channels b,c\n1,3,4\n2,5,6\n");
    file.close();
    ManualClock clock;
    FileSource::Options options;
    options.speed = speed;
    options.loop = loop;
    FileSource source(clock, path, options);
    SourceLog log(source);
    source.start();
    clock.advance(0.5);
    const QString once =
        QStringLiteral("start channels a | 5: 1 | 6: 2 | start channels b c | 1: 3 4 | 2: 5 6");
    if (speed > 0.0)
        QCOMPARE(log.text(), QStringLiteral("start channels a | 5: 1"));
    else
        QTRY_COMPARE(source.state(), Source::State::Finished);
    clock.advance(speed > 0.0 ? 0.6 : 0.0);
    QVERIFY2(log.text().startsWith(once.left(log.text().size())), qPrintable(log.text()));
    clock.advance(2.0);
    QCOMPARE(log.text().left(once.size()), once);
    QCOMPARE(log.text().size() > once.size(), loop);
    QVERIFY2(
        log.text().startsWith(loop ? once + QStringLiteral(" | start channels a | 5: 1") : once),
        qPrintable(log.text()));
}

void tst_FileSource::playsAsFastAsPossible()
{
    ManualClock clock; // stands still
    FileSource::Options options;
    options.speed = 0.0;
    FileSource source(clock, m_path, options);
    SourceLog log(source);
    source.start();
    QTRY_COMPARE(source.state(), Source::State::Finished);
    QCOMPARE(log.times.size(), 4);
}

void tst_FileSource::failsWithAReason()
{
    ManualClock clock;
    FileSource source(clock, m_dir.filePath(QStringLiteral("missing.csv")), {});
    source.start();
    QCOMPARE(source.state(), Source::State::Failed);
    QVERIFY(source.stateText().contains(QLatin1String("No such file")));
}

void tst_FileSource::simulatorsShowTheBeam_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<StreamKind>("kind");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("inTenSeconds");
    QTest::newRow("split chamber") << "ic4" << StreamKind::Channels << 4 << 1000;
    QTest::newRow("strips") << "strips" << StreamKind::Strips << 64 << 200;
    QTest::newRow("pixels") << "pixels" << StreamKind::Pixels << 144 << 200;
    QTest::newRow("spots") << "spots" << StreamKind::Spots << 7 << 500;
}

void tst_FileSource::simulatorsShowTheBeam()
{
    QFETCH(QString, name);
    QFETCH(StreamKind, kind);
    QFETCH(int, channels);
    QFETCH(int, inTenSeconds);
    ManualClock clock;
    SimulatorSource source(clock, name);
    QVERIFY(source.isSimulated());
    StreamHeader header;
    int readings = 0;
    double smallest = 1e300, largest = -1e300;
    connect(&source, &Source::streamStarted, this, [&](const StreamHeader &told) {
        header = told;
    });
    connect(&source, &Source::readingsArrived, this, [&](const ReadingBlock &block) {
        for (int row = 0; row < block.size(); ++row, ++readings) {
            double sum = 0.0;
            for (int i = 0; i < channels; ++i) {
                QVERIFY(std::isfinite(block.values(row)[i]));
                sum += block.values(row)[i];
            }
            smallest = std::min(smallest, sum);
            largest = std::max(largest, sum);
        }
    });
    source.start();
    clock.advance(10.0);
    QCOMPARE(header.kind, kind);
    QCOMPARE(header.channels.size(), channels);
    QVERIFY(std::abs(readings - inTenSeconds) <= 1);
    QVERIFY(largest > smallest); // spills and pauses
}

void tst_FileSource::sameSeedSameBeam()
{
    QStringList texts;
    for (const unsigned seed : {5u, 5u, 6u}) {
        ManualClock clock;
        SimulatorSource source(clock, QStringLiteral("ic4"), seed);
        SourceLog log(source);
        source.start();
        clock.advance(1.0);
        texts.append(log.text());
    }
    QCOMPARE(texts[0], texts[1]);
    QVERIFY(texts[0] != texts[2]);
}

void tst_FileSource::factoryKnowsItsSources_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("description"); // or, after a "!", part of the complaint
    const auto row = [](const char *text, const char *description) {
        QTest::newRow(text) << QString(text) << QString(description);
    };
    row("sim:ic4", "sim:ic4");
    row("sim:spots?seed=3", "sim:spots");
    row("sim:rings", "!sim:pixels");
    row("sim:ic4?sed=3", "!seed=NUMBER");
    row("table.csv", "table.csv");
    row("file:/a/b c.csv", "/a/b c.csv");
    row("-", "standard input");
    row("tcp://host:5000", "tcp://host:5000");
    row("tcp://host:5000?ask=READ?&every=100ms", "tcp://host:5000");
    row("tcp://[::1]:5000", "tcp://::1:5000");
    row("tcp://host", "!tcp://HOST:PORT");
    row("tcp://host:99999", "!tcp://HOST:PORT");
    row("tcp://host:5000?every=1s", "!ask=TEXT");
    row("tcp://host:5000?ask=R&every=soon", "!ask=TEXT");
    row("tcp-listen://127.0.0.1:5000", "tcp-listen://127.0.0.1:5000");
    row("tcp-listen://example.org:5000", "!interfaces");
    row("serial:/dev/ttyUSB0", "serial:/dev/ttyUSB0?baud=115200");
    row("serial:/dev/ttyUSB0?baud=9600", "serial:/dev/ttyUSB0?baud=9600");
    row("tcp://host:5000?silence=20s", "tcp://host:5000");
    row("tcp://host:5000?silence=soon", "!silence=30s");
    row("tcp-listen://127.0.0.1:5000?silence=0", "tcp-listen://127.0.0.1:5000");
    row("tcp-listen://127.0.0.1:5000?ask=R", "!silence=30s");
    row("serial:/dev/ttyUSB0?baud=9600&silence=1min", "serial:/dev/ttyUSB0?baud=9600");
    row("serial:/dev/ttyUSB0?silence=", "!silence=30s");
    row("serial:/dev/ttyUSB0?baud=x", "!baud=NUMBER");
    row("serial:", "!serial:DEVICE");
    row("http://host/", "!no kind of source");
    row("", "!no kind of source");
}

void tst_FileSource::factoryKnowsItsSources()
{
    QFETCH(QString, text);
    QFETCH(QString, description);
    ManualClock clock;
    SourceFactory factory(clock, {});
    const std::unique_ptr<Source> source = factory.make(text);
    if (source)
        QCOMPARE(source->description(), description);
    else
        QVERIFY2(description.startsWith('!') && factory.errorString().contains(description.mid(1)),
                 qPrintable(factory.errorString()));
}

CORVALE_QT_TEST_MAIN(tst_FileSource)
#include "tst_FileSource.moc"
