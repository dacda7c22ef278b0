// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QSpinBox>

namespace Corvale_Qt {

class IntStepSpinBoxPrivate;

/*! A spin box that lets the user enter only multiples of its single step.

    While the user types, the field accepts a number that further digits can turn into a multiple within the range;
    such a number never becomes the value. Arrow keys, page keys and wheel step from multiple to multiple within the
    range. A value set by code is kept even if it is not a multiple; the next step goes to the nearest multiple in its
    direction. Range, step, prefix, suffix, special value text and number base may change at any time.

    \code
    auto *gain = new IntStepSpinBox(panel);
    gain->setRange(0, 100);
    gain->setSingleStep(5); // "1" may become "15"; "12" is refused
    \endcode */
class CORVALE_QT_EXPORT IntStepSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    //! Creates a spin box with QSpinBox's range, 0 to 99, and a step of 1.
    explicit IntStepSpinBox(QWidget *parent = nullptr);
    ~IntStepSpinBox() override;

    /*! Returns the stricter of the answers of QSpinBox and IntStepValidator, except that the current value and a number
        that further digits can turn into a multiple are Intermediate. */
    QValidator::State validate(QString &text, int &pos) const override;
    void stepBy(int steps) override;

protected:
    StepEnabled stepEnabled() const override;

private:
    Q_DECLARE_PRIVATE(IntStepSpinBox)
    const QScopedPointer<IntStepSpinBoxPrivate> d_ptr;
};

} // namespace Corvale_Qt
