// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/SpotRows.h"

namespace Monitor {

/*! Reads a whole list of spots from a file. Returns an empty list, and says why in \a error, if it cannot be read, has lines that
    cannot be used or more than SpotRows::most spots, or is not a list of spots. */
SpotRows spotsFromFile(const QString &path, QString *error);

} // namespace Monitor
