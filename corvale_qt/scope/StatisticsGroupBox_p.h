// SPDX-License-Identifier: LGPL-2.1-or-later
/* +------------------------------------------------------------------+
   | Not part of the interface: this header may change in any version. |
   +------------------------------------------------------------------+ */
#pragma once

#include <QEvent>
#include <QGroupBox>

namespace Corvale_Qt {

/*! A checkable group box of the statistics page, some of whose editors are used while it is switched off.

    A box that is off disables its children again whenever it is enabled, and each of them when it is shown for the first
    time. The page hears of that, and enables the editors that it needs. */
class StatisticsGroupBox : public QGroupBox
{
    Q_OBJECT

public:
    using QGroupBox::QGroupBox;

Q_SIGNALS:
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
