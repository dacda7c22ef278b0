// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/epics/EpicsVariable.h"

#include <QStringList>

#include <cmath>
#include <cstring>
#include <limits>

using namespace ChannelAccess;

namespace {

//! From the beginning of 1970 to that of 1990.
constexpr double epicsEpoch = 631152000.0;

} // namespace

void EpicsVariable::describe(const ControlDouble &control)
{
    isDescribed = true;
    description = {};
    description.name = QString::fromUtf8(name);
    description.unit =
        QString::fromLatin1(control.unit, int(strnlen(control.unit, sizeof(control.unit))));
    // Four limits that are all 0 are those of a record for which nobody has set any.
    const bool isUnset = control.lowAlarm == 0.0 && control.lowWarning == 0.0
        && control.highWarning == 0.0 && control.highAlarm == 0.0;
    if (isUnset)
        return;
    description.lowAlarm = control.lowAlarm;
    description.lowWarning = control.lowWarning;
    description.highWarning = control.highWarning;
    description.highAlarm = control.highAlarm;
}

bool EpicsVariable::hasFormOf(const EpicsVariable &other) const
{
    const auto isSame = [](double a, double b) {
        return a == b || (std::isnan(a) && std::isnan(b));
    };
    const CorvaleMonitor::SourceChannel &its = other.description;
    return count == other.count && description.unit == its.unit
        && isSame(description.lowAlarm, its.lowAlarm)
        && isSame(description.lowWarning, its.lowWarning)
        && isSame(description.highWarning, its.highWarning)
        && isSame(description.highAlarm, its.highAlarm);
}

QString EpicsVariable::summary(const QString &server) const
{
    QString text = QStringLiteral("%1: %2, %3 x %4")
                       .arg(QString::fromUtf8(name),
                            server,
                            QString::number(count),
                            description.unit.isEmpty() ? QStringLiteral("1") : description.unit);
    const double limits[] = {description.lowAlarm,
                             description.lowWarning,
                             description.highWarning,
                             description.highAlarm};
    const char *const names[] = {"LOLO", "LOW", "HIGH", "HIHI"};
    for (int i = 0; i < 4; ++i)
        if (!std::isnan(limits[i]))
            text += QStringLiteral(", %1 %2").arg(QLatin1String(names[i])).arg(limits[i]);
    return text;
}

QString epicsAlarmText(int severity, int status)
{
    static const QStringList severities = {QStringLiteral("no"),
                                           QStringLiteral("MINOR"),
                                           QStringLiteral("MAJOR"),
                                           QStringLiteral("INVALID")};
    static const QStringList statuses =
        QStringLiteral(
            "NO_ALARM READ WRITE HIHI HIGH LOLO LOW STATE COS COMM TIMEOUT HW_LIMIT CALC "
            "SCAN LINK SOFT BAD_SUB UDF DISABLE SIMM READ_ACCESS WRITE_ACCESS")
            .split(QLatin1Char(' '));
    return QStringLiteral("%1 alarm, %2")
        .arg(severities.value(severity, QString::number(severity)),
             statuses.value(status, QString::number(status)));
}

double epicsTime(const TimeDouble &data)
{
    constexpr double nano = 1e-9;
    if (data.seconds == 0)
        return std::numeric_limits<double>::quiet_NaN();
    return epicsEpoch + double(data.seconds) + nano * double(data.nanoseconds);
}
