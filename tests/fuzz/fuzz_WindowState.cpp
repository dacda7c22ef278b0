// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScope.h"
#include "monitor/readings/FitParameters.h"
#include "monitor/window/KeptOptions.h"
#include "monitor/window/WindowSettings.h"
#include "tests/support/FuzzTarget.h"

#include <QCryptographicHash>
#include <QDockWidget>
#include <QFile>
#include <QMainWindow>
#include <QTemporaryDir>

#include <cmath>

using namespace Corvale_Qt;
using namespace Monitor;

namespace {

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
        const WindowSettings settings(path);
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
    return {
        iniOf(window().saveGeometry(), window().saveState()), scope().saveState().toStdString(),
        "[Monitor]\nlimits=\"a;1;2;3;4\"\nrecent=sim:ic4, a.csv\nwindows-channels=@Invalid()\n",
        "[StatisticsSetupPage]\npeaks=99999999999\n[Monitor]\ntime-span=all\nstart-with=nothing\n",
        fit};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    tryFile(bytes);
    tryScope(bytes);
    return 0;
}
