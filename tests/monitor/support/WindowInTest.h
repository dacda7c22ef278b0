// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/window/DisplayTabs.h"
#include "monitor/window/EventLog.h"
#include "monitor/window/MonitorWindow.h"
#include "monitor/window/NoticeLine.h"
#include "tests/monitor/support/Menus.h"
#include "tests/monitor/support/ScriptedSession.h"
#include <corvale_qt/models/RVXAbstractPlotDataModel.h>
#include <corvale_qt/scope/RVXScope.h>

#include <qwt_plot.h>

#include <QtWidgets>

//! A window on a session that the test moves, and what an operator reads in it.
struct WindowInTest : ScriptedSession
{
    static constexpr QSize smallScreen{1024, 600};

    explicit WindowInTest(const QString &settings, const QSize &size = QSize(1200, 800))
        : window(session, settings)
    {
        window.resize(size);
        window.show();
        session.start();
    }

    //! Returns a part of the status bar, without its markup.
    QString status(const char *name) const
    {
        QString text = window.statusBar()->findChild<QLabel *>(QLatin1String(name))->text();
        static const QRegularExpression tags("<[^>]*>");
        return text.remove(tags).replace("&nbsp;", " ").trimmed();
    }
    QString log() const
    {
        return window.findChild<Monitor::EventLog *>()->textBrowser()->toPlainText();
    }
    //! Returns the text of a line above the displays, and nothing while it is hidden.
    QString notice(const char *name = "sourceNotice") const
    {
        return window.findChild<Monitor::NoticeLine *>(QLatin1String(name))->text();
    }
    QTableView *values() const { return window.findChild<QTableView *>("latestValues"); }
    //! Returns the newest value of a channel as the table shows it.
    QString value(int row) const { return values()->model()->index(row, 1).data().toString(); }
    //! Returns the newest value of a channel as the table has it, in the unit of the stream.
    double number(int row) const
    {
        using Model = Corvale_Qt::RVXAbstractPlotDataModel;
        return values()->model()->index(row, 1).data(Model::NumericValueRole).toDouble();
    }
    //! Returns the entry of a menu by its object name; null if there is none.
    QAction *action(const char *name) const
    {
        for (QMenu *menu : window.menuBar()->findChildren<QMenu *>())
            for (QAction *entry : menu->actions())
                if (entry->objectName() == QLatin1String(name))
                    return entry;
        for (QMenu *menu : window.findChildren<QMenu *>())
            for (QAction *entry : menu->actions())
                if (entry->objectName() == QLatin1String(name))
                    return entry;
        return nullptr;
    }
    QList<QMenu *> menus() const { return menusOf(window); }
    QwtPlot *plot() const { return window.displays().scope()->findChild<QwtPlot *>(); }

    Monitor::MonitorWindow window;
};

//! A window that fills a small screen.
struct SmallWindow : WindowInTest
{
    explicit SmallWindow(const QString &settings)
        : WindowInTest(settings, smallScreen)
    {
    }
};
