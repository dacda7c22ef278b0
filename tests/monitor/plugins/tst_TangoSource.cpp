// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/SourceFactory.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/monitor/support/SourceLog.h"
#include "tests/support/TestMain.h"

#include <QTcpServer>

#include <csignal>

using namespace Monitor;

namespace {

//! The time in which a server has to start, or to be found again, on a slow machine.
constexpr int patience = 60000;

//! A device server that was not made here: its scalars, spectra and images have values of its own.
const char *const tangoTest = "/usr/lib/tango/TangoTest";

//! A device server on the loopback, with one device.
class Server
{
public:
    explicit Server(const QString &program)
        : m_program(program)
    {
        QTcpServer free;
        QVERIFY(free.listen(QHostAddress::LocalHost));
        m_port = free.serverPort();
    }
    ~Server() { stop(); }
    Server(const Server &) = delete;
    Server &operator=(const Server &) = delete;

    void start()
    {
        m_heard.clear();
        m_process.start(m_program,
                        {"test", "-nodb", "-ORBendPoint",
                         QString("giop:tcp:127.0.0.1:%1").arg(m_port), "-dlist", "beam/test/1"});
        waitFor("Ready to accept request");
    }
    void stop()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    void send(int signal) const { ::kill(pid_t(m_process.processId()), signal); }
    //! Gives an attribute of the instrument another reading: see TangoInstrument.cpp.
    void set(const QByteArray &reading)
    {
        m_heard.clear();
        m_process.write(reading + '\n');
        waitFor("taken");
    }
    QString address(const QString &rest, const QString &device = "beam/test/1") const
    {
        return QString("tango://127.0.0.1:%1/%2/%3#dbase=no").arg(m_port).arg(device, rest);
    }

private:
    void waitFor(const QByteArray &text)
    {
        QTRY_VERIFY_WITH_TIMEOUT((m_heard += m_process.readAll()).contains(text), patience);
    }

    const QString m_program;
    quint16 m_port = 0;
    QProcess m_process;
    QByteArray m_heard;
};

//! A source that reads attributes, and what it delivers.
struct Reading
{
    explicit Reading(const QString &address)
    {
        SourceFactory factory(clock, {});
        source = factory.make(address);
        QVERIFY2(source, qPrintable(factory.errorString()));
        log = std::make_unique<SourceLog>(*source);
        source->start();
    }
    //! Returns the readings that came, without anything else.
    QStringList rows() const { return log->sink.lines.filter(QRegularExpression("^[-0-9.e+]+:")); }
    QString lastRow() const { return rows().isEmpty() ? QString() : rows().last(); }
    QStringList starts() const { return log->sink.lines.filter(QRegularExpression("^start ")); }

    ManualClock clock;
    std::unique_ptr<Source> source;
    std::unique_ptr<SourceLog> log;
};

} // namespace

//! The plugin for TANGO, with an instrument that has what a test states, and with a device server that knows nothing of it.
class tst_TangoSource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("CORVALE_MONITOR_PLUGIN_PATH",
                QFile::encodeName(QFileInfo(CORVALE_MONITOR_TANGO).absolutePath()));
        m_instrument.start();
    }

    void addressesThatMakeNoSense_data()
    {
        columns<QString, QString>("address", "why");
        const char *const form = "tango://HOST:PORT/DOMAIN/FAMILY/MEMBER/ATTRIBUTE";
        const char *const every = "only ?every=100ms may follow";
        row("no attribute", "tango://h:1/a/b/c", form);
        row("no port", "tango://h/a/b/c/d", form);
        row("an empty attribute", "tango://h:1/a/b/c/d,,e", form);
        row("an attribute twice", "tango://h:1/a/b/c/d,e,D", "names the attribute D twice");
        row("another end", "tango://h:1/a/b/c/d#dbase=maybe", form);
        row("no time", "tango://h:1/a/b/c/d?every=", every);
        row("a time without end", "tango://h:1/a/b/c/d?every=1e9s", every);
        row("no time at all", "tango://h:1/a/b/c/d?every=0s#dbase=no", every);
        row("another question", "tango:a/b/c/d?rate=10", every);
        QTest::newRow("too many attributes")
            << "tango:a/b/c/%2,%3" + QString(",d").repeated(300) << "names 302 attributes";
    }

    void addressesThatMakeNoSense()
    {
        ManualClock clock;
        SourceFactory factory(clock, {});
        QVERIFY(!factory.make(cell("address")));
        QVERIFY2(factory.errorString().contains(cell("why")), qPrintable(factory.errorString()));
    }

    //! Two scalars: what is configured, and what happens to them one after the other.
    void scalars()
    {
        m_instrument.set("pos 0 0 1 1 1.5");
        m_instrument.set("cur 0 0 1 1 0.02");
        Reading reading(m_instrument.address("pos,cur?every=10ms"));
        QTRY_COMPARE_WITH_TIMEOUT(reading.rows(), QStringList("0: 1.5 20"), patience);
        // The label of the second is the name of the first.
        QCOMPARE(reading.starts(),
                 QStringList(QString::fromUtf8("start channels Position of the beam:µm cur:nA")));
        const StreamHeader header = reading.log->sink.header();
        QCOMPARE(header.startTime, QDateTime(QDate(2001, 9, 9), QTime(1, 46, 40), Qt::UTC));
        QCOMPARE(header.limitsOf(0).lowAlarm, -5.0);
        QCOMPARE(header.limitsOf(0).lowWarning, -2.0);
        QCOMPARE(header.limitsOf(0).highWarning, 2.0);
        QCOMPARE(header.limitsOf(0).highAlarm, 5.0);
        QVERIFY(std::isnan(header.limitsOf(1).lowAlarm));
        QCOMPARE(header.limitsOf(1).highAlarm, 50.0); // in the unit that is shown

        const struct
        {
            const char *set, *row, *event;
        } steps[] = {
            {"pos 0 200 1 1 1", "0.2: 1 20", ""},
            {"cur 0 150 1 1 0.03", "0.2: 1 30", ""}, // its clock is a little behind
            {"pos 2 300 1 1 7", "0.3: 7 30", "event WARNING pos: alarm"},
            {"pos 2 400 1 1 9", "0.4: 9 30", "event WARNING pos: alarm, over range"},
            {"pos 1 500 1 1 1", "0.5: - 30", "event WARNING pos: invalid"},
            {"pos 9 0 1 1 1", "0.5: - 30", "event WARNING pos: Broken: the cable is cut"},
            {"pos 3 600 1 1 -1", "0.6: -1 30", "event pos: in order again"}, // is changing
            {"pos 4 700 1 1 -1", "0.7: -1 30", "event WARNING pos: warning"},
        };
        for (const auto &step : steps) {
            m_instrument.set(step.set);
            QTRY_COMPARE(reading.lastRow(), QString(step.row));
            QTRY_VERIFY2(reading.log->text().contains(step.event), step.event);
            QCOMPARE(reading.source->stateText().contains("without pos, which has no valid value"),
                     reading.lastRow().contains(" - "));
        }
        QCOMPARE(reading.rows().size(), 8); // a reading that does not change counts once
        QCOMPARE(reading.starts().size(), 1);
        QCOMPARE(reading.source->counts().bad(), qint64(0));
    }

    /*! An attribute whose server sends events has them all, however fast they come. The same attribute is polled beside another one
        or if the address states how often, and has what is there at that moment. */
    void events()
    {
        m_instrument.set("level 0 0 1 1 1.5");
        m_instrument.set("profile 0 0 3 1 1 2 3");
        Reading level(m_instrument.address("level"));
        Reading profile(m_instrument.address("profile"));
        Reading polled(m_instrument.address("level?every=60min"));
        Reading pair(m_instrument.address("level,cur?every=60min"));
        for (const Reading *reading : {&level, &profile, &polled, &pair})
            QTRY_COMPARE_WITH_TIMEOUT(reading->rows().size(), 1, patience);
        QCOMPARE(level.lastRow(), QString("0: 1.5"));
        QCOMPARE(profile.lastRow(), QString("0: 1 2 3"));
        QVERIFY(level.source->isHolding()); // silence is in order
        QVERIFY(!polled.source->isHolding());
        QStringList expected{"0: 1.5"};
        for (int i = 1; i <= 100; ++i) {
            m_instrument.set(QString("level 0 %1 1 1 %2").arg(125 * i).arg(i).toUtf8());
            expected.append(QString("%1: %2").arg(i / 8.0).arg(i));
        }
        QTRY_COMPARE(level.rows(), expected);
        m_instrument.set("level 2 20000 1 1 7"); // alarm
        QTRY_COMPARE(level.lastRow(), QString("20: 7"));
        m_instrument.set("level 9 0 1 1 8");
        QTRY_COMPARE(level.lastRow(), QString("20: -"));
        QVERIFY(level.log->text().contains("event WARNING level: Broken: the cable is cut"));
        m_instrument.set("level 1 20500 1 1 8"); // invalid
        QTRY_COMPARE(level.lastRow(), QString("20.5: -"));
        m_instrument.set("level 0 21000 1 1 9");
        QTRY_COMPARE(level.lastRow(), QString("21: 9"));
        QVERIFY(level.log->text().contains("event level: in order again"));

        m_instrument.set("profile 0 100 10000 1" + QByteArray(" 1").repeated(10000));
        QTRY_COMPARE(profile.lastRow(), "0.1:" + QString(" 1").repeated(10000));
        // More strips than a plane may have are kept whole; the picture has as many as it can, and the readings without a place are counted.
        QCOMPARE(profile.log->sink.header().frameSize, 10000);
        QCOMPARE(profile.log->sink.header().detector.cells(),
                 Corvale_Qt::DetectorLayout::maxStrips);
        QCOMPARE(polled.rows().size(), 1);
        QCOMPARE(pair.rows().size(), 1);
        QCOMPARE(level.source->counts().bad() + profile.source->counts().bad(), qint64(0));
    }

    //! A server whose events do not arrive any more is polled, and no reading is taken twice.
    void eventsThatFallSilent()
    {
        m_instrument.set("level 0 0 1 1 1");
        Reading level(m_instrument.address("level"));
        QTRY_COMPARE_WITH_TIMEOUT(level.lastRow(), QString("0: 1"), patience);
        QVERIFY(level.source->isHolding());
        m_instrument.set("level 8 1000 1 1 2");
        QTRY_COMPARE(level.lastRow(), QString("0: 2")); // of another stream
        QVERIFY2(level.log->text().contains(
                     "event WARNING level: its events do not arrive any more; it is polled"),
                 qPrintable(level.log->text()));
        QVERIFY(!level.source->isHolding()); // its silence is not in order any more
        m_instrument.set("level 0 2000 1 1 3");
        QTRY_COMPARE(level.lastRow(), QString("1: 3"));
        QCOMPARE(level.rows().size(), 3);
        QCOMPARE(level.starts().size(), 2);
        QCOMPARE(level.source->counts().bad(), qint64(0));
    }

    void frames_data()
    {
        columns<QString, QStringList, QString, QString>("attributes", "set", "layout", "row");
        const auto numbers = [](const char *name, const char *values) {
            const QString set = QString("%1s 0 0 3 1 ").arg(name) + values;
            QTest::newRow(name) << QString("%1s").arg(name) << QStringList(set) << "strips 3 + 0,"
                                << QString("0: ") + values;
        };
        numbers("boolean", "0 1 1");
        numbers("uchar", "0 128 255");
        numbers("short", "-32768 0 32767");
        numbers("ushort", "0 32768 65535");
        numbers("long", "-2.14748e+09 0 65536"); // as the log shows them
        numbers("ulong", "0 65536 4.29496e+09");
        numbers("long64", "-9.00001e+15 0 65536");
        numbers("ulong64", "0 65536 1.80001e+19");
        numbers("float", "-1.5 0 1e+30");
        row("two planes", "x,y", QStringList{"x 0 0 3 1 1 2 3", "y 0 0 2 1 4 5"}, "strips 3 + 2,",
            "0: 1 2 3 4 5");
        row("an image, whose first row is the top of the picture", "image",
            QStringList{"image 0 0 3 2 1 2 3 4 5 6"}, "matrix 2 x 3,", "0: 4 5 6 1 2 3");
    }

    void frames()
    {
        QFETCH(QStringList, set);
        QFETCH(QString, layout);
        for (const QString &line : set)
            m_instrument.set(line.toUtf8());
        Reading reading(m_instrument.address(cell("attributes")));
        QTRY_VERIFY_WITH_TIMEOUT(!reading.rows().isEmpty(), patience);
        QTEST(reading.lastRow(), "row");
        QVERIFY2(reading.starts().first().contains(layout), qPrintable(reading.starts().first()));
    }

    //! A frame that grows begins another part at once, one that shrinks when it stays so; nothing is shown that was not measured.
    void framesOfAnotherSize()
    {
        m_instrument.set("x 0 0 3 1 1 2 3");
        Reading reading(m_instrument.address("x?every=10ms"));
        QTRY_COMPARE_WITH_TIMEOUT(reading.lastRow(), QString("0: 1 2 3"), patience);
        m_instrument.set("x 0 100 5 1 1 2 3 4 5");
        QTRY_COMPARE(reading.lastRow(), QString("0.1: 1 2 3 4 5"));
        QVERIFY(reading.log->text().contains("event x has 5 x 1 values now"));
        int hundredths = 10;
        const auto give = [&](int count) {
            m_instrument.set(QString("x 0 %1 %2 1%3")
                                 .arg(++hundredths * 10)
                                 .arg(count)
                                 .arg(QString(" 7").repeated(count))
                                 .toUtf8());
            const QString time = QString("%1: ").arg(hundredths / 100.0);
            QTRY_VERIFY2(reading.lastRow().startsWith(time), qPrintable(reading.lastRow()));
        };
        for (int i = 0; i < 12; ++i)
            give(i % 2 == 0 ? 4 : 3);
        QCOMPARE(reading.lastRow(), QString("0.22: 7 7 7 - -"));
        QCOMPARE(reading.starts().size(), 2);
        for (int i = 0; i < 10; ++i)
            give(4);
        QCOMPARE(reading.lastRow(), QString("0.32: 7 7 7 7"));
        QCOMPARE(reading.starts().size(), 3);

        m_instrument.set("image 0 0 2 1 1 2");
        Reading image(m_instrument.address("image?every=10ms"));
        QTRY_COMPARE_WITH_TIMEOUT(image.lastRow(), QString("0: 1 2"), patience);
        m_instrument.set("image 0 100 300 1" + QByteArray(" 1").repeated(300));
        QTRY_COMPARE(image.lastRow(), QString("0.1: - -"));
        QVERIFY(image.log->text().contains("WARNING image: image is an image of 300 x 1 values; a "
                                           "window shows at most 256 x 256"));
        Reading another(m_instrument.address("image"));
        QTRY_COMPARE_WITH_TIMEOUT(another.source->state(), Source::State::Failed, patience);
        QVERIFY(another.source->stateText().contains("an image of 300 x 1 values"));
    }

    void whatCannotBeShown_data()
    {
        columns<QString, QString>("attributes", "why");
        const char *const mixture = "a window shows scalars, or one spectrum or two, or one image";
        row("no such attribute", "ampli,nobody", "nobody attribute not found");
        row("a text", "ampli,string_scalar",
            "string_scalar is of the type DevString, not a number");
        row("a state", "State", "State is of the type DevState, not a number");
        row("a spectrum beside a scalar", "ampli,wave", mixture);
        row("two images", "double_image_ro,float_image_ro", mixture);
    }

    void whatCannotBeShown()
    {
        if (!hasTangoTest())
            QSKIP(noTangoTest);
        Reading reading(m_tangoTest.address(cell("attributes")));
        QTRY_COMPARE_WITH_TIMEOUT(reading.source->state(), Source::State::Failed, patience);
        QVERIFY2(reading.source->stateText().contains(cell("why")),
                 qPrintable(reading.source->stateText()));
    }

    //! A name that the server does not have is looked for, since the device may come.
    void unknownDevice()
    {
        Reading reading(m_instrument.address("pos", "beam/test/9"));
        QTRY_COMPARE_WITH_TIMEOUT(reading.source->state(), Source::State::Retrying, patience);
        QVERIFY2(reading.source->stateText().contains("there is no device tango://"),
                 qPrintable(reading.source->stateText()));
    }

    //! What a server that was not made here delivers, by its killing and starting again, and while it is stopped.
    void serverThatDies()
    {
        if (!hasTangoTest())
            QSKIP(noTangoTest);
        Reading scalars(m_tangoTest.address("ampli,short_scalar_ro"));
        Reading spectrum(m_tangoTest.address("double_spectrum_ro"));
        Reading image(m_tangoTest.address("double_image_ro"));
        const auto areLive = [&] {
            return scalars.source->state() == Source::State::Running
                && spectrum.source->state() == Source::State::Running
                && image.source->state() == Source::State::Running;
        };
        QTRY_VERIFY_WITH_TIMEOUT(areLive(), patience);
        QTRY_VERIFY(!scalars.rows().isEmpty() && !spectrum.rows().isEmpty()
                    && !image.rows().isEmpty());
        QVERIFY(spectrum.starts().first().contains("strips 256 + 0,"));
        QVERIFY(image.starts().first().contains("matrix 251 x 251,"));
        bool ok = false;
        const int wanted = qEnvironmentVariableIntValue("CORVALE_QT_RESTARTS", &ok);
        for (int i = 1; i <= (ok ? wanted : 3); ++i) {
            m_tangoTest.stop();
            QTRY_COMPARE_WITH_TIMEOUT(scalars.source->state(), Source::State::Retrying, patience);
            QVERIFY(scalars.source->stateText().contains("beam/test/1"));
            QVERIFY2(scalars.lastRow().endsWith(": - -"), qPrintable(scalars.lastRow()));
            m_tangoTest.start();
            QTRY_VERIFY_WITH_TIMEOUT(areLive(), patience);
            QTRY_VERIFY(!scalars.lastRow().endsWith(": - -"));
        }
        // The amplitude is 0 after each start, and the number beside it changes.
        QCOMPARE(scalars.rows().filter(QRegularExpression(": (0 \\d+|- -)$")), scalars.rows());
        for (const Reading *reading : {&scalars, &spectrum, &image}) {
            QCOMPARE(reading->starts().size(), 1); // one stream all the time
            QCOMPARE(reading->source->counts().bad(), qint64(0));
        }
    }

    //! A server that takes calls and does not answer: the source says so, may be closed at any time, and goes on when it can.
    void serverThatIsStopped()
    {
        if (!hasTangoTest())
            QSKIP(noTangoTest);
        Reading reading(m_tangoTest.address("ampli,short_scalar_ro"));
        QTRY_VERIFY_WITH_TIMEOUT(!reading.rows().isEmpty(), patience);
        m_tangoTest.send(SIGSTOP);
        Reading another(m_tangoTest.address("ampli"));
        QTRY_COMPARE_WITH_TIMEOUT(reading.source->state(), Source::State::Retrying, patience);
        QVERIFY(reading.source->stateText().contains("does not answer in time"));
        another.source.reset();
        m_tangoTest.send(SIGCONT);
        QTRY_COMPARE_WITH_TIMEOUT(reading.source->state(), Source::State::Running, patience);
    }

    /*! A server that sends events and dies is missed as soon as a polled one, and its events come again when it does. The last one, since the
        client library of Tango keeps looking for such a server in a thread, and may then crash in a subscription to another device. */
    void serverOfEventsThatDies()
    {
        Server server{TANGO_INSTRUMENT};
        server.start();
        server.set("level 0 0 1 1 1");
        Reading level(server.address("level"));
        QTRY_COMPARE_WITH_TIMEOUT(level.lastRow(), QString("0: 1"), patience);
        for (int i = 1; i <= 2; ++i) {
            server.stop();
            QTRY_COMPARE_WITH_TIMEOUT(level.source->state(), Source::State::Retrying, patience);
            QVERIFY2(level.lastRow().endsWith(": -"), qPrintable(level.lastRow()));
            server.start();
            QTRY_COMPARE_WITH_TIMEOUT(level.source->state(), Source::State::Running, patience);
            for (const int tenths : {10 * i, 10 * i + 1}) {
                server.set(QString("level 0 %1 1 1 %2").arg(100 * tenths).arg(tenths).toUtf8());
                const QString row = QString("%1: %2").arg(tenths / 10.0).arg(tenths);
                QTRY_COMPARE(level.lastRow(), row);
            }
        }
        QCOMPARE(level.starts().size(), 1); // never polled
        // One that is back before anybody has asked for it, and has forgotten its clients.
        server.stop();
        server.start();
        server.set("level 0 4000 1 1 40");
        QTRY_COMPARE_WITH_TIMEOUT(level.lastRow(), QString("4: 40"), patience);
    }

private:
    static constexpr char noTangoTest[] =
        "TangoTest is not installed (scripts/install-dependencies test)";

    //! Returns whether that server is installed, and starts it.
    bool hasTangoTest()
    {
        if (!QFileInfo::exists(tangoTest))
            return false;
        if (!m_isStarted)
            m_tangoTest.start();
        m_isStarted = true;
        return true;
    }

    Server m_instrument{TANGO_INSTRUMENT};
    Server m_tangoTest{tangoTest};
    bool m_isStarted = false;
};

CORVALE_QT_TEST_MAIN(tst_TangoSource)
#include "tst_TangoSource.moc"
