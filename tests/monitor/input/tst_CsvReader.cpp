// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CsvReader.h"
#include "tests/monitor/support/TextSink.h"
#include "tests/support/Files.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/models/RVXSingleChannelDataModel.h>

using namespace Monitor;

static QString readAll(const QString &path, int pieceSize = 5)
{
    TextSink sink;
    CsvReader reader(sink);
    if (!reader.open(path))
        return reader.errorString();
    while (reader.read(pieceSize)) { }
    return sink.text();
}

class tst_CsvReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tablesBecomeReadings_data()
    {
        // In the expected text, ">" begins a stream of channels, and a line that cannot be read is refused with "?".
        columns<QString, QString>("content", "expected");
        row("plain",
            "time_s,left_A,x_mm\n0,1e-9,2\n0.5,2e-9,3\n",
            "> left:A x:mm | 0: 1e-09 2 | 0.5: 2e-09 3");
        row("no line end at the end", "time_s,a\n0,1\n1,25", "> a | 0: 1 | 1: 25");
        row("returns and a byte order mark",
            "\xef\xbb\xbftime_s,a\r\n0,1\r\n1,2\r\n",
            "> a | 0: 1 | 1: 2");
        row("suffixes that are no units",
            "t,foo_ABC,my_name,_A,b_uA\n0,1,2,3,4\n",
            "> foo_ABC my_name _A b:uA | 0: 1 2 3 4");
        row("strips",
            "frame,time_s,x01,x02,y01,y02\n0,0,1,2,3,4\n1,10,5,6,7,8\n",
            "start strips x01 x02 y01 y02 | 0: 1 2 3 4 | 10: 5 6 7 8");
        row("pixels", "time_s,r01c01,r01c02\n0,1,2\n", "start pixels r01c01 r01c02 | 0: 1 2");
        row("spots have a pace",
            "layer,energy_MeV,x_mm,y_mm,mu\n1,80.5,3,4,20\n1,80.5,5,6,21\n1,80.5,7,8,22\n",
            "start spots layer energy:MeV x:mm y:mm mu | 0: 1 80.5 3 4 20 | 0.02: 1 80.5 5 6 21 | "
            "0.04: 1 80.5 7 8 22");
        row("channels as the library saves them",
            "hannel__timestamp(s),hannel_,annel__timestamp(s),annel_,\n1.000e+00,5.000e+00,1.000e+"
            "00,7.000e+00,\n2.000e+00,6.000e+00,1.500e+00,8.000e+00,\n,,3.000e+00,9.000e+00,\n",
            "> channel_1 channel_2 | 1: 5 7 | 1.5: - 8 | 2: 6 - | 3: - 9");
        row("more than seven of them",
            "hannel__timestamp(s),hannel_,annel__timestamp(s),annel_,nnel__timestamp(s),nnel_,nel__"
            "timestamp(s),nel_,el__timestamp(s),el_,l__timestamp(s),l_,__timestamp(s),_,_timestamp("
            "s),,_timestamp(s),,\n1,1,1,2,1,3,1,4,1,5,1,6,1,7,1,8,1,9,\n",
            "> channel_1 channel_2 channel_3 channel_4 channel_5 channel_6 channel_7 channel_8 "
            "channel_9 | 1: 1 2 3 4 5 6 7 8 9");
        row("a recording",
            "#corvale 1\n#layout pixels\n#channels r01c01,r01c02\n#unit "
            "pC,pC\ntime_s,r01c01_pC,r01c02_pC\n0,1,2\n#event hello\n1,,4\n",
            "event hello | start pixels r01c01:pC r01c02:pC | 0: 1 2 | 1: - 4");
        row("a recorded channel called frame",
            "#corvale 1\n#layout channels\n#channels frame,a_b_A\n#unit "
            ",\ntime_s,frame,a_b_A\n0,1,2\n",
            "> frame a_b_A | 0: 1 2");
        row("columns without a name",
            "time_s,, \x01,b\n0,1,2,3\n1,4,5,6\n",
            "> column2 column3 b | 0: 1 2 3 | 1: 4 5 6");
        row("names with blanks and what cannot be seen at their ends",
            "time_s,a \x01,\xc2\xa0 b\x02 \x03 c\t\n0,1,2\n1,3,4\n",
            "> a b c | 0: 1 2 | 1: 3 4");
        row("a damaged line", "time_s,a\n0,1\n1,oops\n2,3\n", "refused 3 ? | > a | 0: 1 | 2: 3");
        row("empty", "", "");
        row("a header alone", "time_s,a\n", "");
        row("zeros and a picture", "\x01\x02\n\x89PNG\n", "");
    }

    void tablesBecomeReadings()
    {
        QFETCH(QString, content);
        QFETCH(QString, expected);
        const QString path = file(content.toUtf8());
        QString text = readAll(path).replace("start channels ", "> ").replace(" unreadable", " ?");
        if (qstrcmp(QTest::currentDataTag(), "zeros and a picture") == 0)
            QVERIFY(!text.contains('>') && !text.contains("start"));
        else
            QCOMPARE(text, expected);
        QCOMPARE(readAll(path, 1), readAll(path, 1000000));
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
        columns<QString, int, int, QString>("pattern", "rows", "perRow", "start");
        row("channels are cut, and that is told",
            "c%1x%2",
            15,
            20,
            "event 44 columns beyond the first 256 are left out | start channels c1x1");
        row("cells of a matrix",
            "r%1c%2_nA",
            20,
            15,
            "start pixels frames, matrix 20 x 15, positions in cells, sum:nA max:nA x sigma_x y "
            "sigma_y | 0: 0 1");
        row("the largest matrix",
            "r%1c%2",
            256,
            256,
            "start pixels frames, matrix 256 x 256, positions in cells, sum max x sigma_x y "
            "sigma_y | 0: 0 1");
        row("a matrix with more columns is no frame",
            "r%1c%2",
            2,
            257,
            "event 258 columns beyond the first 256 are left out | start channels r1c1");
    }
    void wideTables()
    {
        QFETCH(QString, pattern);
        QFETCH(int, rows);
        QFETCH(int, perRow);
        QFETCH(QString, start);
        QByteArray header = "time_s", row = "0";
        for (int i = 0; i < rows * perRow; ++i) {
            header += "," + pattern.arg(i / perRow + 1).arg(i % perRow + 1).toUtf8();
            row += "," + QByteArray::number(i);
        }
        const QString text = readAll(file(header + "\n" + row + "\n"), 100000);
        QVERIFY2(text.startsWith(start), qPrintable(text.left(200)));
        const bool cut = start.startsWith("event");
        QVERIFY(text.endsWith(QString(" %1").arg(cut ? 255 : rows * perRow - 1)));
    }

    //! The rest of a frame that a kill left in a recording is told, and is no bad line.
    void aCutRecordingLosesItsLastFrame()
    {
        const QString text = readAll(file("#corvale 2\n#frame 0 2 1\n1\n2\n#frame 1 2 1\n3\n"));
        QCOMPARE(text.section(" | ", 0, 0),
                 QString("event the recording's last frame is incomplete and was left out"));
        QVERIFY(text.endsWith("| 0: 1 2"));
    }

    void knowsTheRealFiles_data()
    {
        columns<QString, QString, qint64>("path", "start", "readings");
        row("currents",
            "bonn-proton-sem/currents_7ch.csv",
            "start channels left:A right:A up:A down:A sum:A blm:A fc:A",
            qint64(11258));
        row("strips", "lcls-otr-frames/strips_32x32.csv", "start strips x01 x02 x03", qint64(10));
        row("pixels", "lcls-otr-frames/pixels_12x12.csv", "start pixels r01c01 r01c02", qint64(10));
        row("projections of an image",
            "lcls-otr-frames/projections_350x262.csv",
            "start strips frames, strips 350 + 262, positions in cells, sum max",
            qint64(10));
        row("spots",
            "dcpt-spot-plans/plan01_spots.csv",
            "start spots beam layer energy:MeV spot x:mm y:mm mu sigma_x:mm sigma_y:mm",
            qint64(6069));
    }
    void knowsTheRealFiles()
    {
        QFETCH(QString, path);
        QFETCH(QString, start);
        QFETCH(qint64, readings);
        const QString full = QStringLiteral(CORVALE_QT_DATA_DIR "/") + path;
        if (!QFile::exists(full))
            QSKIP("the folder of real readings is not there");
        TextSink sink;
        CsvReader reader(sink);
        QVERIFY(reader.open(full));
        while (reader.read(100000)) { }
        QVERIFY2(sink.lines.first().startsWith(start), qPrintable(sink.lines.first()));
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
