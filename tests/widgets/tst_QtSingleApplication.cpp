// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/InstanceMessage_p.h"
#include "corvale_qt/widgets/QtSingleApplication.h"
#include "corvale_qt/widgets/SingleInstance_p.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

#include <QLocalSocket>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

using Corvale_Qt::InstanceMessage;
using Corvale_Qt::SingleInstance;

namespace {

//! Another process that tries to become the first instance.
class Peer : public QProcess
{
public:
    explicit Peer(const QStringList &arguments,
                  const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
    {
        setProcessEnvironment(environment);
        start(PEER_PROGRAM, arguments);
    }
    ~Peer() override
    {
        kill();
        waitForFinished();
    }
    //! Returns the next line that the process prints.
    QString line()
    {
        while (!canReadLine())
            if (!waitForReadyRead(20000))
                return "(nothing)";
        return QString::fromUtf8(readLine()).trimmed();
    }
    int result()
    {
        waitForFinished(20000);
        return exitStatus() == NormalExit ? exitCode() : -1;
    }
};

//! The first instance, in this process, and what it receives.
struct First : SingleInstance
{
    QStringList received;

    explicit First(const QString &id)
        : SingleInstance(id)
    {
        if (!takeFirstPlace())
            qFatal("another instance is the first");
        connect(this, &SingleInstance::messageReceived, this,
                [this](const QString &message) { received << message; });
    }
    std::unique_ptr<QLocalSocket> connection() const
    {
        auto socket = std::make_unique<QLocalSocket>();
        socket->connectToServer(serverName());
        socket->waitForConnected();
        return socket;
    }
};

//! Returns an environment without a session's folder, and with \a folder for temporary files.
QProcessEnvironment withoutSession(const QString &folder)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("XDG_RUNTIME_DIR");
    environment.insert("TMPDIR", folder);
    return environment;
}

constexpr QFile::Permissions kOfOthers(QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
                                       | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther);

constexpr uid_t kAnotherUser = 65534;

//! Runs \a body, which may only make system calls, in a process of another user, and returns its result.
template<typename Body>
int asAnotherUser(const Body &body)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(::setuid(kAnotherUser) == 0 ? body() : 99);
    int status = 0;
    while (::waitpid(child, &status, WNOHANG) == 0)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return WEXITSTATUS(status);
}

sockaddr_un addressOf(const QString &socketFile)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, QFile::encodeName(socketFile), sizeof address.sun_path);
    return address;
}

} // namespace

class tst_QtSingleApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_id = QString("test %1 %2").arg(qApp->applicationPid()).arg(++m_number); }

    void aSecondProcessHandsItsRequestOver()
    {
        Peer first({m_id, "serve"});
        QCOMPARE(first.line(), QString("first"));
        QCOMPARE(Peer({m_id, "serve"}).line(), QString("second"));
        QCOMPARE(Peer({m_id + " other", "serve"}).line(), QString("first"));

        QCOMPARE(Peer({m_id + " other", "send", "hello"}).result(), 1);
        const QString request = QChar(0xb5) + QString("A open run.csv");
        QCOMPARE(Peer({m_id, "send", request}).result(), 0);
        QCOMPARE(first.line(), request);
    }

    void crashedFirstInstanceDoesNotBlock()
    {
        auto first = std::make_unique<Peer>(QStringList{m_id, "serve"});
        QCOMPARE(first->line(), QString("first"));
        const QString socketFile = SingleInstance(m_id).serverName();
        first->kill();
        first->waitForFinished();
        QVERIFY2(QFileInfo::exists(socketFile), "a killed process leaves its socket");

        Peer next({m_id, "serve"});
        QCOMPARE(next.line(), QString("first"));
        QCOMPARE(Peer({m_id, "send", "again"}).result(), 0);
        QCOMPARE(next.line(), QString("again"));
    }

    void damagedLockFileDoesNotBlock()
    {
        putFile(SingleInstance(m_id).serverName() + ".lock", "");
        QCOMPARE(Peer({m_id, "serve"}).line(), QString("first"));
    }

    void severalAtOnceHaveOneFirst()
    {
        std::vector<std::unique_ptr<Peer>> peers;
        for (int i = 0; i < 5; ++i)
            peers.push_back(std::make_unique<Peer>(QStringList{m_id, "serve"}));
        QStringList said;
        for (const auto &peer : peers)
            said << peer->line();
        said.sort();
        QCOMPARE(said.join(' '), QString("first second second second second"));
    }

    void activationWindow_data()
    {
        tableFrom(R"(
            | settings | answer
            no window | | hello: an icon
            at a message | on | hello: open
            not at a message | off | hello: an icon
            no longer at a message | on off | hello: an icon
            at a message in the end | off on on | hello: open
        )");
    }
    void activationWindow()
    {
        Peer first(QStringList{m_id, "window"} + cell("settings").split(' ', Qt::SkipEmptyParts));
        QCOMPARE(first.line(), QString("first"));
        QCOMPARE(Peer({m_id, "send", "hello"}).result(), 0);
        QTEST(first.line(), "answer");
    }

    void withoutASessionsFolder()
    {
        QTemporaryDir temporary;
        const QProcessEnvironment environment = withoutSession(temporary.path());
        Peer first({m_id, "serve"}, environment);
        QCOMPARE(first.line(), QString("first"));
        QCOMPARE(Peer({m_id, "send", "found"}, environment).result(), 0);
        QCOMPARE(first.line(), QString("found"));
        const QFileInfo folder(QString("%1/corvale_qt-%2").arg(temporary.path()).arg(::geteuid()));
        QVERIFY(folder.isDir());
        QVERIFY(!(folder.permissions() & kOfOthers));
    }

    void folderThatIsNotSafe_data()
    {
        QTest::addColumn<QString>("folder");
        for (const char *folder : {"open to others", "a link", "a file", "of another user"})
            QTest::newRow(folder) << QString(folder);
    }
    //! Another user may have created the folder, with a lock and a socket in it.
    void folderThatIsNotSafe()
    {
        QFETCH(QString, folder);
        QTemporaryDir temporary;
        const QString name = QString("%1/corvale_qt-%2").arg(temporary.path()).arg(::geteuid());
        const QByteArray path = QFile::encodeName(name);
        ::mkdir(folder == "a link" ? path + ".aim" : path, 0700);
        if (folder == "open to others") {
            ::chmod(path, 0770);
        } else if (folder == "a link") {
            QCOMPARE(::symlink(path + ".aim", path), 0);
        } else if (folder == "a file") {
            ::rmdir(path);
            ::close(::creat(path, 0700));
        } else if (::chown(path, kAnotherUser, kAnotherUser) != 0) {
            QSKIP("only root can give a folder away");
        }
        for (int i = 0; i < 2; ++i) {
            Peer peer({m_id, "serve"}, withoutSession(temporary.path()));
            QCOMPARE(peer.line(), QString("first"));
            QCOMPARE(peer.readAllStandardError().count("may run several times"), 1);
        }
        QVERIFY(QDir(name).isEmpty());
        QCOMPARE(Peer({m_id, "send", "x"}, withoutSession(temporary.path())).result(), 1);
    }

    //! Another user who can reach the socket can neither send a message nor receive one.
    void anotherUsersProcess()
    {
        if (::geteuid() != 0)
            QSKIP("only root can run a process as another user");
        QTemporaryDir session;
        ::chmod(QFile::encodeName(session.path()), 0755);
        const QByteArray usual = qgetenv("XDG_RUNTIME_DIR");
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(session.path()));
        SingleInstance first(m_id), next(m_id);
        qputenv("XDG_RUNTIME_DIR", usual);
        const sockaddr_un address = addressOf(first.serverName());
        const auto *name = reinterpret_cast<const sockaddr *>(&address);

        QVERIFY(first.takeFirstPlace());
        QVERIFY(!next.takeFirstPlace());
        ::chmod(QFile::encodeName(first.serverName()), 0666);
        QSignalSpy received(&first, &SingleInstance::messageReceived);
        const int answered = asAnotherUser([&] {
            const int connection = ::socket(AF_UNIX, SOCK_STREAM, 0);
            char answer = 0;
            if (::connect(connection, name, sizeof address) != 0)
                return 98;
            const bool sent = ::send(connection, "\0\0\0\1x", 5, MSG_NOSIGNAL) == 5;
            return sent && ::read(connection, &answer, 1) == 1 ? 1 : 0;
        });
        QCOMPARE(answered, 0);
        QVERIFY(received.isEmpty());

        // If another user listens at the socket, nothing is sent.
        QFile::remove(first.serverName());
        const int listener = ::socket(AF_UNIX, SOCK_STREAM, 0);
        QCOMPARE(::bind(listener, name, sizeof address), 0);
        bool sent = true;
        QTimer::singleShot(0, this, [&] {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("another user listens"));
            sent = next.send("secret", 20000);
        });
        const int bytes = asAnotherUser([&] {
            char byte = 0;
            ::listen(listener, 1);
            return int(::read(::accept(listener, nullptr, nullptr), &byte, 1));
        });
        ::close(listener);
        QCOMPARE(bytes, 0);
        QVERIFY(!sent);
    }

    //! Invalid input is dropped, and the next message arrives.
    void foreignBytesAreDropped_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        row("nothing", QByteArray());
        row("half a length", QByteArray("\0\0", 2));
        row("half a message", QByteArray("\0\0\0\x09half", 8));
        row("length beyond the limit", QByteArray("\x7f\xff\xff\xffxxxx", 8));
        row("another protocol", QByteArray("GET / HTTP/1.1\r\n\r\n"));
    }
    void foreignBytesAreDropped()
    {
        First first(m_id);
        {
            const auto stranger = first.connection();
            stranger->write(cell<QByteArray>("bytes"));
            stranger->flush();
            stranger->disconnectFromServer();
        }
        Peer sender({m_id, "send", "genuine"});
        QTRY_COMPARE(first.received.join('|'), QString("genuine"));
    }

    void longestMessage()
    {
        First first(m_id);
        const auto sender = first.connection();
        const QByteArray longest(InstanceMessage::kMaximumSize, 'x');
        QByteArray head(4, '\0');
        qToBigEndian(quint32(longest.size()), head.data());
        sender->write(head + longest);
        QTRY_COMPARE(first.received.value(0).size(), longest.size());
        QTRY_COMPARE(sender->bytesAvailable(), qint64(qstrlen(SingleInstance::kAnswer)));
        QCOMPARE(sender->readAll(), QByteArray(SingleInstance::kAnswer));

        QVERIFY(!first.send(QString(longest + 'x'), 1000));
    }

    void idleConnectionsAreBounded()
    {
        First first(m_id);
        std::vector<std::unique_ptr<QLocalSocket>> idle;
        for (int i = 0; i < SingleInstance::kMaximumConnections; ++i) {
            idle.push_back(first.connection());
            QCoreApplication::processEvents();
        }
        const auto oneMore = first.connection();
        QTRY_COMPARE(oneMore->state(), QLocalSocket::UnconnectedState);
        idle.clear();
        Peer sender({m_id, "send", "room again"});
        QTRY_COMPARE(first.received.join('|'), QString("room again"));
    }

private:
    QString m_id;
    int m_number = 0;
};

CORVALE_QT_TEST_MAIN(tst_QtSingleApplication)
#include "tst_QtSingleApplication.moc"
