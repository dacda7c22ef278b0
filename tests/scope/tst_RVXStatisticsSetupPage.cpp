// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXStatisticsSetupPage.h"
#include "tests/support/BracketTranslator.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QTemporaryDir>
#include <QVBoxLayout>

using namespace Corvale_Qt;

namespace {

//! What was announced last, and how often: "2x on 1 0.1 10, 4 peaks".
class Announcements : public QObject
{
public:
    explicit Announcements(RVXStatisticsSetupPage &page)
    {
        const auto note = [](QString &text, int &count) {
            return [&text, &count](bool on, const QVector<double> &parameters, int peaks) {
                QStringList words{on ? "on" : "off"};
                for (const double parameter : parameters)
                    words << QString::number(parameter);
                text = words.join(' ') + QString(", %1 peaks").arg(peaks);
                ++count;
            };
        };
        connect(&page, &RVXStatisticsSetupPage::CoGOptions, this, note(m_cog, m_cogCount));
        connect(&page, &RVXStatisticsSetupPage::RegressionOptions, this, note(m_fit, m_fitCount));
    }

    QString takeCoG() { return take(m_cog, m_cogCount); }
    QString takeFit() { return take(m_fit, m_fitCount); }

private:
    static QString take(QString &text, int &count)
    {
        const QString taken = count ? QString("%1x %2").arg(count).arg(text) : QString();
        count = 0;
        return taken;
    }

    QString m_cog, m_fit;
    int m_cogCount = 0, m_fitCount = 0;
};

template<typename Widget>
Widget *child(QWidget &page, const char *name)
{
    auto *widget = page.findChild<Widget *>(name);
    if (!widget)
        qFatal("no %s", name);
    return widget;
}

void toggleGroup(QWidget &page, const char *name)
{
    QTest::keyClick(child<QGroupBox>(page, name), Qt::Key_Space);
}

void type(QWidget &page, const char *name, const QString &text)
{
    auto *spinBox = child<QAbstractSpinBox>(page, name);
    spinBox->selectAll();
    QTest::keyClicks(spinBox, text);
    QTest::keyClick(spinBox, Qt::Key_Return);
}

//! All that the page keeps: "stats cog fit" for what is on, then the mode, peaks and numbers.
QString stateOf(QWidget &page)
{
    const auto on = [&](const char *name, const char *word) {
        return child<QGroupBox>(page, name)->isChecked() ? QString(word) : QString("-");
    };
    QStringList words{on("fullStatsCBox", "stats"),
                      on("CoGCBox", "cog"),
                      on("regressionCBox", "fit")};
    words << (child<QAbstractButton>(page, "CoGThresholdRadio")->isChecked() ? "threshold"
                                                                             : "window");
    words << child<QComboBox>(page, "peaksEdit")->currentText();
    for (const char *name : {"CoGThresholdEdit",
                             "CoGWindowEdit",
                             "RegressionThresholdEdit",
                             "RegressionWindowEdit",
                             "Chi2WindowEdit"})
        words << QString::number(child<QSpinBox>(page, name)->value());
    return words.join(' ');
}

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

const char *const defaultState = "- - - threshold 1 10 10 10 10 5";

} // namespace

class tst_RVXStatisticsSetupPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_folder.reset(new QTemporaryDir); }

    void defaults();
    void controlsToParameters();
    void editorsFollowTheirGroups();
    void peaks();
    void viewsFollow();
    void keyboard();

    void loading_data();
    void loading();
    void loadingWritesNothing();
    void everyChoiceIsKept_data();
    void everyChoiceIsKept();
    void firstChangeKeepsTheDefaults();
    void handEditsWhileRunning_data();
    void handEditsWhileRunning();
    void factoryReset();
    void placeOfTheFile_data();
    void placeOfTheFile();
    void unwritablePlace();

    void translation();
    void nothingIsClipped();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_RVXStatisticsSetupPage::initTestCase()
{
    QCoreApplication::setOrganizationName("Beam Group");
    QCoreApplication::setApplicationName("panel");
}

void tst_RVXStatisticsSetupPage::defaults()
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

void tst_RVXStatisticsSetupPage::controlsToParameters()
{
    RVXStatisticsSetupPage page;
    page.show();
    Announcements announced(page);

    toggleGroup(page, "CoGCBox");
    QCOMPARE(announced.takeCoG(), QString("1x on 0 0.1 10, 1 peaks"));
    type(page, "CoGThresholdEdit", "25");
    QVERIFY(announced.takeCoG().endsWith("on 0 0.25 10, 1 peaks"));
    QTest::keyClick(child<QSpinBox>(page, "CoGWindowEdit"), Qt::Key_Up);
    QCOMPARE(announced.takeCoG(), QString("1x on 0 0.25 11, 1 peaks"));
    QTest::keyClick(child<QWidget>(page, "CoGWindowRadio"), Qt::Key_Space);
    QCOMPARE(announced.takeCoG(), QString("1x on 1 0.25 11, 1 peaks"));
    QTest::keyClick(child<QWidget>(page, "CoGThresholdRadio"), Qt::Key_Space);
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
    QTest::keyClick(child<QSpinBox>(page, "Chi2WindowEdit"), Qt::Key_Down);
    QCOMPARE(announced.takeFit(), QString("2x on 0.5 1024 2.5e-10 1e-09 2 4, 1 peaks"));
    QCOMPARE(announced.takeCoG(), QString("2x on 0 0.25 11, 1 peaks"));
    QTest::keyClick(child<QComboBox>(page, "peaksEdit"), Qt::Key_Down);
    QCOMPARE(announced.takeCoG(), QString("1x on 0 0.25 11, 2 peaks"));
    QCOMPARE(announced.takeFit(), QString("1x on 0.5 1024 2.5e-10 1e-09 2 4, 2 peaks"));

    toggleGroup(page, "CoGCBox");
    toggleGroup(page, "regressionCBox");
    QCOMPARE(announced.takeCoG(), QString("1x off, 2 peaks"));
    QCOMPARE(announced.takeFit(), QString("1x off, 2 peaks"));
}

//! The full statistics, too, make the threshold and the window of either group editable.
void tst_RVXStatisticsSetupPage::editorsFollowTheirGroups()
{
    RVXStatisticsSetupPage page;
    const auto enabled = [&] {
        QStringList names;
        for (const char *name : {"CoGThresholdEdit",
                                 "CoGWindowEdit",
                                 "CoGWindowRadio",
                                 "RegressionThresholdEdit",
                                 "RegressionWindowEdit",
                                 "peakthreshold",
                                 "Chi2WindowEdit"}) {
            if (child<QWidget>(page, name)->isEnabled())
                names << name;
        }
        return names.join(' ');
    };
    QCOMPARE(enabled(), QString());
    toggleGroup(page, "CoGCBox");
    QCOMPARE(enabled(), QString("CoGThresholdEdit CoGWindowEdit CoGWindowRadio"));
    toggleGroup(page, "CoGCBox");
    toggleGroup(page, "fullStatsCBox");
    QCOMPARE(enabled(),
             QString("CoGThresholdEdit CoGWindowEdit RegressionThresholdEdit "
                     "RegressionWindowEdit Chi2WindowEdit"));
}

void tst_RVXStatisticsSetupPage::peaks()
{
    RVXStatisticsSetupPage page;
    Announcements announced(page);
    QStringList chosen;
    for (const int n : {1, 2, 4, 8, 3, 0, -1, 16}) {
        page.set_peaks(n);
        chosen << child<QComboBox>(page, "peaksEdit")->currentText();
        QVERIFY(announced.takeCoG().startsWith("1x off"));
        QVERIFY(announced.takeFit().startsWith("1x off"));
    }
    QCOMPARE(chosen.join(' '), QString("1 2 4 8 1 1 1 1"));
}

void tst_RVXStatisticsSetupPage::viewsFollow()
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
    page.addPlotView(&second); // follows at once
    QCOMPARE(items(second), QString("4 cog, 0 fit"));
    first.reset(); // and is not spoken to any more
    page.enable_regression();
    page.set_peaks(8);
    QCOMPARE(items(second), QString("8 cog, 8 fit"));
    toggleGroup(page, "CoGCBox");
    QCOMPARE(items(second), QString("0 cog, 8 fit"));

    // A view that lives on the page itself goes after the page's own parts.
    auto *host = new RVXStatisticsSetupPage;
    host->addPlotView(new RVXScopePlotView(host));
    delete host;
}

void tst_RVXStatisticsSetupPage::keyboard()
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
    // Of two radio buttons Tab goes to the one that is on; the arrow keys go from there.
    QCOMPARE(
        visited.join(' '),
        QString(
            "peaksEdit CoGCBox CoGThresholdRadio CoGThresholdEdit CoGWindowEdit regressionCBox "
            "RegressionThresholdEdit RegressionWindowEdit peakthreshold sumthreshold fullStatsCBox "
            "Chi2WindowEdit"));
    for (QWidget *widget : page.findChildren<QWidget *>()) {
        const bool editor =
            qobject_cast<QAbstractSpinBox *>(widget) || qobject_cast<QComboBox *>(widget);
        if (editor)
            QVERIFY2(!widget->accessibleName().isEmpty(), qPrintable(widget->objectName()));
    }
}

void tst_RVXStatisticsSetupPage::loading_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("state");
    const auto group = [](const QByteArray &elements) {
        return "<Settings><StatisticsSetupPage>" + elements + "</StatisticsSetupPage></Settings>";
    };
    QTest::newRow("a full file") << fullFile << "stats cog fit threshold 4 25 12 30 14 9";
    QTest::newRow("no file") << QByteArray() << defaultState;
    QTest::newRow("a file of others")
        << QByteArray("<Settings><Window><x>1</x></Window></Settings>") << defaultState;
    QTest::newRow("what is missing reads as false or 0")
        << group("<center-of-gravity>true</center-of-gravity>") << "- cog - threshold 1 0 1 0 1 1";
    QTest::newRow("out of range") << group(
        "<peaks>99</peaks><center-of-threshold>-5</center-of-threshold>"
        "<center-of-window>1e9</center-of-window><chi2-window>4096</chi2-window>")
                                  << "- - - threshold 8 0 1 0 1 1024";
    QTest::newRow("laid out by hand")
        << group("<gaussian-fit-regression>\n  "
                 "false\n</gaussian-fit-regression><center-of-gravity-window> TRUE "
                 "</center-of-gravity-window><peaks>\n 1 \n</peaks>")
        << "- - - window 2 0 1 0 1 1";
    QTest::newRow("both modes, the later one counts")
        << group("<center-of-gravity-noise-threshold>true</center-of-gravity-noise-threshold>"
                 "<center-of-gravity-window>true</center-of-gravity-window>")
        << "- - - window 1 0 1 0 1 1";
}

void tst_RVXStatisticsSetupPage::loading()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, state);
    if (!file.isEmpty())
        putFile(path("page.xui"), file);
    RVXStatisticsSetupPage page;
    page.set_peaks(8); // of which nothing must remain
    child<QAbstractButton>(page, "CoGWindowRadio")->setChecked(true);
    Announcements announced(page);
    page.setApplicationSettings(QFileInfo(path("page.xui")), false, true);
    QCOMPARE(stateOf(page), state);
    QVERIFY(announced.takeCoG().startsWith("1x"));
    QVERIFY(announced.takeFit().startsWith("1x"));
}

void tst_RVXStatisticsSetupPage::loadingWritesNothing()
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

void tst_RVXStatisticsSetupPage::everyChoiceIsKept_data()
{
    QTest::addColumn<bool>("useXmlFormat");
    QTest::newRow("XML") << true;
    QTest::newRow("INI") << false;
}

void tst_RVXStatisticsSetupPage::everyChoiceIsKept()
{
    QFETCH(bool, useXmlFormat);
    const QFileInfo file(path("page.settings"));
    RVXStatisticsSetupPage page;
    page.setApplicationSettings(file, false, useXmlFormat);
    const auto kept = [&](const char *step) {
        RVXStatisticsSetupPage other;
        other.setApplicationSettings(file, false, useXmlFormat);
        if (stateOf(other) != stateOf(page))
            qWarning() << step << stateOf(other) << stateOf(page);
        return stateOf(other) == stateOf(page);
    };
    const QList<std::function<void()>> steps{
        [&] {
            toggleGroup(page, "fullStatsCBox");
        },
        [&] {
            toggleGroup(page, "CoGCBox");
        },
        [&] {
            toggleGroup(page, "regressionCBox");
        },
        [&] {
            QTest::keyClick(child<QWidget>(page, "CoGWindowRadio"), Qt::Key_Space);
        },
        [&] {
            QTest::keyClick(child<QWidget>(page, "peaksEdit"), Qt::Key_Down);
        },
        [&] {
            page.set_peaks(8);
        },
        [&] {
            type(page, "CoGThresholdEdit", "77");
        },
        [&] {
            type(page, "CoGWindowEdit", "88");
        },
        [&] {
            type(page, "RegressionThresholdEdit", "99");
        },
        [&] {
            type(page, "RegressionWindowEdit", "111");
        },
        [&] {
            type(page, "Chi2WindowEdit", "222");
        },
        [&] {
            QTest::keyClick(child<QWidget>(page, "CoGThresholdRadio"), Qt::Key_Space);
        },
        [&] {
            toggleGroup(page, "fullStatsCBox");
        },
    };
    for (const auto &step : steps) {
        const QString before = stateOf(page);
        step();
        QVERIFY(stateOf(page) != before);
        QVERIFY(kept(qPrintable(before)));
    }
    QCOMPARE(stateOf(page), QString("- cog fit threshold 8 77 88 99 111 222"));
    QVERIFY(fileContents(file.filePath()).contains("gaussian-fit-regression-threhold"));
}

//! A file with one key would read as false or 0 for all others the next time.
void tst_RVXStatisticsSetupPage::firstChangeKeepsTheDefaults()
{
    const QFileInfo file(path("page.xui"));
    RVXStatisticsSetupPage page;
    page.setApplicationSettings(file, false, true);
    toggleGroup(page, "CoGCBox");
    RVXStatisticsSetupPage next;
    next.setApplicationSettings(file, false, true);
    QCOMPARE(stateOf(next), QString("- cog - threshold 1 10 10 10 10 5"));
}

void tst_RVXStatisticsSetupPage::handEditsWhileRunning_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("keptState");
    QTest::newRow("another value") << QByteArray(fullFile).replace(">14<", ">140<")
                                   << "stats cog fit threshold 4 25 12 30 140 10";
    QTest::newRow("the group is gone") << QByteArray("<Settings><Window>1</Window></Settings>")
                                       << "stats cog fit threshold 4 25 12 30 14 10";
    QTest::newRow("the file is gone") << QByteArray() << "stats cog fit threshold 4 25 12 30 14 10";
    QTest::newRow("it is damaged")
        << fullFile.left(700) << "stats cog fit threshold 4 25 12 30 14 10";
}

void tst_RVXStatisticsSetupPage::handEditsWhileRunning()
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
    RVXStatisticsSetupPage next;
    next.setApplicationSettings(QFileInfo(name), false, true);
    QCOMPARE(stateOf(next), keptState);
    QCOMPARE(QFile::exists(name + ".damaged"), damaged);
}

void tst_RVXStatisticsSetupPage::factoryReset()
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
    RVXStatisticsSetupPage next;
    next.setApplicationSettings(QFileInfo(name), false, true);
    QCOMPARE(stateOf(next), factory);
    QVERIFY(fileContents(name).contains("<FactoryReset>"));

    page.setApplicationSettings(QFileInfo(path("other.xui")), false, true);
    QVERIFY(button->isHidden());
}

void tst_RVXStatisticsSetupPage::placeOfTheFile_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<bool>("useApplicationIdentity");
    QTest::addColumn<bool>("useXmlFormat");
    QTest::addColumn<QString>("file");
    QTest::newRow("a folder") << "" << true << true << "Beam Group/panel.xui";
    QTest::newRow("a name without suffix")
        << "settings" << true << false << "settings/Beam Group/panel.ini";
    QTest::newRow("a hidden folder to be")
        << ".settings" << true << true << ".settings/Beam Group/panel.xui";
    QTest::newRow("a file's own folder") << "any.xml" << true << true << "Beam Group/panel.xui";
    QTest::newRow("the file itself") << "any.xml" << false << true << "any.xml";
}

void tst_RVXStatisticsSetupPage::placeOfTheFile()
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

void tst_RVXStatisticsSetupPage::unwritablePlace()
{
    putFile(path("file"), "in the way of a folder");
    RVXStatisticsSetupPage page;
    page.setApplicationSettings(QFileInfo(path("file/page.xui")), false, true);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("could not be saved to.*page\\.xui"));
    toggleGroup(page, "CoGCBox");
    QVERIFY(child<QGroupBox>(page, "CoGCBox")->isChecked());
}

void tst_RVXStatisticsSetupPage::translation()
{
    RVXStatisticsSetupPage page;
    page.setWindowTitle("the host's");
    page.set_peaks(4);
    const BracketTranslator translator;
    QCOMPARE(child<QGroupBox>(page, "CoGCBox")->title(), QString("<Center of Gravity>"));
    QCOMPARE(child<QAbstractButton>(page, "factoryResetPushButton")->text(),
             QString("<factory reset>"));
    QCOMPARE(child<QComboBox>(page, "peaksEdit")->currentText(), QString("4"));
    QCOMPARE(page.windowTitle(), QString("the host's"));
}

void tst_RVXStatisticsSetupPage::nothingIsClipped()
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

CORVALE_QT_TEST_MAIN(tst_RVXStatisticsSetupPage)
#include "tst_RVXStatisticsSetupPage.moc"
