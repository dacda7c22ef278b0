// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <functional>
#include <string_view>
#include <vector>

namespace Monitor {

//! Turns the fields of a line into readings: one for each kind of table that a stream may carry.
class RowReader
{
public:
    using Fields = std::vector<std::string_view>;
    //! Takes a time and one value for each channel.
    using RowHandler = std::function<void(double time, const double *values)>;
    enum class Outcome {
        Taken,
        WrongCount,
        Unreadable,
    };

    virtual ~RowReader();

    const QVector<Channel> &channels() const { return m_channels; }
    StreamKind kind() const { return m_kind; }
    //! A line that brings no time of its own gets \a arrivalTime.
    virtual Outcome read(const Fields &fields, double arrivalTime, const RowHandler &handler) = 0;
    //! Hands over what was waiting for further lines.
    virtual void finish(const RowHandler &handler);

protected:
    RowReader(const QVector<Channel> &channels, StreamKind kind);
    RowReader(const RowReader &) = delete;
    RowReader &operator=(const RowReader &) = delete;

private:
    QVector<Channel> m_channels;
    StreamKind m_kind;
};

//! "t,v1,v2,..." or, where the lines bring no time, "v1,v2,...".
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

//! The columns that a header line named.
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
