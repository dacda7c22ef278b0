// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/PgmReader.h"
#include "tests/support/FuzzTarget.h"

#include <cmath>
#include <optional>

using namespace Monitor;

std::vector<std::string> fuzzSeeds()
{
    return {"P2\n# t 0.25\n2 2\n255\n1 2\n3 4\n",
            "P2 1 1 9 5 P2 2 1 300 7 299\n",
            std::string("P5\n2 1\n65535\n\x00\x01\xff\xff", 15),
            "P5 2 2 255\nabcdP5 1 1 200\n\xf0",
            "P5 256 256 255\nabc",
            "P6 1 1 255\nabc",
            "P2 -1 1e400 0\n"};
}

//! The first byte determines the size of the pieces. Pieces of any size give the same images and the same faults.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const std::string_view bytes(reinterpret_cast<const char *>(data) + 1, size - 1);
    // What a beginning promises, more bytes do not take back.
    const std::optional<bool> suits = PgmReader::suits(bytes.substr(0, bytes.size() / 2));
    FUZZ_REQUIRE(!suits || PgmReader::suits(bytes) == suits);
    const auto read = [&](std::size_t pieceSize) {
        std::string seen;
        PgmReader reader(
            [&](const PgmImage &image) {
                FUZZ_REQUIRE(image.rows >= 1 && image.rows <= 256 && image.columns >= 1
                             && image.columns <= 256);
                FUZZ_REQUIRE(image.values.size()
                             == std::size_t(image.rows) * std::size_t(image.columns));
                FUZZ_REQUIRE(!image.time || std::isfinite(*image.time));
                for (const double value : image.values) {
                    FUZZ_REQUIRE(value >= 0 && value <= 65535);
                    seen += std::to_string(value) + ' ';
                }
                seen += '|';
            },
            [&](const LoggedText &fault) {
                FUZZ_REQUIRE(!fault.isEmpty() && !fault.logged().contains('\n'));
                seen += fault.logged().toStdString() + '|';
            });
        for (std::size_t i = 0; i < bytes.size(); i += pieceSize)
            reader.feed(bytes.substr(i, pieceSize));
        reader.finish();
        return seen;
    };
    FUZZ_REQUIRE(read(1 + data[0] % 64) == read(bytes.size() + 1));
    return 0;
}
