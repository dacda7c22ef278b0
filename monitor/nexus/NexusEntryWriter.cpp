// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/NexusEntryWriter.h"

#include "monitor/nexus/NexusDetector.h"
#include "monitor/nexus/NexusNames.h"
#include "monitor/readings/StreamDetector.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Monitor {

namespace {

//! How many numbers of a data set one chunk has, and how many of all data sets wait in memory.
constexpr std::size_t chunkNumbers = 32768, mostNumbersWaiting = 1048576;
constexpr std::size_t chunkRows = 4096;
constexpr std::size_t eventsInChunk = 256;

hsize_t rowsInChunk(int width)
{
    return std::clamp<std::size_t>(chunkNumbers / std::size_t(width), 1, chunkRows);
}

QString isoText(const QDateTime &moment)
{
    return moment.toUTC().toString(Qt::ISODateWithMs);
}

} // namespace

NexusEntryWriter::NexusEntryWriter(Hdf5Output &output,
                                   hid_t file,
                                   const QString &name,
                                   const RecordedHeader &recorded,
                                   const StreamHeader &header,
                                   const QString &source)
    : m_output(output)
    , m_header(header)
    , m_groups(nexusGroups(header))
    , m_values(std::size_t(header.valuesPerReading()))
    , m_entry(output.group(file, name, "NXentry"))
    , m_bufferRows(std::clamp<std::size_t>(mostNumbersWaiting / std::max<std::size_t>(m_values, 1),
                                           1,
                                           chunkRows))
{
    describe(recorded, source);
    for (std::size_t i = 0; i < m_groups.size(); ++i)
        makeGroup(m_groups[i], i == 0);
    std::stable_sort(m_fields.begin(), m_fields.end(), [](const Field &one, const Field &other) {
        return one.first < other.first;
    });
}

//! Writes what is known before the first reading.
void NexusEntryWriter::describe(const RecordedHeader &recorded, const QString &source)
{
    using namespace NexusNames;
    const hid_t entry = m_entry.id();
    m_output.text(entry, "default", m_groups.empty() ? QString() : m_groups.front().name);
    m_output.textData(entry,
                      QStringLiteral("title"),
                      source.isEmpty() ? QStringLiteral("Readings of a beam instrument")
                                       : QStringLiteral("Readings of %1").arg(source));
    const Hdf5Object program =
        m_output.textData(entry, QStringLiteral("program_name"), QStringLiteral("corvale-monitor"));
    m_output.text(program.id(), "version", QStringLiteral(CORVALE_MONITOR_VERSION));
    if (m_header.startTime.isValid())
        m_output.textData(entry, QStringLiteral("start_time"), isoText(m_header.startTime));
    const Hdf5Object instrument =
        m_output.group(entry, QStringLiteral("instrument"), "NXinstrument");
    m_output.textData(instrument.id(), QStringLiteral("name"), source);
    writeNexusDetector(&m_output, instrument.id(), detectorOf(m_header), m_header.readingUnit());

    const Hdf5Object group =
        m_output.group(entry, QLatin1String(NexusNames::recording), "NXcollection");
    m_output.textsData(
        group.id(),
        QLatin1String(recordingLines),
        QString::fromUtf8(recorded.lines).split(QLatin1Char('\n'), Qt::SkipEmptyParts));
    m_output.number(group.id(), recordingValues, recorded.values);
    m_output.number(group.id(), recordingRows, recorded.frameRows);
    if (!recorded.hasFrameTimes)
        m_output.number(group.id(), recordingTimes, 0.0);
}

void NexusEntryWriter::makeGroup(const NexusGroup &group, bool isFirst)
{
    const Hdf5Object made = m_output.group(m_entry.id(), group.name, "NXdata");
    QStringList names, axes{QLatin1String(NexusNames::time)};
    for (const NexusField &field : group.fields) {
        const std::vector<hsize_t> sizes(field.sizes.begin(), field.sizes.end());
        Hdf5Object data = m_output.growing(made.id(),
                                           field.name,
                                           H5T_IEEE_F64LE,
                                           sizes,
                                           rowsInChunk(field.width()));
        const QString unit =
            field.unit.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(field.unit);
        m_output.text(data.id(), "long_name", field.givenName + unit);
        m_output.text(data.id(), NexusNames::givenName, field.givenName);
        if (!field.unit.isEmpty())
            m_output.text(data.id(), NexusNames::units, field.unit);
        if (!field.channels.isEmpty())
            m_output.texts(data.id(), "channel_names", field.channels);
        m_fields.push_back({std::move(data), field.first, field.width()});
        names.append(field.name);
    }
    makeTime(made.id(), isFirst);
    for (const NexusAxis &axis : group.axes) {
        m_output.numbers(made.id(),
                         axis.name,
                         {axis.places.begin(), axis.places.end()},
                         {hsize_t(axis.places.size())},
                         axis.unit);
        axes.append(axis.name);
    }
    m_output.text(made.id(), "signal", names.value(0));
    if (names.size() > 1)
        m_output.texts(made.id(), "auxiliary_signals", names.mid(1));
    m_output.texts(made.id(), "axes", axes);
    for (int i = 0; i < axes.size(); ++i)
        m_output.indices(made.id(), (axes[i] + QLatin1String("_indices")).toUtf8(), {i});
}

//! Gives a group its time: all groups of the entry share one.
void NexusEntryWriter::makeTime(hid_t group, bool isFirst)
{
    if (isFirst)
        m_time = timeData(group);
    else
        m_output.note(H5Olink(m_time.id(), group, NexusNames::time, H5P_DEFAULT, H5P_DEFAULT));
}

//! Makes a data set of times, which count from the start of the stream.
Hdf5Object NexusEntryWriter::timeData(hid_t group)
{
    Hdf5Object time = m_output.growing(group,
                                       QLatin1String(NexusNames::time),
                                       H5T_IEEE_F64LE,
                                       {},
                                       hsize_t(chunkRows));
    const bool isTimed = m_header.hasTimes;
    m_output.text(time.id(), NexusNames::units, isTimed ? QStringLiteral("s") : QString());
    m_output.text(time.id(),
                  "long_name",
                  isTimed ? QStringLiteral("time (s)") : QStringLiteral("number of the reading"));
    if (m_header.startTime.isValid())
        m_output.text(time.id(), NexusNames::start, isoText(m_header.startTime));
    if (m_header.startUncertainty > 0.0)
        m_output.number(time.id(), "start_uncertainty", m_header.startUncertainty);
    return time;
}

void NexusEntryWriter::makeEvents()
{
    const Hdf5Object group =
        m_output.group(m_entry.id(), QLatin1String(NexusNames::events), "NXlog");
    m_eventTime = timeData(group.id());
    m_eventRow = m_output.growing(group.id(),
                                  QLatin1String(NexusNames::eventRow),
                                  H5T_STD_I64LE,
                                  {},
                                  eventsInChunk);
    m_eventText = m_output.growing(group.id(),
                                   QLatin1String(NexusNames::eventText),
                                   textType().id(),
                                   {},
                                   eventsInChunk);
    m_output.textData(group.id(),
                      QStringLiteral("description"),
                      QStringLiteral("what happened, and the time of the reading before it"));
}

void NexusEntryWriter::addReading(double time, const double *values)
{
    m_timesWaiting.push_back(time);
    m_valuesWaiting.insert(m_valuesWaiting.end(), values, values + m_values);
    m_lastTime = time;
    if (m_timesWaiting.size() >= m_bufferRows)
        flush();
}

void NexusEntryWriter::flush()
{
    const std::size_t rows = m_timesWaiting.size();
    if (rows == 0 || !m_output.isGood())
        return;
    m_output.append(m_time.id(), H5T_NATIVE_DOUBLE, m_rows, rows, m_timesWaiting.data());
    for (const Field &field : m_fields) {
        const auto first = std::size_t(field.first), width = std::size_t(field.width);
        m_part.clear();
        for (std::size_t row = 0; row < rows; ++row) {
            const auto begin = m_valuesWaiting.begin() + std::ptrdiff_t(row * m_values + first);
            m_part.insert(m_part.end(), begin, begin + std::ptrdiff_t(width));
        }
        m_output.append(field.data.id(), H5T_NATIVE_DOUBLE, m_rows, rows, m_part.data());
    }
    m_rows += rows;
    m_timesWaiting.clear();
    m_valuesWaiting.clear();
}

void NexusEntryWriter::addEvent(const QString &text)
{
    if (!m_eventText.isOpen())
        makeEvents();
    const hsize_t rows = m_rows + m_timesWaiting.size();
    m_eventTimesWaiting.push_back(rows > 0 ? m_lastTime : std::numeric_limits<double>::quiet_NaN());
    m_eventRowsWaiting.push_back(qint64(rows));
    m_eventTextsWaiting.push_back(text.toUtf8());
    if (m_eventTextsWaiting.size() >= eventsInChunk)
        flushEvents();
}

void NexusEntryWriter::flushEvents()
{
    const hsize_t count = m_eventTextsWaiting.size();
    if (count == 0)
        return;
    std::vector<const char *> texts;
    for (const QByteArray &text : m_eventTextsWaiting)
        texts.push_back(text.constData());
    m_output.append(m_eventTime.id(),
                    H5T_NATIVE_DOUBLE,
                    m_events,
                    count,
                    m_eventTimesWaiting.data());
    m_output.append(m_eventRow.id(), H5T_NATIVE_INT64, m_events, count, m_eventRowsWaiting.data());
    m_output.append(m_eventText.id(), textType().id(), m_events, count, texts.data());
    m_events += count;
    m_eventTimesWaiting.clear();
    m_eventRowsWaiting.clear();
    m_eventTextsWaiting.clear();
}

void NexusEntryWriter::finish()
{
    flush();
    flushEvents();
    constexpr double milli = 1e3, furthest = 1e11; // s
    if (m_header.startTime.isValid() && m_rows > 0 && std::abs(m_lastTime) < furthest)
        m_output.textData(m_entry.id(),
                          QStringLiteral("end_time"),
                          isoText(m_header.startTime.addMSecs(qint64(m_lastTime * milli))));
    // Closing writes what HDF5 still holds.
    for (Field &field : m_fields)
        m_output.note(field.data.close() ? 0 : -1);
    for (Hdf5Object *object : {&m_time, &m_eventTime, &m_eventRow, &m_eventText, &m_entry})
        m_output.note(object->close() ? 0 : -1);
}

} // namespace Monitor
