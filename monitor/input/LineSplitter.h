// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QByteArray>

#include <functional>
#include <string_view>

namespace Monitor {

/*! Cuts incoming bytes into lines, whatever pieces they arrive in. A line ends with LF, CR LF or a lone CR. At most
    maxLength bytes are kept; the rest of a longer line is skipped. */
class LineSplitter
{
public:
    //! Length of the longest line in bytes: a frame of 256 x 256 numbers with all their digits fits.
    static constexpr int maxLength = 2 * 1024 * 1024;

    //! Takes a line without its line end; \a tooLong if it is only the beginning of a longer line.
    using LineHandler = std::function<void(std::string_view line, bool tooLong)>;

    //! Calls \a handler for each line that these bytes complete.
    void feed(std::string_view bytes, const LineHandler &handler);
    //! Hands the bytes after the last line end, if there are any, to \a handler as a line.
    void finish(const LineHandler &handler);
    //! Returns whether there are bytes after the last line end.
    bool hasRest() const { return !m_rest.isEmpty(); }
    //! Says how many bytes come before those that feed() gets next, and forgets the bytes after the last line end.
    void beginAt(qint64 offset);
    /*! Returns how many bytes come before the line that the handler is called with, or before the unfinished line after
        feed(). */
    qint64 lineBegin() const { return m_lineBegin; }
    //! Returns whether the last byte was a CR, whose LF may be the next one.
    bool isInsideLineEnd() const { return m_afterReturn; }
    //! Forgets the bytes after the last line end.
    void clear();

private:
    void keep(std::string_view piece);
    void completeLine(std::string_view piece, const LineHandler &handler);

    QByteArray m_rest;
    bool m_tooLong = false;
    bool m_afterReturn = false;
    qint64 m_taken = 0; //!< bytes that feed() got
    qint64 m_lineBegin = 0;
};

} // namespace Monitor
