// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <array>
#include <cstdint>

namespace Monitor {

//! Puts a text together and writes it when it ends. It neither allocates nor locks, so that a signal handler may use it.
class SignalText
{
public:
    explicit SignalText(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    ~SignalText();
    SignalText(const SignalText &) = delete;
    SignalText &operator=(const SignalText &) = delete;

    //! Adds a text. What is beyond the room of a few lines is left out.
    SignalText &add(const char *text);
    SignalText &add(const char *text, int size);
    //! Adds a number, with base 10 or 16.
    SignalText &add(std::uint64_t number, unsigned base);

private:
    static constexpr int room = 1024;

    const int m_descriptor;
    std::array<char, room> m_text{};
    int m_size = 0;
};

} // namespace Monitor
