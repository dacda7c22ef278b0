// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/HoverReading_p.h"

#include <qwt_interval.h>

#include <QString>

namespace Corvale_Qt {

struct ScopeContext;
struct ScopeMarkerStatistics;

//! One way of showing the model. The view makes each mode once and calls enter() when the mode becomes the current one.
class ScopePlotMode
{
public:
    //! The context must live longer than the mode.
    explicit ScopePlotMode(ScopeContext &context);
    virtual ~ScopePlotMode();

    //! Sets up axes and widgets, and removes what another mode has drawn.
    virtual void enter() = 0;
    //! Draws the model as it is now.
    virtual void plot() = 0;
    //! Removes what was drawn, because there is nothing to draw.
    virtual void clear() = 0;
    //! Moves a marker by a number of samples, or of bars. Does nothing by default.
    virtual void moveMarker(int index, int steps);
    //! Returns what the markers read in the last plot. By default no marker is set.
    virtual ScopeMarkerStatistics markerStatistics() const;
    //! Returns whether the last plot drew a reading. The default returns false.
    virtual bool showsReadings() const;
    //! Scrolls until the sample at \a x is visible. Returns whether the mode had to scroll.
    virtual bool showSample(double x);

    //! Returns from which x to which there are samples that a user may go to. By default x is not time: not valid.
    virtual QwtInterval timeExtent() const;
    //! Returns what the plot shows next to \a x; without a place if it shows nothing there, which is the default.
    virtual HoverReading readingAt(double x) const;
    //! Returns what a picture that stands still lacks; empty, as by default, if it lacks nothing.
    virtual QString missingText() const;

protected:
    ScopeContext &m_context;
};

} // namespace Corvale_Qt
