// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/tango/TangoServer.h"

#include "monitor/plugins/support/ReaderThreads.h"
#include "monitor/plugins/tango/TangoResultDevice.h"
#include "monitor/plugins/tango/TangoText.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <future>
#include <iostream>
#include <system_error>

namespace {

//! The name of a server in the database is that of its program and of its instance.
constexpr char programName[] = "corvale-monitor";

/*! Keeps what the program does on signals: the library puts its own handlers in their place, which end the process without a word
    to the recordings. */
class SignalKeeper
{
public:
    SignalKeeper()
    {
        for (std::size_t i = 0; i < signals.size(); ++i)
            ::sigaction(signals[i], nullptr, &m_kept[i]);
    }
    ~SignalKeeper()
    {
        for (std::size_t i = 0; i < signals.size(); ++i)
            ::sigaction(signals[i], &m_kept[i], nullptr);
    }
    SignalKeeper(const SignalKeeper &) = delete;
    SignalKeeper &operator=(const SignalKeeper &) = delete;

private:
    static constexpr std::array<int, 6> signals{SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGUSR1, SIGABRT};
    std::array<struct sigaction, 6> m_kept = {};
};

QString reasonOf(const Tango::DevFailed &failure)
{
    if (failure.errors.length() == 0)
        return TangoText::tr("an error without a description");
    return QString::fromLatin1(failure.errors[0].desc.in()).simplified();
}

//! Returns the device as the database knows it; without one in it \a error says what to do.
std::string instanceInDatabase(Tango::Database &database, const QString &device, QString *error)
{
    const QString program = QLatin1String(programName);
    std::string name = device.toStdString();
    QString server;
    try {
        server = QString::fromStdString(database.get_device_info(name).ds_full_name);
    } catch (const Tango::DevFailed &) {
        const QString instance = QString(device).replace(QLatin1Char('/'), QLatin1Char('-'));
        *error = TangoText::tr("the database has no device %1; define it with: tango_admin "
                               "--add-server %2/%3 CorvaleMonitor %1")
                     .arg(device, program, instance);
        return {};
    }
    const bool isOurs = server.startsWith(program + QLatin1Char('/'), Qt::CaseInsensitive);
    if (!isOurs)
        *error = TangoText::tr("the device %1 belongs to the server %2, not to %3")
                     .arg(device, server, program);
    return isOurs ? server.mid(program.size() + 1).toStdString() : std::string();
}

//! Returns whether a server answers that has the same name.
bool isRunning(const std::string &instance)
{
    std::string name = std::string("dserver/") + programName + "/" + instance;
    try {
        Tango::DeviceProxy(name).ping();
        return true;
    } catch (const Tango::DevFailed &) {
        return false;
    }
}

/*! Asks the database which instance of this program has the devices. The library would end the process if the database
    were missing or did not know them. */
std::string findInstance(const QVector<TangoServer::Device> &devices, QString *error)
{
    try {
        Tango::Database database;
        std::string instance;
        for (const TangoServer::Device &device : devices) {
            const std::string its = instanceInDatabase(database, device.name.device, error);
            if (error->isEmpty() && !instance.empty() && its != instance)
                *error = TangoText::tr("the database has %1 and %2 in different servers; one run "
                                       "serves one of them")
                             .arg(devices.first().name.device, device.name.device);
            if (!error->isEmpty())
                return {};
            instance = its;
        }
        if (isRunning(instance))
            *error =
                TangoText::tr("another program serves %1 already").arg(devices.first().name.device);
        return instance;
    } catch (const Tango::DevFailed &failure) {
        *error = TangoText::tr("the database does not answer: %1").arg(reasonOf(failure));
    }
    return {};
}

} // namespace

struct TangoServer::Private
{
    void serve(const QVector<Device> &devices, std::promise<QString> &started);
    QString begin(const QVector<Device> &devices);
    QString arguments(const QVector<Device> &devices);
    void announce();
    static void end();

    std::mutex mutex; //!< for what follows up to the empty line
    std::condition_variable changed;
    bool hasNews = false;
    bool isStopping = false;

    // Set before the threads that use them begin.
    TangoResultClass::Boards boards;
    std::vector<std::string> words; //!< the arguments of the server
    TangoResultClass *kind = nullptr; //!< owned by the library
};

namespace {

//! What the library asks for its classes calls a plain function.
TangoResultClass::Boards *boardsOfClass = nullptr;
TangoResultClass *madeClass = nullptr;

void makeClass(Tango::DServer *server)
{
    madeClass = new TangoResultClass(*boardsOfClass);
    server->_add_class(madeClass);
}

} // namespace

//! Collects the arguments that the server is started with. Returns why it cannot be started; empty if it can.
QString TangoServer::Private::arguments(const QVector<Device> &devices)
{
    const TangoName &first = devices.first().name;
    QString error;
    if (!first.hasDatabase) {
        QStringList names;
        for (const Device &device : devices)
            names.append(device.name.device);
        const QString end = QStringLiteral("giop:tcp:%1:%2").arg(first.host).arg(first.port);
        words = {programName,
                 "publish",
                 "-nodb",
                 "-ORBendPoint",
                 end.toStdString(),
                 "-dlist",
                 names.join(QLatin1Char(',')).toStdString()};
        return {};
    }
    if (first.port > 0)
        qputenv("TANGO_HOST", QStringLiteral("%1:%2").arg(first.host).arg(first.port).toUtf8());
    words = {programName, findInstance(devices, &error)};
    return error;
}

//! Starts the server. Returns what went wrong; empty if it serves.
QString TangoServer::Private::begin(const QVector<Device> &devices)
{
    QString error = arguments(devices);
    if (!error.isEmpty())
        return error;
    for (const Device &device : devices)
        boards[device.name.device.toLower().toStdString()] = device.board;
    std::vector<char *> pointers;
    for (std::string &word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const TangoName &first = devices.first().name;
    try {
        boardsOfClass = &boards;
        Tango::DServer::register_class_factory(&makeClass);
        Tango::Util *const server = Tango::Util::init(int(words.size()), pointers.data());
        server->server_init(false);
        kind = madeClass;
    } catch (const Tango::DevFailed &failure) {
        return reasonOf(failure);
    } catch (const CORBA::INITIALIZE &) {
        return TangoText::tr("nothing can listen at %1:%2: another program does, or the host is "
                             "not this computer")
            .arg(first.host)
            .arg(first.port);
    } catch (const CORBA::Exception &exception) {
        return QLatin1String(exception._name());
    }
    return kind && kind->devices().size() == std::size_t(devices.size())
        ? QString()
        : TangoText::tr("the server does not have all of the devices");
}

void TangoServer::Private::serve(const QVector<Device> &devices, std::promise<QString> &started)
{
    const omni_thread::ensure_self self;
    const QString error = begin(devices);
    started.set_value(error);
    if (!error.isEmpty())
        return;
    try {
        Tango::Util::instance()->server_run();
    } catch (const CORBA::Exception &) {
        // It ends with the process, and has nobody to tell it.
    }
}

//! Tells changes until the server ends.
void TangoServer::Private::announce()
{
    const omni_thread::ensure_self self;
    std::unique_lock lock(mutex);
    for (;;) {
        changed.wait(lock, [this] {
            return hasNews || isStopping;
        });
        const bool isLast = isStopping;
        hasNews = false;
        lock.unlock();
        for (TangoResultDevice *device : kind->devices()) {
            try {
                device->announce();
            } catch (const CORBA::Exception &) {
                // Clients hold the device; the next results are told.
            }
        }
        if (isLast)
            break;
        lock.lock();
    }
    end();
}

void TangoServer::Private::end()
{
    try {
        Tango::Util::instance()->get_dserver_device()->kill();
    } catch (const CORBA::Exception &) {
        // It ends with the process.
    }
}

TangoServer::TangoServer()
    : d(std::make_shared<Private>())
{
}

std::shared_ptr<TangoServer> TangoServer::start(const QVector<Device> &devices, QString *error)
{
    std::shared_ptr<TangoServer> server(new TangoServer);
    const SignalKeeper keeper;
    // The library says on the standard output that it serves, where reports are printed.
    std::cout.setstate(std::ios_base::failbit);
    const auto started = std::make_shared<std::promise<QString>>();
    std::future<QString> answer = started->get_future();
    ReaderThreads::run([d = server->d, devices, started] {
        d->serve(devices, *started);
    });
    constexpr std::chrono::seconds patience{20};
    *error = answer.wait_for(patience) == std::future_status::ready
        ? answer.get()
        : TangoText::tr("the database does not answer in time");
    if (!error->isEmpty())
        return nullptr;
    try {
        ReaderThreads::run([d = server->d] {
            d->announce();
        });
    } catch (const std::system_error &) {
        Private::end(); // clients would wait for changes that nobody tells
        throw;
    }
    return server;
}

TangoServer::~TangoServer()
{
    const std::lock_guard lock(d->mutex);
    d->isStopping = true;
    d->changed.notify_one();
}

void TangoServer::wake()
{
    const std::lock_guard lock(d->mutex);
    d->hasNews = true;
    d->changed.notify_one();
}
