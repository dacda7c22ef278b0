// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "tests/scope/ScopeTestModel.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/RealReadings.h"
#include "tests/support/TestMain.h"

#include <cmath>

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

} // namespace

class tst_ScopeMarkers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startOff();
    void snapToTheNearestChannel();
    void keepToTheirChannel();
    void numbersBetweenThem();
    void followASelectionFromOutside();
    void leaveTheSelectionAlone();
    void selectingDoesNotPlotAgain();
    void goWithTheirSample_data();
    void goWithTheirSample();
    void keepTheirSampleAfterAReset();
    void readEachSweepAtTheirPlace();
    void moveByKeys();
    void readBars();
    void ofABeamCurrent_data();
    void ofABeamCurrent();
};

void tst_ScopeMarkers::startOff()
{
    ScopeTestModel model(2);
    model.appendRows(300, 1.0, level);
    ScopeTestView view(&model);
    view.click(Qt::LeftButton, QPoint(100, 100));
    QVERIFY(!view.hasMarker(0));
    view.enablePlotMarker(true);
    view.click(Qt::LeftButton, QPoint(100, 100));
    QVERIFY(view.hasMarker(0));
    view.click(Qt::RightButton, QPoint(200, 100));
    QVERIFY(view.hasMarker(1));
    view.enablePlotMarker(false);
    QVERIFY(!view.hasMarker(0) && !view.hasMarker(1));
    QVERIFY(!view.plotMarker(2) && !view.plotMarker(-1));
}

void tst_ScopeMarkers::snapToTheNearestChannel()
{
    ScopeTestModel model(3);
    model.names = QStringList{"left", "right", "sum"};
    model.appendRows(300, 1.0, level);
    ScopeTestView view(&model);
    useTens(view);
    view.click(Qt::LeftButton, view.at(100.2, 2.2));
    QCOMPARE(view.markerText(0), QString("s: 1.010e+02\nChannel right\n2"));
    QCOMPARE(view.plotMarker(0)->value(), QPointF(101.0, 2.0));
    QCOMPARE(view.plotMarker(0)->linePen().color(), RVXPlotColors::color(1));
    QCOMPARE(view.plotMarker(0)->label().color(), RVXPlotColors::labelTextColor());
    QCOMPARE(view.selectionModel()->selectedIndexes(), QModelIndexList{model.index(102, 2)});
    view.click(Qt::LeftButton, view.at(249.6, 9.0));
    QCOMPARE(view.markerText(0), QString("s: 2.500e+02\nChannel sum\n3"));
    QCOMPARE(view.plotMarker(0)->labelAlignment(), Qt::AlignLeft | Qt::AlignTop);

    // A click before the first sample selects the first sample.
    model.Clear();
    model.append({{0.0, 1.0, 2.0, 3.0}, {1.0, 1.0, 2.0, 3.0}});
    view.settle();
    view.click(Qt::LeftButton, view.at(view.x().minValue() + 10.0, 1.0));
    QCOMPARE(view.markerText(0), QString("s: 0.000e+00\nChannel left\n1"));
}

void tst_ScopeMarkers::keepToTheirChannel()
{
    ScopeTestModel model(2);
    model.appendRows(300, 1.0, [](int channel, double) {
        return channel == 1 ? 0.1 : 1000.0;
    });
    ScopeTestView view(&model);
    view.SetRange(-2000.0, 2000.0);
    useTens(view);
    view.SetRange(-2000.0, 2000.0);
    view.SetYScaleMode(View::FullRange);
    view.settle();
    view.click(Qt::RightButton, view.at(200.0, 900.0));
    QVERIFY(view.markerText(1).contains("Channel 2\n1000"));
    // On the normalised scale both channels are at 1; the label keeps channel and value.
    view.SetYScaleMode(View::Normalized);
    view.settle();
    QVERIFY(view.markerText(1).contains("Channel 2\n1000"));
    QCOMPARE(view.plotMarker(1)->yValue(), 1.0);
    // After the channel is hidden, the marker moves to the other one.
    model.setData(model.index(0, 2), Qt::Unchecked, Qt::CheckStateRole);
    view.settle();
    QVERIFY(view.markerText(1).contains("Channel 1\n0.1"));
}

void tst_ScopeMarkers::numbersBetweenThem()
{
    ScopeTestModel model(2);
    model.appendRows(300, 0.5, [](int channel, double time) {
        return channel == 1 ? 5.0 + std::sin(time) : -5.0;
    });
    ScopeTestView view(&model);
    useTens(view);
    view.click(Qt::RightButton, view.at(119.8, 5.0));
    view.click(Qt::LeftButton, view.at(59.8, -5.0)); // on another channel than marker 1
    const QString label = view.markerText(1);
    long double sum = 0;
    long double squares = 0;
    for (int i = 120; i <= 240; ++i) {
        const long double value = 5.0 + std::sin(i * 0.5);
        sum += value;
        squares += value * value;
    }
    const long double n = 121;
    QCOMPARE(label.section('\n', 0, 1), QString("s: 1.200e+02\nChannel 1"));
    QCOMPARE(numberIn(label, "Period"), 60.0);
    QCOMPARE(numberIn(label, "Frequency"), 0.0166666666667);
    QVERIFY(qAbs(numberIn(label, "Sum") - double(sum)) < 1e-9 * double(sum));
    QVERIFY(qAbs(numberIn(label, "Mean") - double(sum / n)) < 1e-9);
    QVERIFY(qAbs(numberIn(label, "RMS") - double(std::sqrt(squares / n))) < 1e-9);
    const long double mean = sum / n;
    const double deviation = double(std::sqrt(n * (squares / n - mean * mean) / (n - 1)));
    QVERIFY(qAbs(numberIn(label, "Std. Dev") - deviation) < 1e-9);
    QVERIFY(!label.contains("Missing"));

    // Missing samples are counted and do not enter the statistics.
    model.Clear();
    model.append({{0.0, 1.0, 0.0}, {1.0, qQNaN(), 0.0}, {2.0, 4.0, 0.0}, {3.0, qInf(), 0.0}});
    view.settle();
    view.SelectPoint1(QPointF(0.0, 1.0));
    view.SelectPoint2(QPointF(3.0, 4.0));
    model.setData(model.index(0, 2), Qt::Unchecked, Qt::CheckStateRole);
    view.settle();
    QTest::keyClick(&view, Qt::Key_Left);
    view.settle();
    QCOMPARE(numberIn(view.markerText(1), "Mean"), 2.5);
    QCOMPARE(numberIn(view.markerText(1), "Missing"), 1.0);
    // With both markers on one sample, the period is 0 and the frequency undefined.
    QTest::keyClick(&view, Qt::Key_Left, Qt::ShiftModifier);
    view.settle();
    QCOMPARE(view.markerText(1).section("Frequency: ", 1).section('\n', 0, 0), QString("N/A"));
}

void tst_ScopeMarkers::followASelectionFromOutside()
{
    ScopeTestModel model(3);
    model.appendRows(300, 1.0, level);
    ScopeTestView view(&model);
    view.selectionModel()->select(model.index(5, 3), QItemSelectionModel::ClearAndSelect);
    QVERIFY(!view.hasMarker(0)); // markers are off
    useTens(view);
    view.click(Qt::LeftButton, view.at(100.0, 1.0));
    QVERIFY(view.markerText(0).contains("Channel 1"));
    view.selectionModel()->select(model.index(5, 3), QItemSelectionModel::ClearAndSelect);
    view.settle();
    QVERIFY(view.hasMarker(1));
    QVERIFY2(view.markerText(0).contains("Channel 3\n3"), qPrintable(view.markerText(0)));
    view.selectionModel()->clearSelection();
    QVERIFY(!view.hasMarker(0) && !view.hasMarker(1));
}

void tst_ScopeMarkers::selectingDoesNotPlotAgain()
{
    ScopeTestModel model(1, 1000);
    model.pointsHint = 100;
    ScopeTestView view(&model);
    useTens(view);
    view.SetPlotMode(View::ScopeMode);
    model.appendRows(150, 1.0, level);
    view.settle();
    view.click(Qt::LeftButton, view.at(50.0, 1.0));
    QCOMPARE(view.xText(), QString("0..99"));
    // Each sweep selects another row. If that asked for a plot, the sweep would begin again and again.
    model.appendRows(50, 1.0, level);
    view.settle();
    QCOMPARE(view.xText(), QString("100..199"));
    model.appendRows(100, 1.0, level);
    view.settle();
    QCOMPARE(view.xText(), QString("200..299"));
    // Marker 1, which was not placed, is not shown.
    QVERIFY(!view.hasMarker(1));
}

void tst_ScopeMarkers::leaveTheSelectionAlone()
{
    ScopeTestModel model(2);
    model.appendRows(1000, 1.0, level);
    ScopeTestView view(&model);
    useTens(view);
    QVERIFY(!view.selectionModel()->hasSelection());
    // A table of the same model selects two cells.
    QItemSelection chosen(model.index(900, 2), model.index(900, 2));
    chosen.select(model.index(950, 1), model.index(950, 1));
    for (const int mode : {View::StripMode, View::ScopeMode}) {
        view.SetPlotMode(mode);
        view.selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
        for (int i = 0; i < 3; ++i) {
            model.appendRows(10, 1.0, level);
            view.settle();
        }
        QCOMPARE(view.selectionModel()->selectedIndexes(), chosen.indexes());
        QCOMPARE(view.plotMarker(0)->xValue(), 899.0);
        QVERIFY(view.markerText(0).endsWith("Channel 2\n2"));
        view.selectionModel()->clear();
    }
    // A whole channel is selected, and then a sample that is not on the canvas, which scrolls there.
    view.SetPlotMode(View::StripMode);
    view.selectionModel()->select(model.index(0, 1), QItemSelectionModel::ClearAndSelect);
    view.settle();
    QCOMPARE(view.selectionModel()->selectedIndexes(), QModelIndexList{model.index(0, 1)});
    view.selectionModel()->setCurrentIndex(model.index(301, 1),
                                           QItemSelectionModel::ClearAndSelect);
    view.settle();
    QVERIFY2(qAbs(view.at(300.0, 0.0).x() - view.qwtPlot()->canvas()->width() / 2) < 3,
             qPrintable(view.xText()));
    QVERIFY(view.markerText(0).endsWith("Channel 1\n1"));
    // When the selected sample leaves the model, no other is selected instead.
    model.remove(1, 400);
    view.settle();
    QVERIFY(!view.selectionModel()->hasSelection());
    QVERIFY(!view.hasMarker(0));
}

void tst_ScopeMarkers::goWithTheirSample_data()
{
    QTest::addColumn<bool>("painted");
    QTest::newRow("painted after each row") << true;
    QTest::newRow("painted at the end") << false;
}

void tst_ScopeMarkers::goWithTheirSample()
{
    QFETCH(bool, painted);
    ScopeTestModel model(1, 300);
    ScopeTestView view(&model);
    useTens(view);
    model.appendRows(300, 1.0, level);
    view.settle();
    view.click(Qt::RightButton, view.at(59.6, 1.0));
    view.click(Qt::LeftButton, view.at(49.6, 1.0));
    const auto roll = [&](int rows) {
        for (int i = 0; i < rows; ++i) {
            model.appendRows(1, 1.0, level);
            if (painted)
                view.settle();
        }
    };
    roll(40);
    QTest::keyClick(&view, Qt::Key_Right);
    view.settle();
    QCOMPARE(view.plotMarker(0)->xValue(), 51.0);
    QCOMPARE(view.selectionModel()->selectedIndexes(), QModelIndexList{model.index(12, 1)});
    roll(15);
    view.settle();
    QVERIFY(!view.hasMarker(0));
    QVERIFY(view.hasMarker(1));
    // The keys move the other marker now.
    QTest::keyClick(&view, Qt::Key_Right);
    view.settle();
    QCOMPARE(view.plotMarker(1)->xValue(), 61.0);
}

void tst_ScopeMarkers::keepTheirSampleAfterAReset()
{
    ScopeTestModel model(1);
    model.appendRows(300, 1.0, level);
    ScopeTestView view(&model);
    useTens(view);
    view.click(Qt::LeftButton, view.at(99.6, 1.0));
    view.reset(); // as after a change of the averaging length
    view.settle();
    QCOMPARE(view.plotMarker(0)->xValue(), 100.0);
    QVERIFY(view.markerText(0).endsWith("Channel 1\n1"));
    // A sample of the same time in another acquisition is not the marker's sample.
    model.Clear();
    QVector<ScopeTestModel::Row> rows;
    for (int i = 0; i < 300; ++i)
        rows.append({i * 1.0, 1.0});
    model.append(rows);
    view.settle();
    QVERIFY(!view.hasMarker(0));
}

void tst_ScopeMarkers::readEachSweepAtTheirPlace()
{
    ScopeTestModel model(1);
    model.pointsHint = 100;
    ScopeTestView view(&model);
    useTens(view);
    view.SetPlotMode(View::ScopeMode);
    const auto ramp = [](int, double time) {
        return time * 0.01;
    };
    model.appendRows(250, 0.1, ramp);
    view.settle();
    QCOMPARE(view.xText(), QString("10..19.9"));
    view.click(Qt::LeftButton, view.at(14.98, 0.0));
    QCOMPARE(view.markerText(0), QString("s: 1.500e+01\nChannel 1\n0.15"));
    for (int sweep = 2; sweep < 30; ++sweep) {
        model.appendRows(100, 0.1, ramp);
        view.settle();
        QCOMPARE(view.x().minValue(), sweep * 10.0);
        QVERIFY(qAbs(view.plotMarker(0)->xValue() - (sweep * 10.0 + 5.0)) < 1e-9);
        const double value = view.markerText(0).section('\n', 2).toDouble();
        QVERIFY(qAbs(value - (sweep * 10.0 + 5.0) * 0.01) < 1e-9);
    }
}

void tst_ScopeMarkers::moveByKeys()
{
    ScopeTestModel model(2);
    model.pointsHint = 100;
    model.appendRows(300, 1.0, [](int channel, double time) {
        return channel + time * 0.01;
    });
    ScopeTestView view(&model);
    useTens(view);
    view.click(Qt::LeftButton, view.at(249.6, 1.0));
    QTest::keyClick(&view, Qt::Key_Left);
    QTest::keyClick(&view, Qt::Key_Left, Qt::ShiftModifier);
    view.settle();
    QTest::keyClick(&view, Qt::Key_Right);
    view.settle();
    const QPointF before = view.plotMarker(0)->value();
    QCOMPARE(before.x(), 240.0);
    QVERIFY(view.markerText(0).contains("Channel 1"));

    view.click(Qt::RightButton, view.at(279.6, 1.0));
    QTest::keyClick(&view, Qt::Key_Right, Qt::ShiftModifier);
    view.settle();
    QCOMPARE(view.plotMarker(1)->xValue(), 290.0);
    QTest::keyClick(&view, Qt::Key_Right, Qt::ShiftModifier);
    view.settle();
    QCOMPARE(view.plotMarker(1)->xValue(), 299.0);
    QCOMPARE(view.plotMarker(0)->value(), before);
    QTest::keyClick(&view, Qt::Key_Delete);
    view.settle();
    QVERIFY(view.hasMarker(0) && !view.hasMarker(1));
    model.appendRows(50, 1.0, level);
    view.settle();
    QVERIFY(!view.hasMarker(1));
    QTest::keyClick(&view, Qt::Key_Delete);
    QVERIFY(!view.hasMarker(0));

    view.SetPlotMode(View::ScopeMode);
    view.settle();
    const double left = view.x().minValue();
    view.click(Qt::LeftButton, view.at(left + 19.6, 1.0));
    QTest::keyClick(&view, Qt::Key_Right);
    view.settle();
    QCOMPARE(view.plotMarker(0)->xValue(), left + 21.0);
    QCOMPARE(view.x().minValue(), left);

    // Each of several samples with one time takes a step.
    view.SetPlotMode(View::StripMode);
    model.Clear();
    QVector<ScopeTestModel::Row> rows;
    for (int i = 0; i < 300; ++i)
        rows.append({double(i / 3), i * 0.01, 9.0});
    model.append(rows);
    view.settle();
    view.click(Qt::LeftButton, view.at(89.9, 2.7));
    QStringList values;
    for (int i = 0; i < 5; ++i) {
        values << view.markerText(0).section('\n', 2);
        QTest::keyClick(&view, Qt::Key_Right);
        view.settle();
    }
    QCOMPARE(values.join(' '), QString("2.7 2.71 2.72 2.73 2.74"));
}

void tst_ScopeMarkers::readBars()
{
    ScopeTestModel model(4);
    model.names = QStringList{"a", "b", "c", "d"};
    model.show({1.0, 2.0, 4.0, 8.0});
    ScopeTestView view(&model);
    view.enablePlotMarker(true);
    view.SetPlotMode(View::HistogramMode);
    view.settle();
    view.click(Qt::LeftButton, view.at(2.3, 1.0));
    QCOMPARE(view.markerText(0), QString("s: 0.000e+00\nChannel b\n2"));
    view.click(Qt::RightButton, view.at(4.4, 1.0));
    QCOMPARE(view.markerText(1),
             QString("s: 0.000e+00\nChannel d\n8\n      Sum: 14\n     Mean: 4.66666666667\n"
                     "      RMS: 5.29150262213\n Std. Dev: 3.0550504633"));
    model.show({1.0, 3.0, 4.0, 8.0});
    view.settle();
    QCOMPARE(view.markerText(0), QString("s: 1.000e+00\nChannel b\n3"));
    QTest::keyClick(&view, Qt::Key_Left);
    view.settle();
    QCOMPARE(view.markerText(1).section('\n', 1, 1), QString("Channel c"));
    view.selectionModel()->select(model.index(1, 4), QItemSelectionModel::ClearAndSelect);
    view.settle();
    QCOMPARE(view.markerText(0).section('\n', 1), QString("Channel d\n8"));
    const QRegion bars = view.visualRegionForSelection(view.selectionModel()->selection());
    const QPoint canvas = view.qwtPlot()->canvas()->mapTo(view.viewport(), QPoint(0, 0));
    QVERIFY(bars.contains(canvas + view.at(4.0, 1.0)));
    QVERIFY(!bars.contains(canvas + view.at(3.0, 1.0)));
    // In strip mode x is time, so the marker goes.
    view.SetPlotMode(View::StripMode);
    QVERIFY(!view.hasMarker(0));
}

void tst_ScopeMarkers::ofABeamCurrent_data()
{
    QTest::addColumn<QString>("window");
    QTest::newRow("all") << "all";
    QTest::newRow("dark") << "dark";
    QTest::newRow("beam") << "beam";
}

//! Real currents, compared with the results of another tool for the same windows.
void tst_ScopeMarkers::ofABeamCurrent()
{
    QFETCH(QString, window);
    const QVector<QStringList> lines = realReadings("bonn-proton-sem/currents_7ch.csv");
    if (lines.size() < 2)
        QSKIP("The folder of real readings is not there.");
    ScopeTestModel model(lines[0].size() - 1);
    model.names = lines[0].mid(1);
    QVector<ScopeTestModel::Row> rows;
    for (int i = 1; i < lines.size(); ++i) {
        ScopeTestModel::Row row;
        for (const QString &cell : lines[i])
            row << cell.toDouble();
        rows << row;
    }
    model.pointsHint = rows.size();
    model.append(rows);
    ScopeTestView view(&model);
    view.enablePlotMarker(true);

    for (const QStringList &reference : realReadings("bonn-proton-sem/reference_stats.csv")) {
        if (reference[0] != window)
            continue;
        const int channel = model.names.indexOf(reference[1]) + 1;
        for (int mode : {View::StripMode, View::ScopeMode}) {
            for (int c = 1; c < model.columnCount(); ++c) {
                const auto state = c == channel ? Qt::Checked : Qt::Unchecked;
                model.setData(model.index(0, c), state, Qt::CheckStateRole);
            }
            view.SetPlotMode(mode);
            view.SelectPoint1(QPointF(reference[2].toDouble(), 0.0));
            view.SelectPoint2(QPointF(reference[3].toDouble(), 0.0));
            view.settle();
            const QString label = view.markerText(1);
            const double mean = numberIn(label, "Mean");
            const double deviation = numberIn(label, "Std. Dev");
            const int n = int(std::lround(numberIn(label, "Sum") / mean));
            QCOMPARE(n, reference[4].toInt());
            // The reference gives ten digits.
            QVERIFY(qAbs(mean - reference[7].toDouble()) < 1e-9 * qAbs(mean));
            QVERIFY(qAbs(deviation - reference[8].toDouble()) < 1e-9 * deviation);
        }
    }
}

CORVALE_QT_TEST_MAIN(tst_ScopeMarkers)
#include "tst_ScopeMarkers.moc"
