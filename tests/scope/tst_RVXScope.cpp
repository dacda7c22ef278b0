// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "tests/scope/FileDialogAnswer.h"
#include "tests/scope/PanelDevice.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QVBoxLayout>

using namespace Corvale_Qt;

class tst_RVXScope : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void averaging();
    void zeroing();
    void zeroFollowsTheProxy();
    void zeroOfAnotherModel();
    void stateWhileTheControlsAreHidden();
    void periods();
    void periodIsNotChangedByTheWheel();
    void bufferedInterval();

    void modes();
    void modeBeforeTheModel();
    void optionalTabs();
    void modeWithoutATab();

    void clearing();

    void modelsComeAndGo();
    void hiddenParts();
    void shortcuts();
    void tabOrder();
};

void tst_RVXScope::averaging()
{
    DevicePanel panel(1, {{0.5, {0}}, {1, {10}}, {1.5, {10}}});
    QCOMPARE(panel.values(), QString("0.5: 0; 1: 10; 1.5: 10"));
    panel.choose("averagingCombo", "10x Avg");
    QCOMPARE(panel.values(), QString("0.5: 0; 1: 1; 1.5: 1.9"));
    panel.choose("averagingCombo", "1000x Avg");
    QCOMPARE(panel.values(), QString("0.5: 0; 1: 0.01; 1.5: 0.01999"));
    panel.choose("averagingCombo", "No Avg");
    QCOMPARE(panel.values(), QString("0.5: 0; 1: 10; 1.5: 10"));
}

void tst_RVXScope::zeroing()
{
    DevicePanel panel(2);
    auto *undo = panel.control<QAbstractButton>("clearZeroButton");
    panel.click("zeroButton"); // nothing to take a zero of yet
    QVERIFY(!undo->isEnabled());
    QCOMPARE(undo->styleSheet(), QString());

    panel.device.append({{1, {5, 7}}});
    panel.click("zeroButton");
    panel.device.append({{2, {6, 7}}});
    QCOMPARE(panel.values(), QString("1: 0 0; 2: 1 0"));
    QCOMPARE(undo->styleSheet(), QString("background-color:#88ff8a;"));
    undo->setFocus();
    QTest::keyClick(undo, Qt::Key_Space);
    QCOMPARE(panel.values(), QString("1: 5 7; 2: 6 7"));
    QVERIFY(!undo->isEnabled());
    QCOMPARE(undo->styleSheet(), QString());
}

//! The button must not say that a zero is subtracted when the proxy has dropped it, nor the other way round.
void tst_RVXScope::zeroFollowsTheProxy()
{
    BufferModel device(2);
    device.append(1, 5);
    Panel panel;
    panel.setModel(&device);
    panel.show();
    const auto state = [&] {
        return panel.values() + (panel.control("clearZeroButton")->isEnabled() ? " zeroed" : "")
            + (panel.control("clearZeroButton")->styleSheet().isEmpty() ? "" : " green");
    };
    panel.click("zeroButton");
    device.Clear(); // a reset with the same channels keeps the zero
    device.append(1, 6);
    QCOMPARE(state(), QString("1: 1 1 zeroed green"));
    device.appendChannel(9);
    QCOMPARE(state(), QString("1: 1 1 9 zeroed green"));
    device.removeFirstChannel();
    QCOMPARE(state(), QString("1: 7 9"));

    auto *proxy = qobject_cast<RVXZeroingProxyModel *>(panel.topLevelModel());
    proxy->zeroNow(); // by the host
    QCOMPARE(state(), QString("1: 0 0 zeroed green"));
    panel.setEnabled(false); // by the host, too
    device.insertChannelInFront(3);
    panel.setEnabled(true);
    QCOMPARE(state(), QString("1: 3 7 9"));
}

//! What one instrument read is no zero of the next.
void tst_RVXScope::zeroOfAnotherModel()
{
    PanelDevice device, next;
    device.append({{1, {5}}});
    next.append({{1, {8}}});
    Panel panel;
    panel.setModel(&device);
    panel.control<QAbstractButton>("zeroButton")->click();
    panel.setModel(nullptr);
    panel.setModel(&device);
    QCOMPARE(panel.values(), QString("1: 0"));
    panel.setModel(&next);
    QCOMPARE(panel.values(), QString("1: 8"));
    QVERIFY(!panel.control("clearZeroButton")->isEnabled());
}

void tst_RVXScope::stateWhileTheControlsAreHidden()
{
    DevicePanel panel(1, {{1, {5}}});
    auto *state = panel.control<QLabel>("stateLabel");
    panel.click("zeroButton");
    panel.choose("averagingCombo", "100x Avg");
    QVERIFY(!state->isVisible());
    panel.click("confButton");
    QVERIFY(!panel.control("configFrame")->isVisible());
    QVERIFY(state->isVisible());
    QCOMPARE(state->text(), QString("Zeroed, 100x Avg"));
    panel.click("confButton");
    panel.click("clearZeroButton");
    panel.choose("averagingCombo", "No Avg");
    panel.click("confButton");
    QVERIFY(!state->isVisible());
}

void tst_RVXScope::periods()
{
    DevicePanel panel;
    QStringList intervals;
    for (const char *text : {"100 ms", "1 s", "10 s", "Fast"}) {
        panel.device.append({{1, {5}}});
        panel.choose("comboBox_period", text);
        QCOMPARE(panel.device.rowCount(), 1);
        intervals << panel.device.period();
    }
    QCOMPARE(intervals.join(' '), QString("100 1000 10000 none"));

    // A model that is shown later runs at the period that the panel says.
    panel.choose("comboBox_period", "1 s");
    PanelDevice later;
    panel.setModel(&later);
    QCOMPARE(later.period(), QString("1000"));

    // A plot model that is no device has no period; its samples go all the same.
    RVXZeroingProxyModel proxy;
    proxy.setSourceModel(&panel.device);
    panel.device.append({{1, {5}}});
    panel.setModel(&proxy);
    panel.choose("comboBox_period", "10 s");
    QCOMPARE(panel.device.rowCount(), 1);
    QCOMPARE(panel.device.period(), QString("1000"));
}

//! It would drop the samples of a whole night.
void tst_RVXScope::periodIsNotChangedByTheWheel()
{
    DevicePanel panel(1, {{1, {5}}});
    const auto turnWheelOver = [&](const char *name) {
        auto *box = panel.control<QComboBox>(name);
        const QPointF middle = box->rect().center();
        QWheelEvent wheel(middle,
                          box->mapToGlobal(middle.toPoint()),
                          {},
                          {0, -120},
                          Qt::NoButton,
                          Qt::NoModifier,
                          Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(box, &wheel);
        return box->currentText();
    };
    panel.control("comboBox_period")->setFocus();
    QCOMPARE(turnWheelOver("comboBox_period"), QString("Fast"));
    QCOMPARE(panel.device.rowCount(), 2);
    QCOMPARE(turnWheelOver("averagingCombo"), QString("10x Avg"));
}

void tst_RVXScope::bufferedInterval()
{
    Panel panel;
    panel.show();
    QStringList heard;
    connect(&panel, &RVXScope::bufferedIntervalChanged, this, [&](bool on, double interval) {
        heard << QString("%1 %2").arg(on ? "on" : "off").arg(interval);
    });
    auto *spinBox = panel.control<QDoubleSpinBox>("buffered_interval_doubleSpinBox");
    QCOMPARE(spinBox->suffix(), QString(" s"));
    spinBox->selectAll();
    QTest::keyClicks(spinBox, "2.5\r");
    QTest::keyClick(panel.control("checkBox_bufferedInterval"), Qt::Key_Space);
    QTest::keyClick(spinBox, Qt::Key_Up);
    QTest::keyClick(panel.control("checkBox_bufferedInterval"), Qt::Key_Space);
    QTest::keyClick(spinBox, Qt::Key_Up);
    QCOMPARE(heard.join(", "), QString("on 2.5, on 2.6, off 2.6"));
}

void tst_RVXScope::modes()
{
    DevicePanel panel(3, {{1, {1, 2, 3}}, {2, {1, 2, 3}}});
    QCOMPARE(panel.tabs(), QString("[Strip] Scope Histogram"));
    panel.chooseTab("Histogram");
    QCOMPARE(panel.plot()->axisTitle(QwtPlot::xBottom).text(), QString("Channel"));
    QTest::keyClick(panel.control("modeSelect"), Qt::Key_Left);
    QCOMPARE(panel.tabs(), QString("Strip [Scope] Histogram"));
    panel.SetPlotMode(RVXScope::HistogramMode); // by the host: the tabs say so
    QCOMPARE(panel.tabs(), QString("Strip Scope [Histogram]"));
}

void tst_RVXScope::modeBeforeTheModel()
{
    PanelDevice device;
    Panel panel;
    panel.setPositionEnabled(true);
    panel.chooseTab("Position");
    panel.setModel(&device);
    QCOMPARE(panel.tabs(), QString("Strip Scope Histogram [Position]"));
    QCOMPARE(panel.shown(), QString("position"));
}

void tst_RVXScope::optionalTabs()
{
    DevicePanel panel;
    const auto *profileTitle = panel.plotView()->spectrogram()->findChild<QLabel *>("label_title");
    QVERIFY(profileTitle->text() != "DW7/DW9 Plot");
    panel.setSplitEnabled(false); // was never there
    for (int round = 0; round < 2; ++round) {
        QTest::ignoreMessage(QtDebugMsg, "setPositionEnabled");
        QTest::ignoreMessage(QtDebugMsg, "setSplitEnabled");
        panel.setPositionEnabled(true);
        panel.setSplitEnabled(true);
        QCOMPARE(panel.tabs(), QString("[Strip] Scope Histogram Position Split"));
        panel.setSpectrogramEnabled(true);
        panel.setSpectrogramEnabled(true);
        QCOMPARE(panel.tabs(), QString("Strip Scope Histogram Position Split [2D]"));
        QCOMPARE(panel.shown(), QString("2D"));
        QCOMPARE(profileTitle->text(), QString("DW7/DW9 Plot")); // the pixel matrix

        panel.setPositionEnabled(false); // those behind it move up, and mean the same
        QCOMPARE(panel.tabs(), QString("Strip Scope Histogram Split [2D]"));
        QCOMPARE(panel.shown(), QString("2D"));
        panel.chooseTab("Split");
        QCOMPARE(panel.shown(), QString("split"));
        panel.setSplitEnabled(false); // the current one
        QCOMPARE(panel.tabs(), QString("Strip Scope Histogram [2D]"));
        QCOMPARE(panel.shown(), QString("2D"));
        panel.setSpectrogramEnabled(false);
        QCOMPARE(panel.tabs(), QString("Strip Scope [Histogram]"));
        QCOMPARE(panel.shown(), QString("plot"));
        panel.SetPlotMode(RVXScope::StripMode);
    }
}

void tst_RVXScope::modeWithoutATab()
{
    DevicePanel panel;
    panel.SetPlotMode(RVXScope::SplitMode);
    QCOMPARE(panel.shown(), QString("split"));
    panel.chooseTab("Strip"); // is the current tab already, and still the way back
    QCOMPARE(panel.shown(), QString("plot"));
}

void tst_RVXScope::clearing()
{
    PanelDevice device;
    device.append({{1, {5}}, {2, {6}}});
    Panel panel;
    panel.click("clearButton");
    panel.setModel(&device);
    panel.show();
    QTRY_COMPARE(panel.control<QLabel>("bufferSizeLabel")->text(), QString("2 Samples"));
    panel.click("clearButton");
    QCOMPARE(device.rowCount(), 1);
    QTRY_COMPARE(panel.control<QLabel>("bufferSizeLabel")->text(), QString("0 Samples"));

    // A model that merges others is counted itself: it has no one source.
    RVXMultichannelProxyModel merged;
    merged.addSourceModel(&device, 1);
    device.append({{1, {5}}, {2, {6}}, {3, {7}}});
    panel.setModel(&merged);
    QTRY_COMPARE(panel.control<QLabel>("bufferSizeLabel")->text(), QString("3 Samples"));
}

void tst_RVXScope::modelsComeAndGo()
{
    auto device = std::make_unique<PanelDevice>();
    device->append({{1, {5}}});
    QStandardItemModel table;
    Panel panel;
    panel.setModel(device.get());
    QCOMPARE(panel.baseModel(), device.get());
    QCOMPARE(panel.plotView()->model(), panel.topLevelModel());

    panel.setModel(nullptr);
    QCOMPARE(panel.baseModel(), nullptr);
    QCOMPARE(panel.plotView()->model(), nullptr);
    panel.click("clearButton"); // the samples are the host's again
    panel.click("zeroButton");
    QCOMPARE(device->rowCount(), 2);

    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression("QStandardItemModel.*is not a plot data model"));
    panel.setModel(&table);
    QCOMPARE(panel.plotView()->model(), nullptr);
    panel.click("clearButton");
    QCOMPARE(device->rowCount(), 2);

    panel.setModel(device.get());
    panel.show();
    QTRY_COMPARE(panel.control<QLabel>("bufferSizeLabel")->text(), QString("1 Samples"));
    panel.click("zeroButton");
    device.reset();
    QCOMPARE(panel.baseModel(), nullptr);
    for (const char *button : {"zeroButton", "clearZeroButton", "clearButton", "saveButton"})
        panel.click(button);
    panel.choose("comboBox_period", "1 s");
    QTRY_COMPARE(panel.control<QLabel>("bufferSizeLabel")->text(), QString("0 Samples"));
    QVERIFY(!panel.control("clearZeroButton")->isEnabled());

    PanelDevice next;
    next.append({{1, {8}}});
    panel.setModel(&next);
    QItemSelectionModel selection(panel.topLevelModel());
    panel.setSelectionModel(&selection);
    QCOMPARE(panel.plotView()->selectionModel(), &selection);
    QCOMPARE(panel.values(), QString("1: 8"));
}

void tst_RVXScope::hiddenParts()
{
    Panel panel;
    panel.show();
    const auto visible = [&] {
        QStringList names;
        for (const char *name : {"modeSelect",
                                 "bufferSizeLabel",
                                 "saveButton",
                                 "clearButton",
                                 "configFrame",
                                 "position_frame",
                                 "derivativeButton"}) {
            if (panel.control(name)->isVisible())
                names << name;
        }
        return names.join(' ');
    };
    QCOMPARE(visible(), QString("modeSelect bufferSizeLabel saveButton clearButton configFrame"));
    panel.hideConfig(true);
    QCOMPARE(visible(), QString("clearButton configFrame"));
    panel.hideConfig(false);
    panel.click("confButton");
    QCOMPARE(visible(), QString("modeSelect bufferSizeLabel saveButton clearButton"));
    QTest::keyClick(panel.control("confButton"), Qt::Key_Space);
    panel.getPositionLayout()->addWidget(new QLabel("x"));
    panel.set2DEnabled(true);
    QCOMPARE(
        visible(),
        QString("modeSelect bufferSizeLabel saveButton clearButton configFrame position_frame"));
    panel.set2DEnabled(false);
    QVERIFY(!panel.control("position_frame")->isVisible());
}

//! In a window whose own actions have the same keys.
void tst_RVXScope::shortcuts()
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *first = new Panel, *second = new Panel;
    auto *edit = new QLineEdit;
    for (QWidget *widget : std::initializer_list<QWidget *>{first, second, edit})
        layout->addWidget(widget);
    QStringList hosts;
    for (const char *keys : {"Ctrl+S", "Ctrl+L", "Ctrl+0"}) {
        auto *action = new QAction(keys, &window);
        action->setShortcut(QKeySequence(keys));
        window.addAction(action);
        connect(action, &QAction::triggered, this, [&hosts, keys] {
            hosts << keys;
        });
    }
    PanelDevice firstDevice, secondDevice;
    firstDevice.append({{1, {5}}});
    secondDevice.append({{1, {5}}});
    first->setModel(&firstDevice);
    second->setModel(&secondDevice);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        QTest::keyClick(window.focusWidget(), key, modifiers);
    };

    edit->setFocus();
    for (const Qt::Key key : {Qt::Key_S, Qt::Key_L, Qt::Key_0})
        press(key);
    QCOMPARE(hosts.join(' '), QString("Ctrl+S Ctrl+L Ctrl+0"));
    hosts.clear();

    QTest::mouseClick(second->plot()->canvas(), Qt::LeftButton); // takes the focus there
    press(Qt::Key_0);
    QVERIFY(!first->control("clearZeroButton")->isEnabled());
    QVERIFY(second->control("clearZeroButton")->isEnabled());
    press(Qt::Key_L);
    QCOMPARE(firstDevice.rowCount(), 2);
    QCOMPARE(secondDevice.rowCount(), 1);

    // A control would look for an item that begins with 0; on some keyboards that digit takes Shift.
    for (const char *name : {"scaleYCombo", "buffered_interval_doubleSpinBox", "modeSelect"}) {
        secondDevice.append({{2, {6}}});
        second->control<QAbstractButton>("clearZeroButton")->click();
        second->control(name)->setFocus();
        press(Qt::Key_0, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY2(second->control("clearZeroButton")->isEnabled(), name);
    }
    QCOMPARE(second->control<QComboBox>("scaleYCombo")->currentText(), QString("Auto"));
    QCOMPARE(second->control<QDoubleSpinBox>("buffered_interval_doubleSpinBox")->value(), 1.0);

    int saves = 0;
    secondDevice.onSave = [&](const QString &) {
        return ++saves > 0;
    };
    QTemporaryDir folder;
    answerFileDialog(folder.filePath("data.csv"));
    press(Qt::Key_S);
    QCOMPARE(saves, 1);
    QCoreApplication::processEvents();
    QCOMPARE(hosts.join(' '), QString());
    window.activateWindow(); // not the dialog's any more
    QVERIFY(QTest::qWaitForWindowActive(&window));

    second->hideConfig(true); // a host that hides a button, or disables it, does not want it used
    second->control("clearButton")->setEnabled(false);
    press(Qt::Key_S);
    press(Qt::Key_L);
    QCOMPARE(saves, 1);
    QCOMPARE(secondDevice.rowCount(), 4);
    QCOMPARE(hosts.join(' '), QString("Ctrl+S Ctrl+L"));
}

void tst_RVXScope::tabOrder()
{
    DevicePanel panel(1, {{1, {5}}});
    panel.choose("scaleYCombo", "100%");
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.click("zeroButton");
    panel.setFocus();
    QStringList visited;
    for (int i = 0; i < 13; ++i) {
        visited << panel.focusWidget()->objectName();
        QTest::keyClick(panel.focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(
        visited.join(' '),
        QString(
            "plotView modeSelect clearButton saveButton confButton scaleYCombo positiveOnlyButton "
            "averagingCombo zeroButton clearZeroButton comboBox_period checkBox_bufferedInterval "
            "buffered_interval_doubleSpinBox"));
    QCOMPARE(panel.focusWidget()->objectName(), QString("plotView"));
}

CORVALE_QT_TEST_MAIN(tst_RVXScope)
#include "tst_RVXScope.moc"
