// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/publishing/ResultFeed.h"
#include "tests/monitor/support/ScriptedSession.h"
#include "tests/support/TestMain.h"

using namespace Monitor;

namespace {

//! What a publication was given last.
struct Given
{
    CorvaleMonitor::ResultStream stream;
    CorvaleMonitor::Results results;
};

struct KeepingPublication : CorvaleMonitor::Publication
{
    explicit KeepingPublication(Given &kept)
        : given(kept)
    {
    }
    void begin(const CorvaleMonitor::ResultStream &stream) override { given.stream = stream; }
    void publish(const CorvaleMonitor::Results &results) override { given.results = results; }

    Given &given;
};

ResultInput resultsOf(Session &session)
{
    return {[&session]() -> const Source & { return session.source(); },
            [&session]() -> const StreamStatistics & { return session.statistics(); },
            [&session] { return session.rate(); }, [&session] { return session.isStale(); }};
}

} // namespace

//! Which results a publication is given of what a session reads, and when.
class tst_ResultFeed : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    //! A reading keeps its time when it is judged anew, and the only one of the next acquisition takes its place.
    void resultsAreThoseOfTheNewestReading()
    {
        ScriptedSession s;
        Given given;
        const CorvaleMonitor::Results &results = given.results;
        ResultFeed feed(s.clock, std::make_unique<KeepingPublication>(given), resultsOf(s.session));
        s.settle();
        s.begin(1);
        s.source->give(0.0, {7.0});
        feed.flush();
        QVERIFY2(!results.isOverdue, "the source was being connected before the reading");
        QCOMPARE(results.values, QVector<double>{7.0});
        const double arrival = results.time;

        s.clock.advance(10.0);
        feed.setVerdictLimits({});
        s.settle();
        QCOMPARE(results.time, arrival);

        s.source->begin(StreamKind::Channels, 1);
        s.source->give(0.0, {8.0});
        s.settle();
        QCOMPARE(results.values, QVector<double>{8.0});
        QVERIFY(results.time > arrival + 9.0);
    }

    void statesOfValues_data()
    {
        columns<double, int>("value", "state");
        row("normal", 3.0, int(CorvaleMonitor::ChannelState::Normal));
        row("beyond a limit", 5.0, int(CorvaleMonitor::ChannelState::Alarm));
        row("above what the instrument can read", 11.0,
            int(CorvaleMonitor::ChannelState::OverRange));
        row("below what the instrument can read", -11.0,
            int(CorvaleMonitor::ChannelState::OverRange));
    }
    void statesOfValues()
    {
        QFETCH(double, value);
        ScriptedSession s;
        Given given;
        ResultFeed feed(s.clock, std::make_unique<KeepingPublication>(given), resultsOf(s.session));
        s.session.start();
        StreamHeader header;
        header.channels = {{"halo", "nA"}};
        header.rangeLow = -10.0;
        header.rangeHigh = 10.0;
        Corvale_Qt::ChannelLimits limits;
        limits.highAlarm = 4.0;
        QVERIFY(header.setLimits("halo", limits));
        s.source->begin(header);
        s.source->give(0.0, {value});
        s.settle();
        QCOMPARE(int(given.results.states.value(0)), cell<int>("state"));
    }

    //! The fit adds up the charges of cells, but charges per length over a length.
    void unitOfTheIntegral_data()
    {
        columns<bool, QString>("density", "unit");
        row("charges of strips", false, "nC");
        row("charges per length", true, "");
    }
    void unitOfTheIntegral()
    {
        QFETCH(bool, density);
        QFETCH(QString, unit);
        ScriptedSession s;
        Given given;
        ResultFeed feed(s.clock, std::make_unique<KeepingPublication>(given), resultsOf(s.session));
        s.session.start();
        StreamHeader header;
        header.kind = StreamKind::Strips;
        header.channels = StreamHeader::stripChannels(8, 0);
        for (Channel &channel : header.channels)
            channel.unit = "nC";
        Corvale_Qt::DetectorDescription strips;
        strips.kind = Corvale_Qt::DetectorKind::Strips;
        strips.x.cells = 8;
        strips.density = density;
        header.setDetector(Corvale_Qt::DetectorLayout::fromDescription(strips));
        QCOMPARE(header.detectorFault.shown(), QString());
        s.source->begin(header);
        s.source->give(0.0, {0, 1, 4, 9, 9, 4, 1, 0});
        s.settle();
        QVERIFY(given.results.x.integral > 0.0);
        QCOMPARE(given.stream.integralUnit, unit);
    }
};

CORVALE_QT_TEST_MAIN(tst_ResultFeed)
#include "tst_ResultFeed.moc"
