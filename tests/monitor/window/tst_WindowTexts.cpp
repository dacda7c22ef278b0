// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/EnglishTexts.h"
#include "monitor/core/Text.h"
#include "monitor/dialogs/ConnectDialog.h"
#include "monitor/dialogs/SettingsDialog.h"
#include "monitor/nexus/NexusSegments.h"
#include "monitor/recording/SegmentCompressor.h"
#include "monitor/window/SourceDetector.h"
#include "monitor/window/SourceSwitch.h"
#include "monitor/window/WindowSettings.h"
#include "tests/monitor/support/Dialogs.h"
#include "tests/monitor/support/FileSizeLimit.h"
#include "tests/monitor/support/InLanguage.h"
#include "tests/monitor/support/MarkedLanguage.h"
#include "tests/monitor/support/WindowInTest.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

using namespace Monitor;

namespace {

/*! Hears which texts are asked for. It translates none, so that the translators behind it do. */
class TextListener : public QTranslator
{
public:
    TextListener() { QCoreApplication::installTranslator(this); }
    ~TextListener() override { QCoreApplication::removeTranslator(this); }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        m_heard.insert(qMakePair(QString::fromUtf8(context), QString::fromUtf8(text)));
        return QString();
    }
    bool isEmpty() const override { return false; }
    //! Returns the texts that were asked for, each with its context.
    QSet<QPair<QString, QString>> heard() const { return m_heard; }

private:
    mutable QSet<QPair<QString, QString>> m_heard;
};

} // namespace

//! Which language each text has: that of the window on the screen, English in the log and in recordings.
class tst_WindowTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    //! A number has its form in each language, however large it is, and an English one in files.
    void numbersHaveTheirForms()
    {
        const auto gaps = [](qint64 number) { return Text::counted("%n gap(s)", nullptr, number); };
        QCOMPARE(gaps(1), QString("1 gap"));
        QCOMPARE(gaps(5000000001), QString("5000000001 gaps"));
        const InLanguage german("de");
        QCOMPARE(gaps(1), QString::fromUtf8("1 Lücke"));
        QCOMPARE(gaps(5000000001), QString::fromUtf8("5000000001 Lücken"));
        QCOMPARE(Text::countedInEnglish("%n line(s)", nullptr, 0), QString("0 lines"));
        const EnglishTexts english;
        QCOMPARE(gaps(2), QString("2 gaps"));
    }

    /*! A text whose context the catalogs do not know would stay English. The lines of the log and what goes into files are
        English on purpose. */
    void everyTextIsFoundInTheCatalogs()
    {
        const InLanguage german("de");
        QTranslator catalogs[2];
        QVERIFY(catalogs[0].load(":/corvale_qt/translations/corvale_qt_de"));
        QVERIFY(catalogs[1].load(":/corvale_monitor/translations/corvale_monitor_de"));
        const TextListener listener;
        SmallWindow w(file("texts.xui"));
        QCOMPARE(w.action("settings")->text().remove('&'), QString("Einstellungen..."));
        w.source->begin(StreamKind::Pixels, 64);
        w.run(3);
        w.settle();
        ConnectDialog connection(w.clock, {});
        SettingsDialog settings(MonitorOptions(), file("texts.xui"));
        QStringList missing;
        for (const auto &[context, text] : listener.heard()) {
            const QByteArray inContext = context.toUtf8(), source = text.toUtf8();
            const bool isOurs = context.startsWith("Corvale_Qt") || context.startsWith("Monitor");
            const bool isLogged = context == "Monitor::SessionLines";
            if (isOurs && !isLogged && !text.isEmpty()
                && catalogs[0].translate(inContext, source).isEmpty()
                && catalogs[1].translate(inContext, source).isEmpty())
                missing.append(context + ": " + text);
        }
        QCOMPARE(missing.join("; "), QString());
        QVERIFY(listener.heard().size() > 300);
    }

    void aNoticeNamesTwoFaultsAndCountsTheOthers()
    {
        SmallWindow w(file("many.xui"));
        StreamHeader header;
        header.channels = StreamHeader::defaultChannels(StreamKind::Channels, 2);
        header.detectorFault = QString("no cells");
        header.limitsFault = QString("<b> rises");
        w.source->begin(header);
        QVERIFY2(w.notice("leftOutNotice").contains("<b> rises"),
                 qPrintable(w.notice("leftOutNotice")));
        header.leftOutChannels = 3;
        w.source->begin(header);
        QVERIFY2(w.notice("leftOutNotice").endsWith("sets them here; 1 more in the log"),
                 qPrintable(w.notice("leftOutNotice")));
        const QString all = w.window.findChild<NoticeLine *>("leftOutNotice")->toolTip();
        QVERIFY2(all.contains("&lt;b&gt;") && all.contains("3 columns"), qPrintable(all));
    }

    //! The log has the events of a recording in the same words; only the state of the source is in the language of the window.
    void recordingsAreTheSameInEveryLanguage()
    {
        const QString table = file("faults.csv");
        putFile(table,
                "#limits a ,,2,2.5\n#limits b 5,4\n#pitch x -1\n#dead "
                "77\ntime_s,a_nA,b_nA\n0,1,2\n1,none,3\n2,3,5\n3,1,2\n");
        const auto run = [&](const QString &language) {
            const InLanguage inLanguage(language);
            QFile::remove(file("said.csv"));
            SmallWindow w(file(qPrintable(language + "-said.xui")));
            w.window.sources().open(table);
            w.record(file("said.csv"));
            w.clock.advance(2.0);
            QFile::remove(file("moved.csv"));
            QFile::rename(file("said.csv"), file("moved.csv"));
            w.clock.advance(3.0);
            w.session.stopRecording();
            const QString recorded = QString::fromUtf8(fileContents(file("moved.csv")))
                + QString::fromUtf8(fileContents(file("said.csv")));
            return recorded.split('\n')
                + w.log().remove(QRegularExpression("[a-z]+-said.xui")).split('\n');
        };
        const QStringList english = run("en");
        for (const char *fault :
             {"the pitch is not a number", "four numbers are needed", "was removed or renamed"})
            QVERIFY2(!english.filter(fault).isEmpty(), fault);
        QCOMPARE(run("ja"), english);
        QCOMPARE(run("de"), english);
    }

    //! What is wrong with a stream is told in the language of the window, with its reason; only the log is English.
    void faultsAreInTheLanguageOfTheWindow()
    {
        const MarkedLanguage marked;
        SmallWindow w(file("faulty.xui"));
        w.session.setComputedChannels({{"ratio", "", "a / nothing"}});
        const struct
        {
            QString name, content, told;
        } faults[] = {
            {"limits.csv", "#limits b 5,4\n", "four numbers are needed"},
            {"rising.csv", "#limits b 5,4,3,2\n", "must rise from low alarm"},
            {"place.csv", "#pitch x -1\n", "the pitch is not a number"},
            {"frames.csv", "#frame 0 4 4\n", "that begins with #corvale 2"},
            {"size.csv", "#corvale 2\n#frame 0 4 4 4\n", "it should be #frame"},
            {"zero.csv", "#corvale 2\n#frame 0 0 4\n", "a frame has 1 to 256 rows"},
            {"clock.csv", "#corvale 2\n#frame 1s 4 4\n", "the time is not a number"},
            {"cut.csv", "#corvale 2\n#frame 0 2 2\n1,2\n#frame 1 2 2\n", "ends after 1 row"},
            {"row.csv", "#corvale 2\n#frame 0 2 2\n1,2,3\n", "row 1 of a frame"},
            {"cells.csv", "#layout matrix 2 3\nt,a,b\n0,1,2\n", "the detector is not used: "},
            {"names.csv", "#limits x 1,2,3,4\ntime_s,a_nA\n0,1\n", "has no channel \"x\""},
            {"formula.csv", "time_s,a_nA\n0,1\n", "no channel is called \"nothing\""},
            {"alarm.csv", "#limits a ,,1,2\ntime_s,a_nA\n0,1\n1,3\n", "ALARM: a above 2 nA"},
            {"magic.pgm", "P2 2 2 9 1 2 3 x", "value 4 is not a number"},
            {"short.pgm", "P5 4 4 255 abc", "the image ends after 3 of 16"},
            {"size.pgm", "P2 2 0 9", "a frame has 1 to 256 rows"},
            {"header.pgm", "P2 2", "the image ends in its header"},
            {"large.pgm", "P2 1 1 9 12\n", "value 1 is above 9"},
        };
        QStringList wrong;
        for (const auto &fault : faults) {
            const QString path = file(qPrintable(fault.name));
            putFile(path, fault.content.toUtf8());
            w.window.sources().open(path);
            w.clock.advance(3.0);
            QStringList english, all;
            for (const QWidget *part : w.window.findChildren<QWidget *>()) {
                if (!part->isVisible())
                    continue;
                english << MarkedLanguage::unmarked(part);
                all << part->toolTip() << part->property("text").toString();
            }
            if (!MarkedLanguage::unaccented(all.join('|')).contains(fault.told))
                english << "not told";
            if (!english.isEmpty())
                wrong << fault.name + ": " + english.join('|');
        }
        QCOMPARE(wrong.join('\n'), QString());
    }

    //! So is why a source cannot be opened, in a message or in a notice, and what the system says of it.
    void refusalsAreInTheLanguageOfTheWindow()
    {
        const MarkedLanguage marked;
        SmallWindow w(file("refusals.xui"));
        putFile(file("damaged.csv.zst"), "(\xb5/\xfd$ and then nothing that could be read");
        QDir().mkdir(file("folder"));
        for (const QString &source :
             {QString("nothing:x"), QString("sim:ic4?x"), QString("tcp://x"), QString("tango:x"),
              file("absent.csv"), file("damaged.csv.zst"), file("folder")}) {
            QStringList english;
            const auto look = [&english](const QWidget *window) {
                for (const QWidget *part : window->findChildren<QWidget *>())
                    if (part->isVisible())
                        english << MarkedLanguage::unmarked(part);
            };
            onEveryDialog(look, [&] { w.window.sources().open(source); });
            w.clock.advance(3.0);
            look(&w.window);
            QCOMPARE(source + ": " + english.join('|'), source + ": ");
        }
    }

    //! Why nothing is recorded is shown in the language of the window, and stands in the log in English.
    void recordingFaultsAreInBothLanguages()
    {
        const MarkedLanguage marked;
        SmallWindow w(file("recording.xui"));
        putFile(file("there.csv"), "");
        QCOMPARE(MarkedLanguage::unaccented(w.record(file("there.csv"))),
                 file("there.csv")
                     + " exists already; choose another name, or allow overwriting (--overwrite)");
        QCOMPARE(w.record(file("full.csv")), QString());
        FileSizeLimit limit;
        limit.set(1);
        w.begin(2);
        w.run(20);
        const QString full = file("full.csv") + ": File too large";
        const QString shown = w.session.recorder()->error().shown();
        QCOMPARE(MarkedLanguage::unaccented(shown), full);
        QVERIFY(shown != full);
        limit.lift();
        QVERIFY2(w.log().contains("recording stalled: " + full), qPrintable(w.log()));
    }

    //! Lines for the log are English, although what they tell is found in the window's thread and language.
    void linesOfTheLogAreEnglish()
    {
        const MarkedLanguage marked;
        WindowSettings settings(file("log.xui"));
        putFile(file("detector.json"), "{\"detector\":1,\"kind\":\"wires\"}");
        const SourceDetector detector = keptDetector("sim:ic4", file("detector.json"), settings);
        const QString reason = MarkedLanguage::unaccented(detector.fault.shown());
        QVERIFY(reason != detector.fault.shown());
        QVERIFY2(detector.note.contains("is not used: " + reason), qPrintable(detector.note));
        QString error;
        QVERIFY(!convertSegment(file("absent.csv"), segmentConversion(SegmentForm::Zstd, false),
                                &error));
        QCOMPARE(error,
                 file("absent.csv")
                     + " is complete, but stays uncompressed: No such file or directory");
    }

private:
    QString file(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

CORVALE_QT_TEST_MAIN(tst_WindowTexts)
#include "tst_WindowTexts.moc"
