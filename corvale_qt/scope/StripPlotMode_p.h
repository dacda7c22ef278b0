// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/StripWindow_p.h"
#include "corvale_qt/scope/TimePlotMode_p.h"

namespace Corvale_Qt {

class RVXPlotHistory;

//! A chart that scrolls with the newest sample, or stays where the user has scrolled back to.
class StripPlotMode : public TimePlotMode
{
public:
    using TimePlotMode::TimePlotMode;
    void enter() override;
    void plot() override;
    void clear() override;
    void moveMarker(int index, int steps) override;
    bool showSample(double x) override;
    QwtInterval timeExtent() const override;
    QString missingText() const override;

private:
    StripRequest currentRequest() const;
    const RVXPlotHistory *history(const PlotDataReader &reader, int first) const;
    StripWindow window(const PlotDataReader &reader, StripRequest &request);
    static PixelGrid gridOf(const StripWindow &window, const StripRequest &request);
    void followScrollBar(const PlotDataReader &reader, const StripRequest &request);
    void setScrollBar(const StripScrollBar &scrolling);

    double m_scrollUnits = kScrollUnits; //!< scroll bar units for each unit of x
    int m_scrollValue = 0; //!< of the scroll bar after the last plot
};

} // namespace Corvale_Qt
