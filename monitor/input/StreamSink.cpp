// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/StreamSink.h"

namespace Monitor {

StreamSink::~StreamSink() = default;

} // namespace Monitor
