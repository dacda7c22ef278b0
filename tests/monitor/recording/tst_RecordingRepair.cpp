// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CsvReader.h"
#include "monitor/input/ZstdFrames.h"
#include "monitor/recording/RecordingFile.h"
#include "monitor/recording/RecordingRepair.h"
#include "monitor/recording/SegmentCompressor.h"
#include "monitor/recording/SpaceForecast.h"
#include "monitor/recording/ZstdSegments.h"
#include "tests/monitor/support/ReadTable.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

#include <atomic>
#include <thread>

using namespace Monitor;

//! What happens to the files of a recording once they are written: compression, damage and repair.
class tst_RecordingRepair : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void compressionHarmsNothing()
    {
        QString error;
        const QString target = completedPath(path("plain.csv"), SegmentForm::Zstd);
        putFile(path("plain.csv"), "0,1\n");
        putFile(target, "another");
        QVERIFY(!convertSegment(path("plain.csv"), zstdConversion(), &error));
        QCOMPARE(fileContents(path("plain.csv")), QByteArray("0,1\n"));
        QCOMPARE(fileContents(target), QByteArray("another"));
        QVERIFY2(error.contains("exists already"), qPrintable(error));
        QVERIFY(!QFile::exists(target + ".part"));
        error.clear();
        QVERIFY(!convertSegment(path("not-there.csv"), zstdConversion(), &error));

        // No recorder may write to a file in work; cancelled work leaves the file, and no draft of the other.
        putFile(path("again.csv"), "0,1\n");
        int asked = 0;
        QVERIFY(!convertSegment(path("again.csv"), zstdConversion(), &error, [&](double) {
            RecordingFile recording;
            const bool open = recording.open(path("again.csv"), RecordingFile::Existing::Replace);
            return !open && ++asked < 2;
        }));
        QCOMPARE(asked, 2);
        QCOMPARE(fileContents(path("again.csv")), QByteArray("0,1\n"));
        QCOMPARE(QDir(m_dir.path()).entryList({"again*"}, QDir::Files), QStringList("again.csv"));
        QVERIFY2(convertSegment(path("again.csv"), zstdConversion(), &error), qPrintable(error));
        QCOMPARE(QDir(m_dir.path()).entryList({"again*"}, QDir::Files),
                 QStringList("again.csv.zst"));
    }

    void whatIsLostIsSaid_data()
    {
        tableFrom(R"(
            | QByteArray tail | places | last
            nothing                                        | 3,4\n |  | 3: 4
            a wrong line                                   | 3,4\n4;5\n5,6\n | lost: 1 line (9), after 3 s, before 5 s: * | 5: 6
            lines together                                 | x\ny\n1e,2\n3,4\n4,5\n
                | lost: 3 lines (8 to 10), after 2 s, before 3 s: * | 4: 5
            a line whose time goes back before a wrong one | 1,7\nx\n3,4\n4,5\n
                | lost: 2 lines (8 to 9), after 2 s, before 3 s: * | 4: 5
            the end of a part                              | x\n#corvale 1\n#channels a\n7,4\n8,5\n
                | lost: 1 line (8), after 2 s, before another part begins: * | 8: 5
            the end                                        | x\n | lost: 1 line (8), after 2 s, before the end of the file: *
                | 2: 3
            cut off                                        | 3,4 | lost: the recording's last line is incomplete* | 2: 3
        )");
        row("zeros after a power cut", QByteArray(100, '\0'),
            "lost: the recording's last line is incomplete*", "2: 3");
        row("zeros in the middle", QByteArray(100, '\0') + "\n3,4\n4,5\n",
            "lost: 1 line (8), after 2 s, before 3 s: *", "4: 5");
    }
    //! The copy has everything that is left and says what is not; the recording stays as it was.
    void whatIsLostIsSaid()
    {
        QFETCH(QString, places);
        const QByteArray text = "#corvale 1\n# source: tcp://here\n#channels a\n#t0 "
                                "2026-03-01T12:00:00.000Z\n0,1\n1,2\n2,3\n"
            + cell<QByteArray>("tail");
        putFile(path("damaged.csv"), text);
        QFile::remove(path("damaged-repaired.csv"));
        RecordingDamage damage;
        QString copy, error;
        QVERIFY2(repairRecording(path("damaged.csv"), &copy, &damage, &error), qPrintable(error));
        QCOMPARE(fileContents(path("damaged.csv")), text);
        QCOMPARE(copy, path("damaged-repaired.csv"));
        const QString said = damage.places.join('|');
        QCOMPARE(damage.isInside, damage.lostLines > 0); // an unfinished end is no damage
        QVERIFY2(QRegularExpression(QRegularExpression::wildcardToRegularExpression(places))
                     .match(said)
                     .hasMatch(),
                 qPrintable(said));
        const QString read = readTable(copy);
        QVERIFY2(places.isEmpty() || read.contains("event lost: "), qPrintable(read));
        QVERIFY2(!read.contains("event the recording"), qPrintable(read));
        QVERIFY2(read.contains(" | 2: 3") && !read.contains("refused"), qPrintable(read));
        QVERIFY(read.contains(cell("last")));
        QVERIFY(fileContents(copy).contains("# source: tcp://here; repaired from damaged.csv\n"));
        QVERIFY(fileContents(copy).contains("#t0 2026-03-01T12:00:00.000Z"));
        RecordingDamage none;
        QVERIFY(examineRecording(copy, {}, &none, &error));
        QVERIFY(none.isEmpty());
        QCOMPARE(none.readings, damage.readings);
        // A second copy has another name.
        QVERIFY(repairRecording(path("damaged.csv"), &copy, &damage, &error));
        QCOMPARE(copy, path("damaged-repaired-2.csv"));
        QVERIFY(QFile::remove(copy));
    }

    //! Another program may cut a file at any moment while it is read; a mapped file would end the program then.
    void aFileThatIsCutMeanwhileIsReadAsFarAsItGoes()
    {
        QByteArray text;
        std::mt19937 random(2);
        while (text.size() < 5000000)
            text += QByteArray::number(quint32(random())) + '\n';
        putFile(path("cut.csv"), text);
        QString error;
        QVERIFY2(convertSegment(path("cut.csv"), zstdConversion(), &error), qPrintable(error));
        const QByteArray whole = fileContents(path("cut.csv.zst"));
        const int half = whole.size() / 2;
        std::atomic<bool> ended = false;
        std::thread other([&] {
            QFile file(path("cut.csv.zst"));
            for (bool open = file.open(QIODevice::ReadWrite); open && !ended;) {
                file.resize(half);
                file.seek(half);
                file.write(whole.mid(half));
                file.flush();
            }
        });
        QFile file(path("cut.csv.zst"));
        const bool open = file.open(QIODevice::ReadOnly);
        for (int i = 0; open && i < 200; ++i) {
            ZstdFrames frames(file);
            frames.textSize();
            frames.seek(4500000);
            frames.skipDamage();
        }
        ended = true;
        other.join();
        QVERIFY(open);
        QCOMPARE(ZstdFrames(file).textSize(), qint64(text.size()));
    }

    void nothingIsNoCopy()
    {
        putFile(path("hopeless.csv"), "x\ny\n");
        RecordingDamage damage;
        QString copy, error;
        QVERIFY(!repairRecording(path("hopeless.csv"), &copy, &damage, &error));
        QVERIFY2(error.startsWith("nothing of"), qPrintable(error));
        QVERIFY(!QFile::exists(path("hopeless-repaired.csv")));
    }

    //! Wherever a compressed recording is damaged, no more than the frame is lost, and nothing wrong is read.
    void aDamagedCompressedFileLosesOneFrame()
    {
        constexpr int readings = 60000;
        QByteArray text = "#corvale 1\ntime_s,a\n";
        std::mt19937 random(1);
        for (int i = 0; i < readings; ++i)
            text += QByteArray::number(i) + ',' + QByteArray::number(quint32(random())) + '\n';
        putFile(path("frames.csv"), text);
        QString error, copy;
        // If a link takes the place of the draft, nothing is written to its target.
        putFile(path("mine.txt"), "mine");
        QVERIFY(QFile::link(path("mine.txt"), path("frames.csv.zst.part")));
        QVERIFY2(convertSegment(path("frames.csv"), zstdConversion(), &error), qPrintable(error));
        QCOMPARE(fileContents(path("mine.txt")), QByteArray("mine"));
        const QByteArray whole = fileContents(path("frames.csv.zst"));
        const auto listed = text.split('\n');
        const QSet<QByteArray> lines(listed.begin(), listed.end());
        for (const double at : {0.25, 0.6, 0.99}) {
            QByteArray bytes = whole;
            const int place = int(bytes.size() * at);
            bytes[place] = char(bytes[place] ^ 0x04);
            putFile(path("broken.csv.zst"), bytes);
            RecordingDamage damage;
            QVERIFY2(repairRecording(path("broken.csv.zst"), &copy, &damage, &error),
                     qPrintable(error));
            QVERIFY(damage.readings > readings / 2 && damage.readings < readings);
            const QString said = damage.places.join('|');
            QString where("before the first reading$");
            if (at > 0.3)
                where = at < 0.9 ? "after \\d+ s, before \\d+ s$" : "after \\d+ s$";
            const QRegularExpression lost("\\d+ bytes of text are lost, " + where);
            QVERIFY2(said.contains(lost), qPrintable(said));
            // Each reading that is left is one of the recording, however plausible a wrong one would be.
            for (const QByteArray &line : fileContents(copy).split('\n')) {
                const bool isHeader = line.startsWith('#') || line.startsWith("time_s");
                QVERIFY2(isHeader || lines.contains(line), line);
            }
            TextSink sink;
            CsvReader reader(sink);
            QVERIFY(reader.open(copy));
            while (reader.read(100000)) { }
            QCOMPARE(reader.counts().readings, damage.readings);
            QCOMPARE(reader.counts().bad(), qint64(0));
            QVERIFY(QFile::remove(copy));
        }
    }

    void forecastsAFullDisk()
    {
        SpaceForecast space;
        QVERIFY(!space.secondsLeft());
        for (int i = 0; i < 200; ++i)
            space.note(i, qint64(1000) * i, 1000000);
        QVERIFY(std::abs(*space.secondsLeft() - 1000.0) < 1e-6);
        space.note(200, 203000, 1000000);
        QVERIFY(*space.secondsLeft() > 900.0); // a second is no rate
        for (int i = 201; i < 500; ++i)
            space.note(i, 203000 + qint64(4000) * (i - 200), 1000000);
        QVERIFY(std::abs(*space.secondsLeft() - 250.0) < 1.0);
        space.note(499, 203000 + qint64(4000) * 299, 500000); // at once
        QVERIFY(std::abs(*space.secondsLeft() - 125.0) < 1.0);
        space.note(500, 1000, 500000); // another recording
        QVERIFY(std::abs(*space.secondsLeft() - 125.0) < 1.0);
        QCOMPARE(SpaceForecast::text(30.0), QString("less than a minute"));
        QCOMPARE(SpaceForecast::text(7000.0), QString("116 min"));
        QCOMPARE(SpaceForecast::text(7300.0), QString("2 h"));
        QCOMPARE(SpaceForecast::text(100000.0), QString("27 h"));
        QCOMPARE(SpaceForecast::text(1e6), QString("11 d"));
        QCOMPARE(SpaceForecast::text(1e9), QString("over a year"));
    }

private:
    QString path(const char *name) { return m_dir.filePath(QLatin1String(name)); }
    QTemporaryDir m_dir;
};

CORVALE_QT_TEST_MAIN(tst_RecordingRepair)
#include "tst_RecordingRepair.moc"
