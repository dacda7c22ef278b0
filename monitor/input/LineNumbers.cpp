// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/LineNumbers.h"

#include "monitor/input/FieldNumbers.h"

#include <algorithm>
#include <functional>

namespace Monitor {

void LineNumbers::clear()
{
    m_text = {};
    m_count = 0;
    m_lines.clear();
    m_next = 0;
}

void LineNumbers::read(std::string_view text, int count)
{
    clear();
    if (count <= 0)
        return;
    m_text = text;
    m_count = count;
    m_ends.find(text);
    if (m_numbers.size() < m_ends.size())
        m_numbers.resize(m_ends.size());
    std::size_t begin = 0;
    for (std::size_t field = 0; field < m_ends.size(); begin = m_ends[field - 1] + 1)
        field = readLine(begin, field) ? field + std::size_t(count) : fieldAfterLine(field);
}

//! Reads the line that begins at a place with a field. Returns false if it is not plain, begins with a blank, or has no end.
bool LineNumbers::readLine(std::size_t begin, std::size_t field)
{
    const auto each = std::size_t(m_count);
    const std::size_t last = field + each - 1;
    const bool isWhole =
        last < m_ends.size() && m_text[m_ends[last]] == '\n' && m_text[begin] > ' ';
    double *const numbers = m_numbers.data() + m_lines.size() * each;
    if (!isWhole || !readFieldNumbers(m_text, begin, m_ends.data() + field, each, numbers))
        return false;
    const std::size_t end = m_ends[last] - (m_text[m_ends[last] - 1] == '\r' ? 1 : 0);
    m_lines.push_back({std::uint32_t(begin), std::uint32_t(end - begin)});
    return true;
}

//! Returns the first field behind the line of a field.
std::size_t LineNumbers::fieldAfterLine(std::size_t field) const
{
    while (field < m_ends.size() && m_text[m_ends[field]] != '\n')
        ++field;
    return std::min(field + 1, m_ends.size());
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
