// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/HoverCursor_p.h"
#include "corvale_qt/scope/HoverTracker_p.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>

#include <QMouseEvent>

#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr int kRefreshInterval = 100; // milliseconds
constexpr double kSamePlace =
    2.0; // pixels; a line this close to the pointer is put under it and rests

} // namespace

HoverTracker::HoverTracker(RVXScopePlotViewPrivate &view)
    : d(view)
    , m_cursor(new HoverCursor(view.canvas))
    , m_trackedBefore(view.canvas->hasMouseTracking())
{
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(kRefreshInterval);
    connect(&m_refresh, &QTimer::timeout, this, &HoverTracker::refresh);
    d.canvas->setMouseTracking(true);
    d.canvas->installEventFilter(this);
}

HoverTracker::~HoverTracker()
{
    d.canvas->setMouseTracking(m_trackedBefore);
    delete m_cursor;
}

void HoverTracker::plotted()
{
    if (m_isInside && !m_refresh.isActive())
        m_refresh.start();
}

void HoverTracker::refresh()
{
    if (!m_cursor)
        return;
    HoverReading reading;
    if (m_isInside && d.q_ptr->model())
        reading = d.currentMode().readingAt(d.plot->invTransform(QwtPlot::xBottom, m_pointer.x()));
    double x = d.plot->transform(QwtPlot::xBottom, reading.x);
    const bool isVisible = x >= 0.0 && x <= d.canvas->width();
    if (reading.place.isEmpty() || !isVisible) {
        m_cursor->hideReading();
        return;
    }
    if (std::abs(x - m_pointer.x()) < kSamePlace)
        x = m_pointer.x();
    m_cursor->showReading(reading, int(std::lround(x)));
}

bool HoverTracker::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::MouseMove) {
        m_isInside = true;
        m_pointer = static_cast<QMouseEvent *>(event)->pos();
        refresh();
    } else if (event->type() == QEvent::Leave) {
        m_isInside = false;
        refresh();
    }
    return false;
}

} // namespace Corvale_Qt
