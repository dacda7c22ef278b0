// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/tape/TapeIndex.h"

#include <QCryptographicHash>
#include <QDataStream>

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

constexpr quint32 format = 4;
constexpr int sumSize = 20;

QDataStream &operator<<(QDataStream &out, const LineCounts &counts)
{
    out << counts.lines << counts.readings;
    for (const qint64 count : counts.refused)
        out << count;
    return out;
}

QDataStream &operator>>(QDataStream &in, LineCounts &counts)
{
    in >> counts.lines >> counts.readings;
    for (qint64 &count : counts.refused)
        in >> count;
    return in;
}

QDataStream &operator<<(QDataStream &out, const TapeBlock &block)
{
    return out << block.offset << block.row << block.counts << block.part << block.isEntry
               << block.rows << block.firstTime << block.lastTime << block.low << block.high;
}

QDataStream &operator>>(QDataStream &in, TapeBlock &block)
{
    return in >> block.offset >> block.row >> block.counts >> block.part >> block.isEntry
        >> block.rows >> block.firstTime >> block.lastTime >> block.low >> block.high;
}

//! Returns whether a number may be one of bytes or readings. The sum of those of all parts is one, too.
bool isCount(qint64 number)
{
    return number >= 0 && number < qint64(1) << 50;
}

} // namespace

double TapeIndex::Part::step() const
{
    constexpr double usual = 1.0;
    const double step = rows > 1 ? (lastTime - firstTime) / double(rows - 1) : 0.0;
    return std::isfinite(step) && step > 0.0 ? step : usual;
}

void TapeIndex::addPart(const QByteArray &context)
{
    Part part;
    // Parts with the same description share it.
    part.context =
        !m_parts.empty() && m_parts.back().context == context ? m_parts.back().context : context;
    if (!m_parts.empty())
        part.begin = m_parts.back().end(); // a part without readings takes no time
    m_parts.push_back(part);
}

void TapeIndex::countLastPart(bool areSpots)
{
    if (m_parts.empty())
        return;
    m_parts.back().hasTimes = false;
    m_parts.back().hasSpots = areSpots;
}

void TapeIndex::dateLastPart(double origin)
{
    if (!m_parts.empty())
        m_parts.back().origin = origin;
}

void TapeIndex::addBlock(const TapeBlock &block)
{
    if (m_parts.empty() || block.rows == 0)
        return;
    Part &part = m_parts.back();
    if (part.rows == 0) {
        part.firstTime = block.firstTime;
        if (!m_blocks.empty())
            part.begin += this->part(m_blocks.back().part).step();
    }
    part.rows += block.rows;
    part.lastTime = block.lastTime;
    m_blocks.push_back(block);
    m_blocks.back().part = int(m_parts.size()) - 1;
}

void TapeIndex::addMark(const TapeMark &mark)
{
    if (m_marks.size() < maxMarks)
        m_marks.append(mark);
    else
        ++m_marksLeftOut;
}

qint64 TapeIndex::rows() const
{
    qint64 rows = 0;
    for (const Part &part : m_parts)
        rows += part.rows;
    return rows;
}

bool TapeIndex::isCounted() const
{
    return std::any_of(m_parts.begin(), m_parts.end(), [](const Part &part) {
        return !part.hasTimes;
    });
}

double TapeIndex::length() const
{
    return m_blocks.empty() ? 0.0 : m_parts.back().end();
}

double TapeIndex::positionOf(const TapeSpot &spot) const
{
    if (m_parts.empty())
        return 0.0;
    const Part &its = part(std::clamp(spot.part, 0, parts() - 1));
    // Summed in the order of end(): another order may round to a place behind it.
    return its.begin + (std::clamp(spot.time, its.firstTime, its.lastTime) - its.firstTime);
}

TapeSpot TapeIndex::spotAt(double position) const
{
    if (m_parts.empty())
        return {};
    const auto after = std::upper_bound(m_parts.begin() + 1,
                                        m_parts.end(),
                                        position,
                                        [](double wanted, const Part &its) {
                                            return wanted < its.begin;
                                        });
    const auto number = int(after - m_parts.begin()) - 1;
    const Part &its = part(number);
    return {number,
            std::clamp(its.firstTime + (position - its.begin), its.firstTime, its.lastTime)};
}

ReadPoint TapeIndex::entryBefore(const TapeSpot &spot, qint64 rows, qint64 bytes, int *part) const
{
    const auto isBefore = [](const TapeBlock &block, const TapeSpot &wanted) {
        return block.part < wanted.part
            || (block.part == wanted.part && block.firstTime <= wanted.time);
    };
    const auto after = std::lower_bound(m_blocks.begin(), m_blocks.end(), spot, isBefore);
    auto block = int(after - m_blocks.begin()) - 1;
    const qint64 wantedFrom = block >= 0 ? m_blocks[std::size_t(block)].offset - bytes : 0;
    // The readings at the place itself are in the block that begins before it.
    qint64 before = 0;
    for (--block; block >= 0; --block) {
        const TapeBlock &its = m_blocks[std::size_t(block)];
        before += its.rows;
        const bool enough = before >= rows || its.offset <= wantedFrom || its.part < spot.part;
        if (its.isEntry && enough)
            break;
    }
    *part = 0;
    if (block < 0 || m_blocks[std::size_t(block)].offset == 0)
        return {};
    const TapeBlock &its = m_blocks[std::size_t(block)];
    *part = its.part;
    return {its.offset, its.row, its.counts, this->part(its.part).context, true, true};
}

QVector<TapeIndex::Range> TapeIndex::outline(int columns) const
{
    return outline(columns, length(), [this](const TapeSpot &spot) {
        return positionOf(spot);
    });
}

QVector<TapeIndex::Range>
TapeIndex::outline(int columns,
                   double length,
                   const std::function<double(const TapeSpot &)> &positionOf) const
{
    QVector<Range> outline(std::max(columns, 0));
    if (columns <= 0)
        return outline;
    const auto columnOf = [&](double position) {
        const bool measurable = length > 0.0 && std::isfinite(length);
        const double column = measurable ? position / length * columns : 0.0;
        return int(std::clamp(column, 0.0, columns - 1.0));
    };
    for (const TapeBlock &block : m_blocks) {
        if (!(block.low <= block.high))
            continue;
        const int last = columnOf(positionOf({block.part, block.lastTime}));
        for (int i = columnOf(positionOf({block.part, block.firstTime})); i <= last; ++i) {
            Range &range = outline[i];
            const bool none = range.low > range.high;
            range.low = none ? block.low : std::min(range.low, block.low);
            range.high = none ? block.high : std::max(range.high, block.high);
        }
    }
    return outline;
}

QByteArray TapeIndex::toBytes() const
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << format << quint32(m_parts.size());
    for (const Part &part : m_parts)
        out << part.context << part.firstTime << part.lastTime << part.rows << part.begin
            << part.origin << part.hasTimes << part.hasSpots;
    out << quint32(m_blocks.size());
    for (const TapeBlock &block : m_blocks)
        out << block;
    out << quint32(m_marks.size());
    for (const TapeMark &mark : m_marks)
        out << int(mark.kind) << mark.spot.part << mark.spot.time << mark.length << mark.text;
    out << m_marksLeftOut;
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1) + bytes;
}

bool TapeIndex::fromBytes(const QByteArray &bytes)
{
    *this = {};
    const QByteArray content = bytes.mid(sumSize);
    if (QCryptographicHash::hash(content, QCryptographicHash::Sha1) != bytes.left(sumSize))
        return false;
    QDataStream in(content);
    in.setVersion(QDataStream::Qt_5_15);
    quint32 version = 0, parts = 0, blocks = 0, marks = 0;
    in >> version >> parts;
    if (version != format || parts > maxParts)
        return false;
    m_parts.resize(parts);
    for (Part &part : m_parts)
        in >> part.context >> part.firstTime >> part.lastTime >> part.rows >> part.begin
            >> part.origin >> part.hasTimes >> part.hasSpots;
    in >> blocks;
    m_blocks.resize(std::min<quint32>(blocks, maxBlocks));
    for (TapeBlock &block : m_blocks)
        in >> block;
    in >> marks;
    m_marks.resize(int(std::min<quint32>(marks, maxMarks)));
    for (TapeMark &mark : m_marks) {
        int kind = 0;
        in >> kind >> mark.spot.part >> mark.spot.time >> mark.length >> mark.text;
        mark.kind = kind == 0 ? TapeMark::Kind::Event : TapeMark::Kind::Gap;
    }
    in >> m_marksLeftOut;
    const bool good = in.status() == QDataStream::Ok && blocks <= maxBlocks && marks <= maxMarks
        && isConsistent();
    if (!good)
        *this = {};
    return good;
}

//! Returns whether the index is one that a recording may have, so that all positions are on the tape.
bool TapeIndex::isConsistent() const
{
    if (m_parts.empty() != m_blocks.empty())
        return false;
    constexpr double latestOrigin = 1e11; // s
    double begin = 0.0;
    for (const Part &part : m_parts) {
        if (!(part.firstTime <= part.lastTime && part.begin >= begin && std::isfinite(part.end()))
            || !isCount(part.rows) || std::abs(part.origin) > latestOrigin)
            return false;
        begin = part.end();
    }
    qint64 offset = 0;
    int part = 0;
    for (const TapeBlock &block : m_blocks) {
        if (block.part < part || block.part >= parts() || block.offset < offset
            || !isCount(block.offset) || !isCount(block.row) || !isCount(block.rows)
            || !(block.firstTime <= block.lastTime))
            return false;
        offset = block.offset;
        part = block.part;
    }
    const auto isPlaced = [this](const TapeMark &mark) {
        const bool isInPart = mark.spot.part >= 0 && mark.spot.part < std::max(parts(), 1);
        return isInPart && !std::isnan(mark.spot.time) && !std::isnan(mark.length);
    };
    return std::all_of(m_marks.begin(), m_marks.end(), isPlaced) && isCount(m_marksLeftOut);
}

} // namespace Monitor
