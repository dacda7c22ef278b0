// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <atomic>
#include <string>
#include <thread>

//! An instrument of its own thread that writes lines of the monitor's protocol into a pipe.
class LineFlood
{
public:
    //! So many lines of so many channels, at \a rate lines a second; 0 for as fast as they are read.
    LineFlood(int channels, long long lines, double rate);
    ~LineFlood();
    //! The end to read from.
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
