// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtTest>
#include <QtWidgets>

#include <functional>

/*! Calls \a act with the next modal dialog or message, as soon as there is one, and closes it if \a act leaves it open. The
    test goes on behind what has opened it. */
inline void onNextDialog(std::function<void(QDialog *)> act)
{
    QTimer::singleShot(0, qApp, [act] {
        const QPointer<QDialog> dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog) {
            onNextDialog(act);
            return;
        }
        act(dialog);
        if (dialog && dialog->isVisible())
            dialog->reject();
    });
}

//! Runs \a act, and calls \a look with each modal dialog that it opens, which is then closed.
inline void onEveryDialog(const std::function<void(QDialog *)> &look,
                          const std::function<void()> &act)
{
    QTimer poll;
    bool isLooking = false;
    QObject::connect(&poll, &QTimer::timeout, qApp, [&] {
        const QPointer<QDialog> dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || isLooking)
            return;
        isLooking = true;
        look(dialog);
        isLooking = false;
        if (dialog)
            dialog->reject();
    });
    poll.start(0);
    act();
}

//! Clicks the button of a dialog whose text, without its mnemonic, is this.
inline void clickButton(const QWidget *dialog, const QString &text)
{
    for (QAbstractButton *button : dialog->findChildren<QAbstractButton *>())
        if (button->text().remove(QLatin1Char('&')) == text)
            return QTest::mouseClick(button, Qt::LeftButton);
    QFAIL(qPrintable("no button " + text));
}

//! Types into the window that has the keyboard, as a keyboard does: shortcuts and menus see the keys first.
inline void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QWidget *popup = QApplication::activePopupWidget();
    QWidget *window = popup ? popup : QApplication::activeWindow();
    QTest::keyClick(window->windowHandle(), key, modifiers);
}

/*! Returns the visible parts of a window whose text has not the room that it needs: "QLabel source 40 of 52 wide". Parts
    that scroll, or that may be of any width, are left out. */
inline QStringList clippedParts(const QWidget *window)
{
    QStringList clipped;
    const auto check = [&](const QWidget *part) {
        const QSize need = part->sizeHint();
        const bool wraps = part->hasHeightForWidth();
        const bool anyWidth = part->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
        const QString name = QStringLiteral("%1 %2 \"%3\"")
                                 .arg(part->metaObject()->className(),
                                      part->objectName(),
                                      part->property("text").toString().left(30));
        const int height = wraps ? part->heightForWidth(part->width()) : need.height();
        if (!wraps && !anyWidth && part->width() < need.width())
            clipped.append(
                QStringLiteral("%1: %2 of %3 wide").arg(name).arg(part->width()).arg(need.width()));
        if (part->height() < height)
            clipped.append(
                QStringLiteral("%1: %2 of %3 high").arg(name).arg(part->height()).arg(height));
    };
    for (const QWidget *part : window->findChildren<QWidget *>()) {
        const bool hasText = qobject_cast<const QLabel *>(part)
            || qobject_cast<const QPushButton *>(part) || qobject_cast<const QCheckBox *>(part)
            || qobject_cast<const QRadioButton *>(part) || qobject_cast<const QComboBox *>(part)
            || qobject_cast<const QAbstractSpinBox *>(part);
        if (hasText && part->isVisibleTo(window) && part->window() == window)
            check(part);
    }
    return clipped;
}
