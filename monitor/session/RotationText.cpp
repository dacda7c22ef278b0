// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/session/RotationText.h"

#include "monitor/sources/SourceFactory.h"

#include <QRegularExpression>

namespace Monitor {

namespace {

qint64 bytesOf(const QString &letter)
{
    constexpr qint64 kilo = 1000;
    return letter == QLatin1String("k") ? kilo
        : letter == QLatin1String("M")  ? kilo * kilo
                                        : kilo * kilo * kilo;
}

} // namespace

bool setRotation(Recorder::Options *options, const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^(\\d{1,9})([kMG])$"));
    Recorder::Options rotated = *options;
    const QStringList limits = text.split(QLatin1Char(','));
    for (const QString &limit : limits) {
        const QRegularExpressionMatch match = form.match(limit);
        const std::optional<double> time = secondsFromText(limit);
        if (match.hasMatch() && match.captured(1).toLongLong() > 0)
            rotated.rotateBytes = match.captured(1).toLongLong() * bytesOf(match.captured(2));
        else if (time)
            rotated.rotateSeconds = *time;
        else
            return false;
    }
    *options = rotated;
    return true;
}

} // namespace Monitor
