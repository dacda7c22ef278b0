// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <qwt_plot.h>
#include <qwt_scale_div.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_widget.h>
#include <qwt_text.h>

#include <QStringList>

/*! Returns the texts of the axes of a plot that do not lie within the plot, or that the widget of their axis cuts, each with what
    it lacks in pixels. */
inline QString cutAxisTexts(const QwtPlot &plot)
{
    QStringList cut;
    const auto check = [&cut](const QString &text, const QRectF &place, const QRect &room) {
        const QRectF widget =
            QRectF(room).adjusted(-0.5, -0.5, 0.5, 0.5); // texts have whole pixels
        if (!widget.contains(place))
            cut << QStringLiteral("%1 (%2)").arg(text).arg(
                (widget.united(place).width() - widget.width())
                + (widget.united(place).height() - widget.height()));
    };
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        const QwtScaleWidget *const widget = plot.axisWidget(axis);
        if (!plot.axisEnabled(axis) || !widget->isVisibleTo(&plot))
            continue;
        const QString title = widget->title().text();
        check(title, widget->geometry(), plot.rect());
        const bool isX = axis == QwtPlot::xBottom || axis == QwtPlot::xTop;
        const int length = isX ? widget->width() : widget->height();
        const int across = widget->dimForLength(length, widget->font())
            - (isX ? widget->height() : widget->width());
        if (across > 0)
            cut << QStringLiteral("%1 (%2)").arg(title).arg(across);
        const QwtScaleDraw *const draw = widget->scaleDraw();
        for (const double tick : draw->scaleDiv().ticks(QwtScaleDiv::MajorTick)) {
            if (!draw->label(tick).isEmpty())
                check(draw->label(tick).text(), draw->boundingLabelRect(widget->font(), tick),
                      widget->rect());
        }
    }
    return cut.join(QStringLiteral("; "));
}
