// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/EnglishTexts.h"

#include <QString>

namespace Monitor {

/*! A text that the window shows in its language and that stands in the log in English. Texts are made in both at once, because
    numbers and names in them may have changed later. */
class LoggedText
{
public:
    LoggedText() = default;
    //! A text that is the same in every language, such as the name of a source.
    LoggedText(const QString &text) // NOLINT(google-explicit-constructor): a name is such a text
        : m_shown(text)
        , m_logged(text)
    {
    }
    //! Makes a text by what \a make returns, which calls tr() and may use now() of other such texts.
    template<typename Make>
    static LoggedText of(Make make)
    {
        LoggedText text(make());
        const EnglishTexts english;
        text.m_logged = make();
        return text;
    }
    /*! Returns what the system or Qt says of an error, in both languages where it is a usual one; otherwise as it is, which is in
        English or in the language of the desktop. */
    static LoggedText ofSystem(const QString &error);

    bool isEmpty() const { return m_shown.isEmpty(); }
    QString shown() const { return m_shown; }
    QString logged() const { return m_logged; }
    //! Returns the text in the language in which texts are made at present.
    QString now() const { return EnglishTexts::areWanted() ? m_logged : m_shown; }

    bool operator==(const LoggedText &other) const
    {
        return m_shown == other.m_shown && m_logged == other.m_logged;
    }

private:
    QString m_shown;
    QString m_logged;
};

} // namespace Monitor
