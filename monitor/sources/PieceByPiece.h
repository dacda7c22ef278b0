// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QPointer>

#include <functional>
#include <utility>

namespace Monitor {

//! Takes what a socket has received, a piece in each turn of the event loop, so that a flood leaves time for the window.
class PieceByPiece
{
public:
    /*! \a takePiece takes a piece, and returns whether more is there; it is not called any more once \a owner, of which this is a part,
        is gone. */
    PieceByPiece(QObject *owner, std::function<bool()> takePiece)
        : m_owner(owner)
        , m_takePiece(std::move(takePiece))
    {
    }

    //! Takes a piece, unless that is due in the next turn anyway.
    void go()
    {
        const QPointer<QObject> alive(m_owner);
        if (m_isDue || !m_takePiece() || !alive)
            return;
        m_isDue = true;
        QMetaObject::invokeMethod(
            m_owner,
            [this] {
                m_isDue = false;
                go();
            },
            Qt::QueuedConnection);
    }

private:
    QObject *const m_owner;
    const std::function<bool()> m_takePiece;
    bool m_isDue = false;
};

} // namespace Monitor
