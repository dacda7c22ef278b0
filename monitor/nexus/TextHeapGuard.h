// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <hdf5.h>

namespace Monitor {

//! Why a heap of texts was not read.
enum class TextHeapFault {
    None,
    Damaged,
    TooLarge //!< HDF5 would need more than 64 MB of memory for it
};

/*! Lets HDF5 read the files that it opens with this access through a driver that looks at each heap of texts (TextHeaps.h) before
    HDF5 does, and refuses to read those that are damaged or too large. The cost is a second read of each heap, however large the
    file is.

    \a fault receives what was wrong with the last heap that was refused; it must outlive the files. Files cannot be written through
    the driver. Returns false if HDF5 does not take the driver. */
bool guardTextHeaps(hid_t access, TextHeapFault *fault);

} // namespace Monitor
