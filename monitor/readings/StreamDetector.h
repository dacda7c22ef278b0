// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

namespace Monitor {

//! Returns the description of a matrix whose rows and columns are counted.
Corvale_Qt::DetectorDescription countedMatrix(int rows, int columns);
//! Returns the description of two planes of strips that are counted.
Corvale_Qt::DetectorDescription countedStrips(int ofX, int ofY);

/*! Returns the detector that a stream of strips or pixels is shown on: the one that it describes; otherwise one that is counted in
    cells, because nobody says how far apart they are, with the strips shared evenly between x and y. Empty for streams without
    such places. */
Corvale_Qt::DetectorLayout detectorOf(const StreamHeader &header);

//! Returns the limits of verdicts on a detector: its own if it states any, and otherwise those that a person has \a chosen.
Corvale_Qt::VerdictLimits verdictLimitsOn(const Corvale_Qt::DetectorLayout &detector,
                                          const Corvale_Qt::VerdictLimits &chosen);
//! Returns the detector with the limits of verdictLimitsOn() in its description.
Corvale_Qt::DetectorLayout withVerdictLimits(const Corvale_Qt::DetectorLayout &detector,
                                             const Corvale_Qt::VerdictLimits &chosen);

/*! Returns how the readings are arranged: as the detector arranges them if it is described, also where the stream's own kind, which
    knows equal planes only, is that of channels. */
StreamKind layoutKind(const StreamHeader &header);
//! Returns the same in the words of kindName().
QString layoutName(const StreamHeader &header);

} // namespace Monitor
