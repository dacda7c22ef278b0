// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/scope/SampleRows_p.h"
#include "corvale_qt/scope/ScopePlotMode_p.h"

#include <QString>

namespace Corvale_Qt {

//! What strip chart and sweeps share: curves over time.
class TimePlotMode : public ScopePlotMode
{
public:
    using ScopePlotMode::ScopePlotMode;
    void enter() override;
    ScopeMarkerStatistics markerStatistics() const override;
    bool showsReadings() const override;
    HoverReading readingAt(double x) const override;

protected:
    //! Notes which samples are drawn.
    void setDrawn(const PlotDataReader &reader, RowRange rows);
    //! Gives each channel its y axis, before the curves are drawn. Relative values have no unit, so that all share an axis.
    void followUnits();
    //! Removes the curves. The axes show the units of the channels, and with less than two samples no range of earlier ones.
    void showNoCurves();
    //! Sets the x axis, markers and axis titles once the curves are drawn.
    void finish(double left, double right);
    void setAxisTitles();
    //! Returns the title of the x axis. By default it is that of the time axis.
    virtual QString xTitle() const;

private:
    PlotDataReader m_drawnReader;
    RowRange m_drawnRows;
};

} // namespace Corvale_Qt
