// SPDX-License-Identifier: LGPL-2.1-or-later
// Measures where a person waits for a beam display: frames of a camera (goal 20) and spot maps (goal 21). Other than the goals of
// corvale_qt_benchmarks, these are times in milliseconds, which only an idle machine tells. Prints "figure, measured, limit".
#include "CameraFrames.h"
#include "Goal.h"
#include "SpotChart.h"
#include <corvale_qt/RVXSpectrogram>

#include <qwt_plot.h>

#include <QApplication>
#include <QCheckBox>
#include <QHelpEvent>

#include <cmath>

using namespace Corvale_Qt;

namespace {

constexpr double milli = 1e3;

void reportTime(const QString &name, double seconds, double limit)
{
    report({name + ", ms", milli * seconds, Goal::AtMost, limit});
}

QwtPlot *plotOf(const RVXSpectrogram &display)
{
    for (QwtPlot *plot : display.findChildren<QwtPlot *>()) {
        if (plot->accessibleName() == QLatin1String("Beam profile"))
            return plot;
    }
    qFatal("The display has no plot");
}

//! Frames as the monitor hands them over: with both fits, judged, and shown by a picture.
void measureFrames()
{
    const DetectorLayout layout = camera();
    RVXSpectrogram display;
    display.setLayout(layout);
    display.setEstimator(BeamEstimator::LeastSquares);
    display.setIntensityUnit(QStringLiteral("counts"));
    display.setVerdictEnabled(true);
    display.resize(900, 700);
    display.show();
    QApplication::processEvents();
    constexpr int different = 16;
    QVector<QVector<double>> frames;
    for (int number = 0; number < different; ++number)
        frames.append(cameraReadings(number));
    int next = 0;
    const auto hand = [&] {
        const QVector<double> &readings = frames[next % different];
        display.setFrame(DetectorFrame::of(layout, readings.constData(), readings.size()), ++next);
    };
    for (int i = 0; i < different; ++i)
        hand();
    const SpectrogramResult result = display.result();
    const CameraBeam beam = beamOf((next - 1) % different);
    require(result.calc.valid && std::abs(result.calc.meanX - beam.x) < 0.02
                && std::abs(result.calc.meanY - beam.y) < 0.02
                && std::abs(result.calc.sigmaX - beam.sigmaX) < 0.02
                && std::abs(result.calc.sigmaY - beam.sigmaY) < 0.02,
            "20 the numbers of a frame");
    const double numbers = medianSeconds(hand, 21);
    reportTime("20 moments and fits of a frame of 256 x 256", numbers, 4.0);
    while (display.shownResult().frame == 0) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        hand();
    }
    QwtPlot *plot = plotOf(display);
    for (const bool smoothing : {false, true}) {
        display.findChild<QCheckBox *>("checkBox_smoothing")->setChecked(smoothing);
        const double picture = medianSeconds(
            [&] {
                plot->replot();
                plot->repaint();
            },
            21);
        const QString kind = smoothing ? QStringLiteral("smoothed ") : QString();
        report({"20 " + kind + "picture of a frame of 256 x 256, ms",
                milli * picture,
                Goal::AtMost,
                4.0});
        reportTime("20 frame of 256 x 256 with its " + kind + "picture", numbers + picture, 4.0);
    }
}

void measureMap(int spots, double limit)
{
    SpotChart map(spots);
    const QString name = QStringLiteral("21 %1 spots: ").arg(spots);
    reportTime(name + "anew",
               medianSeconds([&] {
                   map.drawAnew();
               }),
               limit);
    int row = 0;
    reportTime(name + "one changed spot",
               medianSeconds([&] {
                   map.moveSpot(row += 7);
                   map.viewport()->repaint();
               }),
               2.0);
    require(map.isAsDrawnAnew(), name + "the picture after changes");
    int side = 0;
    reportTime(name + "finding and selecting the spots of a rubber band over a quarter of the map",
               medianSeconds([&] {
                   ++side;
                   map.selectBand(QRect(100, 100, 200 + side, 200 + side));
               }),
               5.0);
    reportTime(name + "the same with a frame",
               medianSeconds([&] {
                   ++side;
                   map.selectBand(QRect(100, 100, 200 + side, 200 + side));
                   map.viewport()->repaint();
               }),
               5.0);
    map.clearSelection();
    int place = 100;
    reportTime(name + "hovering",
               medianSeconds([&] {
                   ++place;
                   map.indexAt(QPoint(place, place));
               }),
               5.0);
}

void measureDifference()
{
    SpotChart planned(10000);
    SpotChart actual(10000);
    actual.setDiffTarget(&planned);
    actual.setDisplayMode(SpotMapView::Difference);
    bool smaller = false;
    const double seconds = medianSeconds([&] {
        // Both maps are drawn anew.
        actual.resize(smaller ? 600 : 599, 600);
        smaller = !smaller;
        actual.viewport()->repaint();
    });
    reportTime("21 difference of two maps of 10000 spots", seconds, 100.0);
    int row = 0;
    reportTime("21 numbers of the difference",
               medianSeconds([&] {
                   actual.moveSpot(row += 7);
                   actual.differences();
               }),
               100.0);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("CORVALE_QT_NO_OPENGL", "1");
    QApplication application(argc, argv);
    measureFrames();
    measureMap(10000, 50.0);
    measureMap(100000, 500.0);
    measureDifference();
    return allGoalsMet() ? 0 : 1;
}
