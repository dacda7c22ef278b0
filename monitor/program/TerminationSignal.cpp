// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/TerminationSignal.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace Monitor {

namespace {

int pipeEnds[2] = {-1, -1};

//! Writes a byte to a pipe, since a signal handler may do little else, and restores the default for the next signal.
void handleSignal(int number)
{
    const char byte = 0;
    const ssize_t written = ::write(pipeEnds[1], &byte, 1);
    static_cast<void>(written);
    std::signal(number, SIG_DFL);
}

} // namespace

TerminationSignal::TerminationSignal(QObject *parent)
    : QObject(parent)
{
    if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        m_notifier->setEnabled(false);
        Q_EMIT raised();
    });
    std::signal(SIGINT, handleSignal);
    std::signal(SIGTERM, handleSignal);
}

TerminationSignal::~TerminationSignal()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    m_notifier.reset();
    for (int &end : pipeEnds) {
        if (end >= 0)
            ::close(end);
        end = -1;
    }
}

} // namespace Monitor
