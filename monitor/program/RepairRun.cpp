// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/RepairRun.h"

#include "monitor/core/Text.h"
#include "monitor/recording/RecordingRepair.h"

#include <QFileInfo>

#include <cstdio>

namespace Monitor {

namespace {

void print(const RecordingDamage &damage)
{
    for (const QString &place : damage.places)
        std::fprintf(stdout, "%s\n", qPrintable(place));
    if (damage.placesLeftOut > 0)
        std::fprintf(
            stdout,
            "%s\n",
            qPrintable(Text::tr("%1 more places are not listed").arg(damage.placesLeftOut)));
}

} // namespace

int repairOnCommand(const CommandLine &commandLine)
{
    const QString path = commandLine.output;
    RecordingDamage damage;
    QString copy, error;
    if (!repairRecording(path, &copy, &damage, &error)) {
        std::fprintf(stderr, "corvale-monitor: %s\n", qPrintable(error));
        return QFileInfo(path).isReadable() ? ExitOutputFailed : ExitSourceLost;
    }
    print(damage);
    std::fprintf(stdout,
                 "%s\n",
                 qPrintable(Text::tr("%1 readings are in %2; %3 lines are lost; %4 is as it was")
                                .arg(QString::number(damage.readings),
                                     copy,
                                     QString::number(damage.lostLines),
                                     path)));
    return ExitGood;
}

bool printDamage(const QString &path, const ImportOptions &import)
{
    RecordingDamage damage;
    QString error;
    if (!examineRecording(path, import, &damage, &error))
        return false;
    print(damage);
    return damage.isInside;
}

} // namespace Monitor
