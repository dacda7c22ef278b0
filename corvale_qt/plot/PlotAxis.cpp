// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/NumberScaleDraw_p.h"
#include "corvale_qt/plot/PlotAxis_p.h"

#include <qwt_plot.h>
#include <qwt_text.h>

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

// Ticks that are closer than this, in pixels, merge into one.
constexpr double kTickDistance = 3;

double distanceOfTicks(const QList<double> &ticks)
{
    return ticks.size() < 2 ? 0.0 : std::abs(ticks[1] - ticks[0]);
}

} // namespace

QwtText ThinnedScaleDraw::label(double value) const
{
    const QwtScaleDiv &div = scaleDiv();
    // Qwt adds up steps, so the tick at 0 may differ from it by rounding errors.
    if (std::abs(value) < 1e-9 * std::abs(div.range()))
        return QStringLiteral("0");
    return QString::number(value, 'g', axisDigits(div));
}

void ThinnedScaleDraw::draw(QPainter *painter, const QPalette &palette) const
{
    m_labelStep = labelStep(painter->font());
    m_lastLength = 0;
    QwtScaleDraw::draw(painter, palette);
}

void ThinnedScaleDraw::drawTick(QPainter *painter, double value, double length) const
{
    const double place = scaleMap().transform(value);
    if (length == m_lastLength && std::abs(place - m_lastTick) < kTickDistance)
        return;
    m_lastLength = length;
    m_lastTick = place;
    QwtScaleDraw::drawTick(painter, value, length);
}

//! Returns n such that every nth label fits: 1, 2, 5, 10, 20 ...
int ThinnedScaleDraw::labelStep(const QFont &font) const
{
    const QList<double> ticks = scaleDiv().ticks(QwtScaleDiv::MajorTick);
    if (ticks.size() < 2)
        return 1;
    double needed = 0;
    for (double tick : ticks) {
        const QSizeF size = tickLabel(font, tick).textSize(font);
        needed =
            std::max(needed, orientation() == Qt::Horizontal ? size.width() + 4 : size.height());
    }
    const double between =
        std::abs(scaleMap().transform(ticks[1]) - scaleMap().transform(ticks[0]));
    int step = 1;
    for (int i = 0; step * between < needed && step < ticks.size(); ++i)
        step = i % 3 == 1 ? step / 2 * 5 : step * 2;
    return step;
}

void ThinnedScaleDraw::drawLabel(QPainter *painter, double value) const
{
    const QList<double> ticks = scaleDiv().ticks(QwtScaleDiv::MajorTick);
    const double step = distanceOfTicks(ticks);
    const bool hasZero = scaleDiv().contains(0.0);
    // Ticks are evenly spaced.
    const double index = step > 0 ? (value - (hasZero ? 0.0 : ticks.first())) / step : 0.0;
    if (m_labelStep == 1 || std::fmod(std::round(index), m_labelStep) == 0)
        QwtScaleDraw::drawLabel(painter, value);
}

void styleAxis(QwtPlot *plot, int axis, QwtScaleDraw *draw)
{
    plot->setAxisScaleDraw(axis, draw);
    plot->setAxisFont(axis, plot->font());
    QwtText title = plot->axisTitle(axis);
    title.setFont(plot->font());
    plot->setAxisTitle(axis, title);
}

void followData(QwtPlot *plot, int axis)
{
    plot->setAxisScale(axis, -1, 1);
    plot->setAxisAutoScale(axis, true);
}

} // namespace Corvale_Qt
