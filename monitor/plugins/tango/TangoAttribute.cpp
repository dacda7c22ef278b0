// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/tango/TangoAttribute.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

bool isSameNumber(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

//! Returns whether a value lies outside of the range, as far as one is known.
bool isOutside(const TangoAttribute &attribute, const TangoReading &reading)
{
    return std::any_of(reading.values.begin(), reading.values.end(), [&](double value) {
        return value < attribute.lowest || value > attribute.highest;
    });
}

} // namespace

bool TangoAttribute::isLike(const TangoAttribute &other) const
{
    const CorvaleMonitor::SourceChannel &its = other.channel;
    return form == other.form && factor == other.factor && label == other.label
        && channel.unit == its.unit && isSameNumber(channel.lowAlarm, its.lowAlarm)
        && isSameNumber(channel.lowWarning, its.lowWarning)
        && isSameNumber(channel.highWarning, its.highWarning)
        && isSameNumber(channel.highAlarm, its.highAlarm);
}

QString TangoAttribute::summary() const
{
    static const char *const forms[] = {"scalar", "spectrum", "image"};
    QString text =
        QStringLiteral("%1: %2 %3").arg(channel.name, QLatin1String(forms[int(form)]), type);
    if (!channel.unit.isEmpty())
        text += QStringLiteral(", ") + channel.unit;
    if (factor != 1.0)
        text += QStringLiteral(", shown times %1").arg(factor);
    const struct
    {
        const char *name;
        double value;
    } numbers[] = {{"min_value", lowest},
                   {"max_value", highest},
                   {"min_alarm", channel.lowAlarm},
                   {"min_warning", channel.lowWarning},
                   {"max_warning", channel.highWarning},
                   {"max_alarm", channel.highAlarm}};
    for (const auto &number : numbers)
        if (!std::isnan(number.value))
            text += QStringLiteral(", %1 %2").arg(QLatin1String(number.name)).arg(number.value);
    return text;
}

QString tangoCondition(const TangoAttribute &attribute, const TangoReading &reading)
{
    using Quality = TangoReading::Quality;
    if (!reading.fault.isEmpty())
        return reading.fault;
    QStringList conditions;
    if (reading.quality == Quality::Invalid)
        return QStringLiteral("invalid");
    if (reading.quality == Quality::Alarm)
        conditions.append(QStringLiteral("alarm"));
    if (reading.quality == Quality::Warning)
        conditions.append(QStringLiteral("warning"));
    if (isOutside(attribute, reading))
        conditions.append(QStringLiteral("over range"));
    return conditions.join(QStringLiteral(", "));
}
