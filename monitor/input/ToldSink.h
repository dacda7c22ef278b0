// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/StreamSink.h"
#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"

#include <variant>
#include <vector>

namespace Monitor {

//! Something that a reader told: another acquisition, readings, an event, or a line that was dropped.
using Told = std::variant<StreamHeader, ReadingBlock, QString, RefusedLine>;

/*! Keeps what a reader tells, in its order until it is taken, which another thread may do with the sink at rest. Readings that follow each other
    become one block; dropped lines stand before the block that they lie in. */
class ToldSink : public StreamSink
{
public:
    //! Returns what was told since the last call.
    std::vector<Told> take();

    void streamStarted(const StreamHeader &header) override;
    void reading(double time, const double *values) override { m_block.append(time, values); }
    void eventNoted(const QString &text) override;
    void lineRefused(const RefusedLine &line) override { m_told.emplace_back(line); }

private:
    void endBlock();

    std::vector<Told> m_told;
    ReadingBlock m_block;
};

} // namespace Monitor
