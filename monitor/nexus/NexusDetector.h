// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/nexus/Hdf5.h"
#include <corvale_qt/detector/DetectorLayout.h>

namespace Monitor {

/*! Writes what a detector is as an NXdetector: places and widths of its cells, the wiring, and gain, pedestal, saturation and
    pixel mask of each reading. \a unit is that of the readings. Writes nothing for an empty layout. */
void writeNexusDetector(Hdf5Output *output,
                        hid_t instrument,
                        const Corvale_Qt::DetectorLayout &layout,
                        const QString &unit);

} // namespace Monitor
