// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/detector/VerdictLimits.h"
#include "corvale_qt/numerics/BeamEstimate.h"
#include "corvale_qt/numerics/BeamProfile.h"

#include <QMetaType>
#include <QStringList>

class QDebug;

namespace Corvale_Qt {

//! How far an estimate may be trusted.
enum class BeamValidity {
    Valid, //!< the estimate describes the readings
    FitPoor, //!< there is a beam, but the estimate describes it poorly
    NotValid, //!< the numbers must not be used
};

/*! Whether an estimate describes the readings that it was made from, and why not.

    The reasons are sentences without full stops. The notes say what a reader should know although it does not change the
    validity: that the beam lies at the edge, or how much of it lies outside. */
struct CORVALE_QT_EXPORT BeamVerdict
{
    BeamValidity validity = BeamValidity::NotValid; //!< how far the estimate may be trusted
    QStringList reasons; //!< why the estimate is not simply valid; empty if it is
    QStringList notes; //!< further things to know
    int deadCells = 0; //!< number of cells with the flag Dead
    int saturatedCells = 0; //!< number of cells with the flag Saturated
    int hotCells = 0; //!< number of cells with the flag Hot
    double flaggedShare =
        0; //!< share of the charge in such cells; a dead or hot cell counts as interpolated or as read
    double shareOutside = 0; //!< share of the estimate's Gaussian that lies outside of the detector
    bool atEdge = false; //!< whether the position is within one sigma of an edge, or beyond it
    double peakInNoise =
        0; //!< largest density above the background, in noises; infinite without noise

    //! Returns "DATA VALID", "DATA VALID, FIT POOR" or "DATA NOT VALID", translated.
    QString text() const;
};

//! Returns a short name of a validity that does not depend on the language: "valid", "poor" or "invalid".
CORVALE_QT_EXPORT QString validityName(BeamValidity validity);
//! Returns what a status means, as a sentence without its full stop; empty for Ok.
CORVALE_QT_EXPORT QString estimateStatusText(EstimateStatus status);

/*! Judges an estimate by the profile that it was made from.

    The noise is that of the profile, or estimatedNoise() if the profile has none. Flags are those of the profile; call
    flagHotCells() before to have hot cells counted. */
CORVALE_QT_EXPORT BeamVerdict judgeEstimate(const BeamProfile &profile,
                                            const BeamEstimate &estimate,
                                            const VerdictLimits &limits = {});

//! Writes the text of a verdict and its reasons.
CORVALE_QT_EXPORT QDebug operator<<(QDebug debug, const BeamVerdict &verdict);

} // namespace Corvale_Qt

Q_DECLARE_METATYPE(Corvale_Qt::BeamVerdict)
