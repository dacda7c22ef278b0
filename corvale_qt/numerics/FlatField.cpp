// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/FlatField.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr int kLeastCells = 5;
constexpr int kMostRounds = 10;
constexpr double kMiddleShare = 0.1; //!< of the field, whose mean is the level
constexpr double kFlattenedShare = 0.8; //!< of the field, where flatness and symmetry are measured
constexpr double kPenumbrasOfAFlatTop = 3.0;
constexpr double kFlatnessOfAFlatTop = 0.2;

//! Finds levels of a profile by linear interpolation between the centres of its cells.
class Levels
{
public:
    explicit Levels(const BeamProfile &profile)
        : m_profile(profile)
    {
    }

    /*! Returns where the density rises through \a level, going from \a from in direction \a step (1 or -1); nothing if
        it does not. */
    Estimate rise(int from, int step, double level) const
    {
        for (int i = from; i + step >= 0 && i + step < m_profile.count(); i += step)
            if (m_profile.density(i) < level && m_profile.density(i + step) >= level)
                return between(i, i + step, level);
        return {};
    }
    //! Returns where the density falls through \a level.
    Estimate fall(int from, int step, double level) const
    {
        for (int i = from; i + step >= 0 && i + step < m_profile.count(); i += step)
            if (m_profile.density(i) >= level && m_profile.density(i + step) < level)
                return between(i, i + step, level);
        return {};
    }

    double densityAt(double position) const
    {
        const QVector<double> &x = m_profile.positions;
        const auto behind = std::upper_bound(x.begin(), x.end(), position);
        const int right = std::clamp(int(behind - x.begin()), 1, m_profile.count() - 1);
        const double t =
            std::clamp((position - x[right - 1]) / (x[right] - x[right - 1]), 0.0, 1.0);
        return (1 - t) * m_profile.density(right - 1) + t * m_profile.density(right);
    }

    int cellNear(double position) const
    {
        int nearest = 0;
        for (int i = 1; i < m_profile.count(); ++i)
            if (std::abs(m_profile.positions[i] - position)
                < std::abs(m_profile.positions[nearest] - position))
                nearest = i;
        return nearest;
    }

    //! Returns the mean density of the cells within half a \a length around \a centre, at least of the nearest one.
    double meanAround(double centre, double length) const
    {
        double sum = 0;
        int count = 0;
        for (int i = 0; i < m_profile.count(); ++i) {
            if (std::abs(m_profile.positions[i] - centre) > length / 2)
                continue;
            sum += m_profile.density(i);
            ++count;
        }
        return count > 0 ? sum / count : densityAt(centre);
    }

private:
    Estimate between(int i, int j, double level) const
    {
        const double di = m_profile.density(i), dj = m_profile.density(j);
        const double distance = m_profile.positions[j] - m_profile.positions[i];
        const double t = (level - di) / (dj - di);
        Estimate found;
        found.value = m_profile.positions[i] + t * distance;
        if (m_profile.noise > 0)
            found.error = std::abs(distance / (dj - di))
                * std::hypot((1 - t) / m_profile.scales[i], t / m_profile.scales[j])
                * m_profile.noise;
        return found;
    }

    const BeamProfile &m_profile;
};

Estimate difference(const Estimate &one, const Estimate &other)
{
    return {std::abs(one.value - other.value), std::hypot(one.error, other.error)};
}

//! Finds the edges; the level follows from the field, and the field from the level.
void takeEdges(const BeamProfile &profile, const Levels &levels, FlatField &field)
{
    double largest = 0;
    for (int i = 0; i < profile.count(); ++i)
        largest = std::max(largest, profile.density(i));
    field.level = largest;
    for (int round = 0; round < kMostRounds; ++round) {
        field.lowerEdge = levels.rise(0, 1, field.level / 2);
        field.upperEdge = levels.rise(profile.count() - 1, -1, field.level / 2);
        const double lower =
            std::isnan(field.lowerEdge.value) ? profile.lowerEdge() : field.lowerEdge.value;
        const double upper =
            std::isnan(field.upperEdge.value) ? profile.upperEdge() : field.upperEdge.value;
        field.centre.value = (lower + upper) / 2;
        field.size.value = upper - lower;
        const double level = levels.meanAround(field.centre.value, kMiddleShare * field.size.value);
        if (level == field.level)
            break;
        field.level = level;
    }
    field.size.error = std::hypot(field.lowerEdge.error, field.upperEdge.error);
    field.centre.error = field.size.error / 2;
}

void takePenumbras(const BeamProfile &profile, const Levels &levels, FlatField &field)
{
    const double high = 0.8 * field.level, low = 0.2 * field.level;
    const int lower = levels.cellNear(field.lowerEdge.value);
    const int upper = levels.cellNear(field.upperEdge.value);
    // From just outside an edge inwards, and from just inside outwards.
    const int outsideLower = std::max(lower - 1, 0),
              insideLower = std::min(lower + 1, profile.count() - 1);
    const int outsideUpper = std::min(upper + 1, profile.count() - 1),
              insideUpper = std::max(upper - 1, 0);
    field.lowerPenumbra =
        difference(levels.rise(outsideLower, 1, high), levels.fall(insideLower, -1, low));
    field.upperPenumbra =
        difference(levels.rise(outsideUpper, -1, high), levels.fall(insideUpper, 1, low));
}

void takeFlatness(const BeamProfile &profile, const Levels &levels, FlatField &field)
{
    const double reach = kFlattenedShare * field.size.value / 2;
    double largest = 0, smallest = 0, asymmetry = 0, error = 0;
    bool any = false;
    for (int i = 0; i < profile.count(); ++i) {
        const double distance = profile.positions[i] - field.centre.value;
        if (std::abs(distance) > reach)
            continue;
        const double density = profile.density(i);
        largest = any ? std::max(largest, density) : density;
        smallest = any ? std::min(smallest, density) : density;
        any = true;
        asymmetry = std::max(asymmetry,
                             std::abs(density - levels.densityAt(field.centre.value - distance)));
        error = std::max(error, M_SQRT2 * profile.noise / profile.scales[i]);
    }
    if (!any || !(largest + smallest > 0))
        return;
    const bool known = profile.noise > 0;
    const double unknown = std::numeric_limits<double>::quiet_NaN();
    field.flatness = {(largest - smallest) / (largest + smallest),
                      known ? error / (largest + smallest) : unknown};
    field.symmetry = {asymmetry / field.level, known ? error / field.level : unknown};
}

} // namespace

bool FlatField::isFlatTopped() const
{
    const double penumbra = (lowerPenumbra.value + upperPenumbra.value) / 2;
    return status == EstimateStatus::Ok && size.value > kPenumbrasOfAFlatTop * penumbra
        && flatness.value < kFlatnessOfAFlatTop;
}

FlatField flatField(const BeamProfile &given)
{
    FlatField field;
    field.status = EstimateStatus::NotUsable;
    if (!given.isUsable())
        return field;
    field.status = EstimateStatus::NotEnoughCells;
    if (given.count() < kLeastCells)
        return field;
    const BeamProfile profile = given.withoutHoles();
    const Levels levels(profile);
    takeEdges(profile, levels, field);
    field.status = EstimateStatus::NoSignal;
    if (!(field.level > 0))
        return field;
    takeFlatness(profile, levels, field);
    const bool edges = !std::isnan(field.lowerEdge.value) && !std::isnan(field.upperEdge.value);
    field.status = edges ? EstimateStatus::Ok : EstimateStatus::PeakOnEdge;
    if (edges)
        takePenumbras(profile, levels, field);
    else
        field.size = field.centre = {};
    return field;
}

} // namespace Corvale_Qt
