// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/LimitTexts.h"

#include "monitor/core/Text.h"

#include <QLocale>
#include <QStringList>

#include <cmath>

namespace Monitor {

using Corvale_Qt::ChannelLimits;

QString limitText(double limit)
{
    return std::isnan(limit) ? QString()
                             : QString::number(limit, 'g', QLocale::FloatingPointShortest);
}

QString limitsText(const ChannelLimits &limits)
{
    return QStringList{limitText(limits.lowAlarm),
                       limitText(limits.lowWarning),
                       limitText(limits.highWarning),
                       limitText(limits.highAlarm)}
        .join(QLatin1Char(','));
}

std::optional<double> limitFromText(const QString &text)
{
    const QString number = text.trimmed();
    if (number.isEmpty())
        return ChannelLimits::none;
    bool isNumber = false;
    const double limit =
        number.toDouble(&isNumber); // refuses "1,005", which QLocale takes for 1005
    return isNumber && std::isfinite(limit) ? std::optional(limit) : std::nullopt;
}

std::optional<ChannelLimits> limitsFromText(const QString &text, QString *fault)
{
    const QStringList fields = text.split(QLatin1Char(','));
    double numbers[4];
    constexpr int count = 4;
    for (int i = 0; i < count; ++i) {
        const std::optional<double> limit = limitFromText(fields.value(i));
        if (fields.size() != count || !limit) {
            *fault = Text::tr("four numbers are needed, empty for no limit");
            return std::nullopt;
        }
        numbers[i] = *limit;
    }
    ChannelLimits limits;
    limits.lowAlarm = numbers[0];
    limits.lowWarning = numbers[1];
    limits.highWarning = numbers[2];
    limits.highAlarm = numbers[3];
    if (limits.isValid())
        return limits;
    *fault = Text::tr("the limits must rise from low alarm to high alarm");
    return std::nullopt;
}

QString passedLimitText(Corvale_Qt::LimitState state, const QString &channel, const QString &limit)
{
    using Corvale_Qt::LimitState;
    switch (state) {
    case LimitState::HighAlarm:
        return Text::tr("ALARM: %1 above %2").arg(channel, limit);
    case LimitState::LowAlarm:
        return Text::tr("ALARM: %1 below %2").arg(channel, limit);
    case LimitState::HighWarning:
        return Text::tr("WARNING: %1 above %2").arg(channel, limit);
    case LimitState::LowWarning:
        return Text::tr("WARNING: %1 below %2").arg(channel, limit);
    case LimitState::Normal:
        break;
    }
    return channel;
}

} // namespace Monitor
