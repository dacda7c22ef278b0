// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

namespace Monitor {

/*! Returns what is wrong with the heaps in which an HDF5 file keeps texts of any length (its global heap collections); empty if
    nothing is. The HDF5 library walks through a heap by the sizes that stand in it, and never ends where one of them is 0, as a
    power cut leaves it. Of a file of more than 256 MB only the first and the last 128 MB are looked at, so that a large recording
    opens at once. Section III.E of version 3 of the HDF5 group's description of the format has the layout. */
QString faultOfTextHeaps(const QString &path);

} // namespace Monitor
