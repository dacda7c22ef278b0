// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/SourcePlugins.h"

#include "monitor/core/Text.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QRegularExpression>

#include <algorithm>

namespace Monitor {

namespace {

constexpr char pathVariable[] = "CORVALE_MONITOR_PLUGIN_PATH";

//! Returns the package that brings a scheme; empty if it is not one of this project's.
QString packageOf(const QString &scheme)
{
    static const QHash<QString, QString> packages = {
        {QStringLiteral("ca"), QStringLiteral("corvale-monitor-epics")},
        {QStringLiteral("tango"), QStringLiteral("corvale-monitor-tango")}};
    return packages.value(scheme);
}

QStringList textsOf(const QJsonArray &array)
{
    QStringList texts;
    for (const QJsonValue &value : array)
        texts.append(value.toString());
    return texts;
}

//! Returns the name of an interface up to its version.
QString familyOf(const QString &interface)
{
    return interface.left(interface.indexOf(QLatin1Char('/')) + 1);
}

} // namespace

SourcePlugins::SourcePlugins(const QStringList &folders)
    : m_folders(folders)
{
    for (const QString &folder : folders) {
        const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
        for (const QFileInfo &file : files)
            if (QLibrary::isLibrary(file.fileName()))
                look(file.absoluteFilePath());
    }
}

QStringList SourcePlugins::usualFolders()
{
    QStringList folders =
        qEnvironmentVariable(pathVariable).split(QDir::listSeparator(), Qt::SkipEmptyParts);
    const QDir program(QCoreApplication::applicationDirPath());
    folders.append(program.absoluteFilePath(QStringLiteral("plugins"))); // where it was built
    folders.append(QDir::cleanPath(
        program.absoluteFilePath(QStringLiteral(CORVALE_MONITOR_PLUGINS_FROM_PROGRAM))));
    return folders;
}

void SourcePlugins::addFolder(const QString &folder)
{
    const QString former = qEnvironmentVariable(pathVariable);
    const QString path = former.isEmpty() ? folder : folder + QDir::listSeparator() + former;
    qputenv(pathVariable, QFile::encodeName(path));
}

QString SourcePlugins::schemeOf(const QString &text)
{
    // A single letter is a drive on some systems.
    static const QRegularExpression form(QStringLiteral("^([a-z][a-z0-9+.-]+):"));
    static const QStringList own = {QStringLiteral("file"),
                                    QStringLiteral("sim"),
                                    QStringLiteral("serial"),
                                    QStringLiteral("tcp"),
                                    QStringLiteral("tcp-listen")};
    const QString scheme = form.match(text).captured(1);
    return own.contains(scheme) || QFileInfo::exists(text) ? QString() : scheme;
}

//! Reads what a file says about itself, without running anything of it.
void SourcePlugins::look(const QString &file)
{
    const QJsonObject told = QPluginLoader(file).metaData();
    const QString interface = told.value(QLatin1String("IID")).toString();
    const QString publisher = QStringLiteral(CorvaleMonitor_ResultPublisher_iid);
    const QString wanted = interface.startsWith(familyOf(publisher))
        ? publisher
        : QStringLiteral(CorvaleMonitor_SourcePlugin_iid);
    const QString family = familyOf(wanted);
    const QJsonObject data = told.value(QLatin1String("MetaData")).toObject();
    const Description plugin{file,
                             textsOf(data.value(QLatin1String("schemes")).toArray()),
                             data.value(QLatin1String("title")).toString(),
                             data.value(QLatin1String("address")).toString(),
                             textsOf(data.value(QLatin1String("publishes")).toArray())};
    if (interface.isEmpty())
        m_faults.append(Text::tr("%1 is not a plugin").arg(file));
    else if (!interface.startsWith(family))
        m_faults.append(Text::tr("%1 is a plugin, but not for sources of this program").arg(file));
    else if (interface != wanted)
        m_faults.append(
            Text::tr(
                "%1 was built for version %2 of the interface, and this program has version %3")
                .arg(file, interface.mid(family.size()), wanted.mid(family.size())));
    else if (plugin.schemes.isEmpty() && plugin.publishers.isEmpty())
        m_faults.append(Text::tr("%1 does not say which addresses it reads").arg(file));
    else
        m_plugins.append(plugin);
}

CorvaleMonitor::SourcePlugin *SourcePlugins::load(const QString &scheme, QString *error) const
{
    return loadFor<CorvaleMonitor::SourcePlugin>(&Description::schemes, scheme, error);
}

CorvaleMonitor::ResultPublisher *SourcePlugins::loadPublisher(const QString &scheme,
                                                              QString *error) const
{
    const bool onlyReads =
        std::any_of(m_plugins.begin(), m_plugins.end(), [&](const Description &plugin) {
            return plugin.schemes.contains(scheme) && !plugin.publishers.contains(scheme);
        });
    if (onlyReads) {
        *error = Text::tr("the plugin for %1 reads sources, and publishes nothing").arg(scheme);
        return nullptr;
    }
    return loadFor<CorvaleMonitor::ResultPublisher>(&Description::publishers, scheme, error);
}

//! Loads the plugin that has a scheme among those names, and returns the interface that goes with them.
template<typename Interface>
Interface *SourcePlugins::loadFor(Names names, const QString &scheme, QString *error) const
{
    const auto found =
        std::find_if(m_plugins.begin(), m_plugins.end(), [&](const Description &plugin) {
            return (plugin.*names).contains(scheme);
        });
    if (found == m_plugins.end()) {
        *error = unknownText(scheme);
        return nullptr;
    }
    QPluginLoader loader(found->file);
    QObject *object = loader.instance();
    auto *plugin = qobject_cast<Interface *>(object);
    if (object && !plugin)
        *error = Text::tr("%1 was built for another version of the interface").arg(found->file);
    else if (!plugin)
        *error =
            Text::tr("the plugin for %1 cannot be loaded: %2").arg(scheme, loader.errorString());
    return plugin;
}

//! Says that no plugin reads a scheme, and where one was looked for.
QString SourcePlugins::unknownText(const QString &scheme) const
{
    const QString package = packageOf(scheme);
    QString text = package.isEmpty()
        ? Text::tr("there is no file of that name, and no plugin for %1 in %2")
              .arg(scheme, m_folders.join(QStringLiteral(", ")))
        : Text::tr("there is no plugin for %1: install the package %2").arg(scheme, package);
    for (const QString &fault : m_faults)
        text += QStringLiteral("; ") + fault;
    return text;
}

} // namespace Monitor
