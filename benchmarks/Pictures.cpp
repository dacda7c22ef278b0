// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 5 compares the scope's picture of many samples with a picture that has a line for each pair of them.
#include "Goal.h"
#include "Goals.h"
#include "Points.h"
#include "ScopeChart.h"
#include <corvale_qt/RVXSingleChannelDataModel>

#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_scale_map.h>

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

using namespace Corvale_Qt;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

struct Readings
{
    const char *name;
    double amplitude = 1.0;
    int specialEvery = 0; // distance between pairs of special readings
    double special = notANumber;
    double jitter = 0.0; // of the times, in steps
    int gone = 0; // readings that the full ring buffer has dropped
};

const Readings cases[] = {
    {"plain"},
    {"gaps", 1.0, 37},
    {"single points between gaps", 1.0, 3},
    {"infinities", 1.0, 41, -infinity},
    {"clipped", 8.0},
    {"values of 1e300", 1.0, 41, 1e300},
    {"all of them 1e300", 1e300},
    {"wrapped ring", 1.0, 0, notANumber, 0.0, 107777},
    {"time backwards", 1.0, 0, notANumber, 4.0},
    {"time far backwards, gaps", 1.0, 50, notANumber, 300.0},
};

void feed(RVXSingleChannelDataModel &model, const Readings &readings)
{
    constexpr int samples = 20000;
    std::mt19937 random(5);
    std::normal_distribution<double> noise(0.0, 0.2);
    model.setAutoUpdate(false);
    const int count = samples + readings.gone;
    for (int i = 1; i <= count; ++i) {
        const double time = 1000.0 + i + readings.jitter * noise(random);
        const double value = readings.amplitude * (std::sin(i * 0.0013) + noise(random));
        const bool isSpecial = readings.specialEvery > 0 && i % readings.specialEvery < 2;
        model.AddData(time, isSpecial ? readings.special : value);
    }
    model.UpdateView();
    model.setPlotWidthHintPoints(samples);
}

//! Rounds like Qwt, half away from zero. A point that is far outside stays far outside.
int pixelOf(const QwtScaleMap &map, double value)
{
    constexpr double far = 2147483646.0;
    return qRound(std::clamp(map.transform(value), -far, far));
}

bool isFinite(const QPointF &point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

//! Draws the samples on the empty chart: a line for two neighbours, a point for a sample without neighbours.
void drawEverySegment(QImage &canvas, QwtPlot &plot, const QwtPlotCurve &curve)
{
    const QwtScaleMap x = plot.canvasMap(QwtPlot::xBottom);
    const QwtScaleMap y = plot.canvasMap(QwtPlot::yLeft);
    QPainter painter(&canvas);
    painter.setPen(curve.pen());
    painter.translate(-plot.canvas()->contentsRect().topLeft());
    const QVector<QPointF> points = pointsOf(curve);
    const auto pixel = [&](const QPointF &point) {
        return QPoint(pixelOf(x, point.x()), pixelOf(y, point.y()));
    };
    for (int i = 0; i < points.size(); ++i) {
        if (!isFinite(points[i]))
            continue;
        const bool joined = i + 1 < points.size() && isFinite(points[i + 1]);
        if (joined)
            painter.drawLine(pixel(points[i]), pixel(points[i + 1]));
        else if (i == 0 || !isFinite(points[i - 1]))
            painter.drawPoint(pixel(points[i]));
    }
}

void measure(const Readings &readings)
{
    RVXSingleChannelDataModel model;
    feed(model, readings);
    ScopeChart chart(model, ScopeChart::FullRange, 1.5);
    const QImage ours = chart.picture();
    const QVector<const QwtPlotCurve *> curves = shownCurves(*chart.plot());
    require(curves.size() == 1, "5 one curve is shown");
    if (curves.size() != 1)
        return;
    const_cast<QwtPlotCurve *>(curves.first())->hide();
    chart.plot()->replot();
    QImage slow = pictureOf(*chart.plot());
    const QImage empty = slow;
    drawEverySegment(slow, *chart.plot(), *curves.first());
    require(differingPixels(slow, empty) > 0, "5 something is drawn");
    report({QStringLiteral("5 pixels other than undecimated: %1").arg(readings.name),
            double(differingPixels(ours, slow)),
            Goal::AtMost,
            0.0});
}

} // namespace

void measurePictures()
{
    for (const Readings &readings : cases)
        measure(readings);
}
