// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/HistogramStatistics_p.h"
#include "corvale_qt/scope/ScopePlotMode_p.h"

#include <QVector>

namespace Corvale_Qt {

class BarSeries;

//! The newest sample as one bar for each channel, with statistics.
class HistogramPlotMode : public ScopePlotMode
{
public:
    explicit HistogramPlotMode(ScopeContext &context);
    void enter() override;
    void plot() override;
    void clear() override;
    void moveMarker(int index, int steps) override;

private:
    void readChannels(int channels, int row);
    void drawBars();
    double plotDivisor() const;
    void showStatistics(int row);
    void showMarkers(int row);
    void describeMarker(int index, int row);
    QString barText(int channel, int row) const;
    int markerChannel(int index) const;

    BarSeries *m_series; //!< owned by the histogram
    QVector<double>
        m_readings; //!< one for each channel; NaN without a reading and for a hidden channel
    HistogramBars m_bars;
};

} // namespace Corvale_Qt
