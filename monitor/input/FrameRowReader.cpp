// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/FrameRowReader.h"

#include "monitor/core/Text.h"
#include "monitor/input/LineText.h"
#include "monitor/readings/StreamDetector.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace Monitor {

namespace {

using Corvale_Qt::DetectorLayout;

bool readSide(std::string_view field, int *side)
{
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), *side);
    return error == std::errc() && end == field.data() + field.size();
}

} // namespace

bool FrameRowReader::Beginning::read(std::string_view text, double arrivalTime, LoggedText *fault)
{
    std::vector<std::string_view> fields;
    splitFields(text, &fields);
    const bool hasField = fields.size() == 3;
    time = arrivalTime;
    isTimed = hasField && !fields[0].empty();
    const std::size_t first = hasField ? 1 : 0;
    if ((!hasField && fields.size() != 2) || !readSide(fields[first], &rows)
        || !readSide(fields[first + 1], &columns)) {
        *fault = LoggedText::of([] {
            return Text::tr("it should be #frame TIME ROWS COLUMNS");
        });
        return false;
    }
    if (isTimed && (!parseNumber(fields[0], &time) || !std::isfinite(time))) {
        *fault = LoggedText::of([] {
            return Text::tr("the time is not a number");
        });
        return false;
    }
    if (rows < 1 || columns < 1 || rows > DetectorLayout::maxSide
        || columns > DetectorLayout::maxSide) {
        *fault = LoggedText::of([] {
            return Text::tr("a frame has 1 to %1 rows and columns").arg(DetectorLayout::maxSide);
        });
        return false;
    }
    return true;
}

FrameRowReader::FrameRowReader(int rows, int columns)
    : RowReader(countedMatrix(rows, columns))
    , m_rows(rows)
    , m_columns(columns)
    , m_values(std::size_t(rows) * std::size_t(columns))
    , m_row(rows)
{
}

void FrameRowReader::begin(const Beginning &beginning)
{
    m_time = beginning.time;
    m_isTimed = beginning.isTimed;
    m_row = 0;
    m_spoiled = false;
}

void FrameRowReader::spoilRow()
{
    m_spoiled = true;
    ++m_row;
}

RowReader::Outcome FrameRowReader::read(const Fields &fields, double, const RowHandler &handler)
{
    const Outcome outcome = m_spoiled ? Outcome::Taken : readRow(fields);
    m_spoiled = m_spoiled || outcome != Outcome::Taken;
    endRow(handler);
    return outcome;
}

bool FrameRowReader::takePlain(const double *numbers, const RowHandler &handler)
{
    const bool isWanted = isOpen() && !m_spoiled;
    if (isWanted) {
        std::copy_n(numbers, m_columns, presentRow());
        endRow(handler);
    }
    return isWanted;
}

void FrameRowReader::endRow(const RowHandler &handler)
{
    ++m_row;
    if (!isOpen() && !m_spoiled)
        handler(m_time, m_values.data());
}

RowReader::Outcome FrameRowReader::readRow(const Fields &fields)
{
    if (fields.size() != std::size_t(m_columns))
        return Outcome::WrongCount;
    double *row = presentRow();
    for (const std::string_view field : fields)
        if (!parseNumber(field, row++))
            return Outcome::Unreadable;
    return Outcome::Taken;
}

} // namespace Monitor
