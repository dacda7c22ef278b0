// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QObject>

#include <functional>

class QScrollBar;
class QTextCursor;
class QTextEdit;

namespace Corvale_Qt {

/*! Keeps the newest line of a log in sight, whatever changes the height of text or view, until the user scrolls up;
    then what is read stays in its place, until the end is in sight again. */
class LogScroll
{
public:
    explicit LogScroll(QTextEdit *view);

    //! Runs \a change, which may add text, drop text or lay it out anew.
    void keepDuring(const std::function<void()> &change);
    void follow();

private:
    qreal topOf(const QTextCursor &cursor) const;

    QTextEdit *const m_view;
    QScrollBar *const m_bar;
    //! Ends the connections to the scroll bar, which outlives this and may change its range while it goes.
    QObject m_context;
    bool m_isFollowing = true;
    bool m_isChanging = false;
};

} // namespace Corvale_Qt
