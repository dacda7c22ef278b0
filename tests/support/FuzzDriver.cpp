// SPDX-License-Identifier: LGPL-2.1-or-later
/*! \file
    Runs a fuzz target. As an ordinary test it feeds the target a fixed sequence of inputs (FuzzMutator):
        fuzz_Subject [rounds] [-v] [FOLDER]
    The files of the folder are seeds, too. With -v it prints each input before trying it. It writes an input that fails to a file. To debug that input, run
        fuzz_Subject FILE
    With CORVALE_QT_FUZZ, libFuzzer provides main() and its own options; it also takes a file to try alone, and reads
    the seeds as an additional corpus. */
#include "tests/support/FuzzMutator.h"
#include "tests/support/FuzzTarget.h"

#include <QApplication>
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

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

    // One input that is tried alone needs no further ones, and libFuzzer takes no folder beside it.
    for (int i = 1; i < *argc; ++i)
        if (QFileInfo(QString::fromLocal8Bit((*argv)[i])).isFile())
            return 0;

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

namespace {

//! The input that is being tried and the file for it, in variables that a signal handler can reach.
std::string currentInput;
char currentFile[4096];
const char *program = "";

//! Writes the input to the file and says how to try it again. A signal handler may only call functions such as write().
void keepInput()
{
    const auto say = [](const char *text) {
        const ssize_t written = ::write(STDERR_FILENO, text, std::strlen(text));
        static_cast<void>(written);
    };
    if (currentFile[0] == '\0')
        return; // The input came from a file.
    const int file = ::open(currentFile, O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (file < 0 || ::write(file, currentInput.data(), currentInput.size()) < 0)
        return;
    ::close(file);
    say("This input fails; try it alone with: ");
    say(program);
    say(" ");
    say(currentFile);
    say("\n");
}

void handleCrash(int number)
{
    keepInput();
    std::signal(number, SIG_DFL);
    std::raise(number);
}

void tryInput(const std::string &input)
{
    currentInput = input;
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(currentInput.data()),
                           currentInput.size());
}

int tryFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) {
        std::fprintf(stderr, "%s: %s\nUsage: %s [rounds] [-v] [FOLDER], or %s FILE for one input\n",
                     qPrintable(path), qPrintable(file.errorString()), program, program);
        return 2;
    }
    const std::string input = file.readAll().toStdString();
    tryInput(input);
    std::printf("%s holds, %zu bytes\n", qPrintable(path), input.size());
    return 0;
}

//! Returns what the files of a folder hold, in the order of their names.
std::vector<std::string> filesIn(const QString &folder)
{
    std::vector<std::string> contents;
    for (const QFileInfo &info : QDir(folder).entryInfoList(QDir::Files, QDir::Name)) {
        QFile file(info.filePath());
        if (file.open(QFile::ReadOnly))
            contents.push_back(file.readAll().toStdString());
    }
    return contents;
}

//! Tries the seeds and further ones, and then inputs that are made from them, this many in all.
void tryRounds(long rounds, const std::vector<std::string> &further, bool verbose)
{
    const QString name = QFileInfo(QString::fromLocal8Bit(program)).fileName();
    const QString path = QFileInfo(name + QStringLiteral("-failure")).absoluteFilePath();
    std::snprintf(currentFile, sizeof(currentFile), "%s", QFile::encodeName(path).constData());
    std::vector<std::string> seeds = fuzzSeeds();
    seeds.insert(seeds.end(), further.begin(), further.end());
    FuzzMutator mutator(std::move(seeds));
    for (long round = 0; round < rounds; ++round) {
        const std::string input = mutator.next();
        if (verbose) {
            const QByteArray bytes = QByteArray::fromStdString(input);
            std::fprintf(stderr, "%ld: %s\n", round, bytes.toPercentEncoding(" ").constData());
        }
        tryInput(input);
    }
    std::printf("%ld inputs\n", rounds);
}

} // namespace

//! Function of the sanitizers' run-time library; null in a program without sanitizers.
extern "C" void __sanitizer_set_death_callback(void (*)()) __attribute__((weak));

int main(int argc, char **argv)
{
    // So that an input can be tried on a machine without a display.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    program = argv[0];
    long rounds = 3000;
    bool verbose = false;
    std::vector<std::string> further;
    for (const QString &argument : application.arguments().mid(1)) {
        bool isNumber = false;
        const long number = argument.toLong(&isNumber);
        if (argument == "-v")
            verbose = true;
        else if (isNumber && number > 0)
            rounds = number;
        else if (QFileInfo(argument).isDir())
            further = filesIn(argument);
        else
            return tryFile(argument);
    }
    for (const int number : {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL})
        std::signal(number, handleCrash);
    if (__sanitizer_set_death_callback)
        __sanitizer_set_death_callback(keepInput);
    tryRounds(rounds, further, verbose);
    return 0;
}

#endif
