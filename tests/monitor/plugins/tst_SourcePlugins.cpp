// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/PluginSource.h"
#include "monitor/sources/SourceFactory.h"
#include "monitor/sources/SourcePlugins.h"
#include "tests/monitor/plugins/ChannelAccessServer.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/monitor/support/SourceLog.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

#include <thread>

using CorvaleMonitor::SourceReceiver;
using Script = std::function<void(SourceReceiver &)>;
Q_DECLARE_METATYPE(Script)

using namespace Monitor;
using CorvaleMonitor::SourceState;
using CorvaleMonitor::SourceStream;

namespace {

//! A plugin whose readings the test delivers.
class ScriptedPlugin : public CorvaleMonitor::SourcePlugin
{
public:
    QString check(const QString &) const override { return {}; }
    std::unique_ptr<CorvaleMonitor::SourceConnection>
    open(const QString &, const std::shared_ptr<SourceReceiver> &to) override
    {
        receiver = to;
        return std::make_unique<CorvaleMonitor::SourceConnection>();
    }
    void add(double time, const std::vector<double> &values) const
    {
        receiver->add(1, &time, values.data());
    }

    std::shared_ptr<SourceReceiver> receiver;
};

//! A source of that plugin, open.
struct Scripted
{
    Scripted() { source->start(); }
    //! Delivers from another thread, as plugins do, and lets the source take it.
    void deliver(const Script &script)
    {
        std::thread([&] { script(*plugin.receiver); }).join();
        QCoreApplication::sendPostedEvents(source.get());
    }

    ManualClock clock;
    ScriptedPlugin plugin;
    std::unique_ptr<PluginSource> source = std::make_unique<PluginSource>(clock, plugin, "test:1");
    SourceLog log{*source};
};

SourceStream channels(int count)
{
    SourceStream stream;
    for (int i = 0; i < count; ++i) {
        CorvaleMonitor::SourceChannel channel;
        channel.name = QString("c%1").arg(i + 1);
        channel.unit = "nA";
        stream.channels.append(channel);
    }
    return stream;
}

SourceStream frames(SourceStream::Layout layout, int columns, int rows)
{
    SourceStream stream;
    stream.layout = layout;
    stream.columns = columns;
    stream.rows = rows;
    stream.unit = "pC";
    return stream;
}

//! Process variables on the loopback, and a source that reads some of them.
struct Laboratory
{
    Laboratory()
    {
        Variable position;
        position.values = {1.5};
        position.unit = "mm";
        position.lowAlarm = -5;
        position.lowWarning = -2;
        position.highWarning = 2;
        position.highAlarm = 5;
        Variable current;
        current.values = {20};
        current.unit = "nA";
        Variable profile;
        profile.unit = "nA";
        for (int i = 0; i < 10000; ++i)
            profile.values.append(i);
        Variable endless = position;
        endless.claimedCount = 3000000000;
        variables = {{"POS", position},
                     {"CUR", current},
                     {"PROFILE", profile},
                     {"ENDLESS", endless},
                     {"<b>%3</b>", current}};
        start(0);
    }
    using Variable = ChannelAccessServer::Variable;

    void start(quint16 atPort)
    {
        server = std::make_unique<ChannelAccessServer>(variables, atPort);
        QVERIFY(server->isListening());
        port = server->port();
        qputenv("EPICS_CA_SERVER_PORT", QByteArray::number(port));
    }
    void open(const QString &address)
    {
        SourceFactory factory(clock, {});
        source = factory.make(address);
        QVERIFY2(source, qPrintable(factory.errorString()));
        log = std::make_unique<SourceLog>(*source);
        source->start();
    }
    //! Gives a variable another value, this many milliseconds after the ones at the beginning.
    void post(const QByteArray &name, double value, int milliseconds, int severity = 0)
    {
        Variable variable = server->variable(name);
        variable.values[0] = value;
        variable.seconds = 1 + quint32(milliseconds) / 1000;
        variable.nanoseconds = quint32(milliseconds) % 1000 * 1000000;
        variable.severity = quint16(severity);
        variable.status = severity > 0 ? 3 : 0; // HIHI
        server->post(name, variable);
    }
    //! Returns the readings that came, without anything else.
    QStringList rows() const { return log->sink.lines.filter(QRegularExpression("^[-0-9.e+]+:")); }

    QHash<QByteArray, Variable> variables;
    quint16 port = 0;
    std::unique_ptr<ChannelAccessServer> server;
    ManualClock clock;
    std::unique_ptr<Source> source;
    std::unique_ptr<SourceLog> log;
};

} // namespace

//! What plugins deliver, how they are found, and the plugin for EPICS against a server.
class tst_SourcePlugins : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        qputenv("CORVALE_MONITOR_PLUGIN_PATH",
                QFile::encodeName(QFileInfo(CORVALE_MONITOR_EPICS).absolutePath()));
        qputenv("EPICS_CA_ADDR_LIST", "127.0.0.1");
        qputenv("EPICS_CA_AUTO_ADDR_LIST", "NO");
    }

    void init()
    {
        const bool needsLibrary = QByteArray(QTest::currentTestFunction()).startsWith("epics");
        if (needsLibrary && !hasEpics())
            QSKIP("libca is not installed (scripts/install-dependencies test)");
    }

    void deliveries_data()
    {
        columns<Script, QString>("script", "heard");
        const auto one = [](SourceReceiver &to, double time, const std::vector<double> &values) {
            to.add(1, &time, values.data());
        };
        row("channels", Script([=](SourceReceiver &to) {
                to.begin(channels(2));
                const double times[] = {0, 0.5};
                const double values[] = {1, 2, 3, std::nan("")};
                to.add(2, times, values);
                to.note("WARNING a note");
                one(to, 1, {4, 5});
            }),
            "start channels c1:nA c2:nA | 0: 1 2 | 0.5: 3 - | event WARNING a note | 1: 4 5");
        row("a plane of strips", Script([=](SourceReceiver &to) {
                to.begin(frames(SourceStream::Layout::Strips, 3, 0));
                one(to, 0, {1, 2, 3});
            }),
            "start strips frames, strips 3 + 0, positions in cells, sum:pC max:pC x:cells "
            "sigma_x:cells | 0: 1 2 3");
        row("a matrix", Script([=](SourceReceiver &to) {
                to.begin(frames(SourceStream::Layout::Matrix, 3, 1));
                one(to, 0, {1, 2, 3});
            }),
            "start pixels frames, matrix 1 x 3, positions in cells, sum:pC max:pC x:cells "
            "sigma_x:cells y:cells sigma_y:cells | 0: 1 2 3");
        row("times that go back, and one that is none", Script([=](SourceReceiver &to) {
                to.begin(channels(1));
                for (const double time : {1.0, 2.0, 1.5, std::nan(""), 3.0})
                    one(to, time, {time});
            }),
            "start channels c1:nA | refused 3 back | refused 4 unreadable | 1: 1 | 2: 2 | 3: 3");
        row("readings before their stream", Script([=](SourceReceiver &to) {
                one(to, 0, {1});
                to.begin(channels(1));
                one(to, 1, {2});
            }),
            "start channels c1:nA | 1: 2");
        row("a matrix that is too large, and what follows it", Script([=](SourceReceiver &to) {
                to.begin(frames(SourceStream::Layout::Matrix, 257, 2));
                one(to, 0, std::vector<double>(514));
            }),
            "");
        row("a matrix whose number of values no machine can count", Script([=](SourceReceiver &to) {
                to.begin(frames(SourceStream::Layout::Matrix, 1 << 30, 1 << 30));
                one(to, 0, {1});
            }),
            "");
        row("no channels", Script([](SourceReceiver &to) { to.begin(channels(0)); }), "");
    }

    void deliveries()
    {
        QFETCH(QString, heard);
        Scripted scripted;
        scripted.deliver(cell<Script>("script"));
        QCOMPARE(scripted.log.text(), heard);
        QCOMPARE(scripted.source->state() == Source::State::Failed, heard.isEmpty());
    }

    //! A clock that was set back is believed in the end; the moments of the new times follow from the same start.
    void clockThatWasSetBack()
    {
        Scripted scripted;
        scripted.deliver([](SourceReceiver &to) {
            to.begin(channels(1));
            for (int i = 0; i < 12; ++i) {
                const double time = i == 0 ? 100.0 : i;
                to.add(1, &time, &time);
            }
        });
        QCOMPARE(scripted.log.sink.lines.mid(1).join(" | "),
                 QString("refused 2-10 back | 100: 100 | start channels c1:nA | 10: 10 | 11: 11"));
    }

    void channelsBeyondTheMost()
    {
        Scripted scripted;
        scripted.deliver([](SourceReceiver &to) {
            to.begin(channels(300));
            std::vector<double> values(300);
            for (std::size_t i = 0; i < values.size(); ++i)
                values[i] = double(i);
            const double times[] = {0, 1};
            values.insert(values.end(), values.begin(), values.end());
            to.add(2, times, values.data());
        });
        QCOMPARE(scripted.log.sink.header().leftOutChannels, 44);
        QVERIFY(scripted.log.text().contains("44 channels beyond the first 256 are left out"));
        QVERIFY(scripted.log.sink.lines.last().startsWith("1: 0 1 2 "));
        QVERIFY(scripted.log.sink.lines.last().endsWith(" 255"));
    }

    void states()
    {
        using State = Source::State;
        for (const bool isReconnecting : {true, false}) {
            Scripted scripted;
            scripted.source->setReconnecting(isReconnecting);
            scripted.deliver([](SourceReceiver &to) {
                SourceStream stream = channels(1);
                stream.onChange = true;
                to.begin(stream);
                to.setState(SourceState::Live, "live");
            });
            QVERIFY(scripted.source->isHolding()); // silence means nothing
            scripted.deliver(
                [](SourceReceiver &to) { to.setState(SourceState::Lost, "the server is gone"); });
            QCOMPARE(scripted.source->state(), isReconnecting ? State::Retrying : State::Failed);
            QCOMPARE(scripted.log.lastText, QString("the server is gone"));
            QVERIFY(!scripted.source->isHolding());
        }
    }

    //! A plugin that goes on after its source is gone does no harm, and one that is too fast fills no memory.
    void lateAndTooFast()
    {
        Scripted late;
        late.source.reset();
        late.plugin.receiver->begin(channels(1));
        late.plugin.add(0, {1});
        QCoreApplication::processEvents();

        Scripted fast;
        fast.deliver([](SourceReceiver &to) {
            to.begin(channels(1));
            const std::vector<double> zeros(PluginQueue::mostValues);
            to.add(1, zeros.data(), zeros.data());
            to.add(int(zeros.size()), zeros.data(), zeros.data());
        });
        QCOMPARE(fast.log.text(),
                 QString("start channels c1:nA | 0: 0 | event WARNING %1 readings came while the "
                         "program was busy, and are lost")
                     .arg(PluginQueue::mostValues));
    }

    //! Streams, readings and states that alternate cannot be put together, and yet do not pile up. The last stream and state arrive.
    void alternationsDoNotPileUp()
    {
        PluginQueue queue([] {});
        const auto rounds = int(PluginQueue::mostItems);
        const double values[] = {1, 2, 3};
        for (int i = 0; i < rounds; ++i) {
            queue.setState(SourceState::Live, QString::number(i));
            queue.begin(channels(1 + i % 3));
            queue.add(1, values, values);
        }
        const PluginQueue::Content content = queue.takeAll();
        QVERIFY(content.items.size() <= PluginQueue::mostItems + 2);
        int lastChannels = 0;
        QString lastState;
        qint64 readings = 0;
        for (const PluginQueue::Item &item : content.items) {
            if (const auto *stream = std::get_if<SourceStream>(&item))
                lastChannels = int(stream->channels.size());
            else if (const auto *state = std::get_if<PluginQueue::State>(&item))
                lastState = state->text;
            else if (const auto *block = std::get_if<PluginQueue::Readings>(&item))
                readings += qint64(block->times.size());
        }
        QCOMPARE(lastChannels, 1 + (rounds - 1) % 3);
        QCOMPARE(lastState, QString::number(rounds - 1));
        QCOMPARE(readings + content.droppedReadings, qint64(rounds));
        QVERIFY(queue.takeAll().items.empty());
    }

    void whatIsNoPlugin()
    {
        putFile(m_folder.filePath("text.so"), "this is no library");
        QString error;
        const SourcePlugins plugins({m_folder.path()});
        QVERIFY(!plugins.load("example", &error));
        QVERIFY2(error.contains("no plugin for example in ")
                     && error.contains("text.so is not a plugin"),
                 qPrintable(error));
        QVERIFY(!plugins.load("ca", &error));
        QVERIFY(error.contains("install the package corvale-monitor-epics"));
        QVERIFY(!plugins.load("tango", &error));
        QVERIFY(error.contains("install the package corvale-monitor-tango"));
    }

    void addressesOfVariables()
    {
        ManualClock clock;
        for (const char *address : {"ca:", "ca:A,,B", "ca:A B"}) {
            SourceFactory factory(clock, {});
            QVERIFY2(!factory.make(address), address);
            QVERIFY(factory.errorString().contains("ca:NAME,NAME"));
        }
        SourceFactory factory(clock, {});
        QVERIFY(!factory.make("ca:%2,%3" + QString(",A").repeated(300)));
        QVERIFY(factory.errorString().contains("names 302 process variables"));
        QVERIFY(!factory.make("nobody:beam/test/1"));
        QVERIFY(factory.errorString().contains("no plugin for nobody in "));
    }

    //! Values of two variables side by side; what did not change keeps its value.
    void epicsChannels()
    {
        Laboratory lab;
        lab.open("ca:POS,CUR");
        QTRY_COMPARE_WITH_TIMEOUT(lab.rows(), QStringList("0: 1.5 20"), 15000);
        QVERIFY(lab.log->text().startsWith("start channels POS:mm CUR:nA"));
        const StreamHeader header = lab.log->sink.header();
        QCOMPARE(header.startTime, QDateTime(QDate(1990, 1, 1), QTime(0, 0, 1), Qt::UTC));
        QCOMPARE(header.limitsOf(0).lowAlarm, -5.0);
        QCOMPARE(header.limitsOf(0).highWarning, 2.0);
        QVERIFY(header.limitsOf(1).isEmpty()); // four zeros
        QCOMPARE(lab.source->state(), Source::State::Running);

        lab.post("POS", 2.5, 100);
        lab.post("CUR", 30, 101);
        QTRY_COMPARE(lab.rows().last(), QString("0.101: 2.5 30"));
        lab.post("POS", 3.5, 200);
        QTRY_COMPARE(lab.rows().last(), QString("0.2: 3.5 30"));
        lab.post("CUR", 40, 150); // its clock is a little behind
        QTRY_COMPARE(lab.rows().last(), QString("0.2: 3.5 40"));
        lab.post("POS", 6, 300, 2);
        QTRY_COMPARE(lab.rows().last(), QString("0.3: 6 40"));
        QVERIFY(lab.log->text().contains("event WARNING POS: MAJOR alarm, HIHI"));
        lab.post("POS", 7, 400, 3);
        QTRY_COMPARE(lab.rows().last(), QString("0.4: - 40"));
        lab.post("POS", 1, 500);
        QTRY_COMPARE(lab.rows().last(), QString("0.5: 1 40"));
        QCOMPARE(lab.source->counts().bad(), qint64(0));
    }

    //! A waveform with more values than a plane of strips may have is kept whole.
    void epicsWaveform()
    {
        Laboratory lab;
        lab.open("ca:PROFILE");
        QTRY_VERIFY_WITH_TIMEOUT(!lab.log->times.isEmpty(), 15000);
        const StreamHeader header = lab.log->sink.header();
        QCOMPARE(header.frameSize, 10000);
        QCOMPARE(header.detector.cells(), Corvale_Qt::DetectorLayout::maxStrips);
        QCOMPARE(header.frameUnit, QString("nA"));
        QVERIFY(lab.rows().last().endsWith(" 9998 9999"));
    }

    void epicsThatCannotBeShown_data()
    {
        columns<QString, QString>("address", "why");
        row("a waveform beside a value", "ca:PROFILE,POS", "cannot be read together");
        row("more values than memory holds", "ca:ENDLESS",
            "ENDLESS has 2147483647 values; a window shows at most 65536");
    }

    void epicsThatCannotBeShown()
    {
        QFETCH(QString, why);
        Laboratory lab;
        lab.open(cell("address"));
        QTRY_COMPARE_WITH_TIMEOUT(lab.source->state(), Source::State::Failed, 15000);
        QVERIFY2(lab.source->stateText().contains(why), qPrintable(lab.source->stateText()));
    }

    //! Sources that are left in the midst of connecting, and one whose name is meant to confuse.
    void epicsSwitchedOften()
    {
        Laboratory lab;
        for (int i = 0; i < 20; ++i) {
            lab.open(i % 2 ? "ca:POS,CUR" : "ca:PROFILE");
            QCoreApplication::processEvents();
        }
        lab.open("ca:<b>%3</b>");
        QByteArray told;
        connect(lab.source.get(), &Source::bytesArrived, this,
                [&told](const QByteArray &bytes) { told += bytes; });
        QTRY_COMPARE_WITH_TIMEOUT(lab.rows(), QStringList("0: 20"), 15000);
        QCOMPARE(lab.log->sink.header().channels.first().name, QString("<b>%3</b>"));
        QVERIFY2(told.startsWith("<b>%3</b>: "), told);
        QVERIFY2(told.endsWith(':' + QByteArray::number(lab.port) + ", 1 x nA\n"), told);
        // Of the others, none is left.
        QTRY_COMPARE_WITH_TIMEOUT(lab.server->subscriptions(), 1, 15000);
    }

    /*! A name that nobody has is reported, and the others are read; those come back after the server was killed. A waveform
        that comes back with another length begins another part. CORVALE_QT_RESTARTS is how often that happens, once without it: the library takes up to ten seconds to search again. */
    void epicsServerThatDies()
    {
        Laboratory lab;
        lab.open("ca:POS,CUR,NOBODY");
        SourceFactory factory(lab.clock, {});
        const std::unique_ptr<Source> waveform = factory.make("ca:PROFILE");
        SourceLog waveforms(*waveform);
        waveform->start();
        QTRY_COMPARE_WITH_TIMEOUT(lab.rows(), QStringList("0: 1.5 20 -"), 15000);
        QCOMPARE(lab.source->state(), Source::State::Running);
        QVERIFY(lab.source->stateText().contains("without NOBODY, which is not connected"));
        QTRY_COMPARE_WITH_TIMEOUT(waveforms.times.size(), 1, 15000);
        bool ok = false;
        const int wanted = qEnvironmentVariableIntValue("CORVALE_QT_RESTARTS", &ok);
        for (int i = 1; i <= (ok ? wanted : 1); ++i) {
            lab.server.reset();
            QTRY_COMPARE_WITH_TIMEOUT(lab.source->state(), Source::State::Retrying, 15000);
            QVERIFY(lab.rows().last().endsWith("- - -"));
            lab.variables["POS"].values[0] = i;
            lab.variables["POS"].nanoseconds = lab.variables["CUR"].nanoseconds = quint32(i);
            lab.variables["PROFILE"].values.resize(100 + i);
            lab.start(lab.port);
            QTRY_COMPARE_WITH_TIMEOUT(lab.source->state(), Source::State::Running, 60000);
            QTRY_VERIFY_WITH_TIMEOUT(lab.rows().last().endsWith(QString(": %1 20 -").arg(i)),
                                     15000);
            QTRY_COMPARE_WITH_TIMEOUT(waveforms.sink.header().frameSize, 100 + i, 15000);
            QTRY_COMPARE(waveforms.times.size(),
                         1 + 2 * i); // a missing frame, and one of the new length
        }
        QCOMPARE(lab.log->sink.lines.filter("start").size(), 1); // one stream all the time
        QVERIFY(lab.log->text().contains("POS is connected again"));
    }

    //! Variables of two servers, one of which only the list of addresses leads to, like one behind a gateway.
    void epicsAddressList()
    {
        Laboratory lab;
        ChannelAccessServer::Variable distant;
        distant.values = {7};
        ChannelAccessServer gateway({{"DISTANT", distant}});
        QVERIFY(gateway.isListening());
        const QByteArray list = "127.0.0.1:" + QByteArray::number(gateway.port());
        qputenv("EPICS_CA_ADDR_LIST", "127.0.0.1 " + list);
        const auto restore = qScopeGuard([] { qputenv("EPICS_CA_ADDR_LIST", "127.0.0.1"); });
        lab.open("ca:POS,DISTANT");
        QTRY_COMPARE_WITH_TIMEOUT(lab.rows(), QStringList("0: 1.5 7"), 15000);
        QCOMPARE(gateway.subscriptions(), 1);
    }

    //! A server that is stopped keeps its connections and answers nothing: it is missing until it goes on, and so are its values.
    void epicsServerThatIsStopped()
    {
        Laboratory lab;
        qputenv("EPICS_CA_CONN_TMO", "1"); // seconds without a sign of life
        const auto restore = qScopeGuard([] { qunsetenv("EPICS_CA_CONN_TMO"); });
        lab.open("ca:POS,CUR");
        QTRY_COMPARE_WITH_TIMEOUT(lab.rows(), QStringList("0: 1.5 20"), 15000);
        lab.server->setStopped(true);
        QTRY_COMPARE_WITH_TIMEOUT(lab.source->state(), Source::State::Retrying, 60000);
        QVERIFY2(lab.rows().last().endsWith(": - -"), qPrintable(lab.rows().last()));
        lab.server->setStopped(false);
        QTRY_COMPARE_WITH_TIMEOUT(lab.source->state(), Source::State::Running, 60000);
        lab.post("POS", 2.5, 100);
        lab.post("CUR", 30, 100);
        QTRY_COMPARE(lab.rows().last(), QString("0.1: 2.5 30"));
        lab.server->setStopped(true);
        lab.source.reset(); // and nobody waits for the server
    }

    void libraryThatIsMissing_data()
    {
        columns<QString, QString>("files", "why");
        row("none", "libca libca.so libca.so.4.14.4 libca.so.4.14.2 libca.so.4.13.5",
            "the Channel Access client library (libca) was not found; install the package "
            "libca4.13.5, or set EPICS_BASE to the folder of an installation");
        row("another library", "",
            "base/lib/linux/libca.so is not a Channel Access client library that can be used");
    }

    //! What the program says where that library is missing: files that are no libraries hide an installed one.
    void libraryThatIsMissing()
    {
        QFETCH(QString, files);
        const QTemporaryDir folder;
        for (const QString &file : files.split(' ', Qt::SkipEmptyParts))
            putFile(folder.filePath(file), "this is no library");
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LD_LIBRARY_PATH", folder.path());
        if (files.isEmpty()) {
            QVERIFY(QDir(folder.path()).mkpath("base/lib/linux"));
            QVERIFY(QFile::link(CORVALE_MONITOR_EPICS, folder.filePath("base/lib/linux/libca.so")));
            environment.insert("EPICS_BASE", folder.filePath("base"));
        }
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(CORVALE_MONITOR, {"--stats", "ca:POS"});
        QVERIFY(program.waitForFinished(60000));
        QVERIFY(program.exitCode() != 0);
        const QString said = QString::fromUtf8(program.readAll()).simplified();
        QVERIFY2(said.contains(cell("why")), qPrintable(said));
    }

private:
    //! Returns whether the client library is installed, which the plugin needs.
    static bool hasEpics()
    {
        QString error;
        const CorvaleMonitor::SourcePlugin *plugin = SourcePlugins().load("ca", &error);
        return plugin && plugin->check("ca:ANY").isEmpty();
    }

    QTemporaryDir m_folder;
};

CORVALE_QT_TEST_MAIN(tst_SourcePlugins)
#include "tst_SourcePlugins.moc"
