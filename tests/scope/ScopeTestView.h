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

//! A visible view that gives tests what subclasses may use, and that looks at what is on the screen.
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

    //! Waits until the view has been painted, laid out and painted again.
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

    //! Returns where a point of the plot is on the canvas.
    QPoint at(double xValue, double yValue)
    {
        return QPoint(qRound(qwtPlot()->transform(QwtPlot::xBottom, xValue)),
                      qRound(qwtPlot()->transform(QwtPlot::yLeft, yValue)));
    }
    //! Returns a picture of the canvas in device pixels.
    QImage canvas() { return qwtPlot()->canvas()->grab().toImage(); }
    //! Returns the colour of a picture of the canvas at a point of the plot, moved by \a beside widget pixels.
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

//! A constant signal: channel 1 is at 1, channel 2 at 2, and so on.
inline double level(int channel, double)
{
    return channel;
}

//! Enables markers and lets y run from -10 to 10.
inline void useTens(ScopeTestView &view)
{
    view.SetRange(-10.0, 10.0);
    view.SetYScaleMode(ScopeTestView::FullRange);
    view.enablePlotMarker(true);
    view.settle();
}
