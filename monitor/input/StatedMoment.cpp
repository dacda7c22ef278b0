// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/StatedMoment.h"

#include <QRegularExpression>

namespace Monitor {

namespace {

//! Replaces a second 60 by 59. Returns whether there was one.
bool takeSecond60(QString *text)
{
    // This is asked of each row of a table, and is almost never so.
    if (!text->contains(QLatin1String(":60")))
        return false;
    static const QRegularExpression second60(QStringLiteral("(:\\d\\d:)60(?!\\d)"));
    const QString before = *text;
    text->replace(second60, QStringLiteral("\\159"));
    return *text != before;
}

bool isLastSecondOfMonth(const QDateTime &utc)
{
    return utc.date().day() == utc.date().daysInMonth() && utc.time().hour() == 23
        && utc.time().minute() == 59;
}

} // namespace

StatedMoment statedMoment(const QString &text, Qt::TimeSpec zone, const QString &format)
{
    StatedMoment stated;
    QString date = text;
    stated.isLeapSecond = takeSecond60(&date);
    QDateTime moment = format.isEmpty() ? QDateTime::fromString(date, Qt::ISODateWithMs)
                                        : QDateTime::fromString(date, format);
    if (!moment.isValid())
        return {};
    if (moment.timeSpec() == Qt::LocalTime)
        moment.setTimeSpec(zone);
    stated.moment = moment.toUTC();
    if (!stated.isLeapSecond)
        return stated;
    if (!isLastSecondOfMonth(stated.moment))
        return {};
    stated.moment = stated.moment.addSecs(1);
    return stated;
}

} // namespace Monitor
