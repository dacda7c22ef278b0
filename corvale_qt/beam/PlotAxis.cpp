// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/PlotAxis_p.h"

#include <qwt_plot.h>
#include <qwt_text.h>

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

//! Every how many ticks a label fits: 1, 2, 5, 10, 20 ...
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
    const int step = labelStep(painter->font());
    const int zero = ticks.indexOf(0.0);
    const int index = ticks.indexOf(value);
    if (step == 1 || (index - std::max(zero, 0)) % step == 0)
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

} // namespace Corvale_Qt
