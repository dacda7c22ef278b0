// SPDX-License-Identifier: LGPL-2.1-or-later
#include "Points.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <QImage>

QVector<const QwtPlotCurve *> shownCurves(const QwtPlot &plot)
{
    QVector<const QwtPlotCurve *> curves;
    for (const QwtPlotItem *item : plot.itemList(QwtPlotItem::Rtti_PlotCurve)) {
        const auto *curve = static_cast<const QwtPlotCurve *>(item);
        if (curve->dataSize() > 0)
            curves.append(curve);
    }
    return curves;
}

QVector<QPointF> pointsOf(const QwtPlotCurve &curve)
{
    QVector<QPointF> points(int(curve.dataSize()));
    for (int i = 0; i < points.size(); ++i)
        points[i] = curve.sample(i);
    return points;
}

QImage pictureOf(QwtPlot &plot)
{
    QWidget &canvas = *plot.canvas();
    return canvas.grab(canvas.contentsRect()).toImage().convertToFormat(QImage::Format_RGB32);
}

int differingPixels(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return a.width() * a.height();
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            count += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    }
    return count;
}
