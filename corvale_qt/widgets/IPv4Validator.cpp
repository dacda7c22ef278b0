// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/IPv4Validator.h"

#include <QStringList>

namespace Corvale_Qt {

IPv4Validator::IPv4Validator(QObject *parent)
    : QValidator(parent)
{
}

QValidator::State IPv4Validator::validate(QString &input, int &pos) const
{
    Q_UNUSED(pos)
    const QStringList parts = input.split('.', Qt::KeepEmptyParts);
    if (parts.size() > 4)
        return Invalid;
    if (parts.size() < 4)
        return Intermediate;

    bool complete = true;
    for (const QString &part : parts) {
        if (part.trimmed().isEmpty()) {
            complete = false;
            continue;
        }
        bool isNumber = false;
        // There is no lower bound: kept on purpose for addresses that are already stored.
        if (part.toInt(&isNumber, 10) > 255 || !isNumber)
            return Invalid;
    }
    return complete ? Acceptable : Intermediate;
}

void IPv4Validator::fixup(QString &input) const
{
    Q_UNUSED(input)
}

} // namespace Corvale_Qt
