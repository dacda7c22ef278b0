// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/FieldEnds.h"
#include "monitor/readings/StreamHeader.h"

#include <functional>
#include <string_view>
#include <vector>

namespace Monitor {

struct ColumnPlan;

//! Turns the fields of lines into readings. Each kind of table that a stream may carry has a subclass.
class RowReader
{
public:
    using Fields = std::vector<std::string_view>;
    //! Takes a time in seconds and one value per channel.
    using RowHandler = std::function<void(double time, const double *values)>;
    //! What became of a line.
    enum class Outcome {
        Taken,
        WrongCount, //!< it has a different number of fields
        Unreadable, //!< a field is not a number
    };

    RowReader(const RowReader &) = delete;
    RowReader &operator=(const RowReader &) = delete;
    virtual ~RowReader();

    //! Returns the channels; none if the readings are frames.
    const QVector<Channel> &channels() const { return m_channels; }
    StreamKind kind() const { return m_kind; }
    //! Returns the cells of the frames; no cells if the readings have channels.
    const Corvale_Qt::DetectorDescription &frames() const { return m_frames; }
    //! Returns the unit of the values of a frame; empty if it is not known.
    const QString &frameUnit() const { return m_frameUnit; }
    //! Returns whether the readings are frames.
    bool hasFrames() const { return m_frames.readings > 0; }
    //! Returns the number of values in each reading.
    int valuesPerReading() const { return hasFrames() ? m_frames.readings : m_channels.size(); }
    //! Returns whether the lines have times.
    virtual bool isTimed() const { return true; }
    //! Returns the number of channels that the table has beyond those that are read.
    virtual int leftOutChannels() const { return 0; }
    //! Calls \a handler for each reading that this line completes. A line without a time gets \a arrivalTime.
    virtual Outcome read(const Fields &fields, double arrivalTime, const RowHandler &handler) = 0;
    //! Returns how many numbers a plain line has: one in which each field is a number that is used. 0 if there are no such lines.
    virtual int numbersOfPlainLine() const { return 0; }
    /*! Takes the numbers of a plain line, in their order, and calls \a handler if they complete a reading. Returns false if they cannot be
        taken; the fields of the line are then for read(). */
    virtual bool takePlain(const double *numbers, const RowHandler &handler);
    //! Reads a line in one pass and takes its numbers. Returns false if it is no plain line, or if they cannot be taken.
    bool readPlain(std::string_view line, const RowHandler &handler);
    //! Calls \a handler for the readings that were waiting for further lines.
    virtual void finish(const RowHandler &handler);

protected:
    RowReader(const QVector<Channel> &channels, StreamKind kind);
    //! Reads frames from the cells of a detector; their values have the given unit.
    explicit RowReader(const Corvale_Qt::DetectorDescription &frames, const QString &unit = {});
    //! Reads the frames or the channels that a plan found in the columns.
    explicit RowReader(const ColumnPlan &plan);

private:
    QVector<Channel> m_channels;
    StreamKind m_kind;
    Corvale_Qt::DetectorDescription m_frames;
    QString m_frameUnit;
    FieldEnds m_ends; //!< of the line that readPlain() reads
    std::vector<double> m_plain; //!< of the line that readPlain() reads
};

//! Reads lines of the form "t,v1,v2,...", or "v1,v2,..." if lines have no time.
class TimedRowReader : public RowReader
{
public:
    TimedRowReader(const QVector<Channel> &channels, StreamKind kind, bool timed);
    //! Reads lines of which each holds one frame from the cells of a detector.
    TimedRowReader(const Corvale_Qt::DetectorDescription &frames, bool timed);
    Outcome read(const Fields &fields, double arrivalTime, const RowHandler &handler) override;
    int numbersOfPlainLine() const override { return m_timed ? int(m_numbers.size()) : 0; }
    bool takePlain(const double *numbers, const RowHandler &handler) override;
    bool isTimed() const override { return m_timed; }

private:
    const bool m_timed;
    std::vector<double> m_numbers; //!< of a line: its time, if it has one, and its values
};

//! Reads lines whose columns a header line named.
class PlannedRowReader : public RowReader
{
public:
    explicit PlannedRowReader(const ColumnPlan &plan);
    Outcome read(const Fields &fields, double arrivalTime, const RowHandler &handler) override;
    int numbersOfPlainLine() const override { return m_isPlain ? m_fieldCount : 0; }
    bool takePlain(const double *numbers, const RowHandler &handler) override;
    bool isTimed() const override { return m_timeColumn >= 0; }
    int leftOutChannels() const override { return m_leftOut; }

private:
    const int m_fieldCount;
    const int m_timeColumn;
    const double m_timeFactor;
    const QVector<int> m_valueColumns;
    const int m_leftOut;
    const bool m_isPlain; //!< whether each field is used
    std::vector<double> m_values;
};

} // namespace Monitor
