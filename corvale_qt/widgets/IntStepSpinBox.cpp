// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/IntStepSpinBox.h"

#include "corvale_qt/widgets/IntStepValidator.h"

#include <QLineEdit>

namespace Corvale_Qt {

namespace {

/*! What stands on the spin box's line edit: a line edit asks its validator, and the answer has to be the spin
    box's, on the text with prefix and suffix. */
class LineEditValidator final : public IntStepValidator
{
public:
    explicit LineEditValidator(IntStepSpinBox *box)
        : IntStepValidator(box->minimum(), box->maximum(), box->singleStep(), box)
        , m_box(box)
    {
        // Of numbers it sees only those that the spin box has read, written the C way.
        setLocale(QLocale::c());
    }

    State validate(QString &input, int &pos) const override
    {
        if (!m_box->specialValueText().isEmpty() && input == m_box->specialValueText())
            return Acceptable;
        if (!input.startsWith(m_box->prefix())) {
            input.prepend(m_box->prefix());
            pos += m_box->prefix().size();
        }
        if (!input.endsWith(m_box->suffix()))
            input.append(m_box->suffix());
        return m_box->validate(input, pos);
    }

    State validateNumber(int number) const
    {
        QString text = QString::number(number);
        int end = text.size();
        return IntStepValidator::validate(text, end);
    }

private:
    IntStepSpinBox *m_box;
};

//! Whether [low, high], neither negative, holds a multiple of \a step.
bool holdsMultiple(qint64 low, qint64 high, qint64 step)
{
    return low <= high && high / step * step >= low;
}

/*! Whether digits put behind \a number, not 0, can make a multiple of \a step between 0 and \a limit in
    magnitude, and at least \a least. */
bool canGrow(qint64 number, qint64 least, qint64 limit, qint64 step, qint64 base)
{
    qint64 low = number;
    qint64 high = number;
    while (low <= limit / base) {
        low *= base;
        high = high * base + base - 1;
        if (holdsMultiple(qMax(low, least), qMin(high, limit), step))
            return true;
    }
    return false;
}

} // namespace

class IntStepSpinBoxPrivate
{
public:
    explicit IntStepSpinBoxPrivate(IntStepSpinBox *box)
        : validator(new LineEditValidator(box))
    {
    }

    LineEditValidator *const validator;
};

IntStepSpinBox::IntStepSpinBox(QWidget *parent)
    : QSpinBox(parent)
    , d_ptr(new IntStepSpinBoxPrivate(this))
{
    lineEdit()->setValidator(d_ptr->validator);
}

IntStepSpinBox::~IntStepSpinBox() = default;

QValidator::State IntStepSpinBox::validate(QString &text, int &pos) const
{
    Q_D(const IntStepSpinBox);
    d->validator->setRange(minimum(), maximum());
    d->validator->setSingleStep(singleStep());

    const QValidator::State inRange = QSpinBox::validate(text, pos);
    if (inRange != QValidator::Acceptable)
        return inRange;
    const qint64 value = valueFromText(text);
    if (d->validator->validateNumber(int(value)) == QValidator::Acceptable)
        return QValidator::Acceptable;

    const qint64 step = qMax(1, singleStep());
    const bool hope = value > 0
        ? canGrow(value, minimum(), maximum(), step, displayIntegerBase())
        : canGrow(-value, -qint64(maximum()), -qint64(minimum()), step, displayIntegerBase());
    return hope ? QValidator::Intermediate : QValidator::Invalid;
}

} // namespace Corvale_Qt
