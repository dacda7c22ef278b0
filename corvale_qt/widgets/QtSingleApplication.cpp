// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/QtSingleApplication.h"

#include "corvale_qt/widgets/SingleInstance_p.h"

#include <QPointer>
#include <QWidget>

class QtSingleApplicationPrivate
{
public:
    QtSingleApplicationPrivate(QtSingleApplication *application, const QString &applicationId)
        : id(applicationId)
        , instance(applicationId)
    {
        QObject::connect(&instance,
                         &Corvale_Qt::SingleInstance::messageReceived,
                         application,
                         &QtSingleApplication::messageReceived);
    }

    const QString id;
    Corvale_Qt::SingleInstance instance;
    QPointer<QWidget> activationWindow;
};

QtSingleApplication::QtSingleApplication(int &argc, char **argv, bool guiEnabled)
    : QApplication(argc, argv)
    , d_ptr(new QtSingleApplicationPrivate(this, QCoreApplication::applicationFilePath()))
{
    Q_UNUSED(guiEnabled)
}

QtSingleApplication::QtSingleApplication(const QString &id, int &argc, char **argv)
    : QApplication(argc, argv)
    , d_ptr(new QtSingleApplicationPrivate(this, id))
{
}

QtSingleApplication::~QtSingleApplication() = default;

bool QtSingleApplication::isRunning()
{
    Q_D(QtSingleApplication);
    return !d->instance.takeFirstPlace();
}

QString QtSingleApplication::id() const
{
    Q_D(const QtSingleApplication);
    return d->id;
}

void QtSingleApplication::initialize(bool dummy)
{
    Q_UNUSED(dummy)
    isRunning();
}

bool QtSingleApplication::sendMessage(const QString &message, int timeout)
{
    Q_D(QtSingleApplication);
    return isRunning() && d->instance.send(message, timeout);
}

void QtSingleApplication::setActivationWindow(QWidget *window, bool activateOnMessage)
{
    Q_D(QtSingleApplication);
    d->activationWindow = window;
    disconnect(this,
               &QtSingleApplication::messageReceived,
               this,
               &QtSingleApplication::activateWindow);
    if (activateOnMessage)
        connect(this,
                &QtSingleApplication::messageReceived,
                this,
                &QtSingleApplication::activateWindow);
}

QWidget *QtSingleApplication::activationWindow() const
{
    Q_D(const QtSingleApplication);
    return d->activationWindow;
}

void QtSingleApplication::activateWindow()
{
    Q_D(QtSingleApplication);
    if (!d->activationWindow)
        return;
    d->activationWindow->setWindowState(d->activationWindow->windowState() & ~Qt::WindowMinimized);
    d->activationWindow->show();
    d->activationWindow->raise();
    d->activationWindow->activateWindow();
}
