// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QByteArray>

#include <deque>

namespace Monitor {

/*! The lines of a recording that have not been written yet. A line or a frame that was written in part is kept whole, and so is
    the header that the first line belongs to, so that recording can go on in another file at any moment. */
class WaitingText
{
public:
    //! The largest number of bytes that are kept.
    static constexpr int maxSize = 64 * 1024 * 1024;

    //! Returns whether there is room for \a size more bytes.
    bool hasRoomFor(int size) const { return m_text.size() + size <= maxSize; }
    //! Appends whole lines of readings and events.
    void append(const QByteArray &lines) { m_text += lines; }
    //! Appends the lines with which a stream begins.
    void appendHeader(const QByteArray &lines);

    //! Returns the bytes that have not been written to the present file; there are size() of them.
    const char *data() const { return m_text.constData() + m_written; }
    qint64 size() const { return m_text.size() - m_written; }
    bool isEmpty() const { return size() == 0; }
    /*! Returns the bytes of the text up to the end of the first line or frame that has \a wanted bytes before its end, and is none of a
        header; all of them if there is none. */
    qint64 wholeAfter(qint64 wanted) const;
    //! Call this after \a size bytes were written to the present file.
    void take(qint64 size);
    //! Begins another file with \a lines and the header of the stream that goes on there.
    void beginFile(const QByteArray &lines);

    //! Returns how many readings wait.
    qint64 readings() const;

private:
    struct Header
    {
        int begin;
        int size;
    };

    int endOfWhole() const;
    int beginOfFrame(int end) const;
    int endOfFrame(int begin) const;

    QByteArray m_text;
    //! The number of bytes of the first line that are in the present file.
    qint64 m_written = 0;
    //! The headers in the text, in its order.
    std::deque<Header> m_headers;
    //! The last header before the text.
    QByteArray m_headerBefore;
};

} // namespace Monitor
