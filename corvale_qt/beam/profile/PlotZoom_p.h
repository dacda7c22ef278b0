// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QObject>
#include <QPoint>
#include <QRectF>

class QKeyEvent;
class QMouseEvent;
class QwtPlot;

namespace Corvale_Qt {

/*! Zooms and pans a plot: with the wheel around the mouse, by dragging with the left button, and with the keys + - (zoom), the
    arrows (pan) and Home or 0 (everything). A double click shows everything as well. It does nothing without a home. */
class PlotZoom : public QObject
{
public:
    //! Becomes a child of the plot and listens to its canvas.
    explicit PlotZoom(QwtPlot *plot);

    //! Sets what is shown without zoom, and shows it. An empty rectangle leaves the axes alone from then on.
    void setHome(const QRectF &home);
    QRectF home() const { return m_home; }
    QRectF shown() const { return m_shown; }
    //! Shows a part of the home. A rectangle beyond it is moved and cut.
    void show(const QRectF &part);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool keyPressed(const QKeyEvent &event);
    void zoomAround(const QPointF &place, double factor);
    void panBy(double right, double up); //!< in shares of what is shown
    QPointF placeOf(const QPoint &pixel) const;
    bool mouseEvent(const QMouseEvent &mouse);

    QwtPlot *m_plot;
    QRectF m_home;
    QRectF m_shown;
    QPoint m_dragged;
    bool m_isDragging = false;
};

} // namespace Corvale_Qt
