// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QFrame>

class QAbstractButton;
class QLabel;
class QToolButton;

namespace Monitor {

//! A notice across the window, in dark text on a coloured background.
class NoticeLine : public QFrame
{
    Q_OBJECT

public:
    //! What a notice is about; each kind has its background colour.
    enum class Kind {
        Hint,
        Waiting,
        Trouble,
    };

    //! The line is hidden until tell() gets a text.
    explicit NoticeLine(QWidget *parent = nullptr);

    //! Shows a text as it is, never as markup; an empty text hides the line.
    void tell(const QString &text, Kind kind);
    //! Returns the text that is shown; empty while the line is hidden.
    QString text() const;
    //! Adds a button that hides the line and emits dismissed(); the host decides whether the line comes back.
    void setDismissible(const QString &buttonText);
    //! Adds a button before that one, which leaves the line where it is.
    QAbstractButton *addButton(const QString &buttonText);

Q_SIGNALS:
    //! Emitted when the button was clicked.
    void dismissed();

private:
    QLabel *m_label;
    QToolButton *m_button;
};

} // namespace Monitor
