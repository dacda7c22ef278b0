// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

namespace Monitor {

/*! \file
    What can be said of HDF5 files without the HDF5 library. */

//! Returns whether a file of that name is to be one of HDF5: it ends in .h5, .hdf5 or .nxs.
bool isNexusName(const QString &path);
//! Returns whether a file begins as one of HDF5 does.
bool isHdf5File(const QString &path);
//! Returns why this program cannot write or read HDF5, with what to do; empty if it can.
QString nexusMissing();

} // namespace Monitor
