// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "tests/monitor/support/Dialogs.h"

/*! Finds the controls of the active window that the Tab key does not lead to, by pressing it until it has come round. Arrows
    lead through the choices of a group, and to the pages of tabs. */
class FocusWalk
{
public:
    explicit FocusWalk(QWidget *window)
        : m_window(window)
    {
    }

    //! Walks through the window, and through each of its pages.
    void walk()
    {
        walkPage();
        auto *tabs = m_window->findChild<QTabWidget *>();
        for (int page = 1; tabs && page < tabs->count(); ++page) {
            tabs->tabBar()->setFocus();
            press(Qt::Key_Right);
            if (tabs->currentIndex() != page)
                m_missed.append(QStringLiteral("page ") + tabs->tabText(page));
            walkPage();
        }
    }
    //! Returns the controls that were not reached, each as "QPushButton browse".
    QString missed() const { return m_missed.join(QStringLiteral(", ")); }
    int reached() const { return m_reached; }

private:
    void walkPage()
    {
        constexpr int mostStops = 200;
        QSet<QWidget *> stops;
        for (int i = 0; i < mostStops; ++i) {
            QWidget *stop = QApplication::focusWidget();
            if (i > 0 && stops.contains(stop) && stop == m_first)
                break;
            m_first = i == 0 ? stop : m_first;
            stops.insert(stop);
            press(Qt::Key_Tab);
        }
        for (const QWidget *control : m_window->findChildren<QWidget *>()) {
            if (!needsFocus(control))
                continue;
            if (stops.contains(const_cast<QWidget *>(control)))
                ++m_reached;
            else
                m_missed.append(QStringLiteral("%1 %2 \"%3\"")
                                    .arg(control->metaObject()->className(), control->objectName(),
                                         control->property("text").toString()));
        }
    }
    bool needsFocus(const QWidget *control) const
    {
        const auto *choice = qobject_cast<const QRadioButton *>(control);
        const bool isReachedByArrows = choice && !choice->isChecked();
        // The parts of a control belong to it, as does the field in a box of numbers.
        const bool isPart = qobject_cast<const QAbstractSpinBox *>(control->parentWidget())
            || qobject_cast<const QComboBox *>(control->parentWidget())
            || qobject_cast<const QAbstractItemView *>(control->parentWidget())
            || qobject_cast<const QHeaderView *>(control) || control->focusProxy();
        const bool isOperated = qobject_cast<const QAbstractButton *>(control)
            || qobject_cast<const QAbstractItemView *>(control)
            || qobject_cast<const QAbstractSpinBox *>(control)
            || qobject_cast<const QComboBox *>(control) || qobject_cast<const QLineEdit *>(control)
            || qobject_cast<const QPlainTextEdit *>(control);
        return isOperated && !isPart && !isReachedByArrows && control->isEnabled()
            && control->isVisibleTo(m_window) && control->window() == m_window;
    }

    QWidget *const m_window;
    QWidget *m_first = nullptr;
    QStringList m_missed;
    int m_reached = 0;
};
