// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/FuzzTarget.h"

#include <string_view>

//! A target that fails for one of its seeds, for the test of the driver.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::string_view input(reinterpret_cast<const char *>(data), size);
    FUZZ_REQUIRE(input.find("fault") == std::string_view::npos);
    return 0;
}

std::vector<std::string> fuzzSeeds()
{
    return {"good", std::string("a \0 fault\n", 10), "good too"};
}
