// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/beam/profile/SpectrogramCalc.h"
#include "corvale_qt/numerics/FitStatus.h"

#include <QMetaType>

#include <limits>

namespace Corvale_Qt {

/*! The numbers of one frame, and which frame they belong to. */
struct SpectrogramResult
{
    /*! Ok if the numbers are valid, NotComputed if there is no frame, and otherwise the reason, for a strip pair that of X
        before that of Y. */
    FitStatus status = FitStatus::NotComputed;
    SpectrogramCalc calc; //!< the numbers; not valid unless the status is Ok
    //! Which call of RVXSpectrogram::setData() brought the frame, counted from 1; 0 if there is no frame. Calls whose frame
    //! was ignored count as well, so a gap shows that something was ignored.
    qint64 frame = 0;
    double time = std::numeric_limits<double>::quiet_NaN(); //!< time stamp of the frame, seconds
    bool isCurrent =
        false; //!< whether integral and max are currents in ampere instead of charges in coulomb
};

} // namespace Corvale_Qt

Q_DECLARE_METATYPE(Corvale_Qt::SpectrogramResult)
