// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/recording/SegmentForm.h"

namespace Monitor {

/*! Returns how complete files are written as HDF5. A file of which a line cannot be read stays text, since that line would be
    lost. */
SegmentConversion nexusConversion();

/*! Returns the conversion of the files of a recording to a form, which must not be SegmentForm::Text. If the recording \a overwrites,
    the results do, too. */
SegmentConversion segmentConversion(SegmentForm form, bool overwrites = false);

} // namespace Monitor
