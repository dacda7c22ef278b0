// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtTest>
#include <QtWidgets>

#include <functional>

/*! Calls \a act with the next modal dialog or message, as soon as there is one, and closes it if \a act leaves it open. The
    test goes on behind what has opened it. */
inline void onNextDialog(const std::function<void(QDialog *)> &act)
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

//! Collects the parts of windows that have too little room for their text.
class ClippedTexts
{
public:
    //! \a faults returns what else is wrong with the texts of a part.
    explicit ClippedTexts(const QSize &screen,
                          std::function<QStringList(const QWidget *)> faults = {})
        : m_screen(screen)
        , m_faults(std::move(faults))
    {
    }

    QSize screen() const { return m_screen; }
    //! Looks at everything that is visible in a window; \a place says in the result where that was.
    void look(const QString &place, const QWidget *window)
    {
        // What changed just now gets its room in the same turn of the event loop, before it is painted.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        for (const QWidget *part : window->findChildren<QWidget *>())
            if (part->isVisibleTo(window) && part->window() == window)
                lookAt(place, part);
    }
    //! Looks at a menu as it is when it is open.
    void lookAtMenu(const QMenu *menu)
    {
        QSize need; // in one column; Qt breaks it on the screen of the tests, which may be lower
        menu->sizeHint();
        for (QAction *entry : menu->actions()) {
            const QSize size = menu->actionGeometry(entry).size();
            need = {std::max(need.width(), size.width()), need.height() + size.height()};
        }
        requireRoom(menu->title(), menu, need);
    }
    //! Requires that a window is no larger than the screen.
    void require(const QString &place, const QWidget *window)
    {
        requireRoom(place, window, window->size());
    }
    //! Returns a line for each: "File > Open...: QLabel source, 40 x 12 of 52 x 12".
    QString text()
    {
        m_lines.removeDuplicates();
        return m_lines.join('\n');
    }
    int looked() const { return m_looked; }

private:
    void requireRoom(const QString &place, const QWidget *part, const QSize &need)
    {
        if (need.width() > m_screen.width() || need.height() > m_screen.height())
            add(place, part, need, m_screen);
    }
    void add(const QString &place, const QWidget *part, const QSize &need, const QSize &has)
    {
        m_lines.append(QStringLiteral("%1: %2 %3 \"%4\", %5 x %6 of %7 x %8")
                           .arg(place, part->metaObject()->className(), part->objectName(),
                                part->property("text").toString().left(30))
                           .arg(has.width())
                           .arg(has.height())
                           .arg(need.width())
                           .arg(need.height()));
    }
    void lookAt(const QString &place, const QWidget *part)
    {
        ++m_looked;
        if (m_faults)
            for (const QString &fault : m_faults(part))
                m_lines.append(place + ": \"" + fault + '"');
        if (const auto *header = qobject_cast<const QHeaderView *>(part))
            lookAtHeader(place, header);
        else if (part->objectName() == "latestValues")
            lookAtValues(place, qobject_cast<const QTableView *>(part));
        else if (const auto *list = qobject_cast<const QListWidget *>(part))
            lookAtWidth(place, list, list->sizeHintForColumn(0), list->viewport()->width());
        else if (const auto *tabs = qobject_cast<const QTabBar *>(part))
            lookAtWidth(place, tabs, tabs->sizeHint().width(), tabs->width());
        else if (const auto *menus = qobject_cast<const QMenuBar *>(part))
            lookAtWidth(place, menus, menus->sizeHint().width(), menus->width());
        else if (const auto *dock = qobject_cast<const QDockWidget *>(part))
            lookAtWidth(place, dock, dock->fontMetrics().horizontalAdvance(dock->windowTitle()),
                        dock->width());
        else if (const auto *box = qobject_cast<const QGroupBox *>(part))
            lookAtWidth(place, box, box->fontMetrics().horizontalAdvance(box->title()),
                        box->width());
        else if (const auto *line = qobject_cast<const QLineEdit *>(part))
            lookAtWidth(place, line, line->fontMetrics().horizontalAdvance(line->placeholderText()),
                        line->width());
        else if (hasText(part))
            lookAtText(place, part);
    }
    static bool hasText(const QWidget *part)
    {
        const auto *button = qobject_cast<const QToolButton *>(part);
        return (button && !button->text().isEmpty()
                && button->toolButtonStyle() != Qt::ToolButtonIconOnly)
            || qobject_cast<const QLabel *>(part) || qobject_cast<const QPushButton *>(part)
            || qobject_cast<const QCheckBox *>(part) || qobject_cast<const QRadioButton *>(part)
            || qobject_cast<const QComboBox *>(part)
            || qobject_cast<const QAbstractSpinBox *>(part);
    }
    //! Labels that wrap need their height only; a field of the status line shortens its text itself.
    void lookAtText(const QString &place, const QWidget *part)
    {
        const auto *label = qobject_cast<const QLabel *>(part);
        const bool wraps = part->hasHeightForWidth() || (label && label->wordWrap());
        const QSize least =
            part->inherits("Monitor::StatusField") ? part->minimumSizeHint() : part->sizeHint();
        const bool anyWidth =
            wraps || part->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
        const QSize need(anyWidth ? 0 : least.width(),
                         wraps ? part->heightForWidth(part->width()) : least.height());
        if (part->width() < need.width() || part->height() < need.height())
            add(place, part, need, part->size());
    }
    void lookAtWidth(const QString &place, const QWidget *part, int need, int has)
    {
        if (has < need)
            add(place, part, {need, part->height()}, {has, part->height()});
    }
    //! Names may be shortened; a value without its unit would be another one.
    void lookAtValues(const QString &place, const QTableView *values)
    {
        const QAbstractItemView *view = values; // where the hint can be asked for
        lookAtWidth(place, values, view->sizeHintForColumn(1), values->columnWidth(1));
    }
    void lookAtHeader(const QString &place, const QHeaderView *header)
    {
        for (int section = 0; section < header->count(); ++section) {
            const bool isWide = header->orientation() == Qt::Horizontal;
            const int need = isWide ? header->sectionSizeHint(section) : header->sizeHint().width();
            const int has = isWide ? header->sectionSize(section) : header->width();
            if (!header->isSectionHidden(section) && header->isVisible())
                lookAtWidth(place, header, need, has);
        }
        // What lies beyond the edge of a table that does not scroll is cut, without a sign that it is.
        const auto *table = qobject_cast<const QAbstractScrollArea *>(header->parentWidget());
        if (table && table->horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff
            && header->orientation() == Qt::Horizontal)
            lookAtWidth(place, header, header->length(), header->viewport()->width());
    }

    const QSize m_screen;
    const std::function<QStringList(const QWidget *)> m_faults;
    QStringList m_lines;
    int m_looked = 0;
};
