// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/scope/MarkerSpan_p.h"
#include "corvale_qt/scope/MarkerStatistics_p.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "corvale_qt/scope/TimeGaps_p.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/TestMain.h"

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
    gaps.forEach(rows, [&](int row) { found.append(QString::number(row)); });
    return found.join(' ');
}

//! Returns the gaps of rows at these times, for three usual intervals.
QString gapsAt(const QVector<double> &times)
{
    ScopeTestModel model(1);
    appendTimes(model, times);
    TimeGaps gaps;
    gaps.setIntervals(3.0);
    gaps.update(PlotDataReader(&model), times.size());
    return gapsIn(gaps, {1, times.size()});
}

/*! All readings of a model that keeps a number of rows, and older ones in blocks over a time span. Row r has been read at second
    r - 1; its reading is the same number. */
class HistoryView
{
public:
    explicit HistoryView(int capacity, double span = 1e9)
    {
        model->setCapacity(capacity);
        model->setHistorySpan(span);
        view.setModel(model.get());
        view.setTimeSpan(qInf());
        view.enablePlotMarker(true);
    }
    void append(int more)
    {
        for (const int end = m_rows + more; m_rows < end; ++m_rows)
            model->appendRows({double(m_rows)}, {double(m_rows)});
    }
    void mark(double first, double second)
    {
        view.SelectPoint1(QPointF(first, first));
        view.SelectPoint2(QPointF(second, second));
    }

    std::unique_ptr<RVXMultichannelDeviceModel> model =
        std::make_unique<RVXMultichannelDeviceModel>(1);
    ScopeTestView view;

private:
    int m_rows = 0;
};

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
        const auto statistics = statisticsOfRows(PlotDataReader(&model), 2, rows);

        const auto meanOf = [&](const auto &term) {
            long double sum = 0;
            for (int row = rows.first; row <= rows.last; ++row)
                sum += term(static_cast<long double>(model.doubleData(row, 2)));
            return sum / rows.size();
        };
        const long double mean = meanOf([](long double value) { return value; });
        const long double square = meanOf([](long double value) { return value * value; });
        const long double variance =
            meanOf([mean](long double value) { return (value - mean) * (value - mean); });
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
            second + steps(200.0, 30, 1.0).mid(0, 1) + steps(400.0, 30, 1.0), "101 102");
        row("too few to say", QVector<double>{0.0, 1.0, 2.0, 50.0}, "");
        row("a slower instrument takes over", second + steps(100.0, 100, 60.0), "");
        row(
            "readings that come in blocks",
            [] {
                QVector<double> times;
                for (int i = 0; i < 400; ++i)
                    times.append(0.05 * (i - i % 10));
                return times;
            }(),
            "");
        row("time steps back far", second + steps(10.0, 50, 1.0), "101");
        row("a time that is no number", second + QVector<double>{qQNaN()} + steps(101.0, 9, 1.0),
            "");
    }
    void gapsAreLongerThanUsualIntervals()
    {
        QTEST(gapsAt(cell<QVector<double>>("times")), "before");
    }

    //! However the rows came and whatever has left the model, the rows that are judged for good are the same.
    void gapsStayWhileRowsRollOn()
    {
        std::mt19937 random(11);
        ScopeTestModel rolling(1, 300);
        TimeGaps gaps;
        gaps.setIntervals(3.0);
        QObject::connect(&rolling, &QAbstractItemModel::rowsInserted,
                         [&](QModelIndex, int first, int) { gaps.rowsInserted(first); });
        QObject::connect(&rolling, &QAbstractItemModel::rowsRemoved,
                         [&](QModelIndex, int first, int last) { gaps.rowsRemoved(first, last); });
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
            gaps.update(PlotDataReader(&rolling), last);
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
        const auto exact = [](double a, double b) { return b * b + b - a * a - a; };
        ScopeTestModel model(1);
        appendTimes(model, steps(0.0, 2000, 0.5) + steps(1600.0, 3000, 0.5));
        model.append({{3101.0, qQNaN()}, {3102.0, 2.0}, {3103.0, 4.0}});
        const PlotDataReader reader(&model);
        TimeGaps gaps;
        MarkerSpan kept;
        const auto text = [&](RowRange rows) {
            const SpanIntegral &span = kept.integralOf(reader, 1, rows, 1.0, gaps);
            return QString("%1 over %2, %3").arg(span.integral).arg(span.covered).arg(span.outages);
        };
        const auto expected = [](double integral, double covered, int outages) {
            return QString("%1 over %2, %3").arg(integral).arg(covered).arg(outages);
        };
        QCOMPARE(text({101, 4100}), expected(exact(50.5, 2650.0), 2599.5, 0));
        gaps.setIntervals(3.0);
        gaps.update(reader, model.rowCount() - 1);
        // The same rows as before: only the gaps are new.
        QCOMPARE(text({101, 4100}),
                 expected(exact(50.5, 1000.0) + exact(1600.5, 2650.0), 1999.0, 1));
        QCOMPARE(text({2000, 2001}), expected(0.0, 0.0, 1));
        QCOMPARE(text({7, 7}), expected(0.0, 0.0, 0));
        // The missing reading before the last two: neither trapezoid beside it counts.
        QCOMPARE(text({5001, 5003}), expected(3.0, 1.0, 0));
        ScopeTestModel other(1); // has other readings in the same rows
        appendTimes(other, steps(0.0, 6000, 0.25));
        QCOMPARE(kept.of(PlotDataReader(&other), 1, {5001, 5003}, 1.0).count(), 3);
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
        ScopeMarkerStatistics shown;
        statistics.writeTo(shown);
        QVERIFY(qIsNaN(shown.mean)); // 0 would be a number that nobody measured
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

    //! Older readings are in blocks: what is said of them is that of each of them, over a stretch that is stated, or that it is not known.
    void olderReadingsInBlocks_data()
    {
        columns<double, double>("first", "second");
        row("both among blocks", 31.7, 1234.5);
        row("the second among the rows", 31.7, 1990.0);
        row("the first among the rows", 1990.0, 700.0);
        row("both in one block", 500.0, 500.2);
        row("before the first reading", -50.0, 900.0);
    }

    void olderReadingsInBlocks()
    {
        constexpr int rows = 20000;
        constexpr double step = 0.1;
        const auto reading = [](int row) {
            return row % 7 == 0 ? qQNaN() : std::sin(row * 0.01) + row % 13;
        };
        RVXMultichannelDeviceModel model(2);
        model.setCapacity(1000);
        model.setHistorySpan(1e9);
        model.setHistoryMemory(1); // few blocks of each level, so that all levels are read
        for (int row = 0; row < rows; ++row)
            model.appendRows({row * step}, {0.0, reading(row)});
        ScopeTestView view(&model);
        view.setTimeSpan(qInf());
        view.enablePlotMarker(true);
        view.settle();
        QFETCH(double, first);
        QFETCH(double, second);
        view.SelectPoint1(QPointF(first, 6.0));
        view.SelectPoint2(QPointF(second, 6.0));
        const ScopeMarkerStatistics is = view.markerStatistics();
        double sum = 0.0, least = qInf(), greatest = -qInf();
        int count = 0, missing = 0;
        for (int row = 0; row < rows; ++row) {
            const double x = row * step;
            if (x < is.blocksBegin || x > is.blocksEnd)
                continue;
            const double value = reading(row);
            missing += std::isnan(value);
            count += !std::isnan(value);
            sum += std::isnan(value) ? 0.0 : value;
            least = std::fmin(least, value);
            greatest = std::fmax(greatest, value);
        }
        QCOMPARE(QPoint(is.count, is.missing), QPoint(count, missing));
        QCOMPARE(QPointF(is.minimum, is.maximum), QPointF(least, greatest));
        QVERIFY(qAbs(is.mean - sum / count) < 1e-12 * count && qAbs(is.sum - sum) < 1e-9 * count);
        const auto [left, right] = std::minmax(is.first.time, is.second.time);
        QVERIFY(is.blocksBegin <= qMax(left, 0.0) && right <= is.blocksEnd);
        QVERIFY(qIsNaN(is.rms) && qIsNaN(is.standardDeviation) && qIsNaN(is.integral));
        const QString report = view.markerReport();
        QVERIFY(report.contains("RMS\tnot known: older readings are kept in blocks"));
        QVERIFY(report.contains("kept in a block only"));
        QVERIFY(view.markerText(1).contains("not known of blocks"));
    }

    //! Where a model remembers its readings in blocks, a marker stays at its time after its sample has left the model.
    void aMarkerOutlivesItsSample()
    {
        HistoryView history(500);
        history.append(500);
        history.mark(100.0, 400.0);
        QCOMPARE(history.view.markerStatistics().first.row, 101);
        history.append(2000);
        const ScopeMarkerStatistics is = history.view.markerStatistics();
        QVERIFY(is.hasSpan());
        QCOMPARE(QPointF(is.first.time, is.second.time), QPointF(100.0, 400.0));
        QCOMPARE(QPointF(is.minimum, is.maximum), QPointF(is.blocksBegin, is.blocksEnd));
        history.model->Clear();
        QVERIFY(!history.view.markerStatistics().first.isSet);
    }

    //! A marker never wanders: without a history, or when that has forgotten its time, it goes with its sample.
    void aMarkerLeavesWithTheLastOfItsReadings()
    {
        for (const double span : {0.0, 1000.0}) {
            HistoryView history(500, span);
            history.append(500);
            history.mark(100.0, 400.0);
            QVERIFY(history.view.markerStatistics().hasSpan());
            history.append(450);
            QCOMPARE(history.view.markerStatistics().first.isSet, span > 0.0);
            QCOMPARE(history.view.hasMarker(0), span > 0.0);
            history.append(3000);
            const ScopeMarkerStatistics is = history.view.markerStatistics();
            QVERIFY(!is.first.isSet && !is.second.isSet);
            QVERIFY(!history.view.hasMarker(0) && !history.view.hasMarker(1));
        }
    }

    //! A marker says nothing of a time at which nothing was read, also among blocks.
    void aMarkerInAnOutageStandsOnTheBlockAfterIt()
    {
        HistoryView history(100);
        for (int row = 0; row < 1280; ++row) // 640 seconds, an hour of nothing, and on
            history.model->appendRows({row < 640 ? row : row + 3600.0}, {double(row)});
        history.view.setSiPrefix(true);
        history.view.setValueUnit("mA");
        history.view.SelectPoint1(QPointF(2000.0, 700.0));
        QCOMPARE(history.view.markerStatistics().first.time, 4240.0);
        const QString text = history.view.markerText(0);
        QVERIFY2(text.contains("\n640000 mA to 703000 mA\nreadings: 64"), qPrintable(text));
    }

    //! A listener that hears first that the model is being deleted gets nothing from a history that has gone.
    void askedWhileTheModelIsDeleted()
    {
        HistoryView history(100);
        ScopeMarkerStatistics asked;
        history.view.setModel(nullptr);
        connect(history.model.get(), &QObject::destroyed, this,
                [&] { asked = history.view.markerStatistics(); });
        history.append(1000);
        history.view.setModel(history.model.get());
        history.mark(200.0, 500.0);
        asked = history.view.markerStatistics();
        QVERIFY(asked.hasSpan() && asked.count > 0);
        history.model.reset();
        QVERIFY(!asked.first.isSet && !asked.second.isSet);
    }
};

CORVALE_QT_TEST_MAIN(tst_MarkerStatistics)
#include "tst_MarkerStatistics.moc"
