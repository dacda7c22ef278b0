// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/AmountBox_p.h"

#include <cmath>

namespace Corvale_Qt {

void AmountBox::setUnit(const AmountUnit &unit)
{
    if (unit == m_unit)
        return;
    m_unit = unit;
    m_prefix = unit.prefix();
    if (unit.takesPrefix && value() != minimum())
        m_prefix.follow(value());
    setSuffix(unitText()); // makes the text anew, even if the unit that is shown stays
}

void AmountBox::showAmount(double amount)
{
    const bool isAmount = std::isfinite(amount) && amount >= minimum() && amount <= maximum();
    if (isAmount && m_unit.takesPrefix)
        m_prefix.follow(amount);
    setValue(isAmount ? amount : minimum());
    if (suffix() != unitText())
        setSuffix(unitText()); // lays out the side bar
}

//! Returns what stands behind the number.
QString AmountBox::unitText() const
{
    const QString symbol = m_prefix.symbol();
    return symbol.isEmpty() ? symbol : QLatin1Char(' ') + symbol;
}

QString AmountBox::textFromValue(double value) const
{
    return m_unit.takesPrefix && m_prefix.isScalable() ? m_prefix.number(value)
                                                       : QScienceSpinBox::textFromValue(value);
}

double AmountBox::valueFromText(const QString &) const
{
    return value();
}

} // namespace Corvale_Qt
