// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/IntStepValidator.h"

namespace Corvale_Qt {

IntStepValidator::IntStepValidator(int bottom, int top, int step, QObject *parent)
    : QIntValidator(bottom, top, parent)
    , m_step(step)
{
}

void IntStepValidator::setSingleStep(int step)
{
    m_step = step;
}

QValidator::State IntStepValidator::validate(QString &input, int &pos) const
{
    const State inRange = QIntValidator::validate(input, pos);
    if (inRange != Acceptable)
        return inRange;
    bool isNumber = false;
    // qint64, since the lowest int % -1 overflows int.
    const qint64 value = input.toInt(&isNumber, 10);
    if (!isNumber)
        return Invalid;
    const qint64 step = m_step == 0 ? 1 : m_step;
    return value % step == 0 ? Acceptable : Invalid;
}

} // namespace Corvale_Qt
