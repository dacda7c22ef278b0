// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/FileSource.h"
#include "monitor/sources/SimulatorSource.h"
#include "monitor/sources/SourceFactory.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/monitor/support/SourceLog.h"
#include "tests/support/Files.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

#include <algorithm>
#include <cmath>
#include <numeric>

Q_DECLARE_METATYPE(Monitor::FileSource::Options)

using namespace Monitor;

//! What plays by the clock: files and the simulator, and how sources are named.
class tst_FileSource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_path = m_dir.filePath("table.csv");
        putFile(m_path, "time_s,a\n100,1\n100.5,2\n101,3\n104,4\n");
    }

    void playsByTheClock_data()
    {
        columns<FileSource::Options, double, QString>("options", "seconds", "readings");
        const double last = std::numeric_limits<double>::infinity();
        const FileSource::Options usual;
        const FileSource::Options tenfold{10.0, false, -last, last};
        const FileSource::Options part{1.0, false, 100.2, 101.5};
        const FileSource::Options loop{1.0, true, -last, 101.0};
        row("the first reading at once", usual, 0.4, "100: 1");
        row("the second one when it is due", usual, 0.6, "100: 1 | 100.5: 2");
        row("a pause in the file", usual, 3.9, "100: 1 | 100.5: 2 | 101: 3");
        row("to the end", usual, 4.2, "100: 1 | 100.5: 2 | 101: 3 | 104: 4, the end");
        row("ten times as fast", tenfold, 0.2, "100: 1 | 100.5: 2 | 101: 3");
        row("to its end", tenfold, 0.5, "100: 1 | 100.5: 2 | 101: 3 | 104: 4, the end");
        row("a part of the file begins at once", part, 0.1, "100.5: 2");
        row("a part of the file", part, 1.1, "100.5: 2 | 101: 3, the end");
        row("in a loop, with times that go on",
            loop,
            3.1,
            "100: 1 | 100.5: 2 | 101: 3 | 101.5: 1 | 102: 2 | 102.5: 3 | 103: 1");
    }
    void playsByTheClock()
    {
        QFETCH(FileSource::Options, options);
        QFETCH(double, seconds);
        QFETCH(QString, readings);
        ManualClock clock;
        FileSource source(clock, m_path, options);
        SourceLog log(source);
        source.start();
        clock.advance(seconds);
        const bool ended = log.stateNames() == "Running Finished";
        QVERIFY(ended || log.stateNames() == "Running");
        QCOMPARE(log.text() + (ended ? ", the end" : ""), "start channels a | " + readings);
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
        const QString path = m_dir.filePath("parts.csv");
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
        const QString first = "start channels a | 5: 1";
        const QString once = first + " | 6: 2 | start channels b c | 1: 3 4 | 2: 5 6";
        if (speed > 0.0)
            QCOMPARE(log.text(), first);
        else
            QTRY_COMPARE(source.state(), Source::State::Finished);
        clock.advance(speed > 0.0 ? 0.6 : 0.0);
        QCOMPARE(log.text(), once.left(log.text().size()));
        clock.advance(2.0);
        QVERIFY(loop ? log.text().startsWith(once + " | " + first) : log.text() == once);
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
        FileSource source(clock, m_dir.filePath("missing.csv"), {});
        source.start();
        QCOMPARE(source.state(), Source::State::Failed);
        QVERIFY(source.stateText().contains("No such file"));
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
        QFETCH(int, channels);
        QFETCH(int, inTenSeconds);
        ManualClock clock;
        SimulatorSource source(clock, name);
        QVERIFY(source.isSimulated());
        SourceLog log(source);
        std::vector<double> sums;
        connect(&source, &Source::readingsArrived, this, [&](const ReadingBlock &block) {
            for (int row = 0; row < block.size(); ++row)
                sums.push_back(
                    std::accumulate(block.values(row), block.values(row) + channels, 0.0));
        });
        source.start();
        clock.advance(10.0);
        QTEST(log.sink.header().kind, "kind");
        QCOMPARE(log.sink.header().channels.size(), channels);
        QVERIFY(std::abs(int(sums.size()) - inTenSeconds) <= 1);
        const auto [smallest, largest] = std::minmax_element(sums.begin(), sums.end());
        QVERIFY(*largest > *smallest); // spills and pauses
        QVERIFY(std::isfinite(std::accumulate(sums.begin(), sums.end(), 0.0)));
    }

    void sameSeedSameBeam()
    {
        QStringList texts;
        for (const unsigned seed : {5u, 5u, 6u}) {
            ManualClock clock;
            SimulatorSource source(clock, "ic4", seed);
            SourceLog log(source);
            source.start();
            clock.advance(1.0);
            texts.append(log.text());
        }
        QCOMPARE(texts[0], texts[1]);
        QVERIFY(texts[0] != texts[2]);
    }

    //! Each source with its description, or after a "!" with a part of the complaint.
    void factoryKnowsItsSources()
    {
        const std::pair<QString, QString> sources[] = {
            {"sim:ic4", "sim:ic4"},
            {"sim:spots?seed=3", "sim:spots"},
            {"sim:rings", "!sim:pixels"},
            {"sim:ic4?sed=3", "!seed=NUMBER"},
            {"table.csv", "table.csv"},
            {"file:/a/b c.csv", "/a/b c.csv"},
            {"-", "standard input"},
            {"tcp://host:5000", "tcp://host:5000"},
            {"tcp://host:5000?ask=READ?&every=100ms", "tcp://host:5000"},
            {"tcp://[::1]:5000", "tcp://::1:5000"},
            {"tcp://host", "!tcp://HOST:PORT"},
            {"tcp://host:99999", "!tcp://HOST:PORT"},
            {"tcp://host:5000?every=1s", "!ask=TEXT"},
            {"tcp://host:5000?ask=R&every=soon", "!ask=TEXT"},
            {"tcp-listen://127.0.0.1:5000", "tcp-listen://127.0.0.1:5000"},
            {"tcp-listen://example.org:5000", "!interfaces"},
            {"serial:/dev/ttyUSB0", "serial:/dev/ttyUSB0?baud=115200"},
            {"serial:/dev/ttyUSB0?baud=9600", "serial:/dev/ttyUSB0?baud=9600"},
            {"tcp://host:5000?silence=20s", "tcp://host:5000"},
            {"tcp://host:5000?silence=soon", "!silence=30s"},
            {"tcp-listen://127.0.0.1:5000?silence=0", "tcp-listen://127.0.0.1:5000"},
            {"tcp-listen://127.0.0.1:5000?ask=R", "!silence=30s"},
            {"serial:/dev/ttyUSB0?baud=9600&silence=1min", "serial:/dev/ttyUSB0?baud=9600"},
            {"serial:/dev/ttyUSB0?silence=", "!silence=30s"},
            {"serial:/dev/ttyUSB0?baud=x", "!baud=NUMBER"},
            {"serial:", "!serial:DEVICE"},
            {"http://host/", "!not a known kind of source"},
            {"", "!not a known kind of source"}};
        for (const auto &[text, description] : sources) {
            ManualClock clock;
            SourceFactory factory(clock, {});
            const std::unique_ptr<Source> source = factory.make(text);
            if (source)
                QCOMPARE(source->description(), description);
            else
                QVERIFY2(description.startsWith('!')
                             && factory.errorString().contains(description.mid(1)),
                         qPrintable(text + ": " + factory.errorString()));
        }
    }

private:
    QTemporaryDir m_dir;
    QString m_path;
};

CORVALE_QT_TEST_MAIN(tst_FileSource)
#include "tst_FileSource.moc"
