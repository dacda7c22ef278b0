// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/SerialSource.h"
#include "monitor/sources/SocketSetup.h"
#include "monitor/sources/StandardInputSource.h"
#include "monitor/sources/TcpClientSource.h"
#include "monitor/sources/TcpServerSource.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/monitor/support/SourceLog.h"
#include "tests/support/TestMain.h"

#include <QAbstractEventDispatcher>
#include <QRegularExpression>
#include <QTcpSocket>
#include <QTemporaryFile>

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

using namespace Monitor;

//! A peer that listens on loopback and keeps the connection.
class Instrument : public QTcpServer
{
public:
    Instrument() { listen(QHostAddress::LocalHost); }
    bool accept()
    {
        if (!hasPendingConnections() && !waitForNewConnection(5000))
            return false;
        peer = nextPendingConnection();
        return peer != nullptr;
    }
    void say(const QByteArray &text)
    {
        peer->write(text);
        peer->flush();
    }

    QTcpSocket *peer = nullptr;
};

//! A client of an instrument.
struct Client
{
    explicit Client(quint16 port, const TcpClientSource::Question &question = {{}, 0.1})
        : source(clock, "127.0.0.1", port, question)
    {
    }
    ManualClock clock;
    TcpClientSource source;
    SourceLog log{source};
};

//! A server for instruments, and how one connects to it.
struct Server
{
    bool connectPeer(QTcpSocket &peer, const char *text)
    {
        peer.connectToHost(QHostAddress::LocalHost, source.port());
        return peer.waitForConnected() && peer.write(text) > 0;
    }
    ManualClock clock;
    TcpServerSource source{clock, QHostAddress::LocalHost, 0};
    SourceLog log{source};
};

//! Writes a text to a file of the system.
bool say(int file, const char *text)
{
    return ::write(file, text, strlen(text)) == ssize_t(strlen(text));
}

//! A pipe that a source reads.
struct Piped
{
    Piped() { source.start(); }
    ~Piped() { ::close(ends[0]); }
    bool say(const char *text) { return ::say(ends[1], text); }
    void end() { ::close(ends[1]); }

    int ends[2] = {-1, -1};
    const bool isOpen = ::pipe(ends) == 0; // say() fails otherwise
    ManualClock clock;
    StandardInputSource source{clock, ends[0]};
    SourceLog log{source};
};

//! Breaks a connection off without closing it, as a machine does that was switched off and on again.
void reset(QTcpSocket *peer)
{
    const linger none = {1, 0};
    ::setsockopt(int(peer->socketDescriptor()), SOL_SOCKET, SO_LINGER, &none, sizeof(none));
    peer->abort();
}

//! Every source of lines against a real peer: a socket, a pipe, a pseudo-terminal.
class tst_LineSources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pipe()
    {
        Piped p;
        QVERIFY(p.say("#channels a,b\n0,1,2\n1,3"));
        QTRY_COMPARE(p.source.counts().lines, qint64(2));
        QVERIFY(p.say(",4\n\xff\x01garbage\n2,5,6\n3,7,8"));
        QTRY_COMPARE(p.log.times.size(), 3);
        QCOMPARE(p.log.sink.lines.removeAll("refused 4 count"), 1);
        QCOMPARE(p.log.text(), QString("start channels a b | 0: 1 2 | 1: 3 4 | 2: 5 6"));
        p.end(); // the last line without a line end is complete here
        QTRY_COMPARE(p.log.stateNames(), QString("Connecting Running Finished"));
        QVERIFY(p.log.text().endsWith(" | 3: 7 8"));
    }

    //! What comes while nobody sees it is read at a tick, unless its arrival dates it; nothing is left over at an end.
    void theBackgroundWaitsForATick()
    {
        Piped p;
        p.clock.advance(10.0); // later than all times below
        p.clock.setBackground(true);
        QVERIFY(p.say("#channels a\n0,1\n1,2\n"));
        QTRY_COMPARE(p.log.times.size(), 2); // the first readings date a stream
        QVERIFY(p.say("2,3\n"));
        QCoreApplication::processEvents();
        QVERIFY(p.say("3,4\n"));
        QCoreApplication::processEvents();
        QCOMPARE(p.log.times.size(), 2);
        p.clock.advance(0.02);
        QCOMPARE(p.log.times, (QVector<double>{0, 1, 2, 3}));
        QVERIFY(p.say("4,5\n,6\n"));
        QCoreApplication::processEvents();
        p.clock.setBackground(false);
        QCOMPARE(p.log.times.size(), 6);
        p.clock.setBackground(true);
        QVERIFY(p.say(",7\n"));
        QTRY_COMPARE(p.log.times.size(), 7);
        QVERIFY(p.say("100000,8\n"));
        QTRY_COMPARE(p.log.times.size(), 8);
        QVERIFY(p.say("100001,9\n"));
        p.end();
        p.clock.advance(0.02);
        QTRY_COMPARE(p.log.times.size(), 9);
        QTRY_COMPARE(p.log.stateNames(), QString("Connecting Running Finished"));
    }

    //! Large pieces are read in a thread, while those before are used.
    void aFloodKeepsItsOrder()
    {
        constexpr int rows = 60000, eventEvery = 1000;
        QTemporaryFile file;
        QVERIFY(file.open());
        QStringList expected{"start channels ch1"};
        for (int i = 0; i < rows; ++i) {
            file.write(QByteArray::number(i) + ",0.5\n");
            expected << QString("%1: 0.5").arg(double(i));
            if (i % eventEvery == 1) {
                file.write("#event so far\n");
                expected << "event so far";
            }
        }
        file.write("5"); // has no line end, and too few numbers
        QVERIFY(file.seek(0) && file.size() > qint64(2) * Source::pieceSize);
        ManualClock clock;
        StandardInputSource source(clock, file.handle());
        SourceLog log(source);
        source.start();
        QTRY_COMPARE(log.stateNames(), QString("Connecting Running Finished"));
        const int refused = log.sink.lines.indexOf(QRegularExpression("^refused .*"));
        QVERIFY(refused > 0);
        log.sink.lines.removeAt(refused);
        QVERIFY(log.sink.lines == expected);
        QCOMPARE(source.counts().readings, qint64(rows));
        QCOMPARE(source.counts().bad(), qint64(1));
    }

    void imagesOnStandardInput()
    {
        Piped p;
        p.clock.advance(0.5);
        QVERIFY(p.say("P"));
        QVERIFY(p.say("5 2 1 255\nA"));
        QVERIFY(p.say("BP5\n# t 2.5\n2 1\n65535\nAAABP2 1 2 9 7 8 P2 1 1 9 1\n"));
        p.end();
        QTRY_COMPARE(p.source.state(), Source::State::Finished);
        QCOMPARE(p.log.text(),
                 QString("start pixels frames, matrix 1 x 2, positions in cells, sum max x:cells "
                         "sigma_x:cells y:cells sigma_y:cells | 0.5: 65 66 | 2.5: 16705 16706 | "
                         "refused 3-4 back"));
        QCOMPARE(p.source.counts().readings, qint64(2));
    }

    //! A table whose first column is called P5, and an image that breaks off the stream.
    void whatIsNoImageAndWhatCannotBeRead()
    {
        const auto outcome = [](const char *bytes) {
            Piped p;
            if (!p.say(bytes))
                return QString();
            p.end();
            const bool ended = QTest::qWaitFor([&] {
                return p.source.state() == Source::State::Finished
                    || p.source.state() == Source::State::Failed;
            });
            return ended ? p.log.text() + QStringLiteral(" ") + p.log.stateNames() : QString();
        };
        QVERIFY(outcome("P5,P6\n0,1\n1,2\n").endsWith("0: 1 | 1: 2 Connecting Running Finished"));
        QVERIFY(outcome("P5").endsWith("Finished"));
        // Blanks are not looked through for ever.
        const QByteArray blanks = "P5" + QByteArray(100, ' ') + "6,P6\n0,1\n";
        const QString table = outcome(blanks.constData());
        QVERIFY2(table.endsWith("0: 1 Connecting Running Finished"), qPrintable(table));
        const QString broken = outcome("P5 1 1 255\nAP5 999 1 255\nA");
        QVERIFY2(broken.contains("refused 2 unreadable")
                     && broken.endsWith("Connecting Running Failed"),
                 qPrintable(broken));
    }

    void tcpClient()
    {
        Instrument instrument;
        Client client(instrument.serverPort());
        client.source.start();
        QVERIFY(instrument.accept());
        QTRY_COMPARE(client.source.state(), Source::State::Running);
        instrument.say("#channels a\r\n0,1\r\n1,");
        QTRY_COMPARE(client.source.counts().lines, qint64(2));
        instrument.say("2\r\n");
        QTRY_COMPARE(client.log.text(), QString("start channels a | 0: 1 | 1: 2"));
        // Lines without a time get the seconds since the source was started.
        client.clock.advance(2.5);
        instrument.say(",3\n");
        QTRY_COMPARE(client.log.times.size(), 3);
        QCOMPARE(client.log.times.last(), 2.5);
    }

    void tcpClientReconnectsWithBackoff()
    {
        auto instrument = std::make_unique<Instrument>();
        const quint16 port = instrument->serverPort();
        Client client(port);
        auto &[clock, source, log] = client;
        source.start();
        QVERIFY(instrument->accept());
        instrument->say("#channels a\n5,1\n6,2\n7,");
        QTRY_COMPARE(log.times.size(), 2);
        instrument.reset(); // closes the connection and the port

        QTRY_COMPARE(source.state(), Source::State::Retrying);
        for (const char *wait : {"0.5", "1", "2", "4", "8", "10", "10"}) {
            QTRY_VERIFY(log.lastText.endsWith(QString("trying again in %1 s").arg(wait)));
            log.lastText.clear();
            const int states = log.states.size();
            clock.advance(QByteArray(wait).toDouble() - 0.1);
            QCOMPARE(log.states.size(), states); // not before its time
            clock.advance(0.2);
            // The same state text twice in a row does not count as a change.
            if (qstrcmp(wait, "10") == 0)
                break;
        }

        // It comes back, counting from zero: another acquisition, without what was cut off before.
        Instrument again;
        again.close();
        QVERIFY(again.listen(QHostAddress::LocalHost, port));
        QTRY_VERIFY([&] {
            client.clock.advance(10.1);
            return again.hasPendingConnections() || again.waitForNewConnection(10);
        }());
        QVERIFY(again.accept());
        log.sink.lines.clear();
        again.say("0,3\n1,4\n");
        QTRY_COMPARE(log.text(), "start channels a | 0: 3 | 1: 4");
        QCOMPARE(source.counts().bad(), qint64(0));
    }

    void tcpClientWithoutReconnecting()
    {
        Instrument instrument;
        const quint16 port = instrument.serverPort();
        Client good(port);
        good.source.setReconnecting(false);
        good.source.start();
        QVERIFY(instrument.accept());
        instrument.say("0,1\n1,2"); // the last line without an end is the end of the data here
        instrument.peer->disconnectFromHost();
        QTRY_COMPARE(good.source.state(), Source::State::Finished);
        QCOMPARE(good.log.text(), QString("start channels ch1 | 0: 1 | 1: 2"));

        instrument.close();
        Client refused(port);
        refused.source.setReconnecting(false);
        refused.source.start();
        QTRY_COMPARE(refused.source.state(), Source::State::Failed);
        QVERIFY(refused.source.stateText().contains("refused"));
    }

    void tcpClientAsks()
    {
        Instrument instrument;
        Client client(instrument.serverPort(), {"READ?", 0.1});
        auto &[clock, source, log] = client;
        source.start();
        QVERIFY(instrument.accept());
        QByteArray asked;
        const auto heard = [&] {
            asked += instrument.peer->readAll();
            return asked.count("READ?\n");
        };
        QTRY_COMPARE(heard(), 1);

        // No second question while the first has no answer; the next one an interval after an answer.
        clock.advance(0.3);
        QTest::qWait(0);
        QCOMPARE(heard(), 1);
        instrument.say("1.5\n");
        QTRY_COMPARE(source.counts().lines, qint64(1));
        clock.advance(0.1);
        QTRY_COMPARE(heard(), 2);
        instrument.say("2.5\n");
        QTRY_COMPARE(log.text(), "start channels ch1 | 0.3: 1.5 | 0.4: 2.5");

        // An answer that is lost ends nothing.
        clock.advance(0.1);
        QTRY_COMPARE(heard(), 3);
        clock.advance(1.1);
        QTRY_COMPARE(heard(), 4);
    }

    void aSilentPeerIsConnectedAnew_data()
    {
        columns<bool>("asked");
        QTest::addColumn<double>("set"); // negative: the default
        QTest::addColumn<double>("silence"); // 0: never
        row("one that talks, by default", false, -1.0, 0.0);
        row("one that talks, with a limit", false, 20.0, 20.0);
        row("one that is asked, by default", true, -1.0, 30.0);
        row("one that is asked, without a limit", true, 0.0, 0.0);
    }

    void aSilentPeerIsConnectedAnew()
    {
        QFETCH(double, set);
        QFETCH(double, silence);
        Instrument instrument;
        Client client(instrument.serverPort(), {cell<bool>("asked") ? "READ?" : "", 0.1});
        auto &[clock, source, log] = client;
        if (set >= 0.0)
            source.setLongestSilence(set);
        source.start();
        QVERIFY(instrument.accept());
        QTRY_COMPARE(source.state(), Source::State::Running);
        // Before it has said anything, nothing is known of how often it talks.
        clock.advance(100.0);
        QCOMPARE(source.state(), Source::State::Running);
        instrument.say("1,1\n2,2\n");
        QTRY_COMPARE(log.times.size(), 2);
        clock.advance(silence > 0.0 ? silence - 0.1 : 1000.0);
        QCOMPARE(source.state(), Source::State::Running);
        if (silence == 0.0)
            return;
        clock.advance(0.2);
        QCOMPARE(source.state(), Source::State::Retrying);
        QVERIFY2(source.stateText().contains(QString("silent for %1 s").arg(silence)),
                 qPrintable(source.stateText()));
        QTRY_COMPARE(instrument.peer->state(), QAbstractSocket::UnconnectedState);
        const QTcpSocket *old = instrument.peer;
        clock.advance(0.6);
        QVERIFY(instrument.accept());
        QVERIFY(instrument.peer != old);
        QTRY_COMPARE(source.state(), Source::State::Running);
        clock.advance(100.0);
        QCOMPARE(source.state(), Source::State::Running);
        instrument.say("4,4\n5,5\n");
        QTRY_COMPARE(log.times, QVector<double>({1, 2, 4, 5}));
    }

    //! Qt never tells of a name that it could not look for. It does not look for one before the event loop runs.
    void aLookupWithoutEndIsRepeated()
    {
        ManualClock clock;
        TcpClientSource source(clock, "localhost", 1, {{}, 0.1});
        source.start();
        clock.advance(0.99 * TcpClientSource::longestLookup);
        QCOMPARE(source.state(), Source::State::Connecting);
        clock.advance(0.02 * TcpClientSource::longestLookup);
        QCOMPARE(source.state(), Source::State::Retrying);
        QVERIFY2(source.stateText().startsWith(
                     "tcp://localhost:1: its name was not resolved in time; trying again in 0.5 s"),
                 qPrintable(source.stateText()));
    }

    //! The system asks a silent peer soon enough, and often enough, to give it up within 30 s.
    void aVanishedPeerIsFoundBySystem()
    {
#ifdef Q_OS_LINUX
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, server.serverPort());
        QVERIFY(socket.waitForConnected());
        setUpSocket(&socket);
        const auto option = [&socket](int level, int name) {
            int value = 0;
            socklen_t size = sizeof(value);
            ::getsockopt(int(socket.socketDescriptor()), level, name, &value, &size);
            return value;
        };
        QVERIFY(option(SOL_SOCKET, SO_KEEPALIVE) != 0);
        const int seconds = option(IPPROTO_TCP, TCP_KEEPIDLE)
            + option(IPPROTO_TCP, TCP_KEEPINTVL) * option(IPPROTO_TCP, TCP_KEEPCNT);
        QVERIFY2(seconds > 0 && seconds <= 30, qPrintable(QString::number(seconds)));
        const int milliseconds = option(IPPROTO_TCP, TCP_USER_TIMEOUT);
        QVERIFY2(milliseconds > 0 && milliseconds <= 30000,
                 qPrintable(QString::number(milliseconds)));
#else
        QSKIP("the system's settings are Linux's");
#endif
    }

    //! Readings from other machines are possible only where an operator asked for them, who is told what that means.
    void listeningToOtherMachinesIsWarnedOf()
    {
        ManualClock clock;
        TcpServerSource closed(clock, QHostAddress::LocalHost, 0),
            open(clock, QHostAddress::AnyIPv4, 0);
        for (TcpServerSource *source : {&closed, &open}) {
            QSignalSpy noted(source, &Source::noted);
            source->start();
            QCOMPARE(noted.size(), source == &open ? 1 : 0);
            QVERIFY(source == &closed
                    || noted[0][0].toString().startsWith("WARNING: tcp-listen://0.0.0.0:0"));
        }
    }

    //! A peer that breaks off is no peer that has finished: what it sent last may be missing.
    void aResetIsNoEnd()
    {
        Server server;
        server.source.start();
        QTcpSocket sender;
        QVERIFY(server.connectPeer(sender, "0,1\n1,2\n"));
        QTRY_COMPARE(server.log.times.size(), 2);
        reset(&sender);
        QTRY_COMPARE(server.source.state(), Source::State::Connecting);
        QVERIFY2(server.source.stateText().contains("the other side reset the connection"),
                 qPrintable(server.source.stateText()));

        Instrument instrument;
        Client client(instrument.serverPort());
        client.source.setReconnecting(false);
        client.source.start();
        QVERIFY(instrument.accept());
        instrument.say("0,1\n1,2\n");
        QTRY_COMPARE(client.source.counts().lines, qint64(2));
        reset(instrument.peer);
        QTRY_COMPARE(client.source.state(), Source::State::Failed);
        QVERIFY2(client.source.stateText().contains("the other side reset the connection"),
                 qPrintable(client.source.stateText()));
        QCOMPARE(client.log.times.size(), 2);
    }

    void tcpServer()
    {
        Server server;
        server.source.start();
        QTcpSocket first, second, third;
        QVERIFY(server.connectPeer(first, "0,1\n1,2\n"));
        QTRY_COMPARE(server.log.text(), QString("start channels ch1 | 0: 1 | 1: 2"));
        first.disconnectFromHost();
        // Nothing is wrong: the port is open for the next one.
        QTRY_COMPARE(server.source.state(), Source::State::Connecting);
        QVERIFY2(server.source.stateText().endsWith(
                     ": the other side closed the connection; waiting for the next one"),
                 qPrintable(server.source.stateText()));
        QVERIFY(server.connectPeer(second, "2,3\n3,4\n"));
        QTRY_COMPARE(server.log.text(), QString("start channels ch1 | 0: 1 | 1: 2 | 2: 3 | 3: 4"));
        QCOMPARE(server.source.state(), Source::State::Running);
        // The newest takes the place of one that is still connected.
        QVERIFY(server.connectPeer(third, "4,5\n5,6\n"));
        QTRY_COMPARE(server.log.times.size(), 6);
        QTRY_COMPARE(second.state(), QAbstractSocket::UnconnectedState);
        // What a peer had sent before the next one came is read, also if both are found at the same time.
        QTcpSocket fourth, fifth;
        QVERIFY(server.connectPeer(fourth, "6,7\n7,8\n") && fourth.waitForBytesWritten());
        fourth.disconnectFromHost();
        QVERIFY(server.connectPeer(fifth, "8,9\n9,10\n"));
        QTRY_COMPARE(server.log.times.size(), 10);
        QVERIFY(server.log.text().endsWith("6: 7 | 7: 8 | 8: 9 | 9: 10"));
    }

    void theNextPeerWaitsForTheRestOfTheFormer_data()
    {
        QTest::addColumn<bool>("leaves");
        QTest::addColumn<int>("extra");
        QTest::newRow("it has left") << true << 0;
        QTest::newRow("it falls silent") << false << 0;
        QTest::newRow("it does not stop") << false << 2;
    }

    //! The rest is read in pieces, so that no turn of the event loop takes long.
    void theNextPeerWaitsForTheRestOfTheFormer()
    {
        QFETCH(bool, leaves);
        QFETCH(int, extra);
        constexpr int rows = 100, piece = 64 * 1024;
        QByteArray lines;
        for (int i = 0; i < rows; ++i)
            lines += QByteArray::number(i) + ",1\n" + QByteArray(40000, '\n');
        Server server;
        int inTurn = 0, mostInTurn = 0;
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                &server.source, [&] { inTurn = 0; });
        connect(&server.source, &Source::bytesArrived, &server.source,
                [&](const QByteArray &bytes) {
                    inTurn += bytes.size();
                    mostInTurn = std::max(mostInTurn, inTurn);
                });
        server.source.start();
        QTcpSocket former, next;
        QVERIFY(server.connectPeer(former, lines) && former.waitForBytesWritten());
        if (leaves)
            former.disconnectFromHost();
        QVERIFY(server.connectPeer(next, "99998,1\n99999,1\n"));
        QTRY_COMPARE(server.log.times.size(), leaves ? rows + 2 : rows);
        for (int i = rows; i < rows + extra; ++i) {
            former.write(QByteArray::number(i) + ",1\n");
            QTRY_COMPARE(server.log.times.size(), i + 1);
            QCOMPARE(server.log.text().count("event"), 0);
            server.clock.advanceSilently(1.0);
            server.clock.advance(0.02);
        }
        if (extra == 0)
            server.clock.advance(0.04);
        QTRY_COMPARE(server.log.times.size(), rows + extra + 2);
        QVERIFY(std::is_sorted(server.log.times.cbegin(), server.log.times.cend()));
        QCOMPARE(server.source.state(), Source::State::Running);
        QVERIFY2(mostInTurn <= 2 * piece, qPrintable(QString::number(mostInTurn)));
    }

    void aBusyPortIsTriedAgain()
    {
        auto other = std::make_unique<Instrument>();
        ManualClock clock;
        TcpServerSource source(clock, QHostAddress::LocalHost, other->serverPort());
        source.start();
        QCOMPARE(source.state(), Source::State::Retrying);
        QVERIFY(source.stateText().contains("in use"));
        // The clock may rest meanwhile, and need not tick when the attempt is due.
        const int before = clock.timesKeptAwake;
        clock.advance(0.4);
        QCOMPARE(source.state(), Source::State::Retrying);
        QCOMPARE(clock.timesKeptAwake, before);
        other.reset();
        clock.advanceSilently(0.2);
        QTRY_VERIFY(source.port() != 0);
    }

    //! The terminal's own end of a pseudo-terminal is the serial port here.
    void serialPort()
    {
        const int master = ::posix_openpt(O_RDWR | O_NOCTTY);
        if (master < 0)
            QSKIP("there are no pseudo-terminals here");
        QCOMPARE(::grantpt(master), 0);
        QCOMPARE(::unlockpt(master), 0);
        const QString device = QString::fromLocal8Bit(::ptsname(master));
        ManualClock clock;
        SerialSource source(clock, device);
        SourceLog log(source);
        source.start();
        QCOMPARE(source.state(), Source::State::Running);
        QVERIFY(say(master, "8,9\n#channels a,b\n0,1,2\n1,3,"));
        QVERIFY(say(master, "4\n2,5,6\n"));
        QTRY_COMPARE(log.times.size(), 4);
        QVERIFY(log.text().endsWith("start channels a b | 0: 1 2 | 1: 3 4 | 2: 5 6"));

        ::close(master); // the cable is pulled
        QTRY_VERIFY([&] {
            clock.advance(0.02);
            return source.state() == Source::State::Retrying;
        }());
        QVERIFY(log.lastText.contains("trying again"));

        SerialSource missing(clock, "/dev/no-such-port");
        missing.start();
        QCOMPARE(missing.state(), Source::State::Retrying);
    }
};

CORVALE_QT_TEST_MAIN(tst_LineSources)
#include "tst_LineSources.moc"
