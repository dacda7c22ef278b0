// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/OptionConflicts.h"

#include "monitor/core/Text.h"
#include "monitor/nexus/NexusFiles.h"
#include "monitor/program/CommandLine.h"

#include <QCommandLineParser>

namespace Monitor {

namespace {

using Task = CommandLine::Task;

//! Returns the option of a recording that is given although nothing is recorded.
QString conflictWithoutRecording(const CommandLine &wanted, const QCommandLineParser &parser)
{
    if (!wanted.record.path.isEmpty())
        return {};
    const QString rotate = parser.value(QStringLiteral("rotate"));
    if (!rotate.isEmpty())
        return Text::tr("--rotate %1 says when a recording begins a new file, but nothing is "
                        "recorded; add --record PATH")
            .arg(rotate);
    if (wanted.task == Task::Convert)
        return {};
    for (const char *name : {"compress", "segments"})
        if (parser.isSet(QLatin1String(name)))
            return Text::tr("--%1 says what becomes of the files of a recording, but nothing is "
                            "recorded; add --record PATH")
                .arg(QLatin1String(name));
    if (wanted.record.overwrite)
        return Text::tr("--overwrite lets a file be replaced, but none is written; add --record "
                        "PATH or --convert OUT.csv");
    return {};
}

//! Returns the option of a window that is given although none is drawn.
QString conflictWithoutWindow(const CommandLine &wanted, const QCommandLineParser &parser)
{
    if (wanted.task == Task::Window || wanted.task == Task::Screenshot)
        return {};
    for (const char *name : {"view", "span", "size"})
        if (parser.isSet(QLatin1String(name)))
            return Text::tr("--%1 says how a window looks, but none is shown; leave it out")
                .arg(QLatin1String(name));
    return {};
}

//! Returns why a file that is played again and again is not read to its end.
QString conflictOfLoop(const CommandLine &wanted)
{
    const bool readsToEnd = wanted.task == Task::Statistics || wanted.task == Task::Check
        || wanted.task == Task::Convert;
    const bool ends = wanted.afterReadings > 0 || wanted.afterSeconds > 0.0;
    return readsToEnd && wanted.file.loop && !ends
        ? Text::tr("--loop plays a file without end; leave it out, or add --after AMOUNT")
        : QString();
}

QString conflictOfHdf5(const CommandLine &wanted)
{
    if (isNexusName(wanted.record.path))
        return Text::tr(
                   "--record %1: what is being recorded is text; record to a file that ends in "
                   ".csv, and add --segments hdf5 to have it as HDF5 once it is complete")
            .arg(wanted.record.path);
    const bool converts = wanted.task == Task::Convert && isNexusName(wanted.output);
    if (converts && wanted.record.segments != SegmentForm::Text)
        return Text::tr("--convert %1 writes HDF5, which is compressed already; leave --compress "
                        "and --segments out")
            .arg(wanted.output);
    return {};
}

} // namespace

QString optionConflict(const CommandLine &wanted, const QCommandLineParser &parser)
{
    if (wanted.file.from > wanted.file.to)
        return Text::tr(
                   "--from %1 --to %2: there is nothing between them; --from must be the earlier "
                   "time")
            .arg(parser.value(QStringLiteral("from")), parser.value(QStringLiteral("to")));
    const QStringList conflicts = {conflictOfHdf5(wanted),
                                   conflictOfLoop(wanted),
                                   conflictWithoutRecording(wanted, parser),
                                   conflictWithoutWindow(wanted, parser)};
    for (const QString &conflict : conflicts)
        if (!conflict.isEmpty())
            return conflict;
    if (wanted.task == Task::Headless && !wanted.publishes() && wanted.record.path.isEmpty())
        return Text::tr("--headless reads without showing anything; add --publish ADDRESS or "
                        "--record PATH");
    return {};
}

} // namespace Monitor
