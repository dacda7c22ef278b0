// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/RowReader.h"

#include "monitor/input/ColumnPlan.h"
#include "monitor/input/FieldNumbers.h"
#include "monitor/input/LineText.h"

#include <cmath>

namespace Monitor {

namespace {

/*! Reads a time in units of \a secondsEach; an empty field means the time of arrival. Returns false if the time is not
    a finite number of seconds. */
bool readTime(std::string_view field, double secondsEach, double arrivalTime, double *seconds)
{
    if (field.empty()) {
        *seconds = arrivalTime;
        return true;
    }
    double time = 0.0;
    if (!parseNumber(field, &time) || !std::isfinite(time * secondsEach))
        return false;
    *seconds = time * secondsEach;
    return true;
}

} // namespace

RowReader::RowReader(const QVector<Channel> &channels, StreamKind kind)
    : m_channels(channels)
    , m_kind(kind)
{
}

RowReader::RowReader(const Corvale_Qt::DetectorDescription &frames, const QString &unit)
    : m_kind(frames.kind == Corvale_Qt::DetectorKind::Matrix ? StreamKind::Pixels
                                                             : StreamKind::Strips)
    , m_frames(frames)
    , m_frameUnit(unit)
{
}

RowReader::RowReader(const ColumnPlan &plan)
    : m_channels(plan.channels)
    , m_kind(plan.kind)
    , m_frames(plan.frames)
    , m_frameUnit(plan.frameUnit)
{
}

RowReader::~RowReader() = default;

bool RowReader::takePlain(const double *, const RowHandler &)
{
    return false;
}

bool RowReader::readPlain(std::string_view line, const RowHandler &handler)
{
    const auto count = std::size_t(numbersOfPlainLine());
    if (count == 0)
        return false;
    m_plain.resize(count);
    return readLineNumbers(line, count, &m_ends, m_plain.data())
        && takePlain(m_plain.data(), handler);
}

void RowReader::finish(const RowHandler &) { }

TimedRowReader::TimedRowReader(const Corvale_Qt::DetectorDescription &frames, bool timed)
    : RowReader(frames)
    , m_timed(timed)
    , m_numbers(std::size_t(frames.readings) + (timed ? 1 : 0))
{
}

TimedRowReader::TimedRowReader(const QVector<Channel> &channels, StreamKind kind, bool timed)
    : RowReader(channels, kind)
    , m_timed(timed)
    , m_numbers(std::size_t(channels.size()) + (timed ? 1 : 0))
{
}

RowReader::Outcome
TimedRowReader::read(const Fields &fields, double arrivalTime, const RowHandler &handler)
{
    const std::size_t first = m_timed ? 1 : 0;
    if (fields.size() != m_numbers.size())
        return Outcome::WrongCount;
    double time = arrivalTime;
    if (m_timed && !readTime(fields[0], 1.0, arrivalTime, &time))
        return Outcome::Unreadable;
    for (std::size_t i = first; i < m_numbers.size(); ++i)
        if (!parseNumber(fields[i], &m_numbers[i]))
            return Outcome::Unreadable;
    handler(time, m_numbers.data() + first);
    return Outcome::Taken;
}

bool TimedRowReader::takePlain(const double *numbers, const RowHandler &handler)
{
    const bool hasTime = std::isfinite(numbers[0]);
    if (hasTime)
        handler(numbers[0], numbers + 1);
    return hasTime;
}

PlannedRowReader::PlannedRowReader(const ColumnPlan &plan)
    : RowReader(plan)
    , m_fieldCount(plan.fieldCount)
    , m_timeColumn(plan.timeColumn)
    , m_timeFactor(plan.timeFactor)
    , m_valueColumns(plan.valueColumns)
    , m_leftOut(plan.leftOut)
    , m_isPlain(m_timeColumn >= 0 && m_valueColumns.size() + 1 == m_fieldCount)
    , m_values(std::size_t(plan.valueColumns.size()))
{
}

RowReader::Outcome
PlannedRowReader::read(const Fields &fields, double arrivalTime, const RowHandler &handler)
{
    const int count = int(fields.size());
    const bool emptyEnd = count == m_fieldCount + 1 && fields.back().empty();
    if (count != m_fieldCount && !emptyEnd)
        return Outcome::WrongCount;
    double time = arrivalTime;
    if (m_timeColumn >= 0
        && !readTime(fields[std::size_t(m_timeColumn)], m_timeFactor, arrivalTime, &time))
        return Outcome::Unreadable;
    for (int i = 0; i < m_valueColumns.size(); ++i)
        if (!parseNumber(fields[std::size_t(m_valueColumns[i])], &m_values[std::size_t(i)]))
            return Outcome::Unreadable;
    handler(time, m_values.data());
    return Outcome::Taken;
}

bool PlannedRowReader::takePlain(const double *numbers, const RowHandler &handler)
{
    const double time = numbers[m_timeColumn] * m_timeFactor;
    if (!std::isfinite(time))
        return false;
    for (int i = 0; i < m_valueColumns.size(); ++i)
        m_values[std::size_t(i)] = numbers[m_valueColumns[i]];
    handler(time, m_values.data());
    return true;
}

} // namespace Monitor
