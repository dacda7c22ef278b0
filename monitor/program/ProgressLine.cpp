// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/ProgressLine.h"

#include <cstdio>
#include <unistd.h>
#include <utility>

namespace Monitor {

namespace {

constexpr double silence = 2.0; // s, before the first line
constexpr double onTerminal = 1.0, elsewhere = 30.0; // s, between two lines

} // namespace

ProgressLine::ProgressLine(Clock &clock, const std::function<QString()> &text, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_text(text)
    , m_isTerminal(::isatty(STDERR_FILENO) != 0)
    , m_nextAt(clock.seconds() + (m_isTerminal ? silence : elsewhere))
{
    connect(&clock, &Clock::tick, this, &ProgressLine::tick);
}

ProgressLine::~ProgressLine()
{
    clear();
}

void ProgressLine::clear()
{
    if (std::exchange(m_isShown, false))
        std::fputs("\x1b[K", stderr);
}

void ProgressLine::tick()
{
    const double now = m_clock.seconds();
    if (now < m_nextAt)
        return;
    m_nextAt = now + (m_isTerminal ? onTerminal : elsewhere);
    clear();
    // The cursor goes back, so that another line takes the place of this one.
    std::fprintf(stderr,
                 m_isTerminal ? "corvale-monitor: %s\r" : "corvale-monitor: %s\n",
                 qPrintable(m_text()));
    std::fflush(stderr);
    m_isShown = m_isTerminal;
}

} // namespace Monitor
