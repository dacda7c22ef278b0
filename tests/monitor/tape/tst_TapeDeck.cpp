// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/NexusFiles.h"
#include "monitor/nexus/NexusSegments.h"
#include "monitor/recording/SegmentCompressor.h"
#include "monitor/tape/TapeCache.h"
#include "monitor/tape/TapeDeck.h"
#include "monitor/tape/TapeIndexThread.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/monitor/support/SourceLog.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

using namespace Monitor;

namespace {

//! Two parts: 5000 readings 0.01 s apart with a gap and an event, then 100 readings of two channels 0.1 s apart.
QByteArray twoParts()
{
    QByteArray text = "#corvale 1\n#channels a\n#unit nA\n";
    for (int i = 0; i < 5000; ++i) {
        if (i == 2000)
            text += "#event shutter open\n";
        const double time = i < 3000 ? 0.01 * i : 0.01 * i + 5.0;
        text += QByteArray::number(time, 'f', 2) + ',' + QByteArray::number(i) + '\n';
    }
    text += "#corvale 1\n#channels a,b\n#unit nA,V\n";
    for (int i = 0; i < 100; ++i)
        text += QByteArray::number(7.0 + 0.1 * i, 'f', 1) + (i < 99 ? ",1," : ",,")
            + QByteArray::number(-i) + '\n'; // the last reading of a is missing
    return text;
}

TapeIndex indexOf(const QString &path)
{
    TapeIndexing indexing;
    QString error;
    return indexTape(path, {}, &indexing, &error);
}

//! A deck on a file, with what its source emits; the index is there when the construction is over.
struct Deck
{
    explicit Deck(const QString &path, double speed = 1.0)
        : source(clock, path, options(speed))
        , deck(source, clock, QFileInfo(path).path() + "/decks") // one index for all of them
        , log(source)
    {
        QObject::connect(&source, &Source::jumped, &clock, [this] {
            ++jumps;
            log.times.clear();
        });
        QObject::connect(&source, &Source::streamStarted, &clock, [this] {
            ++starts;
            log.times.clear();
        });
        source.start();
        deck.pause();
        while (!deck.isIndexed() && deck.indexError().isEmpty())
            clock.advance(0.02);
    }
    static FileSource::Options options(double speed)
    {
        FileSource::Options options;
        options.speed = speed;
        return options;
    }
    void go(const TapeSpot &spot)
    {
        deck.seek(deck.index().positionOf(spot));
        clock.advance(0.02);
    }
    double last() const { return log.times.isEmpty() ? NAN : log.times.last(); }

    ManualClock clock;
    FileSource source;
    TapeDeck deck;
    SourceLog log;
    int jumps = 0;
    int starts = 0;
};

} // namespace

//! The index of a recording and the deck that plays by it; the widget is tested with the window.
class tst_TapeDeck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_path = m_dir.filePath("parts.csv");
        putFile(m_path, twoParts());
    }

    void anIndexOutlinesTheRecording()
    {
        const TapeIndex index = indexOf(m_path);
        QCOMPARE(index.rows(), qint64(5100));
        QCOMPARE(index.parts(), 2);
        // 54.99 s, a step, and 9.9 s.
        QVERIFY(std::abs(index.length() - (54.99 + 54.99 / 4999 + 9.9)) < 1e-9);
        QCOMPARE(index.marks().size(), 2);
        QCOMPARE(index.marks()[0].text, QString("shutter open"));
        QCOMPARE(index.marks()[0].spot.time, 19.99);
        QVERIFY(std::abs(index.marks()[1].length - 5.01) < 1e-9);
        QCOMPARE(index.marks()[1].spot.time, 29.99);
        const QVector<TapeIndex::Range> outline = index.outline(10);
        QCOMPARE(outline.first().low, 0.0);
        QCOMPARE(outline.last().low, -99.0); // the sum of what was read
        for (const double position : {0.0, 12.34, 40.0, 56.0, 64.9})
            QVERIFY(std::abs(index.positionOf(index.spotAt(position)) - position) < 1e-9);
        QCOMPARE(index.spotAt(-1.0).time, 0.0);
        QCOMPARE(index.spotAt(1e300).time, 16.9);
    }

    //! Spots without times are counted, also behind a line that is none, and where the index comes from its bytes.
    void spotsHaveNumbers()
    {
        QByteArray list = "x_mm,y_mm,mu\n";
        for (int i = 1; i <= 200; ++i)
            list += i == 9 ? "0,none,1\n0,0,9\n" : "0,0," + QByteArray::number(i) + '\n';
        const QString path = m_dir.filePath("spots.csv");
        putFile(path, list);
        Deck d(path);
        d.go({0, 112.0});
        const TapeReadout readout = d.deck.readout();
        QCOMPARE(readout.number, qint64(112));
        QCOMPARE(readout.count, qint64(200));
        QVERIFY(readout.isSpot);
        QCOMPARE(d.last(), 112.0);
        QCOMPARE(d.deck.readoutAt(d.deck.length()).number, qint64(200));
        QVERIFY(d.deck.survey().marks.isEmpty());
        QCOMPARE(d.deck.survey().stretches.first().hasTimes, false);
        // The outline of a short file has a block for almost each reading.
        QVERIFY(d.deck.index().blocks().size() > 150);
        d.deck.stepBackwards();
        d.clock.advance(0.02);
        QCOMPARE(d.deck.readout().number, qint64(111));
        d.go({0, 111.5});
        d.deck.play();
        d.clock.advance(1.0);
        QCOMPARE(d.deck.readout().number, qint64(111 + countedEachSecond));
        TapeIndex again;
        QVERIFY(again.fromBytes(d.deck.index().toBytes()) && again.isCounted());
        QVERIFY(!indexOf(m_path).isCounted());
    }

    void anIndexSurvivesItsBytes_data()
    {
        columns<int, bool>("byte", "good");
        row("whole", -1, true);
        row("a wrong sum", 3, false);
        row("a wrong number", 500, false);
        row("cut off", -2, false);
    }
    void anIndexSurvivesItsBytes()
    {
        QFETCH(int, byte);
        const TapeIndex index = indexOf(m_path);
        QByteArray bytes = index.toBytes();
        if (byte >= 0)
            bytes[byte] = char(bytes[byte] ^ 1);
        else if (byte == -2)
            bytes.chop(10);
        TapeIndex read;
        QTEST(read.fromBytes(bytes), "good");
        QCOMPARE(read.isEmpty(), byte != -1);
        if (byte == -1)
            QCOMPARE(read.toBytes(), index.toBytes());
    }

    //! A block that lies nowhere, or in an order that no recording has, would be drawn beyond the time line.
    void anIndexOfNoRecordingIsRefused_data()
    {
        columns<double, double>("firstTime", "lastTime");
        const double none = std::nan("");
        row("a block without a time", none, none);
        row("a block that ends before it begins", 5.0, 4.0);
    }
    void anIndexOfNoRecordingIsRefused()
    {
        QFETCH(double, firstTime);
        QFETCH(double, lastTime);
        TapeIndex index;
        index.addPart({});
        TapeBlock block;
        block.rows = 2;
        block.firstTime = 1.0;
        block.lastTime = 2.0;
        index.addBlock(block);
        QVERIFY(TapeIndex().fromBytes(index.toBytes()));
        block.firstTime = firstTime;
        block.lastTime = lastTime;
        index.addBlock(block);
        block.firstTime = 7.0;
        block.lastTime = 8.0;
        index.addBlock(block);
        QVERIFY(!TapeIndex().fromBytes(index.toBytes()));
    }

    void aCacheIsNotTrustedAfterAChange()
    {
        const QString path = m_dir.filePath("cached.csv"), folder = m_dir.filePath("cache");
        putFile(path, twoParts() + QByteArray("# a remark\n").repeated(50000));
        const TapeCache cache(path, {}, folder);
        QVERIFY(cache.load().isEmpty());
        cache.save(indexOf(path));
        QCOMPARE(TapeCache(path, {}, folder).load().rows(), qint64(5100));
        const QFileInfoList kept = QDir(folder).entryInfoList({"*.tape"}, QDir::Files);
        QCOMPARE(kept.size(), 1);
        QVERIFY(!(kept.first().permissions() & (QFile::ReadGroup | QFile::ReadOther)));
        QVERIFY(!(QFile::permissions(folder) & (QFile::ExeGroup | QFile::ExeOther)));
        // If a link takes the place of an index, its target stays as it is.
        const QString target = m_dir.filePath("mine.txt");
        putFile(target, "mine");
        QVERIFY(QFile::remove(kept.first().filePath())
                && QFile::link(target, kept.first().filePath()));
        cache.save(indexOf(path));
        QCOMPARE(fileContents(target), QByteArray("mine"));
        QCOMPARE(TapeCache(path, {}, folder).load().rows(), qint64(5100));
        ImportOptions other;
        other.skippedLines = 1;
        QVERIFY(TapeCache(path, other, folder).load().isEmpty());

        // The same size and date of change, and another byte in the middle.
        const QDateTime date = QFileInfo(path).lastModified();
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(file.size() / 2)
                && file.write("7") == 1);
        file.close();
        QVERIFY(file.open(QIODevice::ReadWrite)
                && file.setFileTime(date, QFileDevice::FileModificationTime));
        file.close();
        QVERIFY(TapeCache(path, {}, folder).load().isEmpty());
        cache.save(indexOf(path)); // the file is not what it was at the construction
        QVERIFY(TapeCache(path, {}, folder).load().isEmpty());
    }

    void aThreadCanBeGivenUp()
    {
        for (int i = 0; i < 5; ++i)
            TapeIndexThread(m_path, {}, m_dir.filePath("given-up"));
        TapeIndexThread none(m_dir.filePath("missing.csv"), {}, m_dir.filePath("given-up"));
        QVERIFY(none.result().isEmpty());
        QVERIFY(!none.errorString().isEmpty());
    }

    void goesToAPlace_data()
    {
        columns<int, double, double, int>("part", "time", "shown", "form");
        for (const int form :
             {int(SegmentForm::Text), int(SegmentForm::Zstd), int(SegmentForm::Hdf5)}) {
            const auto name = [&](const char *text) {
                return QByteArray(text) + ", " + segmentFormName(SegmentForm(form)).toUtf8();
            };
            row(name("the beginning"), 0, 0.0, 0.0, form);
            row(name("a reading"), 0, 12.34, 12.34, form);
            row(name("between two readings"), 0, 12.345, 12.34, form);
            row(name("in a gap"), 0, 33.0, 29.99, form);
            row(name("after the gap"), 0, 40.0, 40.0, form);
            row(name("the end of a part"), 0, 54.99, 54.99, form);
            row(name("the beginning of the next part"), 1, 7.0, 7.0, form);
            row(name("in the next part"), 1, 10.0, 10.0, form);
            row(name("the end"), 1, 16.9, 16.9, form);
        }
    }
    //! From everywhere to everywhere: what is shown is what would have been shown if it had been played up to there.
    void goesToAPlace()
    {
        QFETCH(int, part);
        QFETCH(double, shown);
        QFETCH(int, form);
        if (form == int(SegmentForm::Hdf5) && !nexusMissing().isEmpty())
            QSKIP("the monitor was built without HDF5");
        QString path = m_path;
        if (form != int(SegmentForm::Text)) {
            path = m_dir.filePath("packed.csv");
            const SegmentConversion conversion = segmentConversion(SegmentForm(form));
            QString error;
            putFile(path, twoParts());
            QFile::remove(completedPath(path, conversion.form));
            QVERIFY2(convertSegment(path, conversion, &error), qPrintable(error));
            path = completedPath(path, conversion.form);
        }
        Deck tape(path);
        for (const TapeSpot &before : {TapeSpot{0, 0.0}, TapeSpot{0, 50.0}, TapeSpot{1, 12.0}}) {
            tape.go(before);
            tape.go({part, cell<double>("time")});
            QCOMPARE(tape.last(), shown);
            QCOMPARE(tape.source.place().part, part);
            QVERIFY2(tape.log.times.size() > 1 || shown == 0.0 || shown == 7.0,
                     "the readings before belong to the picture");
            QVERIFY(std::is_sorted(tape.log.times.begin(), tape.log.times.end()));
            QCOMPARE(tape.log.sink.header().channels.size(), part + 1);
        }
        QVERIFY(!tape.deck.isPlaying());
    }

    void manySeeksBeforeATickAreOne()
    {
        Deck tape(m_path);
        tape.go({0, 1.0});
        const int before = tape.jumps;
        for (int i = 0; i < 50; ++i)
            tape.deck.seek(i);
        QCOMPARE(tape.deck.position(), 49.0);
        tape.clock.advance(0.02);
        QCOMPARE(tape.jumps, before + 1);
        QCOMPARE(tape.last(), 49.0);
    }

    void stepsAndPlays()
    {
        Deck tape(m_path);
        tape.go({0, 10.0});
        tape.deck.stepForwards();
        QCOMPARE(tape.last(), 10.01);
        tape.deck.stepBackwards();
        tape.clock.advance(0.02);
        QCOMPARE(tape.last(), 10.0);
        tape.clock.advance(5.0);
        QCOMPARE(tape.last(), 10.0);
        QVERIFY(tape.source.isHolding());

        tape.deck.play();
        tape.clock.advance(1.0);
        QVERIFY(std::abs(tape.last() - 11.0) < 0.015);
        QSignalSpy changed(&tape.deck, &TapeDeck::changed);
        tape.deck.setSpeed(0.1);
        QCOMPARE(changed.size(), 1);
        tape.clock.advance(1.0);
        QVERIFY(std::abs(tape.last() - 11.1) < 0.015);
        tape.deck.setSpeed(10.0);
        tape.clock.advance(1.0);
        QVERIFY(std::abs(tape.last() - 21.1) < 0.015);
        tape.deck.pause();
        tape.clock.advance(1.0);
        QVERIFY(std::abs(tape.last() - 21.1) < 0.015);
        // Steps go from part to part as well.
        tape.go({1, 7.0});
        tape.deck.stepBackwards();
        tape.clock.advance(0.02);
        QCOMPARE(tape.last(), 54.99);
        tape.deck.stepForwards();
        QCOMPARE(tape.last(), 7.0);
    }

    //! The first two readings come together, and so do ten behind a wrong time.
    void aSlowRecordingHasABlockForEachReading()
    {
        QByteArray text = "t,a\n";
        for (int i = 0; i < 40; ++i)
            text +=
                QByteArray::number(10 * (i < 20 ? i : i - 15)) + ',' + QByteArray::number(i) + '\n';
        const QString path = m_dir.filePath("slow.csv");
        putFile(path, text);
        const TapeIndex index = indexOf(path);
        QCOMPARE(index.rows(), qint64(40));
        QCOMPARE(int(index.blocks().size()), 40);
        int bars = 0;
        for (const TapeIndex::Range &range : index.outline(4000)) {
            QVERIFY(range.low >= range.high); // one reading, or none
            bars += range.low == range.high;
        }
        QCOMPARE(bars, 40);
    }

    //! In a gap the position goes on, and says that it lies in one; the reading that is shown stays.
    void timePassesInAGap()
    {
        Deck tape(m_path);
        tape.go({0, 29.99});
        QVERIFY(!tape.deck.readout().isInGap);
        tape.deck.play();
        tape.clock.advance(2.0);
        QCOMPARE(tape.last(), 29.99);
        QVERIFY(std::abs(tape.deck.position() - 31.99) < 0.03);
        QVERIFY(std::abs(tape.deck.readout().time - 31.99) < 0.03 && tape.deck.readout().isInGap);
        tape.deck.pause();
        tape.clock.advance(9.0);
        QVERIFY(std::abs(tape.deck.position() - 31.99) < 0.03);
        tape.deck.stepBackwards();
        tape.clock.advance(0.02);
        QCOMPARE(tape.last(), 29.98);
        tape.go({0, 33.0}); // the position stays where it was put
        QCOMPARE(tape.deck.position(), 33.0);
        tape.deck.play();
        tape.clock.advance(2.1);
        QVERIFY(std::abs(tape.last() - 35.1) < 0.03 && !tape.deck.readout().isInGap);
    }

    void repeatsAStretch_data()
    {
        columns<double, double, double>("from", "to", "speed");
        row("inside a part", 10.0, 12.0, 1.0);
        row("from part to part", 54.0, 56.0, 1.0);
        row("up to the end", 60.0, 1e9, 1.0);
        row("a hundred times as fast", 10.0, 12.0, 100.0);
    }
    void repeatsAStretch()
    {
        QFETCH(double, from);
        QFETCH(double, to);
        Deck tape(m_path, cell<double>("speed"));
        tape.deck.setLoop({from, to});
        tape.deck.seek(from);
        tape.deck.play();
        tape.clock.advance(0.02);
        const int before = tape.jumps + tape.starts;
        for (int i = 0; i < 60; ++i) {
            tape.clock.advance(0.1);
            const double here = tape.deck.position();
            QVERIFY2(here >= from - 1e-9 && here <= std::min(to, tape.deck.length()) + 1e-9,
                     qPrintable(QString::number(here)));
        }
        QVERIFY(tape.jumps + tape.starts > before);
        tape.deck.clearLoop();
        tape.deck.setSpeed(100.0);
        tape.clock.advance(2.0);
        QCOMPARE(tape.source.state(), Source::State::Finished);
        tape.deck.play(); // from the beginning
        tape.clock.advance(0.02);
        QCOMPARE(tape.source.state(), Source::State::Running);
        QVERIFY(tape.deck.position() < 10.0);
    }

    //! A place behind the loop is gone to, and played from.
    void leavesALoop()
    {
        Deck tape(m_path);
        tape.deck.setLoop({10.0, 12.0});
        tape.go({0, 40.0});
        QCOMPARE(tape.last(), 40.0);
        tape.deck.play();
        tape.clock.advance(2.0);
        QVERIFY(std::abs(tape.last() - 42.0) < 0.015);
        tape.go({0, 11.0});
        tape.clock.advance(2.0);
        QVERIFY(tape.deck.position() <= 12.0);
    }

    void loopsBeginAndEndHere()
    {
        Deck tape(m_path);
        const auto loopAfter = [&](double position, void (TapeDeck::*set)()) {
            tape.deck.seek(position);
            (tape.deck.*set)();
            return QString("%1..%2").arg(tape.deck.loop()->from).arg(tape.deck.loop()->to);
        };
        QCOMPARE(loopAfter(20.0, &TapeDeck::endLoopHere), QString("0..20"));
        QCOMPARE(loopAfter(10.0, &TapeDeck::beginLoopHere), QString("10..20"));
        QCOMPARE(loopAfter(30.0, &TapeDeck::beginLoopHere), QString("30..64.901"));
        QCOMPARE(loopAfter(40.0, &TapeDeck::endLoopHere), QString("30..40"));
        QCOMPARE(loopAfter(20.0, &TapeDeck::endLoopHere), QString("0..20"));
        tape.deck.setLoop({12.0, 10.0});
        QVERIFY(!tape.deck.loop());
        // What has come to its end begins with the loop.
        tape.deck.setLoop({10.0, 12.0});
        tape.go({1, 16.9});
        tape.deck.play();
        QCOMPARE(tape.deck.position(), 10.0);
    }

    void marksAreFound()
    {
        Deck tape(m_path);
        tape.deck.seek(0.0);
        tape.deck.seekNextMark();
        QCOMPARE(tape.deck.spot().time, 19.99);
        tape.deck.seekNextMark();
        QCOMPARE(tape.deck.spot().time, 29.99);
        tape.deck.seekNextMark(); // the end of the gap
        tape.clock.advance(0.02);
        QCOMPARE(tape.last(), 35.0);
        tape.deck.seekFormerMark();
        QCOMPARE(tape.deck.spot().time, 29.99);
        tape.deck.seekFormerMark();
        QCOMPARE(tape.deck.spot().time, 19.99);
        tape.deck.seekFormerMark();
        QCOMPARE(tape.deck.position(), 0.0);
    }

    //! Bad lines are counted by their place in the file, however often they are read.
    void countsGoByThePlace()
    {
        QByteArray text = twoParts();
        text.replace("\n10.00,", "\n10.00,oops\n10.00,");
        const QString path = m_dir.filePath("bad.csv");
        putFile(path, text);
        Deck tape(path);
        for (int i = 0; i < 3; ++i) {
            tape.go({1, 16.9});
            QCOMPARE(tape.source.counts().bad(), qint64(1));
            QCOMPARE(tape.source.counts().lines, qint64(text.count('\n')));
            QCOMPARE(tape.source.counts().readings, qint64(5100));
        }
    }

private:
    QTemporaryDir m_dir;
    QString m_path;
};

CORVALE_QT_TEST_MAIN(tst_TapeDeck)
#include "tst_TapeDeck.moc"
