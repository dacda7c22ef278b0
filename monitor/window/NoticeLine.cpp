// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/NoticeLine.h"

#include "monitor/window/Look.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace Monitor {

namespace {

Look::State stateOf(NoticeLine::Kind kind)
{
    switch (kind) {
    case NoticeLine::Kind::Trouble:
        return Look::State::Trouble;
    case NoticeLine::Kind::Waiting:
        return Look::State::Waiting;
    case NoticeLine::Kind::Hint:
        break;
    }
    return Look::State::Hint;
}

} // namespace

NoticeLine::NoticeLine(QWidget *parent)
    : QFrame(parent)
    , m_label(new QLabel(this))
    , m_button(new QToolButton(this))
{
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    m_label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_button->hide();
    connect(m_button, &QToolButton::clicked, this, [this] {
        hide();
        Q_EMIT dismissed();
    });
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Look::gap, Look::gap / 2, Look::gap, Look::gap / 2);
    layout->addWidget(m_label, 1);
    layout->addWidget(m_button);
    hide();
}

void NoticeLine::tell(const QString &text, Kind kind)
{
    if (text != m_label->text()) {
        m_label->setText(text);
        setAccessibleName(text);
        Look::dress(this, stateOf(kind));
        // A screen reader says it at once, wherever the keyboard is.
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
    setVisible(!text.isEmpty());
}

QString NoticeLine::text() const
{
    return isHidden() ? QString() : m_label->text();
}

void NoticeLine::setDismissible(const QString &buttonText)
{
    m_button->setText(buttonText);
    m_button->show();
}

QAbstractButton *NoticeLine::addButton(const QString &buttonText)
{
    auto *button = new QToolButton(this);
    button->setText(buttonText);
    auto *box = qobject_cast<QBoxLayout *>(layout());
    box->insertWidget(box->indexOf(m_button), button);
    return button;
}

} // namespace Monitor
