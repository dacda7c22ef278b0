// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/statistics/RVX_CoGHistogramItem.h"
#include "corvale_qt/scope/statistics/RVX_GaussabolaHistogramItem.h"
#include "corvale_qt/scope/statistics/RVX_PrecalculatedFitHistogramItem.h"
#include "corvale_qt/scope/statistics/RVX_RegressionHistogramItem.h"
#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h"
#include "corvale_qt/units/Units.h"
#include "tests/scope/ScopeTestModel.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/Profiles.h"
#include "tests/support/TestMain.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>

using namespace Corvale_Qt;

using View = RVXScopePlotView;

namespace {

using Parameters = QVector<double>;
using Bars = QVector<float>;
using Item = std::unique_ptr<RVX_StatisticsHistogramItem>;

Item makeItem(int type, const Parameters &parameters = {}, bool full = true)
{
    switch (type) {
    case View::GaussabolaItem:
        return std::make_unique<RVX_GaussabolaHistogramItem>(nullptr, parameters, full);
    case View::CenterOfGravityItem:
        return std::make_unique<RVX_CoGHistogramItem>(nullptr, parameters, full);
    case View::RegressionItem:
        return std::make_unique<RVX_RegressionHistogramItem>(nullptr, parameters, full);
    default:
        return std::make_unique<RVX_PrecalculatedFitHistogramItem>(nullptr, parameters, full);
    }
}

const QwtPlotMarker *markerOn(const QwtPlot &plot)
{
    return static_cast<const QwtPlotMarker *>(plot.itemList(QwtPlotItem::Rtti_PlotMarker).value(0));
}

void setDeviceFit(RVX_StatisticsHistogramItem &item, const QVariantList &fit)
{
    if (auto *device = dynamic_cast<RVX_PrecalculatedFitHistogramItem *>(&item))
        device->setDeviceFit(fit, 0);
}

double deviation(const QVector<double> &values)
{
    const double mean = std::accumulate(values.begin(), values.end(), 0.0) / values.size();
    double squares = 0;
    for (double value : values)
        squares += (value - mean) * (value - mean);
    return std::sqrt(squares / (values.size() - 1));
}

//! Returns a beam on 32 strips, in amperes.
Bars beam()
{
    return Profiles::gaussian<float>(32, 12.3, 2.5, 4e-9);
}

Bars withBars(int count, std::initializer_list<std::pair<int, float>> bars)
{
    Bars values(count, 0.0F);
    for (const auto &[bar, value] : bars)
        values[bar] = value;
    return values;
}

} // namespace

using View = RVXScopePlotView;

class tst_HistogramItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findTheBeam_data()
    {
        columns<int, Parameters>("type", "parameters");
        const int cog = View::CenterOfGravityItem;
        const int regression = View::RegressionItem;
        row("Gaussabola", int(View::GaussabolaItem), Parameters());
        row("centre of gravity", cog, Parameters());
        row("centre of gravity, window", cog, Parameters{1.0, 0.0, 12.0});
        row("regression", regression, Parameters());
        row("regression above 10 %", regression, Parameters{0.1, 10, 1e-15, 1e-14, 2.0, 5});
    }
    void findTheBeam()
    {
        QwtPlot plot;
        const Item item = makeItem(cell<int>("type"), cell<Parameters>("parameters"));
        item->attach(&plot);
        QVERIFY(item->compute(16, beam(), 48.5));
        QCOMPARE(item->status(), FitStatus::Ok);
        QCOMPARE(item->statusMessage(), QString());
        QVERIFY(qAbs(item->position() - (16 + 12.3 + 1)) < 2e-3); // bar 0 stands at 17
        QVERIFY(qAbs(item->fit().sigma - 2.5F) < 5e-3F);
        QCOMPARE(markerOn(plot)->xValue(), item->position());
        QVERIFY(qAbs(markerOn(plot)->yValue() - 4e-9) < 1e-11);
        QVERIFY(item->hasSignalToNoise());
        item->detach();
        QVERIFY(plot.itemList().isEmpty());
    }

    void sayWhyThereIsNothing_data()
    {
        columns<int, Parameters, Bars, QString>("type", "parameters", "bars", "message");
        const int gaussabola = View::GaussabolaItem;
        const int cog = View::CenterOfGravityItem;
        const int regression = View::RegressionItem;
        const Parameters none;
        const Bars dark(32, 0.0F);
        const Bars beside = Profiles::gaussian<float>(32, -1.0, 2.0, 1e-9);
        const Bars twoBeams =
            withBars(32, {{9, 0.95F}, {10, 1.0F}, {11, 0.95F}, {14, 0.9F}, {16, 0.9F}, {18, 0.9F}});
        const Bars trough{0.99F, 0.1F, 1.0F, 0.1F, 0.99F};
        row("no channels at all", cog, none, Bars(), "Not enough channels.");
        row("two are too few", gaussabola, none, Bars{1, 2}, "Not enough channels.");
        row("dark", gaussabola, none, dark, "Peak below threshold.");
        row("dark, centre of gravity", cog, none, dark, "Signal below threshold.");
        row("beam beside the detector", regression, none, beside, "Peak on edge.");
        const auto fit = [](const char *name, const Parameters &parameters, const Bars &bars,
                            const char *message) {
            row(name, int(View::RegressionItem), parameters, bars, message);
        };
        fit("below the smallest peak", {0, 10, 1e-8, 0}, beam(), "Peak below threshold.");
        fit("below the smallest sum", {0, 10, 1e-15, 1e-3}, beam(), "Signal below threshold.");
        fit("one hot strip", {0.5, 10, 1e-15, 1e-14}, withBars(32, {{10, 1e-9F}}),
            "Not enough peak channels.");
        fit("two beams", {0.9, 2, 1e-15, 1e-14, 2, 12}, twoBeams, "Noise above threshold.");
        fit("a trough for a peak", {0.0, 2, 1e-15, 1e-14, 0}, trough, "Regression failed.");
    }
    void sayWhyThereIsNothing()
    {
        QFETCH(Bars, bars);
        QFETCH(QString, message);
        const Item item = makeItem(cell<int>("type"), cell<Parameters>("parameters"));
        QVERIFY(!item->compute(0, bars, bars.size() + 0.5));
        QCOMPARE(item->statusMessage(), message);
        QVERIFY(item->status() != FitStatus::Ok && !item->fit().valid);
        QVERIFY2(item->label().contains(message), qPrintable(item->label()));
    }

    void failuresStandInTheMiddle()
    {
        QwtPlot plot;
        for (int type = 0; type < 4; ++type) {
            const Item item = makeItem(type);
            item->attach(&plot);
            item->compute(20, Bars(11, 0.0F), 40.5); // bars at 21 to 31
            QCOMPARE(item->position(), 26.0);
            QCOMPARE(markerOn(plot)->value(), QPointF(26.0, 0.0));
            item->compute(0, Bars(4, 0.0F), 40.5);
            QCOMPARE(item->position(), 2.5);
        }
    }

    void curveIsTheGaussian()
    {
        QwtPlot plot;
        const Item item = makeItem(View::RegressionItem);
        item->attach(&plot);
        item->compute(8, beam(), 40.5);
        const auto *curve =
            static_cast<const QwtPlotCurve *>(plot.itemList(QwtPlotItem::Rtti_PlotCurve).value(0));
        QVERIFY(curve);
        QCOMPARE(curve->title().text(), QString("Gaussian Fit"));
        // Every quarter of a bin, from nine quarters to one before the last channel.
        QCOMPARE(curve->sample(0).x(), 2.25);
        QCOMPARE(curve->sample(int(curve->dataSize()) - 1).x(), 39.75);
        for (size_t i = 0; i < curve->dataSize(); ++i) {
            const QPointF point = curve->sample(int(i));
            const double distance = (point.x() - 9 - 12.3) / 2.5;
            QVERIFY(qAbs(point.y() - 4e-9 * std::exp(-0.5 * distance * distance)) < 4e-12);
        }
        item->compute(8, Bars(32, 0.0F), 40.5);
        QCOMPARE(int(curve->dataSize()), 4 * 40 - 9);
        QCOMPARE(curve->maxYValue(), 0.0);
    }

    //! A beam at bar 10 and a halo far away, which a threshold or a window excludes.
    void centreOfGravityParameters()
    {
        const Bars bars = withBars(64, {{9, 1.0F}, {10, 2.0F}, {11, 1.0F}, {50, 0.4F}});
        const double all = 1 + (9 + 20 + 11 + 20) / 4.4;
        const QVector<std::pair<Parameters, double>> cases{
            {{0.0, 0.0, 10.0}, all},  {{0.0, 0.19, 10.0}, all},
            {{0.0, 0.2, 10.0}, 11.0}, // a bar at the threshold does not count
            {{1.0, 0.0, 10.0}, 11.0}, {{0.5, 0.0, 10.0}, 11.0}, // half is rounded up to window mode
            {{0.4, 0.0, 10.0}, all},  {{1.0, 0.0, 60.0}, all},
        };
        for (const auto &[parameters, position] : cases) {
            const Item item = makeItem(View::CenterOfGravityItem, parameters);
            item->compute(0, bars, 64.5);
            QVERIFY(qAbs(item->position() - position) < 1e-5);
        }
    }

    void deviceFits()
    {
        const QVector<std::pair<QVariantList, int>> cases{
            {{12.3, 2.5, 4e-9}, 0},  {{1, 1, 1, 12.3, 2.5, 4e-9}, 1}, {{}, 0},
            {{12.3, 2.5}, 0},        {{12.3, 2.5, 4e-9}, 1},          {{"no", "fit", "here"}, 0},
            {{12.3, 1e300, 4e-9}, 0}};
        QStringList results;
        for (const auto &[fits, group] : cases) {
            RVX_PrecalculatedFitHistogramItem item(nullptr, {}, true);
            QVERIFY(item.usesDeviceFit());
            item.setDeviceFit({5.0, 1.0, 1.0, 5.0, 1.0, 1.0}, group); // must not remain
            item.setDeviceFit(fits, group);
            const bool works = item.compute(0, beam(), 32.5) && item.residualNoise() < 1e-3
                && qAbs(item.fit().at(12.3F) - 4e-9F) < 1e-14F;
            results << (works ? QString::number(item.position()) : item.statusMessage());
        }
        QCOMPARE(results.join(' '),
                 QString("13.3 13.3 Fit failed. Fit failed. Fit failed. Fit failed. Fit failed."));
    }

    //! Bars without noise whose results are round numbers.
    void labelsOfCentresOfGravity()
    {
        const Bars bars = withBars(9, {{3, 1.0F}, {4, 2.0F}, {5, 1.0F}});
        const QString brief = "<pre>Position (strips): <b>5.00</b>\nStd. Dev (strips): 0.71\n";
        const Item item = makeItem(View::CenterOfGravityItem);
        QCOMPARE(item->label(), QString("<pre>N/A\n\n\n\n</pre>"));
        item->compute(0, bars, 9.5);
        QCOMPARE(item->label(), brief + "         Skewness: 0\n         Kurtosis: 2\n</pre>");
        const Item briefItem = makeItem(View::CenterOfGravityItem, {}, false);
        briefItem->compute(0, bars, 9.5);
        QCOMPARE(briefItem->label(), brief + "</pre>");
        briefItem->compute(0, Bars(9, 0.0F), 9.5);
        QCOMPARE(briefItem->label(), QString("<pre>Error: Signal below threshold.\n\n</pre>"));
    }

    void labelsOfFits_data()
    {
        columns<int, Parameters>("type", "parameters");
        row("Gaussabola", int(View::GaussabolaItem), Parameters());
        row("regression", int(View::RegressionItem), Parameters{0.5, 10, 1e-15, 1e-14});
        row("device", int(View::PrecalculatedFitItem), Parameters());
    }
    //! A known Gaussian with noise beside it and a misfit at the edge of the window of the residual noise.
    void labelsOfFits()
    {
        QFETCH(int, type);
        Bars bars = Profiles::gaussian<float>(32, 12.3, 2.5, 4.0);
        QVector<double> noise;
        for (int i = 0; i < bars.size(); ++i) {
            if (std::abs(i - 12.3) > 3 * 2.5)
                noise << (bars[i] = i % 3 == 0 ? 0.2F : -0.1F);
        }
        bars[17] += 0.4F;
        const double signal = std::accumulate(bars.begin(), bars.end(), 0.0)
            - std::accumulate(noise.begin(), noise.end(), 0.0);
        const double snr = signal / (std::sqrt(32.0 - noise.size()) * deviation(noise));
        const Item item = makeItem(type, cell<Parameters>("parameters"));
        setDeviceFit(*item, {12.3, 2.5, 4.0});
        for (const QString &unit : {QString("nA"), QString()}) {
            item->setValueUnit(unit);
            item->setPlotDivisor(2.0); // the label's numbers are not divided
            item->setPlotDivisor(qQNaN());
            QCOMPARE(item->plotDivisor(), 2.0);
            QVERIFY(item->compute(0, bars, 32.5));
            const QString behind = unit.isEmpty() ? unit : ' ' + unit;
            QStringList lines{"      Position (strips): <b>13.30</b>", "Std. Dev (strips): 2.50"};
            if (type != View::PrecalculatedFitItem) // 4 sigma sqrt(2 pi) is 25.0663
                lines << "Peak: 4" + behind << "Integral: 25.07" + behind;
            lines << QString("SNR: %1").arg(snr, 0, 'g', 4)
                  << (unit.isEmpty() ? "Noise Std. Dev: " : "Noise Std. Dev (nA): ")
                    + QString::number(deviation(noise), 'g', 4)
                  << QStringLiteral("\u03a7\u00b2: %1%").arg(40 / double(bars[12]), 0, 'g', 4);
            for (QString &line : lines) // the colons are aligned
                line = line.rightJustified(line.size() + 23 - line.indexOf(':'));
            QCOMPARE(item->label(), "<pre>" + lines.join('\n') + "\n</pre>");
        }
        setDeviceFit(*item, {3.0, 2.5, 4.0});
        QVERIFY(item->compute(0, Profiles::gaussian<float>(7, 3.0, 2.5, 4.0), 7.5));
        QVERIFY(item->label().contains("SNR: N/A\n")); // no bar lies beside the Gaussian
        QVERIFY(item->label().contains("Noise Std. Dev: N/A\n"));
    }

    //! A Gaussian with a stray bar six bars from its peak, which only a wider window of the residual noise takes in.
    void windowsOfTheResidualNoise()
    {
        Bars bars = Profiles::gaussian<float>(33, 16.0, 2.0, 1.0);
        bars[22] += 0.5F;
        const QVector<std::tuple<int, Parameters, double>> cases{
            {View::GaussabolaItem, {}, 0.0},
            {View::GaussabolaItem, {1e-15, 6}, 0.5},
            {View::PrecalculatedFitItem, {}, 0.0},
            {View::PrecalculatedFitItem, {0, 6}, 0.5},
            {View::RegressionItem, {0, 1, 1e-15, 1e-14}, 0.0},
            {View::RegressionItem, {0, 1, 1e-15, 1e-14, 2, 6}, 0.5}};
        for (const auto &[type, parameters, residual] : cases) {
            const Item item = makeItem(type, parameters);
            setDeviceFit(*item, {16.0, 2.0, 1.0});
            QVERIFY(item->compute(0, bars, 33.5));
            QVERIFY(qAbs(item->fit().sigma - 2.0F) < 1e-3F);
            const double noise = static_cast<RVX_FitHistogramItem &>(*item).residualNoise();
            QVERIFY2(qAbs(noise - residual) < 1e-3, qPrintable(QString::number(noise)));
        }
    }

    //! Compares with the closed form for five bars that are symmetric about their peak of 1.
    void weightsArePowersOfTheBars()
    {
        const Bars bars{0.5F, 0.9F, 1.0F, 0.9F, 0.5F};
        const auto sigma = [&bars](const Parameters &parameters) {
            const Item item = makeItem(View::RegressionItem, parameters, false);
            item->compute(0, bars, 5.5);
            return double(item->fit().sigma);
        };
        for (int power : {0, 1, 2, 3}) {
            // The regression of y = ln(bar) on the squared distance s: covariance over variance.
            const double w1 = 2 * std::pow(0.9, power), w2 = 2 * std::pow(0.5, power);
            const double s = (w1 + 4 * w2) / (1 + w1 + w2);
            const double y1 = std::log(0.9), y2 = std::log(0.5);
            const double covariance = w1 * (1 - s) * y1 + w2 * (4 - s) * y2;
            const double variance = s * s + w1 * (1 - s) * (1 - s) + w2 * (4 - s) * (4 - s);
            const double expected = std::sqrt(-variance / (2 * covariance));
            QVERIFY(qAbs(sigma({0, 2, 1e-15, 1e-14, double(power)}) - expected) < 1e-4);
        }
        QCOMPARE(sigma({0, 2, 1e-15, 1e-14}), sigma({0, 2, 1e-15, 1e-14, 2}));
    }

    void labelsKeepTheirHeight()
    {
        std::vector<double> energies(100, 70.0);
        for (int kind = 0; kind < 16; ++kind) {
            const Item item = makeItem(kind % 4, {}, kind & 4);
            item->toggleMLFC(kind & 8);
            item->upload_MLFC_calibration_table(&energies);
            const int empty = item->label().count('\n');
            setDeviceFit(*item, {12.3, 2.5, 4e-9});
            QVERIFY(item->compute(0, beam(), 32.5));
            QCOMPARE(item->label().count('\n'), empty);
            QVERIFY(!item->compute(0, {}, 32.5));
            QCOMPARE(item->label().count('\n'), empty);
            item->clear();
            QVERIFY(!item->isComputed());
            QCOMPARE(item->label().count('\n'), empty);
        }
        // Dark bars have a fit of the device, but no numbers about them.
        const Item item = makeItem(View::PrecalculatedFitItem);
        setDeviceFit(*item, {12.3, 2.5, 4e-9});
        QVERIFY(item->compute(0, Bars(32, 0.0F), 32.5));
        QVERIFY(item->label().contains("SNR: N/A\n") && item->label().endsWith(": N/A\n</pre>"));
    }

    void energyOfThePosition()
    {
        std::vector<double> energies{70.0, 80.0, 100.0};
        RVX_PrecalculatedFitHistogramItem item(nullptr, {}, false);
        item.upload_MLFC_calibration_table(&energies);
        energies.clear(); // the item has a copy
        QVERIFY(!item.label().contains("Energy"));
        item.toggleMLFC(true);
        QStringList shown;
        for (double position : {0.99, 1.0, 1.5, 2.25, 3.0, 3.01}) {
            item.setDeviceFit({position + 1.0, 2.5, 4e-9}, 0);
            QVERIFY(item.compute(-2, beam(), 30.5));
            shown << item.label().section("\n     Energy (MeV): ", 1);
        }
        QCOMPARE(shown.join(' ').remove("\n</pre>"), QString("N/A 70 75 85 100 N/A"));
        item.upload_MLFC_calibration_table(nullptr);
        QVERIFY(!item.label().contains("Energy"));
    }

    void hostileParameters()
    {
        const Bars odd{1e38F, 3e38F, 1e38F, 0.0F, -3e38F, 1e-45F, 2e38F};
        for (double number : {qQNaN(), qInf(), -qInf(), 1e300, -1e300, -1.0, 0.0}) {
            for (int type = 0; type < 4; ++type) {
                const Item item = makeItem(type, Parameters(6, number));
                for (const Bars &bars : {odd, beam(), Bars(3, 1.0F)}) {
                    const bool found = item->compute(0, bars, 7.5);
                    QCOMPARE(found, item->status() == FitStatus::Ok);
                    QVERIFY(!found || std::isfinite(item->position()));
                    QVERIFY(!item->label().contains("nan") && !item->label().contains("inf"));
                }
            }
        }
    }

    void sameFitsInEveryUnit_data()
    {
        columns<int, QVector<double>, int>("type", "parameters", "status");
        // The beam has a peak of 1e-8 A and a sum of 6.27e-8 A.
        const int gaussabola = View::GaussabolaItem;
        const int regression = View::RegressionItem;
        QTest::newRow("centre of gravity has no limit")
            << int(View::CenterOfGravityItem) << QVector<double>{} << 0;
        QTest::newRow("device fit has no limit")
            << int(View::PrecalculatedFitItem) << QVector<double>{1e-7} << 0;
        QTest::newRow("Gaussabola, defaults") << gaussabola << QVector<double>{} << 0;
        QTest::newRow("Gaussabola, peak above") << gaussabola << QVector<double>{9e-9} << 0;
        QTest::newRow("Gaussabola, peak below") << gaussabola << QVector<double>{1e-7} << -2;
        QTest::newRow("regression, defaults") << regression << QVector<double>{} << 0;
        QTest::newRow("regression, both above")
            << regression << QVector<double>{0.1, 10, 9e-9, 6e-8} << 0;
        QTest::newRow("regression, peak below")
            << regression << QVector<double>{0.1, 10, 1e-7, 6e-8} << -2;
        QTest::newRow("regression, sum below")
            << regression << QVector<double>{0.1, 10, 9e-9, 7e-8} << -4;
    }
    void sameFitsInEveryUnit()
    {
        QFETCH(int, type);
        QFETCH(QVector<double>, parameters);
        ScopeTestModel model(32);
        model.isInBaseUnit = true;
        model.show(Profiles::gaussian<double>(32, 12.0, 2.5, 1e-8));
        ScopeTestView view(&model);
        view.SetPlotMode(View::HistogramMode);
        view.enableHistogramItem(View::HistogramItemTypes(type), 1, parameters, true);
        const RVX_StatisticsHistogramItem &item =
            *view.histogramItems(View::HistogramItemTypes(type)).value(0);

        Units::A scaled;
        scaled.setExtraScale(3.0);
        const Units::A A;
        const Units::nA nA;
        const Units::pA pA;
        for (const Units::MeasurementUnit *unit :
             std::initializer_list<const Units::MeasurementUnit *>{&A, &nA, &pA, &scaled}) {
            const double factor = unit->scale(1.0);
            model.deviceFits = QVariantList{12.0, 2.5, 1e-8 * factor};
            model.SetUnits(unit);
            view.settle();
            QVERIFY(item.isComputed());
            QTEST(int(item.status()), "status");
            if (item.status() != FitStatus::Ok)
                continue;
            QVERIFY(std::abs(item.position() - 13.0) < 1e-4);
            QVERIFY(std::abs(item.fit().sigma - 2.5) < 0.1);
            QVERIFY(std::abs(item.fit().at(12.0F) / (1e-8 * factor) - 1) < 0.03);
        }
    }

    //! An electron current that a unit shows as positive has the same limits as any other.
    void unitThatTurnsTheSign()
    {
        const Units::MeasurementUnit turnedSign(1e9, "nA", -1.0);
        ScopeTestModel model(32);
        model.isInBaseUnit = true;
        model.SetUnits(&turnedSign);
        model.show(Profiles::gaussian<double>(32, 12.0, 2.5, -1e-8));
        ScopeTestView view(&model);
        view.SetPlotMode(View::HistogramMode);
        for (const auto &[limit, status] : {std::pair(9e-9, 0), std::pair(1e-7, -2)}) {
            view.enableHistogramItem(View::GaussabolaItem, 1, {limit}, false);
            view.settle();
            QCOMPARE(int(view.histogramItems(View::GaussabolaItem)[0]->status()), status);
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_HistogramItems)
#include "tst_HistogramItems.moc"
