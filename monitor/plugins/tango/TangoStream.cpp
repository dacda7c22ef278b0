// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/tango/TangoStream.h"

#include "monitor/plugins/tango/TangoText.h"

#include <algorithm>
#include <cmath>
#include <cstring>

using CorvaleMonitor::SourceStream;
using Form = TangoAttribute::Form;

namespace {

constexpr double missing = std::numeric_limits<double>::quiet_NaN();

double now()
{
    constexpr double milli = 1e-3;
    return milli * double(QDateTime::currentMSecsSinceEpoch());
}

//! Returns why attributes cannot be shown together; empty if they can.
QString mixtureText(const std::vector<TangoAttribute> &attributes)
{
    for (const TangoAttribute &attribute : attributes)
        if (!attribute.isNumber)
            return TangoText::tr("%1 is of the type %2, not a number")
                .arg(attribute.channel.name, attribute.type);
    const auto count = [&](Form form) {
        return std::size_t(std::count_if(attributes.begin(),
                                         attributes.end(),
                                         [form](const TangoAttribute &attribute) {
                                             return attribute.form == form;
                                         }));
    };
    const std::size_t all = attributes.size();
    const bool isPossible = count(Form::Scalar) == all || (count(Form::Spectrum) == all && all <= 2)
        || (count(Form::Image) == all && all == 1);
    return isPossible
        ? QString()
        : TangoText::tr("a window shows scalars, or one spectrum or two, or one image; read the "
                        "others in a window of their own");
}

} // namespace

TangoStream::TangoStream(const std::shared_ptr<CorvaleMonitor::SourceReceiver> &receiver)
    : m_receiver(receiver)
{
}

QString TangoStream::configure(const std::vector<TangoAttribute> &attributes, bool isOnChange)
{
    QString error = mixtureText(attributes);
    if (!error.isEmpty())
        return error;
    const bool isSame = std::equal(attributes.begin(),
                                   attributes.end(),
                                   m_attributes.begin(),
                                   m_attributes.end(),
                                   [](const TangoAttribute &a, const TangoAttribute &b) {
                                       return a.isLike(b);
                                   });
    m_attributes = attributes;
    m_mustBegin = m_mustBegin || isOnChange != m_isOnChange;
    m_isOnChange = isOnChange;
    if (isSame)
        return {};
    m_mustBegin = true;
    m_times.assign(attributes.size(), missing);
    m_sizes.assign(attributes.size(), isFrames() ? Size() : Size{1, 1});
    m_given = m_sizes;
    return {};
}

void TangoStream::add(const std::vector<TangoReading> &readings)
{
    if (isFrames() && !takeSizes(readings))
        return;
    const double time = timeOf(readings);
    if (m_mustBegin)
        begin(time);
    double *place = m_row.data();
    for (std::size_t i = 0; i < readings.size(); ++i) {
        fill(m_sizes[i], readings[i], place);
        place += m_sizes[i].count();
    }
    deliver(time);
}

//! Takes over the sizes of frames if they have changed. Returns whether all are known.
bool TangoStream::takeSizes(const std::vector<TangoReading> &readings)
{
    if (wantsOtherSizes(readings)) {
        const bool isGrowth = m_shrunk < shrunkReadings;
        for (std::size_t i = 0; i < readings.size(); ++i)
            if (readings[i].hasValues())
                resize(i, readings[i], isGrowth);
        m_mustBegin = true;
        m_shrunk = 0;
    }
    return std::all_of(m_sizes.begin(), m_sizes.end(), [](const Size &size) {
        return size.count() > 0;
    });
}

//! Gives an attribute the size of a reading, or at least that size if it only grows.
void TangoStream::resize(std::size_t index, const TangoReading &reading, bool isGrowth)
{
    const Size former = m_sizes[index];
    Size &size = m_sizes[index];
    size = {reading.columns, reading.rows};
    if (isGrowth)
        size = {std::max(former.columns, size.columns), std::max(former.rows, size.rows)};
    const bool isSame = size.columns == former.columns && size.rows == former.rows;
    if (m_hasBegun && !isSame)
        m_receiver->note(QStringLiteral("%1 has %2 x %3 values now")
                             .arg(m_attributes[index].channel.name)
                             .arg(size.columns)
                             .arg(size.rows));
}

//! Returns whether a frame has no place for some of the values, or has had too much for some time.
bool TangoStream::wantsOtherSizes(const std::vector<TangoReading> &readings)
{
    bool hasGrown = false;
    bool hasShrunk = false;
    bool isKept = true;
    bool isNew = false; // the device may be asked more often than it measures
    for (std::size_t i = 0; i < readings.size(); ++i) {
        const TangoReading &reading = readings[i];
        if (!reading.hasValues())
            continue;
        const Size size{reading.columns, reading.rows};
        hasGrown = hasGrown || size.columns > m_sizes[i].columns || size.rows > m_sizes[i].rows;
        hasShrunk = hasShrunk || size.columns < m_sizes[i].columns || size.rows < m_sizes[i].rows;
        isKept = isKept && size == m_given[i];
        isNew = isNew || !(reading.time == m_times[i]);
        m_given[i] = size;
    }
    if (hasGrown || !hasShrunk)
        m_shrunk = 0;
    else if (!isKept)
        m_shrunk = 1;
    else if (isNew)
        ++m_shrunk;
    return hasGrown || m_shrunk >= shrunkReadings;
}

//! Begins a part of the stream. Its values are as many as the sizes say.
void TangoStream::begin(double start)
{
    SourceStream stream;
    m_start = std::floor(start);
    stream.onChange = m_isOnChange;
    stream.start = QDateTime::fromSecsSinceEpoch(qint64(m_start), Qt::UTC);
    if (!isFrames()) {
        for (const TangoAttribute &attribute : m_attributes) {
            stream.channels.append(attribute.channel);
            stream.channels.last().name = channelName(attribute);
        }
    } else {
        const bool isImage = m_attributes.front().form == Form::Image;
        stream.layout = isImage ? SourceStream::Layout::Matrix : SourceStream::Layout::Strips;
        stream.unit = m_attributes.front().channel.unit;
        stream.columns = m_sizes.front().columns;
        stream.rows = isImage    ? m_sizes.front().rows
            : m_sizes.size() > 1 ? m_sizes.back().columns
                                 : 0;
    }
    m_receiver->begin(stream);
    m_row.assign(std::size_t(stream.valuesPerReading()), missing);
    m_lastRow = m_row;
    m_hasBegun = true;
    m_hasRows = false;
    m_mustBegin = false;
}

//! Returns the label of an attribute, or its name if there is no label or another attribute has the same.
QString TangoStream::channelName(const TangoAttribute &attribute) const
{
    const auto alike =
        std::count_if(m_attributes.begin(), m_attributes.end(), [&](const TangoAttribute &other) {
            return other.label == attribute.label || other.channel.name == attribute.label;
        });
    const bool isOwnName = attribute.label == attribute.channel.name;
    return attribute.label.isEmpty() || (alike > 1 && !isOwnName) ? attribute.channel.name
                                                                  : attribute.label;
}

/*! Returns the newest time of the readings, in seconds since 1970. It does not go back unless the clock of the device was set back; where
    the device tells none, it is that of the previous row. */
double TangoStream::timeOf(const std::vector<TangoReading> &readings)
{
    double newest = missing;
    bool isSetBack = false;
    for (std::size_t i = 0; i < readings.size(); ++i) {
        const double time = readings[i].time;
        if (std::isnan(time))
            continue;
        isSetBack = isSetBack || time < m_times[i];
        m_times[i] = time;
        newest = std::isnan(newest) ? time : std::max(newest, time);
    }
    if (std::isnan(newest))
        return m_hasBegun ? m_lastTime : now();
    return m_hasBegun && !isSetBack ? std::max(newest, m_lastTime) : newest;
}

//! Puts the values of an attribute into its \a place in the row, those of an image from its lowest row upwards.
void TangoStream::fill(const Size &size, const TangoReading &reading, double *place)
{
    std::fill_n(place, size.count(), missing);
    const bool hasPlace = reading.columns <= size.columns && reading.rows <= size.rows;
    const std::size_t count = std::size_t(reading.columns) * std::size_t(reading.rows);
    if (!reading.hasValues() || !hasPlace || reading.values.size() != count)
        return;
    for (int row = 0; row < reading.rows; ++row)
        std::copy_n(reading.values.begin() + std::ptrdiff_t(row) * reading.columns,
                    reading.columns,
                    place + std::ptrdiff_t(size.rows - 1 - row) * size.columns);
}

void TangoStream::interrupt()
{
    if (!m_hasBegun)
        return;
    std::fill(m_row.begin(), m_row.end(), missing);
    deliver(m_lastTime);
}

void TangoStream::deliver(double time)
{
    const bool isSame = m_hasRows && time == m_lastTime
        && std::memcmp(m_row.data(), m_lastRow.data(), m_row.size() * sizeof(double)) == 0;
    if (isSame)
        return;
    const double inStream = time - m_start;
    m_receiver->add(1, &inStream, m_row.data());
    m_lastRow = m_row;
    m_lastTime = time;
    m_hasRows = true;
}
