// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/LogTail.h"

#include "monitor/core/SignalText.h"

#include <QString>

#include <algorithm>
#include <array>
#include <atomic>

namespace Monitor::LogTail {

namespace {

/*! The bytes are atomic, because another thread may be adding the line when the program crashes; a line that is half
    added is of use, too. */
struct KeptLine
{
    std::array<std::atomic<char>, longestLine> text{};
    std::atomic<int> size{0};
};

std::array<KeptLine, mostLines> lines;
std::atomic<unsigned> added{0};

} // namespace

void add(const QString &line)
{
    const QByteArray text = line.toUtf8();
    KeptLine &kept = lines[added.fetch_add(1) % mostLines];
    const int size = std::min(int(text.size()), longestLine);
    kept.size = 0;
    for (int i = 0; i < size; ++i)
        kept.text[std::size_t(i)].store(text[i] == '\n' ? ' ' : text[i], std::memory_order_relaxed);
    kept.size = size;
}

void write(int descriptor)
{
    const unsigned end = added;
    const unsigned begin = end > mostLines ? end - mostLines : 0;
    for (unsigned number = begin; number < end; ++number) {
        const KeptLine &kept = lines[number % mostLines];
        char text[longestLine];
        const int size = kept.size;
        for (int i = 0; i < size; ++i)
            text[i] = kept.text[std::size_t(i)].load(std::memory_order_relaxed);
        SignalText out(descriptor);
        out.add(text, size).add("\n");
    }
}

} // namespace Monitor::LogTail
