// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QMainWindow>

#include <memory>

class QSettings;

namespace Corvale_Qt {
class RVXApplicationSettings;
class RVXStatisticsSetupPage;
} // namespace Corvale_Qt

namespace Monitor {

class Session;
class ViewTabs;

/*! The window: values on the left, displays in the middle, statistics on the right, log and status below. It puts
    the parts in their places and gives them their keys; what they do is theirs. */
class MonitorWindow : public QMainWindow
{
    Q_OBJECT

public:
    //! The settings file is where window and statistics are kept.
    MonitorWindow(Session &session, const QString &settingsFile, QWidget *parent = nullptr);
    ~MonitorWindow() override;

    ViewTabs &views() const { return *m_views; }
    //! One line about what runs and how to see something else, until it is dismissed for good.
    void showHint(const QString &text);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void addDock(QWidget *widget, const char *name, const QString &title, Qt::DockWidgetArea area);
    void addStatisticsPage();
    void addActions();
    void toggleRecording();
    void savePicture();
    void restoreLayout();
    void saveLayout();

    Session &m_session;
    std::unique_ptr<Corvale_Qt::RVXApplicationSettings> m_settings;
    const QString m_settingsFile;
    ViewTabs *m_views;
    QWidget *m_centre;
};

} // namespace Monitor
