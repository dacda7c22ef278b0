// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/SpotReport.h"

#include "monitor/core/NumberText.h"
#include "monitor/core/Text.h"

#include <cmath>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

//! Returns a length in mm with its digits; a dash where there is none.
QString length(double value)
{
    return std::isfinite(value) ? QString::number(value, 'f', 3) : QStringLiteral("-");
}

QString dose(double value)
{
    return numberText(value, 10);
}

QJsonValue number(double value)
{
    return std::isfinite(value) ? QJsonValue(value) : QJsonValue(QJsonValue::Null);
}

} // namespace

QString SpotReport::positions() const
{
    const PositionErrorStatistics is = errors.statistics(toleranceX, toleranceY);
    if (!is.isComputed())
        return Text::tr("no spot lies where one is planned");
    QString text = Text::counted("%n spot(s): mean X %1, Y %2 mm; sigma X %3, Y %4 mm; worst %5 mm",
                                 nullptr,
                                 is.spots)
                       .arg(length(is.meanX), length(is.meanY), length(is.sigmaX))
                       .arg(length(is.sigmaY), length(is.worst));
    if (is.worstSpot >= 0) {
        const SpotErrors::Spot &spot = errors.spots[std::size_t(is.worstSpot)];
        text += std::isfinite(spot.number)
            ? Text::tr(" (row %1, spot %2)").arg(spot.row + 1).arg(spot.number)
            : Text::tr(" (row %1)").arg(spot.row + 1);
    }
    return text
        + (is.outside < 0 ? Text::tr("; no tolerance is set")
                          : Text::tr("; %1 outside %2 x %3 mm")
                                .arg(is.outside)
                                .arg(QString::number(toleranceX), QString::number(toleranceY)));
}

QString SpotReport::doses() const
{
    const SpotDifferences &is = errors.differences;
    QString text = Text::tr("%1 missing (%2 %7), %3 extra (%4 %7); total dose %5 %7 of %6 %7")
                       .arg(QString::number(is.missing),
                            dose(is.missingDose),
                            QString::number(is.extra),
                            dose(is.extraDose),
                            dose(is.dose),
                            dose(is.targetDose),
                            doseUnit);
    text += Text::tr("; largest difference of a spot %1 %2")
                .arg(dose(is.largestDoseDifference), doseUnit);
    if (const int others = is.notComparable + is.targetNotComparable)
        text += Text::counted("; %n spot(s) without a place, a dose or a width is/are not compared",
                              nullptr,
                              others);
    return text;
}

QJsonObject SpotReport::json() const
{
    const PositionErrorStatistics is = errors.statistics(toleranceX, toleranceY);
    const SpotDifferences &doses = errors.differences;
    return {{"unit", "mm"},
            {"spots", is.spots},
            {"incomplete", is.incomplete},
            {"mean_x", number(is.meanX)},
            {"mean_y", number(is.meanY)},
            {"sigma_x", number(is.sigmaX)},
            {"sigma_y", number(is.sigmaY)},
            {"worst", number(is.worst)},
            {"worst_row",
             is.worstSpot < 0 ? QJsonValue()
                              : QJsonValue(errors.spots[std::size_t(is.worstSpot)].row + 1)},
            {"outside", is.outside < 0 ? QJsonValue() : QJsonValue(is.outside)},
            {"tolerance_x", toleranceX > 0 ? QJsonValue(toleranceX) : QJsonValue()},
            {"tolerance_y", toleranceY > 0 ? QJsonValue(toleranceY) : QJsonValue()},
            {"dose_unit", doseUnit},
            {"matched", doses.matched},
            {"missing", doses.missing},
            {"extra", doses.extra},
            {"not_compared", doses.notComparable},
            {"planned_not_compared", doses.targetNotComparable},
            {"dose", number(doses.dose)},
            {"planned_dose", number(doses.targetDose)},
            {"missing_dose", number(doses.missingDose)},
            {"extra_dose", number(doses.extraDose)},
            {"largest_dose_difference", number(doses.largestDoseDifference)}};
}

} // namespace Monitor
