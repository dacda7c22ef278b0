// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/WaitingText.h"

namespace Monitor {

void WaitingText::appendHeader(const QByteArray &lines)
{
    m_headers.push_back({m_text.size(), lines.size()});
    m_text += lines;
}

void WaitingText::take(qint64 size)
{
    m_written += size;
    const int end = m_written == 0 ? 0 : m_text.lastIndexOf('\n', int(m_written) - 1) + 1;
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

void WaitingText::beginFile(const QByteArray &lines)
{
    const bool beginsWithHeader = !m_headers.empty() && m_headers.front().begin == 0;
    const QByteArray beginning = beginsWithHeader ? lines : m_headerBefore + lines;
    for (Header &header : m_headers)
        header.begin += beginning.size();
    m_text.prepend(beginning);
    m_written = 0;
}

//! Counts the lines that begin with a number; these are the readings.
qint64 WaitingText::readings() const
{
    qint64 count = 0;
    for (int begin = 0; begin < m_text.size(); begin = m_text.indexOf('\n', begin) + 1) {
        const char first = m_text.at(begin);
        count += (first >= '0' && first <= '9') || first == '-' ? 1 : 0;
    }
    return count;
}

} // namespace Monitor
