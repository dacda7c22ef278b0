// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/FileSource.h"
#include "monitor/sources/SimulatorSource.h"
#include "monitor/sources/SourceFactory.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/monitor/support/SourceLog.h"
#include "tests/support/Files.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

#include <QTemporaryDir>

#include <cmath>

Q_DECLARE_METATYPE(Monitor::FileSource::Options)

using namespace Monitor;

//! What plays by the clock: files and the simulator, and how sources are named.
class tst_FileSource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_path = m_dir.filePath(QStringLiteral("table.csv"));
        putFile(m_path, "time_s,a\n100,1\n100.5,2\n101,3\n104,4\n");
    }

    void playsByTheClock_data()
    {
        columns<FileSource::Options, double, QString, bool>("options",
                                                            "seconds",
                                                            "expected",
                                                            "ended");
        const double last = std::numeric_limits<double>::infinity();
        const QString start = QStringLiteral("start channels a | ");
        using Options = FileSource::Options;
        const auto row = [&](const char *name,
                             const Options &options,
                             double seconds,
                             const char *readings,
                             bool ended) {
            QTest::newRow(name) << options << seconds << start + QLatin1String(readings) << ended;
        };
        row("the first reading at once", {}, 0.4, "100: 1", false);
        row("the second one when it is due", {}, 0.6, "100: 1 | 100.5: 2", false);
        row("a pause in the file", {}, 3.9, "100: 1 | 100.5: 2 | 101: 3", false);
        row("to the end", {}, 4.2, "100: 1 | 100.5: 2 | 101: 3 | 104: 4", true);
        row("ten times as fast",
            {10.0, false, -last, last},
            0.2,
            "100: 1 | 100.5: 2 | 101: 3",
            false);
        row("ten times as fast, to the end",
            {10.0, false, -last, last},
            0.5,
            "100: 1 | 100.5: 2 | 101: 3 | 104: 4",
            true);
        row("a part of the file begins at once",
            {1.0, false, 100.2, 101.5},
            0.1,
            "100.5: 2",
            false);
        row("a part of the file", {1.0, false, 100.2, 101.5}, 1.1, "100.5: 2 | 101: 3", true);
        row("in a loop, with times that go on",
            {1.0, true, -last, 101.0},
            3.1,
            "100: 1 | 100.5: 2 | 101: 3 | 101.5: 1 | 102: 2 | 102.5: 3 | 103: 1",
            false);
    }

    void playsByTheClock()
    {
        QFETCH(FileSource::Options, options);
        QFETCH(double, seconds);
        QFETCH(QString, expected);
        QFETCH(bool, ended);
        ManualClock clock;
        FileSource source(clock, m_path, options);
        SourceLog log(source);
        source.start();
        clock.advance(seconds);
        QCOMPARE(log.text(), expected);
        QCOMPARE(log.stateNames(),
                 ended ? QStringLiteral("Running Finished") : QStringLiteral("Running"));
    }

    void playsOneStreamAfterTheOther_data()
    {
        columns<double, bool>("speed", "loop");
        row("once", 1.0, false);
        row("again and again", 1.0, true);
        row("as fast as possible", 0.0, false);
    }

    //! A recording that went on under another header: neither runs ahead, nor does its time go back within a stream.
    void playsOneStreamAfterTheOther()
    {
        QFETCH(double, speed);
        QFETCH(bool, loop);
        const QString path = m_dir.filePath(QStringLiteral("parts.csv"));
        putFile(path,
                "#corvale 1\n#channels a\n5,1\n6,2\n#corvale 1\n#channels b,c\n1,3,4\n2,5,6\n");
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
        QVERIFY2(log.text().startsWith(loop ? once + QStringLiteral(" | start channels a | 5: 1")
                                            : once),
                 qPrintable(log.text()));
    }

    void playsAsFastAsPossible()
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

    void failsWithAReason()
    {
        ManualClock clock;
        FileSource source(clock, m_dir.filePath(QStringLiteral("missing.csv")), {});
        source.start();
        QCOMPARE(source.state(), Source::State::Failed);
        QVERIFY(source.stateText().contains(QLatin1String("No such file")));
    }

    void simulatorsShowTheBeam_data()
    {
        columns<QString, StreamKind, int, int>("name", "kind", "channels", "inTenSeconds");
        row("split chamber", "ic4", StreamKind::Channels, 4, 1000);
        row("strips", "strips", StreamKind::Strips, 64, 200);
        row("pixels", "pixels", StreamKind::Pixels, 144, 200);
        row("spots", "spots", StreamKind::Spots, 7, 500);
    }

    void simulatorsShowTheBeam()
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

    void sameSeedSameBeam()
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

    void factoryKnowsItsSources_data()
    {
        columns<QString>("text");
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
        row("http://host/", "!not a known kind of source");
        row("", "!not a known kind of source");
    }

    void factoryKnowsItsSources()
    {
        QFETCH(QString, text);
        QFETCH(QString, description);
        ManualClock clock;
        SourceFactory factory(clock, {});
        const std::unique_ptr<Source> source = factory.make(text);
        if (source)
            QCOMPARE(source->description(), description);
        else
            QVERIFY2(description.startsWith('!')
                         && factory.errorString().contains(description.mid(1)),
                     qPrintable(factory.errorString()));
    }

private:
    QTemporaryDir m_dir;
    QString m_path;
};

CORVALE_QT_TEST_MAIN(tst_FileSource)
#include "tst_FileSource.moc"
