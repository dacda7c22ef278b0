// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/monitor/plugins/TangoClient.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <csignal>

namespace {

//! The time in which the program has to start and to serve, on a slow machine.
constexpr int patience = 60000;

quint16 freePort()
{
    QTcpServer server;
    return server.listen(QHostAddress::LocalHost) ? server.serverPort() : 0;
}

//! The monitor as a user starts it, with its results as devices of a server without a database.
class Monitor
{
public:
    Monitor()
        : m_port(freePort())
    {
    }
    ~Monitor()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    Monitor(const Monitor &) = delete;
    Monitor &operator=(const Monitor &) = delete;

    QString address(const QString &device) const
    {
        return QString("tango://127.0.0.1:%1/%2#dbase=no").arg(m_port).arg(device);
    }
    void start(const QStringList &arguments) { m_process.start(CORVALE_MONITOR, arguments); }
    //! Starts without a window, and waits until the device answers.
    void serve(const QStringList &sources, const QString &device = "beam/corvale/1")
    {
        start(QStringList{"--headless", "--publish", address(device)} + sources);
        waitForDevice(device);
    }
    void waitForDevice(const QString &device)
    {
        const auto answers = [&] {
            try {
                return TangoClient(address(device)).state().size() < 10; // a word, not an error
            } catch (...) {
                return false; // it cannot be reached yet
            }
        };
        QTRY_VERIFY2_WITH_TIMEOUT(answers(), m_process.readAllStandardError().constData(),
                                  patience);
    }
    //! Ends the program as the system does, and returns its exit code.
    int end()
    {
        m_process.terminate();
        if (!m_process.waitForFinished(patience))
            return -1;
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -2;
    }
    QProcess &process() { return m_process; }

private:
    const quint16 m_port;
    QProcess m_process;
};

QByteArray outputOf(const QStringList &arguments)
{
    QProcess process;
    process.start(CORVALE_MONITOR, arguments);
    return process.waitForFinished(patience) ? process.readAllStandardOutput() : QByteArray();
}

} // namespace

//! What the monitor computes, read by a client of the control system.
class tst_TangoPublisher : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        qputenv("CORVALE_MONITOR_PLUGIN_PATH",
                QFile::encodeName(QFileInfo(CORVALE_MONITOR_TANGO).absolutePath()));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder.path()));
        outputOf({"--convert", path("beam.csv"), "--after", "50readings", "sim:strips?seed=7"});
        putFile(path("currents.csv"),
                "#corvale 1\n#channels left,right\n#unit nA\n#t0 2026-03-01T12:00:00Z\n"
                "#limits left 10,20,400,500\n#limits right 0,1,2,3\n"
                "0,100,1.5\n0.5,450,1.5\n");
        putFile(path("far.csv"), "#corvale 1\n#channels a\n#t0 2026-03-01T12:00:00Z\n1e15,1\n");
        putFile(path("dark.csv"), "#layout strips\n0" + QByteArray(",0").repeated(64) + "\n");
    }

    //! Every number of the report, exactly, with its unit.
    void resultsAreThoseOfTheReport()
    {
        const QJsonObject report =
            QJsonDocument::fromJson(outputOf({"--stats", "--json", path("beam.csv")})).object();
        Monitor monitor;
        monitor.serve({"--speed", "0", path("beam.csv")});
        TangoClient client(monitor.address("beam/corvale/1"));
        QTRY_COMPARE(client.number("readings"), report["readings"].toDouble());
        QCOMPARE(client.number("readings"), 50.0);
        int planes = 0;
        for (const auto &each : report["estimates"].toArray()) {
            const QJsonObject plane = each.toObject();
            if (plane["estimator"] != "least_squares")
                continue;
            ++planes;
            const QString name = plane["plane"].toString();
            QTRY_COMPARE(client.number(name + "_position"), plane["position"].toDouble());
            QCOMPARE(client.number(name + "_sigma"), plane["sigma"].toDouble());
            QCOMPARE(client.number(name + "_integral"), plane["integral"].toDouble());
            QCOMPARE(client.number(name + "_validity"), 0.0);
            QVERIFY(client.read(name + "_verdict").texts.value(0).startsWith("DATA VALID"));
            QCOMPARE(client.unit(name + "_position"), plane["unit"].toString());
            // The noise is not stated, so that there is no chi-square.
            const bool hasChiSquare = plane["reduced_chi_square"].isDouble();
            QCOMPARE(std::isfinite(client.number(name + "_chi_square")), hasChiSquare);
        }
        QCOMPARE(planes, 2);
        const QJsonArray channels = report["channels"].toArray();
        const QStringList names = client.read("names").texts;
        QCOMPARE(names.size(), channels.size());
        QCOMPARE(client.read("values").numbers.size(), channels.size());
        for (int i = 0; i < names.size(); ++i) {
            QCOMPARE(names[i], channels[i].toObject()["name"].toString());
            QCOMPARE(client.read("units").texts[i], channels[i].toObject()["unit"].toString());
        }
        QCOMPARE(client.state(), QString("ON"));
        QCOMPARE(monitor.end(), 0);
    }

    //! Several sources under several names; each value says whether it is beyond its limits or without a beam.
    void qualitiesAndTimes()
    {
        Monitor monitor;
        monitor.start({"--headless", "--speed", "0", "--publish", monitor.address("beam/corvale/1"),
                       "--publish", "dark=" + monitor.address("beam/corvale/2"), "--publish",
                       "far=" + monitor.address("beam/corvale/3"), path("currents.csv"),
                       path("dark.csv"), path("far.csv")});
        monitor.waitForDevice("beam/corvale/2");
        TangoClient currents(monitor.address("beam/corvale/1"));
        TangoClient dark(monitor.address("beam/corvale/2"));
        QTRY_COMPARE(currents.number("readings"), 2.0);
        const TangoClient::Value values = currents.read("values");
        QCOMPARE(values.numbers, (QVector<double>{450, 1.5}));
        QCOMPARE(values.quality, QString("WARNING"));
        QCOMPARE(values.time, 1772366400.5); // 2026-03-01T12:00:00.5Z
        QCOMPARE(currents.read("value_states").numbers, (QVector<double>{1, 0}));
        QTRY_COMPARE(currents.unit("values"), QString("nA"));
        QCOMPARE(currents.state(), QString("ALARM"));
        QCOMPARE(currents.read("x_position").quality, QString("INVALID"));
        QCOMPARE(currents.read("x_validity").quality, QString("INVALID")); // there is no plane

        QTRY_COMPARE(dark.number("readings"), 1.0);
        QCOMPARE(dark.read("x_position").quality, QString("INVALID"));
        QCOMPARE(dark.number("x_validity"), 2.0);
        QCOMPARE(dark.read("x_validity").quality, QString("ALARM"));
        QVERIFY(dark.read("x_verdict").texts.value(0).startsWith("DATA NOT VALID: "));

        // The protocol has 32 bits for the seconds, and the time is then that of the answer.
        TangoClient far(monitor.address("beam/corvale/3"));
        QTRY_COMPARE(far.number("readings"), 1.0);
        const auto now = double(QDateTime::currentSecsSinceEpoch());
        QVERIFY(std::abs(far.read("values").time - now) < 3600.0);
    }

    //! A source that goes away: the last values are not taken for those of now. It is connected again.
    void sourceThatIsLost()
    {
        QTcpServer instrument;
        QVERIFY(instrument.listen(QHostAddress::LocalHost));
        Monitor monitor;
        monitor.start({"--headless", "--publish", monitor.address("beam/corvale/1"),
                       QString("tcp://127.0.0.1:%1").arg(instrument.serverPort())});
        QTRY_VERIFY_WITH_TIMEOUT(instrument.hasPendingConnections(), patience);
        QTcpSocket *socket = instrument.nextPendingConnection();
        TangoClient client(monitor.address("beam/corvale/1"));
        QCOMPARE(client.state(), QString("INIT"));
        socket->write("#corvale 1\n#channels a\n0,1\n0.1,2\n");
        QTRY_COMPARE(client.number("readings"), 2.0);
        QTRY_COMPARE(client.read("values").numbers.value(0), 2.0);
        socket->close();
        QTRY_COMPARE(client.state(), QString("FAULT"));
        QCOMPARE(client.read("values").quality, QString("INVALID"));
        QTRY_VERIFY_WITH_TIMEOUT(instrument.hasPendingConnections(), patience);
        socket = instrument.nextPendingConnection();
        QTRY_COMPARE(client.state(), QString("ALARM")); // it is there, but its last reading is old
        QCOMPARE(client.read("values").quality, QString("INVALID"));
        socket->write("0.2,2\n0.3,3\n");
        QTRY_COMPARE(client.read("values").numbers.value(0), 3.0);
        QCOMPARE(monitor.end(), 0);
    }

    //! A window publishes as well, sends events, and ends as it does without a server.
    void windowWithEvents()
    {
        Monitor monitor;
        monitor.start({"--publish", monitor.address("beam/corvale/1"), "--settings",
                       path("window.xui"), "sim:strips"});
        monitor.waitForDevice("beam/corvale/1");
        TangoClient client(monitor.address("beam/corvale/1"));
        QTRY_COMPARE_WITH_TIMEOUT(client.state(), QString("ON"), patience);
        QTRY_VERIFY(std::isfinite(client.number("x_position"))); // the beam comes and goes
        QCOMPARE(client.subscribe("x_position"), QString());
        QTRY_VERIFY_WITH_TIMEOUT(client.changes() > 5, patience);
        QCOMPARE(monitor.end(), 0);
    }

    //! Clients that ask without a pause cost no reading.
    void busyClient()
    {
        Monitor monitor;
        monitor.start({"--stats", "--json", "--publish", monitor.address("beam/corvale/1"),
                       "sim:ic4", "--after", "3s"});
        monitor.waitForDevice("beam/corvale/1");
        TangoClient client(monitor.address("beam/corvale/1"));
        while (client.read("values").fault.isEmpty())
            QCoreApplication::processEvents();
        QVERIFY(monitor.process().waitForFinished(patience));
        const QJsonObject report =
            QJsonDocument::fromJson(monitor.process().readAllStandardOutput()).object();
        QCOMPARE(report["gaps"].toInt(-1), 0);
        QVERIFY(report["readings"].toDouble() > 100);
    }

    void whatCannotBePublished_data()
    {
        tableFrom(R"(
            | arguments | said
            no scheme                | --publish beam sim:ic4 | it should begin with the name of the control system
            another scheme           | --publish nothing:x sim:ic4 | no plugin for nothing
            a plugin that only reads | --publish ca:x sim:ic4 | ca reads sources, and publishes nothing
            port taken               | --publish tango://127.0.0.1:TAKEN/a/b/c#dbase=no sim:ic4 | can listen
            not this computer        | --publish tango://192.0.2.1:7000/a/b/c#dbase=no sim:ic4 | can listen
            database missing         | --publish tango:a/b/c sim:ic4 | the database does not answer
            a name twice
                | --publish tango://127.0.0.1:7000/a/b/c#dbase=no --publish tango://127.0.0.1:7000/A/b/c#dbase=no sim:ic4 sim:strips
                | A/b/c is given twice
        )");
        const QString form = "should be tango:DOMAIN/FAMILY/MEMBER";
        row("no device", "--publish tango:beam sim:ic4", form);
        row("no port without a database", "--publish tango:a/b/c#dbase=no sim:ic4", form);
    }

    //! Errors are told at the start in a sentence, before anything is read.
    void whatCannotBePublished()
    {
        QFETCH(QString, arguments);
        QTcpServer taken;
        QVERIFY(taken.listen(QHostAddress::LocalHost));
        arguments.replace("TAKEN", QString::number(taken.serverPort()));
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("TANGO_HOST", QString("127.0.0.1:%1").arg(freePort()));
        process.setProcessEnvironment(environment);
        process.start(CORVALE_MONITOR, QStringList("--headless") + arguments.split(' '));
        QVERIFY(process.waitForFinished(patience));
        const QByteArray err = process.readAllStandardError();
        QVERIFY2(QString::fromUtf8(err).contains(cell("said")), err);
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 1);
    }

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

CORVALE_QT_TEST_MAIN(tst_TangoPublisher)
#include "tst_TangoPublisher.moc"
