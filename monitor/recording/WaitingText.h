// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QByteArray>

#include <deque>

namespace Monitor {

/*! The lines of a recording that have not been written yet. A line that was written in part is kept whole, and so is
    the header that the first line belongs to, so that another file can take over at any moment. */
class WaitingText
{
public:
    //! More than that is not kept.
    static constexpr int maxSize = 64 * 1024 * 1024;

    //! Whether there is room for so much more.
    bool hasRoomFor(int size) const { return m_text.size() + size <= maxSize; }
    //! Whole lines, of readings and events.
    void append(const QByteArray &lines) { m_text += lines; }
    //! The lines with which a stream begins.
    void appendHeader(const QByteArray &lines);

    //! What has not been written to the present file.
    const char *data() const { return m_text.constData() + m_written; }
    qint64 size() const { return m_text.size() - m_written; }
    bool isEmpty() const { return size() == 0; }
    //! The present file took so many bytes.
    void take(qint64 size);
    //! Another file takes over: it begins with the header in force, if it has one, and \a lines.
    void beginFile(const QByteArray &lines);

    //! How many readings wait.
    qint64 readings() const;

private:
    struct Header
    {
        int begin;
        int size;
    };

    QByteArray m_text;
    //! Of the first line, how much the present file has.
    qint64 m_written = 0;
    //! Headers in the text, in its order.
    std::deque<Header> m_headers;
    //! The last header before the text.
    QByteArray m_headerBefore;
};

} // namespace Monitor
