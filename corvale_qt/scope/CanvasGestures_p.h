// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/ScopeMarkers_p.h"
#include "corvale_qt/scope/ViewHold_p.h"

#include <qwt_scale_map.h>

#include <QObject>
#include <QPoint>

#include <memory>

class QGestureEvent;
class QMouseEvent;
class QNativeGestureEvent;
class QRubberBand;
class QWheelEvent;

namespace Corvale_Qt {

class RVXScopePlotViewPrivate;
class ScopeNavigation;

/*! Turns what mouse, wheel and touch pad do on the canvas into zooming and panning. A click of the left button still places a
    marker, when the button is released: before that it may become a drag. */
class CanvasGestures : public QObject
{
public:
    CanvasGestures(RVXScopePlotViewPrivate &view, ScopeNavigation &navigation);
    ~CanvasGestures() override;

    //! Ends a drag and undoes it. Returns false if there is none.
    bool cancel();
    //! Ends a drag where it is.
    void finish();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class State {
        Idle,
        Pressed,
        Panning,
        Banding
    };

    bool mousePressed(const QMouseEvent &event);
    bool mouseMoved(const QMouseEvent &event);
    bool mouseReleased(const QMouseEvent &event);
    bool mouseDoubleClicked(const QMouseEvent &event);
    bool wheelTurned(QWheelEvent &event);
    bool wheelTurnedOnAxis(int axis, QWheelEvent &event);
    bool pinched(const QGestureEvent &event);
    bool padZoomed(const QNativeGestureEvent &event);
    void beginPan();
    void pan(const QPoint &to);
    void zoomToBand(const QPoint &to);
    void placeMarker(const QPoint &at);

    RVXScopePlotViewPrivate &d;
    ScopeNavigation &m_navigation;
    State m_state = State::Idle;
    QPoint m_pressed;
    // As they were when the button was pressed.
    QwtScaleMap m_xMap;
    QwtScaleMap m_yMap;
    QwtScaleMap m_rightMap;
    ViewWindow m_window;
    std::unique_ptr<QRubberBand> m_band;
    ScopeMarkers::Placed m_marker; //!< where the first marker was before the last click
};

} // namespace Corvale_Qt
