// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "tests/scope/FileDialogAnswer.h"
#include "tests/scope/PanelDevice.h"
#include "tests/support/Mouse.h"
#include "tests/support/PaintCounter.h"
#include "tests/support/TestMain.h"

#include <qwt_scale_widget.h>

using namespace Corvale_Qt;

namespace {

//! A window with two panels and a line edit. Its own actions have the same keys as the panels.
class TwoPanels : public QWidget
{
public:
    TwoPanels()
    {
        auto *layout = new QVBoxLayout(this);
        for (QWidget *widget : std::initializer_list<QWidget *>{first, second, edit}) {
            layout->addWidget(widget);
            widget->show();
        }
        for (const char *keys : {"Ctrl+S", "Ctrl+L", "Ctrl+0"}) {
            auto *action = new QAction(keys, this);
            action->setShortcut(QKeySequence(keys));
            addAction(action);
            connect(action, &QAction::triggered, this, [this, keys] { hosts << keys; });
        }
        show();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        QTest::keyClick(focusWidget(), key, modifiers);
    }

    DevicePanel *first = new DevicePanel(1, {{1, {5}}});
    DevicePanel *second = new DevicePanel(1, {{1, {5}}});
    QLineEdit *edit = new QLineEdit;
    QStringList hosts; //!< keys of the actions that were triggered
};

} // namespace

class tst_RVXScope : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void averaging()
    {
        DevicePanel panel(1, {{0.5, {0}}, {1, {10}}, {1.5, {10}}});
        const std::pair<const char *, const char *> lengths[] = {
            {"10x Avg", "0.5: 0; 1: 1; 1.5: 1.9"},
            {"1000x Avg", "0.5: 0; 1: 0.01; 1.5: 0.01999"},
            {"No Avg", "0.5: 0; 1: 10; 1.5: 10"}};
        for (const auto &[length, values] : lengths) {
            panel.choose("averagingCombo", length);
            QCOMPARE(panel.values(), QString(values));
        }
    }

    //! The button shows whether the proxy subtracts a zero, also after the proxy has dropped it by itself.
    void zeroing()
    {
        BufferModel device(2);
        Panel panel;
        panel.setModel(&device);
        panel.show();
        auto *undo = panel.control<QAbstractButton>("clearZeroButton");
        const auto state = [&] {
            return panel.values() + (undo->isEnabled() ? " zeroed" : "")
                + (undo->styleSheet() == "background-color:#88ff8a;" ? " green"
                                                                     : undo->styleSheet());
        };
        panel.click("zeroButton"); // there is no sample yet
        QCOMPARE(state(), QString());
        device.append(1, 5);
        panel.click("zeroButton");
        device.append(2, 6);
        QCOMPARE(state(), QString("1: 0 0; 2: 1 1 zeroed green"));
        undo->setFocus();
        QTest::keyClick(undo, Qt::Key_Space);
        QCOMPARE(state(), QString("1: 5 6; 2: 6 7"));

        panel.click("zeroButton");
        device.Clear(); // a reset with the same channels keeps the zero
        device.append(1, 7);
        QCOMPARE(state(), QString("1: 1 1 zeroed green"));
        device.appendChannel(9);
        QCOMPARE(state(), QString("1: 1 1 9 zeroed green"));
        device.removeFirstChannel();
        QCOMPARE(state(), QString("1: 8 9"));
        auto *proxy = qobject_cast<RVXZeroingProxyModel *>(panel.topLevelModel());
        proxy->zeroNow(); // by the host
        QCOMPARE(state(), QString("1: 0 0 zeroed green"));
        panel.setEnabled(false); // by the host, too
        device.insertChannelInFront(3);
        panel.setEnabled(true);
        QCOMPARE(state(), QString("1: 3 8 9"));
        // A zero taken from one instrument does not apply to the next.
        panel.click("zeroButton");
        panel.setModel(nullptr);
        panel.setModel(&device);
        QCOMPARE(state(), QString("1: 0 0 0 zeroed green"));
        BufferModel next(3);
        next.append(1, 8);
        panel.setModel(&next);
        QCOMPARE(state(), QString("1: 8 9 10"));
    }

    void stateWhileTheControlsAreHidden()
    {
        DevicePanel panel(1, {{1, {5}}});
        const auto shown = [&] {
            const auto *label = panel.control<QLabel>("stateLabel");
            return QString(panel.control("configFrame")->isVisible() ? "controls " : "")
                + (label->isVisible() ? label->text() : QString());
        };
        panel.click("zeroButton");
        panel.choose("averagingCombo", "100x Avg");
        QCOMPARE(shown(), QString("controls "));
        panel.click("confButton");
        QCOMPARE(shown(), QString("Zeroed, 100x Avg"));
        panel.click("confButton");
        panel.click("clearZeroButton");
        panel.choose("averagingCombo", "No Avg");
        panel.click("confButton");
        QCOMPARE(shown(), QString());
    }

    void periods()
    {
        DevicePanel panel;
        QStringList intervals;
        for (const char *text : {"100 ms", "10 s", "Fast", "1 s"}) {
            panel.device.append({{1, {5}}});
            panel.choose("comboBox_period", text);
            QCOMPARE(panel.device.rowCount(), 1);
            intervals << panel.device.period();
        }
        PanelDevice later; // runs at the chosen period, too
        panel.setModel(&later);
        intervals << later.period();
        QCOMPARE(intervals.join(' '), QString("100 10000 none 1000 1000"));
        // A plot model that is not a device has no period, but its samples are dropped too.
        RVXZeroingProxyModel proxy;
        proxy.setSourceModel(&panel.device);
        panel.device.append({{1, {5}}});
        panel.setModel(&proxy);
        panel.choose("comboBox_period", "10 s");
        QCOMPARE(panel.device.rowCount(), 1);
        QCOMPARE(panel.device.period(), QString("1000"));
    }

    //! A change of the period drops all samples, so the wheel must not cause one.
    void periodIsNotChangedByTheWheel()
    {
        DevicePanel panel(1, {{1, {5}}});
        const auto turnWheelOver = [&](const char *name) {
            auto *box = panel.control<QComboBox>(name);
            turnWheel(box, box->rect().center(), -120);
            return box->currentText();
        };
        panel.control("comboBox_period")->setFocus();
        QCOMPARE(turnWheelOver("comboBox_period"), QString("Fast"));
        QCOMPARE(panel.device.rowCount(), 2);
        QCOMPARE(turnWheelOver("averagingCombo"), QString("10x Avg"));
    }

    void bufferedInterval()
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

    void modes()
    {
        DevicePanel panel(3, {{1, {1, 2, 3}}, {2, {1, 2, 3}}});
        QCOMPARE(panel.tabs(), QString("[Strip] Scope Histogram"));
        panel.chooseTab("Histogram");
        QCOMPARE(panel.plot()->axisTitle(QwtPlot::xBottom).text(), QString("Channel"));
        QTest::keyClick(panel.control("modeSelect"), Qt::Key_Left);
        QCOMPARE(panel.tabs(), QString("Strip [Scope] Histogram"));
        panel.SetPlotMode(RVXScope::HistogramMode); // called by the host, and shown by the tabs
        QCOMPARE(panel.tabs(), QString("Strip Scope [Histogram]"));
        panel.SetPlotMode(RVXScope::SplitMode); // a mode without a tab
        QCOMPARE(panel.shown(), QString("split"));
        panel.chooseTab("Histogram"); // the current tab still leads back to its mode
        QCOMPARE(panel.shown(), QString("plot"));
        Panel early; // a mode that is chosen before there is a model
        early.setPositionEnabled(true);
        early.chooseTab("Position");
        early.setModel(&panel.device);
        QCOMPARE(early.tabs(), QString("Strip Scope Histogram [Position]"));
        QCOMPARE(early.shown(), QString("position"));
    }

    void optionalTabs()
    {
        DevicePanel panel;
        const auto *title = panel.plotView()->spectrogram()->findChild<QLabel *>("label_title");
        QVERIFY(title->text() != "DW7/DW9 Plot");
        panel.setSplitEnabled(false); // there is no such tab
        const auto state = [&] { return panel.tabs() + ": " + panel.shown(); };
        for (int round = 0; round < 2; ++round) {
            QTest::ignoreMessage(QtDebugMsg, "setPositionEnabled");
            QTest::ignoreMessage(QtDebugMsg, "setSplitEnabled");
            panel.setPositionEnabled(true);
            panel.setSplitEnabled(true);
            QCOMPARE(state(), QString("[Strip] Scope Histogram Position Split: plot"));
            panel.setSpectrogramEnabled(true);
            panel.setSpectrogramEnabled(true);
            QCOMPARE(state(), QString("Strip Scope Histogram Position Split [2D]: 2D"));
            QCOMPARE(title->text(), QString("DW7/DW9 Plot")); // the pixel matrix
            panel.setPositionEnabled(false); // the tabs after it move up and keep their modes
            QCOMPARE(state(), QString("Strip Scope Histogram Split [2D]: 2D"));
            panel.chooseTab("Split");
            QCOMPARE(state(), QString("Strip Scope Histogram [Split] 2D: split"));
            panel.setSplitEnabled(false); // the current one
            QCOMPARE(state(), QString("Strip Scope Histogram [2D]: 2D"));
            panel.setSpectrogramEnabled(false);
            QCOMPARE(state(), QString("Strip Scope [Histogram]: plot"));
            panel.SetPlotMode(RVXScope::StripMode);
        }
    }

    void clearing()
    {
        Panel panel;
        panel.click("clearButton"); // there is no model yet
        PanelDevice device;
        device.append({{1, {5}}, {2, {6}}});
        panel.setModel(&device);
        panel.show();
        QTRY_COMPARE(panel.bufferSize(), QString("2 Samples"));
        panel.click("clearButton");
        QCOMPARE(device.rowCount(), 1);
        QTRY_COMPARE(panel.bufferSize(), QString("0 Samples"));
        // The samples of a merging model are counted in the model itself.
        RVXMultichannelProxyModel merged;
        merged.addSourceModel(&device, 1);
        device.append({{1, {5}}, {2, {6}}, {3, {7}}});
        panel.setModel(&merged);
        QTRY_COMPARE(panel.bufferSize(), QString("3 Samples"));
    }

    //! A panel that asks clears only what the operator agrees to; a host is never asked.
    void clearingIsConfirmed()
    {
        DevicePanel panel(1, {{1, {5}}, {2, {6}}});
        QVERIFY(!panel.confirmsClear());
        panel.setConfirmClear(true);
        QSignalSpy aboutToClear(&panel, &RVXScope::aboutToClear);
        auto *period = panel.control<QComboBox>("comboBox_period");
        QString asked;
        const auto answer = [&](const QString &button) {
            QTimer::singleShot(0, &panel, [&asked, button] {
                auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
                QVERIFY(box);
                asked = box->text();
                for (QAbstractButton *each : box->buttons())
                    if (each->text() == button)
                        return each->click();
                box->reject();
            });
        };
        answer(QString());
        panel.click("clearButton");
        QVERIFY2(asked.contains("2 samples"), qPrintable(asked));
        answer(QString());
        period->setCurrentIndex(2); // 1 s
        QCOMPARE(panel.device.rowCount(), 3);
        QCOMPARE(panel.period(), 0);
        QCOMPARE(panel.device.period(), QString("none"));
        QCOMPARE(aboutToClear.size(), 0);

        answer("&Remove the samples");
        period->setCurrentIndex(2); // 1 s
        QCOMPARE(panel.device.rowCount(), 1);
        QCOMPARE(panel.period(), 1000);
        QCOMPARE(aboutToClear.size(), 1);
        asked.clear();
        panel.click("clearButton"); // there is nothing to ask for
        panel.device.append({{3, {5}}});
        panel.clear();
        QCOMPARE(panel.device.rowCount(), 1);
        QCOMPARE(aboutToClear.size(), 2);
        QVERIFY(asked.isEmpty());

        // The panel may be deleted while it asks.
        auto *shortLived = new RVXScope;
        panel.device.append({{4, {5}}});
        shortLived->setModel(&panel.device);
        shortLived->setConfirmClear(true);
        QTimer::singleShot(0, shortLived, [shortLived] { delete shortLived; });
        shortLived->findChild<QAbstractButton *>("clearButton")->click();
        QCOMPARE(panel.device.rowCount(), 2);
    }

    void modelsComeAndGo()
    {
        auto device = std::make_unique<PanelDevice>();
        device->append({{1, {5}}});
        QStandardItemModel table;
        Panel panel;
        panel.show();
        panel.setModel(device.get());
        QCOMPARE(panel.baseModel(), device.get());
        QCOMPARE(panel.plotView()->model(), panel.topLevelModel());
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression("QStandardItemModel.*is not a plot data model"));
        for (QAbstractItemModel *other : {static_cast<QAbstractItemModel *>(nullptr),
                                          static_cast<QAbstractItemModel *>(&table)}) {
            panel.setModel(other);
            QVERIFY(panel.baseModel() != device.get());
            QCOMPARE(panel.plotView()->model(), nullptr);
            panel.click("clearButton"); // the panel no longer shows the samples
            panel.click("zeroButton");
            QCOMPARE(device->rowCount(), 2);
        }
        panel.setModel(device.get());
        QTRY_COMPARE(panel.bufferSize(), QString("1 Samples"));
        panel.click("zeroButton");
        device.reset();
        QCOMPARE(panel.baseModel(), nullptr);
        for (const char *button : {"zeroButton", "clearZeroButton", "clearButton", "saveButton"})
            panel.click(button);
        panel.choose("comboBox_period", "1 s");
        QTRY_COMPARE(panel.bufferSize(), QString("0 Samples"));
        QVERIFY(!panel.control("clearZeroButton")->isEnabled());

        PanelDevice next;
        next.append({{1, {8}}});
        panel.setModel(&next);
        QItemSelectionModel selection(panel.topLevelModel());
        panel.setSelectionModel(&selection);
        QCOMPARE(panel.plotView()->selectionModel(), &selection);
        QCOMPARE(panel.values(), QString("1: 8"));
    }

    void hiddenParts()
    {
        const QString all = "modeSelect bufferSizeLabel saveButton clearButton configFrame";
        Panel panel;
        panel.show();
        const auto visible = [&] {
            QStringList names;
            for (const QString &name : (all + " position_frame derivativeButton").split(' ')) {
                if (panel.control(name.toLatin1())->isVisible())
                    names << name;
            }
            return names.join(' ');
        };
        QCOMPARE(visible(), all);
        panel.hideConfig(true);
        QCOMPARE(visible(), QString("clearButton configFrame"));
        panel.hideConfig(false);
        panel.click("confButton");
        QCOMPARE(visible(), QString(all).remove(" configFrame"));
        QTest::keyClick(panel.control("confButton"), Qt::Key_Space);
        panel.getPositionLayout()->addWidget(new QLabel("x"));
        for (bool isEnabled : {true, false}) {
            panel.set2DEnabled(isEnabled);
            QCOMPARE(visible(), isEnabled ? all + " position_frame" : all);
        }
    }

    //! As low as a window lets it become, a chart shows its whole time axis, and so does one below statistics or a legend.
    void aLowChartKeepsItsTimeAxis_data()
    {
        tableFrom(R"(
            | int mode | bool controls | bool legend
            strip chart | 0 | true | false
            strip chart alone | 0 | false | false
            strip chart with legend | 0 | true | true
            sweep with legend | 1 | false | true
            histogram with legend | 2 | false | true
        )");
    }
    void aLowChartKeepsItsTimeAxis()
    {
        QWidget host; // that takes no room for itself
        auto &panel =
            *new DevicePanel(4, {{1, {5, 6, 7, 8}}, {2, {6, 7, 8, 9}}, {3, {6, 7, 8, 9}}});
        panel.SetPlotMode(RVXScope::PlotMode(cell<int>("mode")));
        panel.setControlsVisible(cell<bool>("controls"));
        panel.setTimeOrigin(QDateTime(QDate(2026, 11, 22), QTime(), Qt::UTC));
        panel.setTimeAxis(RVXScope::Utc);
        (new QVBoxLayout(&host))->addWidget(&panel);
        host.show();
        panel.grab();
        panel.plotView()->setLegendVisible(cell<bool>("legend")); // while it is on the screen
        for (int i = 0; i < 6; ++i) {
            host.resize(700, 1);
            panel.grab();
            QCoreApplication::processEvents();
        }
        const QwtScaleWidget *axis = panel.plot()->axisWidget(QwtPlot::xBottom);
        const QWidget *viewport = panel.plotView()->viewport();
        const QRect room(axis->mapTo(viewport, QPoint()), axis->size());
        QVERIFY(viewport->rect().contains(room));
        QVERIFY(axis->height() >= axis->minimumSizeHint().height());
        QVERIFY(panel.plot()->canvas()->height() >= 40);
    }

    void shortcutsWorkWhereTheFocusIs()
    {
        TwoPanels window;
        QVERIFY(QTest::qWaitForWindowActive(&window));
        window.edit->setFocus();
        for (const Qt::Key key : {Qt::Key_S, Qt::Key_L, Qt::Key_0})
            window.press(key);
        QCOMPARE(window.hosts.join(' '), QString("Ctrl+S Ctrl+L Ctrl+0"));
        window.hosts.clear();

        QTest::mouseClick(window.second->plot()->canvas(), Qt::LeftButton); // takes the focus there
        window.press(Qt::Key_0);
        QVERIFY(!window.first->control("clearZeroButton")->isEnabled());
        QVERIFY(window.second->control("clearZeroButton")->isEnabled());
        window.press(Qt::Key_L);
        QCOMPARE(window.first->device.rowCount(), 2);
        QCOMPARE(window.second->device.rowCount(), 1);
        QCOMPARE(window.hosts.join(' '), QString());
    }

    //! The controls would take the digit as input. On some keyboards it needs Shift.
    void shortcutsInControls()
    {
        TwoPanels window;
        QVERIFY(QTest::qWaitForWindowActive(&window));
        for (const char *name : {"scaleYCombo", "buffered_interval_doubleSpinBox", "modeSelect"}) {
            window.first->control<QAbstractButton>("clearZeroButton")->click();
            window.first->control(name)->setFocus();
            window.press(Qt::Key_0, Qt::ControlModifier | Qt::ShiftModifier);
            QVERIFY2(window.first->control("clearZeroButton")->isEnabled(), name);
        }
        QCOMPARE(window.first->control<QComboBox>("scaleYCombo")->currentText(), QString("Auto"));
        QCOMPARE(window.first->control<QDoubleSpinBox>("buffered_interval_doubleSpinBox")->value(),
                 1.0);
        QCOMPARE(window.hosts.join(' '), QString());
    }

    void shortcutsOfHiddenAndDisabledButtons()
    {
        TwoPanels window;
        QVERIFY(QTest::qWaitForWindowActive(&window));
        DevicePanel &panel = *window.first;
        int saves = 0;
        panel.device.onSave = [&](const QString &) { return ++saves > 0; };
        panel.setFocus();
        QTemporaryDir folder;
        answerFileDialog(folder.filePath("data.csv"));
        window.press(Qt::Key_S);
        QCOMPARE(saves, 1);
        QCoreApplication::processEvents();
        window.activateWindow(); // the dialog had the focus
        QVERIFY(QTest::qWaitForWindowActive(&window));

        panel.hideConfig(true);
        panel.control("clearButton")->setEnabled(false);
        window.press(Qt::Key_S);
        window.press(Qt::Key_L);
        QCOMPARE(saves, 1);
        QCOMPARE(panel.device.rowCount(), 2);
        QCOMPARE(window.hosts.join(' '), QString("Ctrl+S Ctrl+L"));
    }

    //! The number of samples changes with each reading. No window is laid out for it, and the scroll bar is not painted.
    void aReadingLaysNothingOut()
    {
        DevicePanel panel(1, {{1, {5}}});
        panel.plotView()->setTimeSpan(1.0);
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        double time =
            1000.0; // so long after the first reading that the slider does not move for another one
        const auto append = [&](int count) {
            QVector<PanelDevice::Sample> samples;
            for (int i = 0; i < count; ++i)
                samples.append(PanelDevice::Sample{time += 0.001, {5}});
            panel.device.append(samples);
            for (int i = 0; i < 4; ++i)
                QCoreApplication::processEvents();
        };
        append(20);
        const PaintCounter layouts(&panel, QEvent::LayoutRequest);
        const PaintCounter bar(panel.plotView()->horizontalScrollBar());
        auto *const size = panel.control<QLabel>("bufferSizeLabel");
        const PaintCounter number(size);
        // The window may still be shown for some readings; none of three in a row does more than to paint the number.
        int quiet = 0;
        for (int i = 0; quiet < 3 && i < 50; ++i) {
            const int others = layouts.count + bar.count, numbers = number.count;
            append(1);
            const bool isQuiet = layouts.count + bar.count == others;
            quiet = isQuiet && number.count == numbers + 1 ? quiet + 1 : 0;
        }
        QCOMPARE(quiet, 3);
        QCOMPARE(size->text(), QString("%1 Samples").arg(panel.device.rowCount() - 1));
        size->setText("a text that is longer than any number of samples is");
        append(1);
        QVERIFY(size->width() >= size->sizeHint().width());
    }

    void tabOrder()
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
        QCOMPARE(visited.join(' '),
                 QString("plotView modeSelect clearButton saveButton confButton scaleYCombo "
                         "positiveOnlyButton "
                         "averagingCombo zeroButton clearZeroButton comboBox_period "
                         "checkBox_bufferedInterval "
                         "buffered_interval_doubleSpinBox"));
        QCOMPARE(panel.focusWidget()->objectName(), QString("plotView"));
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXScope)
#include "tst_RVXScope.moc"
