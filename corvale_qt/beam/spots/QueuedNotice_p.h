// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QMetaObject>

namespace Corvale_Qt {

/*! Emits a signal once when control returns to the event loop, however often it is posted before. A listener then sees a
    model that has ended its change, and may delete the sender. It must be a member of the sender or of its private part. */
class QueuedNotice
{
public:
    template<typename Sender>
    void post(Sender *sender, void (Sender::*signal)())
    {
        if (m_posted)
            return;
        m_posted = true;
        QMetaObject::invokeMethod(
            sender,
            [this, sender, signal] {
                m_posted = false;
                Q_EMIT(sender->*signal)();
            },
            Qt::QueuedConnection);
    }

private:
    bool m_posted = false;
};

} // namespace Corvale_Qt
