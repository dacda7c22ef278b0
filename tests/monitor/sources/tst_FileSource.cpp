// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/FileSource.h"
#include "monitor/sources/SimulatorSource.h"
#include "monitor/sources/SourceFactory.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/monitor/support/SourceLog.h"
#include "tests/support/Files.h"
#include "tests/support/RunningTimers.h"
#include "tests/support/TestMain.h"

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
        const FileSource::Options tenfold{10.0, false, -last, last, {}, false};
        const FileSource::Options part{1.0, false, 100.2, 101.5, {}, false};
        const FileSource::Options loop{1.0, true, -last, 101.0, {}, false};
        row("the first reading at once", usual, 0.4, "100: 1");
        row("the second one when it is due", usual, 0.6, "100: 1 | 100.5: 2");
        row("a pause in the file", usual, 3.9, "100: 1 | 100.5: 2 | 101: 3");
        row("to the end", usual, 4.2, "100: 1 | 100.5: 2 | 101: 3 | 104: 4, the end");
        row("ten times as fast", tenfold, 0.2, "100: 1 | 100.5: 2 | 101: 3");
        row("to its end", tenfold, 0.5, "100: 1 | 100.5: 2 | 101: 3 | 104: 4, the end");
        row("a part of the file begins at once", part, 0.1, "100.5: 2");
        row("a part of the file", part, 1.1, "100.5: 2 | 101: 3, the end");
        row("in a loop, with times that go on", loop, 3.1,
            "100: 1 | 100.5: 2 | 101: 3 | 101.5: 1 | 102: 2 | 102.5: 3 | 103: 1");
    }
    void playsByTheClock()
    {
        ManualClock clock;
        FileSource source(clock, m_path, cell<FileSource::Options>("options"));
        SourceLog log(source);
        source.start();
        clock.advance(cell<double>("seconds"));
        const bool ended = log.stateNames() == "Running Finished";
        QVERIFY(ended || log.stateNames() == "Running");
        QCOMPARE(log.text() + (ended ? ", the end" : ""), "start channels a | " + cell("readings"));
    }

    //! An event is told in its place among the readings, not when the file is read ahead.
    void eventsAreToldInTheirPlace()
    {
        const QString path = m_dir.filePath("events.csv");
        putFile(path,
                "#corvale 1\n#event before\n0,1\n1,2\n#event between\n#event and\n2,3\n"
                "#event behind\n#corvale 1\n#event next\n5,6\n6,7\n#event last\n");
        ManualClock clock;
        FileSource source(clock, path, {});
        SourceLog log(source);
        source.start();
        clock.advance(1.5);
        QCOMPARE(
            log.text(),
            QString("event before | start channels ch1 | 0: 1 | 1: 2 | event between | event and"));
        clock.advance(3.0);
        QCOMPARE(
            log.text(),
            QString("event before | start channels ch1 | 0: 1 | 1: 2 | event between | event and "
                    "| 2: 3 | event behind | event next | start channels ch1 | 5: 6 | 6: 7 | "
                    "event last"));
        QCOMPARE(log.stateNames(), QString("Running Finished"));
    }

    void imagesBecomeFrames_data()
    {
        // ">" begins a stream of frames with that many rows and columns.
        tableFrom(R"(
            || QByteArray bytes || expected
            text; the upper row has the larger y || P2\n2 3 9\n1 2\n3 4 5 6 || > 3 x 2 counted | 1: 5 6 3 4 1 2
            comments and times                   || P2 # a picture\n# t 1.5\n1 1 # one\n9\n# x\n7\nP2\n# t 2.5\n1 1 9 8
                || > 1 x 1 | 1.5: 7 | 2.5: 8
            another size                         || P2 1 1 9 7 P2 2 1 9 1 2 || > 1 x 1 counted | 1: 7 | > 1 x 2 counted | 2: 1 2
            times after numbers, and back        || P2 1 1 9 7 P2 1 1 9 8 P2\n# t 0.5\n1 1 9 1 P2 1 1 9 9
                || > 1 x 1 counted | 1: 7 | 2: 8 | > 1 x 1 | 0.5: 1 | > 1 x 1 counted | 3: 9
            time goes back                       || P2\n# t 5\n1 1 9 1 P2\n# t 4\n1 1 9 2 P2\n# t 6\n1 1 9 3
                || refused 2 back | > 1 x 1 | 5: 1 | 6: 3
        )");
        const auto bytes = [](const char *text, int size) { return QByteArray(text, size); };
        row("a byte each", bytes("P5 2 1 255\n\x01\xff", 13), "> 1 x 2 counted | 1: 1 255");
        row("two bytes each, the high one first", bytes("P5 2 1 65535\n\x01\x02\xff\xff", 17),
            "> 1 x 2 counted | 1: 258 65535");
        row("one after the other, with white space between or none",
            QByteArray("P5 1 1 255\nAP5 1 1 255\nB\n\nP2 1 1 9 7 "),
            "> 1 x 1 counted | 1: 65 | 2: 66 | 3: 7");
        row("a value above the largest costs one image",
            QByteArray("P2 1 1 9 10 P5 1 1 9\nAP2 1 1 9 9 "),
            "refused 1-2 unreadable | > 1 x 1 counted | 1: 9");
        const QByteArray broken =
            "|P|P2|P2 2|P2 0 1 9 |P2 257 1 9 1|P2 1 99999999999 9 1|P2 -1 1 9 1|"
            "P2 1e1 1 9 1|P2 1 1 0 1|P2 1 1 65536 1|P2 2 1 9 1|P2 2 1 9 1 x|"
            "P2 1 1 9 -1|P2 1 1 9 1e400|P5 2 1 255\nA|P5 1 1 65535\nA|"
            "P5 1 1 255#\nA|P3 1 1 9 1 1 1|P6 1 1 9\nAAA|P52 2 9\n|"
            "\x89PNG\r\n|hello, world";
        for (const QByteArray &rest : broken.split('|'))
            row(("then " + rest.simplified()).constData(), "P2 1 1 9 5 " + rest,
                rest.isEmpty() ? "> 1 x 1 counted | 1: 5"
                               : "refused 2 unreadable | > 1 x 1 counted | 1: 5");
    }
    void imagesBecomeFrames()
    {
        const QString path = m_dir.filePath("images.pgm");
        putFile(path, cell<QByteArray>("bytes"));
        ManualClock clock;
        FileSource::Options fast;
        fast.speed = 0.0;
        const auto source = SourceFactory(clock, fast).make(path);
        SourceLog log(*source);
        source->start();
        QTRY_COMPARE(log.stateNames(), QString("Running Finished"));
        static const QRegularExpression start(
            "start pixels frames, matrix (\\d+ x \\d+), "
            "positions in cells,( counted)? sum max x:cells sigma_x:cells y:cells sigma_y:cells");
        QTEST(log.text().replace(start, "> \\1\\2"), "expected");
        QCOMPARE(runningTimers(*source), 0);
        QCOMPARE(source->counts().lines, source->counts().readings + source->counts().bad());
    }

    void imagesOfAFolder()
    {
        const QString folder = m_dir.filePath("folder");
        putFile(folder + "/image10.pgm", "P2 1 1 9 3");
        putFile(folder + "/image2.pgm", "P2 1 1 9 2 P2 1 1 9 x");
        putFile(folder + "/image1.PGM", "P2 1 1 9 1");
        putFile(folder + "/notes.txt", "P2 1 1 9 9");
        ManualClock clock;
        const double last = std::numeric_limits<double>::infinity();
        const auto source = SourceFactory(clock, {2.0, true, -last, last, {}, false}).make(folder);
        SourceLog log(*source);
        source->start();
        clock.advance(0.18);
        const QStringList readings = log.sink.lines.filter(": ").mid(0, 4);
        QCOMPARE(readings.join(" | "), QString("1: 1 | 2: 2 | 3: 3 | 4: 1"));
        QVERIFY(log.text().startsWith("refused 3 unreadable"));
        QVERIFY(source->readsFrom(folder + "/image2.pgm"));

        QVERIFY(QDir().mkpath(m_dir.filePath("empty")));
        const auto none = SourceFactory(clock, {}).make(m_dir.filePath("empty"));
        none->start();
        QCOMPARE(none->state(), Source::State::Failed);
        QVERIFY(none->stateText().endsWith("has no files called *.pgm"));
    }

    void imagesInALoop_data()
    {
        columns<QString, QString>("images", "readings");
        row("times far from 0", "P2 #t 100\n1 1 9 1 P2 #t 101\n1 1 9 2 ",
            "100: 1 | 101: 2 | 102: 1");
        row("numbers, and a time", "P2 1 1 9 1 P2 #t -5\n1 1 9 2 ", "1: 1 | -5: 2 | 1: 1");
        row("times below 0", "P2 #t -5\n1 1 9 1 P2 #t -4\n1 1 9 2 ", "-5: 1 | -4: 2 | -3: 1");
    }
    void imagesInALoop()
    {
        const QString path = m_dir.filePath("loop.pgm");
        putFile(path, cell("images").toLatin1());
        ManualClock clock;
        const double last = std::numeric_limits<double>::infinity();
        const auto source = SourceFactory(clock, {1.0, true, -last, last, {}, false}).make(path);
        SourceLog log(*source);
        source->start();
        clock.advance(2.5);
        QTEST(log.sink.lines.filter(": ").mid(0, 3).join(" | "), "readings");
    }

    //! The place is that of the last reading that is wanted, although others came with it.
    void isHeldAfterAReading_data()
    {
        columns<double>("speed");
        row("as fast as possible", 0.0);
        row("as it was taken", 1.0);
    }
    void isHeldAfterAReading()
    {
        QFETCH(double, speed);
        QByteArray text = "time_s,a\n";
        for (int i = 0; i < 100; ++i)
            text += QByteArray::number(0.01 * i) + ",1\n";
        const QString path = m_dir.filePath("held.csv");
        putFile(path, text);
        ManualClock clock;
        FileSource::Options options;
        options.speed = speed;
        FileSource source(clock, path, options);
        SourceLog log(source);
        connect(&source, &Source::readingsArrived, this, [&source](const ReadingBlock &block) {
            if (block.time(block.size() - 1) >= 0.2)
                source.holdAfter(0.2);
        });
        source.start();
        QTRY_VERIFY((clock.advance(0.1), source.isHolding()));
        clock.advance(1.0);
        QCOMPARE(source.place().time, 0.2);
        QVERIFY(speed == 0.0 || log.times.last() < 0.4);
    }

    //! A minute of large frames does not fit into memory.
    void readsFewLargeFramesAhead()
    {
        QByteArray text = "#corvale 2\n";
        for (int frame = 0; frame < 100; ++frame)
            text += "#frame " + QByteArray::number(frame) + " 200 200\n"
                + (QByteArray("1,").repeated(199) + "1\n").repeated(200);
        const QString path = m_dir.filePath("large.csv");
        putFile(path, text);
        ManualClock clock;
        FileSource source(clock, path, {});
        source.start();
        clock.advance(0.5);
        QVERIFY(source.progress() > 0.0 && source.progress() < 0.7);
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
        source.setPaused(true);
        QCOMPARE(runningTimers(source), 0); // nothing keeps the processor busy
        source.setPaused(false);
        QTRY_COMPARE(source.state(), Source::State::Finished);
        QCOMPARE(log.times.size(), 4);
        QCOMPARE(runningTimers(source), 0);
    }

    void theClockRestsWhenNobodyNeedsIt()
    {
        class MovedClock : public SystemClock
        {
        public:
            double seconds() const override { return now; }
            double now = 0.0;
        };
        MovedClock clock;
        const auto *timer = clock.findChild<QTimer *>();
        QSignalSpy ticks(&clock, &Clock::tick);
        clock.now = 9.9;
        QTRY_VERIFY(ticks.size() >= 2);
        QCOMPARE(timer->interval(), 20);
        clock.now = 10.1;
        QTRY_COMPARE(timer->interval(), 1000);
        clock.stayAwake();
        QCOMPARE(timer->interval(), 20);
        // Readings that nobody sees need fewer ticks, unless somebody asks for all of them.
        clock.now = 20.2;
        clock.stayAwakeIfSeen();
        for (const bool background : {true, false}) {
            clock.setBackground(background);
            QCOMPARE(timer->interval(), background ? 100 : 20);
        }
        clock.setBackground(true);
        clock.stayAwake();
        QCOMPARE(timer->interval(), 20);

        ManualClock asked;
        FileSource source(asked, m_path, {});
        source.start();
        asked.advance(0.6);
        source.setPaused(true);
        const int before = asked.timesKeptAwake;
        asked.advance(5.0);
        QCOMPARE(asked.timesKeptAwake, before);
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
        QFETCH(int, channels);
        ManualClock clock;
        SimulatorSource source(clock, cell("name"));
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
        QVERIFY(std::abs(int(sums.size()) - cell<int>("inTenSeconds")) <= 1);
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
