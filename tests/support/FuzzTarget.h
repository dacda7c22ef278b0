// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/*! The function that each file tests/fuzz/fuzz_<Subject>.cpp defines. It runs while a QApplication on the offscreen
    platform exists, and aborts if the code under test breaks a promise. Its result is not used (0 by convention). */
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

//! Returns the inputs to start from: valid ones first, then inputs that caused faults in the past.
std::vector<std::string> fuzzSeeds();

//! Aborts, in every build type, if \a condition does not hold.
#define FUZZ_REQUIRE(condition) ((condition) ? void() : fuzzFailure(#condition, __FILE__, __LINE__))
[[noreturn]] void fuzzFailure(const char *condition, const char *file, int line);
