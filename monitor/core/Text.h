// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QCoreApplication>

namespace Monitor {

//! Translates texts where no QObject shows them, in functions and in plain classes: Text::tr("...").
class Text
{
    Q_DECLARE_TR_FUNCTIONS(Monitor::Text)

public:
    /*! Translates a text in the form that \a count asks for, with \a count in the place of %n: counted("%n gap(s)", nullptr, 2)
        is "2 gaps". The English forms are in translations/corvale_monitor_en.ts; they need no installed language. */
    static QString counted(const char *text, const char *comment, qint64 count);
    //! The same where texts are English in every language: in the log, in files and on the command line.
    static QString countedInEnglish(const char *text, const char *comment, qint64 count);
    //! Returns why something is not done that needs a thread.
    static QString noThread() { return tr("the system cannot start another thread"); }
};

} // namespace Monitor
