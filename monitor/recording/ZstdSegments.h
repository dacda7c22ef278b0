// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/recording/SegmentForm.h"

namespace Monitor {

//! Returns how complete files are compressed: in frames that are readable without their neighbours, byte for byte.
SegmentConversion zstdConversion();

} // namespace Monitor
