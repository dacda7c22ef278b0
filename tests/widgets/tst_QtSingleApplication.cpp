// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/QtSingleApplication.h"
#include "corvale_qt/widgets/SingleInstance_p.h"
#include "tests/support/TestMain.h"

#include <QFileInfo>
#include <QLocalSocket>
#include <QProcess>
#include <QtEndian>

#include <memory>

using Corvale_Qt::SingleInstance;

namespace {

//! Another process that runs, or wants to run, as the first instance.
class Peer : public QProcess
{
public:
    explicit Peer(const QStringList &arguments) { start(PEER_PROGRAM, arguments); }
    ~Peer() override
    {
        kill();
        waitForFinished();
    }
    //! The next line it prints.
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

} // namespace

class tst_QtSingleApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_id = QString("test %1 %2").arg(qApp->applicationPid()).arg(++m_number); }

    void secondProcessHandsItsRequestOver()
    {
        Peer first({m_id, "serve"});
        QCOMPARE(first.line(), QString("first"));
        Peer second({m_id, "serve"});
        QCOMPARE(second.line(), QString("second"));

        Peer sender({m_id,
                     "send",
                     QString::fromUtf8("\xc2\xb5"
                                       "A open run.csv")});
        QCOMPARE(sender.result(), 0);
        QCOMPARE(first.line(),
                 QString::fromUtf8("\xc2\xb5"
                                   "A open run.csv"));
    }

    void anotherIdIsAnotherApplication()
    {
        Peer first({m_id, "serve"});
        QCOMPARE(first.line(), QString("first"));
        Peer other({m_id + " other", "serve"});
        QCOMPARE(other.line(), QString("first"));
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
        QFile lock(SingleInstance(m_id).serverName() + ".lock");
        QVERIFY(lock.open(QFile::WriteOnly));
        lock.close();
        Peer first({m_id, "serve"});
        QCOMPARE(first.line(), QString("first"));
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

    void nobodyToSendTo() { QCOMPARE(Peer({m_id, "send", "hello"}).result(), 1); }

    void onlyThisUserMayConnect()
    {
        SingleInstance first(m_id);
        QVERIFY(first.takeFirstPlace());
        const auto others =
            QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        QVERIFY(!(QFile::permissions(first.serverName()) & others));
    }

    //! What a sender that is none of ours may bring; the next message comes through all the same.
    void foreignBytesAreDropped_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("half a length") << QByteArray("\0\0", 2);
        QTest::newRow("half a message") << QByteArray("\0\0\0\x09half", 8);
        QTest::newRow("length beyond the limit") << QByteArray("\x7f\xff\xff\xffxxxx", 8);
        QTest::newRow("another protocol") << QByteArray("GET / HTTP/1.1\r\n\r\n");
    }
    void foreignBytesAreDropped()
    {
        QFETCH(QByteArray, bytes);
        SingleInstance first(m_id);
        QVERIFY(first.takeFirstPlace());
        QSignalSpy received(&first, &SingleInstance::messageReceived);
        {
            QLocalSocket stranger;
            stranger.connectToServer(first.serverName());
            QVERIFY(stranger.waitForConnected());
            stranger.write(bytes);
            stranger.flush();
            stranger.disconnectFromServer();
        }
        Peer sender({m_id, "send", "genuine"});
        QTRY_COMPARE(received.size(), 1);
        QCOMPARE(received.at(0).at(0).toString(), QString("genuine"));
    }

    void longestMessage()
    {
        SingleInstance first(m_id);
        QVERIFY(first.takeFirstPlace());
        QSignalSpy received(&first, &SingleInstance::messageReceived);
        QLocalSocket sender;
        sender.connectToServer(first.serverName());
        QVERIFY(sender.waitForConnected());
        QByteArray head(4, '\0');
        qToBigEndian(quint32(SingleInstance::kMaximumMessage), head.data());
        sender.write(head + QByteArray(SingleInstance::kMaximumMessage, 'x'));
        QTRY_COMPARE(received.size(), 1);
        QCOMPARE(received.at(0).at(0).toString().size(), int(SingleInstance::kMaximumMessage));
        QTRY_COMPARE(sender.bytesAvailable(), qint64(SingleInstance::kAnswer.size()));
        QCOMPARE(sender.readAll(), SingleInstance::kAnswer);

        QVERIFY(!first.send(QString(SingleInstance::kMaximumMessage + 1, 'x'), 1000));
    }

    void idleConnectionsAreBounded()
    {
        SingleInstance first(m_id);
        QVERIFY(first.takeFirstPlace());
        std::vector<std::unique_ptr<QLocalSocket>> idle;
        for (int i = 0; i < SingleInstance::kMaximumConnections; ++i) {
            idle.push_back(std::make_unique<QLocalSocket>());
            idle.back()->connectToServer(first.serverName());
            QVERIFY(idle.back()->waitForConnected());
            QCoreApplication::processEvents();
        }
        QLocalSocket oneMore;
        oneMore.connectToServer(first.serverName());
        QTRY_COMPARE(oneMore.state(), QLocalSocket::UnconnectedState);
        idle.clear();
        Peer sender({m_id, "send", "room again"});
        QSignalSpy received(&first, &SingleInstance::messageReceived);
        QTRY_COMPARE(received.size(), 1);
    }

private:
    QString m_id;
    int m_number = 0;
};

CORVALE_QT_TEST_MAIN(tst_QtSingleApplication)
#include "tst_QtSingleApplication.moc"
