// SPDX-License-Identifier: LGPL-2.1-or-later
#include "LineFlood.h"

#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <unistd.h>

using Clock = std::chrono::steady_clock;

LineFlood::LineFlood(int channels, long long lines, double rate)
    : m_lines(lines)
    , m_rate(rate)
    , m_header("#corvale 1\n#unit nA\n#channels ")
{
    std::signal(SIGPIPE, SIG_IGN);
    if (::pipe(m_ends) != 0)
        std::abort();
    for (int i = 0; i < channels; ++i) {
        m_header += (i > 0 ? "," : "") + std::string("c") + std::to_string(i + 1);
        m_values += "," + std::to_string(100.0 + 0.37 * i);
    }
    m_header += "\n";
    m_values += "\n";
    m_writer = std::thread([this] {
        write();
    });
}

LineFlood::~LineFlood()
{
    m_stop = true;
    ::close(m_ends[0]); // ends a write that waits for room
    m_writer.join();
}

void LineFlood::write()
{
    constexpr auto slice = std::chrono::milliseconds(2);
    const auto start = Clock::now();
    std::string text = m_header;
    long long number = 0;
    while (number < m_lines && !m_stop) {
        long long until = std::min(number + 1000, m_lines);
        if (m_rate > 0.0) {
            std::this_thread::sleep_for(slice);
            const std::chrono::duration<double> passed = Clock::now() - start;
            until = std::min(m_lines, static_cast<long long>(passed.count() * m_rate));
        }
        for (; number < until; ++number)
            appendLine(&text, number);
        if (!writeAll(text))
            break;
        text.clear();
    }
    ::close(m_ends[1]);
}

//! Appends the line with a \a number. The times of two lines are 10 microseconds apart.
void LineFlood::appendLine(std::string *text, long long number) const
{
    char time[32];
    const auto end = std::to_chars(time, time + sizeof(time), number).ptr;
    text->append(time, end);
    text->append("e-5");
    text->append(m_values);
}

bool LineFlood::writeAll(const std::string &text) const
{
    std::size_t written = 0;
    while (written < text.size() && !m_stop) {
        const ssize_t part = ::write(m_ends[1], text.data() + written, text.size() - written);
        if (part <= 0)
            return false;
        written += std::size_t(part);
    }
    return true;
}
