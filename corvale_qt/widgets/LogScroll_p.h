// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QObject>

#include <functional>

class QScrollBar;
class QTextCursor;
class QTextEdit;

namespace Corvale_Qt {

/*! Keeps the newest line of a log visible when the height of the text or of the view changes. After the user has
    scrolled up, it keeps the visible lines in place instead, until the end is visible again. */
class LogScroll
{
public:
    explicit LogScroll(QTextEdit *view);

    //! Runs \a change, which may add, drop or lay out text, and restores the scroll position afterwards.
    void keepDuring(const std::function<void()> &change);
    //! Scrolls to the newest line and follows it from now on.
    void follow();

private:
    qreal topOf(const QTextCursor &cursor) const;

    QTextEdit *const m_view;
    QScrollBar *const m_bar;
    //! Receives the scroll bar's signals. The connections end with this object, before the scroll bar is deleted.
    QObject m_context;
    bool m_isFollowing = true;
    bool m_isChanging = false;
};

} // namespace Corvale_Qt
