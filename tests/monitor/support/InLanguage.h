// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/program/Language.h"

//! Shows what is opened while it lives in one language.
struct InLanguage
{
    explicit InLanguage(const QString &code) { Monitor::installLanguage(code); }
    ~InLanguage() { Monitor::installLanguage("en"); }
};
