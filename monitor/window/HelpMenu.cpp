// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/HelpMenu.h"

#include "monitor/window/ScreenFit.h"
#include "monitor/window/Symbols.h"

#include <QMenuBar>

namespace Monitor {

namespace {

QString plain(QString menuText)
{
    return menuText.remove(QLatin1Char('&')).remove(QStringLiteral("..."));
}

QString row(const QString &keys, const QString &meaning)
{
    return QStringLiteral("| %1 | %2 |\n").arg(keys, meaning);
}

QString keysOf(const QMenu *menu, const QString &path)
{
    QString rows;
    for (const QAction *action : menu->actions()) {
        const QString name = path + QStringLiteral(" > ") + plain(action->text());
        if (action->menu())
            rows += keysOf(action->menu(), name);
        else if (!action->shortcuts().isEmpty())
            rows += row(QKeySequence::listToString(action->shortcuts(), QKeySequence::NativeText),
                        name);
    }
    return rows;
}

//! Returns the keys that no menu has, and what they do where.
QVector<QPair<QString, QString>> keysInPlaces()
{
    return {
        {HelpMenu::tr("Ctrl+S"), HelpMenu::tr("in the scope: saves the readings that are shown")},
        {HelpMenu::tr("Left, Right, Delete"),
         HelpMenu::tr("in the scope: moves or removes the markers")},
        {HelpMenu::tr("+, -; with Ctrl"),
         HelpMenu::tr("in the scope: zooms time; zooms the values")},
        {HelpMenu::tr("Left, Right, Page Up, Page Down, Up, Down"),
         HelpMenu::tr("in the scope: moves the picture")},
        {HelpMenu::tr("Home, End"),
         HelpMenu::tr("in the scope: the oldest readings, the newest ones")},
        {HelpMenu::tr("Backspace"), HelpMenu::tr("in the scope: what was shown before")},
        {HelpMenu::tr("1, 2"), HelpMenu::tr("in the scope: places the markers")},
        {HelpMenu::tr("Ctrl+C"), HelpMenu::tr("in the scope: copies what the markers read")},
        {HelpMenu::tr("Enter"), HelpMenu::tr("in the values: shows or hides the channel")},
        {HelpMenu::tr("Enter"), HelpMenu::tr("on the time line: plays or pauses the tape")},
        {HelpMenu::tr("Left, Right; with Shift"),
         HelpMenu::tr("on the time line: 1 % or 10 % of the tape back or on")},
        {HelpMenu::tr("Page Up, Page Down"),
         HelpMenu::tr("on the time line: the event or gap before or after")},
        {HelpMenu::tr("comma, period"),
         HelpMenu::tr("on the time line: one reading back or on, and pauses")},
        {HelpMenu::tr("[, ], Backspace"),
         HelpMenu::tr("on the time line: repeats from here, up to here, nothing")},
        {HelpMenu::tr("Page Up, Page Down"),
         HelpMenu::tr("in the spot map: goes through the layers")},
        {HelpMenu::tr("Ctrl+Shift+O"),
         HelpMenu::tr("moves a display into a separate window, or back")},
    };
}

} // namespace

QString keysPage(const QMenuBar *bar)
{
    QString page = HelpMenu::tr("# Keys\n\nAlt and the underlined letter open a menu.\n\n| key | "
                                "what it does |\n|---|---|\n");
    for (const QAction *action : bar->actions())
        if (action->menu())
            page += keysOf(action->menu(), plain(action->text()));
    for (const auto &other : keysInPlaces())
        page += row(other.first, other.second);
    return page;
}

HelpMenu::HelpMenu(QMenuBar *bar, QWidget *window)
    : QMenu(tr("&Help"), window)
    , m_bar(bar)
    , m_window(window)
{
    addPage(tr("&First steps"), HelpWindow::Page::FirstSteps, QKeySequence(Qt::Key_F1));
    addPage(tr("&Keys"), HelpWindow::Page::Keys, QKeySequence(Qt::CTRL + Qt::Key_F1));
    addPage(tr("&Line protocol"), HelpWindow::Page::LineProtocol);
    addPage(tr("L&icences"), HelpWindow::Page::Licences);
    addSeparator();
    addPage(tr("&About"), HelpWindow::Page::About);
}

void HelpMenu::addPage(const QString &text, HelpWindow::Page page, const QKeySequence &keys)
{
    QAction *action = addAction(text, this, [this, page] {
        showPage(page);
    });
    action->setShortcut(keys);
    if (page != HelpWindow::Page::FirstSteps)
        return;
    action->setObjectName(QStringLiteral("firstSteps"));
    action->setIcon(symbol(QStringLiteral("help")));
}

void HelpMenu::showPage(HelpWindow::Page page)
{
    if (!m_help)
        m_help = new HelpWindow(m_window);
    fitToScreen(m_help);
    m_help->setKeys(keysPage(m_bar));
    m_help->showPage(page);
}

} // namespace Monitor
