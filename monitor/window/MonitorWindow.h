// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/window/WindowSettings.h"

#include <QMainWindow>

class QVBoxLayout;

namespace Monitor {

class Session;
class DisplayTabs;

/*! The window: values on the left, displays in the middle, statistics on the right, log and status below. It puts
    the parts in their places and gives them their keys; what they do is theirs. */
class MonitorWindow : public QMainWindow
{
    Q_OBJECT

public:
    //! Where the screen is large enough for it.
    static constexpr QSize usualSize{1600, 1000};

    //! The settings file is where layout and statistics are kept.
    MonitorWindow(Session &session, const QString &settingsFile, QWidget *parent = nullptr);
    ~MonitorWindow() override;

    DisplayTabs &displays() const { return *m_displays; }
    //! One line about what runs and how to see something else, until it is dismissed for good.
    void showHint(const QString &text);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void addCentre();
    void addDocks();
    void addDock(QWidget *widget, const char *name, const QString &title, Qt::DockWidgetArea area);
    void addMenus();
    void addPauseAction(QMenu *menu);
    void restoreLayout();
    void restoreDisplay(const StreamHeader &header);
    void saveLayout();

    Session &m_session;
    WindowSettings m_settings;
    DisplayTabs *m_displays;
    QVBoxLayout *m_centre = nullptr;
    QMenu *m_viewMenu = nullptr;
    //! The layouts whose displays were put where they stood.
    QVector<StreamKind> m_arranged;
};

} // namespace Monitor
