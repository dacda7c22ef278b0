// SPDX-License-Identifier: LGPL-2.1-or-later
/*! \file
    Runs a fuzz target. As an ordinary test it feeds the target a fixed row of inputs (FuzzMutator):
        fuzz_Subject [rounds] [-v]
    where -v prints each input before it is tried, so that the last one printed is the one that
   failed. With CORVALE_QT_FUZZ libFuzzer has main() and its own options, and gets the seeds as one
   more corpus. */
#include "tests/support/FuzzMutator.h"
#include "tests/support/FuzzTarget.h"

#include <QApplication>
#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

void fuzzFailure(const char *condition, const char *file, int line)
{
    std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, condition);
    std::abort();
}

#ifdef CORVALE_QT_FUZZ

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static int applicationArgc = 1;
    static auto *application = new QApplication(applicationArgc, *argv);
    Q_UNUSED(application)

    static QTemporaryDir corpus;
    int number = 0;
    for (const std::string &seed : fuzzSeeds()) {
        QFile file(corpus.filePath(QString::number(number++)));
        if (file.open(QFile::WriteOnly))
            file.write(seed.data(), qint64(seed.size()));
    }
    static std::vector<char *> arguments(*argv, *argv + *argc);
    static QByteArray folder = QFile::encodeName(corpus.path());
    arguments.push_back(folder.data());
    arguments.push_back(nullptr);
    *argc += 1;
    *argv = arguments.data();
    return 0;
}

#else

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    long rounds = 3000;
    bool verbose = false;
    for (const QString &argument : application.arguments().mid(1)) {
        if (argument == "-v")
            verbose = true;
        else
            rounds = argument.toLong();
    }
    FuzzMutator mutator(fuzzSeeds());
    for (long round = 0; round < rounds; ++round) {
        const std::string input = mutator.next();
        if (verbose) {
            const QByteArray bytes = QByteArray::fromStdString(input);
            std::fprintf(stderr, "%ld: %s\n", round, bytes.toPercentEncoding(" ").constData());
        }
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(input.data()), input.size());
    }
    std::printf("%ld inputs\n", rounds);
    return rounds > 0 ? 0 : 1;
}

#endif
