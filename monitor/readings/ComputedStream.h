// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LoggedText.h"
#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"
#include <corvale_qt/proxies/ChannelExpressions.h>

#include <QVector>

#include <vector>

namespace Monitor {

/*! Adds channels to a stream that are computed from those that it has, so that everything behind it, charts and tables,
    statistics and recordings, takes them for channels like any other. Without expressions it adds nothing. */
class ComputedStream
{
public:
    explicit ComputedStream(const QVector<Corvale_Qt::ComputedChannel> &channels = {});

    /*! Begins a stream: adds the computed channels to \a header. If one of them makes no sense with this stream, none is added,
        and the text says why; it is empty otherwise. */
    LoggedText begin(StreamHeader &header);
    //! Returns the readings with those of the computed channels. The block is valid until the next call.
    const ReadingBlock &extended(const ReadingBlock &readings);
    /*! Returns for each channel of the stream, of which \a measured are measured, the column in which it stood beside the computed
        channels of \a former; 0 for a computed channel that was not there or was computed otherwise. */
    QVector<int> formerColumns(const ComputedStream &former, int measured) const;

private:
    void compute(const ReadingBlock &readings, int first, int rows);

    QVector<Corvale_Qt::ComputedChannel> m_channels;
    Corvale_Qt::ChannelExpressions m_expressions;
    ReadingBlock m_block;
    // Column after column: what is read, and what is computed.
    std::vector<std::vector<double>> m_inputs;
    std::vector<std::vector<double>> m_outputs;
};

} // namespace Monitor
