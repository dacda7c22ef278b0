// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CsvReader.h"
#include "monitor/input/SpotFile.h"
#include "monitor/readings/SpotReport.h"
#include "monitor/readings/StreamDetector.h"
#include "monitor/statistics/BeamEstimates.h"
#include "monitor/statistics/StatisticsReport.h"
#include "monitor/statistics/StreamStatistics.h"
#include "tests/support/Files.h"
#include "tests/support/RealReadings.h"
#include "tests/support/TestMain.h"

#include <random>
#include <vector>

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
        m_block.clear(header.valuesPerReading());
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

//! Returns numbers of an object with three digits, and texts as they are.
QString valuesOf(const QJsonValue &object, const char *keys)
{
    QStringList texts;
    for (const QString &key : QString(keys).split(' ')) {
        const QJsonValue value = object[key];
        texts += value.isDouble() ? QString::number(value.toDouble(), 'g', 3) : value.toString("-");
    }
    return texts.join(' ');
}

//! Returns the words of the first line of a text that begins with some, with three digits where they are numbers.
QString wordsOf(const QString &text, const QString &beginning)
{
    for (const QString &line : text.split('\n')) {
        QStringList words = line.simplified().split(' ');
        if (!line.simplified().startsWith(beginning))
            continue;
        for (QString &word : words) {
            bool isNumber = false;
            const double number = word.toDouble(&isNumber);
            word = isNumber ? QString::number(number, 'g', 3) : word;
        }
        return words.join(' ');
    }
    return {};
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
        statistics.add(9, qInf());
        QCOMPARE(statistics.coveredTime(), 7.0);
        QCOMPARE(statistics.count(), qint64(8));
        QCOMPARE(statistics.mean(), 5.0);
        QCOMPARE(statistics.populationSigma(), 2.0);
        QCOMPARE(statistics.sigma(), std::sqrt(32.0 / 7.0));
        QCOMPARE(statistics.minimum(), 2.0);
        QCOMPARE(statistics.maximum(), 9.0);
        QCOMPARE(statistics.integral(), 34.5);
    }

    //! Four channels are counted together; the numbers are those of each alone, to the last bit, also around what is missing.
    void rowsAreCountedAsOneByOne()
    {
        constexpr int channels = 9, rows = 200, gapBefore = 120;
        StreamHeader header;
        header.channels.resize(channels);
        StreamStatistics statistics;
        statistics.startStream(header);
        std::vector<RunningStatistics> alone(channels);
        std::mt19937 random(1);
        ReadingBlock block(channels);
        for (int row = 0; row < rows; ++row) {
            const double time = 0.1 * row + (row < gapBefore ? 0.0 : 5.0);
            double values[channels];
            for (double &value : values)
                value = double(random()) / 1e7 - 200.0;
            if (row == 40)
                values[5] = qQNaN();
            if (row == 90)
                values[2] = -qInf();
            block.append(time, values);
            for (int i = 0; i < channels; ++i) {
                if (row == gapBefore)
                    alone[i].interrupt();
                alone[i].add(time, values[i]);
            }
            if (row % 70 != 69 && row != rows - 1)
                continue;
            statistics.addReadings(block);
            block.clear(channels);
        }
        QCOMPARE(statistics.gaps(), qint64(1));
        const auto numbers = [](const RunningStatistics &of) {
            return QVector<double>{
                double(of.count()), of.mean(), of.sigma(),    of.minimum(),
                of.maximum(),       of.sum(),  of.integral(), of.coveredIntegral(),
                of.coveredTime()};
        };
        for (int i = 0; i < channels; ++i)
            QVERIFY2(numbers(statistics.channel(i)) == numbers(alone[i]),
                     qPrintable(QString::number(i)));
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
        const double holes[] = {qInf(), qQNaN(), 3};
        QCOMPARE(text(FrameMoments::of(holes, 1, 3)), QString("3, most in 1 3, at 1 3, width 0"));
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

    void excursionsAreListed()
    {
        StreamHeader header;
        header.channels = StreamHeader::defaultChannels(StreamKind::Channels, 2);
        Corvale_Qt::ChannelLimits limits;
        limits.highWarning = 10.0;
        limits.highAlarm = 20.0;
        header.setLimits("ch2", limits);
        StreamStatistics statistics;
        statistics.startStream(header);
        const auto give = [&](const QVector<double> &readings) {
            ReadingBlock block(2);
            for (const double reading : readings) {
                const double row[] = {100.0, reading};
                block.append(double(statistics.readings() + block.size()), row);
            }
            statistics.addReadings(block);
        };
        const auto excursions = [&](int channel) {
            QStringList texts;
            for (const auto &each : statistics.limitLog().excursions(channel))
                texts.append(QString("%1..%2: %3").arg(each.began).arg(each.ended).arg(each.worst));
            return texts.join(", ");
        };
        give({0, 25, 5, 15});
        QCOMPARE(excursions(0), QString());
        QCOMPARE(excursions(1), QString("1..2: 25, 3..nan: 15"));
        QCOMPARE(int(statistics.limitLog().takeChanges().size()), 3);
        // Other limits cut an excursion short; the same ones leave it alone.
        statistics.setLimits(statistics.header().limits);
        give({16});
        limits.highWarning = 12.0;
        header.setLimits("ch2", limits);
        statistics.setLimits(header.limits);
        give({17, 3});
        QCOMPARE(excursions(1), QString("1..2: 25, 3..4: 16, 5..6: 17"));
        // No number of excursions fills the memory.
        QVector<double> restless;
        for (int i = 0; i < 2500; ++i)
            restless << 30.0 << 0.0;
        give(restless);
        QCOMPARE(statistics.limitLog().excursions(1).size(), LimitLog::mostExcursions);
        QCOMPARE(statistics.limitLog().excursionCount(1), qint64(2503));
        QVERIFY(statistics.limitLog().takeChanges().size() <= LimitLog::mostChanges);
        QCOMPARE(statistics.limitLog().takeUnlisted(), qint64(2 + 5000 - 1000));
    }

    void theReportNamesEachNumber()
    {
        StreamHeader header;
        header.channels = StreamHeader::defaultChannels(StreamKind::Channels, 1);
        Corvale_Qt::ChannelLimits limits;
        limits.lowAlarm = -4.0;
        limits.lowWarning = -3.0;
        limits.highWarning = 4.5;
        limits.highAlarm = 6.25;
        header.setLimits("ch1", limits);
        StreamStatistics statistics;
        statistics.startStream(header);
        ReadingBlock block(1);
        double value = 0.0;
        for (const double time : {0.0, 1.0, 2.0, 3.0, 6.5, 7.5, 8.5, 20.0, 21.0}) {
            value += 1.0;
            block.append(time, &value);
        }
        statistics.addReadings(block);
        StatisticsReport report;
        report.statistics = &statistics;
        report.estimates.leftOut.count = 2;
        report.estimates.leftOut.sum = 7.5;
        const QJsonObject json = QJsonDocument::fromJson(report.json()).object();
        const QJsonValue channel = json["channels"][0];
        QCOMPARE(valuesOf(channel,
                          "n mean sigma sigma_population min max integral covered_integral "
                          "covered_time excursion_count"),
                 QString("9 5 2.74 2.58 1 9 130 28 6 1"));
        QCOMPARE(valuesOf(channel["limits"], "low_alarm low_warning high_warning high_alarm"),
                 QString("-4 -3 4.5 6.25"));
        QCOMPARE(valuesOf(channel["excursions"][0], "state limit began ended worst"),
                 QString("high alarm 6.25 6.5 - 9"));
        QCOMPARE(valuesOf(json["detector"], "left_out_readings left_out_sum"), QString("2 7.5"));
        const QString text = report.text();
        QCOMPARE(wordsOf(text, "ch1 -"), QString("ch1 - 9 5 2.74 1 9 130 28 6"));
        QCOMPARE(wordsOf(text, "ch1 high"), QString("ch1 high alarm 6.5 lasts 9"));
    }

    //! A Gaussian with widths of 3 and 1.5 cells along axes that are turned by 30 degrees.
    void theReportNamesEachNumberOfAFrame()
    {
        StreamHeader header;
        header.setFrames(Corvale_Qt::DetectorLayout::fromDescription(countedMatrix(30, 40)), "nC");
        StreamStatistics statistics;
        statistics.startStream(header);
        std::vector<double> frame;
        for (int row = 1; row <= 30; ++row) {
            for (int column = 1; column <= 40; ++column) {
                const double x = column - 18.3, y = row - 14.7;
                const double along = x * std::sqrt(0.75) + y / 2;
                const double across = y * std::sqrt(0.75) - x / 2;
                frame.push_back(std::exp(-along * along / 18 - across * across / 4.5));
            }
        }
        ReadingBlock block(1200);
        block.append(0.5, frame.data());
        statistics.addReadings(block);
        StatisticsReport report;
        report.statistics = &statistics;
        report.estimates = estimatesOfLastReading(statistics);
        const QJsonObject json = QJsonDocument::fromJson(report.json()).object();
        const QString moments = "28.3 0.967 15 19 18.3 14.7 2.7 1.98";
        QCOMPARE(valuesOf(json["frames"][0],
                          "total max max_row max_col centroid_col centroid_row rms_col rms_row"),
                 moments);
        QCOMPARE(valuesOf(json["image"],
                          "mean_x mean_y sigma_x sigma_y sigma_major sigma_minor rotation_degrees"),
                 QString("18.3 14.7 2.7 1.98 3 1.5 30"));
        const QString text = report.text();
        QVERIFY(text.contains("Moments of the frames"));
        QCOMPARE(wordsOf(text, "0.5"), "0.5 " + moments);
        QVERIFY(wordsOf(text, "28.2").endsWith(" 18.3 14.7 2.7 1.98 3 1.5"));
        const QJsonValue fit = json["estimates"][3];
        QVERIFY(valuesOf(fit, "plane estimator position").startsWith("x least_squares 18.3"));
        QCOMPARE(wordsOf(text, "x least_squares"),
                 valuesOf(fit, "plane estimator position position_error sigma sigma_error unit"));
    }

    void gapsAreJudgedByTheUsualStep_data()
    {
        // The steps are given as "count x seconds".
        tableFrom(R"(
            | QString steps | int gaps
            until another rate is believed             | 500x0.001 500x1 | 8
            another rate of readings in pairs          | 500x0.001 20x1,0 | 8
            after readings that waited                 | 9x0.0001 50x0.1 | 0
            after readings that waited, twice          | 4x0.0001 1x0.1 4x0.0001 50x0.1 | 0
            after readings of one time                 | 5x0 50x0.1 | 0
            after the end of an outage                 | 1x50 50x0.1 1x50 | 1
            soon after the end of an outage            | 1x50 5x0.1 1x1 | 1
            after two steps                            | 2x1 1x3.1 | 1
            of a step that is just no gap              | 2x1 1x2.9 | 0
            in pairs                                   | 100x0.1,0.0001 1x1 | 1
            in microseconds                            | 100x1e-6 1x1e-5 | 1
        )");
    }
    void gapsAreJudgedByTheUsualStep()
    {
        QFETCH(QString, steps);
        QFETCH(int, gaps);
        StreamStatistics statistics;
        StreamHeader header;
        header.channels = StreamHeader::defaultChannels(StreamKind::Channels, 1);
        statistics.startStream(header);
        ReadingBlock block(1);
        const double value = std::nan("");
        double time = 0.0;
        block.append(time, &value);
        for (const QString &some : steps.split(' '))
            for (int i = 0; i < some.section('x', 0, 0).toInt(); ++i)
                for (const QString &step : some.section('x', 1).split(','))
                    block.append(time += step.toDouble(), &value);
        statistics.addReadings(block);
        QCOMPARE(statistics.gaps(), qint64(gaps));
        QCOMPARE(statistics.channel(0).coveredTime(), 0.0); // without a reading there is none
    }

    void spotsAgainstAPlan_data()
    {
        // Lists of spots, a line each, with the names of the columns in the first one.
        tableFrom(R"(
            | QByteArray planned | QByteArray measured | errors | doses
            by their places                  | x_mm,y_mm,mu\n0,0,10\n30,0,10\n | x_mm,y_mm,mu\n30.5,0,10\n0.5,0,10\n70,0,1\n
                | 2 spots: mean X 0.500, Y 0.000 mm; sigma X 0.000, Y 0.000 mm; worst 0.500 mm (row 1); 0 outside 1 x 1 mm
                | 0 missing (0 MU), 1 extra (1 MU); total dose 21 MU of 20 MU; largest difference of a spot 0 MU
            planned and measured in one list |  | x_mm,y_mm,mu,x_planned_mm,y_planned_mm,mu_planned\n1,0,9,0,0,10\n5,5,1,,,\n
                | 1 spot: mean X 1.000, Y 0.000 mm; sigma X -, Y - mm; worst 1.000 mm (row 1); 0 outside 1 x 1 mm
                | 0 missing (0 MU), 1 extra (1 MU); total dose 10 MU of 10 MU; largest difference of a spot -1 MU
        )");
        const QByteArray names = "spot,x_mm,y_mm,mu\n";
        row("by their numbers, however far they are off",
            names + "1,0,0,10\n2,50,0,10\n3,90,0,10\n", names + "1,1,0,10\n2,50,2,9\n7,90,0,5\n",
            "2 spots: mean X 0.500, Y 1.000 mm; sigma X 0.707, Y 1.414 mm; worst 2.000 mm (row 2, "
            "spot 2); 1 outside 1 x 1 mm",
            "1 missing (10 MU), 1 extra (5 MU); total dose 24 MU of 30 MU; largest difference of a "
            "spot -1 MU");
        row("the same number again, in the order of the rows", names + "1,0,0,10\n1,50,0,20\n",
            names + "1,1,0,10\n1,51,0,20\n",
            "2 spots: mean X 1.000, Y 0.000 mm; sigma X 0.000, Y 0.000 mm; worst 1.000 mm (row 1, "
            "spot 1); 0 outside 1 x 1 mm",
            "0 missing (0 MU), 0 extra (0 MU); total dose 30 MU of 30 MU; largest difference of a "
            "spot 0 MU");
        row("a spot without a place", names + "1,0,0,10\n", names + "1,nan,0,10\n",
            "no spot lies where one is planned",
            "1 missing (10 MU), 0 extra (0 MU); total dose 0 MU of 10 MU; largest difference of a "
            "spot 0 MU; 1 spot without a place, a dose or a width is not compared");
    }
    void spotsAgainstAPlan()
    {
        QFETCH(QByteArray, planned);
        QTemporaryDir dir;
        const auto list = [&dir](const QByteArray &text) {
            putFile(dir.filePath("spots.csv"), text);
            QString error;
            SpotRows spots = spotsFromFile(dir.filePath("spots.csv"), &error);
            if (!error.isEmpty())
                qWarning("%s", qPrintable(error));
            return spots;
        };
        SpotReport report;
        report.toleranceX = report.toleranceY = 1.0;
        const SpotRows spots = list(cell<QByteArray>("measured"));
        report.errors =
            planned.isEmpty() ? SpotErrors::ofOneList(spots) : SpotErrors::of(spots, list(planned));
        QCOMPARE(SpotErrors::isPlanned(spots.header), planned.isEmpty());
        QTEST(report.positions(), "errors");
        QTEST(report.doses(), "doses");
    }

    //! A real plan, moved by (0.3, -0.2) mm.
    void aMovedPlanReadsItsShift()
    {
        const QString path = dataPath("dcpt-spot-plans/plan01_spots.csv");
        if (!QFile::exists(path))
            QSKIP("the folder of real readings is not there");
        QString error;
        const SpotRows plan = spotsFromFile(path, &error);
        QCOMPARE(error, QString());
        SpotRows moved = plan;
        moved.readings.clear(plan.readings.channels());
        for (int row = 0; row < plan.size(); ++row) {
            const double *values = plan.readings.values(row);
            std::vector<double> spot(values, values + plan.readings.channels());
            spot[std::size_t(plan.header.indexOf("x"))] += 0.3;
            spot[std::size_t(plan.header.indexOf("y"))] -= 0.2;
            moved.readings.append(row, spot.data());
        }
        const SpotErrors errors = SpotErrors::of(moved, plan);
        const Corvale_Qt::PositionErrorStatistics is = errors.statistics(1.0, 1.0);
        QCOMPARE(is.spots, 6069);
        QVERIFY(std::abs(is.meanX - 0.3) < 1e-9 && std::abs(is.meanY + 0.2) < 1e-9);
        QVERIFY(is.sigmaX < 1e-9 && is.outside == 0);
        QVERIFY(std::abs(errors.differences.targetDose - 41806.74) < 0.01);
    }

    //! A Gaussian of charge 1, integrated over each cell.
    void framesGiveTheNumbersOfTheirChannels()
    {
        StreamHeader header;
        header.setFrames(Corvale_Qt::DetectorLayout::fromDescription(countedMatrix(20, 30)), "nC");
        StreamStatistics statistics;
        statistics.startStream(header);
        const auto share = [](double cell, double mean, double sigma) {
            const auto below = [&](double edge) {
                return std::erf((edge - mean) / (sigma * M_SQRT2)) / 2;
            };
            return below(cell + 0.5) - below(cell - 0.5);
        };
        std::vector<double> frame;
        for (int row = 1; row <= 20; ++row)
            for (int column = 1; column <= 30; ++column)
                frame.push_back(share(column, 12.0, 2.0) * share(row, 9.5, 1.5));
        ReadingBlock block(600);
        block.append(0.5, frame.data());
        statistics.addReadings(block);
        QCOMPARE(statistics.frameNumbers().size(), 1);
        const double *numbers = statistics.frameNumbers().values(0);
        QStringList text;
        for (int i = 0; i < header.channels.size(); ++i)
            text += header.channels[i].name + ' ' + QString::number(numbers[i], 'f', 2);
        QCOMPARE(text.join(' '),
                 QString("sum 1.00 max 0.05 x 12.00 sigma_x 2.00 y 9.50 sigma_y 1.50"));
        QCOMPARE(statistics.channel(0).count(), qint64(1));
        QCOMPARE(statistics.frames().front().moments.maximumColumn, 12);
        QVERIFY(estimatesOfLastReading(statistics).image.isOk());
    }

    /*! Projections of a camera's image as strips: positions and widths of fits that another program made. Their background has a
        slope, which a fit with a constant one turns into a bias of position. */
    void equalsTheReferenceOfTheProjections()
    {
        const QVector<QStringList> table = realReadings("lcls-otr-frames/reference.csv").mid(1);
        if (table.isEmpty())
            QSKIP("the folder of real readings is not there");
        int compared = 0;
        for (const QStringList &row : table) {
            const double time = (row[1].toDouble() - table[0][1].toDouble());
            const StreamStatistics statistics =
                statisticsOf(dataPath("lcls-otr-frames/projections_350x262.csv"), time, time);
            QCOMPARE(statistics.readings(), qint64(1));
            for (const PlaneEstimate &plane : estimatesOfLastReading(statistics).planes) {
                if (!plane.estimator.startsWith("least_squares"))
                    continue;
                const bool linear = plane.estimator == "least_squares_linear";
                const int first = plane.plane == "x" ? 2 : 4;
                // A pixel is counted from 1 here, and from 0 there.
                const double position = row[first].toDouble() + 1.0;
                const double sigma = row[first + 1].toDouble();
                QVERIFY2(std::abs(plane.estimate.position.value - position)
                             < (linear ? 0.002 : 0.13),
                         qPrintable(row[0] + plane.estimator));
                // The reference takes the value in the middle of a pixel, which widens a narrow beam by 0.2 %.
                QVERIFY2(std::abs(plane.estimate.sigma.value / sigma - 1.0)
                             < (linear ? 0.004 : 0.021),
                         qPrintable(row[0] + plane.estimator));
                ++compared;
            }
        }
        QCOMPARE(compared, table.size() * 4);
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
            const QStringList computed = {
                QString::number(is.count()), tenDigits(is.minimum()),
                tenDigits(is.maximum()),     tenDigits(is.mean()),
                tenDigits(is.sigma()),       tenDigits(is.populationSigma()),
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
            const auto six = [](double value) { return QString::number(value, 'f', 6); };
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
