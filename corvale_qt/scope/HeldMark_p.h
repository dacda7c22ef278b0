// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QFrame>

class QLabel;
class QToolButton;

namespace Corvale_Qt {

//! A mark on the canvas that says that the picture stands still or is zoomed, with a button that ends this.
class HeldMark : public QFrame
{
    Q_OBJECT

public:
    explicit HeldMark(QWidget *canvas);

    //! Says that the picture stands still; \a detail says what is missing in it, and may be empty.
    void showHeld(const QString &detail);
    //! Says that only the y axis is zoomed.
    void showZoomed();
    //! Moves to the lower right corner of the canvas.
    void place();

Q_SIGNALS:
    //! The operator wants to see the newest samples again.
    void liveAsked();

private:
    void tell(const QString &text, const QString &button, const QString &toolTip);

    QLabel *m_text;
    QToolButton *m_button;
};

} // namespace Corvale_Qt
