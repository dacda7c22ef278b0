// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CsvReader.h"
#include "tests/monitor/support/TextSink.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/models/RVXSingleChannelDataModel.h>

using namespace Monitor;

namespace {

//! Also notes how each dropped line begins.
class ExcerptSink : public TextSink
{
public:
    void lineRefused(const RefusedLine &line) override
    {
        TextSink::lineRefused(line);
        excerpts += line.excerpt + '|';
    }

    QByteArray excerpts;
};

} // namespace

static QString readAll(const QString &path, int pieceSize = 5, const QString &import = {},
                       bool ahead = false, QByteArray *excerpts = nullptr)
{
    ExcerptSink sink;
    CsvReader reader(sink);
    ImportOptions options;
    QString error;
    if (!ImportOptions::fromText(import, &options, &error))
        return error;
    reader.setImport(options);
    reader.setReadingAhead(ahead);
    if (!reader.open(path))
        return reader.errorString();
    while (reader.read(pieceSize)) { }
    if (excerpts)
        *excerpts = sink.excerpts;
    return sink.text();
}

class tst_CsvReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tablesBecomeReadings_data()
    {
        // In the expected text, ">" begins a stream of channels, and a line that cannot be read is refused with "?".
        tableFrom(R"(
            || content || expected
            plain                              || time_s,left_A,x_mm\n0,1e-9,2\n0.5,2e-9,3\n
                || > left:A x:mm | 0: 1e-09 2 | 0.5: 2e-09 3
            no line end at the end             || time_s,a\n0,1\n1,25 || > a | 0: 1 | 1: 25
            suffixes that are no units         || t,foo_ABC,my_name,_A,b_uA\n0,1,2,3,4\n
                || > foo_ABC my_name _A b:uA | 0: 1 2 3 4
            strips                             || frame,time_s,x01,x02,y01,y02\n0,0,1,2,3,4\n1,10,5,6,7,8\n
                || start strips x01 x02 y01 y02 | 0: 1 2 3 4 | 10: 5 6 7 8
            pixels                             || time_s,r01c01,r01c02\n0,1,2\n || start pixels r01c01 r01c02 | 0: 1 2
            spots are counted, and a bad line is none
                || layer,energy_MeV,x_mm,y_mm,mu\n1,80.5,3,4,20\n1,a,5,6,21\n1,80.5,7,8,22\n
                || refused 3 ? | start spots counted layer energy:MeV x:mm y:mm mu | 1: 1 80.5 3 4 20 | 2: 1 80.5 7 8 22
            frames without times, too, and one that lacks a row is none
                || #corvale 2\n#frame 2 1\n5\n6\n#frame 2 1\n1\n#frame 2 1\n7\n8\n#frame 9 2 1\n1\n2\n
                || refused 5 count | start pixels frames, matrix 2 x 1, positions in cells, counted sum max x:cells sigma_x:cells y:cells sigma_y:cells
                | 1: 5 6 | 2: 7 8
                | start pixels frames, matrix 2 x 1, positions in cells, sum max x:cells sigma_x:cells y:cells sigma_y:cells | 9: 1 2
            spots with times have them         || time_s,x_mm,y_mm,mu\n0.5,3,4,20\n0.7,3,4,21\n
                || start spots x:mm y:mm mu | 0.5: 3 4 20 | 0.7: 3 4 21
            a recording of readings without times || #corvale 1\n#channels a,b\n#unit nA,\na_nA,b\n3,4\n5,6\n
                || > counted a:nA b | 1: 3 4 | 2: 5 6
            channels as the library saves them || hannel__timestamp(s),hannel_,annel__timestamp(s),annel_,\n1.000e+00,5.000e+00,1.000e+00,7.000e+00,\n2.000e+00,6.000e+00,1.500e+00,8.000e+00,\n,,3.000e+00,9.000e+00,\n
                || > channel_1 channel_2 | 1: 5 7 | 1.5: - 8 | 2: 6 - | 3: - 9
            more than seven of them
                || hannel__timestamp(s),hannel_,annel__timestamp(s),annel_,nnel__timestamp(s),nnel_,nel__timestamp(s),nel_,el__timestamp(s),el_,l__timestamp(s),l_,__timestamp(s),_,_timestamp(s),,_timestamp(s),,\n1,1,1,2,1,3,1,4,1,5,1,6,1,7,1,8,1,9,\n
                || > channel_1 channel_2 channel_3 channel_4 channel_5 channel_6 channel_7 channel_8 channel_9 | 1: 1 2 3 4 5 6 7 8 9
            a recording
                || #corvale 1\n#layout pixels\n#channels r01c01,r01c02\n#unit pC,pC\ntime_s,r01c01_pC,r01c02_pC\n0,1,2\n#event hello\n1,,4\n
                || event hello | start pixels r01c01:pC r01c02:pC | 0: 1 2 | 1: - 4
            a recorded channel called frame
                || #corvale 1\n#layout channels\n#channels frame,a_b_A\n#unit ,\ntime_s,frame,a_b_A\n0,1,2\n
                || > frame a_b_A | 0: 1 2
            a damaged line                     || time_s,a\n0,1\n1,oops\n2,3\n || refused 3 ? | > a | 0: 1 | 2: 3
            empty                              ||  ||
            a header alone                     || time_s,a\n ||
        )");
        row("returns and a byte order mark", "\xef\xbb\xbftime_s,a\r\n0,1\r\n1,2\r\n",
            "> a | 0: 1 | 1: 2");
        row("columns without a name", "time_s,, \x01,b\n0,1,2,3\n1,4,5,6\n",
            "> column2 column3 b | 0: 1 2 3 | 1: 4 5 6");
        row("names with blanks and what cannot be seen at their ends",
            "time_s,a \x01,\xc2\xa0 b\x02 \x03 c\t\n0,1,2\n1,3,4\n", "> a b c | 0: 1 2 | 1: 3 4");
        row("zeros and a picture", "\x01\x02\n\x89PNG\n", "");
    }

    void tablesBecomeReadings()
    {
        const QString path = file(cell("content").toUtf8());
        QString text = readAll(path).replace("start channels ", "> ").replace(" unreadable", " ?");
        if (qstrcmp(QTest::currentDataTag(), "zeros and a picture") == 0)
            QVERIFY(!text.contains('>') && !text.contains("start"));
        else
            QCOMPARE(text, cell("expected"));
        QCOMPARE(readAll(path, 1), readAll(path, 1000000));
    }

    void tablesOfOtherPrograms_data()
    {
        // With the option that the refusal names, or the one that is given, the table is read.
        tableFrom(R"(
            || content || why || import || expected
            semicolons and decimal commas || time;left (nA);right [nA]\n0;1,25;2,5\n0,5;1,5;\n
                || separated by semicolons and its numbers have a decimal comma || delimiter=semicolon,decimal=comma
                || > left:nA right:nA | 0: 1.25 2.5 | 0.5: 1.5 -
            bars || t|a\n0|1\n1|2\n || separated by bars || delimiter=bar || > a | 0: 1 | 1: 2
            semicolons alone || t;a\n0;1\n1;2\n || separated by semicolons || delimiter=semicolon || > a | 0: 1 | 1: 2
            dates with a zone || when,a\n2026-03-01T12:00:00.250Z,1\n2026-03-01T13:00:00.750123+01:00,2\n || times are dates
                || clock=utc || > a | 0.25: 1 | 0.750123: 2
            dates without a zone, in the second column || n,when,a\n1,2026-03-01 12:00:00,5\n2,2026-03-01 12:01:00,6\n
                || without a time zone || time=2,clock=local || > n a | 0: 1 5 | 60: 2 6
            dates of the country || Zeit;Strom (uA)\n01.03.2026 12:00:00;1,5\n01.03.2026 12:00:02;2,5\n
                || separated by semicolons and its numbers have a decimal comma and its times are dates
                || delimiter=semicolon,decimal=comma,clock=local,format=dd.MM.yyyy HH:mm:ss || > Strom:uA | 0: 1.5 | 2: 2.5
            no column holds the time || left_nA,right_nA\n1,2\n3,4\n5,6\n || left_nA is not a time || interval=0.001
                || > left:nA right:nA | 0: 1 2 | 0.001: 3 4 | 0.002: 5 6
            no column holds the time, and the unit of the first is not known || p (mbar),right_nA\n1,2\n3,4\n5,6\n
                || p (mbar) is not a time || interval=0.001 || > p (mbar) right:nA | 0: 1 2 | 0.001: 3 4 | 0.002: 5 6
            no column holds the time, and the first has degrees || temp_C,x_mm\n20,2\n21,4\n || temp_C is not a time
                || interval=0.001 || > temp_C x:mm | 0: 20 2 | 0.001: 21 4
            a time with a remark || Zeit (Sek.),a\n0,1\n1,2\n ||  ||  || > a | 0: 1 | 1: 2
            lines before the table || Instrument 7;\nmade in a hurry\ntime;a\n0;1\n1;2\n || semicolons
                || delimiter=semicolon,skip=2 || > a | 0: 1 | 1: 2
            no names and no times || 1,2\n3,4\n ||  || header=no,interval=1s || > ch1 ch2 | 0: 1 2 | 1: 3 4
            the time in another column and unit || a,ms\n1,0\n2,500\n ||  || time=2 || > a | 0: 1 | 500: 2
            a time in milliseconds || a_nA;time_ms\n1;0\n2;500\n || semicolons || delimiter=semicolon || > a:nA | 0: 1 | 0.5: 2
            comments of another kind || % made by hand\nt a\n0 1\n% a pause\n1 2\n ||  || comment=% || > a | 0: 1 | 1: 2
            bad rows stay bad, under their own numbers || when,a\n2026-03-01T12:00:00Z,1\nyesterday,2\n2026-03-01T12:00:02Z,x\n2026-03-01T12:00:03Z,4\n
                || times are dates || clock=utc || refused 3-4 ? | > a | 0: 1 | 3: 4
            a leap second is a second || when,a\n2016-12-31T23:59:59.5Z,1\n2016-12-31T23:59:60.25Z,2\n2017-01-01T00:59:60.75+01:00,3\n2017-01-01T00:00:00.125Z,4\n2017-01-01T00:00:01Z,5\n
                || times are dates || clock=utc
                || event leap second before 2017-01-01T00:00:00Z; later times count it | > a | 0.5: 1 | 1.25: 2 | 1.75: 3 | 2.125: 4 | 3: 5
            a second 60 is none in the middle of an hour or a month || when,a\n2016-12-31T12:00:00Z,1\n2016-12-31T12:30:60Z,2\n2016-12-30T23:59:60Z,3\n2016-12-31T12:00:02Z,4\n
                || times are dates || clock=utc || refused 3-4 ? | > a | 0: 1 | 2: 4
            degrees are no charge || t,temp_C,q_C\n0,20,1\n1,21,2\n ||  ||  || > temp_C q:C | 0: 20 1 | 1: 21 2
            letters of plates are no units || t,q_A,q_B,q_C,beam_A,beam_V\n0,1,2,3,4,5\n1,1,2,3,4,5\n ||  ||
                || > q_A q_B q_C beam:A beam:V | 0: 1 2 3 4 5 | 1: 1 2 3 4 5
            units in brackets || t,left (nA),"right [uA]",n (of)\n0,1,2,3\n1,1,2,3\n ||  ||
                || > left:nA right:uA n (of) | 0: 1 2 3 | 1: 1 2 3
        )");
        row("values in quotes",
            "\"time\",\"a, the \"\"first\"\" (pC)\"\n\"0\",\"1\"\n\"1\",\"2\"\n", "in quotes",
            "delimiter=comma", "> a; the \"first\":pC | 0: 1 | 1: 2");
    }
    void tablesOfOtherPrograms()
    {
        QFETCH(QString, why);
        QFETCH(QString, import);
        QFETCH(QString, expected);
        const QString path = file(cell("content").toUtf8());
        const QString refusal = readAll(path);
        if (!why.isEmpty()) {
            QVERIFY2(refusal.contains(why), qPrintable(refusal));
            QVERIFY2(refusal.contains("--import \"" + import + "\""), qPrintable(refusal));
        }
        for (const int piece : {1, 5, 100000}) {
            QString text = readAll(path, piece, import);
            QCOMPARE(text.replace("start channels ", "> ").replace(" unreadable", " ?"), expected);
        }
    }

    void otherEncodingsAreReadOrNamed_data()
    {
        columns<QByteArray, QString, QString>("content", "import", "read");
        const QByteArray latin1 = "t,str\xf6m (\xb5"
                                  "A)\n0,1\n1,2\n";
        const QString read = QString::fromUtf8("> ström:µA | 0: 1 | 1: 2");
        row("Latin-1", latin1, "", read);
        row("Latin-1 of another program", QByteArray(latin1).replace(',', ';'),
            "delimiter=semicolon", read);
        row("UTF-16", QByteArray("\xff\xfet\0,\0a\0\n\0", 10), "",
            "its text is written in UTF-16. Save the file as UTF-8");
        row("a time column that is none", QByteArray("t;a\n0;1\n1;2\n"),
            "delimiter=semicolon,time=3",
            "column 3 is said to hold the time, but the last column is 2");
        row("a form of dates with a comma", QByteArray("t;a\n1.3.26, 12:00;1\n1.3.26, 12:01;2\n"),
            "delimiter=semicolon,format=\"d.M.yy, HH:mm\",skip=0", "> a | 0: 1 | 60: 2");
    }
    void otherEncodingsAreReadOrNamed()
    {
        const QString text = readAll(file(cell<QByteArray>("content")), 100, cell("import"));
        QCOMPARE(QString(text).replace("start channels ", "> "), cell("read"));
        ImportOptions options, again;
        QString error;
        QVERIFY(ImportOptions::fromText(cell("import"), &options, &error));
        QVERIFY(ImportOptions::fromText(options.text(), &again, &error));
        QCOMPARE(again.text(), options.text());
    }

    void optionsThatMakeNoSenseAreNamed_data()
    {
        columns<QString, QString>("text", "error");
        row("an unknown word", "colour=red", "\"colour=red\" makes no sense");
        row("an unknown delimiter", "delimiter=dots", "\"delimiter=dots\"");
        row("a column that is none", "time=0", "\"time=0\"");
        row("an interval that is none", "interval=-1s", "\"interval=-1s\"");
        row("commas for both", "delimiter=comma,decimal=comma", "cannot be a comma");
        row("dates in no column", "time=none,clock=utc", "there is none");
    }
    void optionsThatMakeNoSenseAreNamed()
    {
        ImportOptions options;
        QString said;
        QVERIFY(!ImportOptions::fromText(cell("text"), &options, &said));
        QVERIFY2(said.contains(cell("error")), qPrintable(said));
    }

    //! From any place that a reader has passed, a reader goes on as that one did.
    void goesOnFromAnyPlace_data()
    {
        columns<QByteArray, QString>("content", "import");
        row("a recording",
            QByteArray(
                "#corvale 1\n#channels a,b\n#unit nA,\n#t0 2026-03-01T12:00:00Z\ntime_s,a_nA,b\n")
                + "0,1,2\n1,3,4\n#event x\n2,bad,0\n3,5,6\n4,7,8\n#corvale 1\n#channels "
                  "c\n0,9\n1,10\n2,11\n",
            "");
        row("frames, which are not begun in the middle",
            QByteArray("#corvale 2\n#unit nC\n#frame 0 2 2\n1,2\n3,4\n#frame 1 2 2\n5,6\n7,8\n"
                       "#frame 2 2 2\n9,8\n7,6\n#frame 3 2 2\n5,4\n3,2\n"),
            "");
        row("frames without times",
            QByteArray("#corvale 2\n#frame 2 1\n1\n2\n#frame 2 1\n3\nx\n#frame 2 1\n5\n6\n"
                       "#frame 2 1\n7\n#frame 2 1\n8\n9\n#frame 2 1\n1\n2\n"),
            "");
        row("spots", QByteArray("x_mm,y_mm,mu\n1,2,3\n2,3,4\n3,4,5\n4,5,6\n"), "");
        row("another program's", QByteArray("t;a\r\n0;1,5\r\n1;2,5\r\n2;3,5\r\n3;4,5\r\n"),
            "delimiter=semicolon,decimal=comma");
    }
    void goesOnFromAnyPlace()
    {
        QFETCH(QByteArray, content);
        const QString path = file(content);
        ImportOptions options;
        QString error;
        QVERIFY(ImportOptions::fromText(cell("import"), &options, &error));
        const auto readings = [](const TextSink &sink) {
            return sink.lines.filter(QRegularExpression("^[0-9.]+: "));
        };
        int entries = 0;
        for (int piece = 1; piece < content.size(); ++piece) {
            TextSink sink;
            CsvReader reader(sink);
            reader.setImport(options);
            QVERIFY(reader.open(path));
            reader.read(piece);
            const ReadPoint point = reader.readPoint();
            if (!point.isEntry)
                continue;
            ++entries;
            while (reader.read(1000)) { }
            const QStringList whole = readings(sink);
            const LineCounts counts = reader.counts();
            sink.lines.clear();
            QVERIFY(reader.resume(point));
            while (reader.read(1000)) { }
            const QStringList rest = readings(sink);
            QVERIFY2(whole.mid(whole.size() - rest.size()) == rest,
                     qPrintable(QString::number(piece) + ": " + sink.text()));
            QVERIFY2(rest.size() + point.row >= whole.size(),
                     qPrintable(QString("%1: %2").arg(piece).arg(sink.text())));
            QCOMPARE(reader.counts().lines, counts.lines);
            QCOMPARE(reader.counts().bad(), counts.bad());
        }
        QVERIFY(entries > 10);
    }

    //! Another thread that reads digits changes nothing, wherever pieces end and whatever lies between the plain lines.
    void readsAheadWhatItReads()
    {
        QByteArray text = "#corvale 2\n#channels a,b\n";
        for (int i = 0; i < 600; ++i) {
            const QByteArray number = QByteArray::number(i);
            text += number + (i % 7 == 0 ? " , -1.5e3,\r\n" : ",2.25," + number + '\n');
            if (i % 50 == 0)
                text += "oops,1\n\n#event " + number + "\n1,2,3,4\n1,2,3 \n+3,5," + number + "\n";
            if (i == 300)
                text += "#channels a,b,c\n301,1,2,3\n302,4,5,6\n#frame 303 2 2\n1,2\n3,4\n";
            if (i == 400)
                text += "#corvale 1\n#channels d,e\n";
        }
        text += "700,1,2\n#corvale 2\n";
        for (int i = 0; i < 100; ++i)
            text += "#frame " + QByteArray::number(i) + " 2 1\n1\n\n \n2\n";
        const QString path = file(text + "#frame 700 2 1\n1");
        QByteArray refused, refusedAhead;
        const QString expected = readAll(path, 5, {}, false, &refused);
        QVERIFY(expected.contains("| 599: 2.25 599") && refused.contains("|1,2,3|"));
        for (const int size : {1, 100, 999, 100000}) {
            QCOMPARE(readAll(path, size, {}, true, &refusedAhead), expected);
            QCOMPARE(refusedAhead, refused);
        }
    }

    void readsWhatASingleChannelModelSaves()
    {
        Corvale_Qt::RVXSingleChannelDataModel model;
        model.AddData(0.25, 1.5e-9);
        model.AddData(0.5, -2e-9);
        const QString path = m_dir.filePath("saved.csv");
        QVERIFY(model.SaveDataToFile(path));
        QCOMPARE(readAll(path), QString("start channels channel_1 | 0.25: 1.5e-09 | 0.5: -2e-09"));
    }

    //! Every length that a kill may leave: never a number that was not written.
    void aCutRecordingLosesItsLastLine()
    {
        const QByteArray whole = "#corvale 1\n#layout channels\n#channels a\n#unit "
                                 "nA\ntime_s,a_nA\n0,1.25\n1,2.25e-9\n2,3.25e-9\n";
        QString before;
        for (int size = whole.indexOf("0,1.25"); size <= whole.size(); ++size) {
            const QStringList items = readAll(file(whole.left(size))).split(" | ");
            for (const QString &item : items)
                QVERIFY2(QStringList(
                             {"", "start channels a:nA", "0: 1.25", "1: 2.25e-09", "2: 3.25e-09"})
                                 .contains(item)
                             || item.startsWith("event the recording's last line"),
                         qPrintable(item));
            before = items.last();
        }
        QCOMPARE(before, QString("2: 3.25e-09"));
    }

    void saysWhyAFileCannotBeRead()
    {
        QVERIFY(readAll(m_dir.filePath("missing.csv")).contains("No such file"));
        QCOMPARE(readAll(m_dir.path()), QString("it is not a regular file"));
    }

    void startsOver()
    {
        TextSink sink;
        CsvReader reader(sink);
        QVERIFY(reader.open(file("time_s,a\n0,1\n1,2\n")));
        while (reader.read(100)) { }
        const QString once = sink.text();
        sink.lines.clear();
        QVERIFY(reader.rewind());
        while (reader.read(100)) { }
        QCOMPARE(sink.text(), once);
        QCOMPARE(reader.counts().readings, qint64(4));
    }

    void wideTables_data()
    {
        // A table of that many columns, whose names are made of a pattern, the row and the column.
        tableFrom(R"(
            || pattern || int rows || int perRow || start
            channels are cut, and that is told     || c%1x%2 || 15 || 20
                || event 44 columns beyond the first 256 are left out | start channels c1x1
            cells of a matrix                      || r%1c%2_nA || 20 || 15
                || start pixels frames, matrix 20 x 15, positions in cells, sum:nA max:nA x:cells sigma_x:cells y:cells sigma_y:cells | 0: 0 1
            the largest matrix                     || r%1c%2 || 256 || 256
                || start pixels frames, matrix 256 x 256, positions in cells, sum max x:cells sigma_x:cells y:cells sigma_y:cells | 0: 0 1
            a matrix with more columns is no frame || r%1c%2 || 2 || 257
                || event 258 columns beyond the first 256 are left out | start channels r1c1
        )");
    }
    void wideTables()
    {
        QFETCH(int, rows);
        QFETCH(int, perRow);
        QFETCH(QString, start);
        QByteArray header = "time_s", row = "0";
        for (int i = 0; i < rows * perRow; ++i) {
            header += "," + cell("pattern").arg(i / perRow + 1).arg(i % perRow + 1).toUtf8();
            row += "," + QByteArray::number(i);
        }
        const QString text = readAll(file(header + "\n" + row + "\n"), 100000);
        QVERIFY2(text.startsWith(start), qPrintable(text.left(200)));
        const bool cut = start.startsWith("event");
        QVERIFY(text.endsWith(QString(" %1").arg(cut ? 255 : rows * perRow - 1)));
    }

    //! The rest of a frame that a kill left in a recording is reported, and does not count as a bad line.
    void aCutRecordingLosesItsLastFrame()
    {
        const QString text = readAll(file("#corvale 2\n#frame 0 2 1\n1\n2\n#frame 1 2 1\n3\n"));
        QCOMPARE(text.section(" | ", 0, 0),
                 QString("event the recording's last frame is incomplete and was left out"));
        QVERIFY(text.endsWith("| 0: 1 2"));
    }

    void knowsTheRealFiles_data()
    {
        tableFrom(R"(
            | path | start | qint64 readings
            currents                | bonn-proton-sem/currents_7ch.csv
                | start channels left:A right:A up:A down:A sum:A blm:A fc:A | 11258
            strips                  | lcls-otr-frames/strips_32x32.csv | start strips x01 x02 x03 | 10
            pixels                  | lcls-otr-frames/pixels_12x12.csv | start pixels r01c01 r01c02 | 10
            projections of an image | lcls-otr-frames/projections_350x262.csv
                | start strips frames, strips 350 + 262, positions in cells, sum max | 10
            spots                   | dcpt-spot-plans/plan01_spots.csv
                | start spots counted beam layer energy:MeV spot x:mm y:mm mu sigma_x:mm sigma_y:mm | 6069
        )");
    }
    void knowsTheRealFiles()
    {
        QFETCH(qint64, readings);
        const QString full = QStringLiteral(CORVALE_QT_DATA_DIR "/") + cell("path");
        if (!QFile::exists(full))
            QSKIP("the folder of real readings is not there");
        TextSink sink;
        CsvReader reader(sink);
        QVERIFY(reader.open(full));
        while (reader.read(100000)) { }
        QVERIFY2(sink.lines.first().startsWith(cell("start")), qPrintable(sink.lines.first()));
        QCOMPARE(reader.counts().readings, readings);
        QCOMPARE(reader.counts().bad(), qint64(0));
    }

private:
    QString file(const QByteArray &content)
    {
        putFile(m_dir.filePath("table.csv"), content);
        return m_dir.filePath("table.csv");
    }
    QTemporaryDir m_dir;
};

CORVALE_QT_TEST_MAIN(tst_CsvReader)
#include "tst_CsvReader.moc"
