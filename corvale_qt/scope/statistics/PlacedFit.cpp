// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/statistics/PlacedFit_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

double PlacedFit::x() const
{
    const double middle = (profile.lowerEdge() + profile.upperEdge()) / 2;
    return shift + (isOk() ? estimate.position.value : middle);
}

double PlacedFit::readingAt(double position) const
{
    if (!isOk() || profile.count() == 0)
        return 0;
    const QVector<double> &places = profile.positions;
    const auto after = std::upper_bound(places.begin(), places.end(), position);
    const int right = std::min(int(after - places.begin()), profile.count() - 1);
    const int left = std::max(right - 1, 0);
    const double distance = places[right] - places[left];
    const double way =
        distance > 0 ? std::clamp((position - places[left]) / distance, 0.0, 1.0) : 0.0;
    // The bars are readings, which grow with the width of their cells.
    const double scale =
        profile.scales[left] + way * (profile.scales[right] - profile.scales[left]);
    return scale * estimate.densityAt(position);
}

QVector<QPointF> PlacedFit::curve(double divisor) const
{
    constexpr int points = 256;
    QVector<QPointF> line;
    const double from = profile.lowerEdge(), to = profile.upperEdge();
    for (int i = 0; i <= points; ++i) {
        const double position = from + (to - from) * i / points;
        line.append({shift + position, readingAt(position) / divisor});
    }
    return line;
}

} // namespace Corvale_Qt
