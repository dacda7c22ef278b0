// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LoggedText.h"
#include <corvale_qt/detector/DetectorLayout.h>
#include <corvale_qt/numerics/ChannelLimits.h>

#include <QDateTime>
#include <QMetaType>
#include <QString>
#include <QVector>

#include <optional>

namespace Monitor {

//! What the values of a reading represent.
enum class StreamKind {
    Channels, //!< independent channels over time
    Strips, //!< two profiles: the strips of x, then the strips of y
    Pixels, //!< a matrix, row after row, row 1 at the smallest y
    Spots, //!< one beam spot per reading
};

//! Returns "channels", "strips", "pixels" or "spots".
QString kindName(StreamKind kind);
//! Returns the kind for a person, for example "strips", in the language in which texts are made at present.
QString kindText(StreamKind kind);
//! Returns the kind of that name, StreamKind::Channels if there is none; \a ok tells whether there is one.
StreamKind kindFromName(const QString &name, bool *ok);

//! The name and the unit of one channel.
struct Channel
{
    QString name;
    //! The symbol of the unit as instruments write it (nA, uA, mm); empty if the channel has no unit.
    QString unit;

    bool operator==(const Channel &other) const { return name == other.name && unit == other.unit; }
};

/*! What is known about a stream of readings before the first of them.

    A reading has one value for each channel, or it is a frame: one value for each cell of a detector. The channels of a stream
    of frames are the numbers that are computed from each frame, with the names sum, max, x, sigma_x, y
    and sigma_y. */
struct StreamHeader
{
    static constexpr int maxChannels = 256;

    StreamKind kind = StreamKind::Channels;
    QVector<Channel> channels;
    int computed = 0; //!< how many of the last channels were computed from the others
    //! False if nothing states when readings were taken: their times are their numbers then, from 1.
    bool hasTimes = true;
    QDateTime startTime; //!< the moment at which t was 0; invalid if it is unknown
    double startUncertainty = 0.0; //!< of the start time, in seconds; 0 if nobody states one
    //! Readings outside these limits, unless they are computed, are over range; there are no limits if both are equal.
    double rangeLow = 0.0;
    double rangeHigh = 0.0;
    QVector<Corvale_Qt::ChannelLimits>
        limits; //!< of each channel, in its unit; empty if no channel has any
    LoggedText limitsFault; //!< why limits that the stream gives are not used; empty otherwise
    Corvale_Qt::DetectorLayout
        detector; //!< empty if the stream does not describe one; never empty for frames
    LoggedText
        detectorFault; //!< why the detector that the stream describes is not used; empty otherwise

    int frameSize = 0; //!< number of values of a frame; 0 if the readings are not frames
    int frameRows =
        0; //!< number of lines in which a frame is written; 0 for a single line with its time
    QString frameUnit; //!< unit of the values of a frame; empty if it is not known
    int leftOutChannels = 0; //!< channels of the source beyond the 256 that are read

    //! Returns whether the readings are a list, in which only their order counts: spots, and readings without times.
    bool isList() const { return kind == StreamKind::Spots || !hasTimes; }
    //! Returns whether the readings are frames.
    bool hasFrames() const { return frameSize > 0; }
    //! Returns the number of values in each reading.
    int valuesPerReading() const { return hasFrames() ? frameSize : channels.size(); }
    //! Returns the unit that all values of a reading share; empty if they differ.
    QString readingUnit() const { return hasFrames() ? frameUnit : commonUnit(); }
    //! Makes this the header of frames from \a layout, whose values have that unit.
    void setFrames(const Corvale_Qt::DetectorLayout &layout, const QString &unit);
    //! Returns the header of what is computed from each frame, as a stream of channels.
    StreamHeader ofNumbers() const;
    /*! Sets the detector that the readings come from, or says in the fault why they cannot. A detector
        whose planes differ in length cannot be shown as strips, which are divided evenly between the planes, so such a stream
        becomes one of channels. Frames keep their detector if the new one does not fit. */
    void setDetector(const Corvale_Qt::DetectorLayout &layout);
    //! Returns the limits of a channel, counted from 0; empty ones if it has none.
    Corvale_Qt::ChannelLimits limitsOf(int channel) const { return limits.value(channel); }
    /*! Sets the limits of a channel by its name, to which its unit may be added as in "left_nA". Returns false if there is no
        such channel. */
    bool setLimits(const QString &name, const Corvale_Qt::ChannelLimits &limitsOfChannel);
    //! Returns whether a time of a reading is a time stamp in seconds since 1970: no run of an instrument lasts that long.
    static bool countsFrom1970(double time);
    /*! Returns the moment at which t is 0, in seconds since 1970, if the stream states it: by its start time, or by the times of its
        readings, the first of which is \a firstTime. */
    std::optional<double> statedOrigin(double firstTime) const;
    //! Returns whether the stream has a range.
    bool hasRange() const { return rangeLow < rangeHigh; }
    //! Returns the index of the channel with that name, ignoring case; -1 if there is none.
    int indexOf(const QString &name) const;
    //! Returns how many channels the instrument measures: all but the computed ones.
    int measured() const { return channels.size() - computed; }
    //! Returns the unit that all measured channels share; empty if they differ.
    QString commonUnit() const;
    /*! Returns \a count channels with the usual names of that kind: x01 and y01, r01c01, the fields of a spot, or ch1.
        Only the fields of a spot have units. */
    static QVector<Channel> defaultChannels(StreamKind kind, int count);
    //! Returns channels with the names of strips: x01 and so on, then y01 and so on.
    static QVector<Channel> stripChannels(int ofX, int ofY);
    //! Returns channels with the names of the cells of a matrix, r01c01 and so on, row after row.
    static QVector<Channel> pixelChannels(int rows, int columns);
};

} // namespace Monitor

Q_DECLARE_METATYPE(Monitor::StreamKind)
Q_DECLARE_METATYPE(Monitor::StreamHeader)
