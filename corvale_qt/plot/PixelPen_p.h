// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

class QPainter;

namespace Corvale_Qt {

//! Returns whether a painter's pen is at most one pixel wide, and sets the pixels of its line to one colour without blending.
bool paintsThinOpaque(const QPainter &painter);

//! Returns whether a pixel of a painter's coordinates is more than one pixel of its device.
bool isFiner(const QPainter &painter);

} // namespace Corvale_Qt
