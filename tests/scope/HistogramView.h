// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/statistics/RVX_HistogramItemAxisWidget.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/Profiles.h"

#include <qwt_plot_histogram.h>

#include <algorithm>

//! Owns a model and shows it in histogram mode.
class HistogramView : public ModelView
{
public:
    explicit HistogramView(int channels)
        : ModelView(channels)
    {
        SetPlotMode(HistogramMode);
    }
    //! Switches on one item of each type.
    void enableAll(bool fullStatistics)
    {
        for (int type = 0; type < 4; ++type)
            enableHistogramItem(HistogramItemTypes(type), 1, {}, fullStatistics);
    }
    //! Shows a beam at bin 12.3, with a fit by the device.
    void showBeam()
    {
        model.deviceFits = QVariantList{12.3, 2.5, 4e-9};
        model.show(Profiles::gaussian<double>(32, 12.3, 2.5, 4e-9));
        settle();
    }
    QVector<double> bars()
    {
        settle();
        QVector<double> values;
        for (size_t i = 0; i < histogram()->dataSize(); ++i)
            values << histogram()->sample(int(i)).value;
        return values;
    }
    //! Returns the visible axis widgets, from top to bottom.
    QList<Corvale_Qt::RVX_HistogramItemAxisWidget *> strips()
    {
        settle();
        QList<Corvale_Qt::RVX_HistogramItemAxisWidget *> shown;
        for (auto *widget : findChildren<Corvale_Qt::RVX_HistogramItemAxisWidget *>()) {
            if (widget->isVisible())
                shown << widget;
        }
        std::sort(shown.begin(), shown.end(),
                  [](const QWidget *a, const QWidget *b) { return a->y() < b->y(); });
        return shown;
    }
    //! Returns the middle of columns first to last of a widget's picture, in pixels of the viewport.
    double middle(const QWidget *widget, int first, int last) const
    {
        const double inWidget = (first + last + 1) / 2.0 / widget->devicePixelRatioF() - 0.5;
        return widget->mapTo(viewport(), QPoint(0, 0)).x() + inWidget;
    }
    //! Returns the positions of a widget's ticks that cross a line above its lower edge.
    QVector<double> ticksAt(QWidget *widget, int linesFromBottom) const
    {
        const QImage picture = widget->grab().toImage();
        const int y = picture.height() - int(linesFromBottom * picture.devicePixelRatio());
        const QColor background = widget->palette().color(QPalette::Window);
        QVector<double> ticks;
        int first = 0;
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) == background)
                continue;
            if (x == 0 || picture.pixelColor(x - 1, y) == background)
                first = x;
            if (x == picture.width() - 1 || picture.pixelColor(x + 1, y) == background)
                ticks << middle(widget, first, x);
        }
        return ticks;
    }
    //! Returns the middle of the bar, including its outline, that is the only one as high as \a value.
    double middleOfBar(double value)
    {
        const QImage picture = canvas();
        const int y = int(at(1.0, value).y() * picture.devicePixelRatio());
        int first = -1;
        int last = -1;
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            if (colour == QColor(Qt::yellow) || colour == QColor(Qt::yellow).darker(130)) {
                first = first < 0 ? x : first;
                last = x;
            }
        }
        return middle(qwtPlot()->canvas(), first, last);
    }
};
