// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

class QScrollBar;
class QWidget;

namespace Corvale_Qt {

//! What plot modes and markers need of the widget that shows the plot.
class ScopeSurface
{
public:
    virtual ~ScopeSurface() = default;

    //! Shows \a widget, the plot or one of its companions, and hides the others.
    virtual void showOnly(QWidget *widget) = 0;
    virtual void showScrollBar(bool shown) = 0;
    //! Returns the horizontal scroll bar; it exists while it is hidden, too.
    virtual QScrollBar *scrollBar() const = 0;
    //! Asks for a plot at the next repaint.
    virtual void requestReplot() = 0;
    //! Makes one cell of the model the selection of the view.
    virtual void selectCell(int row, int column) = 0;
};

} // namespace Corvale_Qt
