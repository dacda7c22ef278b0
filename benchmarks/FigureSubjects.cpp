// SPDX-License-Identifier: LGPL-2.1-or-later
// Measures the monitor where a person waits for it:
//     corvale_monitor_figures [subject ...]
// The figures are times of this machine, and so mean something only while it is idle. Windows are shown, offscreen if there is no
// display. Prints "figure, measured, limit"; the exit code is 1 if a goal was missed and 2 if there is no such subject.
#include "Goal.h"
#include "MonitorFigures.h"

#include <QApplication>

#include <cstdio>

namespace {

struct Subject
{
    const char *name;
    void (*measure)(const Figures &figures);
};

const Subject subjects[] = {
    {"start", measureStart},
    {"memory", measureMemory}, // before those that leave memory behind which they have freed
    {"rows", measureRows},
    {"recording", measureRecording},
    {"parser", measureParser},
    {"replay", measureReplay},
    {"outline", measureOutline},
    {"delay", measureDelay},
};

} // namespace

int main(int argc, char **argv)
{
    Figures figures;
    figures.sinceStart.start();
    if (!qEnvironmentVariableIsSet("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList wanted = QApplication::arguments().mid(1);
    int measured = 0;
    for (const Subject &subject : subjects) {
        if (!wanted.isEmpty() && !wanted.contains(QLatin1String(subject.name)))
            continue;
        subject.measure(figures);
        ++measured;
    }
    if (wanted.isEmpty() || measured == wanted.size())
        return allGoalsMet() ? 0 : 1;
    std::fprintf(stderr, "The subjects are");
    for (const Subject &subject : subjects)
        std::fprintf(stderr, " %s", subject.name);
    std::fprintf(stderr, "\n");
    return 2;
}
