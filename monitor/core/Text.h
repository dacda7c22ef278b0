// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QCoreApplication>

namespace Monitor {

//! Translates texts where no QObject shows them, in functions and in plain classes: Text::tr("...").
class Text
{
    Q_DECLARE_TR_FUNCTIONS(Monitor::Text)
};

} // namespace Monitor
