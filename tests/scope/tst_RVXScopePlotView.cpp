// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXPositionPlot.h"
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/beam/profile/RVXSplitPlot.h"
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/numerics/ChannelLimits.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "corvale_qt/units/Units.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/BufferModel.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using View = RVXScopePlotView;

class tst_RVXScopePlotView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void manyRowsMakeOnePlot()
    {
        ModelView view(3);
        const ModelWatch watch(&view.model);
        view.append(500);
        view.settle();
        view.model.seriesTaken = 0;
        for (int i = 0; i < 1000; ++i)
            view.append(1);
        QCOMPARE(view.model.seriesTaken, 0);
        view.settle();
        // The view plots twice if longer labels have moved the canvas.
        QVERIFY(view.model.seriesTaken >= 3 && view.model.seriesTaken <= 6);
        QCOMPARE(watch.complaints(), QString());

        view.hide();
        view.model.seriesTaken = 0;
        view.append(1);
        view.settle();
        QCOMPARE(view.model.seriesTaken, 0);
    }

    void limitsAreDrawnAndJudged()
    {
        ModelView view(2, 50);
        view.SetRange(-10.0, 10.0);
        view.SetYScaleMode(View::FullRange);
        QSignalSpy changed(&view, &View::limitStateChanged);
        ChannelLimits limits;
        limits.highAlarm = 6.5;
        view.setChannelLimits(2, limits);
        limits.highAlarm = qInf();
        view.setChannelLimits(2, limits); // not valid
        view.setChannelLimits(0, ChannelLimits());
        QCOMPARE(view.channelLimits(2).highAlarm, 6.5);
        QCOMPARE(view.channelLimits(1), ChannelLimits());
        const QColor black(Qt::black);
        const auto line = [&](double x) { return view.colourIn(view.canvas(), x, 6.5); };
        QVERIFY(line(-50.3).red() > 200 && line(48.3).red() > 200);
        view.check(2, false);
        QCOMPARE(line(48.3), black);
        view.check(2, true);
        view.showMode(View::HistogramMode);
        QCOMPARE(line(0.7), black); // the bar of channel 1
        QVERIFY(line(1.7).red() > 200);
        limits.highAlarm = 6.5;
        limits.lowAlarm = 1.0;
        view.setChannelLimits(2, limits);
        view.SetYScaleMode(View::Normalized); // to the largest reading, which is 2
        QVERIFY(view.colourIn(view.canvas(), 1.7, 0.5).red() > 200);
        limits.lowAlarm = qQNaN();
        view.setChannelLimits(2, limits);
        view.setChannelLimits(7, limits); // which the model does not have yet

        // Each passage is told, whatever the view shows, also if the reading has come back since.
        view.hide();
        for (const double value : {7.0, 6.45, 6.0})
            view.model.show({50.0, value});
        view.model.show({50.0, 9.0});
        view.settle();
        QStringList states;
        for (const QList<QVariant> &each : changed)
            states.append(
                QString("%1:%2").arg(each[0].toInt()).arg(int(each[1].value<LimitState>())));
        QCOMPARE(states.join(' '), QString("2:4 2:0 2:4"));
        QCOMPARE(view.limitState(2), LimitState::HighAlarm);
        // A reading or a limit that changes nothing of it is not told.
        limits.highAlarm = 6.25;
        view.setChannelLimits(2, limits);
        view.model.change(54, 2, 9.5);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(changed.size(), 3);
        // The newest reading is judged by what it is now, as after a zero or in another unit.
        view.model.change(54, 2, 6.0);
        QCOMPARE(view.limitState(2), LimitState::Normal);
        view.model.change(54, 2, 9.0);
        QCOMPARE(view.limitState(2), LimitState::HighAlarm);
        view.setChannelLimits(2, ChannelLimits());
        QCOMPARE(view.limitState(2), LimitState::Normal);

        // A host hears of the last state, however often a state changed before it could listen.
        limits.highAlarm = 6.5;
        view.setChannelLimits(2, limits);
        changed.clear();
        const auto alternating = [](int, double time) {
            return std::fmod(time, 2.0) == 0.0 ? 9.0 : 5.0;
        };
        view.model.appendRows(12001, 1.0, alternating);
        QCOMPARE(view.limitState(2), LimitState::HighAlarm);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(changed.last()[1].value<LimitState>(), LimitState::HighAlarm);
        QVERIFY(changed.size() < 10100);
        // None of many readings that come together is left out.
        changed.clear();
        view.model.appendRows(1200, 1.0, alternating);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(changed.size(), 1200);
    }

    //! What is set for a channel stays with it when other channels come, go and change places.
    void settingsFollowTheirChannels_data()
    {
        tableFrom("| script | settings\n"
                  "one more in front | prepend-channel 9 | limits 3, trigger 3, raised 3, marker "
                  "3, hidden 2\n"
                  "one more behind | append-channel 9 | limits 2, trigger 2, raised 2, marker 2, "
                  "hidden 1\n"
                  "one less in front | remove-channel 1 | limits 1, trigger 1, raised 1, marker 1\n"
                  "the channel itself goes | remove-channel 2 | marker 0, hidden 1\n"
                  "the first one behind | move-channel | limits 1, trigger 1, raised 1, marker 1, "
                  "hidden 3");
    }
    void settingsFollowTheirChannels()
    {
        BufferModel model(3);
        model.act("append 1 5 8; check 1 0");
        ScopeTestView view(&model);
        view.enablePlotMarker(true);
        ChannelLimits limits;
        limits.highAlarm = 6.5;
        view.setChannelLimits(2, limits);
        SweepTrigger trigger;
        trigger.mode = SweepTrigger::Mode::Normal;
        trigger.channel = 2;
        view.setTrigger(trigger);
        view.setRaisedChannel(2);
        view.click(Qt::LeftButton, 4.0, 9.0); // 5 + 3 + 1 is the reading of channel 2
        QCOMPARE(view.markerStatistics().first.channel, 2);
        QSignalSpy limitsChanged(&view, &View::channelLimitsChanged);
        model.act(cell("script"));
        view.settle();

        QStringList found;
        for (int channel = 1; channel <= 4; ++channel) {
            if (!view.channelLimits(channel).isEmpty())
                found << QString("limits %1").arg(channel);
        }
        if (view.trigger().isOn())
            found << QString("trigger %1").arg(view.trigger().channel);
        if (view.raisedChannel() > 0)
            found << QString("raised %1").arg(view.raisedChannel());
        found << QString("marker %1").arg(view.markerStatistics().first.channel);
        for (int channel = 1; channel < model.columnCount(); ++channel) {
            if (!model.index(0, channel).data(Qt::CheckStateRole).toInt())
                found << QString("hidden %1").arg(channel);
        }
        QTEST(found.join(", "), "settings");
        QCOMPARE(limitsChanged.isEmpty(), view.channelLimits(2) == limits);
        QCOMPARE(view.limitState(2) == LimitState::HighAlarm, view.channelLimits(2) == limits);
    }

    //! After a reset, channels are found again by their names. A host that renames a channel keeps its settings.
    void settingsFollowNamesThroughAReset_data()
    {
        tableFrom("| names | int channel\n"
                  "one more in front | new a b c | 3\n"
                  "one less | b c | 1\n"
                  "sorted in reverse | c b a | 2\n"
                  "the channel itself is not there any more | a c | 0\n"
                  "the channel has another name | a other c | 2\n"
                  "all have other names | x y z | 2");
    }
    void settingsFollowNamesThroughAReset()
    {
        QFETCH(QString, names);
        QFETCH(int, channel);
        ModelView view(3, 300);
        view.model.names = QStringList{"a", "b", "c"};
        view.enablePlotMarker(true);
        view.setModel(nullptr);
        view.setModel(&view.model);
        ChannelLimits limits;
        limits.highAlarm = 6.5;
        view.setChannelLimits(2, limits);
        view.click(Qt::LeftButton, 250.0, 2.0);
        QCOMPARE(view.markerStatistics().first.channel, 2);
        view.model.names = names.split(' ');
        view.model.setChannels(view.model.names.size());
        int found = 0;
        for (int each = 1; each <= 4; ++each)
            found += view.channelLimits(each) == limits ? each : 0;
        QCOMPARE(found, channel);
        const int marked = view.markerStatistics().first.channel;
        QVERIFY2(marked == channel || channel == 0, qPrintable(QString::number(marked)));
    }

    void yScales_data()
    {
        columns<int, bool, QString>("mode", "positiveOnly", "axis");
        row("normalized", 1, false, "-1..1");
        row("normalized, positive", 1, true, "-0.1..1");
        row("full", 2, false, "-20..50");
        row("full, positive", 2, true, "-2..50");
        row("half", 3, false, "-10..25");
        row("2 %", 7, false, "-0.4..1");
        row("smallest, positive", 14, true, "-0.0002..0.005");
        row("automatic", 0, false, "0..4");
        row("unknown is automatic", 15, true, "0..4");
        row("negative is automatic", -1, false, "0..4");
    }
    void yScales()
    {
        QFETCH(int, mode);
        ModelView view(1);
        view.model.appendRows(10, 1.0, [](int, double time) { return time > 4 ? 4.0 : 0.0; });
        view.SetRange(-20.0, 50.0);
        view.SetPositiveOnly(cell<bool>("positiveOnly"));
        view.SetYScaleMode(mode);
        QTEST(view.yText(), "axis");
        QCOMPARE(int(view.yScaleMode()), mode);
    }

    void rangeIsTakenOnce()
    {
        ModelView view(1, 10);
        QVERIFY(!view.SetRange(-1.0, 1.0));
        QVERIFY(view.SetRange(-1.0, 2.0));
        QVERIFY(!view.SetRange(-1.0, 2.0));
        QVERIFY(!view.SetRange(qQNaN(), 2.0));
        QVERIFY(!view.SetRange(0.0, qInf()));
        // A range of no width still gives an axis with ticks.
        for (double middle : {5.0, 0.0}) {
            QVERIFY(view.SetRange(middle, middle));
            view.SetYScaleMode(View::FullRange);
            QCOMPARE(view.yText(), QString(middle > 0 ? "4.5..5.5" : "-1..1"));
        }
    }

    void normalizedCurvesReachTheirOwnLargest()
    {
        ModelView view(2);
        const Units::nA nA;
        view.model.SetUnits(&nA);
        view.model.appendRows(100, 0.1, [](int channel, double time) {
            return channel == 1 ? 5e-9 * std::sin(time) : -3000.0;
        });
        QCOMPARE(view.title(QwtPlot::yLeft), QString("nA"));
        QCOMPARE(view.title(QwtPlot::xBottom), QString("s"));
        view.SetYScaleMode(View::Normalized);
        QCOMPARE(view.title(QwtPlot::yLeft), QString("Relative Value"));
        const QRectF bounds = view.curves().value(0)->boundingRect();
        QCOMPARE(qMax(std::abs(bounds.top()), std::abs(bounds.bottom())), 1.0);
        QCOMPARE(view.curves().value(1)->sample(0).y(), -1.0);
        view.model.SetUnits(nullptr);
        view.SetYScaleMode(View::AutoScale);
        QCOMPARE(view.title(QwtPlot::yLeft), QString("Number"));
    }

    void curvesAreInChannelOrderAndColour()
    {
        ModelView view(3, 10);
        view.check(2, false);
        QCOMPARE(view.curves().size(), 2);
        view.check(2, true);
        for (bool hasColours : {true, false}) {
            view.model.hasColours = hasColours;
            view.reset();
            const auto curves = view.curves();
            QCOMPARE(curves.size(), 3);
            for (int i = 0; i < 3; ++i) {
                QCOMPARE(curves[i]->sample(0).y(), i + 1.0);
                QCOMPARE(curves[i]->pen().color(), RVXPlotColors::color(i));
            }
        }
    }

    void curvesAreWhereTheSamplesAre()
    {
        ModelView view(2);
        view.useMarkers();
        view.model.pointsHint = 100;
        view.model.appendRows(200, 1.0,
                              [](int channel, double) { return channel == 1 ? 5.0 : -7.0; });
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

    void modesShowTheirWidgetAlone()
    {
        ModelView view(2, 10);
        const auto shown = [&view] {
            const std::pair<const char *, QWidget *> widgets[] = {
                {"plot", view.qwtPlot()},
                {"spectrogram", view.spectrogram()},
                {"position", view.positionPlot()},
                {"split", view.splitPlot()},
                {"scroll bar", view.horizontalScrollBar()}};
            QStringList names;
            for (const auto &[name, widget] : widgets) {
                if (widget->isVisible())
                    names << name;
            }
            return names.join('+');
        };
        QStringList modes;
        for (int mode : {0, 1, 2, 3, 4, 5, 6, -1, 0}) { // 6 and -1 are ignored
            view.showMode(mode);
            modes << shown();
        }
        QCOMPARE(modes.join(' '),
                 QString("plot+scroll bar plot plot spectrogram position split split split "
                         "plot+scroll bar"));
        QCOMPARE(view.curves().size(), 2);
        ScopeTestView empty;
        empty.SetPlotMode(View::SplitMode); // ignored without a model
        QVERIFY(empty.qwtPlot()->isVisible());
    }

    void bufferSizeIsTold()
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

    void channelsComeAndGo()
    {
        ModelView view(2, 10);
        view.model.setChannels(5);
        QCOMPARE(view.curves().size(), 5);
        view.SetPlotMode(View::HistogramMode);
        QCOMPARE(view.xText(), QString("0.5..5.5"));
        view.model.setChannels(12);
        QCOMPARE(view.xText(), QString("0.5..12.5"));
        // A sweep of the former channels is not shown with the new ones.
        view.SetPlotMode(View::ScopeMode);
        view.append(290);
        QCOMPARE(view.curves().size(), 12);
        view.model.Clear();
        view.model.setChannels(3);
        view.append(100);
        QCOMPARE(view.curves().size(), 0);
    }

    void atMost256Channels()
    {
        QTest::ignoreMessage(QtDebugMsg,
                             "RVXScopePlotView: the first 256 of 257 channels are shown");
        ModelView view(257, 4);
        QCOMPARE(view.curves().size(), 256);
        view.SetPlotMode(View::HistogramMode);
        QCOMPARE(view.xText(), QString("0.5..256.5"));
    }

    void modelsGoAway()
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
            QCOMPARE(view.curves().size(), 0);
            view.setModel(&other);
            view.SetPlotMode(View::StripMode);
            QCOMPARE(view.curves().size(), 1);
            view.setModel(nullptr);
            QCOMPARE(view.curves().size(), 0);
        }
    }

    void modelsLeaveNoSelectionModels()
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
        for (int i : {0, 1, 0})
            view.setModel(&models[i]);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(other.selectionModel(), shared);
        QVERIFY(kept);
    }

    void focusIsVisible()
    {
        ModelView view(1, 300);
        view.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&view));
        view.setFocus();
        QTRY_VERIFY(view.hasFocus());
        const QImage focused = view.canvas();
        view.clearFocus();
        const QImage plain = view.canvas();
        const QColor mark = view.palette().color(QPalette::Highlight);
        QCOMPARE(focused.pixelColor(1, 40), mark);
        QVERIFY(plain.pixelColor(1, 40) != mark);
        // The frame covers nothing of the plot.
        const QRect inside = view.qwtPlot()->canvas()->contentsRect();
        const double ratio = plain.devicePixelRatio();
        const QRect plot(inside.topLeft() * ratio, inside.size() * ratio);
        QCOMPARE(plain.copy(plot), focused.copy(plot));
    }

    void unusedKeysAreLeftToTheWindow_data()
    {
        columns<int, QString>("key", "text");
        row("a digit, with which times begin", int(Qt::Key_1), "1");
        row("a letter", int(Qt::Key_A), "a");
        row("space", int(Qt::Key_Space), " ");
        row("left, without a marker", int(Qt::Key_Left), "");
        row("delete, without a marker", int(Qt::Key_Delete), "");
    }
    void unusedKeysAreLeftToTheWindow()
    {
        QFETCH(QString, text);
        ModelView view(1, 1000);
        view.enablePlotMarker(true);
        QKeyEvent event(QEvent::KeyPress, cell<int>("key"), Qt::NoModifier, text);
        QCoreApplication::sendEvent(&view, &event);
        view.keyboardSearch(text);
        QVERIFY(!event.isAccepted());
        QVERIFY(!view.selectionModel()->hasSelection());
        QVERIFY(!view.hasMarker(0) && !view.hasMarker(1));
        QCOMPARE(view.x().maxValue(), 999.0);
    }

    void modelsThatCannotBePlotted()
    {
        ScopeTestModel source(2);
        source.appendRows(300, 1.0, level);
        QIdentityProxyModel plain;
        plain.setSourceModel(&source);
        ScopeTestView view(&plain);
        for (int mode = 0; mode <= 2; ++mode) {
            view.SetPlotMode(mode);
            QCOMPARE(view.curves().size(), 0);
        }
    }

    //! The plot must return, and must show finite samples afterwards.
    void hostileNumbers()
    {
        for (double number : {qQNaN(), qInf(), -qInf(), 1e300, 5e-324}) {
            ModelView view(2);
            view.model.pointsHint = 20;
            for (int mode = 0; mode <= 2; ++mode) {
                view.SetPlotMode(mode);
                for (int scale : {0, 1, 2}) {
                    view.SetYScaleMode(scale);
                    view.model.append(
                        {{1.0, 1.0, number}, {2.0, number, 1.0}, {number, 1.0, -number}});
                    view.model.append({{1.0, number, number}, {number, number, number}});
                    view.settle();
                    view.grab();
                }
                QVERIFY(std::isfinite(view.x().width()) && std::isfinite(view.y().width()));
            }
            view.SetRange(-1e308, 1e308);
            view.SetYScaleMode(View::FullRange);
            view.settle();
            view.model.Clear();
            view.SetPlotMode(View::StripMode);
            view.SetYScaleMode(View::AutoScale);
            view.append(30);
            QCOMPARE(view.xText(), QString("10..29"));
            QVERIFY(view.y().maxValue() <= 4.0);
        }
    }

    void curvesHaveTheColoursAndDashesOfThePalette()
    {
        ModelView view(20, 20);
        view.model.setPalette(RVXPlotColors::ManyColors);
        view.settle();
        const auto curves = view.curves();
        QCOMPARE(curves[17]->pen().color(), RVXPlotColors::color(17, RVXPlotColors::ManyColors));
        QCOMPARE(curves[17]->pen().dashPattern(),
                 RVXPlotColors::dashes(17, RVXPlotColors::ManyColors));
        QCOMPARE(curves[0]->pen().style(), Qt::SolidLine);
    }

    void anEmptyChartClaimsNothing()
    {
        const Units::nA nA;
        ScopeTestModel model(2);
        model.SetUnits(&nA);
        ScopeTestView view;
        QCOMPARE(view.xText() + ' ' + view.yText(), QString("0..1 -1..1"));
        view.setModel(&model);
        view.setSiPrefix(true);
        view.setHysteresis(true);
        view.setTimeSpan(60.0);
        view.setTimeAxis(RVXScopePlotView::LocalTime);
        const auto axes = [&view] {
            return view.xText() + view.title(QwtPlot::xBottom) + ' ' + view.yText()
                + view.title(QwtPlot::yLeft);
        };
        for (const int mode : {0, 1, 2, 0}) {
            view.SetPlotMode(mode);
            const QString empty = mode == 2 ? "0.5..2.5Channel -1..1nA" : "0..60s -1..1nA";
            QCOMPARE(axes(), empty);
            model.appendRows(300, 1.0, [](int, double time) { return 2e6 + time; });
            QVERIFY2(view.y().maxValue() > 1e6, qPrintable(axes()));
            model.Clear();
            if (mode != 2) // the first reading of the next run, which draws no curve yet
                model.show({5.0, 5.0});
            QCOMPARE(axes(), empty);
            model.Clear();
            view.SetYScaleMode(RVXScopePlotView::Normalized);
            QCOMPARE(view.title(QwtPlot::yLeft), QString("Relative Value"));
            view.SetYScaleMode(RVXScopePlotView::AutoScale);
        }
        view.setLogarithmic(true);
        QCOMPARE(view.y().maxValue(), 1.0);
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXScopePlotView)
#include "tst_RVXScopePlotView.moc"
