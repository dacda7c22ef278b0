// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/RVXScopePlotView.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_map.h>
#include <qwt_text.h>

#include <QCoreApplication>
#include <QImage>
#include <QtTest>

//! The view with what subclasses may use, shown, and a few looks at what is on the screen.
class ScopeTestView : public Corvale_Qt::RVXScopePlotView
{
public:
    using RVXScopePlotView::grid;
    using RVXScopePlotView::histogram;
    using RVXScopePlotView::horizontalOffset;
    using RVXScopePlotView::Plot;
    using RVXScopePlotView::plotMarker;
    using RVXScopePlotView::qwtPlot;
    using RVXScopePlotView::SelectPoint1;
    using RVXScopePlotView::SelectPoint2;
    using RVXScopePlotView::visualRegionForSelection;

    explicit ScopeTestView(QAbstractItemModel *model = nullptr)
    {
        resize(900, 500);
        setModel(model);
        show();
        settle();
    }

    //! Until what was asked for has been painted, and laid out, and painted again.
    void settle()
    {
        QVERIFY(QTest::qWaitForWindowExposed(this));
        for (int i = 0; i < 6; ++i) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
        }
    }

    QwtInterval x() { return qwtPlot()->axisInterval(QwtPlot::xBottom); }
    QwtInterval y() { return qwtPlot()->axisInterval(QwtPlot::yLeft); }
    QString xText() { return QStringLiteral("%1..%2").arg(x().minValue()).arg(x().maxValue()); }
    QString yText() { return QStringLiteral("%1..%2").arg(y().minValue()).arg(y().maxValue()); }

    QList<QwtPlotCurve *> curves()
    {
        QList<QwtPlotCurve *> found;
        for (QwtPlotItem *item : qwtPlot()->itemList(QwtPlotItem::Rtti_PlotCurve))
            found << static_cast<QwtPlotCurve *>(item);
        return found;
    }

    //! Where a point of the plot is on the canvas.
    QPoint at(double xValue, double yValue)
    {
        return QPoint(qRound(qwtPlot()->transform(QwtPlot::xBottom, xValue)),
                      qRound(qwtPlot()->transform(QwtPlot::yLeft, yValue)));
    }
    //! In device pixels, as many to each of the widget's as the image's ratio says.
    QImage canvas() { return qwtPlot()->canvas()->grab().toImage(); }
    //! Colour of a picture of the canvas at a point of the plot, or some of the widget's pixels beside it.
    QColor colourIn(const QImage &picture, double x, double y, const QPoint &beside = QPoint())
    {
        const QPoint place = at(x, y) + beside;
        return picture.pixelColor(place * picture.devicePixelRatio());
    }

    QString markerText(int index) { return plotMarker(index)->label().text(); }
    bool hasMarker(int index) { return plotMarker(index)->plot() != nullptr; }
    void click(Qt::MouseButton button, const QPoint &point)
    {
        QTest::mouseClick(qwtPlot()->canvas(), button, Qt::NoModifier, point);
        settle();
    }
};

//! Channel 1 at 1, channel 2 at 2 ...
inline double level(int channel, double)
{
    return channel;
}

//! Markers on, and y from -10 to 10.
inline void useTens(ScopeTestView &view)
{
    view.SetRange(-10.0, 10.0);
    view.SetYScaleMode(ScopeTestView::FullRange);
    view.enablePlotMarker(true);
    view.settle();
}
