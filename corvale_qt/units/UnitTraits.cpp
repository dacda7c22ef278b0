// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/NumberText_p.h"
#include "corvale_qt/units/UnitTraits_p.h"
#include "corvale_qt/units/Units.h"

#include <QDebug>

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

struct UnitClass
{
    MeasurementUnitType type;
    MeasurementUnit *(*make)();
    bool (*isClassOf)(const MeasurementUnit &);
};

template<typename Unit>
constexpr UnitClass unitClass(MeasurementUnitType type)
{
    return {type, make<Unit>, isExactly<Unit>};
}

constexpr UnitClass classes[] = {
    unitClass<A>(Type_A),
    unitClass<mA>(Type_mA),
    unitClass<uA>(Type_uA),
    unitClass<nA>(Type_nA),
    unitClass<pA>(Type_pA),
    unitClass<C>(Type_C),
    unitClass<mC>(Type_mC),
    unitClass<uC>(Type_uC),
    unitClass<nC>(Type_nC),
    unitClass<pC>(Type_pC),
    unitClass<fC>(Type_fC),
    unitClass<V>(Type_V),
    unitClass<mV>(Type_mV),
    unitClass<uV>(Type_uV),
    unitClass<kV>(Type_kV),
    unitClass<Pulses>(Type_Pulses),
    unitClass<Hz>(Type_Hz),
    unitClass<KHz>(Type_KHz),
    unitClass<S>(Type_S),
    unitClass<ms>(Type_ms),
    unitClass<us>(Type_us),
    unitClass<ns>(Type_ns),
    unitClass<minutes>(Type_minutes),
    unitClass<m>(Type_m),
    unitClass<mm>(Type_mm),
    unitClass<cm>(Type_cm),
    unitClass<eV>(Type_eV),
    unitClass<KeV>(Type_KeV),
    unitClass<MeV>(Type_MeV),
    unitClass<Gy>(Type_Gy),
    unitClass<cGy>(Type_cGy),
    unitClass<Gp>(Type_Gp),
    unitClass<MU>(Type_MU),
    unitClass<Gp_per_s>(Type_Gp_per_s),
    unitClass<MU_per_s>(Type_MU_per_s),
    unitClass<G>(Type_G),
    unitClass<kG>(Type_kG),
    unitClass<Celcius>(Type_Celcius),
    unitClass<Fahrenheit>(Type_Fahrenheit),
    unitClass<Strips>(Type_Strips),
};

//! Returns the class of the library that has a type, or null for any other number that was made a type.
const UnitClass *classOf(MeasurementUnitType type)
{
    for (const UnitClass &each : classes) {
        if (each.type == type)
            return &each;
    }
    return nullptr;
}

} // namespace

MeasurementUnit *UnitTraits::make(MeasurementUnitType type)
{
    const UnitClass *const found = classOf(type);
    return found ? found->make() : nullptr;
}

bool UnitTraits::isPlain(const MeasurementUnit &unit)
{
    if (isExactly<MeasurementUnit>(unit))
        return true;
    const UnitClass *const known = classOf(unit.type());
    return known && known->isClassOf(unit);
}

void UnitTraits::appendFormatted(QByteArray &text, const MeasurementUnit &unit, double value)
{
    if (isPlain(unit))
        appendNumber(text, unit.scale(value), unit.m_format, unit.m_precision);
    else
        text.append(unit.format(value).toUtf8());
}

QDebug operator<<(QDebug debug, const MeasurementUnit *unit)
{
    const QDebugStateSaver saver(debug);
    if (!unit)
        return debug.nospace() << "MeasurementUnit(none)";
    return debug.nospace() << "MeasurementUnit(" << unit->name() << ", type " << int(unit->type())
                           << ')';
}

} // namespace Units
} // namespace Corvale_Qt
