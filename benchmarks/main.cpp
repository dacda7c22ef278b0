// SPDX-License-Identifier: LGPL-2.1-or-later
#include "Goal.h"
#include "Goals.h"

#include <QApplication>

#include <cstring>

/*  What the library costs, side by side with its peers and with the floor:

        benchmarks [subject ...]

    Each goal is a ratio inside this process. Exits with 1 where one is missed. */

namespace {

struct Subject
{
    const char *name;
    void (*measure)();
};

const Subject subjects[] = {
    {"strip", measureStripRepaint},
    {"proxies", measureProxies},
};

bool isAskedFor(const Subject &subject, int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], subject.name) == 0)
            return true;
    }
    return argc < 2;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    for (const Subject &subject : subjects) {
        if (isAskedFor(subject, argc, argv))
            subject.measure();
    }
    return allGoalsMet() ? 0 : 1;
}
