// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/NexusWriter.h"

#include "monitor/core/Text.h"
#include "monitor/nexus/NexusEntryWriter.h"
#include "monitor/nexus/RecordedHeader.h"

#include <QDateTime>
#include <QFile>

namespace Monitor {

namespace {

//! More events before the first reading are not kept.
constexpr int mostEarlyEvents = 10000;

QString entryName(int number)
{
    constexpr int digits = 5, decimal = 10; // so that the order of the names is that of the entries
    const QString first = QStringLiteral("entry");
    return number == 1
        ? first
        : first + QStringLiteral("_%1").arg(number, digits, decimal, QLatin1Char('0'));
}

} // namespace

class NexusWriter::Private
{
public:
    void startStream(const StreamHeader &header);
    void describeFile();
    void closeEntry();

    QString source;
    QString error;
    Hdf5Output output;
    Hdf5Object file;
    std::unique_ptr<NexusEntryWriter> entry;
    int values = 0; //!< in a reading
    int entries = 0;
    QStringList earlyEvents;
};

void NexusWriter::Private::describeFile()
{
    output.text(file.id(), "NX_class", QStringLiteral("NXroot"));
    output.text(file.id(), "default", entryName(1));
    output.text(file.id(), "creator", QStringLiteral("corvale-monitor " CORVALE_MONITOR_VERSION));
    output.text(file.id(),
                "file_time",
                QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs));
}

void NexusWriter::Private::startStream(const StreamHeader &header)
{
    closeEntry();
    const RecordedHeader recorded = RecordedHeader::of(header, source);
    // The form of the data is that of what a reader will know.
    const StreamHeader known = recorded.parsed();
    values = header.valuesPerReading();
    if (known.valuesPerReading() != values)
        error = Text::tr("the description of the stream is too long");
    else if (entries == maxEntries)
        error = Text::tr("it has more than %1 acquisitions; convert its parts one by one")
                    .arg(maxEntries);
    if (!error.isEmpty())
        return;
    entry = std::make_unique<NexusEntryWriter>(output,
                                               file.id(),
                                               entryName(++entries),
                                               recorded,
                                               known,
                                               source);
    for (const QString &event : std::exchange(earlyEvents, {}))
        entry->addEvent(event);
}

void NexusWriter::Private::closeEntry()
{
    if (entry)
        entry->finish();
    entry.reset();
}

NexusWriter::NexusWriter()
    : d(std::make_unique<Private>())
{
}

NexusWriter::~NexusWriter()
{
    const Hdf5Turn turn;
    d.reset();
}

bool NexusWriter::open(const QString &path, const QString &source)
{
    const Hdf5Turn turn;
    d->source = source;
    const Hdf5Object access(H5Pcreate(H5P_FILE_ACCESS));
    // The recorder's own locks keep others away.
    H5Pset_file_locking(access.id(), false, true);
    d->file = Hdf5Object(
        H5Fcreate(QFile::encodeName(path).constData(), H5F_ACC_TRUNC, H5P_DEFAULT, access.id()));
    d->output.note(d->file.id());
    d->describeFile();
    return !hasFailed();
}

void NexusWriter::startStream(const StreamHeader &header)
{
    const Hdf5Turn turn;
    if (!hasFailed())
        d->startStream(header);
}

void NexusWriter::addReading(double time, const double *values)
{
    const Hdf5Turn turn;
    if (d->entry && !hasFailed())
        d->entry->addReading(time, values);
}

void NexusWriter::addReadings(const ReadingBlock &readings)
{
    for (int row = 0; row < readings.size() && readings.channels() == d->values; ++row)
        addReading(readings.time(row), readings.values(row));
}

void NexusWriter::addEvent(const QString &text)
{
    const Hdf5Turn turn;
    if (d->entry && !hasFailed())
        d->entry->addEvent(text);
    else if (d->earlyEvents.size() < mostEarlyEvents)
        d->earlyEvents.append(text);
}

bool NexusWriter::finish()
{
    const Hdf5Turn turn;
    d->closeEntry();
    if (d->file.isOpen()) {
        d->output.note(H5Fflush(d->file.id(), H5F_SCOPE_GLOBAL));
        d->output.note(d->file.close() ? 0 : -1);
    }
    return !hasFailed();
}

QString NexusWriter::errorString() const
{
    return d->error.isEmpty() ? d->output.errorString() : d->error;
}

} // namespace Monitor
