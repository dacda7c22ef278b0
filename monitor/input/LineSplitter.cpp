// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/LineSplitter.h"

#include <algorithm>

namespace Monitor {

void LineSplitter::feed(std::string_view bytes, const LineHandler &handler)
{
    if (bytes.empty())
        return;
    m_taken += qint64(bytes.size());
    // The former piece ended between the CR and the LF of a line end.
    if (m_afterReturn && bytes.front() == '\n') {
        bytes.remove_prefix(1);
        ++m_lineBegin;
    }
    m_afterReturn = false;
    // Most texts have no CR, and it is looked for only once. Up to it, memory is searched for the LF.
    std::size_t untilReturn = std::min(bytes.find('\r'), bytes.size());
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.substr(0, untilReturn).find('\n'), untilReturn);
        if (end == bytes.size())
            break;
        completeLine(bytes.substr(0, end), handler);
        const bool isReturn = bytes[end] == '\r';
        const bool isPair = isReturn && bytes.substr(end + 1, 1) == "\n";
        bytes.remove_prefix(end + (isPair ? 2 : 1));
        m_afterReturn = isReturn && !isPair && bytes.empty();
        m_lineBegin = m_taken - qint64(bytes.size());
        untilReturn = isReturn ? std::min(bytes.find('\r'), bytes.size()) : untilReturn - end - 1;
    }
    keep(bytes);
}

void LineSplitter::finish(const LineHandler &handler)
{
    if (!m_rest.isEmpty())
        completeLine({}, handler);
    clear();
}

void LineSplitter::beginAt(qint64 offset)
{
    m_taken = offset;
    clear();
}

void LineSplitter::clear()
{
    m_lineBegin = m_taken;
    m_rest.clear();
    m_tooLong = false;
    m_afterReturn = false;
}

void LineSplitter::keep(std::string_view piece)
{
    const std::size_t room = std::size_t(maxLength - m_rest.size());
    m_tooLong = m_tooLong || piece.size() > room;
    m_rest.append(piece.data(), int(std::min(room, piece.size())));
}

void LineSplitter::completeLine(std::string_view piece, const LineHandler &handler)
{
    const bool whole = m_rest.isEmpty() && piece.size() <= std::size_t(maxLength);
    if (whole) {
        handler(piece, false);
        return;
    }
    keep(piece);
    handler({m_rest.constData(), std::size_t(m_rest.size())}, m_tooLong);
    m_rest.clear();
    m_tooLong = false;
}

} // namespace Monitor
