// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/MeanHistory_p.h"

#include <qwt_plot.h>

namespace Corvale_Qt {

/*! Shows mean X and mean Y over the newest five seconds. */
class MeanTimePlot : public QwtPlot
{
    Q_OBJECT

public:
    //! Shares \a history with its owner, who appends to it and calls replot().
    explicit MeanTimePlot(std::shared_ptr<const MeanHistory> history, QWidget *parent = nullptr);
    ~MeanTimePlot() override;

    //! Moves the time axis so that it ends at \a time, in seconds.
    void setEnd(double time);
};

} // namespace Corvale_Qt
