// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/ScopePlotMode_p.h"

#include <QString>
#include <QStringList>

namespace Corvale_Qt {

class BarSeries;
class MarkerStatistics;

//! The newest sample as one bar for each channel, with statistics.
class HistogramPlotMode : public ScopePlotMode
{
public:
    explicit HistogramPlotMode(ScopeContext &context);
    void enter() override;
    void plot() override;
    void clear() override;
    void moveMarker(int index, int steps) override;
    ScopeMarkerStatistics markerStatistics() const override;
    bool showsReadings() const override;
    HoverReading readingAt(double x) const override;

private:
    //! Puts the bars at the places of a detector's strips, or at the numbers of their channels.
    void prepareAxis();
    double markerPlace(int channel) const;
    double plotDivisor() const;
    void showNames();
    QStringList namesOfNotPositive() const;
    void drawBars(double divisor);
    void showMarkers();
    void describeMarker(int index);
    QString barText(int channel) const;
    int markerChannel(int index) const;
    int channelAt(double x) const;
    bool hasBar(int channel) const;
    int channelBeside(int channel, int steps) const;
    MarkerStatistics span() const;

    BarSeries *m_series; //!< owned by the histogram
};

} // namespace Corvale_Qt
