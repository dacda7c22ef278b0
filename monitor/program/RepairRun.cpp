// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/RepairRun.h"

#include "monitor/core/Text.h"
#include "monitor/nexus/NexusFiles.h"
#include "monitor/recording/RecordingRepair.h"

#include <QFileInfo>

#include <cstdio>

namespace Monitor {

namespace {

//! Returns how much is lost in a few words; the lines above them say where.
QString lossText(const RecordingDamage &damage)
{
    if (damage.isEmpty())
        return Text::tr("nothing is lost");
    if (damage.lostLines == 0)
        return Text::tr("what is lost stands above");
    return Text::tr("lost: %1")
        .arg(Text::countedInEnglish("%n line(s)", nullptr, damage.lostLines));
}

} // namespace

QStringList damageLines(const RecordingDamage &damage)
{
    QStringList lines = damage.places;
    if (damage.placesLeftOut > 0)
        lines +=
            Text::tr("not listed: %1")
                .arg(Text::countedInEnglish("%n more place(s)", nullptr, damage.placesLeftOut));
    return lines;
}

int repairOnCommand(const CommandLine &commandLine)
{
    const QString path = commandLine.output;
    RecordingDamage damage;
    QString copy, error;
    if (isHdf5File(path)) {
        std::fprintf(
            stderr,
            "corvale-monitor: %s\n",
            qPrintable(Text::tr("%1 is an HDF5 file, which --repair does not read; --convert "
                                "OUT.csv %1 writes the readings before its damage")
                           .arg(path)));
        return ExitBadData;
    }
    if (!repairRecording(path, &copy, &damage, &error)) {
        std::fprintf(stderr, "corvale-monitor: %s\n", qPrintable(error));
        return QFileInfo(path).isReadable() ? ExitOutputFailed : ExitSourceLost;
    }
    for (const QString &line : damageLines(damage))
        std::fprintf(stdout, "%s\n", qPrintable(line));
    std::fprintf(
        stdout,
        "%s\n",
        qPrintable(Text::tr("%2 has %1; %3; %4 is as it was")
                       .arg(Text::countedInEnglish("%n reading(s)", nullptr, damage.readings),
                            copy,
                            lossText(damage),
                            path)));
    return ExitGood;
}

} // namespace Monitor
