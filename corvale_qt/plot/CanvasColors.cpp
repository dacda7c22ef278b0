// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/CanvasColors_p.h"

#include <qwt_plot.h>

#include <QBrush>

#include <cmath>

namespace Corvale_Qt {

namespace {

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double encoded(double light)
{
    return light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1.0 / 2.4) - 0.055;
}

//! Returns a channel as a screen has it, from 0 to 255. It is rounded down: a lighter pixel would miss the contrast.
int screenLevel(double light)
{
    return int(std::floor(255.0 * encoded(light)));
}

} // namespace

QColor colorOnWhite(const QColor &color)
{
    constexpr double contrast = 3.0;
    constexpr double most = 1.05 / contrast - 0.05; // relative luminance
    const double red = linear(color.redF());
    const double green = linear(color.greenF());
    const double blue = linear(color.blueF());
    const double luminance = 0.2126 * red + 0.7152 * green + 0.0722 * blue;
    if (luminance <= most)
        return color;
    const double factor = most / luminance;
    return QColor(screenLevel(red * factor),
                  screenLevel(green * factor),
                  screenLevel(blue * factor),
                  color.alpha());
}

bool hasWhiteCanvas(const QwtPlot *plot)
{
    return plot && plot->canvasBackground().color() == Qt::white;
}

QColor colorOnCanvas(const QColor &color, const QwtPlot *plot)
{
    return hasWhiteCanvas(plot) ? colorOnWhite(color) : color;
}

} // namespace Corvale_Qt
