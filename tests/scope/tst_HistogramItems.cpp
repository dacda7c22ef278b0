// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/scope/EnergyTable_p.h"
#include "corvale_qt/scope/HistogramStatistics_p.h"
#include "corvale_qt/scope/RVX_CoGHistogramItem.h"
#include "corvale_qt/scope/RVX_GaussabolaHistogramItem.h"
#include "corvale_qt/scope/RVX_PrecalculatedFitHistogramItem.h"
#include "corvale_qt/scope/RVX_RegressionHistogramItem.h"
#include "tests/support/Profiles.h"
#include "tests/support/RealReadings.h"
#include "tests/support/TestMain.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>

using namespace Corvale_Qt;
using View = RVXScopePlotView;

namespace {

std::unique_ptr<RVX_StatisticsHistogramItem>
makeItem(int type, const QVector<double> &parameters = {}, bool full = true)
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

//! Sigma of the parabola through the logarithms of some bars, by Cramer's rule; weights are powers of the bars.
double weightedSigma(const QVector<float> &bars, int power)
{
    long double x[5] = {};
    long double y[3] = {};
    const long double largest = *std::max_element(bars.begin(), bars.end());
    for (int i = 0; i < bars.size(); ++i) {
        const long double weight = std::pow(bars[i] / largest, power);
        for (int k = 0; k < 5; ++k)
            x[k] += weight * std::pow((long double)(i), k);
        for (int k = 0; k < 3; ++k)
            y[k] += weight * std::pow((long double)(i), k) * std::log((long double)(bars[i]));
    }
    const auto determinant = [&x](long double a, long double b, long double c) {
        return x[0] * (x[2] * c - x[3] * b) - x[1] * (x[1] * c - x[2] * b)
            + a * (x[1] * x[3] - x[2] * x[2]);
    };
    const long double curvature = determinant(y[0], y[1], y[2]) / determinant(x[2], x[3], x[4]);
    return double(std::sqrt(-0.5L / curvature));
}

//! A beam on strips, as an electrometer reads it.
QVector<float> beam()
{
    return Profiles::gaussian<float>(32, 12.3, 2.5, 4e-9);
}

QVector<float> withBars(int count, std::initializer_list<std::pair<int, float>> bars)
{
    QVector<float> values(count, 0.0F);
    for (const auto &[bar, value] : bars)
        values[bar] = value;
    return values;
}

double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

//! Column or row sums of a camera's frame, less the line through their medians at 4 to 8 sigma to each side of the beam.
QVector<float>
cameraProfile(const QStringList &cells, int first, int count, double mean, double sigma)
{
    QVector<double> sides[2];
    for (int i = 0; i < count; ++i) {
        const double distance = std::abs(i - mean) / sigma;
        if (distance >= 4 && distance <= 8)
            sides[i > mean] << cells[first + i].toDouble();
    }
    const double left = median(sides[0]);
    const double right = median(sides[1]);
    QVector<float> values;
    for (int i = 0; i < count; ++i) {
        const double background = (left + right) / 2 + (right - left) * (i - mean) / (12 * sigma);
        values << float(cells[first + i].toDouble() - background);
    }
    return values;
}

} // namespace

class tst_HistogramItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findTheBeam_data();
    void findTheBeam();
    void sayWhyThereIsNothing_data();
    void sayWhyThereIsNothing();
    void failuresStandInTheMiddle();
    void curveIsTheGaussian();
    void centreOfGravityParameters();
    void deviceFits_data();
    void deviceFits();
    void labels();
    void labelsOfFits_data();
    void labelsOfFits();
    void parametersDecide_data();
    void parametersDecide();
    void weightsArePowersOfTheBars();
    void darkBarsHaveNoNumbers();
    void labelsKeepTheirHeight_data();
    void labelsKeepTheirHeight();
    void energyOfThePosition();
    void groups_data();
    void groups();
    void hostileParameters();
    void realBeamProfiles();
};

void tst_HistogramItems::findTheBeam_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVector<double>>("parameters");
    QTest::newRow("Gaussabola") << int(View::GaussabolaItem) << QVector<double>();
    QTest::newRow("centre of gravity") << int(View::CenterOfGravityItem) << QVector<double>();
    QTest::newRow("centre of gravity, window")
        << int(View::CenterOfGravityItem) << QVector<double>{1.0, 0.0, 12.0};
    QTest::newRow("regression") << int(View::RegressionItem) << QVector<double>();
    QTest::newRow("regression above 10 %")
        << int(View::RegressionItem) << QVector<double>{0.1, 10, 1e-15, 1e-14, 2.0, 5};
}

void tst_HistogramItems::findTheBeam()
{
    QFETCH(int, type);
    QFETCH(QVector<double>, parameters);
    QwtPlot plot;
    const auto item = makeItem(type, parameters);
    item->attach(&plot);
    QVERIFY(item->compute(16, beam(), 48.5));
    QCOMPARE(item->status(), FitStatus::Ok);
    QCOMPARE(item->statusMessage(), QString());
    // Bar 0 stands at 17.
    QVERIFY(qAbs(item->position() - (16 + 12.3 + 1)) < 2e-3);
    QVERIFY(qAbs(item->fit().sigma - 2.5F) < 5e-3F);
    const auto markers = plot.itemList(QwtPlotItem::Rtti_PlotMarker);
    QCOMPARE(markers.size(), 1);
    const auto *marker = static_cast<const QwtPlotMarker *>(markers.first());
    QCOMPARE(marker->xValue(), item->position());
    QVERIFY(qAbs(marker->yValue() - 4e-9) < 1e-11);
    QVERIFY(item->hasSignalToNoise());
    item->detach();
    QVERIFY(plot.itemList().isEmpty());
}

void tst_HistogramItems::sayWhyThereIsNothing_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVector<double>>("parameters");
    QTest::addColumn<QVector<float>>("bars");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");
    const int gaussabola = View::GaussabolaItem;
    const int cog = View::CenterOfGravityItem;
    const int regression = View::RegressionItem;
    const QVector<double> none;
    const QVector<float> dark(32, 0.0F);

    QTest::newRow("no channels at all")
        << cog << none << QVector<float>() << -1 << "Not enough channels.";
    QTest::newRow("two channels are no fit")
        << gaussabola << none << QVector<float>{1, 2} << -1 << "Not enough channels.";
    QTest::newRow("regression over two")
        << regression << none << QVector<float>{1, 2} << -1 << "Not enough channels.";
    QTest::newRow("dark, Gaussabola")
        << gaussabola << none << dark << -2 << "Peak below threshold.";
    QTest::newRow("weaker than the smallest peak")
        << regression << QVector<double>{0, 10, 1e-8, 0} << beam() << -2 << "Peak below threshold.";
    QTest::newRow("beam beside the detector, Gaussabola")
        << gaussabola << none << Profiles::gaussian<float>(32, -1.0, 2.0, 1e-9) << -3
        << "Peak on edge.";
    QTest::newRow("beam beside the detector, regression")
        << regression << none << Profiles::gaussian<float>(32, 33.0, 2.0, 1e-9) << -3
        << "Peak on edge.";
    QTest::newRow("dark, regression") << regression << none << dark << -3 << "Peak on edge.";
    QTest::newRow("dark, centre of gravity")
        << cog << none << dark << -4 << "Signal below threshold.";
    QTest::newRow("less than the smallest sum") << regression << QVector<double>{0, 10, 1e-15, 1e-3}
                                                << beam() << -4 << "Signal below threshold.";
    QTest::newRow("one hot strip")
        << regression << QVector<double>{0.5, 10, 1e-15, 1e-14} << withBars(32, {{10, 1e-9F}}) << -5
        << "Not enough peak channels.";
    QTest::newRow("two beams, one fit")
        << regression << QVector<double>{0.9, 2, 1e-15, 1e-14, 2, 12}
        << withBars(32, {{9, 0.95F}, {10, 1.0F}, {11, 0.95F}, {14, 0.9F}, {16, 0.9F}, {18, 0.9F}})
        << -6 << "Noise above threshold.";
    QTest::newRow("a trough where the peak should be")
        << regression << QVector<double>{0.0, 2, 1e-15, 1e-14, 0}
        << QVector<float>{0.99F, 0.1F, 1.0F, 0.1F, 0.99F} << -8 << "Regression failed.";
}

void tst_HistogramItems::sayWhyThereIsNothing()
{
    QFETCH(int, type);
    QFETCH(QVector<double>, parameters);
    QFETCH(QVector<float>, bars);
    QFETCH(QString, message);
    const auto item = makeItem(type, parameters);
    QVERIFY(!item->compute(0, bars, bars.size() + 0.5));
    QTEST(int(item->status()), "status");
    QCOMPARE(item->statusMessage(), message);
    QVERIFY(!item->fit().valid);
    QVERIFY2(item->label().contains(message), qPrintable(item->label()));
}

void tst_HistogramItems::failuresStandInTheMiddle()
{
    QwtPlot plot;
    for (int type = 0; type < 4; ++type) {
        const auto item = makeItem(type);
        item->attach(&plot);
        item->compute(20, QVector<float>(11, 0.0F), 40.5); // bars at 21 to 31
        QCOMPARE(item->position(), 26.0);
        const auto markers = plot.itemList(QwtPlotItem::Rtti_PlotMarker);
        QCOMPARE(static_cast<QwtPlotMarker *>(markers.first())->value(), QPointF(26.0, 0.0));
        item->compute(0, QVector<float>(4, 0.0F), 40.5);
        QCOMPARE(item->position(), 2.5);
    }
}

void tst_HistogramItems::curveIsTheGaussian()
{
    QwtPlot plot;
    RVX_RegressionHistogramItem item(nullptr, {}, true);
    item.attach(&plot);
    item.compute(8, beam(), 40.5);
    const auto *curve =
        static_cast<const QwtPlotCurve *>(plot.itemList(QwtPlotItem::Rtti_PlotCurve).value(0));
    QVERIFY(curve);
    QCOMPARE(curve->title().text(), QString("Gaussian Fit"));
    // Every quarter of a bin, from nine quarters to one before the last channel.
    QCOMPARE(curve->sample(0).x(), 2.25);
    QCOMPARE(curve->sample(int(curve->dataSize()) - 1).x(), 39.75);
    for (size_t i = 0; i < curve->dataSize(); ++i) {
        const QPointF point = curve->sample(int(i));
        const double expected = 4e-9 * std::exp(-0.5 * std::pow((point.x() - 9 - 12.3) / 2.5, 2));
        QVERIFY(qAbs(point.y() - expected) < 4e-12);
    }
    item.compute(8, QVector<float>(32, 0.0F), 40.5);
    QCOMPARE(int(curve->dataSize()), 4 * 40 - 9);
    QCOMPARE(curve->maxYValue(), 0.0);
}

void tst_HistogramItems::centreOfGravityParameters()
{
    // A beam at 10 and a halo far off: what counts is chosen by threshold, or by window.
    const QVector<float> bars = withBars(64, {{9, 1.0F}, {10, 2.0F}, {11, 1.0F}, {50, 0.4F}});
    const auto position = [&bars](const QVector<double> &parameters) {
        const auto item = makeItem(View::CenterOfGravityItem, parameters);
        item->compute(0, bars, 64.5);
        return item->position();
    };
    const double all = 1 + (9 + 20 + 11 + 20) / 4.4;
    QVERIFY(qAbs(position({0.0, 0.0, 10.0}) - all) < 1e-5);
    QVERIFY(qAbs(position({0.0, 0.19, 10.0}) - all) < 1e-5);
    QVERIFY(qAbs(position({0.0, 0.2, 10.0}) - 11.0)
            < 1e-5); // a bar at the threshold does not count
    QVERIFY(qAbs(position({1.0, 0.0, 10.0}) - 11.0) < 1e-5);
    QVERIFY(qAbs(position({0.5, 0.0, 10.0}) - 11.0) < 1e-5); // half is rounded up to window mode
    QVERIFY(qAbs(position({0.4, 0.0, 10.0}) - all) < 1e-5);
    QVERIFY(qAbs(position({1.0, 0.0, 60.0}) - all) < 1e-5);
}

void tst_HistogramItems::deviceFits_data()
{
    QTest::addColumn<QVariantList>("fits");
    QTest::addColumn<int>("group");
    QTest::addColumn<bool>("works");
    QTest::newRow("the only group") << QVariantList{12.3, 2.5, 4e-9} << 0 << true;
    QTest::newRow("the second group") << QVariantList{1, 1, 1, 12.3, 2.5, 4e-9} << 1 << true;
    QTest::newRow("nothing") << QVariantList() << 0 << false;
    QTest::newRow("too short") << QVariantList{12.3, 2.5} << 0 << false;
    QTest::newRow("not this group's") << QVariantList{12.3, 2.5, 4e-9} << 1 << false;
    QTest::newRow("words") << QVariantList{"no", "fit", "here"} << 0 << false;
    QTest::newRow("a width of 0") << QVariantList{12.3, 0.0, 4e-9} << 0 << false;
    QTest::newRow("a negative mean") << QVariantList{-1.0, 2.5, 4e-9} << 0 << false;
    QTest::newRow("infinite") << QVariantList{12.3, 2.5, qInf()} << 0 << false;
    QTest::newRow("not a number") << QVariantList{qQNaN(), 2.5, 4e-9} << 0 << false;
    QTest::newRow("beyond single precision") << QVariantList{12.3, 1e300, 4e-9} << 0 << false;
}

void tst_HistogramItems::deviceFits()
{
    QFETCH(QVariantList, fits);
    QFETCH(int, group);
    QFETCH(bool, works);
    RVX_PrecalculatedFitHistogramItem item(nullptr, {}, true);
    QVERIFY(item.usesDeviceFit());
    item.setDeviceFit({5.0, 1.0, 1.0, 5.0, 1.0, 1.0}, group); // must not be left from before
    item.setDeviceFit(fits, group);
    QCOMPARE(item.compute(0, beam(), 32.5), works);
    QCOMPARE(item.statusMessage(), works ? QString() : QString("Fit failed."));
    if (works) {
        QVERIFY(qAbs(item.position() - 13.3) < 1e-5);
        QVERIFY(qAbs(item.fit().at(12.3F) - 4e-9F) < 1e-14F);
        QVERIFY(item.residualNoise() < 1e-3);
    }
}

void tst_HistogramItems::labels()
{
    // Bars whose numbers come out even: no noise anywhere.
    const QVector<float> bars = withBars(9, {{3, 1.0F}, {4, 2.0F}, {5, 1.0F}});
    const auto item = makeItem(View::CenterOfGravityItem);
    QCOMPARE(item->label(), QString("<pre>N/A\n\n\n\n</pre>"));
    item->compute(0, bars, 9.5);
    QCOMPARE(item->label(),
             QString("<pre>Position (strips): <b>5.00</b>\nStd. Dev (strips): 0.71\n"
                     "         Skewness: 0\n         Kurtosis: 2\n</pre>"));
    const auto brief = makeItem(View::CenterOfGravityItem, {}, false);
    brief->compute(0, bars, 9.5);
    QCOMPARE(brief->label(),
             QString("<pre>Position (strips): <b>5.00</b>\nStd. Dev (strips): 0.71\n</pre>"));
    brief->compute(0, QVector<float>(9, 0.0F), 9.5);
    QCOMPARE(brief->label(), QString("<pre>Error: Signal below threshold.\n\n</pre>"));
}

void tst_HistogramItems::labelsOfFits_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVector<double>>("parameters");
    QTest::newRow("Gaussabola") << int(View::GaussabolaItem) << QVector<double>();
    QTest::newRow("regression") << int(View::RegressionItem)
                                << QVector<double>{0.5, 10, 1e-15, 1e-14};
    QTest::newRow("device") << int(View::PrecalculatedFitItem) << QVector<double>();
}

//! A Gaussian whose numbers are known, noise beside it, and a misfit at the edge of the window that Chi2 is taken over.
void tst_HistogramItems::labelsOfFits()
{
    QFETCH(int, type);
    QFETCH(QVector<double>, parameters);
    QVector<float> bars = Profiles::gaussian<float>(32, 12.3, 2.5, 4.0);
    QVector<double> noise;
    for (int i = 0; i < bars.size(); ++i) {
        if (std::abs(i - 12.3) > 3 * 2.5)
            noise << (bars[i] = i % 3 == 0 ? 0.2F : -0.1F);
    }
    bars[17] += 0.4F;
    const auto item = makeItem(type, parameters);
    setDeviceFit(*item, {12.3, 2.5, 4.0});
    for (const QString &unit : {QString("nA"), QString()}) {
        item->setValueUnit(unit);
        item->setPlotDivisor(2.0); // says nothing of the numbers
        QVERIFY(item->compute(0, bars, 32.5));
        const double all = std::accumulate(bars.begin(), bars.end(), 0.0);
        const double signal = all - std::accumulate(noise.begin(), noise.end(), 0.0);
        const double snr = signal / (std::sqrt(32.0 - noise.size()) * deviation(noise));
        QString expected = "      Position (strips): <b>13.30</b>\n      Std. Dev (strips): 2.50\n";
        if (type != View::PrecalculatedFitItem) {
            // 4 sigma sqrt(2 pi) is 25.0663.
            expected += QString("                   Peak: 4%1\n               Integral: 25.07%1\n")
                            .arg(unit.isEmpty() ? unit : ' ' + unit);
        }
        expected += QString("                    SNR: %1\n").arg(snr, 0, 'g', 4);
        expected += QString(unit.isEmpty() ? "         " : "    ") + "Noise Std. Dev"
            + QString(unit.isEmpty() ? "" : " (nA)")
            + QString(": %1\n").arg(deviation(noise), 0, 'g', 4);
        expected += QString("                     %1%2: %3%\n")
                        .arg(QChar(0x03A7))
                        .arg(QChar(0x00B2))
                        .arg(100 * 0.4 / double(bars[12]), 0, 'g', 4);
        QCOMPARE(item->label(), "<pre>" + expected + "</pre>");
    }
}

void tst_HistogramItems::parametersDecide_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVector<double>>("parameters");
    QTest::addColumn<double>("sigma");
    QTest::addColumn<double>("residual");
    const int gaussabola = View::GaussabolaItem;
    const int regression = View::RegressionItem;
    const int device = View::PrecalculatedFitItem;
    QTest::newRow("Gaussabola, noise within 5") << gaussabola << QVector<double>() << 2.0 << 0.0;
    QTest::newRow("Gaussabola, noise within 6")
        << gaussabola << QVector<double>{1e-15, 6} << 2.0 << 0.5;
    QTest::newRow("device, noise within 5") << device << QVector<double>() << 2.0 << 0.0;
    QTest::newRow("device, noise within 6") << device << QVector<double>{0, 6} << 2.0 << 0.5;
    // The three bars around the peak, and for those the weights do not matter.
    QTest::newRow("regression in a window of 1")
        << regression << QVector<double>{0, 1, 1e-15, 1e-14} << 2.0 << 0.0;
    QTest::newRow("regression, noise within 6")
        << regression << QVector<double>{0, 1, 1e-15, 1e-14, 2, 6} << 2.0 << 0.5;
}

//! A Gaussian, and six bars from its peak a bar that belongs to nothing.
void tst_HistogramItems::parametersDecide()
{
    QFETCH(int, type);
    QFETCH(QVector<double>, parameters);
    QFETCH(double, sigma);
    QFETCH(double, residual);
    QVector<float> bars = Profiles::gaussian<float>(33, 16.0, 2.0, 1.0);
    bars[22] += 0.5F;
    const auto item = makeItem(type, parameters);
    setDeviceFit(*item, {16.0, 2.0, 1.0});
    QVERIFY(item->compute(0, bars, 33.5));
    QVERIFY(qAbs(item->fit().sigma - sigma) < 1e-3);
    const double noise = static_cast<RVX_FitHistogramItem &>(*item).residualNoise();
    QVERIFY2(qAbs(noise - residual) < 1e-3, qPrintable(QString::number(noise)));
}

//! Against the same sums in wider precision.
void tst_HistogramItems::weightsArePowersOfTheBars()
{
    const QVector<float> bars = Profiles::withNoise(beam(), 0.2);
    const auto sigma = [&bars](const QVector<double> &parameters) {
        const auto item = makeItem(View::RegressionItem, parameters, false);
        item->compute(0, bars, 32.5);
        return double(item->fit().sigma);
    };
    const int peak = int(std::max_element(bars.begin(), bars.end()) - bars.begin());
    for (int power : {0, 1, 2, 3}) {
        const double expected = weightedSigma(bars.mid(peak - 4, 9), power);
        QVERIFY(qAbs(sigma({0, 4, 1e-15, 1e-14, double(power)}) - expected) < 1e-4);
    }
    QCOMPARE(sigma({0, 4, 1e-15, 1e-14}), sigma({0, 4, 1e-15, 1e-14, 2}));
}

void tst_HistogramItems::darkBarsHaveNoNumbers()
{
    RVX_PrecalculatedFitHistogramItem item(nullptr, {}, true);
    item.setDeviceFit({12.3, 2.5, 4e-9}, 0);
    QVERIFY(item.compute(0, QVector<float>(32, 0.0F), 32.5));
    QVERIFY2(item.label().contains("SNR: N/A\n") && item.label().endsWith(": N/A\n</pre>"),
             qPrintable(item.label()));
}

void tst_HistogramItems::labelsKeepTheirHeight_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("full");
    for (int type = 0; type < 4; ++type) {
        for (bool full : {false, true})
            QTest::addRow("%d %s", type, full ? "full" : "short") << type << full;
    }
}

void tst_HistogramItems::labelsKeepTheirHeight()
{
    QFETCH(int, type);
    QFETCH(bool, full);
    std::vector<double> energies(100, 70.0);
    for (bool energy : {false, true}) {
        const auto item = makeItem(type, {}, full);
        item->toggleMLFC(energy);
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
}

void tst_HistogramItems::energyOfThePosition()
{
    const EnergyTable table({70.0, 80.0, 100.0});
    QCOMPARE(table.at(1.0), 70.0);
    QCOMPARE(table.at(1.5), 75.0);
    QCOMPARE(table.at(2.25), 85.0);
    QCOMPARE(table.at(3.0), 100.0);
    for (double outside : {0.99, 3.01, -5.0, qQNaN(), qInf()})
        QVERIFY(std::isnan(table.at(outside)));
    QVERIFY(std::isnan(EnergyTable().at(1.0)));

    std::vector<double> energies;
    for (int i = 0; i < 20; ++i)
        energies.push_back(70.0 + i);
    const auto item = makeItem(View::GaussabolaItem, {}, false);
    item->upload_MLFC_calibration_table(&energies);
    item->compute(0, beam(), 32.5);
    QVERIFY(!item->label().contains("Energy"));
    item->toggleMLFC(true);
    energies.clear(); // it was copied
    // At 13.30, between 82 MeV of channel 13 and 83 of channel 14.
    QVERIFY2(item->label().endsWith("\n     Energy (MeV): 82.3\n</pre>"),
             qPrintable(item->label()));
    item->compute(16, beam(), 48.5);
    QVERIFY(item->label().endsWith("Energy (MeV): N/A\n</pre>"));
    item->upload_MLFC_calibration_table(nullptr);
    QVERIFY(!item->label().contains("Energy"));

    const auto centre = makeItem(View::CenterOfGravityItem);
    centre->toggleMLFC(true);
    QVERIFY(!centre->label().contains("Energy"));
}

void tst_HistogramItems::groups_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("channels");
    QTest::addColumn<QString>("shares");
    QTest::newRow("all") << 1 << 32 << "0+32";
    QTest::newRow("halves") << 2 << 32 << "0+16 16+16";
    QTest::newRow("the last takes the rest") << 4 << 14 << "0+3 3+3 6+3 9+5";
    QTest::newRow("more items than channels") << 4 << 2 << "0+1 1+1 2+0 2+0";
    QTest::newRow("no channels") << 2 << 0 << "0+0 0+0";
}

void tst_HistogramItems::groups()
{
    QFETCH(int, count);
    QFETCH(int, channels);
    QStringList shares;
    for (int i = 0; i < count; ++i) {
        const ChannelGroup group = channelGroup(i, count, channels);
        shares << QStringLiteral("%1+%2").arg(group.offset).arg(group.size);
    }
    QTEST(shares.join(' '), "shares");
}

void tst_HistogramItems::hostileParameters()
{
    const QVector<float> odd{1e38F, 3e38F, 1e38F, 0.0F, -3e38F, 1e-45F, 2e38F};
    for (double number : {qQNaN(), qInf(), -qInf(), 1e300, -1e300, -1.0, 0.0}) {
        for (int type = 0; type < 4; ++type) {
            const auto item = makeItem(type, QVector<double>(6, number));
            for (const QVector<float> &bars : {odd, beam(), QVector<float>(3, 1.0F)}) {
                const bool found = item->compute(0, bars, 7.5);
                QCOMPARE(found, item->status() == FitStatus::Ok);
                QVERIFY(!found || std::isfinite(item->position()));
                QVERIFY(!item->label().isEmpty());
            }
        }
    }
}

//! Projections of a real electron beam on a screen, against another fitter's Gaussian with a linear background.
void tst_HistogramItems::realBeamProfiles()
{
    const QVector<QStringList> frames = realReadings("lcls-otr-frames/projections_350x262.csv");
    const QVector<QStringList> references = realReadings("lcls-otr-frames/reference.csv");
    if (frames.size() < 2 || references.size() < 2)
        QSKIP("The folder of real readings is not there.");
    for (int frame = 1; frame < frames.size(); ++frame) {
        for (const bool isX : {true, false}) {
            const double mean = references[frame][isX ? 2 : 4].toDouble();
            const double sigma = references[frame][isX ? 3 : 5].toDouble();
            const QVector<float> bars = isX ? cameraProfile(frames[frame], 2, 350, mean, sigma)
                                            : cameraProfile(frames[frame], 352, 262, mean, sigma);
            const auto item =
                makeItem(View::RegressionItem, {0.1, std::floor(3 * sigma), 1e-15, 1e-14, 2.0, 5});
            QVERIFY2(item->compute(0, bars, bars.size() + 0.5), qPrintable(item->statusMessage()));
            // These beams are lopsided, with skirts wider than a Gaussian's, and the two fits weigh them in other
            // ways. Measured: means within 0.16 sigma, sigmas up to 15 % larger.
            QVERIFY(qAbs(item->fit().mean - mean) < 0.2 * sigma);
            QVERIFY(item->fit().sigma > 0.97 * sigma && item->fit().sigma < 1.2 * sigma);
        }
    }
}

CORVALE_QT_TEST_MAIN(tst_HistogramItems)
#include "tst_HistogramItems.moc"
