// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <functional>
#include <string_view>
#include <vector>

namespace Monitor {

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

    const QVector<Channel> &channels() const { return m_channels; }
    StreamKind kind() const { return m_kind; }
    //! Calls \a handler for each reading that this line completes. A line without a time gets \a arrivalTime.
    virtual Outcome read(const Fields &fields, double arrivalTime, const RowHandler &handler) = 0;
    //! Calls \a handler for the readings that were waiting for further lines.
    virtual void finish(const RowHandler &handler);

protected:
    RowReader(const QVector<Channel> &channels, StreamKind kind);

private:
    QVector<Channel> m_channels;
    StreamKind m_kind;
};

//! Reads lines of the form "t,v1,v2,...", or "v1,v2,..." if lines have no time.
class TimedRowReader : public RowReader
{
public:
    TimedRowReader(const QVector<Channel> &channels, StreamKind kind, bool timed);
    Outcome read(const Fields &fields, double arrivalTime, const RowHandler &handler) override;

private:
    const bool m_timed;
    std::vector<double> m_values;
};

struct ColumnPlan;

//! Reads lines whose columns a header line named.
class PlannedRowReader : public RowReader
{
public:
    explicit PlannedRowReader(const ColumnPlan &plan);
    Outcome read(const Fields &fields, double arrivalTime, const RowHandler &handler) override;

private:
    const int m_fieldCount;
    const int m_timeColumn;
    const double m_timeFactor;
    const QVector<int> m_valueColumns;
    std::vector<double> m_values;
};

} // namespace Monitor
