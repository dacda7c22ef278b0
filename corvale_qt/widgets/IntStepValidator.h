// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QIntValidator>

namespace Corvale_Qt {

/*! Accepts whole numbers of a range that are multiples of a step: gains, sample counts and the like, which the
    hardware takes in fixed increments.

    A number of the range that is no multiple is Invalid, so that on a plain line edit a multiple whose
    beginning is none cannot be typed key by key; IntStepSpinBox can. */
class CORVALE_QT_EXPORT IntStepValidator : public QIntValidator
{
    Q_OBJECT

public:
    //! A \a step of 0 is taken as 1; its sign does not matter.
    IntStepValidator(int bottom, int top, int step, QObject *parent = nullptr);

    void setSingleStep(int step);

    State validate(QString &input, int &pos) const override;

private:
    int m_step;
};

} // namespace Corvale_Qt
