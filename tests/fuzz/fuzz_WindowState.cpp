// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScope.h"
#include "monitor/core/Clock.h"
#include "monitor/core/RunReport.h"
#include "monitor/readings/FitParameters.h"
#include "monitor/session/Session.h"
#include "monitor/sources/NoSource.h"
#include "monitor/window/KeptCompanions.h"
#include "monitor/window/KeptConnections.h"
#include "monitor/window/KeptOptions.h"
#include "monitor/window/ScopeMemory.h"
#include "monitor/window/WindowSettings.h"
#include "tests/support/FuzzTarget.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QMainWindow>
#include <QTemporaryDir>

#include <cmath>

using namespace Corvale_Qt;
using namespace Monitor;

namespace {

const QString formerWindow = QStringLiteral("/w.xui");

QMainWindow &window()
{
    static QMainWindow *window = [] {
        auto *made = new QMainWindow;
        for (const char *name : {"values", "statistics", "log"}) {
            auto *dock = new QDockWidget(made);
            dock->setObjectName(QLatin1String(name));
            made->addDockWidget(Qt::LeftDockWidgetArea, dock);
        }
        return made;
    }();
    return *window;
}

RVXScope &scope()
{
    static auto *scope = new RVXScope;
    return *scope;
}

Session &session()
{
    static SystemClock clock;
    static auto *session = new Session(clock, std::make_unique<NoSource>(clock));
    return *session;
}

QByteArray sealed(const QByteArray &layout)
{
    return (QCryptographicHash::hash(layout, QCryptographicHash::Sha1) + layout).toBase64();
}

std::string iniOf(const QByteArray &geometry, const QByteArray &docks)
{
    return ("[Monitor]\ngeometry=" + sealed(geometry) + "\ndocks=" + sealed(docks)
            + "\ntime-span=90 "
              "s\ncolours=1\nlegend=false\nspeed=4\nlimit-low=-1e-6\nlimit-high=1e-6\nminimum-sum="
              "inf\n")
        .toStdString();
}

//! The scope takes what was kept of it and can be kept again, and so can connections and the sources that were beside another.
void tryMemory(WindowSettings &settings)
{
    const int connections = keptConnections(settings).size();
    keepConnections(keptConnections(settings), settings);
    FUZZ_REQUIRE(keptConnections(settings).size() == connections);
    const QString source = session().source().description();
    const QVector<NamedAddress> beside = keptCompanions(source, settings);
    if (!beside.isEmpty())
        keepCompanions(source, beside, settings);
    FUZZ_REQUIRE(beside.isEmpty() || openCompanions(settings).size() == beside.size());
    FUZZ_REQUIRE(keptCompanions(source, settings).size() == beside.size());
    const ScopeMemory memory(session(), scope(), settings, nullptr);
    StreamHeader header;
    header.channels = {{QStringLiteral("a"), QStringLiteral("nA")}};
    Q_EMIT session().streamStarted(header);
    FUZZ_REQUIRE(scope().restoreState(scope().saveState()));
}

//! A report that a former run left is told of once, if it is one of this window.
void tryReport(const QByteArray &content)
{
    static const bool isSet = [] {
        static const QTemporaryDir state;
        return qputenv("XDG_STATE_HOME", QFile::encodeName(state.path()))
            && QDir().mkpath(RunReport::folder());
    }();
    FUZZ_REQUIRE(isSet);
    QFile file(QDir(RunReport::folder()).filePath(QStringLiteral("run-left.run")));
    if (!file.open(QFile::WriteOnly))
        return;
    file.write(content);
    file.close();
    for (const FormerRun &run : FormerRun::take(formerWindow)) {
        FUZZ_REQUIRE(run.notes.value(QStringLiteral("window")) == formerWindow);
        FUZZ_REQUIRE(run.crashed.isValid() == !run.report.isEmpty());
        FUZZ_REQUIRE(!file.exists());
        QFile::remove(run.report); // two runs never have the same name
    }
    FUZZ_REQUIRE(!file.exists() || FormerRun::take(formerWindow).isEmpty());
}

//! What a settings file says is within the limits of what it is for.
void tryFile(const QByteArray &content)
{
    static const QTemporaryDir folder;
    static int number = 0;
    const QString path = folder.filePath(QStringLiteral("%1.ini").arg(number++));
    QFile file(path);
    if (!file.open(QFile::WriteOnly))
        return;
    file.write(content);
    file.close();
    {
        WindowSettings settings(path);
        FUZZ_REQUIRE(settings.timeSpan() >= 0.0 && settings.palette() >= 0);
        const MonitorOptions options = keptOptions(settings);
        FUZZ_REQUIRE(options.file.speed >= 0.0);
        for (const double option :
             {options.file.speed, options.rangeLow, options.rangeHigh, options.minimumSum})
            FUZZ_REQUIRE(std::isfinite(option));
        FUZZ_REQUIRE(options.start >= MonitorOptions::Start::Simulator
                     && options.start <= MonitorOptions::Start::Nothing);
        const FitParameters fit = keptFitParameters(settings);
        for (const double parameter : fit.regression + fit.centreOfGravity)
            FUZZ_REQUIRE(parameter >= 0.0 && std::isfinite(parameter));
        for (const ChannelLimits &limits : settings.limits()) {
            QString fault;
            FUZZ_REQUIRE(limitsFromText(limitsText(limits), &fault) == limits);
        }
        for (const StreamKind kind : {StreamKind::Channels, StreamKind::Spots}) {
            settings.display(kind);
            settings.windows(kind);
        }
        settings.hasStatistics();
        settings.isHintDismissed();
        settings.valueUnit();
        settings.showsLegend();
        settings.showsBarNames();
        settings.isAlarmSoundOn();
        settings.timeAxis();
        settings.importFor(QStringLiteral("a.csv"));
        settings.detectorFile(QStringLiteral("sim:strips"));
        settings.list(QStringLiteral("recent"));
        window().restoreGeometry(settings.geometry());
        window().restoreState(settings.docks());
        tryMemory(settings);
    }
    QFile::remove(path);
}

//! A state that a scope takes is the one that it then has; it changes nothing for another.
void tryScope(const QByteArray &state)
{
    const QByteArray before = scope().saveState();
    if (scope().restoreState(state))
        FUZZ_REQUIRE(scope().restoreState(scope().saveState()));
    else
        FUZZ_REQUIRE(scope().saveState() == before);
}

} // namespace

std::vector<std::string> fuzzSeeds()
{
    const std::string fit = "[StatisticsSetupPage]\ngaussian-fit-regression=true\n"
                            "gaussian-fit-regression-threhold=-inf\n"
                            "gaussian-fit-regression-window=5\ncenter-of-gravity=true\n"
                            "center-of-threshold=20\n";
    const std::string kept =
        R"([Monitor]
connections="[\"halo\",\"tcp://10.0.0.7:5000\"]"
trigger="[\"1\",\"0\",\"0.5\",\"0\",\"0.1\",\"0\",\"a\",\"nA\"]"
beside="[\"No source is open\",\"halo\",\"a.csv\"]"
scope-averaging=10
scope-yScaleMode=1
scope-positiveOnly=true
)";
    const std::string report =
        R"(corvale-monitor 2.1.0, Qt 5.15.8, process 7, began at 2026-11-23T09:00:00Z
source: sim:ic4
window: /w.xui

crash: signal 11 (SIGSEGV), 7 s after the start
The frames of the stack
)";
    return {
        iniOf(window().saveGeometry(), window().saveState()),
        scope().saveState().toStdString(),
        "[Monitor]\nlimits=\"a;1;2;3;4\"\nrecent=sim:ic4, a.csv\nwindows-channels=@Invalid()\n",
        "[StatisticsSetupPage]\npeaks=99999999999\n[Monitor]\ntime-span=all\nstart-with=nothing\n",
        fit,
        kept,
        report};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    if (bytes.startsWith("corvale-monitor")) {
        tryReport(bytes);
        return 0;
    }
    tryFile(bytes);
    tryScope(bytes);
    return 0;
}
