// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/DetectorDescription.h"

#include <QCoreApplication>

namespace Corvale_Qt {

DetectorAxis DetectorAxis::uniform(int count, double distance, const QString &unit)
{
    DetectorAxis axis;
    axis.cells = count;
    axis.pitch = distance;
    axis.unit = unit;
    return axis;
}

DetectorAxis DetectorAxis::at(const QVector<double> &places, const QString &unit)
{
    DetectorAxis axis;
    axis.cells = places.size();
    axis.positions = places;
    axis.unit = unit;
    return axis;
}

DetectorAxis DetectorAxis::counted(int count)
{
    DetectorAxis axis;
    axis.cells = count;
    return axis;
}

bool DetectorChannel::operator==(const DetectorChannel &other) const
{
    return name == other.name && gain == other.gain && pedestal == other.pedestal
        && saturation == other.saturation && dead == other.dead;
}

bool DetectorDescription::hasOwnVerdictLimits() const
{
    return verdictLimitsStated || !(verdictLimits == VerdictLimits());
}

QString DetectorFault::message() const
{
    QString message = place.isEmpty() ? text : place + QLatin1String(": ") + text;
    if (line > 0)
        message = QCoreApplication::translate("Corvale_Qt::DetectorFault", "line %1, %2")
                      .arg(line)
                      .arg(message);
    return message;
}

} // namespace Corvale_Qt
