// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QAction>

namespace Monitor {

class Companions;
class Session;
class SourceSwitch;
class WindowSettings;

//! The menu entry "Add source...": reads another instrument beside the one of the window. Without a source it opens one.
class AddSourceAction : public QAction
{
    Q_OBJECT

public:
    //! \a window is the parent of the dialogs.
    AddSourceAction(Companions &companions,
                    Session &lead,
                    SourceSwitch &sources,
                    WindowSettings &settings,
                    QWidget *window);

    //! Adds the source that a text on the command line would name. Returns false, after a message, if it cannot be added.
    bool add(const QString &text);

private:
    void ask();

    Companions &m_companions;
    Session &m_lead;
    SourceSwitch &m_sources;
    WindowSettings &m_settings;
    QWidget *m_window;
};

} // namespace Monitor
