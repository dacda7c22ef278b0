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
    Match match;
    const char *text;
    MeasurementUnitType type;
};

// The first match decides: 'C' is coulomb because its row comes before the temperatures.
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
