// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtGlobal>

namespace Monitor {

/*! While it lives, texts of the library and the program are English in this thread, whatever the language of the window: for
    events of the log, which stand in recordings as well. */
class EnglishTexts
{
public:
    EnglishTexts() { ++s_count; }
    ~EnglishTexts() { --s_count; }
    Q_DISABLE_COPY_MOVE(EnglishTexts)

    static bool areWanted() { return s_count > 0; }

private:
    static inline thread_local int s_count = 0;
};

} // namespace Monitor
