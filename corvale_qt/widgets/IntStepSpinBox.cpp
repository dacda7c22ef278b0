// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/IntStepSpinBox.h"

#include "corvale_qt/widgets/IntStepValidator.h"

#include <QLineEdit>
#include <QPointer>

namespace Corvale_Qt {

namespace {

/*! The validator of the spin box's line edit. It passes the text on, with prefix and suffix, since the spin box decides
    whether a text is valid. */
class LineEditValidator final : public IntStepValidator
{
public:
    explicit LineEditValidator(IntStepSpinBox *box)
        : IntStepValidator(box->minimum(), box->maximum(), box->singleStep(), box)
        , m_box(box)
    {
        // The base class checks only numbers that validateNumber() has written in the C locale.
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

//! Returns the largest multiple of \a step that is not above \a number.
qint64 multipleBelow(qint64 number, qint64 step)
{
    const qint64 rest = number % step;
    return number - (rest < 0 ? rest + step : rest);
}

qint64 multipleAbove(qint64 number, qint64 step)
{
    return -multipleBelow(-number, step);
}

//! Returns whether [low, high] contains a multiple of \a step. Neither limit may be negative.
bool holdsMultiple(qint64 low, qint64 high, qint64 step)
{
    return low <= high && multipleBelow(high, step) >= low;
}

/*! Returns whether digits appended to \a number can make a multiple of \a step of at most \a limit. All numbers are
    magnitudes, and \a number is not 0. */
bool canGrow(qint64 number, qint64 limit, qint64 step, qint64 base)
{
    qint64 low = number;
    qint64 high = number;
    while (low <= limit / base) {
        low *= base;
        high = high * base + base - 1;
        if (holdsMultiple(low, qMin(high, limit), step))
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

    // Code may have set a value that is not a multiple. If it were Invalid, the line edit would accept any next key.
    if (value == this->value())
        return QValidator::Intermediate;

    const qint64 step = qMax(1, singleStep());
    const bool hope = value > 0 ? canGrow(value, maximum(), step, displayIntegerBase())
                                : canGrow(-value, -qint64(minimum()), step, displayIntegerBase());
    return hope ? QValidator::Intermediate : QValidator::Invalid;
}

void IntStepSpinBox::stepBy(int steps)
{
    const QPointer<IntStepSpinBox> alive = this;
    interpretText();
    if (!alive)
        return;
    const qint64 step = qMax(1, singleStep());
    const qint64 lowest = multipleAbove(minimum(), step);
    const qint64 highest = multipleBelow(maximum(), step);
    const bool isUp = steps > 0;
    qint64 next = isUp ? multipleBelow(value(), step) : multipleAbove(value(), step);
    next = isUp ? qMin(next + steps * step, highest) : qMax(next + steps * step, lowest);
    if (wrapping() && (isUp ? next <= value() : next >= value()))
        next = isUp ? lowest : highest;
    // False if there is no further multiple in that direction.
    const bool goesOn = wrapping() || (isUp ? next > value() : next < value());
    if (steps != 0 && singleStep() != 0 && lowest <= highest && goesOn)
        setValue(int(next));
    if (alive)
        selectAll();
}

QAbstractSpinBox::StepEnabled IntStepSpinBox::stepEnabled() const
{
    StepEnabled enabled = QSpinBox::stepEnabled();
    if (wrapping())
        return enabled;
    const qint64 step = qMax(1, singleStep());
    enabled.setFlag(StepUpEnabled,
                    (enabled & StepUpEnabled) && multipleBelow(maximum(), step) > value());
    enabled.setFlag(StepDownEnabled,
                    (enabled & StepDownEnabled) && multipleAbove(minimum(), step) < value());
    return enabled;
}

} // namespace Corvale_Qt
