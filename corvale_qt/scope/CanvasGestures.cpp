// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/CanvasGestures_p.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"
#include "corvale_qt/scope/ScopeNavigation_p.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_scale_widget.h>

#include <QApplication>
#include <QGestureEvent>
#include <QMouseEvent>
#include <QRubberBand>
#include <QWheelEvent>

#include <cmath>
#include <utility>

namespace Corvale_Qt {

namespace {

constexpr double kNotch = 120.0; // of the angle of a wheel
constexpr double kZoomOfNotch = 0.8;
constexpr double kMoveOfNotch = 0.1; // of the width of the canvas

} // namespace

CanvasGestures::CanvasGestures(RVXScopePlotViewPrivate &view, ScopeNavigation &navigation)
    : d(view)
    , m_navigation(navigation)
{
    d.canvas->installEventFilter(this);
    d.canvas->grabGesture(Qt::PinchGesture);
    for (const int axis : {QwtPlot::yLeft, QwtPlot::yRight})
        d.plot->axisWidget(axis)->installEventFilter(this);
}

CanvasGestures::~CanvasGestures()
{
    d.canvas->ungrabGesture(Qt::PinchGesture);
    finish();
}

bool CanvasGestures::cancel()
{
    if (m_state == State::Idle)
        return false;
    const bool wasPanning = m_state == State::Panning;
    finish();
    if (wasPanning)
        m_navigation.show(m_window);
    return true;
}

bool CanvasGestures::eventFilter(QObject *watched, QEvent *event)
{
    for (const int axis : {QwtPlot::yLeft, QwtPlot::yRight}) {
        if (watched == d.plot->axisWidget(axis))
            return event->type() == QEvent::Wheel
                && wheelTurnedOnAxis(axis, static_cast<QWheelEvent &>(*event));
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return mousePressed(static_cast<QMouseEvent &>(*event));
    case QEvent::MouseMove:
        return mouseMoved(static_cast<QMouseEvent &>(*event));
    case QEvent::MouseButtonRelease:
        return mouseReleased(static_cast<QMouseEvent &>(*event));
    case QEvent::MouseButtonDblClick:
        return mouseDoubleClicked(static_cast<QMouseEvent &>(*event));
    case QEvent::Wheel:
        return wheelTurned(static_cast<QWheelEvent &>(*event));
    case QEvent::Gesture:
        return pinched(static_cast<QGestureEvent &>(*event));
    case QEvent::NativeGesture:
        return padZoomed(static_cast<QNativeGestureEvent &>(*event));
    default:
        return false;
    }
}

bool CanvasGestures::mousePressed(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton || !d.q_ptr->model())
        return false;
    m_pressed = event.pos();
    m_xMap = d.plot->canvasMap(QwtPlot::xBottom);
    m_yMap = d.plot->canvasMap(QwtPlot::yLeft);
    m_rightMap = d.plot->canvasMap(QwtPlot::yRight);
    m_window = d.context.hold.window();
    m_state = State::Pressed;
    if (event.modifiers() & Qt::ShiftModifier) {
        m_state = State::Banding;
        m_band = std::make_unique<QRubberBand>(QRubberBand::Rectangle, d.canvas);
        m_band->setGeometry(QRect(m_pressed, QSize()));
        m_band->show();
    }
    return true;
}

bool CanvasGestures::mouseMoved(const QMouseEvent &event)
{
    if (m_state == State::Banding)
        m_band->setGeometry(QRect(m_pressed, event.pos()).normalized());
    const int distance = (event.pos() - m_pressed).manhattanLength();
    if (m_state == State::Pressed && distance >= QApplication::startDragDistance())
        beginPan();
    if (m_state == State::Panning)
        pan(event.pos());
    return m_state != State::Idle;
}

bool CanvasGestures::mouseReleased(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton || m_state == State::Idle)
        return false;
    const State state = m_state;
    finish();
    if (state == State::Pressed)
        placeMarker(event.pos());
    else if (state == State::Banding)
        zoomToBand(event.pos());
    return true;
}

//! Goes back to the whole picture. The first click of the two has moved a marker, which was not meant.
bool CanvasGestures::mouseDoubleClicked(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton)
        return false;
    if (d.context.hold.isChanged()) {
        d.context.markers.restore(m_marker);
        m_navigation.goLive();
    }
    return true;
}

bool CanvasGestures::wheelTurned(QWheelEvent &event)
{
    using Step = ScopeNavigation::Step;
    const QPoint angle = event.angleDelta();
    event.accept(); // otherwise the scroll bar would follow, too
    if (std::abs(angle.x()) > std::abs(angle.y())) {
        const double pixels = angle.x() / kNotch * kMoveOfNotch * d.canvas->width();
        m_navigation.moveAxis(m_navigation.zoomedAxis(false), pixels, Step::WheelMove);
    } else if (angle.y() != 0) {
        const int axis = m_navigation.zoomedAxis(event.modifiers() & Qt::ControlModifier);
        const QPointF at = event.position();
        m_navigation.zoomAxis(axis,
                              axis == QwtPlot::xBottom ? at.x() : at.y(),
                              std::pow(kZoomOfNotch, angle.y() / kNotch),
                              angle.y() > 0 ? Step::WheelIn : Step::WheelOut);
    }
    return true;
}

//! Zooms the y axis under the pointer, and no other.
bool CanvasGestures::wheelTurnedOnAxis(int axis, QWheelEvent &event)
{
    using Step = ScopeNavigation::Step;
    event.accept();
    const int angle = event.angleDelta().y();
    const QPoint at = d.canvas->mapFromGlobal(event.globalPosition().toPoint());
    if (angle != 0)
        m_navigation.zoomYAxisAlone(axis,
                                    at.y(),
                                    std::pow(kZoomOfNotch, angle / kNotch),
                                    angle > 0 ? Step::WheelIn : Step::WheelOut);
    return true;
}

bool CanvasGestures::pinched(const QGestureEvent &event)
{
    const auto *pinch = static_cast<const QPinchGesture *>(event.gesture(Qt::PinchGesture));
    if (!pinch)
        return false;
    if (!(pinch->changeFlags() & QPinchGesture::ScaleFactorChanged)
        || !(pinch->scaleFactor() > 0.0))
        return true;
    const QPoint centre = d.canvas->mapFromGlobal(pinch->centerPoint().toPoint());
    const int axis = m_navigation.zoomedAxis(false);
    m_navigation.zoomAxis(axis,
                          axis == QwtPlot::xBottom ? centre.x() : centre.y(),
                          1.0 / pinch->scaleFactor(),
                          ScopeNavigation::Step::Pinch);
    return true;
}

bool CanvasGestures::padZoomed(const QNativeGestureEvent &event)
{
    if (event.gestureType() != Qt::ZoomNativeGesture || !(event.value() > -1.0))
        return false;
    const int axis = m_navigation.zoomedAxis(false);
    m_navigation.zoomAxis(axis,
                          axis == QwtPlot::xBottom ? event.localPos().x() : event.localPos().y(),
                          1.0 / (1.0 + event.value()),
                          ScopeNavigation::Step::Pinch);
    return true;
}

void CanvasGestures::beginPan()
{
    m_state = State::Panning;
    m_navigation.remember();
    d.canvas->setCursor(Qt::ClosedHandCursor);
}

//! Moves the picture along with the pointer. An axis that follows its samples or its scale up and down goes on doing so.
void CanvasGestures::pan(const QPoint &to)
{
    ViewWindow window = m_window;
    if (m_navigation.zoomedAxis(false) == QwtPlot::xBottom)
        window.x = m_navigation.limited(movedBy(m_xMap, to.x() - m_pressed.x()));
    const int down = to.y() - m_pressed.y();
    if (m_window.y.isValid())
        window.y = divisible(movedBy(m_yMap, down));
    if (m_window.right.isValid())
        window.right = divisible(movedBy(m_rightMap, down));
    m_navigation.show(window);
}

//! Zooms to the band. One that is flat or narrow zooms a single axis; a click is not a band.
void CanvasGestures::zoomToBand(const QPoint &to)
{
    const QRect band = QRect(m_pressed, to).normalized();
    const auto interval = [](const QwtScaleMap &map, double a, double b) {
        return QwtInterval(map.invTransform(a), map.invTransform(b)).normalized();
    };
    const int least = QApplication::startDragDistance();
    QwtInterval x;
    QwtInterval y;
    if (band.width() >= least && m_navigation.zoomedAxis(false) == QwtPlot::xBottom)
        x = interval(m_xMap, band.left(), band.right());
    if (band.height() >= least)
        y = interval(m_yMap, band.bottom(), band.top());
    m_navigation.zoomTo(x, y);
}

void CanvasGestures::placeMarker(const QPoint &at)
{
    m_marker = d.context.markers.placed(0);
    d.select(0,
             QPointF(d.plot->invTransform(QwtPlot::xBottom, at.x()),
                     d.plot->invTransform(QwtPlot::yLeft, at.y())));
}

void CanvasGestures::finish()
{
    if (std::exchange(m_state, State::Idle) == State::Panning)
        d.canvas->setCursor(Qt::CrossCursor);
    m_band.reset();
}

} // namespace Corvale_Qt
