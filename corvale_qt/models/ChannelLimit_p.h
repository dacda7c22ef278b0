// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {

//! The largest number of channels that a model keeps check states of, a proxy merges and a scope draws.
constexpr int maxChannels = 256;

} // namespace Corvale_Qt
