// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/PlotZoom_p.h"

#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr double kStep = 1.25;
constexpr double kMost = 1000; // times

} // namespace

PlotZoom::PlotZoom(QwtPlot *plot)
    : QObject(plot)
    , m_plot(plot)
{
    plot->canvas()->installEventFilter(this);
}

void PlotZoom::setHome(const QRectF &home)
{
    if (home == m_home)
        return;
    m_home = home;
    m_shown = home;
    m_isDragging = false;
    m_plot->canvas()->setFocusPolicy(home.isEmpty() ? Qt::NoFocus : Qt::StrongFocus);
    if (!home.isEmpty())
        show(home);
}

void PlotZoom::show(const QRectF &part)
{
    if (m_home.isEmpty() || part.isEmpty())
        return;
    const QSizeF size(std::clamp(part.width(), m_home.width() / kMost, m_home.width()),
                      std::clamp(part.height(), m_home.height() / kMost, m_home.height()));
    QRectF shown(QPointF(), size);
    shown.moveCenter(part.center());
    shown.moveLeft(std::clamp(shown.left(), m_home.left(), m_home.right() - size.width()));
    shown.moveTop(std::clamp(shown.top(), m_home.top(), m_home.bottom() - size.height()));
    m_shown = shown;
    m_plot->setAxisScale(QwtPlot::xBottom, shown.left(), shown.right());
    // The top of the rectangle is its lowest place.
    m_plot->setAxisScale(QwtPlot::yLeft, shown.top(), shown.bottom());
    m_plot->replot();
}

bool PlotZoom::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (m_home.isEmpty())
        return false;
    if (event->type() == QEvent::KeyPress)
        return keyPressed(*static_cast<QKeyEvent *>(event));
    if (event->type() == QEvent::Wheel) {
        const auto *wheel = static_cast<QWheelEvent *>(event);
        if (wheel->angleDelta().y() == 0)
            return false;
        zoomAround(placeOf(wheel->position().toPoint()),
                   std::pow(kStep, wheel->angleDelta().y() / 120.0));
        return true;
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return mouseEvent(*static_cast<QMouseEvent *>(event));
    default:
        return false;
    }
}

bool PlotZoom::mouseEvent(const QMouseEvent &mouse)
{
    switch (mouse.type()) {
    case QEvent::MouseButtonPress:
        m_isDragging = mouse.button() == Qt::LeftButton;
        m_dragged = mouse.pos();
        return false;
    case QEvent::MouseButtonRelease:
        m_isDragging = false;
        return false;
    case QEvent::MouseButtonDblClick:
        show(m_home);
        return true;
    case QEvent::MouseMove: {
        if (!m_isDragging)
            return false;
        const QPointF way = placeOf(m_dragged) - placeOf(mouse.pos());
        m_dragged = mouse.pos();
        show(m_shown.translated(way));
        return false; // the readout beside the mouse follows too
    }
    default:
        return false;
    }
}

bool PlotZoom::keyPressed(const QKeyEvent &event)
{
    constexpr double step = 0.1;
    switch (event.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        zoomAround(m_shown.center(), kStep);
        return true;
    case Qt::Key_Minus:
        zoomAround(m_shown.center(), 1 / kStep);
        return true;
    case Qt::Key_Left:
        panBy(-step, 0);
        return true;
    case Qt::Key_Right:
        panBy(step, 0);
        return true;
    case Qt::Key_Up:
        panBy(0, step);
        return true;
    case Qt::Key_Down:
        panBy(0, -step);
        return true;
    case Qt::Key_Home:
    case Qt::Key_0:
        show(m_home);
        return true;
    default:
        return false;
    }
}

void PlotZoom::zoomAround(const QPointF &place, double factor)
{
    const QPointF corner = place + (m_shown.topLeft() - place) / factor;
    show(QRectF(corner, m_shown.size() / factor));
}

void PlotZoom::panBy(double right, double up)
{
    show(m_shown.translated(right * m_shown.width(), up * m_shown.height()));
}

QPointF PlotZoom::placeOf(const QPoint &pixel) const
{
    return {m_plot->invTransform(QwtPlot::xBottom, pixel.x()),
            m_plot->invTransform(QwtPlot::yLeft, pixel.y())};
}

} // namespace Corvale_Qt
