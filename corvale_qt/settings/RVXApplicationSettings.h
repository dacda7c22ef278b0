// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QObject>
#include <QSharedPointer>

#include <memory>

class QSettings;

namespace Corvale_Qt {

class RVXApplicationSettingsPrivate;

/*! The settings file of an application, as INI or as XML (suffix ".xui").

    Several processes may share the file, and a write replaces it as a whole or not at all. A file that cannot be parsed
    is renamed to FILE.damaged, with a line on the debug stream, before anything is written; the settings then start
    empty. System-wide settings files, which QSettings merges in by default, are not read.

    In the XML format every value is stored as text. The process that wrote a value still sees the type that it wrote,
    the next one sees a string, so read values with QVariant::toInt(), toBool() and the like. */
class CORVALE_QT_EXPORT RVXApplicationSettings : public QObject
{
    Q_OBJECT

public:
    /*! Opens the settings, in XML format with \a useXmlFormat, otherwise in INI format.

        With \a useApplicationIdentity, \a fileName is a folder, and the file in it is named after the organisation and
        the application (ORGANISATION/APPLICATION.ini or .xui). Applications without an organisation name share the
        folder "Unknown Organization"; a line on the debug stream says so. From then on the process keeps all its user
        settings in INI format in \a fileName, including those that the host opens itself.

        Without \a useApplicationIdentity, \a fileName is the settings file. */
    RVXApplicationSettings(QObject *parent,
                           const QString &fileName,
                           bool useApplicationIdentity,
                           bool useXmlFormat);
    ~RVXApplicationSettings() override;

    /*! Returns the settings, never null. Each call first checks whether the file has been damaged, for instance by an
        editor, and may then return another object, so call this again instead of keeping the pointer. */
    QSharedPointer<QSettings> getSettings();

    /*! Writes changed values and reads those of other processes, as QSettings::sync() does, but takes turns with other
        processes that call this, so that each of them gets to write. Returns false if the file could not be written. */
    bool sync();

private:
    Q_DECLARE_PRIVATE(RVXApplicationSettings)
    const std::unique_ptr<RVXApplicationSettingsPrivate> d_ptr;
};

} // namespace Corvale_Qt
