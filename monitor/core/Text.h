// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QCoreApplication>

namespace Monitor {

//! Translates texts where no QObject shows them, in functions and in plain classes: Text::tr("...").
class Text
{
    Q_DECLARE_TR_FUNCTIONS(Monitor::Text)

public:
    //! Returns "1 gap" or "2 gaps", where texts are English in every language.
    static QString counted(qint64 count, const char *noun)
    {
        const QString text = QString::number(count) + QLatin1Char(' ') + QLatin1String(noun);
        return count == 1 ? text : text + QLatin1Char('s');
    }
    //! Returns why something is not done that needs a thread.
    static QString noThread() { return tr("the system cannot start another thread"); }
};

} // namespace Monitor
