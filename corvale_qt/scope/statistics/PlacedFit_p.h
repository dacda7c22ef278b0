// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/detector/BeamVerdict.h"
#include "corvale_qt/numerics/BeamEstimate.h"
#include "corvale_qt/numerics/BeamProfile.h"
#include "corvale_qt/numerics/FitStatus.h"

#include <QPointF>
#include <QString>
#include <QVector>

namespace Corvale_Qt {

/*! A statistics item's fit on a detector whose strips have places: position and sigma are in the unit of the axis, not in channels. */
struct PlacedFit
{
    BeamProfile profile;
    BeamEstimate estimate;
    BeamVerdict verdict;
    FitStatus status = FitStatus::NotComputed;
    QString message; //!< why there is no fit
    QString unit;
    double shift = 0; //!< x on the plot is shift + position
    double lower = 0; //!< of the x axis of the plot
    double upper = 0;

    bool isOk() const { return status == FitStatus::Ok; }
    //! Returns x of the plot at the position, or the middle of the profile if there is no fit.
    double x() const;
    //! Returns the reading that the fit expects at a position, as high as the bar there.
    double readingAt(double position) const;
    //! Returns points of the fit on the plot, over the whole profile; at 0 if there is no fit.
    QVector<QPointF> curve(double divisor) const;
};

} // namespace Corvale_Qt
