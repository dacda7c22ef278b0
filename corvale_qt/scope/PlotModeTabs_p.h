// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QString>

class QTabBar;

namespace Corvale_Qt {

/*! The tabs of the panel, one for each available plot mode. Each tab stores its mode as tab data, so that adding and
    removing other tabs does not change what it stands for. */
class PlotModeTabs
{
public:
    //! Works on \a bar, which is not owned.
    explicit PlotModeTabs(QTabBar *bar)
        : m_bar(bar)
    {
    }

    //! Returns the title of a mode's tab, in the current language.
    static QString titleOf(int mode);

    //! Adds a tab for the mode at the end and returns its index.
    int add(int mode);
    //! Adds a tab for the mode in front of the first tab of a later mode.
    void insert(int mode);
    //! Removes the tab of the mode, if there is one.
    void remove(int mode);
    //! Returns the index of the mode's tab, or -1 if it has none.
    int indexOf(int mode) const;
    //! Returns the mode of a tab, or \a index itself if there is no such tab.
    int modeAt(int index) const;
    //! Returns the modes that have a tab as RVXScope::PlotTab flags.
    int flags() const;
    //! Sets the titles again, in the current language.
    void retranslate();

private:
    void place(int index, int mode);
    void setTitle(int index);

    QTabBar *const m_bar;
};

} // namespace Corvale_Qt
