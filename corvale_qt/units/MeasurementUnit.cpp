// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/MeasurementUnit.h"

namespace Corvale_Qt {
namespace Units {

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

} // namespace Units
} // namespace Corvale_Qt
