// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {

/*! Empties the upper halves of the vector registers, which code for every processor does not use. Qt fills areas with wide vectors and leaves
    the halves full; each instruction on the lower half then keeps the upper one, and so waits for the one before on the same register. Loops
    over readings took two to four times as long. Call it before a loop over more than a few dozen numbers that may follow
    painting. */
void clearWideRegisters();

} // namespace Corvale_Qt
