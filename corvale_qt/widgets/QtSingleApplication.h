// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QApplication>

class QtSingleApplicationPrivate;

/*! An application of which one instance runs for each user and id; a further one hands its request over to the
    first, and ends.

    It is not in this library's namespace: hosts know the class by this name.

    The first instance is the one that asked first, by isRunning() or sendMessage(), while no other lived. One
    that crashed does not stand in the way of the next start. Only processes of the same user are heard and spoken
    to; messages have at most 1 MiB of UTF-8, and incomplete ones are dropped.

    Instances meet in the folder XDG_RUNTIME_DIR, or in one of the user's own in the temporary folder. Where no folder
    is safe from other users, a line on the debug stream says so, and every instance is a first one.

    \code
    QtSingleApplication application("beam-monitor", argc, argv);
    if (application.sendMessage(fileToOpen))
        return 0;
    MainWindow window;
    application.setActivationWindow(&window);
    using Application = QtSingleApplication;
    QObject::connect(&application, &Application::messageReceived, &window, &MainWindow::open);
    \endcode */
class CORVALE_QT_EXPORT QtSingleApplication : public QApplication
{
    Q_OBJECT

public:
    //! The id is made of the program's path. \a guiEnabled is not looked at: hosts built for Qt 4 pass it.
    QtSingleApplication(int &argc, char **argv, bool guiEnabled = true);
    QtSingleApplication(const QString &id, int &argc, char **argv);
    ~QtSingleApplication() override;

    //! Whether another instance is the first; otherwise this one is, from now on.
    bool isRunning();
    QString id() const;

    /*! The window that activateWindow() shows, not owned; null for none. With \a activateOnMessage every
        message does so, too. */
    void setActivationWindow(QWidget *window, bool activateOnMessage = true);
    QWidget *activationWindow() const;

    //! As isRunning(), without the answer; \a dummy is not looked at. For hosts already built.
    void initialize(bool dummy = true);

public Q_SLOTS:
    /*! Brings \a message to the first instance, and waits for it at most \a timeout milliseconds. False when
        this is the first instance, when nobody answered in time, or when the message is too long.
     */
    bool sendMessage(const QString &message, int timeout = 5000);
    //! Brings the activation window to the front, out of an icon as well.
    void activateWindow();

Q_SIGNALS:
    void messageReceived(const QString &message);

private:
    Q_DECLARE_PRIVATE(QtSingleApplication)
    Q_DISABLE_COPY(QtSingleApplication)
    const QScopedPointer<QtSingleApplicationPrivate> d_ptr;
};
