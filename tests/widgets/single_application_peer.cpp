// SPDX-License-Identifier: LGPL-2.1-or-later
/*! \file
    A program that should run only once, for tst_QtSingleApplication.
        single_application_peer ID serve           prints "first" or "second", then each message, until killed
        single_application_peer ID window ON...    the same with an icon for a window, which is made the activation
                                                   window once for each ON ("on" or "off": at a message or not); with
                                                   each message it prints whether the window is open or still an icon
        single_application_peer ID send TEXT       ends with 0 when a first instance answered */
#include <corvale_qt/QtSingleApplication>

#include <QWidget>

#include <cstdio>

int main(int argc, char **argv)
{
    const QString id = QString::fromLocal8Bit(argc > 1 ? argv[1] : "");
    QtSingleApplication application(id, argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.value(2) == "send")
        return application.sendMessage(arguments.value(3)) ? 0 : 1;

    QWidget window;
    const bool hasWindow = arguments.value(2) == "window";
    if (hasWindow)
        window.showMinimized();
    for (const QString &on : arguments.mid(3))
        application.setActivationWindow(&window, on == "on");

    const auto say = [](const QString &line) {
        std::puts(line.toUtf8().constData());
        std::fflush(stdout);
    };
    QObject::connect(&application, &QtSingleApplication::messageReceived, [&](QString line) {
        if (hasWindow)
            line += window.isMinimized() ? ": an icon" : ": open";
        say(line);
    });
    say(application.isRunning() ? "second" : "first");
    return application.exec();
}
