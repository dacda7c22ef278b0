// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/FieldEnds.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Monitor {

/*! Reads the \a count numbers of a line whose fields end at \a ends and whose first one begins at \a begin, as splitFields() and parseNumber()
    would. All ends but the last must be commas. Returns false otherwise, and for an unreadable number; \a numbers is then undefined. */
bool readFieldNumbers(std::string_view text,
                      std::size_t begin,
                      const std::uint32_t *ends,
                      std::size_t count,
                      double *numbers);

/*! Reads a line of exactly \a count numbers between commas, as splitFields() and parseNumber() would. Returns false for any other line, and for an
    unreadable number; \a numbers is then undefined. \a ends becomes that of the line, and saves memory from line to line. */
bool readLineNumbers(std::string_view line, std::size_t count, FieldEnds *ends, double *numbers);

} // namespace Monitor
