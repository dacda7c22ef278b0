// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QEvent>
#include <QObject>

//! Counts how often a widget is painted.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QObject *watched) { watched->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }

    int count = 0;
};
