// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/HoverReading_p.h"

#include <QPointer>
#include <QWidget>

namespace Corvale_Qt {

/*! A box that lists the readings at the pointer, and a vertical line at their sample. Both are opaque widgets on the canvas: when
    they change, the plot below them is not made anew. */
class HoverCursor : public QWidget
{
    Q_OBJECT

public:
    explicit HoverCursor(QWidget *canvas);
    ~HoverCursor() override;

    //! Shows a reading, with its line at pixel \a x of the canvas.
    void showReading(const HoverReading &reading, int x);
    void hideReading();
    //! Returns what the box says, a line for each channel; empty while it is hidden.
    Q_INVOKABLE QString text() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    struct Column
    {
        int first;
        int count;
        int nameWidth;
        int valueWidth;
    };

    QSize arrange();
    void place(const QSize &size, int x);

    HoverReading m_reading;
    QVector<Column> m_columns;
    int m_left = 0; //!< channels for which the box has no room
    QPointer<QWidget> m_line; //!< the canvas owns it
};

} // namespace Corvale_Qt
