// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <atomic>
#include <string>
#include <thread>

//! Writes lines of the monitor's protocol into a pipe, from a thread.
class LineFlood
{
public:
    //! Writes at \a rate lines a second, or as fast as they are read if it is 0.
    LineFlood(int channels, long long lines, double rate);
    ~LineFlood();
    //! Returns the end of the pipe to read from.
    int descriptor() const { return m_ends[0]; }

private:
    void write();
    void appendLine(std::string *text, long long number) const;
    bool writeAll(const std::string &text) const;

    const long long m_lines;
    const double m_rate;
    int m_ends[2] = {-1, -1};
    std::string m_header;
    std::string m_values;
    std::atomic<bool> m_stop{false};
    std::thread m_writer;
};
