// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/MeasurementUnit.h"
#include "tests/support/FuzzTarget.h"

#include <memory>

using Corvale_Qt::Units::MeasurementUnit;

std::vector<std::string> fuzzSeeds()
{
    return {"nA",           "MU/s",    "Gp per s", "minutes",
            "\xc2\xb0\x43", // degrees Celsius
            "Fahrenheit",   "Celcius",
            "\xc2\xb5\x41", // microampere
            "strips"};
}

//! Both look-ups know a text or neither does, and the unit from the one has the type from the other.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    const auto type = MeasurementUnit::typeFromString(text);
    const std::unique_ptr<MeasurementUnit> unit(MeasurementUnit::fromString(text));
    FUZZ_REQUIRE(bool(unit) == (type != Corvale_Qt::Units::Type_Unknown));
    FUZZ_REQUIRE(!unit || unit->type() == type);
    return 0;
}
