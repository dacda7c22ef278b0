// SPDX-License-Identifier: LGPL-2.1-or-later
#include "Goal.h"
#include "Goals.h"

#include <QApplication>

#include <cstdio>

/*  Measures what the library costs, compared with its peers and with the fastest possible way:

        corvale_qt_benchmarks [subject ...]

    Each goal is a ratio of times in this process. The exit code is 1 if a goal was missed and 2 if there is no such
    subject. */

namespace {

struct Subject
{
    const char *name;
    void (*measure)();
};

// The subjects in the order of the goals' numbers.
const Subject subjects[] = {
    {"strip", measureStripRepaint},
    {"peers", measurePeerRepaint},
    {"sparse", measureSparseRepaint},
    {"scales", measureYScales},
    {"pictures", measurePictures},
    {"rows", measureRowRange},
    {"ingest", measureIngest},
    {"merged", measureMergedChannels},
    {"averaging", measureAveraging},
    {"spectrogram", measureSpectrogram},
    {"spots", measureSpotMap},
    {"files", measureFiles},
    {"growth", measureGrowth},
#ifdef HAVE_MONITOR
    {"monitor", measureMonitorChart},
#endif
    {"own", measureOwnModel},
    {"watched", measureWatchedChart},
    {"finer", measureFinerPixels},
    {"frames", measureCameraFrames},
};

bool isKnown(const QString &name)
{
    for (const Subject &subject : subjects) {
        if (name == QLatin1String(subject.name))
            return true;
    }
    return false;
}

int refuse(const QString &name)
{
    std::fprintf(stderr, "No subject '%s'; there are", qPrintable(name));
    for (const Subject &subject : subjects)
        std::fprintf(stderr, " %s", subject.name);
    std::fprintf(stderr, "\n");
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    // The figures do not depend on the display: there is none, and a pixel is a device pixel.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("CORVALE_QT_NO_OPENGL", "1");
    qunsetenv("QT_SCALE_FACTOR");
    QApplication application(argc, argv);
    const QStringList wanted = application.arguments().mid(1);
    for (const QString &name : wanted) {
        if (!isKnown(name))
            return refuse(name);
    }
    for (const Subject &subject : subjects) {
        if (wanted.isEmpty() || wanted.contains(subject.name))
            subject.measure();
    }
    return allGoalsMet() ? 0 : 1;
}
