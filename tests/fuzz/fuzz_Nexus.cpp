// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/Hdf5.h"
#include "monitor/nexus/NexusReader.h"
#include "monitor/nexus/TextHeaps.h"
#include "monitor/readings/StreamHeader.h"
#include "tests/support/FuzzTarget.h"

#include <QFile>
#include <QTemporaryDir>

#include <cmath>

using namespace Monitor;

/*! \file
    The bytes of an HDF5 file are read by its library. What this program makes of the groups, data sets and attributes that the
    library finds is tried here: an input is a list of commands that build a file, one on each line.

        g NAME         a group below the present one, which becomes the present one
        u              the group above becomes the present one
        d NAME TYPE SIZES...    a data set, with values if it is small: f, floating point; i, whole numbers; r, numbers that go
                       back; s, texts; x, texts of 8 bytes
        e NAME         a link to another file
        l NAME TEXT|TEXT...     a data set of texts
        t NAME TEXT|TEXT...     texts as an attribute of what was made last
        n NAME NUMBER  a number as an attribute of what was made last */

namespace {

constexpr hsize_t mostStored = 4096; // values
constexpr int mostSizes = 4;
constexpr int mostReadings = 20000;

//! Makes a file by commands.
class Builder
{
public:
    explicit Builder(const QString &path)
        : m_file(
            H5Fcreate(QFile::encodeName(path).constData(), H5F_ACC_TRUNC, H5P_DEFAULT, H5P_DEFAULT))
    {
    }

    void take(const QByteArray &line)
    {
        const QList<QByteArray> words = line.split(' ');
        const QString name = QString::fromUtf8(words.value(1));
        const QString text = QString::fromUtf8(line.mid(3 + words.value(1).size()));
        switch (line.isEmpty() ? ' ' : line.front()) {
        case 'g':
            enter(words.value(1));
            break;
        case 'u':
            if (!m_groups.empty())
                m_groups.pop_back();
            break;
        case 'd':
            m_last = data(words);
            break;
        case 'e':
            H5Lcreate_external("/nowhere.h5", "/", here(), words.value(1).constData(), H5P_DEFAULT,
                               H5P_DEFAULT);
            break;
        case 'l':
            m_output.textsData(here(), name, text.split(QLatin1Char('|')));
            break;
        case 't':
            m_output.texts(last(), words.value(1).constData(), text.split(QLatin1Char('|')));
            break;
        case 'n':
            m_output.number(last(), words.value(1).constData(), text.toDouble());
            break;
        default:
            break;
        }
    }

private:
    hid_t here() const { return m_groups.empty() ? m_file.id() : m_groups.back().id(); }
    hid_t last() const { return m_last.isOpen() ? m_last.id() : here(); }
    void enter(const QByteArray &name)
    {
        Hdf5Object group(
            H5Gcreate2(here(), name.constData(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT));
        constexpr std::size_t deepest = 8;
        m_last = Hdf5Object();
        if (group.isOpen() && m_groups.size() < deepest)
            m_groups.push_back(std::move(group));
    }
    Hdf5Object data(const QList<QByteArray> &words)
    {
        Hdf5Sizes sizes;
        hsize_t values = 1;
        for (const QByteArray &word : words.mid(3, mostSizes)) {
            sizes.push_back(word.toULongLong());
            values = sizes.back() > mostStored ? mostStored + 1 : values * sizes.back();
        }
        const Hdf5Object space(sizes.empty()
                                   ? H5Screate(H5S_SCALAR)
                                   : H5Screate_simple(int(sizes.size()), sizes.data(), nullptr));
        const Hdf5Object text = textType();
        const char kind = words.value(2).isEmpty() ? 'f' : words[2].front();
        const Hdf5Object fixed(H5Tcopy(H5T_C_S1));
        H5Tset_size(fixed.id(), 8);
        const hid_t type = kind == 's' ? text.id()
            : kind == 'x'              ? fixed.id()
            : kind == 'i'              ? H5T_STD_I32LE
                                       : H5T_IEEE_F64LE;
        // Without a chunk of its own, a large set would take its whole size on the disk.
        const Hdf5Object plan(H5Pcreate(H5P_DATASET_CREATE));
        const Hdf5Sizes chunk(sizes.size(), 1);
        if (!sizes.empty() && values > mostStored)
            H5Pset_chunk(plan.id(), int(chunk.size()), chunk.data());
        Hdf5Object made(H5Dcreate2(here(), words.value(1).constData(), type, space.id(),
                                   H5P_DEFAULT, plan.id(), H5P_DEFAULT));
        if (kind != 's' && kind != 'x' && values <= mostStored && values > 0) {
            std::vector<double> numbers(std::size_t(values), 0.0);
            for (std::size_t i = 0; i < numbers.size(); ++i)
                numbers[i] = kind == 'r' ? double(i % 3) : double(i);
            H5Dwrite(made.id(), H5T_NATIVE_DOUBLE, H5S_ALL, H5S_ALL, H5P_DEFAULT, numbers.data());
        }
        return made;
    }

    Hdf5Object m_file;
    std::vector<Hdf5Object> m_groups;
    Hdf5Object m_last; //!< a data set; a group is the present one
    Hdf5Output m_output;
};

//! Counts what is read, and requires what every sink is promised.
class CountingSink : public StreamSink
{
public:
    void streamStarted(const StreamHeader &header) override
    {
        m_values = header.valuesPerReading();
        FUZZ_REQUIRE(m_values > 0 && m_values <= Corvale_Qt::DetectorLayout::maxReadings);
    }
    void reading(double time, const double *values) override
    {
        FUZZ_REQUIRE(m_values > 0 && std::isfinite(time));
        sum += time;
        for (int i = 0; i < m_values; ++i)
            sum += std::isfinite(values[i]) ? values[i] : 1.0;
        ++readings;
    }
    void eventNoted(const QString &text) override { FUZZ_REQUIRE(!text.isNull()); }
    void lineRefused(const RefusedLine &line) override { FUZZ_REQUIRE(!line.text().isEmpty()); }

    double sum = 0.0;
    int readings = 0;

private:
    int m_values = 0;
};

void readAll(NexusReader *reader, const CountingSink *sink)
{
    while (sink->readings < mostReadings && reader->read(4096)) { }
    FUZZ_REQUIRE(reader->hasFailed() == !reader->errorString().isEmpty());
    FUZZ_REQUIRE(reader->progress() >= 0.0 && reader->progress() <= 1.0);
}

void build(const QString &path, const QByteArray &commands)
{
    const Hdf5Turn turn;
    Builder builder(path);
    constexpr int mostCommands = 60;
    for (const QByteArray &line : commands.split('\n').mid(0, mostCommands))
        builder.take(QByteArray(line).replace('\0', '0'));
}

//! Walks through bytes that begin as a heap of texts does; lengths have two, four or eight bytes.
void tryHeap(const QByteArray &bytes)
{
    for (const int lengthSize : {2, 4, 8}) {
        const quint64 size = textHeapSize(bytes, lengthSize);
        FUZZ_REQUIRE(size == 0 || bytes.size() >= 8 + lengthSize);
        textHeapHasEnd(bytes.left(int(std::min<quint64>(size, quint64(bytes.size())))), lengthSize);
    }
}

//! Returns a heap of one text and free space of some size.
std::string heapWithFreeSpace(char freeSize)
{
    const std::string text = std::string("\1\0\1\0\0\0\0\0\5\0\0\0\0\0\0\0hello\0\0\0", 24);
    const std::string free = std::string(8, '\0') + freeSize + std::string(7 + 24, '\0');
    return std::string("GCOL\1\0\0\0\x50\0\0\0\0\0\0\0", 16) + text + free;
}

} // namespace

std::vector<std::string> fuzzSeeds()
{
    const std::string entry = "g entry\nt NX_class NXentry\n";
    const std::string dataOfEntry = "g data\nt NX_class NXdata\nt signal i\nt axes time\n";
    const std::string data = entry + "g data\nt NX_class NXdata\nt signal i\nt axes ";
    const std::string time = "d time f 3\nt units ms since 2026-03-01T12:00:00Z\n";
    const std::string own = entry
        + "g recording\nt NX_class NXcollection\nn values_per_reading 2\nn rows_per_frame 0\n"
          "l header #corvale 1|#channels a,b|#unit nA,nA\nu\n"
          "g data\nd time f 3\nd a f 3\nd b f 3\nu\n";
    return {
        data + "time\n" + time + "d i f 3\nt units nA\nt long_name current\n",
        data + "time\nt auxiliary_signals j|k\n" + time + "d i i 3\nd j f 3\nd k f 4\n",
        data + "time|x\n" + time + "d i f 3 5\nt channel_names a|b|c|d|e\nd x f 5\nt units mm\n",
        data + "time|y|x\n" + time + "d i f 3 4 5\nd x f 5\nt units mm\nd y f 4\nt units mm\n",
        data + "time:x\nd time i 3\nt start 2016-12-31T23:59:60Z\nd i f 3 300\n",
        "g data\nt NX_class NXdata\nt signal i\nd i f 3\nt axes time\nd time f 3\nt units min\n",
        data + "time\nd time f 99999999999\nd i f 99999999999\n",
        data + "time\n" + time + "d i s 3\n",
        data + "time\nd time r 12\nd i f 12\n",
        data + "time|x\nd time f 2\nd i f 2 300\nd x f 300\n",
        data + "time|y|x\nd time f 2\nd i f 2 300 1\n",
        data + "time|x\nd time f 2\nd i f 2 90000\n",
        data + "time\ne time\nd i f 3\n",
        heapWithFreeSpace(0x28),
        heapWithFreeSpace(0),
        entry + "d start_time x\n" + dataOfEntry + "d time f 3\nd i f 3\n",
        own,
        own + "g events\nd readings_before i 2\nl value beam on|beam off\n"};
}

//! A file is read to its end or refused with a reason, and reads the same a second time.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("built.h5"));
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    if (beginsTextHeap(bytes)) {
        tryHeap(bytes);
        return 0;
    }
    build(path, bytes);
    CountingSink sink, again;
    NexusReader reader(sink);
    if (!reader.open(path)) {
        FUZZ_REQUIRE(!reader.errorString().isEmpty());
        return 0;
    }
    const ReadPoint begin = reader.readPoint();
    readAll(&reader, &sink);
    FUZZ_REQUIRE(reader.counts().readings == sink.readings);
    const int readings = sink.readings;
    NexusReader second(again);
    FUZZ_REQUIRE(second.open(path));
    readAll(&second, &again);
    FUZZ_REQUIRE(again.readings == readings);
    if (!reader.hasFailed() && readings < mostReadings) {
        FUZZ_REQUIRE(reader.rewind());
        readAll(&reader, &sink);
        FUZZ_REQUIRE(sink.readings == 2 * readings);
        FUZZ_REQUIRE(reader.resume(begin));
        readAll(&reader, &sink);
        FUZZ_REQUIRE(sink.readings == 3 * readings);
    }
    return 0;
}
