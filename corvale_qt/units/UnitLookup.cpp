// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/Units.h"

namespace Corvale_Qt {
namespace Units {

namespace {

template<typename Unit>
MeasurementUnit *make()
{
    return new Unit;
}

struct Maker
{
    MeasurementUnitType type;
    MeasurementUnit *(*make)();
};

constexpr Maker makers[] = {
    {Type_A, make<A>},
    {Type_mA, make<mA>},
    {Type_uA, make<uA>},
    {Type_nA, make<nA>},
    {Type_pA, make<pA>},
    {Type_C, make<C>},
    {Type_mC, make<mC>},
    {Type_uC, make<uC>},
    {Type_nC, make<nC>},
    {Type_pC, make<pC>},
    {Type_fC, make<fC>},
    {Type_V, make<V>},
    {Type_mV, make<mV>},
    {Type_uV, make<uV>},
    {Type_kV, make<kV>},
    {Type_Pulses, make<Pulses>},
    {Type_Hz, make<Hz>},
    {Type_KHz, make<KHz>},
    {Type_S, make<S>},
    {Type_ms, make<ms>},
    {Type_us, make<us>},
    {Type_ns, make<ns>},
    {Type_minutes, make<minutes>},
    {Type_m, make<m>},
    {Type_mm, make<mm>},
    {Type_cm, make<cm>},
    {Type_eV, make<eV>},
    {Type_KeV, make<KeV>},
    {Type_MeV, make<MeV>},
    {Type_Gy, make<Gy>},
    {Type_cGy, make<cGy>},
    {Type_Gp, make<Gp>},
    {Type_MU, make<MU>},
    {Type_Gp_per_s, make<Gp_per_s>},
    {Type_MU_per_s, make<MU_per_s>},
    {Type_G, make<G>},
    {Type_kG, make<kG>},
    {Type_Celcius, make<Celcius>},
    {Type_Fahrenheit, make<Fahrenheit>},
    {Type_Strips, make<Strips>},
};

enum Match {
    Exact,
    AnyCase,
    EndsWith,
};

struct Spelling
{
    Match match;
    const char *text;
    MeasurementUnitType type;
};

// The first hit counts, so the order is part of the meaning.
constexpr Spelling spellings[] = {
    {Exact, "A", Type_A},
    {Exact, "mA", Type_mA},
    {Exact, "uA", Type_uA},
    {Exact, "nA", Type_nA},
    {Exact, "pA", Type_pA},
    {AnyCase, "c", Type_C},
    {Exact, "mC", Type_mC},
    {Exact, "uC", Type_uC},
    {Exact, "nC", Type_nC},
    {Exact, "pC", Type_pC},
    {Exact, "fC", Type_fC},
    {Exact, "V", Type_V},
    {Exact, "mV", Type_mV},
    {Exact, "uV", Type_uV},
    {AnyCase, "kV", Type_kV},
    {Exact, "Pulses", Type_Pulses},
    {Exact, "Counts", Type_Pulses},
    {Exact, "Hz", Type_Hz},
    {AnyCase, "kHz", Type_KHz},
    {Exact, "s", Type_S},
    {Exact, "ms", Type_ms},
    {Exact, "us", Type_us},
    {Exact, "ns", Type_ns},
    {Exact, "min", Type_minutes},
    {Exact, "minutes", Type_minutes},
    {Exact, "m", Type_m},
    {Exact, "mm", Type_mm},
    {Exact, "cm", Type_cm},
    {AnyCase, "eV", Type_eV},
    {AnyCase, "KeV", Type_KeV},
    {AnyCase, "MeV", Type_MeV},
    {Exact, "Gy", Type_Gy},
    {Exact, "cGy", Type_cGy},
    {AnyCase, "Gp", Type_Gp},
    {Exact, "MU", Type_MU},
    {AnyCase, "Gp/s", Type_Gp_per_s},
    {Exact, "MU/s", Type_MU_per_s},
    {Exact, "G", Type_G},
    {Exact, "kG", Type_kG},
    {EndsWith, "C", Type_Celcius},
    {EndsWith, "F", Type_Fahrenheit},
};

bool fits(const Spelling &spelling, const QString &text)
{
    const QLatin1String known(spelling.text);
    switch (spelling.match) {
    case Exact:
        return text == known;
    case AnyCase:
        return text.compare(known, Qt::CaseInsensitive) == 0;
    case EndsWith:
        return text.endsWith(known);
    }
    return false;
}

} // namespace

MeasurementUnit *MeasurementUnit::fromType(MeasurementUnitType type)
{
    for (const Maker &maker : makers) {
        if (maker.type == type)
            return maker.make();
    }
    return nullptr;
}

MeasurementUnitType MeasurementUnit::typeFromString(const QString &text)
{
    for (const Spelling &spelling : spellings) {
        if (fits(spelling, text))
            return spelling.type;
    }
    return Type_Unknown;
}

MeasurementUnit *MeasurementUnit::fromString(const QString &text)
{
    return fromType(typeFromString(text));
}

} // namespace Units
} // namespace Corvale_Qt
