// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/scope/StatisticsPage.h"
#include "tests/support/Files.h"
#include "tests/support/Rows.h"
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
        const QByteArray page = "StatisticsSetupPage; ";
        row("a full file", fullFile, "stats cog fit threshold 4 25 12 30 14 9");
        row("no file", QByteArray(), defaultState);
        row("a file with other settings", xml("Window; x 1"), defaultState);
        row("what is missing reads as false or 0",
            xml(page + "center-of-gravity true"),
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
        row("another value",
            QByteArray(fullFile).replace(">14<", ">140<"),
            QString(kept).replace("14", "140"),
            false);
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
        QFETCH(QString, given);
        QFETCH(bool, useIdentity);
        QFETCH(bool, useXmlFormat);
        QFETCH(QString, file);
        RVXStatisticsSetupPage page;
        page.setApplicationSettings(QFileInfo(path(given)), useIdentity, useXmlFormat);
        toggleGroup(page, "CoGCBox");
        const QByteArray contents = fileContents(path(file));
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

CORVALE_QT_TEST_MAIN(tst_StatisticsSettings)
#include "tst_StatisticsSettings.moc"
