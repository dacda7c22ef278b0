// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/LineNumbers.h"

#include "monitor/input/LineText.h"

#include <algorithm>
#include <functional>

namespace Monitor {

void LineNumbers::clear()
{
    m_text = {};
    m_count = 0;
    m_lines.clear();
    m_numbers.clear();
    m_next = 0;
}

void LineNumbers::read(std::string_view text, int count)
{
    clear();
    if (count <= 0)
        return;
    m_text = text;
    m_count = count;
    const std::size_t each = std::size_t(count);
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string_view line = trimmed(text.substr(begin, end - begin));
        m_numbers.resize((m_lines.size() + 1) * each);
        if (parseNumbers(line, each, m_numbers.data() + m_lines.size() * each))
            m_lines.push_back(
                {std::uint32_t(line.data() - text.data()), std::uint32_t(line.size())});
        begin = end + 1;
    }
}

//! Returns whether a line lies in the text. One that began in an earlier text lies elsewhere.
bool LineNumbers::isInText(std::string_view line) const
{
    const std::less_equal<const char *> isUpTo;
    return isUpTo(m_text.data(), line.data())
        && isUpTo(line.data() + line.size(), m_text.data() + m_text.size());
}

const double *LineNumbers::of(std::string_view line, int count)
{
    if (count != m_count || !isInText(line))
        return nullptr;
    const auto begin = std::uint32_t(line.data() - m_text.data());
    while (m_next < m_lines.size() && m_lines[m_next].begin < begin)
        ++m_next;
    const bool isRead = m_next < m_lines.size() && m_lines[m_next].begin == begin
        && m_lines[m_next].size == line.size();
    return isRead ? m_numbers.data() + m_next * std::size_t(m_count) : nullptr;
}

} // namespace Monitor
