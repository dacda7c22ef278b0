// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/AmountBox_p.h"

#include <cmath>

namespace Corvale_Qt {

void AmountBox::setUnit(const QString &symbol, bool takesPrefix)
{
    if (symbol != m_prefix.givenSymbol() || takesPrefix != m_takesPrefix) {
        m_prefix = Units::SiPrefix(symbol);
        m_takesPrefix = takesPrefix;
        if (takesPrefix && value() != minimum())
            m_prefix.follow(value());
    }
    showUnit();
}

void AmountBox::showAmount(double amount)
{
    const bool isAmount = std::isfinite(amount) && amount >= minimum() && amount <= maximum();
    if (isAmount && m_takesPrefix)
        m_prefix.follow(amount);
    setValue(isAmount ? amount : minimum());
    showUnit();
}

//! Sets the unit behind the number, which has the text made anew.
void AmountBox::showUnit()
{
    const QString symbol = m_prefix.symbol();
    setSuffix(symbol.isEmpty() ? symbol : QLatin1Char(' ') + symbol);
}

QString AmountBox::textFromValue(double value) const
{
    return m_takesPrefix && m_prefix.isScalable() ? m_prefix.number(value)
                                                  : QScienceSpinBox::textFromValue(value);
}

double AmountBox::valueFromText(const QString &) const
{
    return value();
}

} // namespace Corvale_Qt
