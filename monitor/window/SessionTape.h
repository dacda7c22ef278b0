// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <memory>

namespace Monitor {

class Companions;
class Tape;

/*! Returns the tape of the recordings that a window shows: of the only one, or of all together; null if the first source is
    not a recording. The sessions must outlive the tape. */
std::unique_ptr<Tape> tapeOf(const Companions &members);

} // namespace Monitor
