// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CsvReader.h"
#include "monitor/statistics/StreamStatistics.h"
#include "tests/support/RealReadings.h"
#include "tests/support/TestMain.h"

#include <cmath>

using namespace Monitor;

namespace {

//! Fills statistics from a real file, of the readings whose times lie within a window.
class StatisticsSink : public StreamSink
{
public:
    StatisticsSink(double from, double to)
        : m_from(from)
        , m_to(to)
    {
    }
    void streamStarted(const StreamHeader &header) override
    {
        statistics.startStream(header);
        m_block.clear(header.channels.size());
    }
    void reading(double time, const double *values) override
    {
        if (time < m_from || time > m_to)
            return;
        m_block.clear(m_block.channels());
        m_block.append(time, values);
        statistics.addReadings(m_block);
    }
    void eventNoted(const QString &) override { }
    void lineRefused(const RefusedLine &) override { }

    StreamStatistics statistics;

private:
    double m_from;
    double m_to;
    ReadingBlock m_block;
};

QString dataPath(const char *name)
{
    return QStringLiteral(CORVALE_QT_DATA_DIR "/") + QLatin1String(name);
}

StreamStatistics statisticsOf(const QString &path, double from, double to)
{
    StatisticsSink sink(from, to);
    CsvReader reader(sink);
    if (reader.open(path))
        while (reader.read(1000000)) { }
    return sink.statistics;
}

//! Writes a number with ten digits, as the reference table does.
QString tenDigits(double value)
{
    return QString::number(value, 'e', 9);
}

} // namespace

class tst_StreamStatistics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knownNumbers()
    {
        RunningStatistics statistics;
        QVERIFY(std::isnan(statistics.mean()));
        const double values[] = {2, 4, 4, 4, 5, 5, 7, 9};
        for (int i = 0; i < 8; ++i)
            statistics.add(i, values[i]);
        statistics.add(8, std::nan(""));
        QCOMPARE(statistics.coveredTime(), 7.0);
        QCOMPARE(statistics.count(), qint64(8));
        QCOMPARE(statistics.mean(), 5.0);
        QCOMPARE(statistics.populationSigma(), 2.0);
        QCOMPARE(statistics.sigma(), std::sqrt(32.0 / 7.0));
        QCOMPARE(statistics.minimum(), 2.0);
        QCOMPARE(statistics.maximum(), 9.0);
        QCOMPARE(statistics.integral(), 34.5);
    }

    void manyReadingsFarFromZero()
    {
        RunningStatistics statistics;
        for (int i = 0; i < 1000000; ++i)
            statistics.add(i, 1e9 + (i % 2));
        QVERIFY(std::abs(statistics.mean() - (1e9 + 0.5)) < 1e-6);
        QVERIFY(std::abs(statistics.populationSigma() - 0.5) < 1e-6);
    }

    void momentsOfKnownFrames()
    {
        const auto text = [](const FrameMoments &moments) {
            return QString("%1, most in %2 %3, at %4 %5, width %6")
                .arg(moments.total)
                .arg(moments.maximumRow)
                .arg(moments.maximumColumn)
                .arg(moments.centroidRow)
                .arg(moments.centroidColumn)
                .arg(moments.rmsColumn);
        };
        const double oneCell[] = {0, 0, 0, 0, 0, 5};
        QCOMPARE(text(FrameMoments::of(oneCell, 2, 3)), QString("5, most in 2 3, at 2 3, width 0"));
        const double twoCells[] = {1, 0, 1};
        QCOMPARE(text(FrameMoments::of(twoCells, 1, 3)),
                 QString("2, most in 1 1, at 1 2, width 1"));
        const double nothing[] = {0, 0};
        QVERIFY(std::isnan(FrameMoments::of(nothing, 1, 2).centroidColumn));
    }

    void gapsAreCounted()
    {
        StreamStatistics statistics;
        StreamHeader header;
        header.channels = StreamHeader::defaultChannels(StreamKind::Channels, 1);
        statistics.startStream(header);
        ReadingBlock block(1);
        const double value = 1.0;
        for (const double time : {0.0, 1.0, 2.0, 3.0, 6.5, 7.5, 8.5, 20.0, 21.0})
            block.append(time, &value);
        statistics.addReadings(block);
        QCOMPARE(statistics.gaps(), qint64(2));
        QCOMPARE(statistics.channel(0).integral(), 21.0);
        QCOMPARE(statistics.channel(0).coveredIntegral(), 6.0);
        QCOMPARE(statistics.channel(0).coveredTime(), 6.0);
    }

    void anotherRateIsNoGap()
    {
        StreamStatistics statistics;
        StreamHeader header;
        header.channels = StreamHeader::defaultChannels(StreamKind::Channels, 1);
        statistics.startStream(header);
        ReadingBlock block(1);
        const double value = std::nan("");
        for (int i = 0; i < 1000; ++i)
            block.append(i < 500 ? i * 0.001 : i - 499.0, &value);
        statistics.addReadings(block);
        QCOMPARE(statistics.gaps(), qint64(8)); // until the new rate is believed
        QCOMPARE(statistics.channel(0).coveredTime(), 0.0); // without a reading there is none
    }

    //! Compares all digits of a reference that was made with another tool.
    void equalsTheReferenceOfTheCurrents()
    {
        const QVector<QStringList> table =
            realReadings("bonn-proton-sem/reference_stats.csv").mid(1);
        if (table.isEmpty())
            QSKIP("the folder of real readings is not there");
        QCOMPARE(table.size(), 21);
        const QString readings = dataPath("bonn-proton-sem/currents_7ch.csv");
        for (const QStringList &row : table) {
            const double first = row[2].toDouble(), last = row[3].toDouble();
            const StreamStatistics statistics = statisticsOf(readings, first, last);
            const int channel = statistics.header().indexOf(row[1].chopped(2));
            QVERIFY2(channel >= 0, qPrintable(row[1]));
            const RunningStatistics &is = statistics.channel(channel);
            const QStringList computed = {QString::number(is.count()),
                                          tenDigits(is.minimum()),
                                          tenDigits(is.maximum()),
                                          tenDigits(is.mean()),
                                          tenDigits(is.sigma()),
                                          tenDigits(is.populationSigma()),
                                          tenDigits(is.integral())};
            QCOMPARE(computed.join(' '), row.mid(4).join(' '));
        }
    }

    void equalsTheReferenceOfThePixels()
    {
        const QVector<QStringList> table =
            realReadings("lcls-otr-frames/pixels_reference.csv").mid(1);
        if (table.isEmpty())
            QSKIP("the folder of real readings is not there");
        const StreamStatistics statistics =
            statisticsOf(dataPath("lcls-otr-frames/pixels_12x12.csv"), -1e9, 1e9);
        QCOMPARE(int(statistics.frames().size()), table.size());
        for (int i = 0; i < table.size(); ++i) {
            const FrameMoments &is = statistics.frames()[std::size_t(i)].moments;
            const auto six = [](double value) {
                return QString::number(value, 'f', 6);
            };
            const QStringList computed = {QString::number(is.total, 'f', 0),
                                          QString::number(is.maximum, 'f', 0),
                                          QString::number(is.maximumRow),
                                          QString::number(is.maximumColumn),
                                          six(is.centroidColumn),
                                          six(is.centroidRow),
                                          six(is.rmsColumn),
                                          six(is.rmsRow)};
            QCOMPARE(computed.join(' '), table[i].mid(1).join(' '));
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_StreamStatistics)
#include "tst_StreamStatistics.moc"
