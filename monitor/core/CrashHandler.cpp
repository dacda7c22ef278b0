// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/CrashHandler.h"

#include "monitor/core/LogTail.h"
#include "monitor/core/SignalText.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <exception>
#include <execinfo.h>
#include <unistd.h>

namespace Monitor::CrashHandler {

namespace {

struct NamedSignal
{
    int number;
    const char *name;
};

constexpr NamedSignal crashes[] = {
    {SIGSEGV, "SIGSEGV"},
    {SIGABRT, "SIGABRT"},
    {SIGBUS, "SIGBUS"},
    {SIGFPE, "SIGFPE"},
    {SIGILL, "SIGILL"},
};
constexpr int mostFrames = 100;
//! A report that is not written after this many seconds never will be; the program ends then.
constexpr unsigned patience = 5;
constexpr std::size_t stackSize = std::size_t(128) * 1024;

std::atomic<int> file{-1};
std::atomic_flag isWriting = ATOMIC_FLAG_INIT;
std::time_t began = 0;
//! What an exception said that nobody caught.
char exceptionText[256] = "";
//! The handler runs on a separate stack: after a stack overflow, nothing is left of the usual one.
alignas(16) char handlerStack[stackSize];

const char *nameOf(int number)
{
    for (const NamedSignal &crash : crashes)
        if (crash.number == number)
            return crash.name;
    return "";
}

void writeReason(int descriptor, int number, const siginfo_t &info)
{
    SignalText text(descriptor);
    text.add("\n").add(mark).add("signal ").add(std::uint64_t(number), 10);
    text.add(" (").add(nameOf(number)).add(")");
    const bool isFault = info.si_code > 0;
    if (isFault)
        text.add(" at address 0x").add(reinterpret_cast<std::uintptr_t>(info.si_addr), 16);
    else if (info.si_pid != ::getpid())
        text.add(" sent by process ").add(std::uint64_t(info.si_pid), 10);
    text.add(", ").add(std::uint64_t(::time(nullptr) - began), 10).add(" s after the start\n");
    if (exceptionText[0] != '\0')
        text.add("exception: ").add(exceptionText).add("\n");
}

void writeFrames(int descriptor)
{
    std::array<void *, mostFrames> frames{};
    const int count = ::backtrace(frames.data(), mostFrames);
    ::backtrace_symbols_fd(frames.data(), count, descriptor);
}

void writeReport(int descriptor, int number, const siginfo_t &info)
{
    ::lseek(descriptor, 0, SEEK_END);
    writeReason(descriptor, number, info);
    SignalText(descriptor).add("\nThe last lines of the log:\n");
    LogTail::write(descriptor);
    // The frames come last: where the memory is damaged, they may fail.
    SignalText(descriptor).add("\nThe frames of the stack, innermost first:\n");
    writeFrames(descriptor);
}

//! The system has restored the default for this signal; all signals but SIGALRM are blocked.
void handleCrash(int number, siginfo_t *info, void *)
{
    ::alarm(patience);
    const int descriptor = file;
    if (descriptor >= 0 && !isWriting.test_and_set())
        writeReport(descriptor, number, *info);
    // Without a raise, a fault happens once more at the same place, which a core dump then shows.
    if (info->si_code <= 0)
        ::raise(number);
}

[[noreturn]] void handleTerminate()
{
    try {
        if (const std::exception_ptr exception = std::current_exception())
            std::rethrow_exception(exception);
    } catch (const std::exception &exception) {
        std::strncpy(exceptionText, exception.what(), sizeof exceptionText - 1);
    } catch (...) {
        std::strncpy(exceptionText, "of an unknown type", sizeof exceptionText - 1);
    }
    std::abort();
}

void handle(int number)
{
    struct sigaction present = {};
    if (::sigaction(number, nullptr, &present) != 0 || present.sa_handler != SIG_DFL)
        return;
    struct sigaction own = {};
    own.sa_sigaction = handleCrash;
    own.sa_flags = SA_SIGINFO | SA_ONSTACK | int(SA_RESETHAND);
    ::sigfillset(&own.sa_mask);
    ::sigdelset(&own.sa_mask, SIGALRM);
    ::sigaction(number, &own, nullptr);
}

//! Gives the handler its stack, unless there is one, as under a sanitizer.
void provideStack()
{
    stack_t present = {};
    if (::sigaltstack(nullptr, &present) != 0 || (present.ss_flags & SS_DISABLE) == 0)
        return;
    stack_t stack = {};
    stack.ss_sp = handlerStack;
    stack.ss_size = stackSize;
    ::sigaltstack(&stack, nullptr);
}

} // namespace

void install(int descriptor)
{
    began = ::time(nullptr);
    file = descriptor;
    // The first call loads a library, which a signal handler must not do.
    void *frame = nullptr;
    ::backtrace(&frame, 1);
    provideStack();
    for (const NamedSignal &crash : crashes)
        handle(crash.number);
    std::set_terminate(handleTerminate);
}

void forgetFile()
{
    file = -1;
}

} // namespace Monitor::CrashHandler
