// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/ScrolledPage.h"

#include <QScrollBar>

#include <algorithm>

namespace Monitor {

ScrolledPage::ScrolledPage(QWidget *page, QWidget *parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // explanations wrap
    setFocusPolicy(Qt::NoFocus); // Tab leads from the tabs to the first field
    setWidgetResizable(true);
    if (page)
        setPage(page);
}

void ScrolledPage::setPage(QWidget *page)
{
    setWidget(page);
    viewport()->setAutoFillBackground(false); // the ground is that of the tabs
    page->setAutoFillBackground(false);
}

QSize ScrolledPage::sizeHint() const
{
    constexpr int columns = 80;
    const int width =
        m_isNarrow ? minimumSizeHint().width() : fontMetrics().averageCharWidth() * columns;
    return {width, std::max(widget()->heightForWidth(width), widget()->sizeHint().height())};
}

QSize ScrolledPage::minimumSizeHint() const
{
    const QSize least = QScrollArea::minimumSizeHint();
    return {std::max(least.width(),
                     widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width()),
            least.height()};
}

} // namespace Monitor
