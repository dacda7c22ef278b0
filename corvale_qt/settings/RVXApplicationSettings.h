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

    A write replaces the file as a whole or not at all, and several processes may share it: QSettings sees to both.
    A file that cannot be parsed is renamed to FILE.damaged, with a line on the debug stream, before QSettings could
    write over it; the settings then start empty. Files of the whole system, which QSettings would mix in, are left
    out.

    In the XML format every value comes back as a string in the next process, while the process that wrote it still
    sees the type that it wrote: read with QVariant::toInt(), toBool() and their kin only. */
class CORVALE_QT_EXPORT RVXApplicationSettings : public QObject
{
    Q_OBJECT

public:
    /*! With \a useApplicationIdentity, \a fileName is a folder: the file in it is named after the application's
        organisation and name (ORGANISATION/APPLICATION.ini or .xui). An application without an organisation's name
        shares the folder "Unknown Organization" with all others of that kind, which a line on the debug stream says.
        The given folder is then the place of all of the process's user settings in INI format, of those too that the
        host opens for itself later. Without \a useApplicationIdentity, \a fileName is the settings file itself. */
    RVXApplicationSettings(QObject *parent,
                           const QString &fileName,
                           bool useApplicationIdentity,
                           bool useXmlFormat);
    ~RVXApplicationSettings() override;

    /*! The settings, never null. Each call looks first whether the file has been damaged since, by hand for
        instance, so ask again rather than keep the answer. */
    QSharedPointer<QSettings> getSettings();

    /*! Writes what was set and reads what others wrote, as QSettings::sync(), but in turn with other processes that do
        the same: however many there are, each comes to write. False where the file could not be written. */
    bool sync();

private:
    Q_DECLARE_PRIVATE(RVXApplicationSettings)
    const std::unique_ptr<RVXApplicationSettingsPrivate> d_ptr;
};

} // namespace Corvale_Qt
