// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/AccessibleChart_p.h"
#include "corvale_qt/scope/CanvasGestures_p.h"
#include "corvale_qt/scope/HeldMark_p.h"
#include "corvale_qt/scope/HoverTracker_p.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"
#include "corvale_qt/scope/ScopeNavigation_p.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>

#include <cmath>
#include <utility>

namespace Corvale_Qt {

namespace {

constexpr double kZoomOfKey = 0.7;
constexpr double kMoveOfKey = 0.1; // of the canvas
constexpr double kMoveOfKeyWithShift = 0.5;
constexpr double kMoveOfPage = 0.9;

bool isControl(const QKeyEvent &event)
{
    return event.modifiers() & Qt::ControlModifier;
}

} // namespace

ScopeNavigation::ScopeNavigation(RVXScopePlotViewPrivate &view)
    : d(view)
{
    d.canvas->installEventFilter(this);
}

ScopeNavigation::~ScopeNavigation() = default;

bool ScopeNavigation::isInteractive() const
{
    return d.context.interactive;
}

void ScopeNavigation::setInteractive(bool interactive)
{
    d.context.interactive = interactive;
    if (interactive) {
        m_gestures = std::make_unique<CanvasGestures>(d, *this);
        d.q_ptr->installEventFilter(this);
    } else {
        m_gestures.reset();
        d.q_ptr->removeEventFilter(this);
    }
}

void ScopeNavigation::setCursorEnabled(bool enabled)
{
    m_hover = enabled ? std::make_unique<HoverTracker>(d) : nullptr;
}

bool ScopeNavigation::isPlot() const
{
    return d.q_ptr->model() && d.mode <= RVXScopePlotView::HistogramMode;
}

QwtInterval ScopeNavigation::limited(const QwtInterval &x) const
{
    return reachable(divisible(x),
                     d.currentMode().timeExtent(),
                     d.plot->axisInterval(QwtPlot::xBottom));
}

void ScopeNavigation::zoomTo(const QwtInterval &x, const QwtInterval &y, Step step)
{
    if (!isPlot())
        return;
    ViewWindow window = d.context.hold.window();
    if (x.isValid() && zoomedAxis(false) == QwtPlot::xBottom && divisible(x).isValid())
        window.x = divisible(x);
    if (y.isValid() && divisible(y).isValid()) {
        window.y = divisible(y);
        window.right = besideOnRight(y);
    }
    zoomTo(window, step);
}

//! Returns the range of the right axis that lies beside a range of the left one; not valid while there is no right axis.
QwtInterval ScopeNavigation::besideOnRight(const QwtInterval &y) const
{
    if (!d.context.axes.hasRight())
        return QwtInterval();
    const QwtScaleMap left = d.plot->canvasMap(QwtPlot::yLeft);
    const QwtScaleMap right = d.plot->canvasMap(QwtPlot::yRight);
    const auto across = [&](double value) {
        return right.invTransform(left.transform(value));
    };
    return divisible(QwtInterval(across(y.minValue()), across(y.maxValue())).normalized());
}

//! Shows a window, and notes the one before unless it is a step of the same movement.
void ScopeNavigation::zoomTo(const ViewWindow &window, Step step)
{
    if (window == d.context.hold.window())
        return;
    if (step == Step::Single || step != m_lastStep)
        d.context.hold.remember();
    m_lastStep = step;
    show(window);
}

void ScopeNavigation::remember()
{
    m_lastStep = Step::Single;
    d.context.hold.remember();
}

void ScopeNavigation::show(const ViewWindow &window)
{
    const ViewWindow before = d.context.hold.window();
    if (window == before)
        return;
    d.context.hold.show(window);
    const bool isReleased = (before.y.isValid() && !window.y.isValid())
        || (before.right.isValid() && !window.right.isValid());
    if (isReleased)
        d.context.axes.setYScale(d.context.yScale);
    if (!window.x.isValid()) {
        QScrollBar *bar = d.q_ptr->horizontalScrollBar();
        const QSignalBlocker blocker(bar);
        bar->setValue(bar->maximum()); // the strip chart follows again
    }
    d.requestRefresh();
    showMark();
    announceLater();
}

void ScopeNavigation::goLive()
{
    if (d.context.hold.isChanged())
        remember();
    show(ViewWindow());
}

bool ScopeNavigation::undo()
{
    m_lastStep = Step::Single;
    const std::optional<ViewWindow> earlier = d.context.hold.takeEarlier();
    if (earlier)
        show(*earlier);
    return earlier.has_value();
}

void ScopeNavigation::forget()
{
    if (m_gestures)
        m_gestures->finish();
    d.context.hold.forgetEarlier();
    show(ViewWindow());
}

void ScopeNavigation::spanChanged()
{
    if (!d.context.hold.isHeld() || d.mode != RVXScopePlotView::StripMode)
        return;
    const QwtInterval shown = d.context.hold.window().x;
    const double half = 0.5 * d.context.stripWidth();
    const double middle = shown.minValue() + 0.5 * shown.width();
    if (half > 0.0 && std::isfinite(half))
        zoomTo(QwtInterval(middle - half, middle + half), QwtInterval());
    else
        goLive();
}

void ScopeNavigation::releaseY()
{
    show({d.context.hold.window().x, QwtInterval(), QwtInterval()});
}

int ScopeNavigation::zoomedAxis(bool wantsY) const
{
    return !wantsY && RVXScopePlotViewPrivate::isTimeMode(d.mode) ? QwtPlot::xBottom
                                                                  : QwtPlot::yLeft;
}

void ScopeNavigation::zoomAxis(int axis, double pixel, double factor, Step step)
{
    goTo(axis, zoomedBy(d.plot->canvasMap(axis), pixel, factor), step);
}

void ScopeNavigation::zoomYAxisAlone(int axis, double pixel, double factor, Step step)
{
    const QwtInterval wanted = divisible(zoomedBy(d.plot->canvasMap(axis), pixel, factor));
    ViewWindow window = d.context.hold.window();
    if (wanted.isValid() && isPlot()) {
        (axis == QwtPlot::yRight ? window.right : window.y) = wanted;
        zoomTo(window, step);
    }
}

void ScopeNavigation::moveAxis(int axis, double pixels, Step step)
{
    goTo(axis, movedBy(d.plot->canvasMap(axis), pixels), step);
}

void ScopeNavigation::goTo(int axis, const QwtInterval &wanted, Step step)
{
    if (axis == QwtPlot::xBottom)
        zoomTo(limited(wanted), QwtInterval(), step);
    else
        zoomTo(QwtInterval(), wanted, step);
}

//! Shows the oldest samples, in a window as wide as the present one.
void ScopeNavigation::goToFirst()
{
    const QwtInterval samples = d.currentMode().timeExtent();
    const double width = d.plot->axisInterval(QwtPlot::xBottom).width();
    if (samples.isValid())
        zoomTo(QwtInterval(samples.minValue(), samples.minValue() + width), QwtInterval());
}

void ScopeNavigation::plotted()
{
    showMark();
    if (m_hover)
        m_hover->plotted();
    announceLater(); // the scroll bar may have reached its end
}

//! Announces from the event loop whether the picture is held: a slot may delete the view, which may be in the middle of a change.
void ScopeNavigation::announceLater()
{
    if (d.context.hold.isHeld() == m_announcedHeld)
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            announceHeld();
        },
        Qt::QueuedConnection);
}

void ScopeNavigation::showMark()
{
    const ViewHold &hold = d.context.hold;
    if (!hold.isChanged() || !isPlot()) {
        if (m_mark)
            m_mark->hide();
        return;
    }
    if (!m_mark) {
        m_mark = new HeldMark(d.canvas);
        connect(m_mark, &HeldMark::liveAsked, this, &ScopeNavigation::goLive);
    }
    if (hold.isHeld())
        m_mark->showHeld(d.currentMode().missingText());
    else
        m_mark->showZoomed();
}

void ScopeNavigation::announceHeld()
{
    const bool held = d.context.hold.isHeld();
    if (std::exchange(m_announcedHeld, held) == held)
        return;
    announceChartState(d.q_ptr);
    Q_EMIT d.q_ptr->heldChanged(held);
}

bool ScopeNavigation::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == d.canvas && event->type() == QEvent::Resize && m_mark)
        m_mark->place();
    // The view has these keys while it has the focus, also if an action of the host has the same ones.
    if (watched == d.q_ptr && event->type() == QEvent::ShortcutOverride
        && handles(static_cast<QKeyEvent &>(*event)))
        event->accept();
    return false;
}

bool ScopeNavigation::handles(const QKeyEvent &event) const
{
    if (event.matches(QKeySequence::Copy))
        return d.context.markers.isAttached(0) || d.context.markers.isAttached(1);
    const Qt::KeyboardModifiers others =
        event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    switch (event.key()) {
    case Qt::Key_Backspace:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_1:
    case Qt::Key_2:
        return isPlot() && others == Qt::NoModifier;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
    case Qt::Key_Minus:
        return isPlot() && (others == Qt::NoModifier || others == Qt::ControlModifier);
    default:
        return false;
    }
}

bool ScopeNavigation::keyPressed(const QKeyEvent &event)
{
    if (!isInteractive() || !isPlot())
        return false;
    if (event.key() == Qt::Key_Escape)
        return escape();
    if (!handles(event))
        return false;
    if (event.matches(QKeySequence::Copy))
        QGuiApplication::clipboard()->setText(d.q_ptr->markerReport());
    else
        zoomKeyPressed(event) || moveKeyPressed(event) || placeMarkerKeyPressed(event);
    return true;
}

//! Ends a drag, or else lets the arrows move the picture instead of a marker. Returns false if there was neither.
bool ScopeNavigation::escape()
{
    if (m_gestures->cancel())
        return true;
    ScopeMarkers &markers = d.context.markers;
    if (markers.selected() < 0 || !markers.isAttached(markers.selected()))
        return false;
    markers.selectNone();
    d.requestRefresh();
    return true;
}

bool ScopeNavigation::zoomKeyPressed(const QKeyEvent &event)
{
    const int axis = zoomedAxis(isControl(event));
    const QwtScaleMap map = d.plot->canvasMap(axis);
    const double centre = 0.5 * (map.p1() + map.p2());
    switch (event.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal: // the key of the plus without Shift
        zoomAxis(axis, centre, kZoomOfKey);
        return true;
    case Qt::Key_Minus:
        zoomAxis(axis, centre, 1.0 / kZoomOfKey);
        return true;
    case Qt::Key_Backspace:
        undo();
        return true;
    case Qt::Key_End:
        goLive();
        return true;
    default:
        return false;
    }
}

bool ScopeNavigation::moveKeyPressed(const QKeyEvent &event)
{
    const double part = event.modifiers() & Qt::ShiftModifier ? kMoveOfKeyWithShift : kMoveOfKey;
    const auto move = [this](int axis, double ofCanvas) {
        const bool isX = axis == QwtPlot::xBottom;
        if (!isX || RVXScopePlotViewPrivate::isTimeMode(d.mode))
            moveAxis(axis, ofCanvas * std::abs(d.plot->canvasMap(axis).pDist()));
    };
    switch (event.key()) {
    case Qt::Key_Left:
        move(QwtPlot::xBottom, part);
        return true;
    case Qt::Key_Right:
        move(QwtPlot::xBottom, -part);
        return true;
    case Qt::Key_PageUp:
        move(QwtPlot::xBottom, kMoveOfPage);
        return true;
    case Qt::Key_PageDown:
        move(QwtPlot::xBottom, -kMoveOfPage);
        return true;
    case Qt::Key_Up:
        move(QwtPlot::yLeft, part);
        return true;
    case Qt::Key_Down:
        move(QwtPlot::yLeft, -part);
        return true;
    case Qt::Key_Home:
        goToFirst();
        return true;
    default:
        return false;
    }
}

//! Places a marker in the middle of the picture, for users without a mouse.
bool ScopeNavigation::placeMarkerKeyPressed(const QKeyEvent &event)
{
    const auto middle = [this](int axis) {
        const QwtInterval shown = d.plot->axisInterval(axis);
        return 0.5 * shown.minValue() + 0.5 * shown.maxValue();
    };
    const int marker = event.key() == Qt::Key_1 ? 0 : event.key() == Qt::Key_2 ? 1 : -1;
    if (marker >= 0)
        d.select(marker, QPointF(middle(QwtPlot::xBottom), middle(QwtPlot::yLeft)));
    return marker >= 0;
}

} // namespace Corvale_Qt
