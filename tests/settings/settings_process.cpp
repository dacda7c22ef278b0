// SPDX-License-Identifier: LGPL-2.1-or-later
/*! \file
    A process that tests of the settings file can kill, and that reads the file without the cache of the process that
    wrote it.
        settings_process read FOLDER xml|ini KEY     prints the type and the text of the value
        settings_process write FOLDER xml|ini        writes generations of 60 keys until killed, with a line for each */
#include "corvale_qt/settings/RVXApplicationSettings.h"

#include <QCoreApplication>
#include <QSettings>
#include <QTextStream>

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setOrganizationName("Beam Group");
    QCoreApplication::setApplicationName("panel");
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 4)
        return 2;
    Corvale_Qt::RVXApplicationSettings owner(nullptr, arguments.at(2), true,
                                             arguments.at(3) == "xml");
    const QSharedPointer<QSettings> settings = owner.getSettings();
    QTextStream out(stdout);
    if (arguments.at(1) == "read") {
        const QVariant value = settings->value(arguments.value(4));
        out << value.typeName() << " " << value.toString() << "\n";
        return 0;
    }
    for (int generation = 1;; ++generation) {
        for (int key = 0; key < 60; ++key)
            settings->setValue(QString("StatisticsSetupPage/key-%1").arg(key), generation);
        owner.sync();
        out << generation << "\n";
        out.flush();
    }
}
