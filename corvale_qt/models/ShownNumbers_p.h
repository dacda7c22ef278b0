// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/units/UnitTraits_p.h"

#include <optional>

namespace Corvale_Qt {

//! Converts the stored numbers of a channel to those that doubleData() returns.
class ShownNumbers
{
public:
    //! \a given is the unit of the stored numbers, null for the base unit. With \a shown null they are shown as stored.
    ShownNumbers(const Units::MeasurementUnit *given, const Units::MeasurementUnit *shown)
        : m_given(given)
        , m_shown(shown)
    {
        using Units::UnitTraits;
        if (!shown || given == shown)
            m_factor = 1.0;
        else if (given && UnitTraits::isPlain(*given) && UnitTraits::isPlain(*shown))
            m_factor = ratio();
    }

    double operator()(double stored) const
    {
        if (m_factor)
            return *m_factor * stored;
        return m_shown->scale(m_given ? m_given->unscale(stored) : stored);
    }

    //! Returns the number whose product with a stored number is, to the last bit, the shown number; nothing if there is none.
    std::optional<double> factor() const
    {
        const bool isScaled = !m_factor && !m_given && Units::UnitTraits::isPlain(*m_shown);
        // scale(1.0) is the product that scale() forms first, to the last bit.
        return isScaled ? m_shown->scale(1.0) : m_factor;
    }

private:
    //! Units of the same size have the ratio 1: numbers that need no conversion are shown to the last bit as they came.
    double ratio() const
    {
        return m_given->scale(1.0) == m_shown->scale(1.0) ? 1.0
                                                          : m_shown->scale(m_given->unscale(1.0));
    }

    const Units::MeasurementUnit *m_given;
    const Units::MeasurementUnit *m_shown;
    std::optional<double> m_factor;
};

} // namespace Corvale_Qt
