// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/EditMenu.h"

#include "monitor/window/DisplayTabs.h"
#include "monitor/window/LatestValuePanel.h"
#include "monitor/window/PictureActions.h"
#include "monitor/window/Symbols.h"
#include <corvale_qt/scope/RVXScope.h>

#include <QAbstractButton>

namespace Monitor {

EditMenu::EditMenu(DisplayTabs &displays,
                   LatestValuePanel &values,
                   const PictureActions &pictures,
                   QAction *undoClear,
                   QWidget *window)
    : QMenu(tr("&Edit"), window)
{
    QAction *copy = addAction(symbol(QStringLiteral("copy")),
                              tr("&Copy values"),
                              &values,
                              &LatestValuePanel::copyValues);
    copy->setObjectName(QStringLiteral("copyValues"));
    copy->setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_V));
    addAction(pictures.copyAction());
    addSeparator();
    // The panel's button asks first, as it does when it is clicked.
    QAction *clear =
        addAction(symbol(QStringLiteral("clear")), tr("C&lear readings..."), this, [&displays] {
            if (auto *button =
                    displays.scope()->findChild<QAbstractButton *>(QStringLiteral("clearButton")))
                button->click();
        });
    clear->setObjectName(QStringLiteral("clear"));
    clear->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_L));
    undoClear->setIcon(symbol(QStringLiteral("undo")));
    addAction(undoClear);
}

} // namespace Monitor
