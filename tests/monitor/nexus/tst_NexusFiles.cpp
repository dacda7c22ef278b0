// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/NexusFiles.h"
#include "monitor/nexus/NexusOutput.h"
#include "monitor/nexus/NexusReader.h"
#include "monitor/nexus/NexusSegments.h"
#include "monitor/recording/RecordingFile.h"
#include "monitor/recording/SegmentCompressor.h"
#include "tests/monitor/support/ExactSink.h"
#include "tests/monitor/support/FileSizeLimit.h"
#include "tests/monitor/support/TextSink.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

using namespace Monitor;

namespace {

//! Returns a stream of frames from a described matrix of 3 rows and 4 columns, with a dead pixel and an event.
QByteArray describedFrames()
{
    QByteArray text =
        "#corvale 2\n#unit nC\n#pitch x 2 mm\n#pitch y 1.5 mm\n"
        "#gain 1.02,1,1,1,1,1,1,1,1,1,1,0.9\n#pedestal 0.4\n#saturation 500\n#dead 5\n"
        "#t0 2026-03-01T12:00:00.250Z\n";
    for (int frame = 0; frame < 5; ++frame) {
        text += "#frame " + QByteArray::number(0.1 * frame, 'g', 17) + " 3 4\n";
        for (int row = 0; row < 3; ++row)
            text += QByteArray::number(frame * 100 + row * 10 + 0.1, 'g', 17) + ",nan,2,-3e-300\n";
        if (frame == 2)
            text += "#event shutter \xc3\xb6pened, \"slowly\"\n";
    }
    return text;
}

QByteArray rowsOf(int rows, int channels)
{
    QByteArray text;
    for (int row = 0; row < rows; ++row) {
        text += QByteArray::number(row / 7.0, 'g', 17);
        for (int i = 0; i < channels; ++i)
            text += ',' + QByteArray::number((row * 31 + i * 17) % 101 / 3.0, 'g', 17);
        text += '\n';
    }
    return text;
}

//! Returns a script that writes an NXdata of a signal i over a time t in milliseconds; the lines make the signal.
QByteArray data(const QByteArray &lines)
{
    return "e = f.create_group('scan'); e.attrs['NX_class'] = 'NXentry'\n"
           "d = e.create_group('d'); d.attrs['NX_class'] = 'NXdata'\n"
           "d.attrs['signal'] = 'i'; d.attrs['axes'] = ['t']\n"
           "t = d.create_dataset('t', data=[0, 500, 1500.0]); t.attrs['units'] = 'ms'\n"
        + lines;
}

//! A program that runs one script after another, each of which comes after its length; it answers with what is wrong.
const QString interpreter = QStringLiteral(R"(
import gc, h5py, math, mmap, sys, traceback
import numpy as np
print('ready', end='', flush=True)
while size := sys.stdin.buffer.readline():
    script, said = sys.stdin.buffer.read(int(size)), ''
    try:
        exec(script, {'h5py': h5py, 'math': math, 'mmap': mmap, 'np': np})
    except Exception:
        said = traceback.format_exc()
    gc.collect()  # closes the files of the script
    print(said, end='\0', flush=True)
)");

} // namespace

//! HDF5 files in the form of NeXus: what is written is read back, by the monitor and by others, and nothing that is read does harm.
class tst_NexusFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        if (!nexusMissing().isEmpty())
            QSKIP("the monitor was built without HDF5");
        for (const QString &name :
             {QStringLiteral("/usr/bin/python3"), QStringLiteral("python3")}) {
            m_python.setWorkingDirectory(m_folder.path());
            m_python.start(name, {"-c", interpreter});
            if (m_python.waitForReadyRead(60000) && m_python.readAll() == "ready")
                return;
            m_python.kill();
            m_python.waitForFinished();
        }
    }
    void cleanupTestCase()
    {
        m_python.closeWriteChannel();
        m_python.waitForFinished();
    }

    void whatIsRecordedIsReadBack_data()
    {
        tableFrom(R"(
            | QByteArray recording
            channels of several units, with gaps, limits and events | #corvale 1\n#channels left,right plate,p/q,left\n#unit nA,nA,mm,\n#limits left 1,2,,9\n#range -5,5\n#t0 2026-03-01T12:00:00Z\n#t0-uncertainty 0.02 s\n#event before all\n0,1,,3,4\n0.10000000000000001,inf,-0,nan,5e-324\n#event one\n#event two\n0.10000000000000001,1,2,3,4\n7e9,1,2,3,4\n#event after all\n
            spots | x_mm,y_mm,mu\n1,2,0.5\n-3,2.25,0.125\n1.5,-2,1\n
            channels without times, with gaps | #corvale 1\n#channels a,b\n#unit nA,\n1,2\n,4\nnan,nan\n
            frames without times | #corvale 2\n#frame 1 2\n1,2\n#frame 1 2\n3,4\n#frame 1 2\n5,6\n
            a channel without times | #corvale 1\n#channels a\n1\nnan\n3\n
        )");
        row("more readings than a chunk",
            "#corvale 1\n#channels a,b,c\n" + rowsOf(9000, 3) + "#event end\n");
        row("strips with places",
            "#corvale 1\n#layout strips 16 8\n#pitch 2 mm\n#unit nC\n" + rowsOf(20, 24));
        row("pixels in a single line", "#corvale 1\n#layout matrix 12 10\n" + rowsOf(9, 120));
        row("strips without places", "#corvale 1\n#layout strips\n" + rowsOf(5, 64));
        row("wide strips", "#corvale 1\n#layout strips 300 200\n#pitch 0.5 mm\n" + rowsOf(30, 500));
        row("frames of a described detector", describedFrames());
        row("a wired detector",
            QByteArray("#corvale 1\n#detector "
                       "{\"detector\":1,\"kind\":\"strips\",\"x\":{\"cells\":3,\"pitch\":2,"
                       "\"unit\":\"mm\"},\"wiring\":[2,0,1]}\n")
                + rowsOf(4, 3));
        row("two acquisitions, the second with an event before its readings",
            "#corvale 1\n#channels a,b\n#unit nA\n" + rowsOf(3, 2)
                + "#corvale 1\n#event new\n#channels c\n5,1\n6,2\n#event last\n");
    }
    void whatIsRecordedIsReadBack()
    {
        putFile(path("r.csv"), cell<QByteArray>("recording"));
        const QByteArray before = readExactly(path("r.csv"));
        QVERIFY2(!before.contains("refused") && before.count('\n') > 4, before);
        putFile(path("again.csv"), before);
        QCOMPARE(readExactly(path("again.csv")), before);
        QVERIFY2(convert("r"), qPrintable(m_error));
        QVERIFY(!QFile::exists(path("r.csv")) && isHdf5File(path("r.h5")));
        for (const int piece : {1, 1000, 1000000})
            QCOMPARE(readExactly(path("r.h5"), piece), before);
        QVERIFY(!QFile::exists(path("r.h5.part")));
    }

    void realReadingsAreReadBack()
    {
        QDir data(QStringLiteral(CORVALE_QT_DATA_DIR));
        QStringList found;
        QDirIterator files(data.path(), {"*.csv"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            found.append(files.next());
        if (found.isEmpty())
            QSKIP("no real readings here");
        int converted = 0;
        for (const QString &name : found) {
            const QByteArray before = readExactly(name);
            if (before.startsWith("failed") || before.contains("\nrefused "))
                continue; // a table of another program
            ++converted;
            QFile::remove(path("real.csv"));
            QVERIFY(QFile::copy(name, path("real.csv")));
            QVERIFY2(convert("real"), qPrintable(name + ": " + m_error));
            QVERIFY2(readExactly(path("real.h5")) == before, qPrintable(name));
        }
        QVERIFY(converted > 0);
    }

    //! A place in the file leads to what follows it, whether it lies in the first acquisition or the second.
    void readingGoesOnFromAPlace()
    {
        putFile(path("two.csv"),
                "#corvale 1\n#channels a\n" + rowsOf(5000, 1) + "#event between\n#corvale 1\n"
                    + "#channels b,c\n" + rowsOf(100, 2) + "#event end\n");
        QVERIFY2(convert("two"), qPrintable(m_error));
        ExactSink whole;
        NexusReader reader(whole);
        QVERIFY2(reader.open(path("two.h5")), qPrintable(reader.errorString()));
        int places = 0;
        for (bool more = true; more; ++places) {
            const ReadPoint point = reader.readPoint();
            whole.text.clear();
            more = reader.read(5000);
            ExactSink rest;
            NexusReader other(rest);
            QVERIFY(other.open(path("two.h5")) && other.resume(point));
            other.read(5000);
            QCOMPARE(other.counts().readings, reader.counts().readings);
            // Where reading begins, the stream is described once more.
            QVERIFY2(rest.text.endsWith(whole.text), rest.text.left(300));
        }
        QVERIFY(places > 10);
        QVERIFY(reader.rewind());
        whole.text.clear();
        while (reader.read(100000)) { }
        QCOMPARE(whole.text, readExactly(path("two.h5")));
    }

    //! What others see: the structure, the attributes and the values, as h5py reads them.
    void othersReadIt_data()
    {
        columns<QByteArray, QByteArray>("recording", "checks");
        row("channels",
            QByteArray("#corvale 1\n#channels left,right plate,p/q\n#unit nA,nA,mm\n"
                       "#t0 2026-03-01T12:00:00.250Z\n0,1,2,3\n0.1,,-2,nan\n"
                       "#event shutter \xc3\xb6pen\n"),
            QByteArray(R"(
assert f.attrs['NX_class'] == 'NXroot' and f.attrs['default'] == 'entry'
e = f['entry']
assert e.attrs['NX_class'] == 'NXentry' and e.attrs['default'] == 'data'
assert e['start_time'][()].decode() == '2026-03-01T12:00:00.250Z'
assert e['program_name'][()] == b'corvale-monitor' and e['program_name'].attrs['version'].startswith('2.')
d = e['data']
assert d.attrs['NX_class'] == 'NXdata' and d.attrs['signal'] == 'left'
assert list(d.attrs['axes']) == ['time'] and list(d.attrs['auxiliary_signals']) == ['right_plate']
assert d['right_plate'].attrs['given_name'] == 'right plate' and d['left'].attrs['units'] == 'nA'
assert d['time'][:].tolist() == [0, 0.1] and d['time'].attrs['units'] == 's'
assert d['time'].attrs['start'] == '2026-03-01T12:00:00.250Z'
assert d['left'][0] == 1 and math.isnan(d['left'][1]) and d['right_plate'][:].tolist() == [2, -2]
assert d['left'].compression == 'gzip' and d['left'].chunks and d['left'].dtype == 'f8'
o = e['data_mm']
assert o.attrs['signal'] == 'p_q' and o['p_q'].attrs['given_name'] == 'p/q'
assert o['time'] == d['time']
v = e['events']
assert v.attrs['NX_class'] == 'NXlog' and v['value'].asstr()[:].tolist() == ['shutter öpen']
assert v['time'][:].tolist() == [0.1]
)"));
        row("frames of a described detector", describedFrames(), QByteArray(R"(
d = f['entry/data']
assert d.attrs['signal'] == 'frames' and list(d.attrs['axes']) == ['time', 'y', 'x']
assert d['frames'].shape == (5, 3, 4) and d['frames'].attrs['units'] == 'nC'
assert d['frames'][2, 1, 0] == 210.1 and d['frames'][4, 2, 2] == 2 and math.isnan(d['frames'][0, 0, 1])
assert d['x'][:].tolist() == [-3, -1, 1, 3] and d['y'][:].tolist() == [-1.5, 0, 1.5]
assert d['x'].attrs['units'] == 'mm'
t = f['entry/instrument/detector']
assert t.attrs['NX_class'] == 'NXdetector' and t['type'][()] == b'pixels'
assert t['x_pixel_offset'][:].tolist() == [-3, -1, 1, 3] and t['x_pitch'][()] == 2
assert t['gain'].shape == (3, 4) and t['gain'][0, 0] == 1.02 and t['gain'][2, 3] == 0.9
assert (t['pedestal'][:] == 0.4).all() and (t['saturation_value'][:] == 500).all()
assert t['pixel_mask'][1, 0] == 2 and t['pixel_mask'][:].sum() == 2
)"));
        row("strips", "#corvale 1\n#layout strips 2 1\n#pitch 2 mm\n#unit nC\n" + rowsOf(3, 3),
            QByteArray(R"(
e = f['entry']
assert e.attrs['default'] == 'data_x' and e['data_x/profile_x'].shape == (3, 2)
assert e['data_y/profile_y'].shape == (3, 1) and e['data_x/x'][:].tolist() == [-1, 1]
assert e['data_x'].attrs['axes'].tolist() == ['time', 'x']
assert abs(e['data_x/time'][1] - 1 / 7) < 1e-15
)"));
    }
    void othersReadIt()
    {
        if (!hasPython())
            QSKIP("h5py is missing (Debian has it in python3-h5py)");
        putFile(path("seen.csv"), cell<QByteArray>("recording"));
        QVERIFY2(convert("seen"), qPrintable(m_error));
        const QByteArray said = python("f = h5py.File('seen.h5')\n" + cell<QByteArray>("checks"));
        QVERIFY2(said.isEmpty(), said);
    }

    void filesOfOthers_data()
    {
        tableFrom(R"(
            || QByteArray script || QByteArray read
            NXdata without an entry
                || f.attrs['default'] = 'd'\nd = f.create_group('d')\nd.attrs['NX_class'] = 'NXdata'\nd.attrs['signal'] = 'i'\nd.attrs['axes'] = 't'\nd['t'] = [1.0]; d['t'].attrs['units'] = 'min'\nd['i'] = [7]\n
                || start channels i | 60: 7
            nothing that tells what it is || f['numbers'] = [1, 2]\n || no NXentry and no NXdata
        )");
        const auto row = [](const char *name, const QByteArray &script, const QByteArray &read) {
            QTest::newRow(name) << script << read;
        };
        const QByteArray signal = "d.create_dataset('i', data=[1, 2, 4]).attrs['units'] = 'nA'\n";
        row("one channel, whole numbers, milliseconds", data(signal),
            "start channels i:nA | 0: 1 | 0.5: 2 | 1.5: 4");
        row("more signals and a missing value",
            data(signal
                 + "d.attrs['auxiliary_signals'] = ['j', 'gone']\n"
                   "d['j'] = [.5, float('nan'), 2]\n"),
            "start channels i:nA j | 0: 1 0.5 | 0.5: 2 - | 1.5: 4 2");
        row("two dimensions",
            data("d.attrs['axes'] = ['t', 'x']\nd['i'] = [[1, 2], [3, 4], [5, 6]]\n"),
            "start channels ch1 ch2 | 0: 1 2 | 0.5: 3 4 | 1.5: 5 6");
        row("images",
            data("d.attrs['axes'] = ['t', '.', '.']\nd['i'] = np.arange(12.0).reshape(3, 2, 2)\n"),
            "start pixels frames, matrix 2 x 2, positions in cells, sum max x:cells sigma_x:cells "
            "y:cells "
            "sigma_y:cells | 0: 0 1 2 3 | 0.5: 4 5 6 7 | 1.5: 8 9 10 11");
        row("a time that goes back, and one that is none",
            data(signal + "t[:] = [5, 1, float('nan')]\n"),
            "start channels i:nA | 0.005: 1 | refused 2 back | refused 3 unreadable");
        row("the older way to name axes, without a unit",
            data(signal + "del d.attrs['axes'], t.attrs['units']\nd['i'].attrs['axes'] = 't'\n"),
            "event the axis t states no unit and is taken as seconds | start channels i:nA | 0: 1 "
            "| 500: 2 | 1500: 4");
        row("an axis that is no time", data(signal + "t.attrs['units'] = 'mm'\n"),
            "scan: the axis t of its signal i is in mm, which is not a unit of time");
        row("an axis of another length", data("d['i'] = [1, 2]\n"),
            "is not as long as its signal i");
        row("no axes at all", data(signal + "del d.attrs['axes']\n"), "has no time axis");
        row("no signal", data({}), "its signal i is missing");
        row("texts", data("d['i'] = [b'a', b'b', b'c']\n"), "they are not numbers");
        row("four dimensions", data("d['i'] = np.zeros((3, 1, 1, 1))\n"), "4 dimensions");
        row("too many values for each time", data("d['i'] = np.zeros((3, 5000))\n"),
            "5000 values for each time");
        row("more readings than a disk holds",
            data("del d['t']\nfor n in 't', 'i':\n d.create_dataset(n, (1 << 60,), chunks=(1 << "
                 "20,))\n"),
            "more than the file can hold");
        row("chunks larger than the memory",
            data("d.create_dataset('i', (1 << 28,), maxshape=(None,), chunks=(1 << 28,))\n"),
            "chunks are larger");
        row("numbers in another file",
            data("d.create_dataset('i', (3,), external=[('/etc/passwd', 0, 24)], dtype='f8')\n"),
            "another file");
        row("a link to another file",
            data("d['i'] = h5py.ExternalLink('two.h5', '/entry/data/a')\n"),
            "its signal i is missing");
        row("a path that leads through another file",
            data("d['i'] = h5py.SoftLink('/scan/x/i')\n"
                 "e['x'] = h5py.ExternalLink('far.h5', '/')\n"
                 "with h5py.File('far.h5', 'w') as far: far['i'] = [1, 2, 4]\n"),
            "its signal i is missing");
    }
    void filesOfOthers() { checkFileOfOthers(); }

    void filesOfOtherLayouts_data()
    {
        columns<QByteArray, QByteArray>("script", "read");
        const auto row = [](const char *name, const QByteArray &script, const QByteArray &read) {
            QTest::newRow(name) << script << read;
        };
        const QByteArray signal = "d.create_dataset('i', data=[1, 2, 4]).attrs['units'] = 'nA'\n";
        row("a factor and an offset of the signal, and a factor of the time",
            data(signal
                 + "d['i_scaling_factor'] = 0.5\nd['i_offset'] = [10]\n"
                   "d['t_scaling_factor'] = 1000.0\n"),
            "event t is stored in scaled form and is shown as 1000 x stored + 0; i is stored in "
            "scaled "
            "form and is shown as 0.5 x stored + 5 | start channels i:nA | 0: 5.5 | 500: 6 | 1500: "
            "7");
        row("the older names, which belong to the signal",
            data(signal + "d['scaling_factor'] = 3\nd['offset'] = b'none'\n"),
            "event i is stored in scaled form and is shown as 3 x stored + 0 | start channels i:nA "
            "| 0: 3 "
            "| 0.5: 6 | 1.5: 12");
        row("attributes of the CF conventions",
            data(signal + "d['i'].attrs['scale_factor'] = 2.0\nd['i'].attrs['add_offset'] = -1\n"),
            "event i is stored in scaled form and is shown as 2 x stored + -1 | start channels "
            "i:nA | 0: "
            "1 | 0.5: 3 | 1.5: 7");
        row("sizes of four bytes, with texts that fill their heap up to steps of eight",
            "f.close()\nform = h5py.h5p.create(h5py.h5p.FILE_CREATE)\nform.set_sizes(4, 4)\n"
            "f = h5py.File(h5py.h5f.create(b'theirs.h5', h5py.h5f.ACC_TRUNC, form))\n"
                + data("d['i'] = [1, 2, 4]\n"),
            "start channels i | 0: 1 | 0.5: 2 | 1.5: 4");
        row("a heap without an end, behind a block of the user",
            "f.close()\nf = h5py.File('theirs.h5', 'w', userblock_size=1024)\n"
                + data("d['i'] = [1, 2, 4]\n")
                + "f.close()\nraw = bytearray(open('theirs.h5', 'rb').read())\n"
                  "hole = raw.index(b'GCOL') + 16\nraw[hole:hole + 200] = bytes(200)\n"
                  "open('theirs.h5', 'wb').write(raw)\n",
            "the texts in it are damaged");
        const QByteArray room = "form = h5py.h5p.create(h5py.h5p.DATASET_CREATE)\n"
                                "form.set_alloc_time(h5py.h5d.ALLOC_TIME_EARLY)\n"
                                "form.set_fill_time(h5py.h5d.FILL_TIME_NEVER)\n"
                                "space = h5py.h5s.create_simple((40_000_000,))\n"
                                "room = lambda name: h5py.h5d.create(f.id, name, "
                                "h5py.h5t.IEEE_F64LE, space, form)\n";
        row("a heap without an end, between 320 MB and 320 MB",
            room + "room(b'before')\n" + data("d['i'] = [1, 2, 4]\n")
                + "d['i'].attrs['long_name'] = 'x' * 5000\nroom(b'after')\nf.close()\n"
                  "file = open('theirs.h5', 'r+b')\nraw = mmap.mmap(file.fileno(), 0)\n"
                  "hole = raw.find(b'GCOL', 310_000_000) + 16\n"
                  "assert len(raw) - hole > 310_000_000\nraw[hole:hole + 200] = bytes(200)\n",
            "the texts in it are damaged");
        row("a text that is larger than all others",
            data("d['i'] = [1, 2, 4]\nd['i'].attrs['units'] = 'x' * 70_000_000\n"),
            "a text in it is larger than 64 MB");
    }
    //! The program that writes a file chooses a scale, the inner sizes, and what stands before it.
    void filesOfOtherLayouts() { checkFileOfOthers(); }

    //! Wherever a file ends too early, it is refused with a sentence.
    void aFileThatIsCutIsRefused()
    {
        putFile(path("whole.csv"), "#corvale 1\n#channels a,b\n" + rowsOf(5000, 2) + "#event e\n");
        QVERIFY2(convert("whole"), qPrintable(m_error));
        const QByteArray whole = fileContents(path("whole.h5"));
        constexpr int cuts = 60;
        for (int i = 0; i < cuts; ++i) {
            putFile(path("cut.h5"), whole.left(8 + int((whole.size() - 9) * qint64(i) / cuts)));
            const QByteArray read = readExactly(path("cut.h5"));
            QVERIFY2(read.startsWith("failed: it is not a whole HDF5 file"), read.left(200));
        }
        // The HDF5 library would walk through such a heap of texts for ever.
        QByteArray holed = whole;
        const int heap = holed.indexOf("GCOL");
        QVERIFY(heap > 0);
        holed.replace(heap + 16, 200, QByteArray(200, '\0'));
        putFile(path("holed.h5"), holed);
        QCOMPARE(readExactly(path("holed.h5")), QByteArray("failed: the texts in it are damaged"));
    }

    //! Readings that are damaged inside are not shown as numbers; what comes before them is.
    void damageInsideIsTold()
    {
        putFile(path("inside.csv"), "#corvale 1\n#channels a\n" + rowsOf(20000, 1));
        QVERIFY2(convert("inside"), qPrintable(m_error));
        QByteArray bytes = fileContents(path("inside.h5"));
        // The last compressed chunk begins as each stream of deflate does.
        const int chunk = bytes.lastIndexOf("\x78\x5e");
        QVERIFY(chunk > 0);
        bytes.replace(chunk + 2, 30, QByteArray(30, '\xff'));
        putFile(path("inside.h5"), bytes);
        ExactSink sink;
        NexusReader reader(sink);
        QVERIFY(reader.open(path("inside.h5")));
        while (reader.read(100000)) { }
        QVERIFY(reader.hasFailed());
        QVERIFY2(reader.errorString().contains("are damaged"), qPrintable(reader.errorString()));
        QVERIFY(reader.counts().readings >= 8192);
    }

    //! A file gets its name when it is whole, and replaces another one only if it may.
    void aFileIsWholeOrMissing()
    {
        const auto write = [](bool overwrite, NexusOutput *output) {
            StreamHeader header;
            header.channels = {{"a", "nA"}};
            if (!output->start("test", overwrite, RecordingFile::usualMode))
                return false;
            output->writer().startStream(header);
            for (int i = 0; i < 50000; ++i) {
                const double value = std::sin(i * 12.9898) * 43758.5453;
                output->writer().addReading(i, &value);
            }
            return true;
        };
        putFile(path("o.h5"), "precious");
        NexusOutput refused(path("o.h5"));
        QVERIFY(!write(false, &refused));
        QVERIFY(refused.errorString().contains("exists already"));
        {
            NexusOutput left(path("o.h5"));
            QVERIFY(write(true, &left));
            NexusOutput second(path("o.h5"));
            QVERIFY(!write(true, &second));
            QVERIFY(second.errorString().contains("another program writes"));
        }
        {
            FileSizeLimit limit;
            NexusOutput large(path("o.h5"));
            limit.set(100000);
            write(true, &large);
            QVERIFY(!large.finish());
            QVERIFY2(large.errorString().contains("File too large"),
                     qPrintable(large.errorString()));
        }
        QCOMPARE(fileContents(path("o.h5")), QByteArray("precious"));
        QVERIFY(!QFile::exists(path("o.h5.part")));
        NexusOutput told(path("o.h5"));
        QVERIFY(write(true, &told) && told.finish());
        QVERIFY(readExactly(path("o.h5")).count('\n') > 50000);
    }

    //! A recording with a line that cannot be read stays as it is, since that line would be lost.
    void nothingIsLostByConversion()
    {
        putFile(path("torn.csv"), "#corvale 1\n#channels a,b\n0,1,2\n1,what,2\n2,3,4\n");
        QVERIFY(!convert("torn"));
        QVERIFY2(m_error.contains("stays text") && m_error.contains("what"), qPrintable(m_error));
        QVERIFY(QFile::exists(path("torn.csv")));
        QVERIFY(!QFile::exists(path("torn.h5")) && !QFile::exists(path("torn.h5.part")));
    }

private:
    void checkFileOfOthers()
    {
        QFETCH(QByteArray, read);
        if (!hasPython())
            QSKIP("h5py is missing (Debian has it in python3-h5py)");
        const QByteArray said = python("f = h5py.File('theirs.h5', 'w')\n"
                                       + cell<QByteArray>("script") + "f.close()\n");
        QVERIFY2(said.isEmpty(), said);
        TextSink sink;
        NexusReader reader(sink);
        if (reader.open(path("theirs.h5")))
            while (reader.read(1000)) { }
        const bool isRefused = reader.hasFailed() && qgetenv("CORVALE_QT_PLANT") != "accepted";
        const QByteArray got = (isRefused ? reader.errorString() : sink.text()).toUtf8();
        QVERIFY2(got == read || (isRefused && got.contains(read)), got);
    }

    QString path(const QString &name) const { return m_folder.filePath(name); }
    //! Converts a recording of that name, anew.
    bool convert(const QString &name)
    {
        QFile::remove(path(name + ".h5"));
        m_error.clear();
        return convertSegment(path(name + ".csv"), nexusConversion(), &m_error);
    }
    bool hasPython() const { return m_python.state() == QProcess::Running; }
    //! Runs a script in the folder of the test and returns what it complains of.
    QByteArray python(const QByteArray &script)
    {
        m_python.write(QByteArray::number(script.size()) + '\n' + script);
        QByteArray said;
        while (!said.endsWith('\0')) {
            if (!m_python.waitForReadyRead(60000))
                return "no answer";
            said += m_python.readAll();
        }
        return said.chopped(1);
    }

    QTemporaryDir m_folder;
    QProcess m_python; //!< runs if there is one with h5py
    QString m_error;
};

CORVALE_QT_TEST_MAIN(tst_NexusFiles)
#include "tst_NexusFiles.moc"
