// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/NexusEntry.h"

#include "monitor/core/Text.h"
#include "monitor/nexus/NexusFields.h"
#include "monitor/nexus/NexusNames.h"
#include "monitor/nexus/RecordedHeader.h"

#include <algorithm>

namespace Monitor {

namespace {

constexpr hsize_t mostLines = 4096;
constexpr hsize_t longestLines = hsize_t(16) * 1024 * 1024; // bytes
constexpr hsize_t longestEvent = 16384; // bytes

QString misfit(const QString &name, const QString &why)
{
    return Text::tr("its data %1 cannot be read: %2").arg(name, why);
}

//! Opens a data set of a recording. Its rows must have these sizes.
QString
openField(hid_t group, const NexusField &field, qint64 rows, std::vector<NexusEntry::Field> *fields)
{
    Hdf5Object data = openObject(group, field.name, H5I_DATASET);
    if (!data.isOpen())
        return misfit(field.name, Text::tr("they are missing"));
    const QString fault = faultOfNumbers(data.id());
    if (!fault.isEmpty())
        return misfit(field.name, fault);
    Hdf5Sizes wanted{hsize_t(rows)};
    wanted.insert(wanted.end(), field.sizes.begin(), field.sizes.end());
    if (sizesOf(data.id()) != wanted)
        return misfit(field.name, Text::tr("they do not have the form that the file describes"));
    fields->push_back({std::move(data), field.first, field.width(), {}});
    return {};
}

QString openTime(hid_t group, NexusEntry *entry)
{
    const QString name = QLatin1String(NexusNames::time);
    entry->time = openObject(group, name, H5I_DATASET);
    const QString fault =
        entry->time.isOpen() ? faultOfNumbers(entry->time.id()) : Text::tr("they are missing");
    if (!fault.isEmpty())
        return misfit(name, fault);
    const Hdf5Sizes sizes = sizesOf(entry->time.id()).value_or(Hdf5Sizes());
    if (sizes.size() != 1)
        return misfit(name, Text::tr("they do not have the form that the file describes"));
    entry->rows = qint64(sizes.front());
    return {};
}

QString openGroup(hid_t group, const NexusGroup &plan, NexusEntry *entry)
{
    const Hdf5Object data = openObject(group, plan.name, H5I_GROUP);
    if (!data.isOpen())
        return misfit(plan.name, Text::tr("they are missing"));
    QString fault = entry->time.isOpen() ? QString() : openTime(data.id(), entry);
    for (const NexusField &field : plan.fields)
        if (fault.isEmpty())
            fault = openField(data.id(), field, entry->rows, &entry->fields);
    return fault;
}

QString openEvents(hid_t group, NexusEntry *entry)
{
    const QString name = QLatin1String(NexusNames::events);
    const Hdf5Object log = openObject(group, name, H5I_GROUP);
    if (!log.isOpen())
        return {}; // there were none
    entry->eventRows = openObject(log.id(), QLatin1String(NexusNames::eventRow), H5I_DATASET);
    entry->eventTexts = openObject(log.id(), QLatin1String(NexusNames::eventText), H5I_DATASET);
    const QString fault = entry->eventRows.isOpen() ? faultOfNumbers(entry->eventRows.id())
                                                    : Text::tr("they are missing");
    if (!fault.isEmpty())
        return misfit(name, fault);
    const Hdf5Sizes sizes = sizesOf(entry->eventRows.id()).value_or(Hdf5Sizes());
    if (sizes.size() != 1 || sizesOf(entry->eventTexts.id()) != sizes
        || !faultOfStorage(entry->eventTexts.id()).isEmpty())
        return misfit(name, Text::tr("they do not have the form that the file describes"));
    entry->events = qint64(sizes.front());
    return {};
}

//! Returns what a recording says of its stream; without lines if that cannot be read.
RecordedHeader recordedHeader(hid_t group)
{
    const Hdf5Object lines =
        openObject(group, QLatin1String(NexusNames::recordingLines), H5I_DATASET);
    const hsize_t count = sizesOf(lines.id()).value_or(Hdf5Sizes{0}).front();
    const bool isReadable = count > 0 && count <= mostLines && faultOfStorage(lines.id()).isEmpty();
    const std::optional<QStringList> texts =
        isReadable ? dataTexts(lines.id(), 0, count, longestLines) : std::nullopt;
    const auto whole = [group](const char *name) {
        const double number = attributeNumber(group, name, -1.0);
        constexpr double most = 1e6;
        return number >= 0.0 && number <= most ? int(number) : -1;
    };
    return {texts ? texts->join(QLatin1Char('\n')).toUtf8() : QByteArray(),
            whole(NexusNames::recordingValues),
            whole(NexusNames::recordingRows),
            attributeNumber(group, NexusNames::recordingTimes, 1.0) != 0.0};
}

} // namespace

std::unique_ptr<NexusEntry> NexusEntry::ofMonitor(hid_t group, QString *error)
{
    const Hdf5Object recording = openObject(group, QLatin1String(NexusNames::recording), H5I_GROUP);
    if (!recording.isOpen() || !hasAttribute(recording.id(), NexusNames::recordingValues))
        return nullptr;
    auto entry = std::make_unique<NexusEntry>();
    entry->header = recordedHeader(recording.id()).parsed();
    if (entry->header.valuesPerReading() == 0)
        *error = Text::tr("the description of its readings is damaged");
    for (const NexusGroup &plan : nexusGroups(entry->header))
        if (error->isEmpty())
            *error = openGroup(group, plan, entry.get());
    if (error->isEmpty())
        *error = openEvents(group, entry.get());
    return error->isEmpty() ? std::move(entry) : nullptr;
}

bool NexusEntry::read(qint64 first, qint64 count, double *times, double *values) const
{
    if (!readRows(time.id(), H5T_NATIVE_DOUBLE, hsize_t(first), hsize_t(count), times))
        return false;
    timeScale.apply(times, count);
    const int all = header.valuesPerReading();
    std::vector<double> part;
    for (const Field &field : fields) {
        const bool isAll = field.width == all;
        part.resize(isAll ? 0 : std::size_t(count) * std::size_t(field.width));
        double *to = isAll ? values : part.data();
        if (!readRows(field.data.id(), H5T_NATIVE_DOUBLE, hsize_t(first), hsize_t(count), to))
            return false;
        field.scale.apply(to, count * field.width);
        for (qint64 row = 0; row < count && !isAll; ++row)
            std::copy_n(part.data() + row * field.width,
                        field.width,
                        values + row * all + field.first);
    }
    return true;
}

std::optional<NexusEntry::Event> NexusEntry::event(qint64 index) const
{
    Event event;
    const std::optional<QStringList> text =
        dataTexts(eventTexts.id(), hsize_t(index), 1, longestEvent);
    if (!text || !readRows(eventRows.id(), H5T_NATIVE_INT64, hsize_t(index), 1, &event.row))
        return std::nullopt;
    event.text = text->value(0);
    return event;
}

qint64 NexusEntry::firstEventFrom(qint64 row) const
{
    qint64 low = 0, high = events;
    while (low < high) {
        const qint64 middle = low + (high - low) / 2;
        qint64 before = 0;
        readRows(eventRows.id(), H5T_NATIVE_INT64, hsize_t(middle), 1, &before);
        if (before < row)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

} // namespace Monitor
