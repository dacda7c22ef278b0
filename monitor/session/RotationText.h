// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/recording/Recorder.h"

namespace Monitor {

/*! Reads when a recording begins a new file: a time ("1h", "30min"), a size ("100M", "2G"), or both with a comma
    between them, of which the first one reached counts. Returns false, and changes
    nothing, for any other text. */
bool setRotation(Recorder::Options *options, const QString &text);

} // namespace Monitor
