// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/ReadPoint.h"

#include <QString>
#include <QVector>

#include <functional>
#include <limits>
#include <vector>

namespace Monitor {

inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

//! A place on a tape: one of its parts, from 0, and a time in seconds of that part.
struct TapeSpot
{
    int part = 0;
    double time = 0.0;
};

//! A stretch of a recording that was read in one piece, and the extremes of the sums of its readings.
struct TapeBlock
{
    qint64 offset = 0; //!< bytes of the text before it
    qint64 row = 0;
    LineCounts counts; //!< of everything before it
    int part = 0;
    bool isEntry = true; //!< reading can begin here
    qint64 rows = 0;
    double firstTime = 0.0;
    double lastTime = 0.0;
    double low = 0.0; //!< above high if no reading of the block is finite
    double high = 0.0;
};

//! Something on a tape that a person may look for.
struct TapeMark
{
    enum class Kind {
        Event,
        Gap
    };
    Kind kind = Kind::Event;
    TapeSpot spot;
    double length = 0.0; //!< of a gap, in seconds
    QString text; //!< of an event
};

/*! Where the readings of a recording lie in its file, and what they are in outline. Positions on the tape are seconds
    from its beginning, or readings where nothing else is known: its parts, whose own times are independent of each other, are laid end
    to end. */
class TapeIndex
{
public:
    //! The smallest and the largest sum of readings; none if low is above high.
    struct Range
    {
        double low = 0.0;
        double high = -1.0;
    };
    //! A part: a stretch whose times go on, and lines that describe it.
    struct Part
    {
        QByteArray context;
        double firstTime = 0.0;
        double lastTime = 0.0;
        qint64 rows = 0;
        double begin = 0.0; //!< position of its first reading
        bool hasTimes = true; //!< false if its times only count its readings
        bool hasSpots = false;
        //! The moment at which t is 0, in seconds since 1970; not a number if the recording does not state it.
        double origin = std::numeric_limits<double>::quiet_NaN();

        //! Returns the position of its last reading.
        double end() const { return begin + (lastTime - firstTime); }
        //! Returns the seconds from its last reading to what follows it: one of its own steps.
        double step() const;
    };
    //! How many blocks, parts and marks an index has at most.
    static constexpr int maxBlocks = 8192, maxParts = 4096, maxMarks = 4096;

    //! Adds a part, with the lines that describe it.
    void addPart(const QByteArray &context);
    //! States that the times of the last part only count its readings, which may be spots.
    void countLastPart(bool areSpots);
    //! States the moment at which t is 0 in the last part, in seconds since 1970.
    void dateLastPart(double origin);
    //! Adds a block of the last part; blocks come in the order of the file.
    void addBlock(const TapeBlock &block);
    //! Adds a mark; beyond maxMarks they are only counted.
    void addMark(const TapeMark &mark);

    bool isEmpty() const { return m_blocks.empty(); }
    int parts() const { return int(m_parts.size()); }
    //! Returns a part, counted from 0.
    const Part &part(int number) const { return m_parts[std::size_t(number)]; }
    const std::vector<TapeBlock> &blocks() const { return m_blocks; }
    const QVector<TapeMark> &marks() const { return m_marks; }
    //! Returns how many marks there are beyond those of marks().
    qint64 marksLeftOut() const { return m_marksLeftOut; }
    //! Returns the number of readings.
    qint64 rows() const;

    //! Returns whether readings of some part are only counted.
    bool isCounted() const;

    //! Returns the length of the tape in seconds.
    double length() const;
    /*! Returns the time at position 0, in seconds of the recording, if there is a single part; otherwise 0, for the times of
        parts are independent of each other. */
    double firstTime() const { return parts() == 1 ? m_parts.front().firstTime : 0.0; }
    //! Returns the position of a place, from 0 to length().
    double positionOf(const TapeSpot &spot) const;
    //! Returns the place at a position, which is moved into the tape.
    TapeSpot spotAt(double position) const;
    /*! Returns where reading must begin to have the readings before a place as well: about \a rows of them, from no more
        than \a bytes of the file. \a part becomes the part in which it begins. */
    ReadPoint entryBefore(const TapeSpot &spot, qint64 rows, qint64 bytes, int *part) const;
    //! Returns the extremes in each of \a columns equal stretches of the tape.
    QVector<Range> outline(int columns) const;
    //! Returns the same for a tape of another length, on which the places of this one have those positions.
    QVector<Range> outline(int columns,
                           double length,
                           const std::function<double(const TapeSpot &)> &positionOf) const;

    //! Returns the index as bytes.
    QByteArray toBytes() const;
    //! Reads such bytes. Returns false, and leaves an empty index, if they are damaged.
    bool fromBytes(const QByteArray &bytes);

private:
    bool isConsistent() const;

    std::vector<Part> m_parts;
    std::vector<TapeBlock> m_blocks;
    QVector<TapeMark> m_marks;
    qint64 m_marksLeftOut = 0;
};

} // namespace Monitor
