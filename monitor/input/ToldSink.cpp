// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/ToldSink.h"

#include <utility>

namespace Monitor {

std::vector<Told> ToldSink::take()
{
    endBlock();
    return std::exchange(m_told, {});
}

void ToldSink::streamStarted(const StreamHeader &header)
{
    endBlock();
    m_block.clear(header.valuesPerReading());
    m_told.emplace_back(header);
}

void ToldSink::eventNoted(const QString &text)
{
    endBlock(); // what came before the event is told before it
    m_told.emplace_back(text);
}

//! Adds the readings to what was told. The next block has room for as many.
void ToldSink::endBlock()
{
    if (m_block.isEmpty())
        return;
    const int channels = m_block.channels(), rows = m_block.size();
    m_told.emplace_back(std::exchange(m_block, ReadingBlock(channels)));
    m_block.reserve(rows);
}

} // namespace Monitor
