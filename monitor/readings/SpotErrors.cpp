// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/SpotErrors.h"

#include <QVector>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <vector>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

//! Where a list has the fields of its spots; -1 for a field that it does not have.
struct Fields
{
    explicit Fields(const StreamHeader &header)
        : x(header.indexOf(QStringLiteral("x")))
        , y(header.indexOf(QStringLiteral("y")))
        , dose(header.indexOf(QStringLiteral("mu")))
        , sigma(header.indexOf(QStringLiteral("sigma_x")))
        , beam(header.indexOf(QStringLiteral("beam")))
        , layer(header.indexOf(QStringLiteral("layer")))
        , number(header.indexOf(QStringLiteral("spot")))
        , energy(header.indexOf(QStringLiteral("energy")))
        , plannedX(header.indexOf(QStringLiteral("x_planned")))
        , plannedY(header.indexOf(QStringLiteral("y_planned")))
        , plannedDose(header.indexOf(QStringLiteral("mu_planned")))
    {
    }

    int x, y, dose, sigma, beam, layer, number, energy, plannedX, plannedY, plannedDose;
};

//! The sigma of spots whose list does not have it, mm.
constexpr double usualSigma = 4.0;

//! Beam, layer and number of a spot.
using Key = std::array<double, 3>;

Key keyOf(const SpotRows &list, const Fields &fields, int row)
{
    const auto number = [&](int channel) {
        const double value = list.value(row, channel);
        return std::isnan(value) ? -1.0 : value; // NaN has no order
    };
    return {number(fields.beam), number(fields.layer), number(fields.number)};
}

ComparedSpot comparedSpot(const SpotRows &list, const Fields &fields, int row)
{
    const double sigma = fields.sigma < 0 ? usualSigma : list.value(row, fields.sigma);
    return {row,
            list.value(row, fields.x),
            list.value(row, fields.y),
            list.value(row, fields.dose),
            sigma};
}

//! Returns the spots that can be compared, and counts the others.
QVector<ComparedSpot> comparable(const SpotRows &list, int *others)
{
    const Fields fields(list.header);
    QVector<ComparedSpot> spots;
    for (int row = 0; row < list.size(); ++row) {
        const ComparedSpot spot = comparedSpot(list, fields, row);
        const bool usable = std::isfinite(spot.x) && std::isfinite(spot.y)
            && std::isfinite(spot.dose) && std::isfinite(spot.sigma) && spot.sigma > 0;
        if (usable)
            spots.append(spot);
    }
    *others = list.size() - spots.size();
    return spots;
}

//! Compares spots of the same beam, layer and number; of several with the same ones in the order of their rows.
SpotDifferences compareByNumber(const SpotRows &measured, const SpotRows &planned)
{
    int others = 0, targetOthers = 0;
    const auto spots = comparable(measured, &others);
    const auto targets = comparable(planned, &targetOthers);
    const Fields fields(measured.header), plannedFields(planned.header);
    std::multimap<Key, int> left;
    for (int i = 0; i < spots.size(); ++i)
        left.emplace(keyOf(measured, fields, spots[i].row), i);
    std::vector<int> matched(size_t(targets.size()), -1);
    for (int i = 0; i < targets.size(); ++i) {
        const Key key = keyOf(planned, plannedFields, targets[i].row);
        const auto found = left.lower_bound(key);
        if (found == left.end() || found->first != key)
            continue;
        matched[size_t(i)] = found->second;
        left.erase(found);
    }
    SpotDifferences all = compareSpots(spots, targets, matched);
    all.notComparable = others;
    all.targetNotComparable = targetOthers;
    return all;
}

SpotDifferences compareByPlace(const SpotRows &measured, const SpotRows &planned)
{
    int others = 0, targetOthers = 0;
    SpotDifferences all =
        compareSpots(comparable(measured, &others), comparable(planned, &targetOthers));
    all.notComparable = others;
    all.targetNotComparable = targetOthers;
    return all;
}

//! Turns the pairs into position errors, in the order of the measured rows.
void takePairs(const SpotRows &measured, SpotErrors *errors)
{
    const Fields fields(measured.header);
    for (const SpotDifference &spot : qAsConst(errors->differences.spots)) {
        if (spot.isMissing() || spot.isExtra())
            continue;
        errors->spots.push_back({spot.row,
                                 spot.xOffset,
                                 spot.yOffset,
                                 spot.x - spot.xOffset,
                                 spot.y - spot.yOffset,
                                 measured.value(spot.row, fields.number),
                                 measured.value(spot.row, fields.energy)});
    }
    std::sort(errors->spots.begin(),
              errors->spots.end(),
              [](const SpotErrors::Spot &one, const SpotErrors::Spot &other) {
                  return one.row < other.row;
              });
}

} // namespace

bool SpotErrors::isPlanned(const StreamHeader &header)
{
    const Fields fields(header);
    return header.kind == StreamKind::Spots && fields.plannedX >= 0 && fields.plannedY >= 0;
}

SpotErrors SpotErrors::of(const SpotRows &measured, const SpotRows &planned)
{
    SpotErrors errors;
    const bool numbered = Fields(measured.header).number >= 0 && Fields(planned.header).number >= 0;
    errors.differences =
        numbered ? compareByNumber(measured, planned) : compareByPlace(measured, planned);
    takePairs(measured, &errors);
    return errors;
}

SpotErrors SpotErrors::ofOneList(const SpotRows &list)
{
    SpotErrors errors;
    const Fields fields(list.header);
    int others = 0;
    const auto spots = comparable(list, &others);
    QVector<ComparedSpot> targets;
    std::vector<int> matched;
    for (int i = 0; i < spots.size(); ++i) {
        ComparedSpot target = spots[i];
        target.x = list.value(target.row, fields.plannedX);
        target.y = list.value(target.row, fields.plannedY);
        if (fields.plannedDose >= 0)
            target.dose = list.value(target.row, fields.plannedDose);
        if (!std::isfinite(target.x) || !std::isfinite(target.y))
            continue;
        targets.append(target);
        matched.push_back(i);
    }
    errors.differences = compareSpots(spots, targets, matched);
    errors.differences.notComparable = others;
    takePairs(list, &errors);
    return errors;
}

PositionErrorStatistics SpotErrors::statistics(double toleranceX, double toleranceY) const
{
    QVector<double> x, y;
    for (const Spot &spot : spots) {
        x.append(spot.xError);
        y.append(spot.yError);
    }
    return positionErrorStatistics(x.constData(), y.constData(), x.size(), toleranceX, toleranceY);
}

} // namespace Monitor
