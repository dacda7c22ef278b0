// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/TablePreview.h"
#include "monitor/nexus/NexusFiles.h"
#include "monitor/recording/RecordingRepair.h"
#include "monitor/recording/ZstdSegments.h"
#include "monitor/sources/PgmSource.h"
#include "monitor/tape/TapeCache.h"
#include "tests/monitor/support/ReadTable.h"
#include "tests/monitor/support/Recording.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

using namespace Monitor;

//! Which files a recorder writes to: their names and permissions, and where it goes on if one is full, old or gone.
class tst_RecordingFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_dir = std::make_unique<QTemporaryDir>(); }

    void convertsWhatIsComplete_data()
    {
        columns<int, QString>("form", "suffix");
        row("compressed", int(SegmentForm::Zstd), ".csv.zst");
        row("HDF5", int(SegmentForm::Hdf5), ".h5");
    }
    //! Files that are complete are compressed, and read back as what was recorded.
    void convertsWhatIsComplete()
    {
        QFETCH(int, form);
        QFETCH(QString, suffix);
        if (form == int(SegmentForm::Hdf5) && !nexusMissing().isEmpty())
            QSKIP("the monitor was built without HDF5");
        Recording file(path("packed.csv"));
        file.options.segments = SegmentForm(form);
        file.options.rotateBytes = 300;
        file.options.rotateSeconds = 1000.0;
        QVERIFY(file.begin());
        for (int i = 0; i < 3; ++i) {
            file.recorder().addReadings(block(100.0 * i, 50));
            file.clock.advance(2.0);
        }
        QVERIFY(file.recorder().finish());
        file.compressor.finish();
        QVERIFY(file.notes.isEmpty() && file.compressor.takeErrors().isEmpty());
        const QStringList files =
            QDir(m_dir->path()).entryList({"packed*"}, QDir::Files, QDir::Name);
        QCOMPARE(files.join(' '),
                 QString("packed-2%1 packed-3%1 packed-4%2 packed%1")
                     .arg(suffix, form == int(SegmentForm::Hdf5) ? ".csv" : suffix));
        for (int i = 0; i < 3; ++i) {
            const QString name =
                i == 0 ? "packed" + suffix : QString("packed-%1").arg(i + 1) + suffix;
            const QString text = readTable(m_dir->filePath(name));
            QVERIFY2(text.startsWith("start channels left:nA right"), qPrintable(text));
            QVERIFY(text.endsWith(QString("%1: %1 0.5").arg(100 * i + 49)));
            QVERIFY(!text.contains("refused"));
        }
        // The name is taken, although the file itself is gone.
        Recording again(path("packed.csv"));
        again.options.segments = SegmentForm(form);
        QVERIFY(!again.begin());
        QVERIFY(again.recorder().error().shown().contains("packed" + suffix + " exists already"));
        // A recorder that may overwrite replaces the complete file, too.
        Recording told(path("packed.csv"), true);
        told.options.segments = SegmentForm(form);
        QVERIFY(told.begin());
        QVERIFY(
            !QFile::exists(m_dir->filePath("packed" + suffix))); // a kill leaves no two that differ
        told.recorder().addReadings(block(7000.0, 2));
        QVERIFY(told.recorder().finish());
        told.compressor.finish();
        QCOMPARE(told.compressor.takeErrors(), QStringList());
        QVERIFY(!QFile::exists(path("packed.csv")));
        QVERIFY(readTable(m_dir->filePath("packed" + suffix)).endsWith("7001: 7001 0.5"));
    }

    //! A pipe would block the program for ever, and a link may be one of the system.
    void compressesOnlyRegularFiles()
    {
        QCOMPARE(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
        putFile(path("target.csv"), "0,1\n");
        QVERIFY(QFile::link(path("target.csv"), path("link.csv")));
        for (const char *name : {"pipe", "link.csv"}) {
            QString error;
            QVERIFY(!convertSegment(path(name), zstdConversion(), &error));
            QVERIFY2(error.contains("only regular files"), qPrintable(error));
            QVERIFY(QFileInfo(path(name)).isSymLink() || QFileInfo::exists(path(name)));
        }
    }

    //! Nobody writes to this pipe, so that a read of it would not end. A window on one could not be closed.
    void noPipeIsReadAsAFile()
    {
        QCOMPARE(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
        RecordingDamage damage;
        QString error;
        QVERIFY(!examineRecording(path("pipe"), {}, &damage, &error));
        QVERIFY2(error.contains("not a regular file"), qPrintable(error));
        QVERIFY(TapeCache(path("pipe"), {}, m_dir->path()).load().isEmpty());
        QVERIFY(!PgmSource::suits(path("pipe")) && !isHdf5File(path("pipe")));
        QVERIFY(sampleOf(path("pipe")).isEmpty());
    }

    void opensNoExistingFile()
    {
        putFile(path("a.csv"), "precious");
        Recording careful(path("a.csv"));
        QVERIFY(!careful.begin());
        QVERIFY(careful.recorder().error().shown().contains("exists already"));
        QCOMPARE(fileContents(path("a.csv")), QByteArray("precious"));

        Recording told(path("a.csv"), true);
        QVERIFY(told.begin());
        told.recorder().addReadings(block(0, 1));
        QVERIFY(told.recorder().finish());
        QCOMPARE(readTable(path("a.csv")), QString("start channels left:nA right | 0: 0 0.5"));

        Recording nowhere(path("no/such/folder/a.csv"), true);
        QVERIFY(!nowhere.begin());
        QVERIFY(nowhere.recorder().error().shown().contains("cannot be written"));
    }

    void namesFilesInAFolder()
    {
        Recording first(m_dir->path()), second(m_dir->path()); // their clocks say 12:01:40
        QVERIFY(first.begin() && second.begin());
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files).join(' '),
                 QString("corvale-20260301-120140-2.csv corvale-20260301-120140.csv"));
    }

    void rotates_data()
    {
        columns<double, qint64>("seconds", "bytes");
        row("by time", 5.0, qint64(0));
        row("by size", 0.0, qint64(180));
    }
    void rotates()
    {
        QFETCH(qint64, bytes);
        Recording r(path("a%2.csv")); // is no place for a number
        r.options.rotateSeconds = cell<double>("seconds");
        r.options.rotateBytes = bytes;
        QVERIFY(r.begin());
        for (int i = 0; i < 20; ++i) {
            r.recorder().addReadings(block(i, 1));
            r.clock.advance(1.0);
        }
        QVERIFY(r.recorder().finish());
        // Every file reads alone, and together they hold all readings once.
        const int files = QDir(m_dir->path()).entryList(QDir::Files).size();
        QVERIFY(files >= 3);
        QStringList all;
        for (int i = 1; i <= files; ++i) {
            const QString file =
                m_dir->filePath(i == 1 ? "a%2.csv" : "a%2-" + QString::number(i) + ".csv");
            QVERIFY(i == files || QFileInfo(file).size() >= bytes);
            QStringList lines = readTable(file).split(" | ");
            if (lines.first().isEmpty())
                continue; // begun with the last tick, and no reading came
            QCOMPARE(lines.takeFirst(), QString("start channels left:nA right"));
            all += lines;
        }
        QStringList expected;
        for (int i = 0; i < 20; ++i)
            expected << QString("%1: %1 0.5").arg(i);
        QCOMPARE(all, expected);
    }

    //! However fast readings come, a file ends with the line that makes it large enough.
    void aFloodRotatesToTheLine()
    {
        constexpr int rows = 180000, rowsOfBlock = 6000, size = 1000000;
        Recording r(path("a.csv"));
        r.options.rotateBytes = size;
        QVERIFY(r.begin());
        for (int i = 0; i < rows; i += rowsOfBlock)
            r.recorder().addReadings(block(1e6 + i, rowsOfBlock));
        QVERIFY(r.recorder().finish());
        int next = 0, files = 0;
        for (QByteArray name = "a.csv"; QFile::exists(path(name));
             name = "a-" + QByteArray::number(files + 1) + ".csv") {
            const QByteArray text = fileContents(path(name));
            ++files;
            QVERIFY(text.startsWith("#corvale 1\n") && text.endsWith('\n'));
            QVERIFY(text.lastIndexOf('\n', -2) < size
                    && (text.size() >= size || next + text.count('\n') >= rows));
            for (const QByteArray &line : text.split('\n'))
                if (line.endsWith(",0.5"))
                    QCOMPARE(line.left(line.indexOf(',')).toDouble(), 1e6 + next++);
        }
        QCOMPARE(next, rows);
        QVERIFY(files >= 4);
    }

    void anotherAcquisitionIsAnotherFile()
    {
        Recording r(path("a.csv"));
        Recorder &recorder = r.recorder();
        QVERIFY(r.begin());
        recorder.addReadings(block(5, 2));
        recorder.addEvent(QString("beam off"));
        recorder.startStream(twoChannels());
        recorder.addReadings(block(0, 1));
        QVERIFY(recorder.finish());
        QCOMPARE(readTable(path("a.csv")),
                 QString("start channels left:nA right | 5: 5 0.5 | 6: 6 0.5 | event beam off"));
        QCOMPARE(readTable(path("a-2.csv")), QString("start channels left:nA right | 0: 0 0.5"));
    }

    void goesOnInAFileThatCanBeFound_data()
    {
        // The command runs in the folder above run/, which holds the recording. The last column is what became of the
        // first file, in TextSink's words.
        columns<bool, QString, QString, QString>("toFolder", "command", "said", "before");
        const QString gone = "was removed or renamed";
        const QString one = "start channels left:nA right | 0: 0 0.5";
        const QString other = "start channels ch1 ch2 | 7: 8 9";
        row("the file is removed", false, "rm run/a.csv", gone, QString());
        row("the file is renamed", false, "mv run/a.csv kept.csv", gone, one);
        row("the folder is removed", false, "rm -r run", gone, QString());
        row("the folder is renamed", false, "mv run old; cp old/a.csv kept.csv", gone, one);
        row("a file takes its place", false,
            "echo 7,8,9 > other; mv other run/a.csv; cp run/a.csv kept.csv",
            "was replaced by another file", other);
        row("another program writes into it", false,
            "echo 7,8,9 > run/a.csv; cp run/a.csv kept.csv", "was changed by another program",
            other);
        row("the folder of many is renamed", true, "mv run old; cp old/*.csv kept.csv", gone, one);
    }
    void goesOnInAFileThatCanBeFound()
    {
        QFETCH(QString, before);
        QVERIFY(QDir(m_dir->path()).mkdir(QString("run")));
        Recording r(path(cell<bool>("toFolder") ? "run" : "run/a.csv"));
        r.options.rotateSeconds = 3600.0;
        Recorder &recorder = r.recorder();
        QVERIFY(r.begin());
        recorder.addReadings(block(0, 1));
        r.clock.advance(0.6);
        const QString shell = QString("cd '%1' && { %2; }").arg(m_dir->path(), cell("command"));
        QCOMPARE(std::system(qPrintable(shell)), 0);
        recorder.addReadings(block(1, 2));
        r.clock.advance(1.0); // twice as early as promised
        QCOMPARE(r.notes.size(), 1);
        QVERIFY2(r.notes.first().contains(cell("said")), qPrintable(r.notes.first()));
        QVERIFY(recorder.error().isEmpty());
        recorder.addReadings(block(3, 1));
        QVERIFY(recorder.finish());

        const QFileInfo now(recorder.fileName());
        QCOMPARE(now.path(), path("run"));
        QCOMPARE(now.suffix(), QString("csv"));
        const QString text = readTable(now.filePath());
        QVERIFY2(text.startsWith(QString("event recording: ")), qPrintable(text));
        QVERIFY2(text.endsWith(QStringLiteral(
                     "start channels left:nA right | 1: 1 0.5 | 2: 2 0.5 | 3: 3 0.5")),
                 qPrintable(text));
        if (!before.isEmpty())
            QCOMPARE(readTable(path("kept.csv")), before);
    }

    void aFileIsOneRecordersOnly()
    {
        Recording first(path("a.csv"), true), second(path("a.csv"), true);
        QVERIFY(first.begin());
        first.recorder().addReadings(block(0, 1));
        first.clock.advance(1.0);
        QVERIFY(!second.begin());
        QVERIFY(second.recorder().error().shown().contains("another recorder"));
        QVERIFY(first.recorder().finish());
        QCOMPARE(readTable(path("a.csv")), QString("start channels left:nA right | 0: 0 0.5"));
        QVERIFY(second.begin());
    }

    void aStreamThatStartsOverMakesFewFiles()
    {
        Recording r(path("a.csv"));
        Recorder &recorder = r.recorder();
        QVERIFY(recorder.start());
        const auto files = [this] { return QDir(m_dir->path()).entryList(QDir::Files).size(); };
        const auto startOver = [&] {
            recorder.startStream(twoChannels());
            recorder.addReadings(block(0, 2));
        };
        for (int i = 0; i < 500; ++i) { // 5 s
            startOver();
            r.clock.advance(0.01);
        }
        QVERIFY2(files() >= 5 && files() <= 6, qPrintable(QString::number(files())));
        for (int i = 0; i < 500; ++i) {
            startOver();
            r.clock.advance(1.5);
        }
        QCOMPARE(files(), 1 + Recorder::maxStreamFiles);
        QCOMPARE(r.notes.size(), 1);
        QVERIFY(r.notes.first().contains("a-101.csv"));
        QVERIFY(recorder.finish());
        QCOMPARE(recorder.fileName(), path("a-101.csv"));
        // Every stream is there under its own header.
        int streams = 0, readings = 0;
        for (const QFileInfo &file : QDir(m_dir->path()).entryInfoList(QDir::Files)) {
            const QString text = readTable(file.filePath());
            streams += text.count(QString("start channels"));
            readings += text.count(QString(" 0.5"));
        }
        QCOMPARE(streams, 1000);
        QCOMPARE(readings, 2000);
    }

    //! Files of a minute each, in a folder where the date and the time of day name them, while the clock is set.
    void rotatesWhateverTheClockSays_data()
    {
        columns<QDateTime, QDateTime, QString>("begin", "then", "fifthFile");
        const auto time = [](int day, int hour, int minute, int second = 0) {
            return QDateTime(QDate(2026, 2, 28).addDays(day), QTime(hour, minute, second), Qt::UTC);
        };
        row("a month ends", time(0, 23, 57), QDateTime(), "20260301-000100");
        row("an hour back", time(0, 12, 0), time(0, 11, 2), "20260228-110400");
        row("back to the names of before", time(0, 12, 0), time(0, 12, 0), "20260228-120200");
        row("a year back", time(0, 12, 0), time(-365, 12, 0), "20250228-120200");
        row("ten years on", time(0, 12, 0), time(3652, 12, 0), "20360228-120200");
    }
    void rotatesWhateverTheClockSays()
    {
        QFETCH(QDateTime, begin);
        QFETCH(QDateTime, then);
        Recording r(m_dir->path());
        r.options.rotateSeconds = 60.0;
        r.clock.setWallTime(begin);
        QVERIFY(r.begin());
        QStringList files{r.recorder().fileName()};
        connect(&r.recorder(), &Recorder::fileStarted, this,
                [&files](const QString &file) { files.append(file); });
        constexpr int seconds = 300;
        for (int i = 0; i < seconds; ++i) {
            if (i == 120 && then.isValid())
                r.clock.setWallTime(then);
            r.recorder().addReadings(block(i, 1));
            r.clock.advance(1.0);
        }
        QVERIFY(r.recorder().finish());
        QVERIFY2(r.notes.isEmpty(), qPrintable(r.notes.join('\n')));
        QCOMPARE(QSet<QString>(files.begin(), files.end()).size(), files.size());
        QVERIFY(files.size() >= 5 && files.size() <= 6);
        QTEST(QFileInfo(files[4]).baseName().mid(8), "fifthFile");
        QStringList readings, expected;
        for (const QString &file : files)
            readings += readTable(file).split(" | ").filter(" 0.5");
        for (int i = 0; i < seconds; ++i)
            expected << QString("%1: %1 0.5").arg(i);
        QCOMPARE(readings, expected);
    }

    void permissions_data()
    {
        columns<int, int, int>("mode", "mask", "permissions");
        row("the group reads", int(RecordingFile::usualMode), 0022, 0640);
        row("a strict user", int(RecordingFile::usualMode), 0077, 0600);
        row("everybody reads", 0644, 0022, 0644);
        row("what the mask takes away", 0666, 0027, 0640);
    }
    void permissions()
    {
        QFETCH(int, mode);
        for (const bool compress : {false, true}) {
            Recording r(path(compress ? "packed.csv" : "plain.csv"));
            r.options.mode = unsigned(mode);
            r.options.segments = compress ? SegmentForm::Zstd : SegmentForm::Text;
            const mode_t before = ::umask(mode_t(cell<int>("mask")));
            const bool begun = r.begin();
            r.recorder().addReadings(block(0, 3));
            const bool finished = r.recorder().finish();
            r.compressor.finish();
            ::umask(before);
            QVERIFY(begun && finished);
            struct stat status = {};
            const QString file = r.options.path + (compress ? ".zst" : "");
            QCOMPARE(::stat(QFile::encodeName(file).constData(), &status), 0);
            QCOMPARE(int(status.st_mode & 07777U), cell<int>("permissions"));
        }
    }

    //! A link in a folder for everybody may lead to what is precious to this user.
    void linksOfOthersAreNotFollowed()
    {
        putFile(path("precious"), "precious");
        QVERIFY(QFile::link(path("precious"), path("a.csv")));
        Recording careful(path("a.csv"));
        QVERIFY(!careful.begin());
        QCOMPARE(fileContents(path("precious")), QByteArray("precious"));
        Recording own(path("a.csv"), true);
        QVERIFY(own.begin()); // a link of this user is followed on request
        own.recorder().addReadings(block(0, 1));
        QVERIFY(own.recorder().finish());
        QCOMPARE(readTable(path("precious")), QString("start channels left:nA right | 0: 0 0.5"));

        constexpr uid_t somebody = 65534;
        const QByteArray link = QFile::encodeName(path("a.csv"));
        if (::lchown(link.constData(), somebody, somebody) != 0)
            QSKIP("only root may give a link away");
        putFile(path("precious"), "precious");
        Recording foreign(path("a.csv"), true);
        QVERIFY(!foreign.begin());
        QVERIFY(foreign.recorder().error().shown().contains("link of another user"));
        QCOMPARE(fileContents(path("precious")), QByteArray("precious"));
    }

private:
    QString path(const char *name) { return m_dir->filePath(QLatin1String(name)); }
    std::unique_ptr<QTemporaryDir> m_dir;
};

CORVALE_QT_TEST_MAIN(tst_RecordingFiles)
#include "tst_RecordingFiles.moc"
