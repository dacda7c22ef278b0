// SPDX-License-Identifier: LGPL-2.1-or-later
/* +------------------------------------------------------------------+
   | Not part of the interface: this header may change in any version. |
   +------------------------------------------------------------------+ */
#pragma once

class QTabBar;

namespace Corvale_Qt {

/*! The tabs of the panel, one for each plot mode on offer. A tab carries its mode with it, so that it stays the
    right one when tabs in front of it come and go. */
class PlotModeTabs
{
public:
    explicit PlotModeTabs(QTabBar *bar)
        : m_bar(bar)
    {
    }

    //! Adds a tab for the mode, at the end; its index.
    int add(int mode);
    //! Removes the tab of the mode, if there is one.
    void remove(int mode);
    //! The index of the mode's tab; -1 while it has none.
    int indexOf(int mode) const;
    //! The mode of a tab. An index that has none stands for itself.
    int modeAt(int index) const;
    void retranslate();

private:
    void setTitle(int index);

    QTabBar *const m_bar;
};

} // namespace Corvale_Qt
