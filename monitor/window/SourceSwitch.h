// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/session/MonitorOptions.h"

#include <QObject>
#include <QStringList>

class QWidget;

namespace Monitor {

class Session;
class WindowSettings;

/*! Opens another source in the running window, and remembers what was open. Before a recording is ended it asks; a source
    that cannot be opened leaves the present one as it is. */
class SourceSwitch : public QObject
{
    Q_OBJECT

public:
    //! How many sources are remembered.
    static constexpr int mostRecent = 10;

    //! \a window is the parent of the questions.
    SourceSwitch(Session &session, WindowSettings &settings, QWidget *window);

    //! Opens what a text on the command line would. Returns false, after a message, if it stays closed.
    bool open(const QString &text);
    //! Returns whether the open source is a table, which can be read in more than one way.
    bool isTable() const;
    /*! Asks how the table that is open is read, beginning with how it is read now, and reads it again from its beginning.
        Returns false if it stays as it is. */
    bool readAgain();
    //! Closes the source; the window then shows none.
    void close();
    //! Returns the text of the open source; empty if none is open.
    QString current() const { return m_current; }
    //! Tells what was open before the window was.
    void setCurrent(const QString &text);
    //! Returns the texts of the sources that were open last, the latest first.
    QStringList recent() const;
    void forgetRecent();
    //! Returns whether a window that keeps its settings in this file shows that source.
    static bool isOpenIn(const QString &settingsFile, const QString &text);
    //! Returns the text with the absolute path, if it names a file.
    static QString completed(const QString &text);

    //! Sets how sources are opened later; the session was set up by the same options before.
    void beginWith(const MonitorOptions &options);
    const MonitorOptions &options() const { return m_options; }
    //! Sets how sources are opened from now on; limits and detector hold at once if they can.
    void setOptions(const MonitorOptions &options);

Q_SIGNALS:
    //! Emitted when another source is open, or none.
    void currentChanged();
    //! Emitted when options() are others.
    void optionsChanged(const Monitor::MonitorOptions &options);

private:
    bool openAs(const QString &text, const ImportOptions &import, const QString &ending);
    bool mayEndRecording(const QString &what) const;
    void recordIfWanted();
    void remember();

    Session &m_session;
    WindowSettings &m_settings;
    QWidget *m_window;
    MonitorOptions m_options;
    QString m_current;
};

} // namespace Monitor
