// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QScrollArea>

namespace Corvale_Qt {

/*! Scrolls up and down only: always as wide as what it holds needs, with room for the scroll bar. It would like to be
    so high that nothing needs scrolling. */
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
