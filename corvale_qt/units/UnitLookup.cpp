// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/NumberText_p.h"
#include "corvale_qt/units/UnitTraits_p.h"
#include "corvale_qt/units/Units.h"

#include <typeinfo>

namespace Corvale_Qt {
namespace Units {

namespace {

template<typename Unit>
MeasurementUnit *make()
{
    return new Unit;
}

template<typename Unit>
bool isExactly(const MeasurementUnit &unit)
{
    return typeid(unit) == typeid(Unit);
}

struct Known
{
    MeasurementUnitType type;
    MeasurementUnit *(*make)();
    bool (*isClassOf)(const MeasurementUnit &);
};

template<typename Unit>
constexpr Known known(MeasurementUnitType type)
{
    return {type, make<Unit>, isExactly<Unit>};
}

constexpr Known units[] = {
    known<A>(Type_A),
    known<mA>(Type_mA),
    known<uA>(Type_uA),
    known<nA>(Type_nA),
    known<pA>(Type_pA),
    known<C>(Type_C),
    known<mC>(Type_mC),
    known<uC>(Type_uC),
    known<nC>(Type_nC),
    known<pC>(Type_pC),
    known<fC>(Type_fC),
    known<V>(Type_V),
    known<mV>(Type_mV),
    known<uV>(Type_uV),
    known<kV>(Type_kV),
    known<Pulses>(Type_Pulses),
    known<Hz>(Type_Hz),
    known<KHz>(Type_KHz),
    known<S>(Type_S),
    known<ms>(Type_ms),
    known<us>(Type_us),
    known<ns>(Type_ns),
    known<minutes>(Type_minutes),
    known<m>(Type_m),
    known<mm>(Type_mm),
    known<cm>(Type_cm),
    known<eV>(Type_eV),
    known<KeV>(Type_KeV),
    known<MeV>(Type_MeV),
    known<Gy>(Type_Gy),
    known<cGy>(Type_cGy),
    known<Gp>(Type_Gp),
    known<MU>(Type_MU),
    known<Gp_per_s>(Type_Gp_per_s),
    known<MU_per_s>(Type_MU_per_s),
    known<G>(Type_G),
    known<kG>(Type_kG),
    known<Celcius>(Type_Celcius),
    known<Fahrenheit>(Type_Fahrenheit),
    known<Strips>(Type_Strips),
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
    for (const Known &unit : units) {
        if (unit.type == type)
            return unit.make();
    }
    return nullptr;
}

bool UnitTraits::isPlain(const MeasurementUnit &unit)
{
    if (isExactly<MeasurementUnit>(unit))
        return true;
    const MeasurementUnitType type = unit.type();
    for (const Known &each : units) {
        if (each.type == type)
            return each.isClassOf(unit);
    }
    return false;
}

void UnitTraits::appendFormatted(QByteArray &text, const MeasurementUnit &unit, double value)
{
    if (isPlain(unit))
        appendNumber(text, unit.scale(value), unit.m_format, unit.m_precision);
    else
        text.append(unit.format(value).toUtf8());
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
