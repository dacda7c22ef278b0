// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QCoreApplication>

//! Translates the texts of the plugin: TangoText::tr("...").
class TangoText
{
    Q_DECLARE_TR_FUNCTIONS(TangoText)
};
