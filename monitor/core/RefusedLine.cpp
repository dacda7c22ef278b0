// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/RefusedLine.h"

#include <QCoreApplication>

namespace Monitor {

QString refusalText(Refusal refusal)
{
    switch (refusal) {
    case Refusal::TooLong:
        return QCoreApplication::translate("Monitor", "longer than 2 MiB");
    case Refusal::TooManyValues:
        return QCoreApplication::translate("Monitor", "more than 256 values");
    case Refusal::WrongCount:
        return QCoreApplication::translate("Monitor",
                                           "a different number of values than the lines before");
    case Refusal::TimeBackwards:
        return QCoreApplication::translate("Monitor", "its time goes backwards");
    case Refusal::Unreadable:
        break;
    }
    return QCoreApplication::translate("Monitor", "not readable");
}

QString RefusedLine::text() const
{
    const QString form = what == What::Image
        ? QCoreApplication::translate("Monitor", "image %1 dropped, %2: \"%3\"")
        : QCoreApplication::translate("Monitor", "line %1 dropped, %2: \"%3\"");
    return form.arg(number).arg(reason.isEmpty()
                                    ? refusalText(refusal)
                                    : refusalText(refusal) + QStringLiteral(" (%1)").arg(reason),
                                QString::fromLatin1(excerpt));
}

} // namespace Monitor
