// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/NoticeLine.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace Monitor {

namespace {

QColor groundOf(NoticeLine::Kind kind)
{
    switch (kind) {
    case NoticeLine::Kind::Trouble:
        return {255, 176, 160};
    case NoticeLine::Kind::Waiting:
        return {255, 224, 138};
    case NoticeLine::Kind::Hint:
        break;
    }
    return {205, 228, 255};
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
    layout->setContentsMargins(8, 3, 8, 3);
    layout->addWidget(m_label, 1);
    layout->addWidget(m_button);
    setAutoFillBackground(true);
    hide();
}

void NoticeLine::tell(const QString &text, Kind kind)
{
    if (text != m_label->text()) {
        m_label->setText(text);
        setGround(kind);
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

//! Sets the background of that kind, which is the same in light and dark palettes so that nobody misses the notice.
void NoticeLine::setGround(Kind kind)
{
    QPalette colours = palette();
    const QColor ground = groundOf(kind);
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button})
        colours.setColor(role, ground);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(role, Qt::black);
    setPalette(colours);
}

} // namespace Monitor
