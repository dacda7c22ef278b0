// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/RVXScope.h"
#include "corvale_qt/scope/ViewChoices_p.h"

#include <QByteArray>

#include <optional>
#include <utility>

namespace Corvale_Qt {

//! What is set on a scope panel, by its controls or by the host: the values of its properties.
struct PanelState
{
    int plotMode = RVXScope::StripMode;
    int tabs = 0; //!< flags of RVXScope::PlotTab
    int yScaleMode = RVXScope::PercentRanges;
    int yScaleIndex = 0;
    std::pair<double, double> range{-1.0, 1.0}; //!< full scale
    bool positiveOnly = false;
    int averaging = 1; //!< in rows
    int period = 0; //!< in milliseconds
    double timeSpan = 0.0; //!< in the unit of x
    int sampleSpan = 0;
    bool markersEnabled = false;
    bool controlsVisible = true;
    bool zeroed = false; //!< not kept: a zero belongs to samples
    ViewChoices view; //!< what it does not know stays as it is

    //! Returns the state as bytes, with a version number of the host.
    QByteArray toBytes(int version) const;
    /*! Reads bytes that toBytes() has made for the same version, in this or in an older or newer version of the library; empty for
        all others and for values that no panel has. */
    static std::optional<PanelState> fromBytes(const QByteArray &bytes, int version);

    //! Returns whether a panel can have these values.
    bool isPossible() const;
};

//! Returns the entry of the panel's list of averaging lengths that stands for a length; -1 if there is none.
int averagingEntry(int length);

//! Returns the entry of the panel's list of periods that stands for a period in milliseconds; -1 if there is none.
int periodEntry(int milliseconds);
//! Returns the period of an entry in milliseconds; 0, as fast as readings come, for an entry that does not exist.
int periodInMilliseconds(int entry);

} // namespace Corvale_Qt
