// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QStringList>

#include <corvale_monitor/ResultPublisher.h>

namespace Monitor {

/*! Finds the plugins that bring further kinds of sources. A plugin is loaded when an address of its is opened; until then only
    what it says about itself is read. */
class SourcePlugins
{
public:
    //! What a plugin says about itself.
    struct Description
    {
        QString file; //!< path of the plugin
        QStringList schemes; //!< what its addresses begin with
        QString title; //!< name of the kind of source
        QString address; //!< an example
        QStringList publishers; //!< what the addresses begin with that it publishes results under
    };

    //! Looks through the folders; the first plugin with a scheme is the one that counts.
    explicit SourcePlugins(const QStringList &folders = usualFolders());

    /*! Returns the folders of the variable CORVALE_MONITOR_PLUGIN_PATH, in which they are separated as in PATH, and then those of
        the installation. */
    static QStringList usualFolders();
    //! Puts a folder before all others, for this process.
    static void addFolder(const QString &folder);
    /*! Returns the scheme of "scheme:rest" if it is not one that the monitor reads itself and there is no file of that name;
        empty otherwise. */
    static QString schemeOf(const QString &text);

    const QVector<Description> &all() const { return m_plugins; }
    /*! Returns the plugin that reads a scheme, loaded; it is kept until the program ends. Returns null if there is none or it cannot be
        loaded; \a error says why, and what to do. */
    CorvaleMonitor::SourcePlugin *load(const QString &scheme, QString *error) const;
    //! Returns the plugin that publishes results under addresses with a scheme, in the same way.
    CorvaleMonitor::ResultPublisher *loadPublisher(const QString &scheme, QString *error) const;

private:
    using Names = QStringList Description::*;

    void look(const QString &file);
    template<typename Interface>
    Interface *loadFor(Names names, const QString &scheme, QString *error) const;
    QString unknownText(const QString &scheme) const;

    QStringList m_folders;
    QVector<Description> m_plugins;
    QStringList m_faults; //!< of files that are not plugins for this program
};

} // namespace Monitor
