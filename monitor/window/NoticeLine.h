// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QFrame>

class QLabel;
class QToolButton;

namespace Monitor {

//! One line across the window that tells a person something, in dark text on a ground of its own.
class NoticeLine : public QFrame
{
    Q_OBJECT

public:
    enum class Kind {
        Hint,
        Waiting,
        Trouble,
    };

    //! Hidden until there is something to tell.
    explicit NoticeLine(QWidget *parent = nullptr);

    //! Texts are shown as they are, never as markup; an empty one hides the line.
    void tell(const QString &text, Kind kind);
    QString text() const;
    //! Offers a button that takes the line away, for good as far as the host sees to it.
    void setDismissible(const QString &buttonText);

Q_SIGNALS:
    void dismissed();

private:
    void setGround(Kind kind);

    QLabel *m_label;
    QToolButton *m_button;
};

} // namespace Monitor
