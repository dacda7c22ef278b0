// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/LimitTexts.h"
#include "monitor/recording/ZstdSegments.h"
#include "monitor/sources/FileSource.h"
#include "tests/monitor/support/ReadTable.h"
#include "tests/monitor/support/ScriptedSession.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/detector/DetectorFile.h>
#include <corvale_qt/models/RVXPlotHistory.h>

using namespace Monitor;

//! What becomes of readings between a source and the model, by a clock that the test moves.
class tst_Session : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aRestartedInstrumentKeepsItsHistory_data()
    {
        tableFrom(R"(
            | bool live | channels | dates | times
            a file's next part empties | false | 2 |                                           | 0 0.1
            by the arrival             | true  | 2 |                                           | 50 50.1 - 53.1 53.2
            by the dates               | true  | 2 | 2026-03-01T12:00:00Z 2026-03-01T12:02:00Z | 50 50.1 - 120 120.1
            dates that go back         | true  | 2 | 2026-03-01T12:00:00Z 2026-03-01T11:00:00Z | 50 50.1 - 53.1 53.2
            other channels empty       | true  | 3 |                                           | 0 0.1
        )");
    }
    //! The time line goes on; a missing reading separates its parts, and the log says which time is meant.
    void aRestartedInstrumentKeepsItsHistory()
    {
        QFETCH(bool, live);
        QFETCH(QString, channels);
        QFETCH(QString, dates);
        ScriptedSession script;
        script.source->live = live;
        QStringList notes;
        connect(&script.session, &Session::noted, this,
                [&](const QString &text) { notes.append(text); });
        script.session.start();
        const auto begin = [&](int count, int date, double time) {
            StreamHeader header;
            header.channels = StreamHeader::defaultChannels(StreamKind::Channels, count);
            if (!dates.isEmpty())
                header.startTime =
                    QDateTime::fromString(dates.section(' ', date, date), Qt::ISODate);
            script.source->begin(header);
            const std::vector<double> values(std::size_t(count), 1.0);
            script.source->give(time, values);
            script.source->give(time + 0.1, values);
        };
        begin(2, 0, 50.0);
        script.clock.advance(3.0);
        begin(channels.toInt(), 1, 0.0);
        script.settle();
        const MultichannelDeviceModel &model = script.session.model();
        QStringList shown;
        for (int row = 1; row < model.rowCount(); ++row)
            shown += std::isnan(model.doubleData(row, 1))
                ? QString("-")
                : QString::number(model.doubleData(row, 0), 'g', 6);
        QCOMPARE(shown.join(' '), cell("times"));
        const bool kept = shown.contains("-");
        QCOMPARE(notes.filter("the instrument's clock started over: part 2 begins").size(),
                 kept ? 1 : 0);
        QCOMPARE(script.session.gaps(), qint64(kept ? 1 : 0));
    }

    void gapsAreThoseOfTheWholeRun()
    {
        ScriptedSession script;
        script.begin(1);
        for (const double time : {0.0, 1.0, 2.0, 9.0})
            script.source->give(time, {1.0});
        script.source->begin(StreamKind::Channels, 2);
        for (const double time : {0.0, 1.0, 2.0, 9.0, 10.0, 20.0})
            script.source->give(time, {1.0, 2.0});
        QCOMPARE(script.session.statistics().gaps(), qint64(2));
        QCOMPARE(script.session.gaps(), qint64(3));
    }

    //! What is sought in a file replaces what was shown, without a new stream.
    void aJumpReplacesWhatIsShown()
    {
        ScriptedSession script;
        script.begin(1);
        int starts = 0;
        connect(&script.session, &Session::streamStarted, this, [&] { ++starts; });
        script.source->give(100);
        script.settle();
        QCOMPARE(script.session.model().rowCount(), 101);
        script.source->give(5); // not shown yet
        script.source->jump();
        script.source->give(3.0, {42.0});
        QCOMPARE(script.session.model().rowCount(), 2);
        QCOMPARE(script.session.model().doubleData(1, 0), 3.0);
        QCOMPARE(script.session.statistics().readings(), qint64(1));
        QCOMPARE(starts, 0);
    }

    void aPauseLosesNothing()
    {
        ScriptedSession paused, straight;
        for (ScriptedSession *one : {&paused, &straight}) {
            one->begin(2, "nA");
            one->run(5);
        }
        QSignalSpy changed(&paused.session, &Session::pausedChanged);
        paused.session.setPaused(true);
        const QStringList before = rowsOf(paused.session.model());
        paused.run(7);
        straight.run(7);
        QCOMPARE(rowsOf(paused.session.model()), before);
        QCOMPARE(paused.session.model().waitingReadings(), qint64(7));
        paused.session.setPaused(false);
        QCOMPARE(rowsOf(paused.session.model()), rowsOf(straight.session.model()));
        QCOMPARE(paused.session.model().waitingReadings(), qint64(0));
        QCOMPARE(changed.count(), 2);
        QCOMPARE(paused.session.statistics().readings(), qint64(12));
    }

    void computedChannelsAreChannelsLikeAnyOther()
    {
        if (!Corvale_Qt::ChannelExpressions::isAvailable())
            QSKIP("The library was built without muparser.");
        ScriptedSession s;
        QSignalSpy noted(&s.session, &Session::noted);
        s.session.setRange(-10.0, 10.0);
        s.session.setComputedChannels({{"share", "", "ch2 / sum"}, {"sum", "nA", "ch1 + ch2"}});
        const QTemporaryDir folder;
        const QString path = folder.filePath("computed.csv");
        s.begin(2, "nA");
        QCOMPARE(s.record(path), QString());
        s.source->give(0.1, {1.0, 3.0});
        s.settle();
        const MultichannelDeviceModel &model = s.session.model();
        QCOMPARE(model.NumberOfChannels(), 4);
        QCOMPARE(model.receivedValue(1, 2), 0.75);
        QCOMPARE(model.receivedValue(1, 3), 4.0);
        QCOMPARE(model.units()->name(), QString("nA"));
        QCOMPARE(model.headerData(3, Qt::Horizontal).toString(), QString("share"));
        s.source->give(0.2, {100.0, 300.0});
        s.settle();
        QVERIFY(model.isOverrange(0, 1));
        QVERIFY(!model.isOverrange(3, 1)); // the limits are those of what is measured
        QVERIFY(s.session.stopRecording());
        const QByteArray file = fileContents(path);
        QVERIFY2(file.contains(",1,3,0.75,4\n"), file);
        QVERIFY(noted.takeFirst().first().toString().contains("recording"));

        // Other computed channels leave what was measured as it is, in the blocks of older readings, too.
        s.session.model().setCapacity(100);
        const auto span = [&model](int column) {
            const auto *history = Corvale_Qt::RVXPlotHistory::of(&model);
            Corvale_Qt::RVXPlotHistory::Block block{};
            history->read(0, column, history->firstBlock(0), 1, &block);
            return QString("%1 %2 %3").arg(block.count).arg(block.least).arg(block.greatest);
        };
        for (int i = 3; i < 400; ++i)
            s.source->give(0.1 * i, {double(i), 2.0 * i});
        s.settle();
        QCOMPARE(span(1), QString("64 1 100"));
        const QString sums = span(4);
        s.session.setComputedChannels(
            {{"sum", "nA", "ch1 + ch2"}, {"half", "nA", "sum / 2"}, {"share", "", "ch1 / sum"}});
        QCOMPARE(span(1), QString("64 1 100"));
        QCOMPARE(span(3), sums);
        QVERIFY(span(4).startsWith("0 "));
        QVERIFY(span(5).startsWith("0 ")); // of the same name, but computed otherwise
        QCOMPARE(model.receivedValue(100, 0), 399.0);
        QCOMPARE(model.receivedValue(100, 3), 1.5 * 399.0);
        s.session.setComputedChannels(
            {{"sum", "nA", "ch1 - ch2"}, {"half", "nA", "sum / 2"}, {"share", "", "ch1 / 2"}});
        QVERIFY(span(4).startsWith("0 ")); // what it is computed from is another one
        QCOMPARE(span(2), QString("64 3 300"));

        // A stream without the channels is shown as it is.
        s.begin(1);
        s.source->give(1.0, {1.0});
        s.settle();
        QCOMPARE(model.NumberOfChannels(), 1);
        QVERIFY(noted.last().first().toString().endsWith(
            "no channel is computed: sum, character 7: no channel is called \"ch2\""));
    }

    void everyReadingIsJudged()
    {
        ScriptedSession s;
        QStringList log;
        QObject::connect(&s.session, &Session::noted,
                         [&](const QString &text) { log.append(text); });
        const auto entries = [&] {
            QStringList texts;
            for (const Alarms::Entry &entry : s.session.alarms().entries())
                texts.append(passedLimitText(entry.worst, entry.name, entry.limit)
                             + (entry.lasts() ? "" : ", over")
                             + (entry.isUnacknowledged ? " !" : ""));
            return texts.join("; ");
        };
        StreamHeader header;
        header.channels = {{"left", "nA"}, {"right", "nA"}};
        Corvale_Qt::ChannelLimits limits;
        limits.highWarning = 400.0;
        limits.highAlarm = 500.0;
        header.setLimits("left", limits);
        s.session.start();
        s.source->begin(header);
        s.session.setPaused(true); // what is not shown is judged as well
        s.clock.advance(1.0);
        ReadingBlock block(2); // one reading beyond, among others that come together
        for (const double left : {1.0, 523.0, 2.0}) {
            const double row[] = {left, 600.0};
            block.append(0.1 * block.size(), row);
        }
        Q_EMIT s.source->readingsArrived(block);
        QCOMPARE(log.join('\n'),
                 QString("ALARM: left above 500 nA: 523 nA at t = 0.1 s\n"
                         "left is within its limits again after 0.1 s, at worst 523 nA"));
        QCOMPARE(entries(), QString("ALARM: left above 500 nA, over !"));
        log.clear();
        s.clock.advance(1.1);
        // A limit that was chosen goes before the stream's; a warning needs nobody to acknowledge it.
        s.session.setLimits({{"right", limits}, {"left", {}}});
        s.source->give(1.0, {450.0, 450.0});
        QCOMPARE(entries(),
                 QString("ALARM: left above 500 nA, over !; WARNING: right above 400 nA"));
        s.session.alarms().acknowledge();
        QCOMPARE(entries(), QString("WARNING: right above 400 nA"));
        s.source->give(1.1, {450.0, 550.0});
        QCOMPARE(entries(), QString("ALARM: right above 500 nA !"));
        s.source->give(1.2, {450.0, 480.0});
        QCOMPARE(entries(), QString("ALARM: right above 500 nA !"));
        s.source->give(1.3, {450.0, 0.0});
        QCOMPARE(log.mid(1).join('\n'),
                 QString("acknowledged: ALARM: left above 500 nA\n"
                         "ALARM: right above 500 nA: 550 nA at t = 1.1 s\n"
                         "right is no longer in alarm\n"
                         "right is within its limits again after 0.3 s, at worst 550 nA"));
        // The next stream has its own limits, and the chosen ones; an alarm that nobody saw stays.
        s.source->begin(header);
        QCOMPARE(entries(), QString("ALARM: right above 500 nA, over !"));
        s.source->give(2.0, {600.0, 300.0});
        QCOMPARE(entries(), QString("ALARM: right above 500 nA, over !"));
        s.session.setLimits({});
        s.source->give(2.1, {600.0, 900.0});
        QCOMPARE(entries(),
                 QString("ALARM: right above 500 nA, over !; ALARM: left above 500 nA !"));
        s.source->jump(); // what lasted there is over here
        QCOMPARE(entries(),
                 QString("ALARM: right above 500 nA, over !; ALARM: left above 500 nA, over !"));
    }

    void silenceIsStaleAfterThreePeriods()
    {
        ScriptedSession s;
        QSignalSpy stale(&s.session, &Session::staleChanged);
        s.begin(1);
        s.run(20);
        s.clock.advance(0.28);
        QVERIFY(!s.session.isStale());
        s.clock.advance(0.06);
        QVERIFY(s.session.isStale());
        QCOMPARE(stale.count(), 1);
        QCOMPARE(s.session.rate(), 0.0);
        s.clock.advance(100.0);
        s.run(1);
        QVERIFY(!s.session.isStale());
        s.clock.advance(0.34); // the silence says nothing about the usual interval
        QVERIFY(s.session.isStale());
        s.run(1);
        s.source->setState(Source::State::Finished, QString("the end"));
        s.clock.advance(10.0); // a source that has ended is not stale
        QVERIFY(!s.session.isStale());
    }

    void aSlowSourceIsNotStale()
    {
        ScriptedSession s;
        s.begin(1);
        for (int i = 0; i < 5; ++i) {
            s.source->give();
            s.clock.advance(60.0);
            QVERIFY(!s.session.isStale());
        }
        s.clock.advance(121.0);
        QVERIFY(s.session.isStale());
    }

    void aSourceThatSlowsDownIsNotStaleForGood()
    {
        ScriptedSession s;
        s.begin(1);
        s.run(20);
        for (int i = 0; i < 3; ++i) {
            s.clock.advance(1.0);
            s.source->give();
        }
        s.clock.advance(2.5);
        QVERIFY(!s.session.isStale());
        QCOMPARE(s.session.rate(), 1.0);
    }

    void theRateFollows()
    {
        ScriptedSession s;
        s.begin(1);
        s.source->give(5000); // up to the place of a tape that was sought
        s.clock.advance(0.001);
        s.source->give(700); // the rest of them, after an event
        for (int i = 0; i < 50; ++i) {
            s.clock.advance(0.1);
            s.source->give(20);
            QVERIFY(i == 0 || std::abs(s.session.rate() - 200.0) < 2.0);
        }
        QVERIFY(std::abs(s.session.rate() - 200.0) < 2.0);
    }

    void aLimitCutsToTheReading_data()
    {
        columns<qint64, double, int>("readings", "seconds", "expected");
        row("none", qint64(0), 0.0, 40);
        row("readings, inside of a block", qint64(13), 0.0, 13);
        row("readings, the end of a block", qint64(20), 0.0, 20);
        row("seconds", qint64(0), 1.45, 16); // 0.0 to 1.5 s
        row("what comes first", qint64(5), 1.45, 5);
    }
    void aLimitCutsToTheReading()
    {
        QFETCH(qint64, readings);
        QFETCH(int, expected);
        ScriptedSession s;
        QSignalSpy reached(&s.session, &Session::limitReached);
        s.session.setLimit(ReadingLimit(readings, cell<double>("seconds")));
        s.begin(2);
        for (int i = 0; i < 4; ++i)
            s.source->give(10);
        QCOMPARE(s.session.statistics().readings(), qint64(expected));
        s.settle();
        QCOMPARE(s.session.model().rowCount(), expected + 1);
        QCOMPARE(reached.count(), expected < 40 ? 1 : 0);
        QCOMPARE(s.source->heldAfter, expected < 40 ? 0.1 * (expected - 1) : -1.0);
    }

    void aPauseDoesNotStopTheRecording()
    {
        QTemporaryDir folder;
        ScriptedSession s;
        s.begin(2);
        const QString path = folder.filePath("r.csv");
        QCOMPARE(s.record(path), QString());
        s.run(3);
        s.session.setPaused(true);
        s.run(4);
        s.session.stopRecording();
        QVERIFY(!s.session.recorder());
        const QString text = QString::fromUtf8(fileContents(path));
        const QRegularExpression reading("^\\d.*$", QRegularExpression::MultilineOption);
        QCOMPARE(text.count(reading), 7);
        // The file exists now, and the next recording must not overwrite it.
        QVERIFY(s.record(path).contains("exists already"));
    }

    void aFullDiskIsNotedWithinTwoSeconds()
    {
        if (!hasFullDevice())
            QSKIP("there is no full device here");
        ScriptedSession s;
        QStringList log;
        connect(&s.session, &Session::noted, this,
                [&log](const QString &text) { log.append(text); });
        s.begin(2);
        QCOMPARE(s.record(QString("/dev/full"), true), QString());
        s.run(20);
        const QStringList errors = log.filter("ERROR");
        QCOMPARE(errors.size(), 1);
        QVERIFY2(errors.first().contains("/dev/full"), qPrintable(errors.first()));
        QVERIFY(s.session.recorder() && !s.session.recorder()->error().isEmpty());
        QVERIFY(!s.session.stopRecording());
        QVERIFY(log.last().contains("incomplete, 20 readings are missing: "));
        QCOMPARE(s.session.incompleteRecordings().size(), 1);
    }

    void aRangeHoldsForEveryStream()
    {
        ScriptedSession s;
        s.session.setRange(-1.0, 2.0);
        s.begin(1);
        s.run(5);
        QVERIFY(!s.session.model().isOverrange(0, 2));
        QVERIFY(s.session.model().isOverrange(0, 3));
    }

    //! An instrument that says 120000 things in 2 s.
    void floodsOfEventsAreCounted()
    {
        QTemporaryDir folder;
        ScriptedSession s;
        QStringList log;
        connect(&s.session, &Session::noted, this,
                [&log](const QString &text) { log.append(text); });
        s.begin(1);
        const QString path = folder.filePath("r.csv");
        QCOMPARE(s.record(path), QString());
        log.clear();
        for (int i = 0; i < 100; ++i) {
            for (int j = 0; j < 1200; ++j)
                Q_EMIT s.source->noted("door");
            s.clock.advance(0.02);
        }
        s.session.stopRecording(); // amid the flood
        s.clock.advance(1.5);
        // All of them are in the log and in the recording, as lines or in their counts.
        const auto account = [](const QStringList &lines, qint64 *listed) {
            qint64 all = *listed = lines.filter(QRegularExpression("door$")).size();
            for (const QString &line : lines.filter(" more events are not "))
                all += line.mid(line.indexOf(QRegularExpression("\\d")))
                           .section(' ', 0, 0)
                           .toLongLong();
            return all;
        };
        qint64 listed = 0;
        QCOMPARE(account(log, &listed), qint64(120000));
        QVERIFY(listed > 0 && listed <= 15);
        QCOMPARE(account(QString::fromUtf8(fileContents(path)).split(QLatin1Char('\n')), &listed),
                 qint64(120000));
        QVERIFY(listed > 0 && listed <= 300);
    }

    void streamsThatFollowFastAreShownFewTimes()
    {
        ScriptedSession s;
        QSignalSpy started(&s.session, &Session::streamStarted);
        s.session.start();
        for (int i = 0; i < 1000; ++i) { // 2 s
            s.source->begin(StreamKind::Channels, 1 + i % 3);
            s.source->give(2);
            s.clock.advance(0.002);
        }
        QVERIFY2(started.count() >= 2 && started.count() <= 15,
                 qPrintable(QString::number(started.count())));
        // The last one is shown in the end, with its channels and its readings.
        s.clock.advance(1.1);
        QCOMPARE(s.session.model().NumberOfChannels(), 1);
        QCOMPARE(s.session.model().rowCount(), 3);
        QCOMPARE(s.session.model().doubleData(1, 1), 1998.0);
    }

    //! The file of a recording that has ended is compressed while the session goes on.
    void compressionOutlivesItsRecording()
    {
        QTemporaryDir dir;
        ScriptedSession s;
        QStringList notes;
        connect(&s.session, &Session::noted, this,
                [&](const QString &text) { notes.append(text); });
        s.begin(1);
        Recorder::Options options;
        options.path = dir.filePath("packed.csv");
        options.segments = SegmentForm::Zstd;
        QString error;
        QVERIFY2(s.session.startRecording(options, &error), qPrintable(error));
        s.run(3);
        putFile(dir.filePath("packed.csv.zst"), "another"); // came while it was recorded
        QVERIFY(s.session.stopRecording());
        QVERIFY(notes.last().startsWith("recording to"));
        s.session.compressor().finish();
        s.settle();
        QVERIFY2(notes.last().contains("packed.csv.zst exists already"), qPrintable(notes.last()));
        QVERIFY(readTable(options.path).contains("0.1: 1"));
        QFile::remove(dir.filePath("packed.csv.zst"));
        s.session.compressor().add(options.path, zstdConversion());
        s.session.compressor().finish();
        QVERIFY(readTable(dir.filePath("packed.csv.zst")).contains("0.1: 1"));
    }

    void noRecordingWritesToItsSource()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("a.csv");
        const QByteArray table = "time_s,a\n0,1\n";
        putFile(path, table);
        QVERIFY(QFile::link(path, folder.filePath("link.csv")));
        ManualClock clock;
        Session session(clock, std::make_unique<FileSource>(clock, path, FileSource::Options()));
        Recorder::Options options;
        options.path = folder.filePath("link.csv");
        options.overwrite = true;
        QString error;
        QVERIFY(!session.startRecording(options, &error));
        QVERIFY2(error.contains("is the source"), qPrintable(error));
        QCOMPARE(fileContents(path), table);
    }

    void aFloodIsShownInFewInsertions()
    {
        ScriptedSession s;
        s.begin(3);
        QSignalSpy inserted(&s.session.model(), &QAbstractItemModel::rowsInserted);
        for (int i = 0; i < 1000; ++i) { // a second
            s.clock.advance(0.001);
            s.source->give(5);
        }
        QVERIFY2(inserted.count() <= 26, qPrintable(QString::number(inserted.count())));
        QCOMPARE(s.session.statistics().readings(), qint64(5000));
        // What still waits is shown at once when the source ends.
        s.source->give(5);
        s.source->setState(Source::State::Finished, QString());
        QCOMPARE(s.session.model().rowCount(), 5006);
        for (int row = 1; row < 5006; ++row)
            QCOMPARE(s.session.model().doubleData(row, 1), double(row - 1));
    }

    void readingsAreShownOnceAnInterval()
    {
        ScriptedSession s;
        s.begin(2);
        s.run(1);
        s.session.setShowInterval(1.0);
        QSignalSpy inserted(&s.session.model(), &QAbstractItemModel::rowsInserted);
        s.run(35);
        QCOMPARE(inserted.count(), 3);
        QCOMPARE(s.session.statistics().readings(), qint64(36));
        s.session.setShowInterval(0.0);
        s.clock.advance(0.05);
        QCOMPARE(s.session.model().rowCount(), 37);
    }

    void slowPicturesComeLessOften()
    {
        for (const auto &[painting, pictures] : {std::pair(0.01, 25), {0.05, 8}, {9.0, 5}}) {
            ScriptedSession s;
            s.begin(1);
            QSignalSpy shown(&s.session.model(), &QAbstractItemModel::rowsInserted);
            for (int i = 0, before = 0; i < 2000; ++i, before = shown.count()) { // two seconds
                s.clock.advance(0.001);
                s.source->give(1);
                s.session.notePainting((shown.count() - before) * painting);
            }
            QVERIFY(qAbs(shown.count() - 2 * pictures) <= 2);
        }
    }

    //! Frames go to the displays, and their sums, positions and widths to the model.
    void framesBecomeNumbers()
    {
        ScriptedSession s;
        QSignalSpy shown(&s.session, &Session::frameShown), noted(&s.session, &Session::noted);
        StreamHeader header;
        header.setFrames(
            Corvale_Qt::detectorFromJson(R"({"detector":1,"kind":"matrix","readings":20,
                "x":{"cells":6,"pitch":2,"unit":"mm"},"y":{"cells":3,"pitch":2,"unit":"mm"}})"),
            "nC");
        s.session.start();
        s.source->begin(header);
        std::vector<double> beam(20, 0.0);
        beam[7] = beam[10] = 1.0; // in the middle of the second row
        beam[8] = beam[9] = 4.0;
        beam[19] = 3.0; // belongs to no cell
        s.source->give(0.0, beam);
        s.settle();
        const MultichannelDeviceModel &model = s.session.model();
        QStringList names;
        for (const Channel &channel : model.header().channels)
            names += channel.name;
        QCOMPARE(names.mid(0, 3), (QStringList{"sum", "max", "x"}));
        QCOMPARE(model.receivedValue(1, 0), 10.0);
        QCOMPARE(model.receivedValue(1, 1), 4.0);
        QVERIFY(std::abs(model.receivedValue(1, 2)) < 1e-9);
        QCOMPARE(shown.size(), 1);
        QCOMPARE(shown.takeFirst()[1].value<QVector<double>>().size(), 20);
        QCOMPARE(noted.takeLast().first().toString(),
                 QString("WARNING 1 reading belongs to no cell: 3 nC left out"));

        s.session.setPaused(true);
        s.source->give(0.1, beam);
        s.source->give(0.2, beam);
        s.settle();
        QCOMPARE(shown.size(), 0);
        s.session.setPaused(false);
        QCOMPARE(shown.size(), 1);
        QCOMPARE(shown.takeFirst()[0].toDouble(), 0.2);
        QCOMPARE(model.rowCount(), 4);
    }

private:
    static QStringList rowsOf(const MultichannelDeviceModel &model)
    {
        QStringList rows;
        for (int row = 1; row < model.rowCount(); ++row)
            rows.append(QString("%1: %2 %3")
                            .arg(model.doubleData(row, 0))
                            .arg(model.doubleData(row, 1))
                            .arg(model.doubleData(row, 2)));
        return rows;
    }
};

CORVALE_QT_TEST_MAIN(tst_Session)
#include "tst_Session.moc"
