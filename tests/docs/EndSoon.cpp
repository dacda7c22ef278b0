// SPDX-License-Identifier: LGPL-2.1-or-later
// Ends a program of the documentation, which has no options for it: after CORVALE_QT_END_AFTER milliseconds, as if the operator had
// closed the window. With CORVALE_QT_PICTURE it first saves a picture of the window to that file.

#include <QApplication>
#include <QTimer>
#include <QWidget>

static void savePicture(const QString &fileName)
{
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window->isVisible() && window->grab().save(fileName))
            return;
    }
    qFatal("There is no picture in %s.", qPrintable(fileName));
}

static void end()
{
    const QString picture = qEnvironmentVariable("CORVALE_QT_PICTURE");
    if (!picture.isEmpty())
        savePicture(picture);
    QCoreApplication::quit();
}

static void endSoon()
{
    bool given = false;
    const int milliseconds = qEnvironmentVariableIntValue("CORVALE_QT_END_AFTER", &given);
    if (given)
        QTimer::singleShot(milliseconds, QCoreApplication::instance(), end);
}

Q_COREAPP_STARTUP_FUNCTION(endSoon)
