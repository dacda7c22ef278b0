// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/tape/CommonTape.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

using namespace Monitor;

namespace {

//! A reading as it is told: the recording, the moment in ms since the beginning of the hour, and the value.
struct Told
{
    int track;
    qint64 moment;
    int value;
    bool operator==(const Told &other) const
    {
        return track == other.track && moment == other.moment && value == other.value;
    }
};

QString textOf(const std::vector<Told> &readings)
{
    QStringList words;
    for (const Told &reading : readings)
        words += QString("%1@%2=%3")
                     .arg(QChar('A' + reading.track))
                     .arg(reading.moment)
                     .arg(reading.value);
    return words.join(' ');
}

//! A recording of which t = 0 was this many ms after the hour; undated below 0. Times are in ms.
QByteArray recording(int origin, const std::vector<int> &times, const QByteArray &events = {})
{
    QByteArray text = "#corvale 1\n#channels a\n#unit nA\n";
    if (origin >= 0)
        text += "#t0 2026-11-22T14:00:" + QByteArray::number(origin / 1000).rightJustified(2, '0')
            + '.' + QByteArray::number(origin % 1000).rightJustified(3, '0') + "Z\n";
    for (std::size_t i = 0; i < times.size(); ++i)
        text += (i == 1 ? events : QByteArray()) + QByteArray::number(times[i] * 1e-3, 'f', 3) + ','
            + QByteArray::number(int(i)) + '\n';
    return text;
}

//! Recordings on a tape, and what they told in the order in which they told it.
struct Played
{
    Played(const QTemporaryDir &dir, const std::vector<QByteArray> &texts,
           const CommonTape::Options &options)
    {
        std::vector<CommonTape::Recording> recordings;
        for (const QByteArray &text : texts) {
            const auto track = int(sources.size());
            const QString path = dir.filePath(QString("%1.csv").arg(QChar('A' + track)));
            putFile(path, text);
            sources.push_back(std::make_unique<FileSource>(clock, path, FileSource::Options()));
            listen(track);
            recordings.push_back({QString(QChar('A' + track)), sources.back().get()});
        }
        tape = std::make_unique<CommonTape>(recordings, options, clock, dir.filePath("decks"));
        for (const auto &source : sources)
            source->start();
        while (!tape->isIndexed() && tape->indexError().isEmpty())
            clock.advance(0.0);
    }
    void listen(int track)
    {
        FileSource *source = sources.back().get();
        QObject::connect(source, &Source::readingsArrived, &clock, [=](const ReadingBlock &block) {
            for (int row = 0; row < block.size(); ++row) {
                // A source that plays by itself is not placed.
                const auto placed = source->placedOrigin().value_or(Source::PlacedOrigin{});
                const double origin = placed.seconds;
                const double hour = placed.isDated ? 1795356000.0 : 0.0;
                told.push_back({track, qRound64((origin - hour + block.time(row)) * 1000.0),
                                int(block.values(row)[0])});
            }
        });
        QObject::connect(source, &Source::jumped, &clock, [=] { forget(track); });
        QObject::connect(source, &Source::streamStarted, &clock,
                         [=] { headers += QChar('A' + track); });
        QObject::connect(source, &Source::noted, &clock, [=](const QString &text) {
            notes += QString("%1 after %2: %3").arg(QChar('A' + track)).arg(told.size()).arg(text);
        });
    }
    void forget(int track)
    {
        told.erase(std::remove_if(told.begin(), told.end(),
                                  [=](const Told &reading) { return reading.track == track; }),
                   told.end());
    }
    //! Lets the tape play to its end, or for this many seconds at most.
    void run(double seconds, double step = 0.02)
    {
        const int steps = qCeil(seconds / step);
        for (int gone = 0; gone < steps && tape->isPlaying(); ++gone) {
            clock.advance(step);
            QCoreApplication::processEvents(); // of a tape that plays as fast as possible
        }
    }
    void go(double position)
    {
        tape->seek(position);
        clock.advance(0.0);
    }

    ManualClock clock;
    std::vector<std::unique_ptr<FileSource>> sources;
    std::unique_ptr<CommonTape> tape;
    std::vector<Told> told;
    QString headers;
    QStringList notes;
};

//! Recordings with random times, some of them at the same moments, and all their readings sorted by moment and recording.
struct Random
{
    explicit Random(unsigned seed)
    {
        QRandomGenerator random(seed);
        for (int track = 0; track < 3; ++track) {
            const int origin = random.bounded(40) * 100;
            std::vector<int> times;
            int time = random.bounded(20) * 50;
            for (int i = random.bounded(1, 120); i > 0; --i, time += random.bounded(4) * 50)
                times.push_back(time);
            texts.push_back(recording(origin, times));
            for (std::size_t i = 0; i < times.size(); ++i)
                all.push_back({track, origin + times[i], int(i)});
        }
        std::stable_sort(all.begin(), all.end(), [](const Told &a, const Told &b) {
            return std::tie(a.moment, a.track) < std::tie(b.moment, b.track);
        });
    }
    std::vector<QByteArray> texts;
    std::vector<Told> all;
};

CommonTape::Options at(double speed)
{
    CommonTape::Options options;
    options.speed = speed;
    return options;
}

} // namespace

//! Several recordings on one tape. The order in which they are played is compared with that of all their readings, sorted.
class tst_CommonTape : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void allReadingsInTheOrderOfTheirMoments_data()
    {
        columns<double>("speed");
        row("as they were taken", 1.0);
        row("50 times as fast", 50.0);
        row("as fast as possible", 0.0);
    }
    void allReadingsInTheOrderOfTheirMoments()
    {
        for (unsigned seed = 0; seed < 6; ++seed) {
            const Random random(seed);
            Played played(m_dir, random.texts, at(cell<double>("speed")));
            played.run(60.0);
            QCOMPARE(textOf(played.told), textOf(random.all));
            for (const auto &source : played.sources)
                QCOMPARE(source->state(), Source::State::Finished);
        }
    }

    void readingsComeWhenTheCommonClockReachesThem()
    {
        const Random random(7);
        Played played(m_dir, random.texts, at(2.0));
        const qint64 first = random.all.front().moment;
        for (int tick = 1; tick < 200; ++tick) {
            played.clock.advance(0.02503); // no reading lies on a tick
            const double due = double(first) + tick * 50.06;
            const auto expected =
                std::count_if(random.all.begin(), random.all.end(),
                              [&](const Told &reading) { return double(reading.moment) <= due; });
            QCOMPARE(qint64(played.told.size()), qint64(expected));
        }
    }

    void aPlaceIsThatOfAll()
    {
        const Random random(11);
        Played played(m_dir, random.texts, at(1.0));
        played.tape->pause();
        const qint64 first = random.all.front().moment;
        for (const double position : {2.025, 0.325, 100.0, 1.125, 0.0, 3.975}) {
            played.go(position);
            std::vector<Told> expected;
            for (int track = 0; track < 3; ++track) // each is read for itself
                std::copy_if(random.all.begin(), random.all.end(), std::back_inserter(expected),
                             [&](const Told &reading) {
                                 return reading.track == track
                                     && double(reading.moment - first) <= position * 1000.0 + 0.5;
                             });
            QCOMPARE(textOf(played.told), textOf(expected));
        }
        // Step by step, from the beginning to the end and back; readings of one moment are one step.
        played.go(0.0);
        std::vector<double> there{played.tape->position()};
        for (int i = 0; i < 400 && played.told.size() < random.all.size(); ++i) {
            played.tape->stepForwards();
            there.push_back(played.tape->position());
        }
        QCOMPARE(played.told.size(), random.all.size());
        for (auto position = there.rbegin() + 1; position != there.rend(); ++position) {
            played.tape->stepBackwards();
            QVERIFY(std::abs(played.tape->position() - *position) < 1e-9);
        }
    }

    //! Time passes where none of the recordings has readings; it is a gap where those that lie there have one.
    void timePassesInAGapOfAll()
    {
        const QByteArray withGap = recording(0, {0, 100, 200, 300, 400, 5000});
        for (const bool others : {false, true}) {
            const QByteArray second =
                recording(0, others ? std::vector<int>{50, 4000} : std::vector<int>{50, 450});
            Played played(m_dir, {withGap, second}, at(1.0));
            played.run(3.0);
            QVERIFY(std::abs(played.tape->position() - 3.0) < 0.03);
            QCOMPARE(played.tape->readout().isInGap, !others);
            played.tape->stepBackwards();
            QCOMPARE(played.tape->position(), others ? 0.3 : 0.4);
        }
    }

    void aStretchIsRepeatedByAll()
    {
        Played played(
            m_dir,
            {recording(0, {0, 1000, 2000, 3000, 4000}), recording(500, {0, 1000, 2000, 9000})},
            at(1.0));
        played.tape->setLoop({0.9, 2.2});
        played.go(0.9);
        played.run(1.29);
        QCOMPARE(textOf(played.told), QString("A@0=0 B@500=0 A@1000=1 B@1500=1 A@2000=2"));
        played.run(0.06); // back at 0.9
        QCOMPARE(textOf(played.told), QString("A@0=0 B@500=0"));
        played.go(2.8); // behind the stretch, which is left then
        played.run(0.3);
        QCOMPARE(played.told.size(), std::size_t(7));
        played.tape->clearLoop();
        played.run(20.0);
        QCOMPARE(played.told.size(), std::size_t(9));
        QVERIFY(!played.tape->isPlaying());
        played.tape->play(); // from the beginning
        played.clock.advance(0.0);
        QCOMPARE(textOf(played.told), QString("A@0=0"));
    }

    void wantedTimesAreThoseOfTheFirst_data()
    {
        columns<double>("speed");
        row("paced", 10.0);
        row("as fast as possible", 0.0);
    }
    void wantedTimesAreThoseOfTheFirst()
    {
        CommonTape::Options options = at(cell<double>("speed"));
        options.from = 1.0;
        options.to = 2.5;
        Played played(
            m_dir,
            {recording(2000, {0, 1000, 2000, 3000}), recording(0, {0, 2900, 3100, 4400, 4600})},
            options);
        played.run(20.0);
        QCOMPARE(textOf(played.told), QString("A@3000=1 B@3100=2 A@4000=2 B@4400=3"));
        QCOMPARE(played.sources[1]->state(), Source::State::Finished);
    }

    void placesInTime_data()
    {
        tableFrom(R"(
            || recordings || told || double length || note
            one that is undated begins with the first || 1000 0 500|- 7000 7200 || A@1000=0 B@1000=0 B@1200=1 A@1500=1 || 0.5
                || B after 0: WARNING the recording does not state when it was taken: it is played from the beginning of the tape
            all are undated                           || - 5000 6000|- 0 300 || A@0=0 B@0=0 B@300=1 A@1000=1 || 1.0 ||
            a short time between them is played       || 0 0 1000|50000 0 400 || A@0=0 A@1000=1 B@50000=0 B@50400=1 || 50.4 ||
        )");
    }
    void placesInTime()
    {
        std::vector<QByteArray> texts;
        for (const QString &text : cell("recordings").split('|')) {
            const QStringList words = text.split(' ');
            const int origin = words[0] == "-" ? -1 : words[0].toInt();
            texts.push_back(recording(origin, {words[1].toInt(), words[2].toInt()}));
        }
        Played played(m_dir, texts, at(0.0));
        played.run(5.0);
        QTEST(textOf(played.told), "told");
        QFETCH(double, length);
        QVERIFY(std::abs(played.tape->length() - length) < 1e-6);
        QFETCH(QString, note);
        QVERIFY(note.isEmpty() || played.notes.contains(note));
    }

    //! Two acquisitions in one file, hours apart, while the other recording covers the first of them only.
    void partsWaitForTheirMoment()
    {
        QByteArray late = recording(10000, {0, 1000, 1500});
        late.replace("T14:", "T18:");
        late.replace("1.500,2", "#event mid\n1.500,2");
        Played played(m_dir, {recording(1000, {0, 1000}) + late, recording(0, {0, 4000})}, at(1.0));
        QCOMPARE(played.headers, QString("AB"));
        QVERIFY(std::abs(played.tape->length() - (4.0 + CommonTimes::shownHole + 1.5)) < 1e-6);
        played.run(4.5);
        QCOMPARE(played.told.size(), std::size_t(4));
        QCOMPARE(played.headers, QString("AB"));
        QVERIFY(played.sources[0]->isHolding()); // not stale: its turn has not come
        played.run(1.0);
        QCOMPARE(played.headers, QString("ABA"));
        QCOMPARE(played.told.back().moment, qint64(4 * 3600 * 1000 + 10000));
        QVERIFY(!played.sources[0]->isHolding());
        played.run(10.0);
        QCOMPARE(played.notes.last(), QString("A after 6: mid"));
        played.told.clear();
        played.go(0.5); // into the part before
        QCOMPARE(textOf(played.told), QString("B@0=0"));
        QVERIFY(played.tape->isPlaying());
        // The marks and the lanes of both lie where their readings do.
        const TapeSurvey &survey = played.tape->survey();
        QCOMPARE(survey.lanes[0].covered.size(), 2);
        QCOMPARE(survey.marks.last().name, QString("A"));
        QVERIFY(std::abs(survey.marks.last().position - 6.0) < 1e-6);
        QVERIFY(std::abs(played.tape->readoutAt(5.5).time - (4 * 3600 + 9.5))
                < 1e-6); // as the first part counts
        QCOMPARE(played.tape->readoutAt(5.5).moment,
                 QDateTime({2026, 11, 22}, {18, 0, 10, 500}, Qt::UTC));
    }

    //! The clock of the instrument was set back while it restarted, by less than the acquisition before had taken.
    void partsThatOverlapFollowEachOther()
    {
        Played played(m_dir,
                      {recording(1000, {0, 100, 200}) + recording(1100, {0, 100}),
                       recording(1000, {0, 250, 1000})},
                      at(0.0));
        QVERIFY(played.notes.value(0).startsWith("A after 0: WARNING 1 part of"));
        played.run(5.0);
        QCOMPARE(
            textOf(played.told),
            QString("A@1000=0 B@1000=0 A@1100=1 A@1200=2 B@1250=1 A@1300=0 A@1400=1 B@2000=2"));
    }

    void everythingIsRepeated()
    {
        CommonTape::Options options = at(1.0);
        options.repeats = true;
        options.from = 0.4;
        Played played(m_dir, {recording(0, {0, 500, 900}), recording(300, {0, 200, 700})}, options);
        played.run(0.55);
        QCOMPARE(textOf(played.told), QString("A@500=1 B@500=1 A@900=2"));
        played.run(0.1); // the last one, then what lies before the beginning
        QCOMPARE(textOf(played.told), QString("A@0=0 B@300=0"));
        played.run(0.2);
        QCOMPARE(textOf(played.told), QString("A@0=0 B@300=0 A@500=1 B@500=1"));
    }

    //! A person opens a recording, goes on in it, pauses, and adds another one.
    void oneThatIsAddedJoinsAtThePresentPlace()
    {
        Played played(m_dir, {recording(0, {0, 1000, 2000, 3000})}, at(1.0));
        played.run(1.5);
        played.sources[0]->setPaused(true);
        played.tape.reset();
        const QString path = m_dir.filePath("added.csv");
        putFile(path, recording(500, {0, 400, 1000}));
        played.sources.push_back(
            std::make_unique<FileSource>(played.clock, path, FileSource::Options()));
        played.listen(1);
        played.tape = std::make_unique<CommonTape>(
            std::vector<CommonTape::Recording>{{"A", played.sources[0].get()},
                                               {"B", played.sources[1].get()}},
            at(1.0), played.clock, m_dir.filePath("decks"));
        played.sources[1]->start();
        while (!played.tape->isIndexed())
            played.clock.advance(0.0);
        QVERIFY(!played.tape->isPlaying());
        QCOMPARE(textOf(played.told), QString("A@0=0 A@1000=1 B@500=0 B@900=1"));
        QCOMPARE(played.tape->position(), 1.0);
    }

    void whatGoesOrCannotBeRead()
    {
        Played played(m_dir,
                      {recording(0, {0, 1000, 2000}), "#corvale 1\n", recording(0, {500, 1500})},
                      at(1.0));
        QCOMPARE(played.sources[1]->state(), Source::State::Failed);
        QVERIFY(played.sources[1]->stateText().contains("it contains no readings"));
        played.run(0.7);
        played.sources[0].reset();
        played.run(10.0);
        QCOMPARE(textOf(played.told), QString("A@0=0 C@500=0 C@1500=1"));
        played.go(0.0);
        FileSource &last = *played.sources[2];
        played.tape.reset();
        QVERIFY(!last.isLed());
        for (int i = 0; i < 60; ++i)
            played.clock.advance(0.02);
        QCOMPARE(played.told.size(), std::size_t(3)); // it goes on by itself
    }

private:
    QTemporaryDir m_dir;
};

CORVALE_QT_TEST_MAIN(tst_CommonTape)
#include "tst_CommonTape.moc"
