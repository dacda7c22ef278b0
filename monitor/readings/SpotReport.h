// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/SpotErrors.h"

#include <QJsonObject>
#include <QTextStream>

namespace Monitor {

//! How spots differ from planned ones, as it is reported. A tolerance of 0 is none.
struct SpotReport
{
    SpotErrors errors;
    double toleranceX = 0.0;
    double toleranceY = 0.0;
    QString doseUnit = QStringLiteral("MU");

    //! Returns one line with the position errors, in mm.
    QString positions() const;
    //! Returns one line with the spots that only one list has, and with the doses.
    QString doses() const;
    //! Returns all numbers, with NaN as null.
    QJsonObject json() const;
};

} // namespace Monitor
