// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/Text.h"
#include "monitor/dialogs/ConnectDialog.h"
#include "monitor/dialogs/SettingsDialog.h"
#include "monitor/program/CompressionWait.h"
#include "monitor/recording/SegmentCompressor.h"
#include "monitor/recording/ZstdSegments.h"
#include "monitor/window/Appearance.h"
#include "monitor/window/ImportDialog.h"
#include "monitor/window/LimitsDialog.h"
#include "monitor/window/ScreenFit.h"
#include "monitor/window/SourceSwitch.h"
#include "monitor/window/StatusField.h"
#include "tests/monitor/support/Dialogs.h"
#include "tests/monitor/support/FocusWalk.h"
#include "tests/monitor/support/InLanguage.h"
#include "tests/monitor/support/MarkedLanguage.h"
#include "tests/monitor/support/MenuWalk.h"
#include "tests/monitor/support/Mnemonics.h"
#include "tests/monitor/support/WindowInTest.h"
#include "tests/support/Files.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/scope/RVXScopePlotView.h>

using namespace Monitor;

namespace {

//! Sets the size of all text while it lives; 0 leaves it.
struct InPoints
{
    explicit InPoints(int points)
    {
        QFont font = former;
        if (points > 0)
            font.setPointSize(points);
        QApplication::setFont(font);
    }
    ~InPoints() { QApplication::setFont(former); }

    const QFont former = QApplication::font();
};

//! Lays widgets out in a direction while it lives.
struct InDirection
{
    explicit InDirection(Qt::LayoutDirection way) { QApplication::setLayoutDirection(way); }
    ~InDirection() { QApplication::setLayoutDirection(Qt::LeftToRight); }
};

void addLanguages()
{
    QTest::addColumn<QString>("language");
    for (const char *language : {"en", "de", "fr", "ja"})
        QTest::newRow(language) << QString(language);
}

} // namespace

//! Looks at what no menu entry opens: docks, and the questions about a table.
void lookAtDocksAndImport(WindowInTest &w, const QString &table, ClippedTexts &clipped)
{
    for (QDockWidget *dock : w.window.findChildren<QDockWidget *>())
        dock->show();
    putFile(table, "left;right\n1,5;2\n2,5;3\n");
    ImportDialog import(table, &w.window);
    import.show();
    // With two device pixels to a pixel, the screen of the tests is lower than any that the dialog is made for.
    if (import.screen()->availableSize().height() >= WindowInTest::smallScreen.height())
        lookAtDialog("import", &import, clipped);
    import.close();
}

//! Looks at a dated recording, its tape, and a window with much to tell: a pause, alarms, readings that were cleared.
void lookAtLoudStates(WindowInTest &w, const QString &table, ClippedTexts &clipped, MenuWalk &menus)
{
    putFile(table,
            "#t0 2026-03-01T12:00:00Z\n#limits a_nA ,,0.5,0.8\n#limits b_nA ,,2,10\n"
            "time_s,a_nA,b_nA\n0,1,5\n1000,-2000.25,6\n");
    w.window.sources().open(table);
    w.session.setPaused(true);
    w.clock.advance(0.1);
    lookAtWindows("states", clipped);
    w.session.setPaused(false);
    onNextDialog([](QDialog *question) {
        for (QAbstractButton *button : question->findChildren<QAbstractButton *>())
            if (qobject_cast<QMessageBox *>(question)->buttonRole(button)
                == QMessageBox::DestructiveRole)
                button->click();
    });
    w.action("clear")->trigger();
    lookAtWindows("cleared", clipped);
    menus.walk();
}

//! Looks at what an entry of View shows only for spots, those of a list with its plan.
void lookAtSpots(WindowInTest &w, const QString &spots, ClippedTexts &clipped, MenuWalk &menus)
{
    putFile(spots,
            "x_mm,y_mm,mu,sigma_x_mm,sigma_y_mm,x_planned_mm,y_planned_mm\n1,2,3,2,2,1.5,2\n4,5,6,"
            "2,2,4,5.5\n");
    w.window.sources().open(spots);
    w.clock.advance(0.5);
    w.action("spots")->trigger();
    QCoreApplication::processEvents();
    QVERIFY(w.window.findChild<QWidget *>("spots")->isVisible());
    lookAtWindows("spots", clipped);
    menus.walk();
    menus.again("limits"); // a list has more rows than the dialog shows at once with large text
}

//! How the window reads and looks: keys and texts in every language, sizes, screens and palettes.
class tst_WindowAppearance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void keysAndMnemonicsDoNotClash_data() { addLanguages(); }
    void keysAndMnemonicsDoNotClash()
    {
        const InLanguage inLanguage(cell("language"));
        SmallWindow w(file("keys.xui"));
        QMap<QString, QString> owners;
        QSet<const QAction *> inMenus;
        QStringList clashes;
        const auto claim = [&](const QString &key, const QString &owner) {
            if (owners.contains(key))
                clashes.append(key + ": " + owners.value(key) + ", " + owner);
            owners.insert(key, owner);
        };
        for (const QAction *menu : w.window.menuBar()->actions())
            claim(QString("Alt+") + mnemonicOf(menu->text()), menu->text());
        for (QMenu *menu : w.menus()) {
            for (const QAction *entry : menu->actions()) {
                if (entry->isSeparator())
                    continue;
                const QChar letter = mnemonicOf(entry->text());
                if (!letter.isNull())
                    claim(menu->title() + " " + letter, entry->text());
                for (const QKeySequence &keys : entry->shortcuts())
                    claim(keys.toString(), entry->text());
                inMenus.insert(entry);
            }
        }
        for (const QAction *action : w.window.findChildren<QAction *>())
            for (const QKeySequence &keys : action->shortcuts())
                if (!inMenus.contains(action) && !keys.isEmpty())
                    claim(keys.toString(), action->text() + action->objectName());
        for (const QShortcut *shortcut : w.window.findChildren<QShortcut *>())
            claim(shortcut->key().toString(), shortcut->parent()->objectName());
        for (const QString &mnemonic : mnemonicsIn(&w.window))
            claim(mnemonic.section(':', 0, 0), mnemonic);
        QCOMPARE(clashes.join("; "), QString());
        QVERIFY(owners.size() > 50);
    }

    void mnemonicsOfDialogsDoNotClash_data() { addLanguages(); }
    void mnemonicsOfDialogsDoNotClash()
    {
        const InLanguage inLanguage(cell("language"));
        ManualClock clock;
        SettingsDialog settings(MonitorOptions(), file("dialog.xui"));
        auto *pages = settings.findChild<QTabWidget *>();
        QStringList clashes;
        for (int page = 0; page < pages->count(); ++page) {
            pages->setCurrentIndex(page);
            clashes += clashesIn(&settings);
        }
        ConnectDialog connection(clock, {});
        auto *kinds = connection.findChild<QListWidget *>("kinds");
        for (int row = 0; row < kinds->count(); ++row) {
            kinds->setCurrentRow(row);
            clashes += clashesIn(&connection);
        }
        QCOMPARE(clashes.join("; "), QString());
    }

    //! Tape, legend, time span and panels leave the plot half of a small window.
    void thePlotHasMostOfASmallWindow()
    {
        SmallWindow w(file("room.xui"));
        const QString table = file("seven.csv");
        putFile(table,
                "time_s,a_nA,b_nA,c_nA,d_nA,e_nA,f_nA,g_nA\n0,1,2,3,4,5,6,7\n1,1,2,3,4,5,6,7\n");
        QVERIFY(w.window.sources().open(table));
        w.clock.advance(2.0);
        w.window.displays().showDisplay("strip");
        w.window.resize(WindowInTest::smallScreen);
        const auto *plot = w.window.displays().scope()->findChild<QwtPlot *>();
        QTRY_VERIFY2(plot->height() >= WindowInTest::smallScreen.height() / 2,
                     qPrintable(QString::number(plot->height())));
    }

    void screensComeAndGo_data()
    {
        columns<QRect, QRect>("frame", "placed");
        QTest::newRow("inside") << QRect(10, 20, 800, 500) << QRect(10, 20, 800, 500);
        QTest::newRow("too large") << QRect(0, 0, 1600, 1000) << QRect(0, 0, 1024, 600);
        QTest::newRow("over two edges") << QRect(-100, 300, 800, 500) << QRect(0, 100, 800, 500);
        QTest::newRow("on the second screen")
            << QRect(1100, 50, 1600, 1000) << QRect(1100, 50, 1600, 1000);
        QTest::newRow("on a screen that is gone")
            << QRect(9000, -900, 800, 500) << QRect(224, 0, 800, 500);
    }
    void screensComeAndGo()
    {
        QFETCH(QRect, frame);
        QTEST(fitted(frame, {QRect(0, 0, 1024, 600), QRect(1024, 0, 1920, 1200)}), "placed");
    }

    //! A window that is placed before it is shown has room for its title; one that is not is placed by the desktop.
    void titlesAreOnTheScreen()
    {
        QWidget placed, fresh;
        placed.setGeometry(0, 0, 300, 200);
        fitToScreen(&placed);
        QVERIFY(placed.geometry().top() > 0);
        QCOMPARE(placed.size(), QSize(300, 200));
        fitToScreen(&fresh);
        QVERIFY(!fresh.testAttribute(Qt::WA_Moved));
    }

    void theStatisticsFollowThePalette()
    {
        SmallWindow w(file("palette.xui"));
        auto *page = w.window.findChild<QDockWidget *>("statistics")->widget();
        const QPalette before = QApplication::palette();
        QPalette dark = before;
        for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button})
            dark.setColor(role, QColor(30, 32, 35));
        for (const QPalette::ColorRole role :
             {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            dark.setColor(role, Qt::white);
        QApplication::setPalette(dark);
        QCoreApplication::processEvents();
        const QImage picture = page->grab().toImage();
        int light = 0;
        for (int y = 0; y < picture.height(); y += 4)
            for (int x = 0; x < picture.width(); x += 4)
                light += picture.pixelColor(x, y).lightness() > 200;
        const int all = picture.width() * picture.height() / 16;
        QApplication::setPalette(before);
        QVERIFY2(light < all / 10, qPrintable(QString("%1 of %2").arg(light).arg(all)));
    }

    //! Every entry of every menu, and what it opens, by keys; everything that is shown has room for its text.
    //! A machine of tests has no font for Japanese, whose texts are the shortest.
    void nothingIsClippedOnASmallScreen_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<int>("points"); // the size of the text; 0: as it comes
        QTest::addColumn<bool>("mirrored"); // as where people write from right to left
        QTest::addColumn<bool>("dark");
        for (const char *language : {"en", "de"}) {
            QTest::addRow("%s, light", language) << QString(language) << 0 << false << false;
            QTest::addRow("%s, dark", language) << QString(language) << 0 << false << true;
        }
        QTest::newRow("fr") << QString("fr") << 0 << false << false;
        QTest::newRow("24 points") << QString("en") << 24 << false << false;
        QTest::newRow("right to left, marked") << QString("marked") << 0 << true << false;
    }
    void nothingIsClippedOnASmallScreen()
    {
        QFETCH(int, points);
        QFETCH(bool, dark);
        const bool isMarked = cell("language") == "marked"; // so that an English text is found
        const InLanguage inLanguage(isMarked ? "en" : cell("language"));
        std::optional<MarkedLanguage> marked;
        if (isMarked)
            marked.emplace();
        const InPoints inPoints(points);
        const InDirection inDirection(cell<bool>("mirrored") ? Qt::RightToLeft : Qt::LeftToRight);
        // A person who reads larger text has a larger screen, as far as there are any.
        const QSize screen =
            points > 10 ? 2 * WindowInTest::smallScreen : WindowInTest::smallScreen;
        WindowInTest w(m_folder.filePath(QTest::currentDataTag()), screen);
        w.source->begin(StreamKind::Strips, 64);
        w.run(3);
        ClippedTexts clipped(screen, isMarked ? &MarkedLanguage::unmarked : nullptr);
        MenuWalk menus(w.window, clipped);
        auto *appearance = w.window.findChild<Appearance *>();
        appearance->choose(dark ? Appearance::Choice::Dark : Appearance::Choice::Light);
        QCoreApplication::processEvents();
        const QPalette palette = QApplication::palette();
        const QColor &faint = palette.color(QPalette::PlaceholderText); // of explanations
        QCOMPARE(faint.alpha(), 255);
        QVERIFY(std::abs(faint.lightness() - palette.color(QPalette::Window).lightness()) > 70);
        menus.walk();
        lookAtDocksAndImport(w, file("import.csv"), clipped);
        lookAtLoudStates(w, file("clipped.csv"), clipped, menus);
        lookAtSpots(w, file("spots.csv"), clipped, menus);
        QVERIFY2(
            menus.dialogs() >= 8 && clipped.looked() > 500,
            qPrintable(QString("%1 dialogs, %2 parts").arg(menus.dialogs()).arg(clipped.looked())));
        QVERIFY(w.window.rect().contains(w.window.statusBar()->geometry()));
        menus.leave();
        QVERIFY(!w.window.isVisible());
        QCOMPARE(clipped.text(), QString());
        QCOMPARE(menus.missed(), QString());
    }

    //! The buttons of the question about a table stay on the lowest screen that the window is made for.
    void theImportDialogFitsALowScreen()
    {
        putFile(file("low.csv"), "left;right\n1,5;2\n2,5;3\n");
        const ImportDialog dialog(file("low.csv"));
        const QSize least = dialog.minimumSizeHint();
        QVERIFY2(least.width() <= 800 && least.height() <= 320,
                 qPrintable(QString("%1 x %2").arg(least.width()).arg(least.height())));
    }

    //! Whether there is room for all columns or not, no title is cut.
    void titlesOfLimitsAreWhole()
    {
        const InPoints large(24);
        StreamHeader header;
        header.channels = StreamHeader::defaultChannels(StreamKind::Channels, 40);
        LimitsDialog dialog(header);
        dialog.show();
        ClippedTexts clipped(2 * WindowInTest::smallScreen);
        for (const int part : {1, 2}) {
            dialog.resize(dialog.width() / part, dialog.height());
            QCoreApplication::processEvents();
            clipped.look("limits", &dialog);
        }
        QCOMPARE(clipped.text(), QString());
    }

    //! A scroll bar beside the values takes its room from the names.
    void manyValuesHaveTheirRoom()
    {
        WindowInTest w(file("many.xui"), QSize(1600, 1000));
        QVERIFY(w.window.sources().open("sim:pixels"));
        w.clock.advance(0.5);
        QCoreApplication::processEvents();
        const QHeaderView *header = w.values()->horizontalHeader();
        QVERIFY(w.values()->verticalScrollBar()->isVisible());
        QCOMPARE(header->length(), header->viewport()->width());
        QVERIFY(header->sectionSize(1)
                > w.values()->fontMetrics().horizontalAdvance(" -0.0000e-00 "));
    }

    //! A word in the place of a reading stands where readings stand.
    void wordsStandWhereReadingsStand()
    {
        SmallWindow w(file("words.xui"));
        w.source->begin(StreamKind::Channels, 1);
        QCOMPARE(w.value(0), QString("N/A"));
        const QRect cell = w.values()->visualRect(w.values()->model()->index(0, 1));
        const QImage picture = w.values()->viewport()->grab(cell).toImage();
        const auto words = [](const QColor &pixel) { return pixel.lightness() < 128; };
        const QSize half(picture.width() / 2, picture.height());
        QCOMPARE(countPixels(picture.copy({QPoint(), half}), words), 0);
        QVERIFY(countPixels(picture.copy({QPoint(half.width(), 0), half}), words) > 10);
    }

    //! A text that has not its room is found, in the window and in what an entry of a menu opens.
    void aClippedTextIsFound()
    {
        SmallWindow w(file("planted.xui"));
        QMenu *menu = w.menus().first();
        const auto planted = [](const QString &text, QWidget *parent) {
            auto *label = new QLabel(text, parent);
            label->setFixedWidth(label->sizeHint().width() / 2);
            return label;
        };
        QObject::connect(menu->addAction("Planted..."), &QAction::triggered, &w.window, [&] {
            QDialog dialog(&w.window);
            auto *layout = new QVBoxLayout(&dialog);
            layout->addWidget(planted("in a dialog", &dialog));
            layout->addWidget(new QLabel("with enough room", &dialog));
            dialog.exec();
        });
        w.window.statusBar()->addPermanentWidget(planted("in the window", w.window.statusBar()));
        menu->addAction("Never")->setEnabled(false);
        ClippedTexts clipped(WindowInTest::smallScreen);
        MenuWalk menus(w.window, clipped);
        menus.walk();
        QVERIFY2(menus.missed().contains("Never"), qPrintable(menus.missed()));
        QVERIFY2(clipped.text().contains("Planted...: QLabel  \"in a dialog\""),
                 qPrintable(clipped.text()));
        QVERIFY2(clipped.text().contains("QLabel  \"in the window\""), qPrintable(clipped.text()));
        QVERIFY(!clipped.text().contains("enough"));
        const MarkedLanguage marked; // finds what is not translated
        QCOMPARE(MarkedLanguage::unmarked(new QLabel("%1 of it is left", &w.window)).size(), 1);
        QCOMPARE(MarkedLanguage::unmarked(new QLabel(Text::noThread(), &w.window)).size(), 0);
    }

    void everyDialogOpensAndClosesByKeys()
    {
        SmallWindow w(file("dialogs.xui"));
        w.source->begin(StreamKind::Strips, 64);
        w.run(3);
        QStringList ways;
        for (const QAction *entry : w.window.menuBar()->actions())
            addWays(entry->menu(), mnemonicOf(entry->text()), &ways);
        const auto visibleDialog = [] {
            QDialog *found = nullptr;
            for (QWidget *shown : QApplication::topLevelWidgets())
                if (shown->isVisible() && qobject_cast<QDialog *>(shown))
                    found = qobject_cast<QDialog *>(shown);
            return found;
        };
        int reached = 0;
        for (const QString &way : qAsConst(ways)) {
            int dialogs = 0;
            const auto escape = [&](QDialog *dialog) {
                ++dialogs;
                const QPointer<QDialog> opened = dialog;
                QTRY_VERIFY2(QApplication::activeWindow() == dialog, qPrintable(way));
                if (!qobject_cast<QFileDialog *>(dialog)) { // which is Qt's own
                    FocusWalk focus(dialog);
                    focus.walk();
                    QVERIFY2(focus.missed().isEmpty(), qPrintable(way + ": " + focus.missed()));
                    reached += focus.reached();
                }
                press(Qt::Key_Escape);
                QVERIFY2(!opened || !opened->isVisible(), qPrintable(way));
            };
            QTRY_VERIFY((w.window.activateWindow(), QApplication::activeWindow() == &w.window));
            onEveryDialog(escape, [&way] {
                press(Qt::Key(way.at(0).unicode()), Qt::AltModifier);
                QTRY_VERIFY(QApplication::activePopupWidget());
                for (const QChar letter : way.mid(1))
                    press(Qt::Key(letter.unicode()));
            });
            if (QDialog *dialog = visibleDialog())
                escape(dialog); // one that leaves the window usable
            QVERIFY2(dialogs == 1, qPrintable(way));
        }
        QVERIFY2(ways.size() >= 8 && reached > 60, qPrintable(QString::number(reached)));
    }

    //! The end of the program waits with a word, and there is nothing to wait for without files.
    void theEndWaitsForCompression()
    {
        SegmentCompressor compressor;
        CompressionWait(compressor).wait();
        for (const char *name : {"first.csv", "second.csv"}) {
            putFile(file(name), QByteArray(5000000, 'x'));
            compressor.add(file(name), zstdConversion());
        }
        CompressionWait(compressor).wait();
        QCOMPARE(compressor.pending(), QStringList());
        QCOMPARE(compressor.takeErrors(), QStringList());
        QVERIFY(QFile::exists(completedPath(file("first.csv"), SegmentForm::Zstd)));
        QVERIFY(!QFile::exists(file("second.csv")));
    }

    //! Whatever the size of the window, the status line is in it, and what it cuts ends with an ellipsis.
    void theStatusLineStaysInTheWindow()
    {
        SmallWindow w(file("status.xui"));
        w.source->live = true;
        w.source->begin(StreamKind::Channels, 2, "nA");
        w.run(3);
        w.session.setPaused(true);
        const QString path =
            file("a-recording-with-a-name-that-is-longer-than-its-field-is-wide.csv");
        QCOMPARE(w.record(path), QString());
        w.clock.advance(0.25); // less than three intervals: not silent yet
        auto *log = w.window.findChild<QDockWidget *>("log");
        auto *scope = w.window.displays().scope();
        const auto *recording = w.window.statusBar()->findChild<StatusField *>("recording");
        const auto *notices = w.window.statusBar()->findChild<StatusField *>("notices");
        for (const QSize &size :
             {QSize(1600, 1000), QSize(900, 440), QSize(1024, 600), QSize(800, 360)}) {
            w.window.resize(size);
            QCoreApplication::processEvents();
            QCOMPARE(w.window.size(), size);
            const QWidget *status = w.window.statusBar();
            QVERIFY(status->isVisible());
            QVERIFY(w.window.rect().contains(status->geometry()));
            for (const StatusField *field : status->findChildren<StatusField *>())
                QVERIFY2(status->rect().contains(field->geometry()),
                         qPrintable(field->objectName()));
            QVERIFY2(notices->shownTexts().join('|').contains("PAUSED"),
                     qPrintable(notices->shownTexts().join('|')));
            // What is hidden for the plot comes back with the room for it.
            QCOMPARE(log->isVisible(), size.height() >= 700);
            QCOMPARE(scope->areControlsVisible(), size.height() >= 700);
        }
        QVERIFY(recording->shownTexts().first().endsWith(QChar(0x2026)));
        QVERIFY(recording->toolTip().contains("longer-than-its-field"));
        QVERIFY(notices->toolTip().contains("Space"));
        log->toggleViewAction()->trigger(); // the operator wants to see it here
        w.window.resize(1600, 1000);
        w.window.resize(1024, 600);
        QVERIFY(!log->isVisible());
    }

    //! A state that has not its room ends with an ellipsis within the field.
    void aStateIsShortenedWithinItsField()
    {
        StatusField field("notices", nullptr);
        field.tell(
            QVector<StatusField::Part>{{"SIMULATED", {}, Look::State::Simulated},
                                       {"PAUSED, 281 readings wait", {}, Look::State::Paused}});
        const QFontMetrics metrics(field.font());
        field.resize(metrics.horizontalAdvance("SIMULATED PAUSED, 281"), 20);
        const QStringList texts = field.shownTexts();
        QCOMPARE(texts.first(), QString("SIMULATED"));
        QVERIFY2(texts.last().startsWith("PA") && texts.last().endsWith(QChar(0x2026)),
                 qPrintable(texts.last()));
        QVERIFY(metrics.horizontalAdvance(texts.join(' ')) < field.width());

        // With enough room, a state ends before the edge of its background.
        field.tell(QVector<StatusField::Part>{{"PAUSED", {}, Look::State::Paused}});
        field.resize(field.sizeHint());
        const QImage picture = field.grab().toImage();
        const int ground = field.width() - Look::gap / 2;
        const int end = int(ground * picture.devicePixelRatio());
        const QImage edge = picture.copy(end - 2, 0, 2, picture.height());
        QCOMPARE(countPixels(edge,
                             [](const QColor &pixel) {
                                 return pixel == Look::ground(Look::State::Paused);
                             }),
                 edge.width() * edge.height());
    }

    //! A number stays before its unit in a mirrored window.
    void theStatusLineReadsAlikeInBothDirections()
    {
        const auto picture = [](Qt::LayoutDirection way) {
            const InDirection inDirection(way);
            StatusField field("the rate", nullptr);
            field.tell("10.0 /s");
            field.resize(field.sizeHint());
            return field.grab().toImage();
        };
        QCOMPARE(picture(Qt::RightToLeft), picture(Qt::LeftToRight));
    }

    void textsFromOutsideAreNoMarkup()
    {
        WindowInTest w(file("markup.xui"));
        const QString markup = "<b>bold</b><img src='/etc/x'>";
        w.source->setState(Source::State::Failed, markup);
        w.clock.advance(0.3);
        auto *source = w.window.statusBar()->findChild<QLabel *>("source");
        QCOMPARE(source->text(), markup);
        QCOMPARE(source->textFormat(), Qt::PlainText);
        QVERIFY(w.log().contains(markup));
        QVERIFY(w.notice().startsWith(markup));
    }

    void theLookOfChannelsIsKept()
    {
        for (const bool first : {true, false}) {
            WindowInTest w(file("look.xui"));
            w.source->begin(StreamKind::Channels, 2, QStringLiteral("A"));
            Corvale_Qt::RVXScopePlotView *view = w.window.displays().scope()->plotView();
            QVERIFY(QTest::qWaitForWindowActive(&w.window));
            QCOMPARE(view->isLegendVisible(), first);
            QCOMPARE(view->hasBarNames(), first);
            QCOMPARE(view->valueUnit(), first ? QString() : QString("pA"));
            w.run(4);
            QVERIFY2(w.value(0).endsWith(first ? " A" : " pA"), qPrintable(w.value(0)));
            if (!first)
                continue;
            QTest::keyClick(&w.window, Qt::Key_G, Qt::ControlModifier);
            w.window.findChild<QAction *>("barNames")->trigger();
            view->setValueUnit(QStringLiteral("pA"));
            QVERIFY(!view->isLegendVisible() && !view->hasBarNames());
        }
    }

private:
    QString file(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

CORVALE_QT_TEST_MAIN(tst_WindowAppearance)
#include "tst_WindowAppearance.moc"
