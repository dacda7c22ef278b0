// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/FieldEnds.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace Monitor {

/*! The numbers of the plain lines of a text, read before anybody takes the lines: to read digits needs nothing but the text, so that
    another thread can do it. A line that is not plain is not among them. */
class LineNumbers
{
public:
    //! Forgets all lines; keeps the memory.
    void clear();
    //! Reads the lines of \a text that have \a count numbers, 1 or more; none if it is 0. The text must stay as long as of() is called.
    void read(std::string_view text, int count);
    /*! Returns the \a count numbers of a line of that text, without its line end; null if they have not been read. The lines must be asked for
        in their order. */
    const double *of(std::string_view line, int count);

private:
    bool readLine(std::size_t begin, std::size_t field);
    std::size_t fieldAfterLine(std::size_t field) const;
    bool isInText(std::string_view line) const;

    //! A line by its place in the text.
    struct Line
    {
        std::uint32_t begin;
        std::uint32_t size;
    };

    std::string_view m_text;
    int m_count = 0;
    FieldEnds m_ends;
    std::vector<Line> m_lines;
    std::vector<double> m_numbers; //!< of all lines, and room for more; never smaller than it was
    std::size_t m_next = 0; //!< the first line that has not been asked for
};

} // namespace Monitor
