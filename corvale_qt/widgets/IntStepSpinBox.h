// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QSpinBox>

namespace Corvale_Qt {

class IntStepSpinBoxPrivate;

/*! A spin box whose user can enter only multiples of its single step.

    A number that is no multiple yet, but can become one within the range by further digits, may stand in the
    field while it is typed; it never becomes the value. Arrows, page keys and wheel lead from multiple to multiple
    within the range. A value set by code is not changed, multiple or not; the next step leads to its neighbour.
    Range, step, prefix, suffix, special value text and number base are those of the moment.

    \code
    auto *gain = new IntStepSpinBox(panel);
    gain->setRange(0, 100);
    gain->setSingleStep(5); // "1" may become "15"; "12" is refused
    \endcode */
class CORVALE_QT_EXPORT IntStepSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit IntStepSpinBox(QWidget *parent = nullptr);
    ~IntStepSpinBox() override;

    /*! The weaker of what QSpinBox and IntStepValidator say, but Intermediate where digits can make a multiple, and
        for the value itself. */
    QValidator::State validate(QString &text, int &pos) const override;
    void stepBy(int steps) override;

protected:
    StepEnabled stepEnabled() const override;

private:
    Q_DECLARE_PRIVATE(IntStepSpinBox)
    const QScopedPointer<IntStepSpinBoxPrivate> d_ptr;
};

} // namespace Corvale_Qt
