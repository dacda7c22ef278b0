// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/*! What a file tests/fuzz/fuzz_<Subject>.cpp defines. A QApplication on the offscreen platform stands while
    they run. The target aborts where a promise is broken; what it returns means nothing (0 by
   convention). */
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

//! Inputs to start from: valid ones first, then those that were trouble once.
std::vector<std::string> fuzzSeeds();

//! Aborts, in every build type, when \a condition does not hold.
#define FUZZ_REQUIRE(condition) ((condition) ? void() : fuzzFailure(#condition, __FILE__, __LINE__))
[[noreturn]] void fuzzFailure(const char *condition, const char *file, int line);
