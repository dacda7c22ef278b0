// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/Metadata.h"

#include "monitor/core/Text.h"
#include "monitor/input/CleanText.h"
#include "monitor/input/LineText.h"
#include "monitor/input/StatedMoment.h"
#include "monitor/readings/PixelShape.h"
#include "monitor/readings/StreamDetector.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

QStringList cleanList(const QString &value)
{
    QStringList items = value.split(QLatin1Char(','));
    for (QString &item : items)
        item = cleanText(item, maxNameLength);
    return items;
}

} // namespace

//! Keeps what \a make returns as what is wrong with a line.
template<typename Make>
Metadata::Line Metadata::wrong(Make make)
{
    m_fault = LoggedText::of(make);
    return Line::Unreadable;
}

Metadata::Line Metadata::take(std::string_view line)
{
    const QString text = decodedText(line).trimmed();
    m_fault = {};
    const int space = text.indexOf(QLatin1Char(' '));
    const QString word = text.left(space);
    const QString value = space < 0 ? QString() : text.mid(space + 1).trimmed();
    if (word == QLatin1String("#corvale")) {
        *this = Metadata();
        m_version = value == QLatin1String("2") ? versionWithFrames : 1;
        if (m_version > 1 || value == QLatin1String("1"))
            return Line::Stream;
        return wrong([] {
            return Text::tr("#corvale: only the versions 1 and 2 are known");
        });
    }
    if (word == QLatin1String("#channels"))
        return takeChannels(value);
    if (word == QLatin1String("#unit")) {
        m_units = cleanList(value);
        return Line::Changed;
    }
    if (word == QLatin1String("#layout"))
        return takeLayout(value);
    if (word == QLatin1String("#range"))
        return takeRange(value);
    if (word == QLatin1String("#limits"))
        return takeLimits(value);
    if (word == QLatin1String("#t0"))
        return takeStartTime(value);
    if (word == QLatin1String("#t0-uncertainty"))
        return takeStartUncertainty(value);
    if (word == QLatin1String("#event")) {
        m_event = cleanText(value, maxTextLength);
        return Line::Event;
    }
    return takeDetector(text);
}

//! Takes the lines that say more of a detector than its kind.
Metadata::Line Metadata::takeDetector(const QString &text)
{
    using Corvale_Qt::DetectorLines;
    m_fault = {};
    switch (m_detector.take(text)) {
    case DetectorLines::Line::Taken:
        return Line::Changed;
    case DetectorLines::Line::Wrong:
        return wrong([&] {
            m_detector.take(text); // which changes nothing but the words of its fault
            return cleanText(m_detector.fault().message(), maxTextLength);
        });
    case DetectorLines::Line::Other:
        break;
    }
    return Line::Comment;
}

Metadata::Line Metadata::takeChannels(const QString &value)
{
    const QStringList names = cleanList(value);
    const bool named = std::none_of(names.begin(), names.end(), [](const QString &name) {
        return name.isEmpty();
    });
    if (!named || names.size() > StreamHeader::maxChannels)
        return wrong([] {
            return Text::tr("#channels: 1 to %1 names are needed, with commas between them")
                .arg(StreamHeader::maxChannels);
        });
    m_names = names;
    return Line::Changed;
}

Metadata::Line Metadata::takeLayout(const QString &value)
{
    bool known = false;
    const QString word = value.section(QLatin1Char(' '), 0, 0);
    const bool matrix = word == QLatin1String("matrix");
    const StreamKind kind = matrix ? StreamKind::Pixels : kindFromName(word, &known);
    if (!known && !matrix)
        return wrong([] {
            return Text::tr("#layout: it should be channels, strips, pixels, matrix or spots");
        });
    if (word != value && takeDetector(QLatin1String("#layout ") + value) != Line::Changed)
        return Line::Unreadable;
    m_kind = kind;
    m_kindKnown = true;
    return Line::Changed;
}

Metadata::Line Metadata::takeRange(const QString &value)
{
    const QByteArray text = value.toUtf8();
    std::vector<std::string_view> limits;
    splitFields({text.constData(), std::size_t(text.size())}, &limits);
    double low = 0.0, high = 0.0;
    const bool readable =
        limits.size() == 2 && parseNumber(limits[0], &low) && parseNumber(limits[1], &high);
    if (!readable || !(low < high))
        return wrong([] {
            return Text::tr("#range: two numbers are needed, the lower one first");
        });
    m_rangeLow = low;
    m_rangeHigh = high;
    return Line::Changed;
}

/*! Takes "NAME low_alarm,low_warn,high_warn,high_alarm". The name may contain blanks: it ends at the last blank before the
    first number. */
Metadata::Line Metadata::takeLimits(const QString &value)
{
    constexpr int commas = 3;
    const QString head = value.section(QLatin1Char(','), 0, -commas - 1);
    const int space = head.lastIndexOf(QLatin1Char(' '));
    const QString name = cleanText(value.left(space), maxNameLength);
    const QString numbers = value.mid(space + 1);
    QString fault;
    const auto limits = limitsFromText(numbers, &fault);
    if (space < 1 || name.isEmpty())
        return wrong([] {
            return Text::tr("#limits: the name of a channel and four numbers are needed");
        });
    if (!limits)
        return wrong([&] {
            limitsFromText(numbers, &fault);
            return QLatin1String("#limits: ") + fault;
        });
    if (!m_limits.contains(name) && m_limits.size() >= StreamHeader::maxChannels)
        return wrong([] {
            return Text::tr("#limits: there are more names than channels");
        });
    m_limits.insert(name, *limits);
    return Line::Changed;
}

//! Gives the channels their limits, and says which channel there is not.
void Metadata::describeLimits(StreamHeader *header) const
{
    for (auto limits = m_limits.begin(); limits != m_limits.end(); ++limits) {
        if (!header->setLimits(limits.key(), limits.value()) && header->limitsFault.isEmpty())
            header->limitsFault = LoggedText::of([&] {
                return Text::tr("the stream has no channel \"%1\"").arg(limits.key());
            });
    }
}

Metadata::Line Metadata::takeStartTime(const QString &value)
{
    const QDateTime time = statedMoment(value, Qt::LocalTime).moment;
    // ISO 8601 has four digits for the year.
    constexpr int firstYear = 1, lastYear = 9999;
    if (!time.isValid() || time.date().year() < firstYear || time.date().year() > lastYear)
        return wrong([] {
            return Text::tr("#t0: a date and a time are needed, like 2026-03-01T12:00:00Z");
        });
    m_startTime = time;
    m_startUncertainty = 0.0;
    return Line::Changed;
}

//! Takes the uncertainty of the start time before it: seconds, "0.02 s".
Metadata::Line Metadata::takeStartUncertainty(const QString &value)
{
    const QByteArray text = value.toUtf8();
    std::vector<std::string_view> fields;
    splitFields({text.constData(), std::size_t(text.size())}, &fields);
    double seconds = 0.0;
    const bool readable = fields.size() == 2 && fields[1] == "s" && parseNumber(fields[0], &seconds)
        && seconds > 0.0 && std::isfinite(seconds);
    if (!readable)
        return wrong([] {
            return Text::tr("#t0-uncertainty: a time above 0 is needed, like 0.02 s");
        });
    m_startUncertainty = seconds;
    return Line::Changed;
}

//! Sets the units of the channels; a single unit holds for all of them.
void Metadata::applyUnits(QVector<Channel> *channels) const
{
    if (m_units.isEmpty())
        return;
    for (int i = 0; i < channels->size(); ++i)
        (*channels)[i].unit = m_units.size() == 1 ? m_units.first() : m_units.value(i);
}

QVector<Channel> Metadata::channels() const
{
    QVector<Channel> channels;
    for (const QString &name : m_names)
        channels.append({name, {}});
    applyUnits(&channels);
    return channels;
}

//! Adds the detector. Cells that nobody named are called after their plane, or after their row and column.
void Metadata::describeDetector(StreamHeader *header) const
{
    using namespace Corvale_Qt;
    if (m_detector.isEmpty() || header->kind == StreamKind::Spots)
        return;
    const PixelShape pixels = PixelShape::of(*header);
    DetectorDescription stream;
    stream.readings = header->channels.size();
    stream.kind = header->kind == StreamKind::Strips ? DetectorKind::Strips
        : pixels.isEmpty()                           ? DetectorKind::Channels
                                                     : DetectorKind::Matrix;
    stream.x.cells = pixels.columns;
    stream.y.cells = pixels.rows;
    const bool named =
        header->channels != StreamHeader::defaultChannels(header->kind, stream.readings);
    giveDetector(stream, header);
    const DetectorLayout &detector = header->detector;
    const int rows = detector.cells(DetectorLayout::Axis::Y);
    const int columns = detector.cells(DetectorLayout::Axis::X);
    if (named || detector.cells() != stream.readings)
        return;
    if (stream.kind == DetectorKind::Strips)
        header->channels = StreamHeader::stripChannels(columns, rows);
    else if (header->kind == StreamKind::Pixels)
        header->channels = StreamHeader::pixelChannels(rows, columns);
}

//! Gives a header the detector that the lines make of these cells, or why they make none.
void Metadata::giveDetector(const Corvale_Qt::DetectorDescription &stream,
                            StreamHeader *header) const
{
    Corvale_Qt::DetectorFault fault;
    header->setDetector(m_detector.layout(stream, &fault));
    if (!fault.isEmpty())
        header->detectorFault = LoggedText::of([&] {
            m_detector.layout(stream, &fault);
            return cleanText(fault.message(), maxTextLength);
        });
}

StreamHeader Metadata::headerFor(const QVector<Channel> &columns, StreamKind kind) const
{
    StreamHeader header;
    header.kind = m_kindKnown ? m_kind : kind;
    header.channels = columns;
    for (int i = 0; m_names.size() == columns.size() && i < columns.size(); ++i)
        header.channels[i].name = m_names[i];
    takeAcquisition(&header);
    describeDetector(&header);
    applyUnits(&header.channels);
    describeLimits(&header);
    return header;
}

void Metadata::takeAcquisition(StreamHeader *header) const
{
    header->startTime = m_startTime;
    header->startUncertainty = m_startTime.isValid() ? m_startUncertainty : 0.0;
    header->rangeLow = m_rangeLow;
    header->rangeHigh = m_rangeHigh;
}

StreamHeader Metadata::headerForFrames(const Corvale_Qt::DetectorDescription &counted,
                                       const QString &unit) const
{
    using namespace Corvale_Qt;
    StreamHeader header;
    takeAcquisition(&header);
    header.setFrames(DetectorLayout::fromDescription(counted),
                     m_units.size() == 1 ? m_units.first() : unit);
    if (!m_detector.isEmpty())
        giveDetector(counted, &header);
    return header;
}

std::optional<Corvale_Qt::DetectorDescription> Metadata::framesOf(int values) const
{
    using namespace Corvale_Qt;
    if (m_kind != StreamKind::Pixels && m_kind != StreamKind::Strips)
        return std::nullopt;
    const int side = int(std::lround(std::sqrt(double(values))));
    DetectorDescription frames = m_kind == StreamKind::Strips
        ? countedStrips((values + 1) / 2, values / 2)
        : countedMatrix(side, side);
    if (!m_detector.isEmpty()) {
        frames.readings = values;
        const DetectorLayout described = m_detector.layout(frames);
        if (!described.isEmpty() && described.kind() != DetectorKind::Channels
            && described.readings() == values)
            return described.description();
    }
    const DetectorLayout guessed = DetectorLayout::fromDescription(frames);
    return !guessed.isEmpty() && guessed.cells() == values
        ? std::optional<DetectorDescription>(frames)
        : std::nullopt;
}

int Metadata::declaredReadings() const
{
    const bool strips = m_kind == StreamKind::Strips;
    if (m_detector.isEmpty() || (!strips && m_kind != StreamKind::Pixels))
        return 0;
    const auto readings = [&](int cells) {
        Corvale_Qt::DetectorDescription stream =
            strips ? countedStrips(cells, cells) : countedMatrix(cells, cells);
        stream.readings = 0; // not known
        return m_detector.layout(stream).readings();
    };
    // What follows the stream was not declared.
    const int one = readings(1);
    return one == readings(2) ? one : 0;
}

} // namespace Monitor
