// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXLogBrowserSyntaxHighlighter.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"
#include "tests/widgets/LogColors.h"

using namespace Corvale_Qt;

namespace {

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

class tst_RVXLogBrowserSyntaxHighlighter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keywords_data()
    {
        columns<QStringList, QStringList, bool, QString, QString, QString>("errors",
                                                                           "warnings",
                                                                           "wholeBlock",
                                                                           "line",
                                                                           "colours",
                                                                           "announced");
        const auto add = [](const char *name,
                            const QStringList &errors,
                            const QString &line,
                            const QString &colours,
                            const QString &announced,
                            const QStringList &warnings = {},
                            bool wholeBlock = false) {
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
        add("pattern across stretches",
            {"E\\d+"},
            QString(980, '.') + digits + kWide.repeated(1001) + "E2",
            digits + kError + " | E2" + kError,
            "E");
        add("lone surrogate in the line", error, QString(QChar(0xd800)) + " ERROR", word, "E");
    }
    void keywords()
    {
        QFETCH(QStringList, errors);
        QFETCH(QStringList, warnings);
        QFETCH(bool, wholeBlock);
        QFETCH(QString, line);
        Highlighted text;
        text.highlighter.addErrorKeywords(errors);
        text.highlighter.addWarningKeywords(warnings);
        text.highlighter.setWholeBlockSyntaxHighlighting(wholeBlock);
        QTEST(text.colours(line), "colours");
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

CORVALE_QT_TEST_MAIN(tst_RVXLogBrowserSyntaxHighlighter)
#include "tst_RVXLogBrowserSyntaxHighlighter.moc"
