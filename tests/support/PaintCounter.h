// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QEvent>
#include <QObject>
#include <QPaintEvent>
#include <QRegion>

//! Counts how often a widget is painted, or gets events of another type.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QObject *watched, QEvent::Type counted = QEvent::Paint)
        : m_counted(counted)
    {
        watched->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != m_counted)
            return false;
        ++count;
        if (m_counted == QEvent::Paint)
            painted = static_cast<QPaintEvent *>(event)->region();
        return false;
    }

    int count = 0;
    QRegion painted; //!< the last time

private:
    const QEvent::Type m_counted;
};
