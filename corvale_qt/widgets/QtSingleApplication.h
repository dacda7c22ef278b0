// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QApplication>

class QtSingleApplicationPrivate;

/*! An application that runs once for each user and id. A second instance can send its request to the first one and
    quit.

    The class is outside this library's namespace because hosts know it by this name.

    The first instance is the one that called isRunning() or sendMessage() first while no other instance was running.
    An instance that crashed does not block the next start. Instances exchange messages only with processes of the same
    user. A message has at most 1 MiB of UTF-8; incomplete messages are dropped.

    Lock and socket are in the folder XDG_RUNTIME_DIR, or else in a private folder of the user in the temporary folder.
    If neither folder is safe from other users, every instance is a first instance, and a line on the debug stream says
    so.

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
    //! Uses the program's path as the id. \a guiEnabled is ignored; hosts built for Qt 4 pass it.
    QtSingleApplication(int &argc, char **argv, bool guiEnabled = true);
    //! Uses \a id, any text. Programs with different ids do not see each other.
    QtSingleApplication(const QString &id, int &argc, char **argv);
    ~QtSingleApplication() override;

    //! Returns whether another instance is the first one. If there is none, this instance becomes the first.
    bool isRunning();
    //! Returns the id that was given to the constructor, or the program's path.
    QString id() const;

    /*! Sets the window that activateWindow() brings to the front, or null. The application does not own it. With
        \a activateOnMessage, every message that arrives calls activateWindow(). */
    void setActivationWindow(QWidget *window, bool activateOnMessage = true);
    //! Returns the window that activateWindow() brings to the front, or null, also after the window was deleted.
    QWidget *activationWindow() const;

    //! Calls isRunning() and ignores \a dummy; for hosts that are already built.
    void initialize(bool dummy = true);

public Q_SLOTS:
    /*! Sends \a message to the first instance and waits at most \a timeout milliseconds for its answer. Returns
        false if this is the first instance, if no answer came in time, or if the message is too long. */
    bool sendMessage(const QString &message, int timeout = 5000);
    //! Brings the activation window to the front, and restores it if it is minimised. Does nothing without a window.
    void activateWindow();

Q_SIGNALS:
    //! Emitted in the first instance when \a message of another instance has arrived and has been answered.
    void messageReceived(const QString &message);

private:
    Q_DECLARE_PRIVATE(QtSingleApplication)
    Q_DISABLE_COPY(QtSingleApplication)
    const QScopedPointer<QtSingleApplicationPrivate> d_ptr;
};
