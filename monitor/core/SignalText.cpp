// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/SignalText.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace Monitor {

SignalText::~SignalText()
{
    for (int done = 0; done < m_size;) {
        const ssize_t written =
            ::write(m_descriptor, m_text.data() + done, std::size_t(m_size - done));
        if (written < 0 && errno != EINTR)
            return; // nobody is left whom this could be told
        done += int(std::max<ssize_t>(written, 0));
    }
}

SignalText &SignalText::add(const char *text)
{
    return add(text, int(std::strlen(text)));
}

SignalText &SignalText::add(const char *text, int size)
{
    const int taken = std::min(size, room - m_size);
    std::copy_n(text, taken, m_text.data() + m_size);
    m_size += taken;
    return *this;
}

SignalText &SignalText::add(std::uint64_t number, unsigned base)
{
    constexpr int mostDigits = 20;
    char digits[mostDigits];
    int first = mostDigits;
    do {
        digits[--first] = "0123456789abcdef"[number % base];
        number /= base;
    } while (number > 0);
    return add(digits + first, mostDigits - first);
}

} // namespace Monitor
