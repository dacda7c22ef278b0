// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/statistics/BeamEstimates.h"
#include "monitor/window/KeptOptions.h"
#include "monitor/window/WindowSettings.h"
#include "tests/monitor/support/WindowInTest.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/beam/profile/RVXPositionPlot.h>
#include <corvale_qt/beam/profile/RVXSpectrogram.h>
#include <corvale_qt/detector/DetectorLayout.h>
#include <corvale_qt/scope/RVXScopePlotView.h>
#include <corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h>

using namespace Monitor;
using Corvale_Qt::BeamEstimator;
using Corvale_Qt::RVXScopePlotView;
using Axis = Corvale_Qt::DetectorLayout::Axis;

namespace {

constexpr int strips = 16;
constexpr double pitch = 2.0;

//! What an operator has set on the statistics page: nothing as it is at first.
const char *const settingsText = R"([StatisticsSetupPage]
center-of-gravity=true
center-of-gravity-noise-threshold=true
center-of-gravity-window=false
center-of-threshold=35
center-of-window=4
gaussian-fit-regression=true
gaussian-fit-regression-threhold=40
gaussian-fit-regression-window=3
peaks=1
)";

//! A window that shows a beam on two planes of strips.
struct BeamInWindow : WindowInTest
{
    explicit BeamInWindow(const QString &settings)
        : WindowInTest(settings, QSize(1500, 900))
        , profile(window.findChild<DisplayTabs *>()->profile())
        , position(window.findChild<Corvale_Qt::RVXPositionPlot *>("position"))
        , scope(window.findChild<RVXScopePlotView *>())
    {
        Corvale_Qt::DetectorDescription planes;
        planes.kind = Corvale_Qt::DetectorKind::Strips;
        for (Corvale_Qt::DetectorAxis *axis : {&planes.x, &planes.y}) {
            axis->cells = strips;
            axis->pitch = pitch;
            axis->unit = QStringLiteral("mm");
        }
        session.setDetector(Corvale_Qt::DetectorLayout::fromDescription(planes));
        source->begin(StreamKind::Channels, 2 * strips, "nC");
        scope->SetPlotMode(RVXScopePlotView::HistogramMode);
    }

    //! Shows a beam of sigma 4 and 5 mm, with noise that differs from strip to strip.
    void show(double x, double y)
    {
        std::vector<double> values;
        for (const auto &[mean, sigma] : {std::pair(x, 4.0), std::pair(y, 5.0)})
            for (int i = 0; i < strips; ++i) {
                const double place = (i - (strips - 1) / 2.0) * pitch - mean;
                values.push_back(1e3 * std::exp(-0.5 * place * place / (sigma * sigma))
                                 + noise * std::sin(7.0 * i));
            }
        source->give(time += 0.2, values);
        settle();
    }
    //! Returns position and sigma of one estimate in all displays and in the report, as text.
    QStringList readings(BeamEstimator estimator, const QString &settings)
    {
        const bool fit = estimator == BeamEstimator::Regression;
        profile->setEstimator(estimator);
        const auto items = scope->histogramItems(fit ? RVXScopePlotView::RegressionItem
                                                     : RVXScopePlotView::CenterOfGravityItem);
        const auto text = [](const Corvale_Qt::BeamEstimate &estimate) {
            return QString::number(estimate.position.value, 'g', 9) + ' '
                + QString::number(estimate.sigma.value, 'g', 9);
        };
        QStringList ofProfile, ofHistogram, ofReport;
        for (const Axis axis : {Axis::X, Axis::Y})
            ofProfile << text(profile->estimate(axis));
        for (const auto *item : items)
            ofHistogram << text(item->estimate());
        const LastEstimates report = estimatesOfLastReading(
            session.statistics(), false, {}, keptFitParameters(WindowSettings(settings)));
        for (const PlaneEstimate &plane : report.planes)
            if (plane.estimator == (fit ? "regression" : "centre_of_gravity"))
                ofReport << text(plane.estimate);
        return {ofProfile.join("; "), ofHistogram.join("; "), ofReport.join("; ")};
    }

    double noise = 0;
    double time = 0;
    Corvale_Qt::RVXSpectrogram *const profile;
    Corvale_Qt::RVXPositionPlot *const position;
    RVXScopePlotView *const scope;
};

//! Returns the mean column of the pixels that have a colour, in widget pixels; NaN if there are none.
template<typename Matches>
double middleColumn(const QImage &picture, const Matches &matches)
{
    double sum = 0;
    int count = 0;
    forEachPixel(picture, [&](int x, int y) {
        if (!matches(picture.pixelColor(x, y)))
            return;
        sum += x;
        ++count;
    });
    return count > 0 ? sum / count / picture.devicePixelRatioF() : std::nan("");
}

/*! Returns the place of a column of pixels in millimetres, as the axis below it says; a pixel is at most 0.1 mm. A plot that becomes wider
    moves columns, but not places. */
double placeOf(double column, const QwtPlot *plot)
{
    const QwtScaleMap map = plot->canvasMap(QwtPlot::xBottom);
    return map.transform(1) - map.transform(0) >= 10 ? map.invTransform(column) : std::nan("");
}

} // namespace

//! One beam has one position, wherever a window and its report show it.
class tst_OneBeam : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_settings = m_folder.filePath("window.ini");
        QFile file(m_settings);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(settingsText);
    }

    void allDisplaysReadTheSame()
    {
        BeamInWindow w(m_settings);
        w.noise = 30;
        w.show(3, -2);
        QTRY_VERIFY(w.profile->getCalc().valid);
        QStringList seen;
        for (const auto estimator : {BeamEstimator::Regression, BeamEstimator::CentreOfGravity}) {
            const QStringList readings = w.readings(estimator, m_settings);
            QVERIFY2(!readings[0].contains("nan"), qPrintable(readings[0]));
            QCOMPARE(readings[1], readings[0]);
            QCOMPARE(readings[2], readings[0]);
            // Each follows what the operator set: with other parameters the numbers are others.
            const LastEstimates usual = estimatesOfLastReading(w.session.statistics());
            for (const PlaneEstimate &plane : usual.planes)
                QVERIFY(
                    !readings[0].contains(QString::number(plane.estimate.position.value, 'g', 9)));
            seen << readings[0];
        }
        QVERIFY(seen[0] != seen[1]);
    }

    //! In numbers, and in the pixels of a picture.
    void aMillimetreIsAMillimetre()
    {
        BeamInWindow w(m_settings);
        double histogram[2] = {}, place[2] = {}, shown[2] = {};
        for (const int step : {0, 1}) {
            w.show(3 + step, -2);
            QTRY_VERIFY(std::abs(w.profile->getCalc().meanX - 3 - step) < 0.1);
            shown[step] = w.profile->getCalc().meanX;
            QVERIFY(std::abs(w.scope->histogramItems(RVXScopePlotView::RegressionItem)
                                 .first()
                                 ->estimate()
                                 .position.value
                             - 3 - step)
                    < 0.02);
            auto *displays = w.window.findChild<DisplayTabs *>();
            displays->setCurrentWidget(displays->scope());
            QTRY_VERIFY(!std::isnan(histogram[step] = fitPlace(w.scope->findChild<QwtPlot *>())));
            displays->setCurrentWidget(w.position);
            QwtPlot *plane = w.position->findChild<QwtPlot *>();
            QTRY_VERIFY(!std::isnan(place[step] = markerPlace(plane)));
        }
        QVERIFY(std::abs(shown[1] - shown[0] - 1) < 0.02);
        for (const double moved : {histogram[1] - histogram[0], place[1] - place[0]})
            QVERIFY2(std::abs(moved - 1) < 0.1, qPrintable(QString::number(moved)));
    }

private:
    //! Returns the place of the vertical line at the first plane's fit; NaN if there is none.
    static double fitPlace(QwtPlot *plot)
    {
        const QImage canvas = plot->canvas()->grab().toImage();
        std::vector<int> pinks(std::size_t(canvas.width() / 2));
        forEachPixel(canvas, [&](int x, int y) {
            const QColor color = canvas.pixelColor(x, y);
            const bool isPink = color.red() > 180 && color.blue() > 180 && color.green() < 200;
            if (isPink && x < int(pinks.size()))
                ++pinks[std::size_t(x)];
        });
        const auto most = std::max_element(pinks.begin(), pinks.end());
        return *most > canvas.height() / 4
            ? placeOf((double(most - pinks.begin()) + 0.5) / canvas.devicePixelRatioF(), plot)
            : std::nan("");
    }

    //! Returns the place of the marker of a position plot.
    static double markerPlace(QwtPlot *plot)
    {
        plot->replot();
        const auto isYellow = [](const QColor &color) {
            return color.red() > 180 && color.green() > 180 && color.blue() < 60;
        };
        return placeOf(middleColumn(plot->canvas()->grab().toImage(), isYellow), plot);
    }

    QTemporaryDir m_folder;
    QString m_settings;
};

CORVALE_QT_TEST_MAIN(tst_OneBeam)
#include "tst_OneBeam.moc"
