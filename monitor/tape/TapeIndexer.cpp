// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/tape/TapeIndexer.h"

#include "monitor/core/OrderedWorker.h"
#include "monitor/core/Text.h"
#include "monitor/input/ToldSink.h"
#include "monitor/nexus/TableReaders.h"
#include "monitor/readings/GapWatch.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <variant>

namespace Monitor {

namespace {

//! How many blocks are made beside those of the pieces, so that readings that come together are seen apart.
constexpr int mostSingleReadings = 512;
constexpr int usualBlocks = TapeIndex::maxBlocks - TapeIndex::maxParts - mostSingleReadings;
// In bytes. It is shorter than a line, so that a short file has a block for each reading.
constexpr qint64 smallestBlock = 8;
constexpr qint64 largestBlock = 16LL * 1024 * 1024;

//! What was read of a recording in one piece.
struct Piece
{
    int bytes = 0; //!< that are to be read
    ReadPoint begin;
    std::vector<Told> told;
    std::vector<ReadPoint> headers; //!< where the acquisitions of the piece begin
    bool isLast = false;
    double progress = 0.0; //!< of the whole recording, from 0 to 1
};

//! Reads a recording piece by piece, if wanted in a separate thread, and notes where its acquisitions begin.
class PieceReader : public ToldSink
{
public:
    PieceReader(const QString &path, const ImportOptions &options)
        : m_reader(makeTableReader(path, *this, options))
    {
    }
    bool open(const QString &path) { return m_reader->open(path); }
    void setReadingAhead(bool on) { m_reader->setReadingAhead(on); }
    const TableReader &reader() const { return *m_reader; }

    //! Reads a piece; nothing behind the last one.
    void read(Piece &piece)
    {
        piece.begin = m_reader->readPoint();
        m_isOver = m_isOver || !m_reader->read(piece.bytes);
        piece.isLast = m_isOver;
        piece.told = take();
        piece.headers = std::exchange(m_headers, {});
        piece.progress = m_reader->progress();
    }

    void streamStarted(const StreamHeader &header) override
    {
        ToldSink::streamStarted(header);
        m_headers.push_back(m_reader->readPoint());
    }

private:
    const std::unique_ptr<TableReader> m_reader;
    std::vector<ReadPoint> m_headers;
    bool m_isOver = false;
};

//! Puts what is read into an index, block by block.
class IndexMaker
{
public:
    //! Adds a piece, which begins a block if that is wanted.
    void add(const Piece &piece, bool beginsBlock)
    {
        if (beginsBlock)
            beginBlock(piece.begin);
        m_hasFewReadings = readingsOf(piece) <= fewReadings;
        auto headerPoint = piece.headers.begin();
        for (const Told &told : piece.told) {
            if (const auto *header = std::get_if<StreamHeader>(&told))
                startStream(*header, *headerPoint++);
            else if (const auto *readings = std::get_if<ReadingBlock>(&told))
                for (int row = 0; row < readings->size(); ++row)
                    addReading(readings->time(row), readings->values(row));
            else if (const auto *event = std::get_if<QString>(&told))
                addEvent(*event);
        }
    }
    void endBlock()
    {
        index.addBlock(m_block);
        m_block.rows = 0;
    }

    TapeIndex index;
    bool isComplete = true;

private:
    //! The first two readings come together, and so do those after a wrong time.
    static constexpr int fewReadings = 16;

    static int readingsOf(const Piece &piece)
    {
        int readings = 0;
        for (const Told &told : piece.told)
            if (const auto *block = std::get_if<ReadingBlock>(&told))
                readings += block->size();
        return readings;
    }
    void beginBlock(const ReadPoint &point)
    {
        endBlock();
        m_block = {};
        m_block.offset = point.offset;
        m_block.row = point.row;
        m_block.counts = point.counts;
        m_block.isEntry = point.isEntry;
        m_block.low = kInfinity;
        m_block.high = -kInfinity;
    }
    //! Begins a block in the middle of a piece.
    void goOnWithinPiece()
    {
        m_block.isEntry = false;
        m_block.low = kInfinity;
        m_block.high = -kInfinity;
    }
    void startStream(const StreamHeader &header, const ReadPoint &point)
    {
        endBlock();
        m_channels = header.valuesPerReading();
        m_gaps = {};
        m_any = false;
        isComplete = isComplete && point.isContextKept && index.parts() < TapeIndex::maxParts;
        if (!isComplete)
            return;
        index.addPart(point.context);
        if (!header.hasTimes)
            index.countLastPart(header.kind == StreamKind::Spots);
        m_header = header;
        // What precedes the part in this block belongs to another one, so reading cannot begin here.
        goOnWithinPiece();
    }
    //! Begins another block for a reading that came together with others, so that a slow recording shows each.
    void setApart()
    {
        if (!m_hasFewReadings || m_block.rows == 0 || m_singleReadings >= mostSingleReadings)
            return;
        ++m_singleReadings;
        endBlock();
        goOnWithinPiece();
    }
    void addReading(double time, const double *values)
    {
        setApart();
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
        addSum(values);
    }
    //! Adds the sum of a reading, without the values that are missing, to the range of the block.
    void addSum(const double *values)
    {
        double sum = 0.0;
        for (int i = 0; i < m_channels; ++i)
            sum += values[i];
        // A value that is not finite leaves no finite sum.
        if (!std::isfinite(sum))
            sum = sumOfFinite(values);
        if (m_channels == 0 || !std::isfinite(sum))
            return;
        m_block.low = std::min(m_block.low, sum);
        m_block.high = std::max(m_block.high, sum);
    }
    //! Returns the sum of the values that are not missing; not a number if all are.
    double sumOfFinite(const double *values) const
    {
        double sum = 0.0;
        bool any = false;
        for (int i = 0; i < m_channels; ++i) {
            const bool isFinite = std::isfinite(values[i]);
            sum += isFinite ? values[i] : 0.0;
            any = any || isFinite;
        }
        return any ? sum : std::numeric_limits<double>::quiet_NaN();
    }
    void addEvent(const QString &text)
    {
        index.addMark({TapeMark::Kind::Event,
                       {std::max(index.parts() - 1, 0), m_any ? m_lastTime : -kInfinity},
                       0.0,
                       text});
    }

    TapeBlock m_block;
    StreamHeader m_header;
    GapWatch m_gaps;
    bool m_hasFewReadings = false; //!< in the piece
    int m_singleReadings = 0;
    int m_channels = 0;
    bool m_any = false;
    double m_lastTime = 0.0;
};

/*! Reads all of a recording into an index, a large one in a separate thread, a few pieces ahead, which leaves the digits to yet another one.
    Returns false if that was cancelled. */
bool readAll(PieceReader &pieces, int bytesOfPiece, IndexMaker &maker, TapeIndexing &indexing)
{
    constexpr int worthAThread = 64 * 1024, mostAhead = 3;
    const int ahead = bytesOfPiece >= worthAThread ? mostAhead : 0;
    pieces.setReadingAhead(ahead > 0);
    OrderedWorker<Piece> worker([&pieces](Piece &piece) {
        pieces.read(piece);
    });
    bool more = true;
    for (int blocks = 0; more && maker.isComplete; ++blocks) {
        if (indexing.isCancelled)
            return false;
        Piece piece;
        piece.bytes = bytesOfPiece;
        while (worker.pending() < ahead)
            worker.add(piece);
        if (ahead > 0)
            piece = worker.take();
        else
            pieces.read(piece);
        // A file that grows meanwhile has a long last block.
        maker.add(piece, blocks < usualBlocks);
        more = !piece.isLast;
        indexing.progress = piece.progress;
    }
    return true;
}

} // namespace

TapeIndex
indexTape(const QString &path, const ImportOptions &options, TapeIndexing *indexing, QString *error)
{
    PieceReader pieces(path, options);
    const TableReader &reader = pieces.reader();
    if (!pieces.open(path)) {
        *error = reader.errorString();
        return {};
    }
    const auto bytes =
        int(std::clamp(reader.textSize() / usualBlocks, smallestBlock, largestBlock));
    IndexMaker maker;
    if (!readAll(pieces, bytes, maker, *indexing))
        return {};
    maker.endBlock();
    if (!maker.isComplete)
        *error = Text::tr("it has too many parts, or descriptions that are too long");
    else if (reader.hasFailed())
        *error = reader.errorString();
    else if (maker.index.isEmpty())
        *error = Text::tr("it contains no readings");
    indexing->progress = 1.0;
    return error->isEmpty() ? maker.index : TapeIndex();
}

} // namespace Monitor
