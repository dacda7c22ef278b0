// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/HeldMark_p.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace Corvale_Qt {

HeldMark::HeldMark(QWidget *canvas)
    : QFrame(canvas)
    , m_text(new QLabel(this))
    , m_button(new QToolButton(this))
{
    setObjectName(QStringLiteral("heldMark"));
    // The canvas is black in every palette, and so is the text on the mark.
    setStyleSheet(QStringLiteral("#heldMark { background: #ffc83d; border: 1px solid black; }"
                                 "#heldMark QLabel { color: black; font-weight: bold; }"
                                 "#heldMark QToolButton { color: black; background: #fff2cc;"
                                 " border: 1px solid #7a5c00; padding: 1px 6px; }"
                                 "#heldMark QToolButton:hover { background: white; }"));
    setCursor(Qt::ArrowCursor);
    m_text->setTextFormat(Qt::PlainText);
    m_button->setObjectName(QStringLiteral("liveButton"));
    m_button->setFocusPolicy(
        Qt::NoFocus); // End does the same, and a click must not take the keys away
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 3, 2);
    layout->addWidget(m_text);
    layout->addWidget(m_button);
    connect(m_button, &QToolButton::clicked, this, &HeldMark::liveAsked);
}

void HeldMark::showHeld(const QString &detail)
{
    const QString held = tr("Held");
    tell(detail.isEmpty() ? held : tr("%1: %2").arg(held, detail),
         tr("Live"),
         tr("The picture stands still while readings come. Show the newest ones again (End)."));
}

void HeldMark::showZoomed()
{
    tell(tr("Y zoomed"),
         tr("Whole"),
         tr("The y axis shows a part of its scale. Show the whole scale again (End)."));
}

void HeldMark::tell(const QString &text, const QString &button, const QString &toolTip)
{
    if (m_text->text() != text || m_button->text() != button) {
        m_text->setText(text);
        m_button->setText(button);
        m_button->setToolTip(toolTip);
        m_button->setAccessibleName(button);
        m_button->setAccessibleDescription(toolTip);
        setAccessibleName(text);
        place();
    }
    show();
}

void HeldMark::place()
{
    constexpr int distance = 6;
    const QSize canvas = parentWidget()->size();
    const QSize size = sizeHint().boundedTo(canvas);
    setGeometry(QRect(QPoint(canvas.width() - size.width() - distance,
                             canvas.height() - size.height() - distance),
                      size));
}

} // namespace Corvale_Qt
