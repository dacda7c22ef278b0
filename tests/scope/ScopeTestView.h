// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/RVXScopePlotView.h"
#include "tests/scope/ScopeTestModel.h"

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

/*! A visible view that gives tests what subclasses may use, and that looks at what is on the screen. Each look waits until
    the view has come to rest. */
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

    QwtInterval x() { return axis(QwtPlot::xBottom); }
    QwtInterval y() { return axis(QwtPlot::yLeft); }
    QString xText() { return textOf(x()); }
    QString yText() { return textOf(y()); }
    QString title(int axis)
    {
        settle();
        return qwtPlot()->axisTitle(axis).text();
    }

    QList<QwtPlotCurve *> curves()
    {
        settle();
        QList<QwtPlotCurve *> found;
        for (QwtPlotItem *item : qwtPlot()->itemList(QwtPlotItem::Rtti_PlotCurve))
            found << static_cast<QwtPlotCurve *>(item);
        return found;
    }

    //! Returns where a point of the plot is on the canvas.
    QPoint at(double xValue, double yValue)
    {
        settle();
        return QPoint(qRound(qwtPlot()->transform(QwtPlot::xBottom, xValue)),
                      qRound(qwtPlot()->transform(QwtPlot::yLeft, yValue)));
    }
    //! Returns a picture of the canvas in device pixels.
    QImage canvas()
    {
        settle();
        return qwtPlot()->canvas()->grab().toImage();
    }
    //! Returns the colour of a picture of the canvas at a point of the plot, moved by \a beside widget pixels.
    QColor colourIn(const QImage &picture, double x, double y, const QPoint &beside = QPoint())
    {
        const QPoint place = at(x, y) + beside;
        return picture.pixelColor(place * picture.devicePixelRatio());
    }

    QString markerText(int index) { return marker(index)->label().text(); }
    double markerX(int index) { return marker(index)->xValue(); }
    bool hasMarker(int index) { return marker(index)->plot() != nullptr; }
    //! Places marker 0 (left button) or 1 (right button) at a point of the plot.
    void click(Qt::MouseButton button, double xValue, double yValue)
    {
        QTest::mouseClick(qwtPlot()->canvas(), button, Qt::NoModifier, at(xValue, yValue));
        settle();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(this, key, modifiers);
        settle();
    }

private:
    static QString textOf(const QwtInterval &interval)
    {
        return QStringLiteral("%1..%2").arg(interval.minValue()).arg(interval.maxValue());
    }
    QwtInterval axis(int axis)
    {
        settle();
        return qwtPlot()->axisInterval(axis);
    }
    QSharedPointer<QwtPlotMarker> marker(int index)
    {
        settle();
        return plotMarker(index);
    }
};

//! A constant signal: channel 1 is at 1, channel 2 at 2, and so on.
inline double level(int channel, double)
{
    return channel;
}

//! A view with a model of its own, whose rows are a second apart.
class ModelView : public ScopeTestView
{
public:
    explicit ModelView(int channels, int rows = 0, int capacity = std::numeric_limits<int>::max())
        : model(channels, capacity)
    {
        append(rows);
        setModel(&model);
    }

    void append(int rows)
    {
        if (rows > 0)
            model.appendRows(rows, 1.0, level);
    }
    //! Lets rows come in small batches, each painted.
    void stream(int rows)
    {
        for (; rows > 0; rows -= 25) {
            append(qMin(rows, 25));
            settle();
        }
    }
    void check(int channel, bool on)
    {
        model.setData(model.index(0, channel), on ? Qt::Checked : Qt::Unchecked,
                      Qt::CheckStateRole);
    }
    void showMode(int mode)
    {
        SetPlotMode(mode);
        settle();
    }
    //! Enables markers and lets y run from -10 to 10.
    void useMarkers()
    {
        SetRange(-10.0, 10.0);
        SetYScaleMode(FullRange);
        enablePlotMarker(true);
        settle();
    }

    ScopeTestModel model;
};
