// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtTest>

#include <csignal>
#include <sys/resource.h>

//! Limits the size of files, which stands for a disk that is full in the middle of a line.
class FileSizeLimit
{
public:
    FileSizeLimit()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
    }
    ~FileSizeLimit() { lift(); }
    void set(rlim_t size)
    {
        const rlimit small{size, m_before.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
    }
    void lift() { QCOMPARE(setrlimit(RLIMIT_FSIZE, &m_before), 0); }

private:
    rlimit m_before{};
};
