// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: beam energy by the channel that stops the beam.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace Corvale_Qt {

//! Energies in MeV, the first one that of channel 1.
class EnergyTable
{
public:
    EnergyTable() = default;
    explicit EnergyTable(std::vector<double> energies)
        : m_energies(std::move(energies))
    {
    }

    bool isEmpty() const { return m_energies.empty(); }

    //! Between two channels linearly; NaN outside the table.
    double at(double channel) const
    {
        const double place = channel - 1.0;
        const double last = double(m_energies.size()) - 1.0;
        if (!(place >= 0.0 && place <= last))
            return std::numeric_limits<double>::quiet_NaN();
        const double below = std::floor(place);
        const double left = m_energies[size_t(below)];
        if (place == below)
            return left;
        return left + (place - below) * (m_energies[size_t(below) + 1] - left);
    }

private:
    std::vector<double> m_energies;
};

} // namespace Corvale_Qt
