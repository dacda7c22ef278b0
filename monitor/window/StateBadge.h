// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QLabel>

namespace Monitor {

//! A state, such as ZEROED, in the upper right corner of the numbers that it concerns; it takes no room in a layout.
class StateBadge : public QLabel
{
    Q_OBJECT

public:
    //! The badge lies on \a numbers, and is hidden until it has a text.
    explicit StateBadge(QWidget *numbers);
    //! Shows a state; an empty text hides the badge.
    void tell(const QString &state);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void place();
};

} // namespace Monitor
