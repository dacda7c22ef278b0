// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/scope/StatisticsPage.h"
#include "tests/support/BracketTranslator.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

/*! Returns a settings file with two groups in the order of their names. Elements are written "name value" and are children
    of the group before them, whose name stands alone. */
QByteArray xml(const QByteArray &text)
{
    QByteArray document = "<Settings>";
    QByteArray group;
    for (const QByteArray &element : text.split(';')) {
        const QByteArrayList words = element.trimmed().split(' ');
        if (words.size() == 1) {
            document += (group.isEmpty() ? "" : "</" + group + ">") + "<" + words[0] + ">";
            group = words[0];
        } else {
            document += "<" + words[0] + ">" + words[1] + "</" + words[0] + ">";
        }
    }
    return document + "</" + group + "></Settings>";
}

const QByteArray fullFile = xml(
    "FactoryReset; center-of-gravity true; center-of-gravity-window true; center-of-threshold 3; "
    "center-of-window 4; chi2-window 7; gaussian-fit-regression-threhold 5; "
    "gaussian-fit-regression-window 6; peaks 1; "
    "StatisticsSetupPage; center-of-gravity true; center-of-gravity-noise-threshold true; "
    "center-of-gravity-window false; center-of-threshold 25; center-of-window 12; chi2-window 9; "
    "display-full-stats true; gaussian-fit-regression true; "
    "gaussian-fit-regression-threhold 30; gaussian-fit-regression-window 14; peaks 2");

//! Returns the state of a new page that loads the file.
QString stateOfNextPage(const QFileInfo &file, bool useXmlFormat = true)
{
    RVXStatisticsSetupPage page;
    page.setApplicationSettings(file, false, useXmlFormat);
    return stateOf(page);
}

} // namespace

class tst_RVXStatisticsSetupPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults()
    {
        RVXStatisticsSetupPage page;
        QCOMPARE(stateOf(page), QString(defaultState));
        QCOMPARE(child<QDoubleSpinBox>(page, "peakthreshold")->value(), 1e-15);
        QCOMPARE(child<QDoubleSpinBox>(page, "peakthreshold")->text(), QString("1e-15"));
        QCOMPARE(child<QDoubleSpinBox>(page, "sumthreshold")->value(), 1e-14);
        QVERIFY(child<QWidget>(page, "factoryResetPushButton")->isHidden());
        QVERIFY(page.styleSheet().startsWith("/* Don't shrink editor font */"));
        QCOMPARE(page.gaussianLayout()->objectName(), QString("gaussianLayout"));
        QCOMPARE(page.layout(), qobject_cast<QVBoxLayout *>(page.QWidget::layout()));
    }

    void controlsToParameters()
    {
        RVXStatisticsSetupPage page;
        page.show();
        Announcements announced(page);
        const auto press = [&page](const char *control, Qt::Key key) {
            QTest::keyClick(child<QWidget>(page, control), key);
        };
        toggleGroup(page, "CoGCBox");
        QCOMPARE(announced.takeCoG(), QString("1x on 0 0.1 10, 1 peaks"));
        type(page, "CoGThresholdEdit", "25");
        QVERIFY(announced.takeCoG().endsWith("on 0 0.25 10, 1 peaks"));
        press("CoGWindowEdit", Qt::Key_Up);
        QCOMPARE(announced.takeCoG(), QString("1x on 0 0.25 11, 1 peaks"));
        press("CoGWindowRadio", Qt::Key_Space);
        QCOMPARE(announced.takeCoG(), QString("1x on 1 0.25 11, 1 peaks"));
        press("CoGThresholdRadio", Qt::Key_Space);
        QCOMPARE(announced.takeCoG(), QString("1x on 0 0.25 11, 1 peaks"));
        QCOMPARE(announced.takeFit(), QString());

        page.enable_regression();
        QCOMPARE(announced.takeFit(), QString("1x on 0.1 10 1e-15 1e-14 2 5, 1 peaks"));
        type(page, "RegressionThresholdEdit", "50");
        type(page, "RegressionWindowEdit", "1024");
        type(page, "peakthreshold", "2.5e-10");
        QVERIFY(announced.takeFit().endsWith("on 0.5 1024 2.5e-10 1e-14 2 5, 1 peaks"));
        type(page, "sumthreshold", "1e-9");
        QVERIFY(announced.takeFit().endsWith("on 0.5 1024 2.5e-10 1e-09 2 5, 1 peaks"));
        QCOMPARE(announced.takeCoG(), QString());

        toggleGroup(page, "fullStatsCBox");
        press("Chi2WindowEdit", Qt::Key_Down);
        QCOMPARE(announced.takeFit(), QString("2x on 0.5 1024 2.5e-10 1e-09 2 4, 1 peaks"));
        QCOMPARE(announced.takeCoG(), QString("2x on 0 0.25 11, 1 peaks"));
        press("peaksEdit", Qt::Key_Down);
        QCOMPARE(announced.takeCoG(), QString("1x on 0 0.25 11, 2 peaks"));
        QCOMPARE(announced.takeFit(), QString("1x on 0.5 1024 2.5e-10 1e-09 2 4, 2 peaks"));
        toggleGroup(page, "CoGCBox");
        toggleGroup(page, "regressionCBox");
        QCOMPARE(announced.takeCoG() + announced.takeFit(),
                 QString("1x off, 2 peaks1x off, 2 peaks"));

        QStringList chosen;
        for (const int n : {1, 2, 4, 8, 3, 0, -1, 16}) {
            page.set_peaks(n);
            chosen << child<QComboBox>(page, "peaksEdit")->currentText();
            QVERIFY(announced.takeCoG().startsWith("1x off"));
            QVERIFY(announced.takeFit().startsWith("1x off"));
        }
        QCOMPARE(chosen.join(' '), QString("1 2 4 8 1 1 1 1"));
    }

    //! The full statistics also enable the threshold and the window of either group, whatever happens around the page.
    void editorsFollowTheirGroups()
    {
        QWidget host;
        RVXStatisticsSetupPage page(&host);
        const auto enabled = [&] {
            QStringList names;
            const QString all = "CoGThresholdEdit CoGWindowEdit CoGWindowRadio "
                                "RegressionThresholdEdit RegressionWindowEdit peakthreshold "
                                "Chi2WindowEdit";
            for (const QString &name : all.split(' ')) {
                if (child<QWidget>(page, name.toLatin1())->isEnabled())
                    names << name;
            }
            return names.join(' ');
        };
        const QString ofFullStatistics("CoGThresholdEdit CoGWindowEdit RegressionThresholdEdit "
                                       "RegressionWindowEdit Chi2WindowEdit");
        QCOMPARE(enabled(), QString());
        toggleGroup(page, "CoGCBox");
        QCOMPARE(enabled(), QString("CoGThresholdEdit CoGWindowEdit CoGWindowRadio"));
        toggleGroup(page, "CoGCBox");
        toggleGroup(page, "fullStatsCBox");
        QCOMPARE(enabled(), ofFullStatistics);
        host.show();
        QCOMPARE(enabled(), ofFullStatistics);
        host.setEnabled(false);
        QCOMPARE(enabled(), QString());
        type(page, "CoGWindowEdit", "11"); // by a program, while the operator is locked out
        toggleGroup(page, "CoGCBox");
        toggleGroup(page, "CoGCBox");
        host.setEnabled(true);
        QCOMPARE(enabled(), ofFullStatistics);
        page.hide();
        page.setParent(nullptr);
        page.show();
        QCOMPARE(enabled(), ofFullStatistics);
        toggleGroup(page, "fullStatsCBox");
        page.setEnabled(false);
        page.setEnabled(true);
        QCOMPARE(enabled(), QString());
    }

    void viewsFollow()
    {
        RVXStatisticsSetupPage page;
        auto first = std::make_unique<RVXScopePlotView>();
        RVXScopePlotView second;
        const auto items = [](const RVXScopePlotView &view) {
            return QString("%1 cog, %2 fit")
                .arg(view.histogramItems(RVXScopePlotView::CenterOfGravityItem).size())
                .arg(view.histogramItems(RVXScopePlotView::RegressionItem).size());
        };
        page.addPlotView(first.get());
        page.addPlotView(nullptr);
        page.set_peaks(4);
        toggleGroup(page, "CoGCBox");
        QCOMPARE(items(*first), QString("4 cog, 0 fit"));
        page.addPlotView(&second); // follows immediately
        QCOMPARE(items(second), QString("4 cog, 0 fit"));
        first.reset(); // the page must not use it any more
        page.enable_regression();
        page.set_peaks(8);
        QCOMPARE(items(second), QString("8 cog, 8 fit"));
        toggleGroup(page, "CoGCBox");
        QCOMPARE(items(second), QString("0 cog, 8 fit"));

        // A view that is a child of the page is deleted after the page's private part.
        auto *host = new RVXStatisticsSetupPage;
        host->addPlotView(new RVXScopePlotView(host));
        delete host;
    }

    //! The choices of the page and what they make of a small profile, worked out by hand.
    void throughToTheHistogram()
    {
        ModelView view(8);
        view.model.show({1, 0, 4, 8, 4, 0, 0, 3});
        view.SetPlotMode(RVXScopePlotView::HistogramMode);
        RVXStatisticsSetupPage page;
        page.addPlotView(&view);
        int lines = 0;
        const auto results = [&](RVXScopePlotView::HistogramItemTypes type) {
            view.settle();
            QStringList texts;
            for (const auto *item : view.histogramItems(type)) {
                const QString message = item->statusMessage();
                texts << (message.isEmpty() ? QString::number(item->position(), 'f', 2) : message);
                lines = item->label().count('\n');
            }
            return texts.join(' ');
        };
        const auto cog = RVXScopePlotView::CenterOfGravityItem;
        const auto fit = RVXScopePlotView::RegressionItem;
        toggleGroup(page, "CoGCBox");
        toggleGroup(page, "regressionCBox");
        type(page, "CoGThresholdEdit", "30");
        QCOMPARE(results(cog), QString("4.63")); // 88 / 19, not the 1
        page.set_peaks(2);
        QCOMPARE(results(cog), QString("3.67 6.29")); // 44 / 12 and 44 / 7
        page.set_peaks(1);
        QCOMPARE(results(fit), QString("4.00")); // 4, 8, 4 are symmetric
        type(page, "sumthreshold", "21");
        QCOMPARE(results(fit), QString("Signal below threshold."));
        const int brief = lines;
        toggleGroup(page, "fullStatsCBox");
        results(fit);
        QCOMPARE(lines, brief + 5);
    }

    void keyboard()
    {
        RVXStatisticsSetupPage page;
        for (const char *name : {"CoGCBox", "regressionCBox", "fullStatsCBox"})
            toggleGroup(page, name);
        page.show();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        child<QWidget>(page, "peaksEdit")->setFocus();
        QStringList visited;
        for (int i = 0; i < 12; ++i) {
            visited << page.focusWidget()->objectName();
            QTest::keyClick(page.focusWidget(), Qt::Key_Tab);
        }
        // Tab moves to the radio button that is on; the arrow keys reach the other one.
        QCOMPARE(
            visited.join(' '),
            QString(
                "peaksEdit CoGCBox CoGThresholdRadio CoGThresholdEdit CoGWindowEdit regressionCBox "
                "RegressionThresholdEdit RegressionWindowEdit peakthreshold sumthreshold "
                "fullStatsCBox "
                "Chi2WindowEdit"));
    }

    void translation()
    {
        RVXStatisticsSetupPage page, untitled;
        page.setWindowTitle("the host's");
        page.set_peaks(4);
        const BracketTranslator translator;
        QCOMPARE(child<QGroupBox>(page, "CoGCBox")->title(), QString("<Center of Gravity>"));
        QCOMPARE(child<QAbstractButton>(page, "factoryResetPushButton")->text(),
                 QString("<factory reset>"));
        QCOMPARE(child<QComboBox>(page, "peaksEdit")->currentText(), QString("4"));
        QCOMPARE(page.windowTitle(), QString("the host's"));
        QCOMPARE(untitled.windowTitle(), QString("<Data Analysis>"));
    }

    void nothingIsClipped()
    {
        RVXStatisticsSetupPage page;
        page.resize(1, 1);
        page.show();
        for (QWidget *widget : page.findChildren<QWidget *>()) {
            if (!widget->isVisible() || widget->objectName().startsWith("qt_"))
                continue;
            const QSize needed = widget->minimumSizeHint();
            QVERIFY2(widget->width() >= needed.width() && widget->height() >= needed.height(),
                     qPrintable(widget->objectName()));
        }
        QVERIFY(child<QSpinBox>(page, "CoGThresholdEdit")->font().pointSize() == 13);
    }

    void initTestCase()
    {
        QCoreApplication::setOrganizationName("Beam Group");
        QCoreApplication::setApplicationName("panel");
    }

    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void loading_data()
    {
        columns<QByteArray, QString>("file", "state");
        const QByteArray page = "StatisticsSetupPage; ";
        row("a full file", fullFile, "stats cog fit threshold 4 25 12 30 14 9");
        row("no file", QByteArray(), defaultState);
        row("a file with other settings", xml("Window; x 1"), defaultState);
        row("what is missing reads as false or 0", xml(page + "center-of-gravity true"),
            "- cog - threshold 1 0 1 0 1 1");
        row("out of range",
            xml(page + "peaks 99; center-of-threshold -5; center-of-window 1e9; chi2-window 4096"),
            "- - - threshold 8 0 1 0 1 1024");
        row("laid out by hand",
            xml(page
                + "gaussian-fit-regression \n\tfalse\n; center-of-gravity-window TRUE; peaks \n1")
                .replace(">TRUE<", "> TRUE <"),
            "- - - window 2 0 1 0 1 1");
        row("both modes, the later one counts",
            xml(page + "center-of-gravity-noise-threshold true; center-of-gravity-window true"),
            "- - - window 1 0 1 0 1 1");
    }
    void loading()
    {
        QFETCH(QByteArray, file);
        if (!file.isEmpty())
            putFile(path("page.xui"), file);
        {
            RVXStatisticsSetupPage page;
            page.set_peaks(8); // must not remain
            child<QAbstractButton>(page, "CoGWindowRadio")->setChecked(true);
            Announcements announced(page);
            page.setApplicationSettings(QFileInfo(path("page.xui")), false, true);
            QTEST(stateOf(page), "state");
            QVERIFY(announced.takeCoG().startsWith("1x"));
            QVERIFY(announced.takeFit().startsWith("1x"));
        }
        // Loading writes nothing.
        QCOMPARE(fileContents(path("page.xui")), file.isEmpty() ? QByteArray("no file") : file);
    }

    void everyChoiceIsKept_data()
    {
        columns<bool>("useXmlFormat");
        row("XML", true);
        row("INI", false);
    }
    void everyChoiceIsKept()
    {
        QFETCH(bool, useXmlFormat);
        const QFileInfo file(path("page.settings"));
        RVXStatisticsSetupPage page;
        page.setApplicationSettings(file, false, useXmlFormat);
        // A control and its input: a number that is typed, or else a key.
        for (const QString &step :
             QString(
                 "fullStatsCBox; CoGCBox; regressionCBox; CoGWindowRadio; peaksEdit; "
                 "CoGThresholdEdit 77; CoGWindowEdit 88; RegressionThresholdEdit 99; "
                 "RegressionWindowEdit 111; Chi2WindowEdit 222; CoGThresholdRadio; fullStatsCBox")
                 .split("; ")) {
            const QString before = stateOf(page);
            const QByteArray control = step.section(' ', 0, 0).toUtf8();
            if (step.contains(' '))
                type(page, control, step.section(' ', 1));
            else
                QTest::keyClick(child<QWidget>(page, control),
                                control == "peaksEdit" ? Qt::Key_Down : Qt::Key_Space);
            QVERIFY2(stateOf(page) != before, control);
            QCOMPARE(stateOfNextPage(file, useXmlFormat), stateOf(page));
        }
        page.set_peaks(8); // a choice by the host is kept too
        QCOMPARE(stateOfNextPage(file, useXmlFormat), stateOf(page));
        QCOMPARE(stateOf(page), QString("- cog fit threshold 8 77 88 99 111 222"));
        QVERIFY(fileContents(file.filePath()).contains("gaussian-fit-regression-threhold"));
    }

    //! If the file had only the changed key, all others would be read as false or 0 the next time.
    void firstChangeKeepsTheDefaults()
    {
        const QFileInfo file(path("page.xui"));
        RVXStatisticsSetupPage page;
        page.setApplicationSettings(file, false, true);
        toggleGroup(page, "CoGCBox");
        QCOMPARE(stateOfNextPage(file), QString("- cog - threshold 1 10 10 10 10 5"));
    }

    void handEditsWhileRunning_data()
    {
        columns<QByteArray, QString, bool>("file", "keptState", "damaged");
        const QString kept = "stats cog fit threshold 4 25 12 30 14 10";
        row("another value", QByteArray(fullFile).replace(">14<", ">140<"),
            QString(kept).replace("14", "140"), false);
        row("the group is gone", xml("Window; x 1"), kept, false);
        row("the file is gone", QByteArray(), kept, false);
        row("it is damaged", fullFile.left(700), kept, true);
    }
    void handEditsWhileRunning()
    {
        QFETCH(QByteArray, file);
        QFETCH(bool, damaged);
        const QString name = path("page.xui");
        putFile(name, fullFile);
        RVXStatisticsSetupPage page;
        page.setApplicationSettings(QFileInfo(name), false, true);
        QFile::remove(name);
        if (!file.isEmpty())
            putFile(name, file);
        if (damaged)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("was damaged and is kept as"));
        QTest::keyClick(child<QWidget>(page, "Chi2WindowEdit"), Qt::Key_Up);
        QTEST(stateOfNextPage(QFileInfo(name)), "keptState");
        QCOMPARE(QFile::exists(name + ".damaged"), damaged);
    }

    void factoryReset()
    {
        const QString name = path("page.xui");
        putFile(name, fullFile);
        RVXStatisticsSetupPage page;
        page.setApplicationSettings(QFileInfo(name), false, true);
        auto *button = child<QAbstractButton>(page, "factoryResetPushButton");
        QVERIFY(!button->isHidden());
        Announcements announced(page);
        QTest::mouseClick(button, Qt::LeftButton);
        const QString factory = "- cog - window 2 3 4 5 6 7";
        QCOMPARE(stateOf(page), factory);
        QCOMPARE(announced.takeCoG(), QString("1x on 1 0.03 4, 2 peaks"));
        QCOMPARE(announced.takeFit(), QString("1x off, 2 peaks"));
        QCOMPARE(stateOfNextPage(QFileInfo(name)), factory);
        QVERIFY(fileContents(name).contains("<FactoryReset>"));

        page.setApplicationSettings(QFileInfo(path("other.xui")), false, true);
        QVERIFY(button->isHidden());
        const QString usual = stateOf(page);
        button->click(); // there is nothing to go back to
        QCOMPARE(stateOf(page), usual);
    }

    void placeOfTheFile_data()
    {
        columns<QString, bool, bool, QString>("given", "useIdentity", "useXmlFormat", "file");
        row("a folder", "", true, true, "Beam Group/panel.xui");
        row("a name without suffix", "settings", true, false, "settings/Beam Group/panel.ini");
        row("a hidden folder", ".settings", true, true, ".settings/Beam Group/panel.xui");
        row("a file's own folder", "any.xml", true, true, "Beam Group/panel.xui");
        row("the file itself", "any.xml", false, true, "any.xml");
    }
    void placeOfTheFile()
    {
        QFETCH(bool, useIdentity);
        QFETCH(bool, useXmlFormat);
        RVXStatisticsSetupPage page;
        page.setApplicationSettings(QFileInfo(path(cell("given"))), useIdentity, useXmlFormat);
        toggleGroup(page, "CoGCBox");
        const QByteArray contents = fileContents(path(cell("file")));
        QVERIFY2(contents.contains("center-of-gravity-noise-threshold"), contents);
        QCOMPARE(contents.startsWith("<?xml"), useXmlFormat);
    }

    void unwritablePlace()
    {
        putFile(path("file"), "in the way of a folder");
        RVXStatisticsSetupPage page;
        page.setApplicationSettings(QFileInfo(path("file/page.xui")), false, true);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("could not be saved to.*page\\.xui"));
        toggleGroup(page, "CoGCBox");
        QVERIFY(child<QGroupBox>(page, "CoGCBox")->isChecked());
    }

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

CORVALE_QT_TEST_MAIN(tst_RVXStatisticsSetupPage)
#include "tst_RVXStatisticsSetupPage.moc"
