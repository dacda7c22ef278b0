// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/TableReader.h"

namespace Monitor {

TableReader::~TableReader() = default;

void TableReader::setReadingAhead(bool) { }

} // namespace Monitor
