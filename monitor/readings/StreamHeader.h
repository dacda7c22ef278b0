// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDateTime>
#include <QMetaType>
#include <QString>
#include <QVector>

namespace Monitor {

//! What the values of one reading are.
enum class StreamKind {
    Channels, //!< independent channels over time
    Strips, //!< two profiles: the strips of x, then those of y
    Pixels, //!< a matrix, row after row, row 1 at the smallest y
    Spots, //!< one beam spot a reading
};

//! "channels", "strips", "pixels" or "spots".
QString kindName(StreamKind kind);
//! The layout of that name; \a ok tells whether there is one.
StreamKind kindFromName(const QString &name, bool *ok);

struct Channel
{
    QString name;
    QString
        unit; //!< a unit's symbol as instruments write it (nA, uA, mm); empty where there is none

    bool operator==(const Channel &other) const { return name == other.name && unit == other.unit; }
};

//! What is known of a stream of readings before the first of them.
struct StreamHeader
{
    static constexpr int maxChannels = 256;

    StreamKind kind = StreamKind::Channels;
    QVector<Channel> channels;
    QDateTime startTime; //!< when t was 0; invalid where nobody said
    //! Readings outside are over range; no limits where both are equal.
    double rangeLow = 0.0;
    double rangeHigh = 0.0;

    bool hasRange() const { return rangeLow < rangeHigh; }
    //! The channel of that name, any case; -1 where there is none.
    int indexOf(const QString &name) const;
    //! The unit that all channels share; empty where they differ.
    QString commonUnit() const;
    //! Names as strips, pixels and spots have them, or "ch1", "ch2" and so on.
    static QVector<Channel> defaultChannels(StreamKind kind, int count);
};

} // namespace Monitor

Q_DECLARE_METATYPE(Monitor::StreamKind)
Q_DECLARE_METATYPE(Monitor::StreamHeader)
