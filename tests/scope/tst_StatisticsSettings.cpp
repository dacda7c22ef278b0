// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/scope/StatisticsPage.h"
#include "tests/support/Files.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

#include <QTemporaryDir>

#include <memory>

using namespace Corvale_Qt;

namespace {

const QByteArray fullFile = R"(<?xml version="1.0" encoding="UTF-8"?>
<Settings>
    <FactoryReset>
        <center-of-gravity>true</center-of-gravity>
        <center-of-gravity-window>true</center-of-gravity-window>
        <center-of-threshold>3</center-of-threshold>
        <center-of-window>4</center-of-window>
        <chi2-window>7</chi2-window>
        <gaussian-fit-regression-threhold>5</gaussian-fit-regression-threhold>
        <gaussian-fit-regression-window>6</gaussian-fit-regression-window>
        <peaks>1</peaks>
    </FactoryReset>
    <StatisticsSetupPage>
        <center-of-gravity>true</center-of-gravity>
        <center-of-gravity-noise-threshold>true</center-of-gravity-noise-threshold>
        <center-of-gravity-window>false</center-of-gravity-window>
        <center-of-threshold>25</center-of-threshold>
        <center-of-window>12</center-of-window>
        <chi2-window>9</chi2-window>
        <display-full-stats>true</display-full-stats>
        <gaussian-fit-regression>true</gaussian-fit-regression>
        <gaussian-fit-regression-threhold>30</gaussian-fit-regression-threhold>
        <gaussian-fit-regression-window>14</gaussian-fit-regression-window>
        <peaks>2</peaks>
    </StatisticsSetupPage>
</Settings>
)";

//! Returns the state of a new page that loads the file.
QString stateOfNextPage(const QFileInfo &file, bool useXmlFormat = true)
{
    RVXStatisticsSetupPage page;
    page.setApplicationSettings(file, false, useXmlFormat);
    return stateOf(page);
}

} // namespace

//! How the statistics page writes and reads its settings file.
class tst_StatisticsSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName("Beam Group");
        QCoreApplication::setApplicationName("panel");
    }

    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void loading_data()
    {
        columns<QByteArray, QString>("file", "state");
        const auto group = [](const QByteArray &elements) {
            return "<Settings><StatisticsSetupPage>" + elements
                + "</StatisticsSetupPage></Settings>";
        };
        row("a full file", fullFile, "stats cog fit threshold 4 25 12 30 14 9");
        row("no file", QByteArray(), defaultState);
        row("a file with other settings",
            QByteArray("<Settings><Window><x>1</x></Window></Settings>"),
            defaultState);
        row("what is missing reads as false or 0",
            group("<center-of-gravity>true</center-of-gravity>"),
            "- cog - threshold 1 0 1 0 1 1");
        row("out of range",
            group("<peaks>99</peaks><center-of-threshold>-5</center-of-threshold>"
                  "<center-of-window>1e9</center-of-window><chi2-window>4096</chi2-window>"),
            "- - - threshold 8 0 1 0 1 1024");
        row("laid out by hand",
            group("<gaussian-fit-regression>\n  "
                  "false\n</gaussian-fit-regression><center-of-gravity-window> TRUE "
                  "</center-of-gravity-window><peaks>\n 1 \n</peaks>"),
            "- - - window 2 0 1 0 1 1");
        row("both modes, the later one counts",
            group("<center-of-gravity-noise-threshold>true</center-of-gravity-noise-threshold>"
                  "<center-of-gravity-window>true</center-of-gravity-window>"),
            "- - - window 1 0 1 0 1 1");
    }

    void loading()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, state);
        if (!file.isEmpty())
            putFile(path("page.xui"), file);
        RVXStatisticsSetupPage page;
        page.set_peaks(8); // must not remain
        child<QAbstractButton>(page, "CoGWindowRadio")->setChecked(true);
        Announcements announced(page);
        page.setApplicationSettings(QFileInfo(path("page.xui")), false, true);
        QCOMPARE(stateOf(page), state);
        QVERIFY(announced.takeCoG().startsWith("1x"));
        QVERIFY(announced.takeFit().startsWith("1x"));
    }

    void loadingWritesNothing()
    {
        putFile(path("page.xui"), fullFile + "<!-- a remark -->");
        {
            RVXStatisticsSetupPage page;
            page.setApplicationSettings(QFileInfo(path("page.xui")), false, true);
        }
        QCOMPARE(fileContents(path("page.xui")), fullFile + "<!-- a remark -->");
        {
            RVXStatisticsSetupPage page;
            page.setApplicationSettings(QFileInfo(path("none.xui")), false, true);
        }
        QVERIFY(!QFile::exists(path("none.xui")));
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
        // The input is text for a spin box, a space for a button or "down" for the combo box.
        const std::pair<const char *, QString> steps[] = {{"fullStatsCBox", " "},
                                                          {"CoGCBox", " "},
                                                          {"regressionCBox", " "},
                                                          {"CoGWindowRadio", " "},
                                                          {"peaksEdit", "down"},
                                                          {"CoGThresholdEdit", "77"},
                                                          {"CoGWindowEdit", "88"},
                                                          {"RegressionThresholdEdit", "99"},
                                                          {"RegressionWindowEdit", "111"},
                                                          {"Chi2WindowEdit", "222"},
                                                          {"CoGThresholdRadio", " "},
                                                          {"fullStatsCBox", " "}};
        for (const auto &[control, input] : steps) {
            const QString before = stateOf(page);
            if (input == "down")
                QTest::keyClick(child<QWidget>(page, control), Qt::Key_Down);
            else if (input == " ")
                QTest::keyClick(child<QWidget>(page, control), Qt::Key_Space);
            else
                type(page, control, input);
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
        columns<QByteArray, QString>("file", "keptState");
        row("another value",
            QByteArray(fullFile).replace(">14<", ">140<"),
            "stats cog fit threshold 4 25 12 30 140 10");
        row("the group is gone",
            QByteArray("<Settings><Window>1</Window></Settings>"),
            "stats cog fit threshold 4 25 12 30 14 10");
        row("the file is gone", QByteArray(), "stats cog fit threshold 4 25 12 30 14 10");
        row("it is damaged", fullFile.left(700), "stats cog fit threshold 4 25 12 30 14 10");
    }

    void handEditsWhileRunning()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, keptState);
        const QString name = path("page.xui");
        putFile(name, fullFile);
        RVXStatisticsSetupPage page;
        page.setApplicationSettings(QFileInfo(name), false, true);
        if (file.isEmpty())
            QFile::remove(name);
        else
            putFile(name, file);
        const bool damaged = qstrcmp(QTest::currentDataTag(), "it is damaged") == 0;
        if (damaged)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("was damaged and is kept as"));

        QTest::keyClick(child<QWidget>(page, "Chi2WindowEdit"), Qt::Key_Up);
        QCOMPARE(stateOfNextPage(QFileInfo(name)), keptState);
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
    }

    void placeOfTheFile_data()
    {
        columns<QString, bool, bool, QString>("given",
                                              "useApplicationIdentity",
                                              "useXmlFormat",
                                              "file");
        row("a folder", "", true, true, "Beam Group/panel.xui");
        row("a name without suffix", "settings", true, false, "settings/Beam Group/panel.ini");
        row("a hidden folder to be", ".settings", true, true, ".settings/Beam Group/panel.xui");
        row("a file's own folder", "any.xml", true, true, "Beam Group/panel.xui");
        row("the file itself", "any.xml", false, true, "any.xml");
    }

    void placeOfTheFile()
    {
        QFETCH(QString, given);
        QFETCH(bool, useApplicationIdentity);
        QFETCH(bool, useXmlFormat);
        QFETCH(QString, file);
        RVXStatisticsSetupPage page;
        page.setApplicationSettings(QFileInfo(path(given)), useApplicationIdentity, useXmlFormat);
        toggleGroup(page, "CoGCBox");
        QVERIFY2(fileContents(path(file)).contains("center-of-gravity-noise-threshold"),
                 fileContents(path(file)));
        QCOMPARE(fileContents(path(file)).startsWith("<?xml"), useXmlFormat);
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

CORVALE_QT_TEST_MAIN(tst_StatisticsSettings)
#include "tst_StatisticsSettings.moc"
