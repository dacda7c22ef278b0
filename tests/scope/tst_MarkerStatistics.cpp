// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/scope/MarkerStatistics_p.h"
#include "corvale_qt/scope/SpanIntegral_p.h"
#include "corvale_qt/scope/TimeGaps_p.h"
#include "tests/scope/ScopeTestModel.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

#include <random>

using namespace Corvale_Qt;

namespace {

//! Rows at these times, whose reading is a straight line over time.
void appendTimes(ScopeTestModel &model, const QVector<double> &times)
{
    QVector<ScopeTestModel::Row> rows;
    for (double time : times)
        rows.append({time, 2.0 * time + 1.0});
    model.append(rows);
}

//! Returns times that lie \a interval apart, beginning that long after \a last.
QVector<double> steps(double last, int count, double interval)
{
    QVector<double> times;
    for (int i = 1; i <= count; ++i)
        times.append(last + i * interval);
    return times;
}

//! Returns the rows before which readings are missing: "12 40".
QString gapsIn(const TimeGaps &gaps, RowRange rows)
{
    QStringList found;
    gaps.forEach(rows, [&](int row) {
        found.append(QString::number(row));
    });
    return found.join(' ');
}

//! Returns the gaps of rows at these times, for three usual intervals.
QString gapsAt(const QVector<double> &times)
{
    ScopeTestModel model(1);
    appendTimes(model, times);
    TimeGaps gaps;
    gaps.setIntervals(3.0);
    gaps.update(PlotColumnReader(&model), times.size());
    return gapsIn(gaps, {1, times.size()});
}

} // namespace

class tst_MarkerStatistics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void agreeWithSumsInWiderPrecision_data()
    {
        columns<double, double>("level", "ripple");
        row("current of a beam", 1e-7, 3e-8);
        row("noise around zero", 0.0, 1e-12);
        row("ripple on a large value", 1e6, 1e-4);
    }
    void agreeWithSumsInWiderPrecision()
    {
        QFETCH(double, level);
        QFETCH(double, ripple);
        std::mt19937 random(3);
        ScopeTestModel model(2);
        model.appendRows(5000, 1.0, [&](int, double) {
            return level + ripple * (random() / 2147483648.0 - 1.0);
        });
        const RowRange rows{1001, 4500};
        const auto statistics = statisticsOfRows(PlotColumnReader(&model), 2, rows);

        const auto meanOf = [&](const auto &term) {
            long double sum = 0;
            for (int row = rows.first; row <= rows.last; ++row)
                sum += term(static_cast<long double>(model.doubleData(row, 2)));
            return sum / rows.size();
        };
        const long double mean = meanOf([](long double value) {
            return value;
        });
        const long double square = meanOf([](long double value) {
            return value * value;
        });
        const long double variance = meanOf([mean](long double value) {
            return (value - mean) * (value - mean);
        });
        QCOMPARE(statistics.count(), 3500);
        QCOMPARE(statistics.sum(), double(mean * 3500));
        QCOMPARE(statistics.mean(), double(mean));
        QCOMPARE(statistics.rms(), double(std::sqrt(square)));
        long double products = 0;
        long double squares = 0;
        double low = qInf();
        double high = -qInf();
        for (int row = rows.first; row <= rows.last; ++row) {
            const long double value = model.doubleData(row, 2);
            const long double x = row - 0.5L * (rows.first + rows.last);
            low = qMin(low, double(value));
            high = qMax(high, double(value));
            products += x * (value - mean);
            squares += x * x;
        }
        QCOMPARE(statistics.minimum(), low);
        QCOMPARE(statistics.maximum(), high);
        QVERIFY(qAbs(statistics.slope() - double(products / squares)) < 1e-6 * ripple / 1000);
        // In the last row, the formula with squares would leave about six digits.
        const double deviation = double(std::sqrt(variance * 3500 / 3499));
        QVERIFY(qAbs(statistics.standardDeviation() - deviation) < 1e-8 * deviation);
    }

    void gapsAreLongerThanUsualIntervals_data()
    {
        columns<QVector<double>, QString>("times", "before");
        const QVector<double> second = steps(0.0, 100, 1.0);
        row("an even rate", second, "");
        row("two readings are missing", second + steps(102.0, 30, 1.0), "");
        row("three are", second + steps(103.0, 30, 1.0), "101");
        row("an outage at once", QVector<double>{0.0} + steps(500.0, 30, 1.0), "2");
        row("an outage at the end", second + QVector<double>{280.0}, "101");
        row("a reading alone between outages",
            second + steps(200.0, 30, 1.0).mid(0, 1) + steps(400.0, 30, 1.0),
            "101 102");
        row("too few to say", QVector<double>{0.0, 1.0, 2.0, 50.0}, "");
        row("a slower instrument takes over", second + steps(100.0, 100, 60.0), "");
        row(
            "readings that come in blocks",
            [] {
                QVector<double> times;
                for (int i = 0; i < 400; ++i)
                    times.append(i / 10 * 0.5);
                return times;
            }(),
            "");
        row("time steps back far", second + steps(10.0, 50, 1.0), "101");
        row("a time that is no number",
            second + QVector<double>{qQNaN()} + steps(101.0, 9, 1.0),
            "");
    }
    void gapsAreLongerThanUsualIntervals()
    {
        QFETCH(QVector<double>, times);
        QTEST(gapsAt(times), "before");
    }

    //! However the rows came and whatever has left the model, the rows that are judged for good are the same.
    void gapsStayWhileRowsRollOn()
    {
        std::mt19937 random(11);
        ScopeTestModel rolling(1, 300);
        TimeGaps gaps;
        gaps.setIntervals(3.0);
        QObject::connect(&rolling,
                         &QAbstractItemModel::rowsInserted,
                         [&](QModelIndex, int first, int) {
                             gaps.rowsInserted(first);
                         });
        QObject::connect(&rolling,
                         &QAbstractItemModel::rowsRemoved,
                         [&](QModelIndex, int first, int last) {
                             gaps.rowsRemoved(first, last);
                         });
        QVector<double> all;
        double time = 0.0;
        for (int turn = 0; turn < 200; ++turn) {
            QVector<double> come;
            const int rows = 1 + int(random() % 60);
            for (int i = 0; i < rows; ++i) {
                time += 1.0 + 0.2 * double(random() % 10) + (random() % 25 == 0 ? 20.0 : 0.0);
                come.append(time);
            }
            all += come;
            appendTimes(rolling, come);
            const int last = rolling.rowCount() - 1;
            gaps.update(PlotColumnReader(&rolling), last);
            // Each interval is far from the limit, so that it does not matter which others enter the median.
            QStringList expected;
            const int dropped = all.size() - last;
            for (int i = dropped + 1; i < all.size(); ++i) {
                if (all[i] - all[i - 1] > 10.0)
                    expected.append(QString::number(i - dropped + 1));
            }
            if (last > 10)
                QCOMPARE(gapsIn(gaps, {1, last}), expected.join(' '));
            for (int row = 1; row <= last; ++row)
                QCOMPARE(gaps.isBefore(row), expected.contains(QString::number(row)));
        }
    }

    void integralLeavesGapsOut()
    {
        // The reading is 2 t + 1, whose integral from a to b is b^2 + b - a^2 - a.
        const auto exact = [](double a, double b) {
            return b * b + b - a * a - a;
        };
        ScopeTestModel model(1);
        appendTimes(model, steps(0.0, 2000, 0.5) + steps(1600.0, 3000, 0.5));
        model.append({{3101.0, qQNaN()}, {3102.0, 2.0}, {3103.0, 4.0}});
        const PlotColumnReader reader(&model);
        TimeGaps gaps;
        const auto text = [&](RowRange rows) {
            const SpanIntegral span = SpanIntegral::ofRows(reader, 1, rows, gaps);
            return QString("%1 over %2, %3").arg(span.integral).arg(span.covered).arg(span.outages);
        };
        const auto expected = [](double integral, double covered, int outages) {
            return QString("%1 over %2, %3").arg(integral).arg(covered).arg(outages);
        };
        QCOMPARE(text({101, 4100}), expected(exact(50.5, 2650.0), 2599.5, 0));
        gaps.setIntervals(3.0);
        gaps.update(reader, model.rowCount() - 1);
        QCOMPARE(text({101, 4100}),
                 expected(exact(50.5, 1000.0) + exact(1600.5, 2650.0), 1999.0, 1));
        QCOMPARE(text({2000, 2001}), expected(0.0, 0.0, 1));
        QCOMPARE(text({7, 7}), expected(0.0, 0.0, 0));
        // The missing reading before the last two: neither trapezoid beside it counts.
        QCOMPARE(text({5001, 5003}), expected(3.0, 1.0, 0));
    }

    void fewSamplesAndMissingOnes()
    {
        MarkerStatistics statistics;
        const auto text = [&] {
            return QString("%1 of %2: mean %3, deviation^2 %4")
                .arg(statistics.count())
                .arg(statistics.count() + statistics.missing())
                .arg(statistics.mean())
                .arg(std::pow(statistics.standardDeviation(), 2));
        };
        QCOMPARE(text(), QString("0 of 0: mean 0, deviation^2 0"));
        statistics.add(qQNaN());
        statistics.add(3.0);
        QCOMPARE(text(), QString("1 of 2: mean 3, deviation^2 0"));
        for (double value : {qInf(), 5.0, -qInf()})
            statistics.add(value);
        QCOMPARE(text(), QString("2 of 5: mean 4, deviation^2 2"));
        QVERIFY(qIsNaN(statistics.slope()));
    }

    void theSlopeLeavesOutMissingReadings()
    {
        MarkerStatistics statistics;
        const double epoch = 1.8e9;
        const double values[] = {2.0, 4.0, qQNaN(), 6.0, 8.0};
        for (int i = 0; i < 5; ++i)
            statistics.add(epoch + i, values[i]);
        QCOMPARE(statistics.slope(), 1.4); // of (0, 2), (1, 4), (3, 6), (4, 8)
        QCOMPARE(statistics.minimum(), 2.0);
        QCOMPARE(statistics.maximum(), 8.0);
        statistics.add(qQNaN(), 100.0); // a reading whose time is not known
        QCOMPARE(statistics.slope(), 1.4);
        QCOMPARE(statistics.maximum(), 100.0);
    }
};

CORVALE_QT_TEST_MAIN(tst_MarkerStatistics)
#include "tst_MarkerStatistics.moc"
