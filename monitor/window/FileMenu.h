// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QMenu>

namespace Monitor {

class DisplayTabs;
class PictureActions;
class Session;
class SourceSwitch;
class WindowSettings;

//! The menu "File": what is opened, recorded, saved and set.
class FileMenu : public QMenu
{
    Q_OBJECT

public:
    FileMenu(Session &session,
             SourceSwitch &sources,
             DisplayTabs &displays,
             WindowSettings &settings,
             const PictureActions &pictures,
             QWidget *window);

    //! Adds the entry that reads another source beside the open one.
    void addBeside(QAction *action) { insertAction(m_close, action); }

private:
    void openFile();
    void listRecent();
    void connectSource();
    void editSettings();
    void refresh();

    Session &m_session;
    SourceSwitch &m_sources;
    WindowSettings &m_settings;
    QWidget *m_window;
    QMenu *m_recent;
    QAction *m_readAgain;
    QAction *m_close;
};

} // namespace Monitor
