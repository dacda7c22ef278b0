// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "corvale_qt/units/Units.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/RealReadings.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using View = RVXScopePlotView;

namespace {

//! Returns the number after a name in a marker's label.
double numberIn(const QString &label, const QString &name)
{
    for (const QString &line : label.split('\n')) {
        if (line.trimmed().startsWith(name + ':'))
            return line.section(':', 1).toDouble();
    }
    return qQNaN();
}

//! A view with markers, and what they show.
class MarkedView : public ModelView
{
public:
    explicit MarkedView(int channels, int rows = 0, int capacity = std::numeric_limits<int>::max())
        : ModelView(channels, rows, capacity)
    {
        useMarkers();
    }
    //! Returns which markers are shown: "", "0", "1" or "01".
    QString markers() { return QString(hasMarker(0) ? "0" : "") + (hasMarker(1) ? "1" : ""); }
    void select(int row, int column)
    {
        selectionModel()->select(model.index(row, column), QItemSelectionModel::ClearAndSelect);
    }
    //! Returns the cells that are selected: "row,column".
    QString selected()
    {
        settle();
        QStringList cells;
        for (const QModelIndex &index : selectionModel()->selectedIndexes())
            cells << QString("%1,%2").arg(index.row()).arg(index.column());
        return cells.join(' ');
    }
};

} // namespace

class tst_ScopeMarkers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startOff()
    {
        ModelView view(2, 300);
        view.click(Qt::LeftButton, 100, 1);
        QVERIFY(!view.hasMarker(0));
        view.enablePlotMarker(true);
        view.click(Qt::LeftButton, 100, 1);
        view.click(Qt::RightButton, 200, 1);
        QVERIFY(view.hasMarker(0) && view.hasMarker(1));
        view.enablePlotMarker(false);
        QVERIFY(!view.hasMarker(0) && !view.hasMarker(1));
        QVERIFY(!view.plotMarker(2) && !view.plotMarker(-1));
    }

    void snapToTheNearestChannel()
    {
        MarkedView view(3, 300);
        view.model.names = QStringList{"left", "right", "sum"};
        view.click(Qt::LeftButton, 100.2, 2.2);
        QCOMPARE(view.markerText(0), QString("s: 1.010e+02\nChannel right\n2"));
        QCOMPARE(view.plotMarker(0)->value(), QPointF(101.0, 2.0));
        QCOMPARE(view.plotMarker(0)->linePen().color(), RVXPlotColors::color(1));
        QCOMPARE(view.plotMarker(0)->label().color(), RVXPlotColors::labelTextColor());
        QCOMPARE(view.selected(), QString("102,2"));
        view.click(Qt::LeftButton, 249.6, 9.0);
        QCOMPARE(view.markerText(0), QString("s: 2.500e+02\nChannel sum\n3"));
        // A click before the first sample selects the first sample.
        view.model.Clear();
        view.model.append({{0.0, 1.0, 2.0, 3.0}, {1.0, 1.0, 2.0, 3.0}});
        view.click(Qt::LeftButton, view.x().minValue() + 10.0, 1.0);
        QCOMPARE(view.markerText(0), QString("s: 0.000e+00\nChannel left\n1"));
        view.model.append({{1234567.5, 1.0, 2.0, 3.0}});
        view.SelectPoint1(QPointF(1234567.5, 1.0));
        QCOMPARE(view.markerReport(), QString("Marker 1\t1234567.5 s\tleft\t1\tA"));
    }

    void keepToTheirChannel()
    {
        MarkedView view(2);
        view.model.appendRows(300, 1.0,
                              [](int channel, double) { return channel == 1 ? 0.1 : 1000.0; });
        view.SetRange(-2000.0, 2000.0);
        view.SetYScaleMode(View::FullRange);
        view.click(Qt::RightButton, 200.0, 900.0);
        QVERIFY(view.markerText(1).contains("Channel 2\n1000"));
        // On the normalised scale both channels are at 1; the label keeps channel and value.
        view.SetYScaleMode(View::Normalized);
        QVERIFY(view.markerText(1).contains("Channel 2\n1000"));
        QCOMPARE(view.plotMarker(1)->yValue(), 1.0);
        view.check(2, false); // the marker moves to the channel that is left
        QVERIFY(view.markerText(1).contains("Channel 1\n0.1"));
    }

    void numbersBetweenThem()
    {
        MarkedView view(2);
        view.model.appendRows(300, 0.5, [](int channel, double time) {
            return channel == 1 ? 5.0 + std::sin(time) : -5.0;
        });
        view.click(Qt::RightButton, 119.8, 5.0);
        view.click(Qt::LeftButton, 59.8, -5.0); // on another channel than marker 1
        double sum = 0;
        for (int i = 120; i <= 240; ++i)
            sum += 5.0 + std::sin(i * 0.5);
        const QString label = view.markerText(1);
        QCOMPARE(label.section('\n', 0, 1), QString("s: 1.200e+02\nChannel 1"));
        QCOMPARE(numberIn(label, "Period"), 60.0);
        QCOMPARE(numberIn(label, "Frequency"), 0.0166666666667);
        QVERIFY(qAbs(numberIn(label, "Sum") - sum) < 1e-9 * sum);
        QVERIFY(!label.contains("Missing"));

        // Missing samples are counted and do not enter the statistics.
        view.model.Clear();
        view.model.append(
            {{0.0, 1.0, 0.0}, {1.0, qQNaN(), 0.0}, {2.0, 4.0, 0.0}, {3.0, qInf(), 0.0}});
        view.settle();
        view.SelectPoint1(QPointF(0.0, 1.0));
        view.SelectPoint2(QPointF(3.0, 4.0));
        view.check(2, false);
        view.settle();
        view.press(Qt::Key_Left);
        QCOMPARE(view.markerText(1).section('\n', 5),
                 QString("      Sum: 5\n     Mean: 2.5\n      RMS: 2.91547594742\n Std. Dev: "
                         "2.12132034356\n  Missing: 1"));
        // With both markers on one sample, the period is 0 and the frequency undefined.
        view.press(Qt::Key_Left, Qt::ShiftModifier);
        QVERIFY(view.markerText(1).contains("Frequency: N/A\n"));
    }

    void followASelectionFromOutside()
    {
        ModelView off(3, 300);
        off.selectionModel()->select(off.model.index(5, 3), QItemSelectionModel::ClearAndSelect);
        QVERIFY(!off.hasMarker(0));
        MarkedView view(3, 300);
        view.click(Qt::LeftButton, 100.0, 1.0);
        view.select(5, 3);
        QCOMPARE(view.markers(), QString("01"));
        QVERIFY2(view.markerText(0).contains("Channel 3\n3"), qPrintable(view.markerText(0)));
        view.selectionModel()->clearSelection();
        QCOMPARE(view.markers(), QString());
    }

    void selectingDoesNotPlotAgain()
    {
        MarkedView view(1, 0, 1000);
        view.model.pointsHint = 100;
        view.SetPlotMode(View::ScopeMode);
        view.append(150);
        view.click(Qt::LeftButton, 50.0, 1.0);
        QCOMPARE(view.xText(), QString("0..99"));
        // Each sweep selects another row. If that asked for a plot, the sweep would begin again and again.
        view.append(50);
        QCOMPARE(view.xText(), QString("100..199"));
        view.append(100);
        QCOMPARE(view.xText(), QString("200..299"));
        QCOMPARE(view.markers(), QString("0")); // marker 1 was not placed
    }

    void leaveTheSelectionAlone()
    {
        MarkedView view(2, 1000);
        QCOMPARE(view.selected(), QString());
        // A table of the same model selects two cells.
        QItemSelection chosen(view.model.index(900, 2), view.model.index(900, 2));
        chosen.select(view.model.index(950, 1), view.model.index(950, 1));
        for (const int mode : {View::StripMode, View::ScopeMode}) {
            view.SetPlotMode(mode);
            view.selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
            for (int i = 0; i < 3; ++i) {
                view.append(10);
                QCOMPARE(view.selected(), QString("900,2 950,1"));
            }
            QCOMPARE(view.markerX(0), 899.0);
            QVERIFY(view.markerText(0).endsWith("Channel 2\n2"));
            view.selectionModel()->clear();
        }
        // A whole channel is selected, and then a sample that is not on the canvas, which scrolls there.
        view.SetPlotMode(View::StripMode);
        view.select(0, 1);
        QCOMPARE(view.selected(), QString("0,1"));
        view.selectionModel()->setCurrentIndex(view.model.index(301, 1),
                                               QItemSelectionModel::ClearAndSelect);
        QVERIFY(qAbs(view.at(300.0, 0.0).x() - view.qwtPlot()->canvas()->width() / 2) < 3);
        QVERIFY(view.markerText(0).endsWith("Channel 1\n1"));
        // When the selected sample leaves the model, no other is selected instead.
        view.model.remove(1, 400);
        QVERIFY(view.selected().isEmpty() && !view.hasMarker(0));
    }

    void goWithTheirSample()
    {
        for (const bool isPaintedOften : {true, false}) {
            MarkedView view(1, 300, 300);
            view.click(Qt::RightButton, 59.6, 1.0);
            view.click(Qt::LeftButton, 49.6, 1.0);
            const auto roll = [&](int rows) {
                for (int i = 0; i < rows; ++i) {
                    view.append(1);
                    if (isPaintedOften)
                        view.settle();
                }
            };
            roll(40);
            view.press(Qt::Key_Right);
            QCOMPARE(view.markerX(0), 51.0);
            QCOMPARE(view.selected(), QString("12,1"));
            roll(15);
            QCOMPARE(view.markers(), QString("1"));
            view.press(Qt::Key_Right); // moves the other marker now
            QCOMPARE(view.markerX(1), 61.0);
        }
    }

    void keepTheirSampleAfterAReset()
    {
        MarkedView view(1, 300);
        view.click(Qt::LeftButton, 99.6, 1.0);
        view.reset(); // as after a change of the averaging length
        QCOMPARE(view.markerX(0), 100.0);
        QVERIFY(view.markerText(0).endsWith("Channel 1\n1"));
        // A sample of the same time in another acquisition is not the marker's sample.
        view.model.Clear();
        for (int second = 0; second < 300; ++second)
            view.model.append({{double(second), 1.0}});
        QCOMPARE(view.markers(), QString());
    }

    void readEachSweepAtTheirPlace()
    {
        MarkedView view(1);
        view.model.pointsHint = 100;
        view.SetPlotMode(View::ScopeMode);
        const auto ramp = [](int, double time) { return time * 0.01; };
        view.model.appendRows(250, 0.1, ramp);
        QCOMPARE(view.xText(), QString("10..19.9"));
        view.click(Qt::LeftButton, 14.98, 0.0);
        QCOMPARE(view.markerText(0), QString("s: 1.500e+01\nChannel 1\n0.15"));
        for (int sweep = 2; sweep < 30; ++sweep) {
            view.model.appendRows(100, 0.1, ramp);
            QCOMPARE(view.x().minValue(), sweep * 10.0);
            const double value = view.markerText(0).section('\n', 2).toDouble();
            QVERIFY(qAbs(view.markerX(0) - (sweep * 10.0 + 5.0)) < 1e-9);
            QVERIFY(qAbs(value - (sweep * 10.0 + 5.0) * 0.01) < 1e-9);
        }
    }

    void moveByKeys()
    {
        MarkedView view(2);
        view.model.pointsHint = 100;
        view.model.appendRows(300, 1.0,
                              [](int channel, double time) { return channel + time * 0.01; });
        view.click(Qt::LeftButton, 249.6, 1.0);
        QTest::keyClick(&view, Qt::Key_Left);
        view.press(Qt::Key_Left, Qt::ShiftModifier);
        view.press(Qt::Key_Right);
        QCOMPARE(view.markerX(0), 240.0);
        const QPointF before = view.plotMarker(0)->value();
        QVERIFY(view.markerText(0).contains("Channel 1"));

        view.click(Qt::RightButton, 279.6, 1.0);
        for (double expected : {290.0, 299.0}) {
            view.press(Qt::Key_Right, Qt::ShiftModifier);
            QCOMPARE(view.markerX(1), expected);
        }
        QCOMPARE(view.plotMarker(0)->value(), before);
        view.press(Qt::Key_Delete);
        QCOMPARE(view.markers(), QString("0"));
        view.append(50);
        QCOMPARE(view.markers(), QString("0"));
        view.press(Qt::Key_Delete);
        QCOMPARE(view.markers(), QString());

        view.SetPlotMode(View::ScopeMode);
        const double left = view.x().minValue();
        view.click(Qt::LeftButton, left + 19.6, 1.0);
        view.press(Qt::Key_Right);
        QCOMPARE(view.markerX(0), left + 21.0);
        QCOMPARE(view.x().minValue(), left);
    }

    void eachOfSeveralSamplesWithOneTimeTakesAStep()
    {
        MarkedView view(1);
        view.model.pointsHint = 100;
        QVector<ScopeTestModel::Row> rows;
        for (int i = 0; i < 300; ++i)
            rows.append({std::floor(i / 3.0), i * 0.01});
        view.model.append(rows);
        view.click(Qt::LeftButton, 89.9, 2.7);
        QStringList values;
        for (int i = 0; i < 5; ++i) {
            values << view.markerText(0).section('\n', 2);
            view.press(Qt::Key_Right);
        }
        QCOMPARE(values.join(' '), QString("2.7 2.71 2.72 2.73 2.74"));
    }

    void readBars()
    {
        MarkedView view(4);
        view.model.names = QStringList{"a", "b", "c", "d"};
        view.model.show({1.0, 2.0, 4.0, 8.0});
        view.SetPlotMode(View::HistogramMode);
        view.click(Qt::LeftButton, 2.3, 1.0);
        QCOMPARE(view.markerText(0), QString("s: 0.000e+00\nChannel b\n2"));
        view.click(Qt::RightButton, 4.4, 1.0);
        QCOMPARE(view.markerText(1),
                 QString("s: 0.000e+00\nChannel d\n8\n      Sum: 14\n     Mean: 4.66666666667\n"
                         "      RMS: 5.29150262213\n Std. Dev: 3.0550504633"));
        view.model.show({1.0, 3.0, 4.0, 8.0});
        QCOMPARE(view.markerText(0), QString("s: 1.000e+00\nChannel b\n3"));
        view.press(Qt::Key_Left);
        QCOMPARE(view.markerText(1).section('\n', 1, 1), QString("Channel c"));
        view.select(1, 4);
        QCOMPARE(view.markerText(0).section('\n', 1), QString("Channel d\n8"));
        const QRegion bars = view.visualRegionForSelection(view.selectionModel()->selection());
        const QPoint canvas = view.qwtPlot()->canvas()->mapTo(view.viewport(), QPoint(0, 0));
        QVERIFY(bars.contains(canvas + view.at(4.0, 1.0)));
        QVERIFY(!bars.contains(canvas + view.at(3.0, 1.0)));
        // In strip mode x is time, so the marker goes.
        view.SetPlotMode(View::StripMode);
        QVERIFY(!view.hasMarker(0));
    }

    //! Real currents, compared with the results of another tool for the same windows.
    void ofABeamCurrent()
    {
        const QVector<QStringList> lines = realReadings("bonn-proton-sem/currents_7ch.csv");
        if (lines.size() < 2)
            QSKIP("The folder of real readings is not there.");
        MarkedView view(lines[0].size() - 1);
        view.model.names = lines[0].mid(1);
        QVector<ScopeTestModel::Row> rows;
        for (int i = 1; i < lines.size(); ++i) {
            rows << ScopeTestModel::Row();
            for (const QString &cell : lines[i])
                rows.last() << cell.toDouble();
        }
        view.model.pointsHint = rows.size();
        view.model.append(rows);
        for (const QStringList &reference :
             realReadings("bonn-proton-sem/reference_stats.csv").mid(1)) {
            const int channel = view.model.names.indexOf(reference[1]) + 1;
            for (int c = 1; c < view.model.columnCount(); ++c)
                view.check(c, c == channel);
            for (int mode : {View::StripMode, View::ScopeMode}) {
                view.SetPlotMode(mode);
                view.SelectPoint1(QPointF(reference[2].toDouble(), 0.0));
                view.SelectPoint2(QPointF(reference[3].toDouble(), 0.0));
                const QString label = view.markerText(1);
                const double mean = numberIn(label, "Mean");
                const double deviation = numberIn(label, "Std. Dev");
                QCOMPARE(std::lround(numberIn(label, "Sum") / mean), reference[4].toLong());
                // The reference gives ten digits.
                QVERIFY(qAbs(mean - reference[7].toDouble()) < 1e-9 * qAbs(mean));
                QVERIFY(qAbs(deviation - reference[8].toDouble()) < 1e-9 * deviation);
            }
        }
    }

    // The numbers between the markers against sums over the cells, while rows stream in.
    void theMarkersMeasureWhileRowsStreamIn()
    {
        MarkedView view(1, 0, 1000);
        view.setInteractive(true);
        view.setMarkerDetails(true);
        const auto wave = [](int, double time) { return 2.0 + std::sin(time / 7.0) + 0.01 * time; };
        view.model.appendRows(1000, 0.5, wave);
        view.zoomToX(400, 500);
        view.click(Qt::LeftButton, 420, 6);
        view.click(Qt::RightButton, 480, 6);
        for (int i = 0; i < 4; ++i) {
            view.model.appendRows(150, 0.5, wave);
            const ScopeMarkerStatistics now = view.markerStatistics();
            QVERIFY(now.hasSpan());
            double sum = 0, area = 0, low = qInf(), high = -qInf(), sxx = 0, sxy = 0;
            const int n = now.second.row - now.first.row + 1;
            const double meanX = 0.5 * (now.first.time + now.second.time);
            for (int row = now.first.row; row <= now.second.row; ++row) {
                const double x = view.model.doubleData(row, 0);
                const double y = view.model.doubleData(row, 1);
                sum += y;
                low = qMin(low, y);
                high = qMax(high, y);
                sxx += (x - meanX) * (x - meanX);
                sxy += (x - meanX) * y;
                if (row > now.first.row)
                    area += 0.25 * (y + view.model.doubleData(row - 1, 1));
            }
            QCOMPARE(now.count, n);
            QCOMPARE(now.mean, sum / n);
            QCOMPARE(now.minimum, low);
            QCOMPARE(now.maximum, high);
            QCOMPARE(now.integral, area);
            QVERIFY(qAbs(now.slope - sxy / sxx) < 1e-9);
            const QString label = view.markerText(1);
            const QString line = QString("\n Integral: %1\n").arg(now.integral, 0, 'g', 12);
            QVERIFY2(label.contains(line), qPrintable(label));
        }
        QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
        const QString copied = QGuiApplication::clipboard()->text();
        QCOMPARE(copied, view.markerReport());
        const ScopeMarkerStatistics now = view.markerStatistics();
        for (const QString &line :
             {QString("Period\t%1\ts").arg(now.period, 0, 'g', 12),
              QString("Delta\t%1\tA").arg(now.difference, 0, 'g', 12),
              QString("Std. Dev\t%1\tA").arg(now.standardDeviation, 0, 'g', 12),
              QString("Covered\t%1\ts").arg(now.coveredTime, 0, 'g', 12),
              QString("Integral\t%1\tA s").arg(now.integral, 0, 'g', 12),
              QString("Slope\t%1\tA/s").arg(now.slope, 0, 'g', 12)})
            QVERIFY2(copied.split('\n').contains(line), qPrintable(copied));
    }

    // What the markers keep of the samples between them is never older than these.
    void theMarkersNoticeWhatChangesBetweenThem()
    {
        MarkedView view(1, 1000, 1000);
        view.click(Qt::LeftButton, 850, 1);
        view.click(Qt::RightButton, 950, 1);
        QCOMPARE(view.markerStatistics().maximum, 1.0);
        view.model.change(view.markerStatistics().first.row + 10, 1, 7.0);
        QCOMPARE(view.markerStatistics().maximum, 7.0);
        view.stream(20);
        QCOMPARE(view.markerStatistics().maximum, 7.0);
        const int row = view.markerStatistics().first.row;
        view.model.remove(row + 10, row + 10);
        QCOMPARE(view.markerStatistics().maximum, 1.0);
        const Units::mA unit;
        for (const int end :
             {view.markerStatistics().first.row, view.markerStatistics().second.row})
            view.model.change(end, 1, 0.0); // which is 0 in every unit
        QCOMPARE(view.markerStatistics().maximum, 1.0);
        view.model.isInBaseUnit = true;
        view.model.SetUnits(&unit);
        QCOMPARE(view.markerStatistics().maximum, 1000.0);
    }

    // A frame does not look at the samples between markers again that it has looked at before.
    void aFrameDoesNotSumBetweenTheMarkersAgain()
    {
        MarkedView view(1, 20000, 20000);
        view.setMarkerDetails(true);
        view.setGapIntervals(5);
        view.setTimeSpan(qInf());
        view.click(Qt::LeftButton, 1000, 1);
        view.click(Qt::RightButton, 19000, 1);
        view.zoomToX(18950, 19050);
        const QString before = view.markerText(1);
        QVERIFY(before.contains("Integral"));
        view.model.cellsRead = 0;
        view.append(1);
        view.settle();
        QVERIFY2(view.model.cellsRead < 2000, qPrintable(QString::number(view.model.cellsRead)));
        QCOMPARE(view.markerText(1), before);
    }
};

CORVALE_QT_TEST_MAIN(tst_ScopeMarkers)
#include "tst_ScopeMarkers.moc"
