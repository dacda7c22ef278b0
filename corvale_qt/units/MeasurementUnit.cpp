// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/MeasurementUnit.h"

#include "corvale_qt/units/UnitTraits_p.h"

namespace Corvale_Qt {
namespace Units {

namespace {

enum Match {
    Exact,
    AnyCase,
    EndsWith,
};

struct Spelling
{
    const char *text;
    Match match;
    MeasurementUnitType type;
};

// The first match decides: 'C' is coulomb because its row comes before the temperatures.
constexpr Spelling spellings[] = {
    {"A", Exact, Type_A},
    {"mA", Exact, Type_mA},
    {"uA", Exact, Type_uA},
    {"nA", Exact, Type_nA},
    {"pA", Exact, Type_pA},
    {"c", AnyCase, Type_C},
    {"mC", Exact, Type_mC},
    {"uC", Exact, Type_uC},
    {"nC", Exact, Type_nC},
    {"pC", Exact, Type_pC},
    {"fC", Exact, Type_fC},
    {"V", Exact, Type_V},
    {"mV", Exact, Type_mV},
    {"uV", Exact, Type_uV},
    {"kV", AnyCase, Type_kV},
    {"Pulses", Exact, Type_Pulses},
    {"Counts", Exact, Type_Pulses},
    {"Hz", Exact, Type_Hz},
    {"kHz", AnyCase, Type_KHz},
    {"s", Exact, Type_S},
    {"ms", Exact, Type_ms},
    {"us", Exact, Type_us},
    {"ns", Exact, Type_ns},
    {"min", Exact, Type_minutes},
    {"minutes", Exact, Type_minutes},
    {"m", Exact, Type_m},
    {"mm", Exact, Type_mm},
    {"cm", Exact, Type_cm},
    {"eV", AnyCase, Type_eV},
    {"KeV", AnyCase, Type_KeV},
    {"MeV", AnyCase, Type_MeV},
    {"Gy", Exact, Type_Gy},
    {"cGy", Exact, Type_cGy},
    {"Gp", AnyCase, Type_Gp},
    {"MU", Exact, Type_MU},
    {"Gp/s", AnyCase, Type_Gp_per_s},
    {"MU/s", Exact, Type_MU_per_s},
    {"G", Exact, Type_G},
    {"kG", Exact, Type_kG},
    {"C", EndsWith, Type_Celcius},
    {"F", EndsWith, Type_Fahrenheit},
};

bool matches(const Spelling &spelling, const QString &text)
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

MeasurementUnit::MeasurementUnit(double factor,
                                 const QString &name,
                                 MeasurementUnitType type,
                                 double extraScale,
                                 char format,
                                 int precision)
    : m_factor(factor)
    , m_name(name)
    , m_extraScale(extraScale)
    , m_precision(precision)
    , m_type(type)
    , m_format(format)
{
}

MeasurementUnit::MeasurementUnit(double factor, const QString &name, double extraScale)
    : MeasurementUnit(factor, name, Type_Unknown, extraScale, 'e', 3)
{
}

MeasurementUnit::MeasurementUnit(const MeasurementUnit &other) = default;
MeasurementUnit &MeasurementUnit::operator=(const MeasurementUnit &other) = default;
MeasurementUnit::~MeasurementUnit() = default;

QString MeasurementUnit::name() const
{
    return m_name;
}

QString MeasurementUnit::description() const
{
    return m_name;
}

double MeasurementUnit::scale(double value) const
{
    return (m_extraScale * m_factor) * value;
}

double MeasurementUnit::unscale(double value) const
{
    return value / m_extraScale / m_factor;
}

QString MeasurementUnit::format(double value) const
{
    return QString::number(scale(value), m_format, m_precision);
}

QString MeasurementUnit::formatUnscaled(double value) const
{
    return QString::number(value, m_format, m_precision);
}

QString MeasurementUnit::formatSuffix(double value) const
{
    static const QString text = QStringLiteral("%1 %2");
    return text.arg(format(value), m_name);
}

QString MeasurementUnit::formatSuffixUnscaled(double value) const
{
    static const QString text = QStringLiteral("%1 %2");
    return text.arg(formatUnscaled(value), m_name);
}

MeasurementUnitType MeasurementUnit::type() const
{
    return m_type;
}

void MeasurementUnit::setExtraScale(double extraScale)
{
    m_extraScale = extraScale;
}

void MeasurementUnit::setPrecision(int precision)
{
    m_precision = precision;
}

MeasurementUnit *MeasurementUnit::fromType(MeasurementUnitType type)
{
    return UnitTraits::make(type);
}

MeasurementUnitType MeasurementUnit::typeFromString(const QString &text)
{
    for (const Spelling &spelling : spellings) {
        if (matches(spelling, text))
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
