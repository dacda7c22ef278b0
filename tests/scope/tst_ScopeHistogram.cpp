// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/DetectorLayout.h"
#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/scope/ChannelNameDraw.h"
#include "corvale_qt/scope/ChannelNumberDraw.h"
#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h"
#include "corvale_qt/units/Units.h"
#include "tests/scope/HistogramView.h"
#include "tests/support/Pixels.h"
#include "tests/support/Profiles.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using View = RVXScopePlotView;

class tst_ScopeHistogram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneBarAChannel()
    {
        const Units::nA nA;
        HistogramView view(3);
        view.model.SetUnits(&nA);
        view.model.show({1.0, 2.0, 3.0});
        view.model.show({5.0, -6.0, 7.0});
        QCOMPARE(view.bars(), QVector<double>({5.0, -6.0, 7.0}));
        QCOMPARE(view.xText(), QString("0.5..3.5"));
        QCOMPARE(view.histogram()->sample(1).interval.minValue(), 1.5);
        QCOMPARE(view.title(QwtPlot::xBottom), QString("Channel"));
        QCOMPARE(view.title(QwtPlot::yLeft), QString("nA"));
        const QImage picture = view.canvas();
        QCOMPARE(view.colourIn(picture, 1.0, 2.0), QColor(Qt::yellow));
        QCOMPARE(view.colourIn(picture, 2.2, -3.0), QColor(Qt::yellow));
        QVERIFY(view.colourIn(picture, 2.2, 3.0) != QColor(Qt::yellow));
        QCOMPARE(view.curves().size(), 0);
        view.check(3, false);
        QCOMPARE(view.bars(), QVector<double>({5.0, -6.0, 0.0}));
        view.showMode(View::StripMode);
        QVERIFY(!view.histogram()->plot());
        QCOMPARE(view.title(QwtPlot::xBottom), QString("s"));
    }

    //! The numbers come from the analytic beam alone.
    void barsStandAtTheirPlaces()
    {
        DetectorDescription harp;
        harp.kind = DetectorKind::Strips;
        harp.x = harp.y = DetectorAxis::at(Profiles::unequalWires, QStringLiteral("mm"));
        std::reverse(harp.y.positions.begin(), harp.y.positions.end());
        harp.density = true;
        harp.channels.resize(32);
        harp.channels[20].gain = 2;
        QVector<double> readings;
        const auto add = [&](const QVector<double> &at, double mean, double sigma) {
            for (const double place : at)
                readings << 1e-9 * std::exp(-0.5 * std::pow((place - mean) / sigma, 2));
        };
        add(Profiles::unequalWires, 1.0, 4.0);
        add(harp.y.positions, -6.0, 5.5);
        readings[20] *= 2;

        HistogramView view(32);
        view.model.show(readings);
        view.setDetectorLayout(DetectorLayout::fromDescription(harp));
        for (const auto type : {View::GaussabolaItem, View::RegressionItem})
            view.enableHistogramItem(type, 2, {0.1, 10, 0, 0, 2, 5}, true);
        view.settle();
        QCOMPARE(view.title(QwtPlot::xBottom), QString("X (mm), Y (mm)"));
        const auto bar = [&](int i) { return view.histogram()->sample(i); };
        QVERIFY(bar(16).interval.maxValue() > bar(31).interval.maxValue()); // from right to left
        QCOMPARE(bar(20).value, readings[20] / 2);
        const struct
        {
            int item;
            double mean;
            double sigma;
        } planes[] = {{0, 1.0, 4.0}, {1, -6.0, 5.5}};
        for (const auto &plane : planes) {
            for (const auto type : {View::GaussabolaItem, View::RegressionItem}) {
                auto *item = view.histogramItems(type).at(plane.item);
                const BeamEstimate estimate = item->estimate();
                QVERIFY(qAbs(estimate.position.value - plane.mean) < 0.02 * plane.sigma);
                QVERIFY(qAbs(estimate.sigma.value - plane.sigma) < 0.02 * plane.sigma);
                QCOMPARE(item->status(), FitStatus::Ok);
                const QString label = item->label();
                QVERIFY(label.contains("(mm)") && label.contains("DATA VALID"));
                const double area = 1e-9 * plane.sigma * std::sqrt(2 * M_PI);
                const double shown = label.section("Integral: ", 1).section(' ', 0, 0).toDouble();
                QVERIFY(qAbs(shown - area) < 0.02 * area);
                QVERIFY(label.contains(QStringLiteral("\u03a7\u00b2: N/A"))); // of channels only
                // The marker stands among the bars of its plane, where the peak is.
                int nearest = 0;
                for (int i = 16 * plane.item; i < 16 * (plane.item + 1); ++i)
                    if (bar(i).interval.contains(item->position()))
                        nearest = i;
                const double place = plane.item == 0 ? Profiles::unequalWires[nearest]
                                                     : harp.y.positions[nearest - 16];
                QVERIFY(qAbs(place - plane.mean) < 2);
            }
        }
        QCOMPARE(view.histogramItems(View::RegressionItem).first()->positionUnit(), QString("mm"));
        view.enableHistogramItem(View::RegressionItem, 1, {0.1, 10, 0, 0, 2, 5}, false);
        QVERIFY(
            view.histogramItems(View::RegressionItem).first()->statusMessage().contains("planes"));

        view.setDetectorLayout({});
        view.settle();
        QCOMPARE(view.title(QwtPlot::xBottom), QString("Channel"));
        QCOMPARE(bar(3).interval.minValue(), 3.5);
        QVERIFY(!view.histogramItems(View::GaussabolaItem).first()->estimate().isOk());
    }

    //! Bars of wires meet halfway between the wires on the screen as well; a marker stands on the wire itself.
    void barsMeetBetweenUnequalWires()
    {
        for (const bool falling : {false, true}) {
            DetectorDescription harp;
            harp.kind = DetectorKind::Strips;
            harp.x = DetectorAxis::at(Profiles::unequalWires, QStringLiteral("mm"));
            if (falling)
                std::reverse(harp.x.positions.begin(), harp.x.positions.end());
            harp.density = true;
            const int count = harp.x.positions.size();
            HistogramView view(count);
            QVector<double> readings;
            for (int i = 0; i < count; ++i) // every other wire, and none at the ends
                readings << (i % 2 == 1 && i < count - 1 ? 1e-9 : 0.0);
            view.model.show(readings);
            view.setDetectorLayout(DetectorLayout::fromDescription(harp));
            view.settle();
            const QImage picture = view.canvas();
            const int y = int(view.at(0, 0.5e-9).y() * picture.devicePixelRatio());
            QVector<double> edges; // in pixels, where yellow begins or ends
            const auto isBar = [&](int x) { return picture.pixelColor(x, y).red() > 150; };
            for (int x = 1; x < picture.width(); ++x)
                if (isBar(x) != isBar(x - 1))
                    edges << x / picture.devicePixelRatio();
            QCOMPARE(edges.size(), count - 2);
            for (int i = 0; i < edges.size(); ++i) {
                const auto wire = Profiles::unequalWires.begin() + i + (falling ? 1 : 0);
                const double middle = (*wire + *(wire + 1)) / 2;
                QVERIFY2(qAbs(edges[i] - view.at(middle, 0).x()) <= 1.5,
                         qPrintable(QString::number(middle)));
            }
            view.enablePlotMarker(true);
            view.click(Qt::LeftButton, 16.0, 0.5e-9); // the wire is not in the middle of its bar
            QCOMPARE(view.markerX(0), 16.5);
        }
    }

    void barsWithoutAReading()
    {
        HistogramView view(6);
        view.enablePlotMarker(true);
        view.enableHistogramItem(View::CenterOfGravityItem, 1, {}, true);
        view.check(6, false);
        view.model.show({qQNaN(), 1.0, qInf(), 1.0, 1e300, 7.0});
        QCOMPARE(view.bars(), QVector<double>({0.0, 1.0, 0.0, 1.0, 1e300, 0.0}));
        // A statistic is in single precision, which does not hold 1e300.
        QCOMPARE(view.histogramItems(View::CenterOfGravityItem).value(0)->position(), 3.0);
        QStringList readings;
        for (int channel = 1; channel <= 6; ++channel) {
            view.SelectPoint1(QPointF(channel, 0.0));
            readings << view.markerText(0).section('\n', 2);
        }
        QCOMPARE(readings.join(", "), QString("no reading, 1, no reading, 1, 1e+300, no reading"));
    }

    void normalizedBars_data()
    {
        using Bars = QVector<double>;
        columns<Bars, Bars>("values", "shown");
        row("positive", Bars{1e-9, 4e-9, 2e-9}, Bars{0.25, 1.0, 0.5});
        row("the largest is negative", Bars{1.0, -2.0, 0.5}, Bars{0.5, -1.0, 0.25});
        row("dark", Bars{0.0, 0.0, 0.0}, Bars{0.0, 0.0, 0.0});
        row("one channel has a reading", Bars{qInf(), 5.0, qQNaN()}, Bars{0.0, 1.0, 0.0});
    }
    void normalizedBars()
    {
        QFETCH(QVector<double>, values);
        HistogramView view(4);
        view.check(4, false);
        view.model.show(values + QVector<double>{1e3}); // hidden, so it does not count
        view.SetYScaleMode(View::Normalized);
        QCOMPARE(view.yText(), QString("-1..1"));
        QCOMPARE(view.title(QwtPlot::yLeft), QString("Relative Value"));
        QTEST(view.bars().mid(0, 3), "shown");
    }

    //! Marks on a normalised histogram are divided like the bars; the numbers in labels are not.
    void marksOfNormalizedBars()
    {
        const Units::nA nA;
        HistogramView view(32);
        view.model.SetUnits(&nA);
        view.model.deviceFits = QVariantList{12.0, 2.5, 4.0};
        view.model.show(Profiles::gaussian<double>(32, 12.0, 2.5, 4.0));
        view.enablePlotMarker(true);
        view.enableAll(true);
        view.SelectPoint1(QPointF(13.0, 0.0));
        const auto heights = [&view] {
            view.settle();
            QString text;
            for (const QwtPlotItem *item : view.qwtPlot()->itemList()) {
                if (auto *marker = dynamic_cast<const QwtPlotMarker *>(item))
                    text += QStringLiteral("marker %1, ").arg(marker->yValue(), 0, 'g', 3);
                else if (auto *curve = dynamic_cast<const QwtPlotCurve *>(item))
                    text += QStringLiteral("curve %1, ").arg(curve->maxYValue(), 0, 'g', 3);
            }
            return text;
        };
        const QString absolute = heights();
        QCOMPARE(absolute.count(" 4, "), 8);
        QCOMPARE(view.markerText(0).section('\n', 2), QString("4"));
        view.SetYScaleMode(View::Normalized);
        QCOMPARE(heights(), QString(absolute).replace(" 4, ", " 1, "));
        QCOMPARE(view.markerText(0).section('\n', 2), QString("4 nA"));
        const QString label = view.histogramItems(View::GaussabolaItem)[0]->label();
        QVERIFY(label.contains("Peak: 4 nA\n") && label.contains("Noise Std. Dev (nA): "));
        view.setSiPrefix(true); // each number has a unit then
        view.settle();
        QVERIFY(view.histogramItems(View::GaussabolaItem)[0]->label().contains("Noise Std. Dev: "));
    }

    void channelsAreLabelled_data()
    {
        columns<int, QString>("channels", "labels");
        row("one", 1, "A");
        row("eight have letters", 8, "A B C D E F G H");
        row("nine have numbers", 9, "1 2 3 4 5 6 7 8 9");
        row("every fourth of 128", 128,
            "4 8 12 16 20 24 28 32 36 40 44 48 52 56 60 64 68 72 76 80 84 88 92 96 100 104 108 "
            "112 116 120 124 128");
    }
    void channelsAreLabelled()
    {
        QFETCH(int, channels);
        ModelView view(channels);
        view.model.show(QVector<double>(channels, 1.0));
        const QFont fontOfTime = view.qwtPlot()->axisFont(QwtPlot::xBottom);
        view.showMode(View::HistogramMode);
        const QwtScaleDraw *draw = view.qwtPlot()->axisScaleDraw(QwtPlot::xBottom);
        QStringList labels;
        for (double tick : draw->scaleDiv().ticks(QwtScaleDiv::MajorTick))
            labels << draw->label(tick).text();
        labels.removeAll(QString());
        QTEST(labels.join(' '), "labels");
        // There are too few samples for a sweep, but the x axis shows time.
        view.SetPlotMode(View::ScopeMode);
        QCOMPARE(view.title(QwtPlot::xBottom), QString("s"));
        QCOMPARE(view.qwtPlot()->axisFont(QwtPlot::xBottom), fontOfTime);
    }

    void numbersWithoutALabel()
    {
        QCOMPARE(ChannelNameDraw().label(26.0).text(), QString("Z"));
        for (double none : {0.0, 27.0, 1.5, qQNaN(), -qInf()})
            QVERIFY(ChannelNameDraw().label(none).isEmpty());
        QCOMPARE(ChannelNumberDraw(256).label(8.0).text(), QString("8"));
        QVERIFY(ChannelNumberDraw(256).label(9.0).isEmpty());
    }

    void ticksStandAboveTheBars_data()
    {
        columns<int, int>("width", "channels");
        for (int width : {500, 777, 1000, 1399}) {
            for (int channels : {5, 32, 61})
                QTest::addRow("%d wide, %d channels", width, channels) << width << channels;
        }
    }
    void ticksStandAboveTheBars()
    {
        QFETCH(int, channels);
        HistogramView view(channels);
        view.resize(cell<int>("width"), 500);
        view.enableHistogramItem(View::CenterOfGravityItem, 1, {}, false);
        // The centre of gravity lies in the middle of the highest bar.
        QVector<double> values(channels, 0.0);
        const int peak = channels * 2 / 3;
        values[peak - 2] = values[peak] = 1.0;
        values[peak - 1] = 2.0;
        view.model.show(values);
        const auto strips = view.strips();
        QCOMPARE(strips.size(), 1);
        const double bar = view.middleOfBar(1.4);
        // Only the tick of the position is long enough for the lowest lines.
        const QVector<double> major = view.ticksAt(strips[0], 4);
        QVERIFY(major.size() == 1 && qAbs(major[0] - bar) <= 1.0);
        const double channelWidth =
            double(view.at(channels, 0.0).x() - view.at(1.0, 0.0).x()) / (channels - 1);
        const double sigma = channelWidth * std::sqrt(2.0 / 4.0);
        const QVector<double> oneSigma = view.ticksAt(strips[0], 7);
        QVERIFY(oneSigma.size() == 3 && qAbs(oneSigma[2] - bar - sigma) <= 1.0);
        const QVector<double> all = view.ticksAt(strips[0], 10);
        QVERIFY(all.size() == 5 && qAbs(all[4] - bar - 3 * sigma) <= 1.5);
    }

    void labelsStandBesideEachOther_data()
    {
        columns<int, int>("type", "peaks");
        for (int type = 0; type < 4; ++type) {
            for (int peaks : {1, 2, 4, 8})
                QTest::addRow("type %d, %d peaks", type, peaks) << type << peaks;
        }
    }
    void labelsStandBesideEachOther()
    {
        QFETCH(int, peaks);
        HistogramView view(128);
        QVector<double> values;
        for (int i = 0; i < peaks; ++i) {
            values += Profiles::gaussian<double>(128 / peaks, 64.0 / peaks, 1.7, 1e-5 * (i + 1));
            view.model.deviceFits << 64.0 / peaks << 1.7 << 1e-5 * (i + 1);
        }
        view.resize(1000, 700);
        std::vector<double> energies(128, 228.57);
        view.toggleMLFC(true);
        view.upload_MLFC_calibration_table(&energies);
        view.enableHistogramItem(View::HistogramItemTypes(cell<int>("type")), peaks, {}, true);
        view.model.show(values);
        const auto strips = view.strips();
        QCOMPARE(strips.size(), 1);
        const QList<QLabel *> labels = strips[0]->findChildren<QLabel *>();
        QCOMPARE(labels.size(), 1 + peaks); // the first is the estimator's name
        QRegion taken;
        for (const QLabel *label : labels) {
            QVERIFY(label == labels[0] || label->text().contains("Position"));
            QVERIFY(label->width() >= label->sizeHint().width());
            QVERIFY(label->height() >= label->sizeHint().height());
            QVERIFY(strips[0]->rect().contains(label->geometry()));
            QVERIFY(!taken.intersects(label->geometry()));
            taken += label->geometry();
        }
        // The plot lies below the labels.
        const QPoint bottom = strips[0]->mapTo(view.viewport(), strips[0]->rect().bottomLeft());
        QVERIFY(view.qwtPlot()->y() >= bottom.y());
    }

    void canvasKeepsHalfOfTheHeight_data()
    {
        columns<QSize, bool>("size", "fits");
        row("small", QSize(400, 300), false);
        row("usual", QSize(900, 700), false);
        row("large", QSize(1400, 1100), true);
    }
    void canvasKeepsHalfOfTheHeight()
    {
        QFETCH(QSize, size);
        HistogramView view(32);
        view.resize(size);
        view.showMode(View::StripMode);
        const int alone = view.qwtPlot()->canvas()->height();
        view.enableAll(true);
        view.SetPlotMode(View::HistogramMode);
        view.showBeam();
        QCOMPARE(view.size(), size);
        QVERIFY(view.minimumSizeHint().height() <= 300);
        QVERIFY(2 * view.qwtPlot()->canvas()->height() >= size.height());

        const double peak = view.qwtPlot()->transform(QwtPlot::xBottom, 13.3)
            + view.qwtPlot()->canvas()->mapTo(view.viewport(), QPoint(0, 0)).x();
        const auto strips = view.strips();
        QStringList names;
        for (auto *strip : strips) {
            names << strip->findChild<QLabel *>("estimator")->text();
            QCOMPARE(strip->height(), strip->sizeHint().height()); // none is squeezed
            const QVector<double> major = view.ticksAt(strip, 4);
            QVERIFY(major.size() == 1 && qAbs(major[0] - peak) <= 1.5);
        }
        QCOMPARE(names.join(", "),
                 QString("Gaussian Fit (Device), Gaussian Fit, Center of Gravity, Gaussabola Fit"));
        const auto isLastInSight = [&] {
            const QWidget *last = strips.last();
            return last->visibleRegion().boundingRect().bottom() == last->rect().bottom();
        };
        QTEST(isLastInSight(), "fits");
        for (int i = 0; i < 8; ++i)
            QTest::keyClick(&view, Qt::Key_PageDown);
        QVERIFY(isLastInSight());
        view.showMode(View::StripMode);
        QCOMPARE(view.qwtPlot()->canvas()->height(), alone);
    }

    void labelsAreReadableInDarkPalettes()
    {
        const QPalette before = QApplication::palette();
        QApplication::setPalette(QPalette(QColor(45, 45, 48), QColor(45, 45, 48)));
        HistogramView view(32);
        view.enableHistogramItem(View::RegressionItem, 1, {}, true);
        view.showBeam();
        const QList<QLabel *> labels = view.strips()[0]->findChildren<QLabel *>();
        QApplication::setPalette(before);
        QCOMPARE(labels.size(), 2);
        for (QLabel *label : labels) {
            const QImage picture = label->grab().toImage();
            const int dark =
                countPixels(picture, [](const QColor &color) { return color.lightness() < 40; });
            const int background = countPixels(
                picture, [](const QColor &color) { return color == QColor(255, 171, 251); });
            QVERIFY(dark > (label == labels[0] ? 50 : 300));
            QVERIFY(background > picture.width() * picture.height() / 2);
        }
    }

    void groupsOfChannels_data()
    {
        columns<int, int, QString>("channels", "peaks", "groups");
        row("equal groups", 32, 2, "0+16 16+16");
        row("the last group takes the rest", 14, 4, "0+3 3+3 6+3 9+5");
        row("fewer channels than groups", 2, 4, "0+1 1+1 2+0 2+0");
    }
    //! Without a beam, an item is placed in the middle of its group, which shows the offset of the group.
    void groupsOfChannels()
    {
        QFETCH(int, channels);
        HistogramView view(channels);
        view.model.show(QVector<double>(channels, 0.0));
        view.enableHistogramItem(View::GaussabolaItem, cell<int>("peaks"), {}, false);
        view.settle();
        QStringList groups;
        for (const auto *item : view.histogramItems(View::GaussabolaItem)) {
            const int size = item->fit().count();
            groups << QString("%1+%2").arg(item->position() - (size + 1) / 2.0).arg(size);
            QCOMPARE(item->statusMessage(),
                     QString(size < 3 ? "Not enough channels." : "Peak below threshold."));
        }
        QTEST(groups.join(' '), "groups");
    }

    void itemsComeAndGo()
    {
        HistogramView view(32);
        view.enableHistogramItem(View::RegressionItem, 1, {}, true);
        view.SetPlotMode(View::StripMode);
        view.showBeam();
        const auto shown = [&view] {
            const int strips = view.strips().size();
            const int markers = view.qwtPlot()->itemList(QwtPlotItem::Rtti_PlotMarker).size();
            return QString("%1 strips, %2 markers").arg(strips).arg(markers);
        };
        for (int other : {View::StripMode, View::ScopeMode, View::SplitMode}) {
            view.SetPlotMode(View::HistogramMode);
            QCOMPARE(shown(), QString("1 strips, 1 markers"));
            view.SetPlotMode(other);
            QCOMPARE(shown(), QString("0 strips, 0 markers"));
        }
        view.SetPlotMode(View::HistogramMode);
        view.enableHistogramItem(View::HistogramItemTypes(4), 1, {}, true); // there is no such type
        view.enableHistogramItem(View::CenterOfGravityItem, 2, {}, true);
        QCOMPARE(shown(), QString("2 strips, 3 markers"));
        for (int peaks : {0, -3}) {
            const auto type = peaks == 0 ? View::CenterOfGravityItem : View::RegressionItem;
            view.enableHistogramItem(type, peaks, {}, true);
            QVERIFY(view.histogramItems(type).isEmpty());
        }
        QCOMPARE(shown(), QString("0 strips, 0 markers"));
    }

    void deviceFitsComeFromTheModel()
    {
        HistogramView view(40);
        view.model.deviceFits = QVariantList{6.0, 1.5, 1.0, 14.0, 1.5, 2.0};
        view.enableHistogramItem(View::PrecalculatedFitItem, 3, {}, true);
        view.model.show(QVector<double>(40, 0.5));
        view.settle();
        const auto items = view.histogramItems(View::PrecalculatedFitItem);
        QCOMPARE(items[0]->position(), 7.0);
        QCOMPARE(items[1]->position(), 28.0);
        QCOMPARE(items[2]->statusMessage(), QString("Fit failed."));
    }

    void energyNeverReachesCentresOfGravity()
    {
        HistogramView view(32);
        view.showBeam();
        const auto withEnergy = [&view] {
            view.settle();
            QString types;
            for (int type = 0; type < 4; ++type) {
                const auto *item = view.histogramItems(View::HistogramItemTypes(type))[0];
                types += item->label().contains("Energy") ? QString::number(type) : QString();
            }
            return types;
        };
        view.enableAll(false);
        std::vector<double> energies(32, 70.0);
        view.upload_MLFC_calibration_table(&energies);
        QCOMPARE(withEnergy(), QString());
        view.toggleMLFC(true);
        QCOMPARE(withEnergy(), QString("023"));
        // New parameters create new items, which still show the energy.
        view.enableHistogramItem(View::GaussabolaItem, 1, {1e-12}, true);
        QCOMPARE(withEnergy(), QString("023"));
        view.toggleMLFC(false);
        QCOMPARE(withEnergy(), QString());
    }

    void emptyModelsHaveNoStatistics()
    {
        HistogramView view(32);
        view.enableHistogramItem(View::GaussabolaItem, 1, {}, true);
        const auto *item = view.histogramItems(View::GaussabolaItem)[0];
        for (bool isEmpty : {true, false, true}) {
            if (isEmpty)
                view.model.Clear();
            else
                view.showBeam();
            view.settle();
            QCOMPARE(view.histogram()->plot() == nullptr, isEmpty);
            QVERIFY(item->label().contains(isEmpty ? "N/A" : "13.30"));
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_ScopeHistogram)
#include "tst_ScopeHistogram.moc"
