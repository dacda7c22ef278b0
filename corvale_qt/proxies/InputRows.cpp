// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/InputRows_p.h"

#include <algorithm>

namespace Corvale_Qt {

InputRows::InputRows(const MergedInputs &inputs, const QVector<Channel> &channels)
    : m_inputs(inputs)
    , m_channels(channels)
{
}

void InputRows::count(MergedInput &input)
{
    const int rows = std::max(input.rowCount() - 1, 0);
    if (rows == input.rows)
        return;
    const bool heldLongest = input.rows == m_longest;
    input.rows = rows;
    if (rows > m_longest) {
        m_longest = rows;
        m_holders = 1;
    } else if (rows == m_longest) {
        ++m_holders;
    } else if (heldLongest && --m_holders == 0) {
        countLongest();
    }
}

void InputRows::countLongest()
{
    m_longest = 0;
    m_holders = 0;
    for (const auto &input : m_inputs) {
        if (input->rows > m_longest) {
            m_longest = input->rows;
            m_holders = 0;
        }
        m_holders += input->rows == m_longest ? 1 : 0;
    }
}

void InputRows::countAll()
{
    for (const auto &input : m_inputs) {
        input->rows = std::max(input->rowCount() - 1, 0);
        input->ownColumns = input->items ? input->items->columnCount() : 0;
        input->dropped = 0;
        input->news = MergedInput::News();
    }
    countLongest();
}

int InputRows::longestBefore(const MergedInput &input, int enough) const
{
    int rows = 0;
    for (const Channel &channel : m_channels) {
        if (channel.input == &input || rows >= enough)
            break;
        rows = std::max(rows, channel.input->rows);
    }
    return rows;
}

int InputRows::longestBeside(const MergedInput &input) const
{
    int rows = 0;
    for (const auto &other : m_inputs) {
        if (other.get() != &input)
            rows = std::max(rows, other->rows);
    }
    return rows;
}

} // namespace Corvale_Qt
