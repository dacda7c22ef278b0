// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/NexusReader.h"

#include "monitor/core/Text.h"
#include "monitor/input/CleanText.h"
#include "monitor/nexus/NexusTree.h"
#include "monitor/nexus/TextHeapGuard.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

//! How many numbers are read at once.
constexpr qint64 numbersAtOnce = 262144;
constexpr qint64 rowsAtOnce = 4096;

} // namespace

class NexusReader::Private
{
public:
    explicit Private(StreamSink &out)
        : sink(out)
    {
    }
    bool fail(const QString &why);
    bool areTextsWhole();
    bool open(const QString &path);
    bool openPart();
    bool load();
    bool takeRow();
    bool loadEvent();
    bool takeEvents();
    void refuse(double time, Refusal refusal);
    void goTo(std::size_t newPart, qint64 newRow);
    bool isAtEnd() const { return part >= tree.places.size(); }
    const NexusPlace &place() const { return tree.places[part]; }
    qint64 offset() const;

    StreamSink &sink;
    QString error;
    TextHeapFault textFault = TextHeapFault::None;
    Hdf5Object file;
    NexusTree tree;
    LineCounts counts;

    // The place of the next reading.
    std::size_t part = 0;
    qint64 row = 0;
    std::unique_ptr<NexusEntry> entry; //!< null until it is needed
    qint64 nextEvent = 0;
    std::optional<NexusEntry::Event> event; //!< the next one, once it was read
    bool isHeaderTold = false;
    bool anyTime = false;
    double lastTime = 0.0;

    // Readings that were read and not handed on: those from firstLoaded on.
    qint64 firstLoaded = 0;
    std::vector<double> times;
    std::vector<double> values;
};

bool NexusReader::Private::fail(const QString &why)
{
    error = why;
    return false;
}

//! A text that cannot be read counts as missing, be it a unit: what was opened with one is not shown.
bool NexusReader::Private::areTextsWhole()
{
    switch (textFault) {
    case TextHeapFault::None:
        return true;
    case TextHeapFault::Damaged:
        return fail(Text::tr("the texts in it are damaged"));
    case TextHeapFault::TooLarge:
        break;
    }
    return fail(Text::tr("a text in it is larger than 64 MB"));
}

bool NexusReader::Private::open(const QString &path)
{
    const Hdf5Turn turn;
    if (!QFileInfo(path).isReadable())
        return fail(Text::tr("this user may not read it"));
    const Hdf5Object access(H5Pcreate(H5P_FILE_ACCESS));
    if (!guardTextHeaps(access.id(), &textFault))
        return fail(hdf5Error());
    // A file that is only read needs no lock, which some file systems refuse.
    H5Pset_file_locking(access.id(), false, true);
    file = Hdf5Object(H5Fopen(QFile::encodeName(path).constData(), H5F_ACC_RDONLY, access.id()));
    if (!file.isOpen())
        return fail(Text::tr("it is not a whole HDF5 file: it is damaged, cut off or still being "
                             "written (%1)")
                        .arg(hdf5Error()));
    const bool isFound = tree.find(file.id(), &error);
    return areTextsWhole() && isFound;
}

void NexusReader::Private::goTo(std::size_t newPart, qint64 newRow)
{
    const Hdf5Turn turn;
    if (newPart != part)
        entry.reset();
    part = newPart;
    row = newRow;
    nextEvent = entry ? entry->firstEventFrom(row) : -1;
    event.reset();
    isHeaderTold = false;
    anyTime = false;
    firstLoaded = 0;
    times.clear();
}

bool NexusReader::Private::openPart()
{
    if (entry)
        return true;
    const Hdf5Turn turn;
    entry = NexusTree::open(file.id(), place(), &error);
    if (!areTextsWhole() || !entry)
        return false;
    // Another program may have changed the file since it was opened.
    if (entry->rows != place().rows || entry->header.valuesPerReading() != place().values)
        return fail(Text::tr("it changes while it is read"));
    nextEvent = entry->firstEventFrom(row);
    return true;
}

//! Makes sure that the next reading is in memory.
bool NexusReader::Private::load()
{
    if (row >= firstLoaded && row < firstLoaded + qint64(times.size()))
        return true;
    const Hdf5Turn turn;
    const qint64 count =
        std::min(std::clamp<qint64>(numbersAtOnce / std::max(place().values, 1), 1, rowsAtOnce),
                 place().rows - row);
    firstLoaded = row;
    times.resize(std::size_t(count));
    values.resize(std::size_t(count) * std::size_t(place().values));
    if (entry->read(row, count, times.data(), values.data()))
        return true;
    times.clear();
    return fail(Text::tr("readings %1 to %2 of %3 are damaged (%4)")
                    .arg(row + 1)
                    .arg(row + count)
                    .arg(place().entry, hdf5Error()));
}

void NexusReader::Private::refuse(double time, Refusal refusal)
{
    RefusedLine line;
    line.what = RefusedLine::What::Reading;
    line.refusal = refusal;
    line.number = counts.lines;
    line.excerpt = QByteArray::number(time, 'g', 17);
    ++counts.refused[std::size_t(refusal)];
    sink.lineRefused(line);
}

//! Makes sure that the next event is in memory.
bool NexusReader::Private::loadEvent()
{
    if (event)
        return true;
    const Hdf5Turn turn;
    event = entry->event(nextEvent);
    return event
        || fail(Text::tr("event %1 of %2 is damaged").arg(nextEvent + 1).arg(place().entry));
}

//! Hands on the events that come before the next reading.
bool NexusReader::Private::takeEvents()
{
    while (nextEvent < entry->events) {
        if (!loadEvent())
            return false;
        if (event->row > row && row < place().rows)
            return true;
        ++nextEvent;
        const QString text = std::exchange(event, std::nullopt)->text;
        sink.eventNoted(cleanText(text, maxTextLength));
    }
    return true;
}

bool NexusReader::Private::takeRow()
{
    if (!load())
        return false;
    const auto at = std::size_t(row - firstLoaded);
    const double time = times[at];
    ++row;
    ++counts.lines;
    if (!std::isfinite(time) || (anyTime && time < lastTime)) {
        refuse(time, std::isfinite(time) ? Refusal::TimeBackwards : Refusal::Unreadable);
        return true;
    }
    if (!isHeaderTold)
        sink.streamStarted(entry->header);
    isHeaderTold = true;
    anyTime = true;
    lastTime = time;
    ++counts.readings;
    sink.reading(time, values.data() + at * std::size_t(place().values));
    return true;
}

qint64 NexusReader::Private::offset() const
{
    if (tree.places.empty())
        return 0;
    return isAtEnd() ? tree.places.back().end() : place().begin + row * place().rowBytes();
}

NexusReader::NexusReader(StreamSink &sink)
    : d(std::make_unique<Private>(sink))
{
}

NexusReader::~NexusReader()
{
    const Hdf5Turn turn;
    d.reset();
}

bool NexusReader::open(const QString &path)
{
    if (!d->open(path))
        return false;
    if (!d->tree.notice.isEmpty())
        d->sink.eventNoted(d->tree.notice);
    return true;
}

bool NexusReader::read(int bytes)
{
    for (qint64 left = bytes; left > 0 && !d->isAtEnd() && !hasFailed();) {
        if (!d->openPart())
            return false;
        if (d->row == 0 && !d->isHeaderTold && !d->entry->notice.isEmpty())
            d->sink.eventNoted(std::exchange(d->entry->notice, {}));
        left -= d->place().rowBytes();
        if (!d->takeEvents() || (d->row < d->place().rows && !d->takeRow()))
            return false;
        if (d->row == d->place().rows && d->takeEvents())
            d->goTo(d->part + 1, 0);
    }
    return !d->isAtEnd() && !hasFailed();
}

bool NexusReader::rewind()
{
    if (d->tree.places.empty())
        return d->fail(Text::tr("it is not open"));
    d->error.clear();
    d->goTo(0, 0);
    return true;
}

bool NexusReader::resume(const ReadPoint &point)
{
    if (d->tree.places.empty())
        return d->fail(Text::tr("it is not open"));
    d->error.clear();
    std::size_t part = 0;
    while (part + 1 < d->tree.places.size() && d->tree.places[part + 1].begin <= point.offset)
        ++part;
    const NexusPlace &place = d->tree.places[part];
    const qint64 row = (point.offset - place.begin) / place.rowBytes();
    d->goTo(part, std::clamp<qint64>(row, 0, place.rows));
    d->counts = point.counts;
    return true;
}

ReadPoint NexusReader::readPoint() const
{
    ReadPoint point;
    point.offset = d->offset();
    point.row = d->row;
    point.counts = d->counts;
    return point;
}

qint64 NexusReader::textSize() const
{
    return d->tree.places.empty() ? 0 : d->tree.places.back().end();
}

bool NexusReader::hasFailed() const
{
    return !d->error.isEmpty();
}

QString NexusReader::errorString() const
{
    return d->error;
}

LineCounts NexusReader::counts() const
{
    return d->counts;
}

double NexusReader::progress() const
{
    const qint64 size = textSize();
    return size > 0 ? double(d->offset()) / double(size) : 1.0;
}

} // namespace Monitor
