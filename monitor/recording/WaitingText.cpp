// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/WaitingText.h"

#include <QList>

#include <algorithm>

namespace Monitor {

namespace {

const QByteArray frameWord = QByteArrayLiteral("#frame ");
const QByteArray frameLine = QByteArrayLiteral("\n#frame ");

} // namespace

void WaitingText::appendHeader(const QByteArray &lines)
{
    m_headers.push_back({m_text.size(), lines.size()});
    m_text += lines;
}

void WaitingText::take(qint64 size)
{
    m_written += size;
    const int end = endOfWhole();
    if (end == 0)
        return;
    while (!m_headers.empty() && m_headers.front().begin < end) {
        // If a header was written in part, a new file still needs all of it.
        m_headerBefore = m_text.mid(m_headers.front().begin, m_headers.front().size);
        m_headers.pop_front();
    }
    for (Header &header : m_headers)
        header.begin -= end;
    m_text.remove(0, end);
    m_written -= end;
}

//! Returns where the lines and frames end that were written as a whole.
int WaitingText::endOfWhole() const
{
    if (m_written == m_text.size())
        return m_text.size(); // it ends with a whole line or frame, and need not be searched
    const int lines = m_written == 0 ? 0 : m_text.lastIndexOf('\n', int(m_written) - 1) + 1;
    const int frame = beginOfFrame(lines);
    return frame >= 0 && endOfFrame(frame) > m_written ? frame : lines;
}

qint64 WaitingText::wholeAfter(qint64 wanted) const
{
    const qint64 from = m_written + wanted;
    if (from >= m_text.size())
        return size();
    int end = m_text.indexOf('\n', int(std::max(from - 1, m_written))) + 1;
    for (const Header &header : m_headers)
        if (header.begin <= end && end <= header.begin + header.size)
            end = m_text.indexOf('\n', header.begin + header.size) + 1;
    const int frame = beginOfFrame(end);
    if (frame >= 0)
        end = std::max(end, endOfFrame(frame));
    return end > 0 ? end - m_written : size();
}

//! Returns where the last frame begins before the line that ends at \a end; -1 if there is none.
int WaitingText::beginOfFrame(int end) const
{
    // Without a frame before, this is the beginning of the text.
    const int frame = end > 0 ? m_text.lastIndexOf(frameLine, end - 1) + 1 : 0;
    return m_text.mid(frame, frameWord.size()) == frameWord ? frame : -1;
}

//! Returns where the frame ends whose first line begins at \a begin.
int WaitingText::endOfFrame(int begin) const
{
    const int lineEnd = m_text.indexOf('\n', begin);
    const QList<QByteArray> words = m_text.mid(begin, lineEnd - begin).split(' ');
    int end = lineEnd + 1;
    const int rows =
        words.value(words.size() - 2).toInt(); // "#frame time rows columns", or without the time
    for (int row = 0; row < rows && end > 0; ++row)
        end = m_text.indexOf('\n', end) + 1;
    return end > 0 ? end : m_text.size();
}

void WaitingText::beginFile(const QByteArray &lines)
{
    const bool beginsWithHeader = !m_headers.empty() && m_headers.front().begin == 0;
    const QByteArray beginning = beginsWithHeader ? lines : m_headerBefore + lines;
    for (Header &header : m_headers)
        header.begin += beginning.size();
    m_text.prepend(beginning);
    m_written = 0;
}

//! Counts the frames, and the lines that begin with a number; these are the readings.
qint64 WaitingText::readings() const
{
    qint64 count = 0;
    int next = 0;
    for (int begin = 0; begin < m_text.size(); begin = next) {
        const bool isFrame = m_text.mid(begin, frameWord.size()) == frameWord;
        next = isFrame ? endOfFrame(begin) : m_text.indexOf('\n', begin) + 1;
        count += isFrame ? 1 : 0;
        const char first = m_text.at(begin);
        count += (first >= '0' && first <= '9') || first == '-' ? 1 : 0;
    }
    return count;
}

} // namespace Monitor
