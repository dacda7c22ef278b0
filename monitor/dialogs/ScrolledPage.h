// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QScrollArea>

namespace Monitor {

//! A page of a dialog, which scrolls where there is no room for all of it, and looks like any other page where there is.
class ScrolledPage : public QScrollArea
{
    Q_OBJECT

public:
    //! Takes the ownership of \a page; without one, setPage() follows.
    explicit ScrolledPage(QWidget *page, QWidget *parent = nullptr);
    void setPage(QWidget *page);
    //! Makes this no wider than the page asks for; otherwise its explanations have the width of a line that is easily read.
    void setNarrow() { m_isNarrow = true; }

    //! Returns a size that shows the whole page without scrolling.
    QSize sizeHint() const override;
    //! Returns the least width at which the page needs no scrolling sideways.
    QSize minimumSizeHint() const override;

private:
    bool m_isNarrow = false;
};

} // namespace Monitor
