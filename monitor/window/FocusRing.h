// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QPointer>
#include <QWidget>

namespace Monitor {

/*! Marks the part of any of the program's windows that the keyboard has led the focus to, if the style does not mark it: plots,
    lists, texts, tabs. A press of the mouse marks nothing. It also scrolls to each control that the Tab key leads to. */
class FocusRing : public QObject
{
    Q_OBJECT

public:
    explicit FocusRing(QObject *parent);
    ~FocusRing() override;

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void follow(QWidget *focused);
    void mark(QWidget *focused);
    void place();

    QPointer<QWidget> m_focused;
    QPointer<QWidget> m_ring; //!< a child of what has the focus
    Qt::FocusReason m_reason = Qt::OtherFocusReason; //!< why the focus has left its last place
    bool m_isByKeys = false;
};

} // namespace Monitor
