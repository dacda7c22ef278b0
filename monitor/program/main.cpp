// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/CommandLine.h"
#include "monitor/program/HeadlessRun.h"

#include <QApplication>

#include <cstdio>

using namespace Monitor;

namespace {

//! Texts need no application, and must not need a display.
bool answerWithText(const CommandLine &commandLine)
{
    using Task = CommandLine::Task;
    if (commandLine.task == Task::Help)
        std::fputs(CommandLine::helpText().toUtf8().constData(), stdout);
    else if (commandLine.task == Task::Version)
        std::fputs(CommandLine::versionText().toUtf8().constData(), stdout);
    else if (commandLine.task == Task::ManPage)
        std::fputs(CommandLine::manPage().constData(), stdout);
    else
        return false;
    return true;
}

QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

} // namespace

int main(int argc, char **argv)
{
    CommandLine commandLine;
    QString error;
    if (!commandLine.parse(argumentsOf(argc, argv), &error)) {
        std::fprintf(stderr,
                     "corvale-monitor: %s\nTry corvale-monitor --help\n",
                     qPrintable(error));
        return ExitUsage;
    }
    if (answerWithText(commandLine))
        return ExitGood;
    if (!commandLine.needsDisplay())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int qtArguments = 1; // the others are the program's own
    QApplication application(qtArguments, argv);
    QCoreApplication::setApplicationName(QStringLiteral("corvale-monitor"));
    QCoreApplication::setOrganizationName(QStringLiteral("Corvale"));
    QCoreApplication::setApplicationVersion(QStringLiteral(CORVALE_MONITOR_VERSION));
    return HeadlessRun(commandLine).run();
}
