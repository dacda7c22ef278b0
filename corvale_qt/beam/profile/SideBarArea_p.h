// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QScrollArea>

namespace Corvale_Qt {

/*! A scroll area that scrolls vertically only. It is always as wide as its contents need, plus the scroll bar. Its
    size hint is high enough to show everything without scrolling. */
class SideBarArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit SideBarArea(QWidget *parent = nullptr);
    ~SideBarArea() override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace Corvale_Qt
