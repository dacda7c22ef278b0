// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QIntValidator>

namespace Corvale_Qt {

/*! Accepts the whole numbers of a range that are multiples of a step, for example gains or sample counts that the
    hardware takes in fixed increments.

    A number within the range that is not a multiple is Invalid. In a plain line edit the user can therefore not type
    "15" for a step of 5, because "1" is refused; use IntStepSpinBox for that. */
class CORVALE_QT_EXPORT IntStepValidator : public QIntValidator
{
    Q_OBJECT

public:
    //! Accepts multiples of \a step from \a bottom to \a top. A step of 0 counts as 1; its sign does not matter.
    IntStepValidator(int bottom, int top, int step, QObject *parent = nullptr);

    //! Sets the step for later calls of validate(). A step of 0 counts as 1; its sign does not matter.
    void setSingleStep(int step);

    State validate(QString &input, int &pos) const override;

private:
    int m_step;
};

} // namespace Corvale_Qt
