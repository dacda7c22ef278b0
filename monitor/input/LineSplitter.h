// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QByteArray>

#include <functional>
#include <string_view>

namespace Monitor {

/*! Cuts what arrives into lines, whatever pieces it arrives in. A line ends with LF, CR LF or a lone CR. No more
    than one line's length is ever kept: of a longer line the rest is skipped. */
class LineSplitter
{
public:
    static constexpr int maxLength = 64 * 1024;

    //! A line without its end; \a tooLong where it is only the beginning of one.
    using LineHandler = std::function<void(std::string_view line, bool tooLong)>;

    void feed(std::string_view bytes, const LineHandler &handler);
    //! What came after the last end of line, if anything, as a line.
    void finish(const LineHandler &handler);
    //! Whether there is such a rest.
    bool hasRest() const { return !m_rest.isEmpty(); }
    //! Forgets the rest.
    void clear();

private:
    void keep(std::string_view piece);
    void completeLine(std::string_view piece, const LineHandler &handler);

    QByteArray m_rest;
    bool m_tooLong = false;
    bool m_afterReturn = false;
};

} // namespace Monitor
