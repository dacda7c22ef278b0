// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QPointer>
#include <QWidget>

namespace Monitor {

/*! Marks the part of any of the program's windows that has the focus, if the style does not mark it: plots, lists, texts,
    tabs. It also scrolls to each control that the Tab key leads to. */
class FocusRing : public QObject
{
    Q_OBJECT

public:
    explicit FocusRing(QObject *parent);
    ~FocusRing() override;

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void follow(QWidget *focused);
    void place();

    QPointer<QWidget> m_marked;
    QPointer<QWidget> m_ring; // a child of what it marks
};

} // namespace Monitor
