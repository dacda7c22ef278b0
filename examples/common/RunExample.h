// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

/*! Shows the window of an example and runs until it is closed. With --quit-after MILLISECONDS on the command line it
    ends by itself; with --screenshot FILE.png it then saves a picture of the window. */
inline int runExample(QWidget &window)
{
    const QStringList arguments = QApplication::arguments();
    const auto valueOf = [&arguments](const char *option) {
        const int at = arguments.indexOf(option);
        return at > 0 ? arguments.value(at + 1) : QString();
    };
    window.show();
    const QString quitAfter = valueOf("--quit-after");
    if (!quitAfter.isEmpty()) {
        QTimer::singleShot(quitAfter.toInt(),
                           &window,
                           [&window, picture = valueOf("--screenshot")] {
                               const bool good = picture.isEmpty() || window.grab().save(picture);
                               QApplication::exit(good ? 0 : 1);
                           });
    }
    return QApplication::exec();
}
