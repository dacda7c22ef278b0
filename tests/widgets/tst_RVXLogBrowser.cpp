// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXLogBrowser.h"
#include "corvale_qt/widgets/RVXLogBrowserSyntaxHighlighter.h"
#include "tests/support/TestMain.h"
#include "tests/widgets/LogColors.h"

using namespace Corvale_Qt;

namespace {

QString joined(const QTextDocument &document)
{
    QString text;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        text += block.text();
    return text;
}

//! How many blocks have colours.
int countColoured(const QTextDocument &document)
{
    int count = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        count += block.layout()->formats().isEmpty() ? 0 : 1;
    return count;
}

//! A log browser with keywords and a record of what it announces.
struct Log : RVXLogBrowser
{
    QString announced;

    explicit Log(const QStringList &errors = {}, const QStringList &warnings = {})
    {
        addErrorKeywords(errors);
        addWarningKeywords(warnings);
        listen<RVXLogBrowser>(*this, announced);
    }
    QString text() const { return textBrowser()->toPlainText(); }
    const QTextDocument &document() const { return *textBrowser()->document(); }
    QScrollBar &bar() const { return *textBrowser()->verticalScrollBar(); }
};

//! A document with its highlighter and a record of what that announces.
struct Highlighted
{
    QTextDocument document;
    RVXLogBrowserSyntaxHighlighter highlighter{&document};
    QString announced;

    Highlighted()
    {
        // A document without a layout does not report its changes.
        document.documentLayout();
        listen(highlighter, announced);
    }
    QString colours(const QString &line)
    {
        document.setPlainText(line);
        return coloured(document.begin());
    }
};

} // namespace

class tst_RVXLogBrowser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void switchingOffLeavesTheHighlighterOn()
    {
        Log log({"ERROR"});
        log.setSyntaxHighlighting(false);
        QVERIFY(!log.syntaxHighlighting());
        log.appendLine("ERROR");
        log.findChild<RVXLogBrowserSyntaxHighlighter *>()->setEnabled(false);
        log.appendLine("calm ERROR");
        QCOMPARE(log.announced, QString("E"));
        log.setSyntaxHighlighting(true);
        log.appendLine("ERROR");
        QCOMPARE(log.announced, QString("EE"));
    }

    void eachLineIsAnnouncedOnce_data()
    {
        QTest::addColumn<int>("limit");
        row("no limit", 0);
        row("old lines are dropped one by one", 2);
        row("a hundredth of the limit is dropped at a time", 200);
    }
    void eachLineIsAnnouncedOnce()
    {
        Log log({"ERROR"}, {"WARNING"});
        log.setMaximumBlockCount(cell<int>("limit"));
        for (int i = 0; i < 80; ++i)
            for (const char *line : {"ERROR 1", "calm", "WARNING: ERROR 2", "calm", "calm"})
                log.appendLine(line);
        QCOMPARE(log.announced, QString("EEW").repeated(80));
        log.announced.clear();
        log.appendLine("ERROR\ncalm\nWARNING ERROR ERROR\nWARNING");
        QCOMPARE(log.announced, QString("EEWW"));
        QCOMPARE(coloured(log.document().lastBlock()), "WARNING" + kWarning);
        for (int lower : {5, 2, 1})
            log.setMaximumBlockCount(lower);
        QCOMPARE(log.text(), QString("WARNING"));
        QCOMPARE(log.announced, QString("EEWW"));
    }

    void hostMayAnswerAnAnnouncement()
    {
        auto log = std::make_unique<Log>(QStringList{"ERROR"}, QStringList{"ERROR"});
        const auto answer = connect(log.get(), &RVXLogBrowser::syntaxError, this,
                                    [&] { log->appendLine("the alarm was raised"); });
        log->appendLine("ERROR");
        QCOMPARE(log->text(), QString("ERROR\nthe alarm was raised"));
        disconnect(answer);
        connect(log.get(), &RVXLogBrowser::syntaxError, this, [&] { log.reset(); });
        log->appendLine("ERROR");
        QVERIFY(!log);
    }

    void linesAreShownAsTheyAre_data()
    {
        columns<QString, QString>("line", "shown");
        const char *markup = "<b>bold</b> <img src='file:///etc/passwd'> &amp;";
        row("markup", markup, markup);
        row("ends of lines", "a\r\nb\n\nc\n", "a\nb\n\nc");
        row("carriage return alone", "a\rZ", "a\xe2\x90\x8dZ");
        row("tab", "a\tb", "a\tb");
        row("separators", QString(QChar(0x2028)) + QChar(0x2029) + QChar(0x85),
            "\xe2\x90\xa4\xe2\x90\xa4\xe2\x90\xa4");
        row("control characters", QString("\x1b[0m") + QChar(0) + QChar(0x7f),
            "\xe2\x90\x9b[0m\xe2\x90\x80\xe2\x90\xa1");
        row("change of direction", "a" + QString(QChar(0x202e)) + "Z", "a\xef\xbf\xbdZ");
        row("characters that a document uses itself",
            QString(QChar(0xfdd0)) + QChar(0xfdd1) + QChar(0xfffc) + QChar(0xdc00) + "x",
            "\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbdx");
        row("wide character", kWide, "\xf0\x9f\x92\xa5");
    }
    void linesAreShownAsTheyAre()
    {
        Log log;
        log.appendLine("before");
        log.appendLine(cell("line"));
        QCOMPARE(log.text(), "before\n" + cell("shown"));
    }

    void followsTheEndUnlessScrolledUp()
    {
        Log log;
        log.resize(300, 200);
        log.setMaximumBlockCount(200);
        const auto append = [&](int from, int to) {
            for (int i = from; i < to; ++i)
                log.appendLine(QString("line %1").arg(i));
        };
        append(0, 150);
        log.show();
        QVERIFY(QTest::qWaitForWindowExposed(&log));
        QVERIFY(log.bar().maximum() > 0);
        QCOMPARE(log.bar().value(), log.bar().maximum());
        log.resize(300, 120);
        QCOMPARE(log.bar().value(), log.bar().maximum());

        log.bar().setValue(log.bar().maximum() - 3 * log.bar().singleStep());
        const auto firstVisible = [&] {
            return log.textBrowser()->cursorForPosition(QPoint(2, 2)).block().text();
        };
        const QString before = firstVisible();
        append(150, 260);
        QCOMPARE(firstVisible(), before);

        log.bar().setValue(log.bar().maximum());
        log.appendLine("newest");
        QCOMPARE(log.bar().value(), log.bar().maximum());
    }

    //! After the text is cleared, or when it fits into the view as a whole.
    void followsAgain()
    {
        for (const bool byClearing : {false, true}) {
            Log log;
            log.resize(300, 120);
            log.show();
            log.appendLine(QString("line\n").repeated(20));
            log.bar().setValue(0);
            QVERIFY(log.bar().maximum() > 0);
            if (byClearing)
                log.clear();
            else
                log.resize(300, 800);
            log.resize(300, 120);
            log.appendLine(QString("line\n").repeated(20));
            QVERIFY(log.bar().maximum() > 0);
            QCOMPARE(log.bar().value(), log.bar().maximum());
        }
    }

    void textIsEditedWhereTheCursorWasSet()
    {
        Log log;
        log.appendLine("abc");
        QVERIFY(log.readOnly());
        log.setReadOnly(false);
        log.setOverwriteMode(true);
        QTextCursor cursor(log.textBrowser()->document());
        cursor.setPosition(1);
        log.setTextCursor(cursor);
        QTest::keyClicks(log.textBrowser(), "XYZ");
        QCOMPARE(log.text(), QString("aXYZ"));
    }

    void partsHaveTheirNamesAndTexts()
    {
        Log log;
        log.show();
        const auto heard = [&] {
            return QAccessible::queryAccessibleInterface(log.textBrowser())
                ->text(QAccessible::Name);
        };
        QCOMPARE(heard(), QString("log"));
        QCOMPARE(log.titleLabel()->text(), QString("widget title"));
        log.setTitle("Events");
        QCOMPARE(heard(), QString("Events"));
        QStringList names;
        for (const QObject *part : std::initializer_list<const QObject *>{
                 log.titleLabel(), log.textBrowser(), log.clearTextButton(), log.auxFrame()})
            names << part->objectName();
        QCOMPARE(names.join(' '), QString("titleLabel textBrowser clearPushButton auxFrame"));
        for (const char *name : {"horizontalLayout", "verticalLayout", "buttonsVerticalLayout"})
            QVERIFY2(log.findChild<QLayout *>(name), name);

        QVERIFY(log.clearTextButtonVisible());
        QCOMPARE(log.clearTextButton()->text(), QString("clear"));
        QCOMPARE(log.clearTextButton()->toolTip(), QString("clear log contents"));
        QVERIFY(!log.clearTextButton()->icon().isNull());
        log.appendLine("text");
        QTest::mouseClick(log.clearTextButton(), Qt::LeftButton);
        QVERIFY(log.document().isEmpty());
        log.setClearTextButtonVisible(false);
        QVERIFY(!log.clearTextButton()->isVisible());
    }

    void styleSheetPaintsItsBackground()
    {
        Log log;
        log.setStyleSheet("Corvale_Qt--RVXLogBrowser { background: #123456; }");
        log.resize(300, 200);
        QCOMPARE(log.grab().toImage().pixelColor(1, 1), QColor("#123456"));
    }

    void oldLinesAreDropped()
    {
        for (const int limit : {1, 199, 500}) {
            Log log;
            QCOMPARE(log.maximumBlockCount(), 0);
            log.setMaximumBlockCount(limit);
            for (int i = 0; i < 1234; ++i)
                log.appendLine(QString::number(i));
            const QStringList lines = log.text().split('\n');
            QVERIFY(lines.size() <= limit);
            QVERIFY(lines.size() * 100 >= limit * 99);
            QCOMPARE(lines.last(), QString("1233"));
            QCOMPARE(lines.first(), QString::number(1234 - lines.size()));
        }
    }

    //! A paragraph of a million characters would be laid out again for each line appended after it.
    void longLinesGoOnInFurtherParagraphs()
    {
        Log log({"KEY"});
        const QString wide = "x" + kWide.repeated(30000);
        const QString words = QString("a KEY ").repeated(10000);
        for (const QString &line : {wide, words}) {
            log.clear();
            log.appendLine(line);
            const QTextDocument &document = log.document();
            QCOMPARE(joined(document), line);
            QVERIFY(document.blockCount() <= 2 + line.size() / 2048);
            for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
                QVERIFY(block.length() <= 4097);
                QVERIFY(block.text().isValidUtf16());
                QVERIFY2(line == wide || !block.next().isValid() || block.text().endsWith(' '),
                         "cut between words");
            }
        }
        QCOMPARE(log.announced, QString("E"));
    }

    //! The end of a long text is coloured first, then the lines to which the user scrolls, then the rest.
    void longTextsAreColouredInPortions()
    {
        Log log({"ERROR"});
        log.resize(600, 300);
        log.show();
        constexpr int lines = 20000;
        log.appendLine(QString("one more ERROR\n").repeated(lines));
        const QTextDocument &document = log.document();
        QCOMPARE(document.blockCount(), lines);
        QCOMPARE(log.announced.size(), lines);
        QCOMPARE(coloured(document.lastBlock()), "ERROR" + kError);
        const int atOnce = countColoured(document);
        QVERIFY2(atOnce < lines / 10, qPrintable(QString::number(atOnce)));
        log.appendLine("ERROR behind");
        QCOMPARE(countColoured(document), atOnce + 1);

        log.bar().setValue(0);
        QTRY_COMPARE(coloured(document.firstBlock()), "ERROR" + kError);
        QVERIFY(countColoured(document) < lines / 2);
        QTRY_COMPARE(countColoured(document), lines + 1);
        QCOMPARE(log.announced.size(), lines + 1);
        QCOMPARE(log.bar().value(), 0);
    }

    void keywords_data()
    {
        columns<QStringList, QStringList, bool, QString, QString, QString>(
            "errors", "warnings", "wholeBlock", "line", "colours", "announced");
        const auto add = [](const char *name, const QStringList &errors, const QString &line,
                            const QString &colours, const QString &announced,
                            const QStringList &warnings = {}, bool wholeBlock = false) {
            QTest::newRow(name) << errors << warnings << wholeBlock << line << colours << announced;
        };
        const QStringList error{"ERROR"};
        const QString word = "ERROR" + kError;
        add("word", error, "an ERROR here", word, "E");
        add("part of a word", error, "ERRORS", "", "");
        add("other case", error, "error", "", "");
        add("twice", error, "ERROR ERROR", word + " | " + word, "E");
        add("whole line", error, "an ERROR here", "an ERROR here" + kError, "E", {}, true);
        add("at the start of a whole line", error, "ERROR here", word, "E", {}, true);
        const QString both = "late" + kWarning + " | " + word;
        add("error and warning", error, "late ERROR", both, "EW", {"late"});
        add("warning over error", error, "ERROR", "ERROR" + kWarning, "EW", error);
        const QString umlaut = QString::fromUtf8("\xc3\x9c") + "berlauf";
        add("umlauts are letters", {umlaut, "berlauf"}, "ein " + umlaut, umlaut + kError, "E");
        add("pattern", {"E\\d+"}, "code E17", "E17" + kError, "E");
        add("invalid patterns are ignored", {"(", "[", "*", "ERROR"}, "( ERROR", word, "E");
        add("empty keyword", {""}, "a b", "", "E");
        add("empty keyword, no word", {""}, "...", "", "");
        add("empty matches among others", {"x*"}, "a xx", "xx" + kError, "E");
        add("empty match before a wide character", {"|" + kWide}, "a" + kWide, "", "E");
        const QString slow = "(?:(?:a|aa)+b|a+)";
        add("pattern of many steps", {slow}, "aaaa", "aaaa" + kError, "E");
        add("pattern of too many steps", {slow, "ERROR"}, QString(25, 'a') + " ERROR", word, "E");
        // A line of more than 1000 characters is searched in stretches.
        const QString digits = "E" + QString(40, '1');
        add("pattern across stretches", {"E\\d+"},
            QString(980, '.') + digits + kWide.repeated(1001) + "E2",
            digits + kError + " | E2" + kError, "E");
        add("lone surrogate in the line", error, QString(QChar(0xd800)) + " ERROR", word, "E");
    }
    void keywords()
    {
        Highlighted text;
        text.highlighter.addErrorKeywords(cell<QStringList>("errors"));
        text.highlighter.addWarningKeywords(cell<QStringList>("warnings"));
        text.highlighter.setWholeBlockSyntaxHighlighting(cell<bool>("wholeBlock"));
        QTEST(text.colours(cell("line")), "colours");
        QTEST(text.announced, "announced");
    }

    void invalidPatternIsReportedOnce()
    {
        static QStringList reported;
        reported.clear();
        const auto before = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &context, const QString &text) {
                reported << QString(context.category) + '|' + text.section(' ', 0, 6);
            });
        Highlighted text;
        text.highlighter.addErrorKeywords({"("});
        text.colours("one line\nand another");
        qInstallMessageHandler(before);
        QCOMPARE(reported.join('\n'),
                 QString("corvale.widgets|log browser: not a valid pattern: \"(\""));
    }

    void coloursAndSwitches()
    {
        Highlighted text;
        text.highlighter.addErrorKeywords({"FATAL"});
        text.highlighter.addErrorKeywords({"ERROR"}); // replaces the first list
        text.highlighter.setErrorWarningColorsForWhiteBackground();
        QCOMPARE(text.colours("ERROR FATAL"), QString("ERROR#ff7d28"));
        QCOMPARE(text.highlighter.warningColor(), QColor(245, 200, 5));
        text.highlighter.setEnabled(false);
        text.announced.clear();
        QCOMPARE(text.colours("ERROR"), QString());
        QCOMPARE(text.announced, QString());
    }

    //! A search that reads the whole line for each match would exceed the time limit of the test.
    void longLineManyKeywords()
    {
        QStringList keywords;
        for (int i = 0; i < 50; ++i)
            keywords << QString("KEY%1").arg(i);
        QString line;
        while (line.size() < 1000000)
            line += QString("value KEY%1 ").arg(line.size() % 100);
        Highlighted text;
        text.highlighter.addErrorKeywords(keywords);
        QVERIFY(text.colours(line).count(kError) > 30000);
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXLogBrowser)
#include "tst_RVXLogBrowser.moc"
