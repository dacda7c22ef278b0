// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/Text.h"
#include "monitor/program/CommandLine.h"
#include "monitor/program/HeadlessRun.h"
#include "monitor/program/Language.h"
#include "monitor/program/QuietMessages.h"
#include "monitor/program/RepairRun.h"
#include "monitor/program/SecondStart.h"
#include "monitor/program/WindowRun.h"
#include "monitor/sources/SourcePlugins.h"
#include "monitor/window/KeptOptions.h"
#include "monitor/window/MonitorWindow.h"
#include "monitor/window/WindowSettings.h"
#include <corvale_qt/widgets/QtSingleApplication.h>

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QLocale>

#include <csignal>
#include <cstdio>

using namespace Monitor;

namespace {

void complain(const QString &text)
{
    std::fprintf(stderr, "corvale-monitor: %s\n", qPrintable(text));
}

//! Prints help, version or manual page if that is the task; this needs neither an application nor a display.
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

void nameApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("corvale-monitor"));
    QCoreApplication::setOrganizationName(QStringLiteral("Corvale"));
    QCoreApplication::setApplicationVersion(QStringLiteral(CORVALE_MONITOR_VERSION));
}

//! Sets the icon that a desktop shows: the installed one, else the drawing for each size.
void dressApplication()
{
    QGuiApplication::setDesktopFileName(QStringLiteral("corvale-monitor"));
    QIcon drawn(QStringLiteral(":/monitor/corvale-monitor.svg"));
    for (const int small : {16, 22, 24})
        drawn.addPixmap(QIcon(QStringLiteral(":/monitor/corvale-monitor-small.svg")).pixmap(small));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("corvale-monitor"), drawn));
}

//! Returns whether a window can be opened; without a display, Qt would abort the program.
bool hasDisplay()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
        || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
#else
    return true;
#endif
}

//! Each settings file has one window: a second start brings the existing window to the front.
int runOnScreen(const CommandLine &commandLine, char **argv)
{
    const QString settings = commandLine.settings.isEmpty()
        ? WindowRun::defaultSettingsFile()
        : QFileInfo(commandLine.settings).absoluteFilePath();
    int qtArguments = 1;
    QtSingleApplication application(settings, qtArguments, argv);
    nameApplication();
    dressApplication();
    if (application.sendMessage(commandLine.source)) {
        const SecondStart second(commandLine, settings);
        complain(second.message());
        return second.isDone() ? ExitGood : ExitUsage;
    }
    installLanguage(commandLine.language.isEmpty() ? keptOptions(WindowSettings(settings)).language
                                                   : commandLine.language);
    WindowRun run(commandLine);
    if (run.prepare())
        application.setActivationWindow(run.window());
    return run.run();
}

} // namespace

int main(int argc, char **argv)
{
    // Numbers look the same everywhere: in fields, on axes, in the log, in files and on the command line.
    QLocale numbers = QLocale::c();
    numbers.setNumberOptions(QLocale::OmitGroupSeparator);
    QLocale::setDefault(numbers);
    CommandLine commandLine;
    QString error;
    if (!commandLine.parse(argumentsOf(argc, argv), &error)) {
        complain(error + QLatin1Char('\n') + Text::tr("Try corvale-monitor --help"));
        return ExitUsage;
    }
    if (answerWithText(commandLine))
        return ExitGood;
    if (commandLine.task == CommandLine::Task::Repair)
        return repairOnCommand(commandLine);
    for (auto folder = commandLine.pluginPath.rbegin(); folder != commandLine.pluginPath.rend();
         ++folder)
        SourcePlugins::addFolder(*folder);
    installQuietMessages();
    // A write beyond the limit of a file's size is to fail and be reported; it must not end the program.
    std::signal(SIGXFSZ, SIG_IGN);
    if (!commandLine.needsDisplay()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    } else if (!hasDisplay()) {
        complain(Text::tr("there is no display to open a window on (neither DISPLAY nor "
                          "WAYLAND_DISPLAY is set). --screenshot FILE.png, --headless, --stats "
                          "and --check need none."));
        return ExitUsage;
    }
    if (commandLine.task == CommandLine::Task::Window)
        return runOnScreen(commandLine, argv);
    int qtArguments = 1; // Qt does not get the program's options
    QApplication application(qtArguments, argv);
    nameApplication();
    if (commandLine.task == CommandLine::Task::Screenshot) {
        // A picture looks the same for every user.
        installLanguage(commandLine.language.isEmpty() ? QStringLiteral("en")
                                                       : commandLine.language);
        WindowRun run(commandLine);
        run.prepare();
        return run.run();
    }
    return HeadlessRun(commandLine).run();
}
