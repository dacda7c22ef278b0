// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXLogBrowser.h"
#include "corvale_qt/widgets/RVXLogBrowserSyntaxHighlighter.h"
#include "tests/support/TestMain.h"

#include <QAccessible>
#include <QFrame>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>

using namespace Corvale_Qt;

namespace {

/*! The formats of a block, from its layout, as "text#colour" for each coloured stretch; a "!" before it where
    it is not bold. */
QString coloured(const QTextBlock &block)
{
    QStringList stretches;
    const QString text = block.text();
    for (const QTextLayout::FormatRange &range : block.layout()->formats()) {
        const bool bold = range.format.fontWeight() == QFont::Bold;
        stretches << (bold ? "" : "!") + text.mid(range.start, range.length)
                + range.format.foreground().color().name();
    }
    return stretches.join(" | ");
}

//! Adds what \a source announces to \a announced: "E" and "W".
template<typename Source>
void listen(const Source &source, QString &announced)
{
    QObject::connect(&source, &Source::syntaxError, &source, [&announced] {
        announced += 'E';
    });
    QObject::connect(&source, &Source::syntaxWarning, &source, [&announced] {
        announced += 'W';
    });
}

//! A document with its highlighter, and the order of what it announces.
struct Highlighted
{
    QTextDocument document;
    RVXLogBrowserSyntaxHighlighter highlighter{&document};
    QString announced;

    Highlighted()
    {
        // Without a layout a document tells nobody of its changes.
        document.documentLayout();
        listen(highlighter, announced);
    }
    QString colours(const QString &line)
    {
        document.setPlainText(line);
        return coloured(document.begin());
    }
};

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

const QString kError = "#ffff20";
const QString kWarning = "#fadc50";

} // namespace

class tst_RVXLogBrowser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keywords_data()
    {
        QTest::addColumn<QStringList>("errors");
        QTest::addColumn<QStringList>("warnings");
        QTest::addColumn<bool>("wholeBlock");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("colours");
        QTest::addColumn<QString>("announced");
        const QStringList error{"ERROR"};
        const QStringList none;
        const QString word = "ERROR" + kError;
        QTest::newRow("word") << error << none << false << "an ERROR here" << word << "E";
        QTest::newRow("part of a word") << error << none << false << "ERRORS"
                                        << ""
                                        << "";
        QTest::newRow("other case") << error << none << false << "error"
                                    << ""
                                    << "";
        QTest::newRow("twice") << error << none << false << "ERROR ERROR" << word + " | " + word
                               << "E";
        QTest::newRow("whole line") << error << none << true << "an ERROR here"
                                    << "an ERROR here" + kError << "E";
        QTest::newRow("at the start of a whole line")
            << error << none << true << "ERROR here" << word << "E";
        QTest::newRow("error and warning") << error << QStringList{"late"} << false << "late ERROR"
                                           << "late" + kWarning + " | " + word << "EW";
        QTest::newRow("warning over error") << error << error << false << "ERROR"
                                            << "ERROR" + kWarning << "EW";
        QTest::newRow("umlauts are letters") << QStringList{QString::fromUtf8("\xc3\x9c"
                                                                              "berlauf"),
                                                            "berlauf"}
                                             << none << false
                                             << QString::fromUtf8("ein \xc3\x9c"
                                                                  "berlauf")
                                             << QString::fromUtf8("\xc3\x9c"
                                                                  "berlauf")
                + kError << "E";
        QTest::newRow("pattern") << QStringList{"E\\d+"} << none << false << "code E17"
                                 << "E17" + kError << "E";
        QTest::newRow("invalid pattern is left out")
            << QStringList{"(", "[", "*", "ERROR"} << none << false << "( ERROR" << word << "E";
        QTest::newRow("empty keyword") << QStringList{""} << none << false << "a b"
                                       << ""
                                       << "E";
        QTest::newRow("empty keyword, no word") << QStringList{""} << none << false << "..."
                                                << ""
                                                << "";
        QTest::newRow("empty matches among others") << QStringList{"x*"} << none << false << "a xx"
                                                    << "xx" + kError << "E";
        QTest::newRow("empty match before a wide character")
            << QStringList{"|\xf0\x9f\x92\xa5"} << none << false
            << QString::fromUtf8("a\xf0\x9f\x92\xa5") << ""
            << "E";
        const QString dear = "(?:(?:a|aa)+b|a+)";
        QTest::newRow("pattern of many steps") << QStringList{dear} << none << false << "aaaa"
                                               << "aaaa" + kError << "E";
        QTest::newRow("pattern of too many steps") << QStringList{dear, "ERROR"} << none << false
                                                   << QString(25, 'a') + " ERROR" << word << "E";
        // From 1000 characters on a pattern is searched in stretches.
        const QString wide = QString::fromUtf8("\xf0\x9f\x92\xa5");
        QTest::newRow("pattern across stretches")
            << QStringList{"E\\d+"} << none << false
            << QString(980, '.') + "E" + QString(40, '1') + wide.repeated(1001) + "E2"
            << "E" + QString(40, '1') + kError + " | E2" + kError << "E";
        QTest::newRow("half a character in the line")
            << error << none << false << QString(QChar(0xd800)) + " ERROR" << word << "E";
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

    void secondListReplacesTheFirst()
    {
        Highlighted text;
        text.highlighter.addErrorKeywords({"ERROR"});
        text.highlighter.addErrorKeywords({"FATAL"});
        QCOMPARE(text.colours("ERROR FATAL"), "FATAL" + kError);
    }

    void invalidPatternIsToldOnce()
    {
        Highlighted text;
        QTest::ignoreMessage(QtDebugMsg,
                             QRegularExpression("log browser: not a valid pattern: \"\\(\""));
        text.highlighter.addErrorKeywords({"("});
        text.colours("one line\nand another");
    }

    void coloursAndSwitches()
    {
        Highlighted text;
        text.highlighter.addErrorKeywords({"ERROR"});
        text.highlighter.setErrorWarningColorsForWhiteBackground();
        QCOMPARE(text.colours("ERROR"), QString("ERROR#ff7d28"));
        QCOMPARE(text.highlighter.warningColor(), QColor(245, 200, 5));
        text.highlighter.setEnabled(false);
        text.announced.clear();
        QCOMPARE(text.colours("ERROR"), QString());
        QCOMPARE(text.announced, QString());
    }

    void switchingOffLeavesTheHighlighterOn()
    {
        RVXLogBrowser browser;
        browser.addErrorKeywords({"ERROR"});
        QSignalSpy errors(&browser, &RVXLogBrowser::syntaxError);
        browser.setSyntaxHighlighting(false);
        QVERIFY(!browser.syntaxHighlighting());
        browser.appendLine("ERROR");
        QCOMPARE(errors.size(), 1);
        browser.findChild<RVXLogBrowserSyntaxHighlighter *>()->setEnabled(false);
        browser.appendLine("ERROR");
        QCOMPARE(errors.size(), 1);
        browser.setSyntaxHighlighting(true);
        browser.appendLine("ERROR");
        QCOMPARE(errors.size(), 2);
    }

    //! Neither the next line nor the dropping of old ones announces a line again.
    void eachLineIsAnnouncedOnce_data()
    {
        QTest::addColumn<int>("limit");
        QTest::newRow("no limit") << 0;
        QTest::newRow("old lines drop off one by one") << 2;
        QTest::newRow("old lines drop off by the hundredth") << 200;
    }
    void eachLineIsAnnouncedOnce()
    {
        QFETCH(int, limit);
        RVXLogBrowser browser;
        browser.setMaximumBlockCount(limit);
        browser.addErrorKeywords({"ERROR"});
        browser.addWarningKeywords({"WARNING"});
        QString announced;
        listen(browser, announced);
        for (int i = 0; i < 80; ++i)
            for (const char *line : {"ERROR 1", "calm", "WARNING: ERROR 2", "calm", "calm"})
                browser.appendLine(line);
        QCOMPARE(announced, QString("EEW").repeated(80));
        announced.clear();
        browser.appendLine("ERROR\ncalm\nWARNING ERROR ERROR\nWARNING");
        QCOMPARE(announced, QString("EEWW"));
        QCOMPARE(coloured(browser.textBrowser()->document()->lastBlock()), "WARNING" + kWarning);
        for (int lower : {5, 2, 1})
            browser.setMaximumBlockCount(lower);
        QCOMPARE(browser.textBrowser()->toPlainText(), QString("WARNING"));
        QCOMPARE(announced, QString("EEWW"));
    }

    void hostMayAnswerAnAnnouncement()
    {
        auto browser = std::make_unique<RVXLogBrowser>();
        browser->addErrorKeywords({"ERROR"});
        browser->addWarningKeywords({"ERROR"});
        const auto answer = connect(browser.get(), &RVXLogBrowser::syntaxError, this, [&] {
            browser->appendLine("the alarm was raised");
        });
        browser->appendLine("ERROR");
        QCOMPARE(browser->textBrowser()->toPlainText(), QString("ERROR\nthe alarm was raised"));
        disconnect(answer);
        connect(browser.get(), &RVXLogBrowser::syntaxError, this, [&] {
            browser.reset();
        });
        browser->appendLine("ERROR");
        QVERIFY(!browser);
    }

    void linesAreShownAsTheyAre_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("shown");
        const auto utf8 = [](const char *text) {
            return QString::fromUtf8(text);
        };
        QTest::newRow("markup") << "<b>bold</b> <img src='file:///etc/passwd'> &amp;"
                                << "<b>bold</b> <img src='file:///etc/passwd'> &amp;";
        QTest::newRow("ends of lines") << "a\r\nb\n\nc\n"
                                       << "a\nb\n\nc";
        QTest::newRow("carriage return alone") << "a\rb"
                                               << utf8("a\xe2\x90\x8d"
                                                       "b");
        QTest::newRow("tab") << "a\tb"
                             << "a\tb";
        QTest::newRow("separators") << QString("a") + QChar(0x2028) + QChar(0x2029) + QChar(0x85)
                                    << utf8("a\xe2\x90\xa4\xe2\x90\xa4\xe2\x90\xa4");
        QTest::newRow("control characters") << QString("a\x1b[0m") + QChar(0) + QChar(0x7f)
                                            << utf8("a\xe2\x90\x9b[0m\xe2\x90\x80\xe2\x90\xa1");
        QTest::newRow("turned text") << QString("a") + QChar(0x202e) + "b"
                                     << utf8("a\xef\xbf\xbd"
                                             "b");
        QTest::newRow("signs of the document itself")
            << QString(QChar(0xfdd0)) + QChar(0xfdd1) + QChar(0xfffc) + QChar(0xdc00) + "x"
            << utf8("\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd"
                    "x");
        QTest::newRow("wide character") << utf8("\xf0\x9f\x92\xa5") << utf8("\xf0\x9f\x92\xa5");
    }
    void linesAreShownAsTheyAre()
    {
        QFETCH(QString, line);
        RVXLogBrowser browser;
        browser.appendLine("before");
        browser.appendLine(line);
        QFETCH(QString, shown);
        QCOMPARE(browser.textBrowser()->toPlainText(), "before\n" + shown);
    }

    void followsTheEndUnlessScrolledUp()
    {
        RVXLogBrowser browser;
        browser.resize(300, 200);
        browser.setMaximumBlockCount(200);
        for (int i = 0; i < 150; ++i)
            browser.appendLine(QString("line %1").arg(i));
        browser.show();
        QVERIFY(QTest::qWaitForWindowExposed(&browser));
        QScrollBar *bar = browser.textBrowser()->verticalScrollBar();
        QVERIFY(bar->maximum() > 0);
        QCOMPARE(bar->value(), bar->maximum());
        browser.resize(300, 120);
        QCOMPARE(bar->value(), bar->maximum());

        bar->setValue(bar->maximum() - 3 * bar->singleStep());
        const auto firstInSight = [&] {
            return browser.textBrowser()->cursorForPosition(QPoint(2, 2)).block().text();
        };
        const QString inSight = firstInSight();
        for (int i = 150; i < 260; ++i)
            browser.appendLine(QString("line %1").arg(i));
        QCOMPARE(firstInSight(), inSight);

        bar->setValue(bar->maximum());
        browser.appendLine("newest");
        QCOMPARE(bar->value(), bar->maximum());
    }

    void followsAgain_data()
    {
        QTest::addColumn<bool>("byClearing");
        QTest::newRow("after clear") << true;
        QTest::newRow("when all fits into the view") << false;
    }
    void followsAgain()
    {
        QFETCH(bool, byClearing);
        RVXLogBrowser browser;
        browser.resize(300, 120);
        browser.show();
        browser.appendLine(QString("line\n").repeated(20));
        QScrollBar *bar = browser.textBrowser()->verticalScrollBar();
        bar->setValue(0);
        QVERIFY(bar->maximum() > 0);
        if (byClearing)
            browser.clear();
        else
            browser.resize(300, 800);
        browser.resize(300, 120);
        browser.appendLine(QString("line\n").repeated(20));
        QVERIFY(bar->maximum() > 0);
        QCOMPARE(bar->value(), bar->maximum());
    }

    void textIsEditedWhereTheCursorWasSet()
    {
        RVXLogBrowser browser;
        browser.appendLine("abc");
        QVERIFY(browser.readOnly());
        browser.setReadOnly(false);
        browser.setOverwriteMode(true);
        QTextCursor cursor(browser.textBrowser()->document());
        cursor.setPosition(1);
        browser.setTextCursor(cursor);
        QTest::keyClicks(browser.textBrowser(), "XYZ");
        QCOMPARE(browser.textBrowser()->toPlainText(), QString("aXYZ"));
    }

    void readersHearWhatTheTextIs()
    {
        RVXLogBrowser browser;
        const auto name = [&] {
            return QAccessible::queryAccessibleInterface(browser.textBrowser())
                ->text(QAccessible::Name);
        };
        QCOMPARE(name(), QString("log"));
        browser.setTitle("Events");
        QCOMPARE(name(), QString("Events"));
    }

    void clearButton()
    {
        RVXLogBrowser browser;
        browser.show();
        QVERIFY(browser.clearTextButtonVisible());
        QCOMPARE(browser.clearTextButton()->text(), QString("clear"));
        QCOMPARE(browser.clearTextButton()->toolTip(), QString("clear log contents"));
        QVERIFY(!browser.clearTextButton()->icon().isNull());
        browser.appendLine("text");
        QTest::mouseClick(browser.clearTextButton(), Qt::LeftButton);
        QVERIFY(browser.textBrowser()->document()->isEmpty());
        browser.setClearTextButtonVisible(false);
        QVERIFY(!browser.clearTextButton()->isVisible());
    }

    void partsHaveTheirNames()
    {
        RVXLogBrowser browser;
        QCOMPARE(browser.titleLabel()->objectName(), QString("titleLabel"));
        QCOMPARE(browser.titleLabel()->text(), QString("widget title"));
        QCOMPARE(browser.textBrowser()->objectName(), QString("textBrowser"));
        QCOMPARE(browser.clearTextButton()->objectName(), QString("clearPushButton"));
        QCOMPARE(browser.auxFrame()->objectName(), QString("auxFrame"));
        for (const char *name : {"horizontalLayout", "verticalLayout", "buttonsVerticalLayout"})
            QVERIFY2(browser.findChild<QLayout *>(name), name);
    }

    void styleSheetPaintsItsBackground()
    {
        RVXLogBrowser browser;
        browser.setStyleSheet("Corvale_Qt--RVXLogBrowser { background: #123456; }");
        browser.resize(300, 200);
        QCOMPARE(browser.grab().toImage().pixelColor(1, 1), QColor("#123456"));
    }

    void oldLinesDropOff_data()
    {
        QTest::addColumn<int>("limit");
        QTest::newRow("one line") << 1;
        QTest::newRow("one by one") << 199;
        QTest::newRow("by the hundredth") << 500;
    }
    void oldLinesDropOff()
    {
        QFETCH(int, limit);
        RVXLogBrowser browser;
        QCOMPARE(browser.maximumBlockCount(), 0);
        browser.setMaximumBlockCount(limit);
        for (int i = 0; i < 1234; ++i)
            browser.appendLine(QString::number(i));
        const QStringList lines = browser.textBrowser()->toPlainText().split('\n');
        QVERIFY(lines.size() <= limit);
        QVERIFY(lines.size() * 100 >= limit * 99);
        QCOMPARE(lines.last(), QString("1233"));
        QCOMPARE(lines.first(), QString::number(1234 - lines.size()));
    }

    //! A paragraph of a million characters would be laid out anew for each line behind it.
    void longLinesGoOnInFurtherParagraphs()
    {
        RVXLogBrowser browser;
        browser.addErrorKeywords({"KEY"});
        QString announced;
        listen(browser, announced);
        const QString wide = "x" + QString::fromUtf8("\xf0\x9f\x92\xa5").repeated(30000);
        const QString words = QString("a KEY ").repeated(10000);
        for (const QString &line : {wide, words}) {
            browser.clear();
            browser.appendLine(line);
            const QTextDocument &document = *browser.textBrowser()->document();
            QCOMPARE(joined(document), line);
            QVERIFY(document.blockCount() <= 2 + line.size() / 2048);
            for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
                QVERIFY(block.length() <= 4097);
                QVERIFY(block.text().isValidUtf16());
                QVERIFY2(line == wide || !block.next().isValid() || block.text().endsWith(' '),
                         "cut between words");
            }
        }
        QCOMPARE(announced, QString("E"));
    }

    //! Of a long text the end comes first, then what the user scrolls to, then the rest.
    void longTextsAreColouredInPortions()
    {
        RVXLogBrowser browser;
        browser.resize(600, 300);
        browser.show();
        browser.addErrorKeywords({"ERROR"});
        QString announced;
        listen(browser, announced);
        constexpr int lines = 20000;
        browser.appendLine(QString("one more ERROR\n").repeated(lines));
        const QTextDocument &document = *browser.textBrowser()->document();
        QCOMPARE(document.blockCount(), lines);
        QCOMPARE(announced.size(), lines);
        QCOMPARE(coloured(document.lastBlock()), "ERROR" + kError);
        const int atOnce = countColoured(document);
        QVERIFY2(atOnce < lines / 10, qPrintable(QString::number(atOnce)));
        browser.appendLine("ERROR behind");
        QCOMPARE(countColoured(document), atOnce + 1);

        browser.textBrowser()->verticalScrollBar()->setValue(0);
        QTRY_COMPARE(coloured(document.firstBlock()), "ERROR" + kError);
        QVERIFY(countColoured(document) < lines / 2);
        QTRY_COMPARE(countColoured(document), lines + 1);
        QCOMPARE(announced.size(), lines + 1);
        QCOMPARE(browser.textBrowser()->verticalScrollBar()->value(), 0);
    }

    //! A search that goes over the whole line for each match would not end within the test's time.
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
