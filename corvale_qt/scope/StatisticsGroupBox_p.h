// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QEvent>
#include <QGroupBox>

namespace Corvale_Qt {

/*! A checkable group box of the statistics page. Some of its editors have an effect even while it is switched off.

    A box that is off disables its children again whenever it is enabled, and each child when it is shown for the first
    time. The signal lets the page enable the editors that it needs. */
class StatisticsGroupBox : public QGroupBox
{
    Q_OBJECT

public:
    using QGroupBox::QGroupBox;

Q_SIGNALS:
    //! The box, which is off, may have disabled its children.
    void childrenDisabled();

protected:
    bool event(QEvent *event) override
    {
        const bool handled = QGroupBox::event(event);
        const QEvent::Type type = event->type();
        if (!isChecked() && (type == QEvent::EnabledChange || type == QEvent::ChildPolished))
            Q_EMIT childrenDisabled();
        return handled;
    }
};

} // namespace Corvale_Qt
