// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXPositionPlot.h"
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/beam/profile/RVXSplitPlot.h"
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/units/Units.h"
#include "tests/scope/ScopeTestModel.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"

#include <QIdentityProxyModel>
#include <QLabel>
#include <QScrollBar>

#include <cmath>
#include <memory>

using namespace Corvale_Qt;
using View = RVXScopePlotView;

class tst_RVXScopePlotView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void manyRowsMakeOnePlot();
    void yScales_data();
    void yScales();
    void rangeIsTakenOnce();
    void normalizedCurvesReachTheirOwnLargest();
    void hiddenChannelsAreNotDrawn();
    void channelsWithoutAColourGetOne();
    void curvesAreWhereTheSamplesAre();
    void modesShowTheirWidgetAlone();
    void bufferSizeIsTold();
    void channelsComeAndGo();
    void atMost256Channels();
    void modelsGoAway();
    void modelsLeaveNoSelectionModels();
    void focusIsVisible();
    void unusedKeysAreLeftToTheWindow_data();
    void unusedKeysAreLeftToTheWindow();
    void modelsThatCannotBePlotted();
    void hostileNumbers_data();
    void hostileNumbers();
};

void tst_RVXScopePlotView::manyRowsMakeOnePlot()
{
    ScopeTestModel model(3);
    const ModelWatch watch(&model);
    ScopeTestView view(&model);
    model.appendRows(500, 0.1, level);
    view.settle();
    model.seriesTaken = 0;
    for (int i = 0; i < 1000; ++i)
        model.appendRows(1, 0.1, level);
    QCOMPARE(model.seriesTaken, 0);
    view.settle();
    // The view plots twice if longer labels have moved the canvas.
    QVERIFY2(model.seriesTaken >= 3 && model.seriesTaken <= 6,
             qPrintable(QString::number(model.seriesTaken)));
    QCOMPARE(watch.complaints(), QString());

    view.hide();
    model.seriesTaken = 0;
    model.appendRows(1, 0.1, level);
    view.settle();
    QCOMPARE(model.seriesTaken, 0);
}

void tst_RVXScopePlotView::yScales_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("positiveOnly");
    QTest::addColumn<QString>("axis");
    QTest::newRow("normalized") << 1 << false << "-1..1";
    QTest::newRow("normalized, positive") << 1 << true << "-0.1..1";
    QTest::newRow("full") << 2 << false << "-20..50";
    QTest::newRow("full, positive") << 2 << true << "-2..50";
    QTest::newRow("half") << 3 << false << "-10..25";
    QTest::newRow("2 %") << 7 << false << "-0.4..1";
    QTest::newRow("smallest") << 14 << false << "-0.002..0.005";
    QTest::newRow("smallest, positive") << 14 << true << "-0.0002..0.005";
    QTest::newRow("automatic") << 0 << false << "0..4";
    QTest::newRow("unknown is automatic") << 15 << true << "0..4";
    QTest::newRow("negative is automatic") << -1 << false << "0..4";
}

void tst_RVXScopePlotView::yScales()
{
    QFETCH(int, mode);
    QFETCH(bool, positiveOnly);
    ScopeTestModel model(1);
    ScopeTestView view(&model);
    model.appendRows(10, 1.0, [](int, double time) {
        return time > 4 ? 4.0 : 0.0;
    });
    view.SetRange(-20.0, 50.0);
    view.SetPositiveOnly(positiveOnly);
    view.SetYScaleMode(mode);
    view.settle();
    QTEST(view.yText(), "axis");
    QCOMPARE(int(view.yScaleMode()), mode);
}

void tst_RVXScopePlotView::rangeIsTakenOnce()
{
    ScopeTestView view;
    QVERIFY(!view.SetRange(-1.0, 1.0));
    QVERIFY(view.SetRange(-1.0, 2.0));
    QVERIFY(!view.SetRange(-1.0, 2.0));
    QVERIFY(!view.SetRange(qQNaN(), 2.0));
    QVERIFY(!view.SetRange(0.0, qInf()));
    // A range of no width still gives an axis with ticks.
    ScopeTestModel model(1);
    view.setModel(&model);
    model.appendRows(10, 1.0, [](int, double time) {
        return time;
    });
    for (double middle : {5.0, 0.0}) {
        QVERIFY(view.SetRange(middle, middle));
        view.SetYScaleMode(2);
        view.settle();
        QCOMPARE(view.yText(), QString(middle > 0 ? "4.5..5.5" : "-1..1"));
    }
}

void tst_RVXScopePlotView::normalizedCurvesReachTheirOwnLargest()
{
    ScopeTestModel model(2);
    const Units::nA nA;
    model.SetUnits(&nA);
    ScopeTestView view(&model);
    model.appendRows(100, 0.1, [](int channel, double time) {
        return channel == 1 ? 5e-9 * std::sin(time) : -3000.0;
    });
    view.settle();
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::yLeft).text(), QString("nA"));
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::xBottom).text(), QString("s"));
    view.SetYScaleMode(View::Normalized);
    view.settle();
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::yLeft).text(), QString("Relative Value"));
    const QRectF bounds = view.curves().value(0)->boundingRect();
    QCOMPARE(qMax(std::abs(bounds.top()), std::abs(bounds.bottom())), 1.0);
    QCOMPARE(view.curves().value(1)->sample(0).y(), -1.0);

    model.SetUnits(nullptr);
    view.SetYScaleMode(View::AutoScale);
    view.settle();
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::yLeft).text(), QString("Number"));
}

void tst_RVXScopePlotView::hiddenChannelsAreNotDrawn()
{
    ScopeTestModel model(3);
    ScopeTestView view(&model);
    model.appendRows(10, 1.0, level);
    model.setData(model.index(0, 2), Qt::Unchecked, Qt::CheckStateRole);
    view.settle();
    QCOMPARE(view.curves().size(), 2);
    model.setData(model.index(0, 2), Qt::Checked, Qt::CheckStateRole);
    view.settle();
    QCOMPARE(view.curves().size(), 3);
    // The curves are in channel order again, each in its colour.
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(view.curves()[i]->sample(0).y(), i + 1.0);
        const QBrush colour = model.index(0, i + 1).data(Qt::BackgroundRole).value<QBrush>();
        QCOMPARE(view.curves()[i]->pen().color(), colour.color());
    }
}

void tst_RVXScopePlotView::channelsWithoutAColourGetOne()
{
    ScopeTestModel model(2);
    model.hasColours = false;
    ScopeTestView view(&model);
    model.appendRows(10, 1.0, level);
    view.settle();
    for (int i = 0; i < 2; ++i)
        QCOMPARE(view.curves()[i]->pen().color(), RVXPlotColors::color(i));
}

void tst_RVXScopePlotView::curvesAreWhereTheSamplesAre()
{
    ScopeTestModel model(2);
    ScopeTestView view(&model);
    view.SetRange(-10.0, 10.0);
    view.SetYScaleMode(View::FullRange);
    model.pointsHint = 100;
    model.appendRows(200, 1.0, [](int channel, double) {
        return channel == 1 ? 5.0 : -7.0;
    });
    view.settle();
    const QImage picture = view.canvas();
    QCOMPARE(view.colourIn(picture, 150.5, 5.0), QColor(Qt::cyan));
    QCOMPARE(view.colourIn(picture, 150.5, -7.0), QColor(Qt::green));
    // The curve reaches both ends of the axis.
    QCOMPARE(view.colourIn(picture, view.x().minValue(), 5.0, {1, 0}), QColor(Qt::cyan));
    QCOMPARE(view.colourIn(picture, view.x().maxValue(), 5.0, {-1, 0}), QColor(Qt::cyan));
    QCOMPARE(view.colourIn(picture, 150.5, 5.0, {0, 2}), QColor(Qt::black));
    // The colour around the canvas is that of a window, not that of a list.
    const QColor corner = view.viewport()->grab().toImage().pixelColor(2, 2);
    QCOMPARE(corner, view.palette().color(view.backgroundRole()));
}

void tst_RVXScopePlotView::modesShowTheirWidgetAlone()
{
    ScopeTestModel model(2);
    model.appendRows(10, 1.0, level);
    ScopeTestView view(&model);
    const auto shown = [&view] {
        QStringList names;
        if (view.qwtPlot()->isVisible())
            names << "plot";
        if (view.spectrogram()->isVisible())
            names << "spectrogram";
        if (view.positionPlot()->isVisible())
            names << "position";
        if (view.splitPlot()->isVisible())
            names << "split";
        if (view.horizontalScrollBar()->isVisible())
            names << "scroll bar";
        return names.join(' ');
    };
    QStringList modes;
    for (int mode = 0; mode <= 5; ++mode) {
        view.SetPlotMode(mode);
        view.settle();
        modes << shown();
    }
    QCOMPARE(modes,
             QStringList({"plot scroll bar", "plot", "plot", "spectrogram", "position", "split"}));
    view.SetPlotMode(6);
    view.SetPlotMode(-1);
    view.settle();
    QCOMPARE(shown(), QString("split"));
    view.SetPlotMode(View::StripMode);
    view.settle();
    QCOMPARE(shown(), QString("plot scroll bar"));
    QCOMPARE(view.curves().size(), 2);

    ScopeTestView empty;
    empty.SetPlotMode(View::SplitMode); // ignored without a model
    QVERIFY(empty.qwtPlot()->isVisible());
}

void tst_RVXScopePlotView::bufferSizeIsTold()
{
    QLabel label;
    RVXSingleChannelDataModel model;
    QIdentityProxyModel proxy;
    proxy.setSourceModel(&model);
    ScopeTestView view(&proxy); // not a plot model, but the label counts the rows below it
    view.SetBufferSizeLabel(&label);
    QCOMPARE(label.text(), QString("0 Samples"));
    for (int i = 1; i <= 12; ++i)
        model.AddData(i, 0.0);
    view.settle();
    QCOMPARE(label.text(), QString("12 Samples"));
    view.SetPlotMode(View::PositionMode);
    model.AddData(13, 0.0);
    QCOMPARE(label.text(), QString("13 Samples"));
    view.setModel(nullptr);
    QCOMPARE(label.text(), QString("0 Samples"));
}

void tst_RVXScopePlotView::channelsComeAndGo()
{
    ScopeTestModel model(2);
    model.appendRows(10, 1.0, level);
    ScopeTestView view(&model);
    QCOMPARE(view.curves().size(), 2);
    model.setChannels(5);
    view.settle();
    QCOMPARE(view.curves().size(), 5);
    view.SetPlotMode(View::HistogramMode);
    view.settle();
    QCOMPARE(view.xText(), QString("0.5..5.5"));
    model.setChannels(12);
    view.settle();
    QCOMPARE(view.xText(), QString("0.5..12.5"));

    // A sweep of the former channels is not shown with the new ones.
    view.SetPlotMode(View::ScopeMode);
    model.appendRows(290, 1.0, level);
    view.settle();
    QCOMPARE(view.curves().size(), 12);
    model.Clear();
    model.setChannels(3);
    model.appendRows(100, 1.0, level);
    view.settle();
    QCOMPARE(view.curves().size(), 0);
}

void tst_RVXScopePlotView::atMost256Channels()
{
    ScopeTestModel model(257);
    model.appendRows(4, 1.0, level);
    QTest::ignoreMessage(QtDebugMsg, "RVXScopePlotView: the first 256 of 257 channels are shown");
    ScopeTestView view(&model);
    QCOMPARE(view.curves().size(), 256);
    view.SetPlotMode(View::HistogramMode);
    view.settle();
    QCOMPARE(view.xText(), QString("0.5..256.5"));
}

void tst_RVXScopePlotView::modelsGoAway()
{
    for (int mode = 0; mode <= 5; ++mode) {
        auto model = std::make_unique<ScopeTestModel>(2);
        ScopeTestModel other(1);
        other.appendRows(10, 1.0, level);
        ScopeTestView view(model.get());
        view.SetPlotMode(mode);
        model->appendRows(300, 1.0, level);
        view.settle();
        model.reset();
        view.grab();
        view.settle();
        QCOMPARE(view.curves().size(), 0);
        view.setModel(&other);
        view.SetPlotMode(View::StripMode);
        view.settle();
        QCOMPARE(view.curves().size(), 1);
        view.setModel(nullptr);
        view.settle();
        QCOMPARE(view.curves().size(), 0);
    }
}

void tst_RVXScopePlotView::modelsLeaveNoSelectionModels()
{
    ScopeTestModel models[2]{ScopeTestModel(1), ScopeTestModel(1)};
    ScopeTestView view;
    for (int i = 0; i < 20; ++i) {
        view.setModel(&models[i % 2]);
        QVERIFY(view.findChildren<QItemSelectionModel *>().size() <= 2);
    }
    // A selection model that another view uses stays, and so does one that the host has made.
    QItemSelectionModel *const shared = view.selectionModel();
    RVXScopePlotView other;
    other.setModel(&models[1]);
    other.setSelectionModel(shared);
    view.setModel(&models[0]);
    auto *const own = new QItemSelectionModel(&models[0], &view);
    const QPointer<QItemSelectionModel> kept(own);
    view.setSelectionModel(own);
    view.setModel(&models[0]);
    view.setModel(&models[1]);
    view.setModel(&models[0]);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(other.selectionModel(), shared);
    QVERIFY(kept);
}

void tst_RVXScopePlotView::focusIsVisible()
{
    ScopeTestModel model(1);
    model.appendRows(300, 1.0, level);
    ScopeTestView view(&model);
    view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&view));
    const QColor mark = view.palette().color(QPalette::Highlight);
    const auto edge = [&view] {
        view.settle();
        return view.canvas().pixelColor(1, 40);
    };
    view.setFocus();
    QTRY_VERIFY(view.hasFocus());
    const QImage focused = view.canvas();
    QCOMPARE(edge(), mark);
    view.clearFocus();
    QVERIFY(edge() != mark);
    // The frame covers nothing of the plot.
    const QRect inside = view.qwtPlot()->canvas()->contentsRect();
    const auto plot = [&](const QImage &canvas) {
        const double ratio = canvas.devicePixelRatio();
        return canvas.copy(QRect(inside.topLeft() * ratio, inside.size() * ratio));
    };
    QCOMPARE(plot(view.canvas()), plot(focused));
}

void tst_RVXScopePlotView::unusedKeysAreLeftToTheWindow_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("a digit, with which times begin") << int(Qt::Key_1) << "1";
    QTest::newRow("a letter") << int(Qt::Key_A) << "a";
    QTest::newRow("space") << int(Qt::Key_Space) << " ";
    QTest::newRow("left, without a marker") << int(Qt::Key_Left) << "";
    QTest::newRow("delete, without a marker") << int(Qt::Key_Delete) << "";
}

void tst_RVXScopePlotView::unusedKeysAreLeftToTheWindow()
{
    QFETCH(int, key);
    QFETCH(QString, text);
    ScopeTestModel model(1);
    model.appendRows(1000, 1.0, level);
    ScopeTestView view(&model);
    view.enablePlotMarker(true);
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&view, &event);
    view.keyboardSearch(text);
    view.settle();
    QVERIFY(!event.isAccepted());
    QVERIFY(!view.selectionModel()->hasSelection());
    QVERIFY(!view.hasMarker(0) && !view.hasMarker(1));
    QCOMPARE(view.x().maxValue(), 999.0);
}

void tst_RVXScopePlotView::modelsThatCannotBePlotted()
{
    ScopeTestModel source(2);
    source.appendRows(300, 1.0, level);
    QIdentityProxyModel plain;
    plain.setSourceModel(&source);
    ScopeTestView view(&plain);
    for (int mode = 0; mode <= 2; ++mode) {
        view.SetPlotMode(mode);
        view.settle();
        QCOMPARE(view.curves().size(), 0);
    }
}

void tst_RVXScopePlotView::hostileNumbers_data()
{
    QTest::addColumn<double>("number");
    QTest::newRow("not a number") << qQNaN();
    QTest::newRow("infinity") << qInf();
    QTest::newRow("minus infinity") << -qInf();
    QTest::newRow("1e300") << 1e300;
    QTest::newRow("the largest") << std::numeric_limits<double>::max();
    QTest::newRow("the smallest") << std::numeric_limits<double>::denorm_min();
}

//! The plot must return, and must show finite samples afterwards.
void tst_RVXScopePlotView::hostileNumbers()
{
    QFETCH(double, number);
    ScopeTestModel model(2);
    model.pointsHint = 20;
    ScopeTestView view(&model);
    for (int mode = 0; mode <= 2; ++mode) {
        view.SetPlotMode(mode);
        for (int scale : {0, 1, 2}) {
            view.SetYScaleMode(scale);
            model.append({{1.0, 1.0, number}, {2.0, number, 1.0}, {number, 1.0, -number}});
            model.append({{1.0, number, number}, {number, number, number}});
            view.settle();
            view.grab();
        }
        QVERIFY(std::isfinite(view.x().width()));
        QVERIFY(std::isfinite(view.y().width()));
    }
    view.SetRange(-1e308, 1e308);
    view.SetYScaleMode(View::FullRange);
    view.settle();
    model.Clear();
    view.SetPlotMode(View::StripMode);
    view.SetYScaleMode(View::AutoScale);
    model.appendRows(30, 1.0, [](int channel, double) {
        return 0.5 * channel;
    });
    view.settle();
    QCOMPARE(view.xText(), QString("10..29"));
    QVERIFY(view.y().maxValue() <= 2.0);
}

CORVALE_QT_TEST_MAIN(tst_RVXScopePlotView)
#include "tst_RVXScopePlotView.moc"
