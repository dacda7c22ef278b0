// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/PositionErrorWords_p.h"
#include "corvale_qt/beam/spots/RVXPositionErrorPlot.h"

namespace Corvale_Qt {

QString positionErrorText(double value, int decimals)
{
    if (!qIsFinite(value))
        return RVXPositionErrorPlot::tr("N/A");
    const QString text = QString::number(value, 'f', decimals);
    // A value that is rounded to 0 has no sign.
    return text.toDouble() == 0.0 ? QString::number(0.0, 'f', decimals) : text;
}

ChartWords positionErrorWords(const PositionErrorStatistics &errors)
{
    if (!errors.isComputed())
        return {RVXPositionErrorPlot::tr("no spots"), QString()};
    QString state = RVXPositionErrorPlot::tr("Spots: %1").arg(errors.spots);
    if (errors.outside >= 0)
        state +=
            "; " + RVXPositionErrorPlot::tr("outside of the tolerance: %1").arg(errors.outside);
    return {state,
            RVXPositionErrorPlot::tr("mean X error %1 mm; mean Y error %2 mm")
                .arg(positionErrorText(errors.meanX, 3), positionErrorText(errors.meanY, 3))};
}

} // namespace Corvale_Qt
