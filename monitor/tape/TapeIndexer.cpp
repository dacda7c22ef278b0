// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/tape/TapeIndexer.h"

#include "monitor/core/Text.h"
#include "monitor/input/StreamSink.h"
#include "monitor/nexus/TableReaders.h"
#include "monitor/readings/GapWatch.h"
#include "monitor/readings/StreamHeader.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Monitor {

namespace {

constexpr int usualBlocks = TapeIndex::maxBlocks / 2;
// In bytes. It is shorter than a line, so that a short file has a block for each reading.
constexpr qint64 smallestBlock = 8;
constexpr qint64 largestBlock = 16LL * 1024 * 1024;

//! Puts what is read into an index, block by block.
class IndexSink : public StreamSink
{
public:
    //! Sets what is asked where it stands; it must be set before the first reading.
    void setReader(const TableReader *reader) { m_reader = reader; }

    //! Begins a block at the place up to which the reader has read.
    void beginBlock()
    {
        endBlock();
        const ReadPoint point = m_reader->readPoint();
        m_block = {};
        m_block.offset = point.offset;
        m_block.row = point.row;
        m_block.counts = point.counts;
        m_block.isEntry = point.isEntry;
        m_block.low = kInfinity;
        m_block.high = -kInfinity;
    }
    void endBlock()
    {
        index.addBlock(m_block);
        m_block.rows = 0;
    }

    void streamStarted(const StreamHeader &header) override
    {
        endBlock();
        m_channels = header.valuesPerReading();
        m_gaps = {};
        m_any = false;
        const ReadPoint point = m_reader->readPoint();
        isComplete = isComplete && point.isContextKept && index.parts() < TapeIndex::maxParts;
        if (!isComplete)
            return;
        index.addPart(point.context);
        if (!header.hasTimes)
            index.countLastPart(header.kind == StreamKind::Spots);
        m_header = header;
        // What precedes the part in this block belongs to another one, so reading cannot begin here.
        m_block.isEntry = false;
        m_block.low = kInfinity;
        m_block.high = -kInfinity;
    }
    void reading(double time, const double *values) override
    {
        if (m_any && m_gaps.isGap(time - m_lastTime))
            index.addMark(
                {TapeMark::Kind::Gap, {index.parts() - 1, m_lastTime}, time - m_lastTime, {}});
        if (!m_any && isComplete)
            if (const std::optional<double> origin = m_header.statedOrigin(time))
                index.dateLastPart(*origin);
        m_any = true;
        m_lastTime = time;
        if (m_block.rows++ == 0)
            m_block.firstTime = time;
        m_block.lastTime = time;
        double sum = 0.0;
        for (int i = 0; i < m_channels; ++i)
            sum += std::isfinite(values[i]) ? values[i] : 0.0;
        const bool none = std::none_of(values, values + m_channels, [](double value) {
            return std::isfinite(value);
        });
        if (none || !std::isfinite(sum))
            return;
        m_block.low = std::min(m_block.low, sum);
        m_block.high = std::max(m_block.high, sum);
    }
    void eventNoted(const QString &text) override
    {
        index.addMark({TapeMark::Kind::Event,
                       {std::max(index.parts() - 1, 0), m_any ? m_lastTime : -kInfinity},
                       0.0,
                       text});
    }
    void lineRefused(const RefusedLine &) override { }

    TapeIndex index;
    bool isComplete = true;

private:
    const TableReader *m_reader = nullptr;
    TapeBlock m_block;
    StreamHeader m_header;
    GapWatch m_gaps;
    int m_channels = 0;
    bool m_any = false;
    double m_lastTime = 0.0;
};

} // namespace

TapeIndex
indexTape(const QString &path, const ImportOptions &options, TapeIndexing *indexing, QString *error)
{
    IndexSink sink;
    const std::unique_ptr<TableReader> reader = makeTableReader(path, sink, options);
    sink.setReader(reader.get());
    if (!reader->open(path)) {
        *error = reader->errorString();
        return {};
    }
    const auto piece =
        int(std::clamp(reader->textSize() / usualBlocks, smallestBlock, largestBlock));
    const int mostBlocks = TapeIndex::maxBlocks - TapeIndex::maxParts;
    bool more = true;
    for (int blocks = 0; more && sink.isComplete; ++blocks) {
        if (indexing->isCancelled)
            return {};
        // A file that grows meanwhile has a long last block.
        if (blocks < mostBlocks)
            sink.beginBlock();
        more = reader->read(piece);
        indexing->progress = reader->progress();
    }
    sink.endBlock();
    if (!sink.isComplete)
        *error = Text::tr("it has too many parts, or descriptions that are too long");
    else if (reader->hasFailed())
        *error = reader->errorString();
    else if (sink.index.isEmpty())
        *error = Text::tr("it contains no readings");
    indexing->progress = 1.0;
    return error->isEmpty() ? sink.index : TapeIndex();
}

} // namespace Monitor
