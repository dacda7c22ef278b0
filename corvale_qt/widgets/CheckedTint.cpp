// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/CheckedTint_p.h"
#include "corvale_qt/widgets/MixedColor_p.h"

#include <QAbstractButton>
#include <QEvent>
#include <QScopedValueRollback>

namespace Corvale_Qt {

CheckedTint::CheckedTint(QAbstractButton *button)
    : QObject(button)
    , m_button(button)
{
    button->installEventFilter(this);
    connect(button, &QAbstractButton::toggled, this, &CheckedTint::apply);
    apply();
}

bool CheckedTint::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange)
        apply();
    return false;
}

void CheckedTint::apply()
{
    if (m_isApplying)
        return; // the button tells of the palette that is being set
    QPalette own; // without colours of its own the button has those around it
    if (m_button->isChecked() && m_button->parentWidget()) {
        const QPalette &around = m_button->parentWidget()->palette();
        own.setColor(
            QPalette::Button,
            mixedColor(around.color(QPalette::Button), around.color(QPalette::Highlight), 0.5));
    }
    const QScopedValueRollback<bool> applying(m_isApplying, true);
    m_button->setPalette(own);
}

} // namespace Corvale_Qt
