// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

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

protected:
    //! Sets the x axis, markers and axis titles once the curves are drawn.
    void finish(double left, double right);
    void setAxisTitles();
    //! Returns the title of the x axis. By default it is the unit of x.
    virtual QString xTitle() const;
};

} // namespace Corvale_Qt
