// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/models/SaveProgress.h"
#include "corvale_qt/units/Units.h"
#include "tests/scope/FileDialogAnswer.h"
#include "tests/scope/PanelDevice.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

//! Presses Ok on the next message box and stores its title and text.
void acknowledgeMessage(QString *message)
{
    QTimer::singleShot(0, [message] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QVERIFY(box);
        *message = box->windowTitle() + ": " + box->text();
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
}

} // namespace

//! What a panel saves, and the ranges that it offers.
class tst_RVXScopeSaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void saving()
    {
        QTemporaryDir folder;
        RVXSingleChannelDataModel model;
        model.AddData(1, 2.5e-9);
        model.AddData(2, 3.5e-9);
        Panel panel;
        panel.click("saveButton"); // without a model no dialog opens
        panel.setModel(&model);
        panel.choose("averagingCombo", "10x Avg");
        panel.control<QAbstractButton>("zeroButton")->click();
        const auto save = [&](const QString &name) {
            QString folderSeen;
            answerFileDialog(name, &folderSeen);
            panel.click("saveButton");
            QCoreApplication::processEvents();
            return folderSeen;
        };
        save(folder.filePath("data")); // the dialog adds the suffix
        QVERIFY(model.SaveDataToFile(folder.filePath("expected.csv")));
        QFile saved(folder.filePath("data.csv")), expected(folder.filePath("expected.csv"));
        QVERIFY(saved.open(QFile::ReadOnly) && expected.open(QFile::ReadOnly));
        QCOMPARE(saved.readAll(), expected.readAll()); // as measured

        QCOMPARE(save(QString()), folder.path()); // cancelled; opens in the folder of the last file
        QCOMPARE(save(QString()), folder.path());
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).join(' '),
                 QString("data.csv expected.csv"));
    }

    void savingFails()
    {
        DevicePanel panel;
        QString message;
        panel.device.onSave = [&](const QString &) {
            acknowledgeMessage(&message);
            return false;
        };
        answerFileDialog(m_folder.filePath("data.csv"));
        panel.click("saveButton");
        QCOMPARE(message, QString("Save Data: Error saving data file."));
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void savingIsNotStartedTwice()
    {
        DevicePanel panel;
        QVector<Qt::CursorShape> cursors;
        panel.device.onSave = [&](const QString &) {
            const QCursor *cursor = QGuiApplication::overrideCursor();
            cursors << (cursor ? cursor->shape() : Qt::ArrowCursor);
            panel.click("saveButton");
            return true;
        };
        answerFileDialog(m_folder.filePath("data.csv"));
        panel.click("saveButton");
        panel.click("saveButton"); // the second half of a double click, delivered late
        QCOMPARE(cursors, QVector<Qt::CursorShape>{Qt::WaitCursor});
        QVERIFY(!QGuiApplication::overrideCursor());
        QCoreApplication::processEvents();
        answerFileDialog(m_folder.filePath("data.csv"));
        panel.click("saveButton");
        QCOMPARE(cursors.size(), 2);
    }

    //! A long save shows how far it is; what is canceled is no error.
    void aLongSaveIsCanceled()
    {
        DevicePanel panel;
        int told = 0, shown = 0;
        panel.device.onSave = [&](const QString &) {
            auto *progress = panel.findChild<QProgressDialog *>("saveProgress");
            progress->setMinimumDuration(0); // as after a while
            bool goesOn = true;
            while (goesOn && told < 1000) {
                goesOn = SaveProgress::goOn(++told, 1000);
                if (told == 500)
                    QTest::mouseClick(progress->findChild<QPushButton *>(), Qt::LeftButton);
                if (told == 400)
                    shown = progress->value();
            }
            return goesOn;
        };
        answerFileDialog(m_folder.filePath("data.csv"));
        panel.click("saveButton");
        QCOMPARE(told, 501);
        QCOMPARE(shown, 400);
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(!panel.findChild<QProgressDialog *>("saveProgress"));
        QVERIFY(SaveProgress::goOn(1, 2)); // nobody watches any more
    }

    //! The operator is told that nothing was saved.
    void modelIsGoneWhenTheFileIsNamed()
    {
        auto device = std::make_unique<PanelDevice>();
        Panel panel;
        panel.setModel(device.get());
        QString message;
        QTimer::singleShot(0, this, [&] {
            device.reset();
            answerFileDialog(m_folder.filePath("data.csv"));
            QTimer::singleShot(0, this, [&] { acknowledgeMessage(&message); });
        });
        panel.click("saveButton");
        QCOMPARE(message, QString("Save Data: Error saving data file."));
    }

    //! A host may delete a panel at any time: while the file is chosen, or while the error is read.
    void panelIsClosedMeanwhile()
    {
        for (const bool inFileDialog : {true, false}) {
            PanelDevice device;
            auto *panel = new Panel;
            const QPointer<Panel> alive(panel);
            const auto closePanel = [&] {
                QTimer::singleShot(0, this, [&] {
                    QVERIFY(QApplication::activeModalWidget());
                    delete panel;
                });
            };
            device.onSave = [&](const QString &) {
                closePanel();
                return false;
            };
            panel->setModel(&device);
            if (inFileDialog)
                closePanel();
            else
                answerFileDialog(m_folder.filePath("data.csv"));
            panel->control<QAbstractButton>("saveButton")->click();
            QVERIFY(!alive);
            QVERIFY(!QApplication::activeModalWidget());
        }
    }

    void yRanges_data()
    {
        columns<int, QString, QString, QString>("list", "choice", "scale", "positiveScale");
        const auto row = [](const char *name, int list, const char *choice, const char *scale,
                            const char *positiveScale = nullptr) {
            QTest::newRow(name) << list << choice << scale
                                << (positiveScale ? positiveScale : scale);
        };
        row("percent: auto", 0, "Auto", "auto disabled");
        row("percent: normalised", 0, "Normalize", "[-1, 1] disabled");
        row("percent: all", 0, "100%", "[-1, 1] off", "[-0.1, 1] on");
        row("percent: a hundredth", 0, "1%", "[-0.01, 0.01] off", "[-0.001, 0.01] on");
        row("percent: least", 0, "0.01%", "[-0.0001, 0.0001] off", "[-1e-05, 0.0001] on");
        row("automatic: auto", 1, "Auto", "auto hidden");
        row("absolute: auto", 2, "Auto", "auto disabled");
        row("absolute: the odd step", 2, "250000", "[-250000, 250000] off", "[-25000, 250000] on");
        row("absolute: below 1", 2, ".05", "[-0.05, 0.05] off", "[-0.005, 0.05] on");
        row("from 0: auto", 3, "Auto", "auto hidden");
        row("from 0: 20", 3, "20", "[0, 20] hidden");
    }

    void yRanges()
    {
        Panel panel;
        panel.show();
        panel.SetYScaleMode(cell<int>("list"));
        panel.choose("scaleYCombo", cell("choice"));
        QCOMPARE(panel.yScale(), cell("scale"));
        panel.click("positiveOnlyButton");
        QCOMPARE(panel.yScale(), cell("positiveScale"));
        panel.choose("scaleYCombo", "Auto");
        QVERIFY(panel.yScale().startsWith("auto"));
    }

    void yRangeLists()
    {
        Panel panel;
        auto *combo = panel.control<QComboBox>("scaleYCombo");
        QCOMPARE(combo->count(), 15);
        panel.SetYScaleMode(0);
        panel.SetYScaleMode(4);
        QCOMPARE(combo->count(), 15);
        panel.SetYScaleMode(2);
        QCOMPARE(combo->count(), 23);
        panel.SetYScaleMode(0); // ignored, because hosts rely on it
        QCOMPARE(combo->count(), 23);

        // The button keeps its state while another list is used, and the view follows it.
        panel.choose("scaleYCombo", "10000");
        panel.control<QAbstractButton>("positiveOnlyButton")->click();
        panel.SetYScaleMode(3);
        panel.choose("scaleYCombo", "10000");
        QCOMPARE(panel.yScale(), QString("[0, 10000] hidden"));
        panel.SetYScaleMode(2);
        panel.choose("scaleYCombo", "10000");
        QCOMPARE(panel.yScale(), QString("[-1000, 10000] on"));
        panel.control<QAbstractButton>("positiveOnlyButton")->click();
        panel.SetYScaleMode(3);
        panel.SetYScaleMode(2);
        panel.choose("scaleYCombo", "10000");
        QCOMPARE(panel.yScale(), QString("[-10000, 10000] off"));
    }

    void hostsRange()
    {
        Panel panel;
        panel.choose("scaleYCombo", "50%");
        panel.SetRange(-10, 20);
        QCOMPARE(panel.yScale(), QString("[-5, 10] off"));
        panel.SetYScaleMode(2);
        panel.SetRange(-3, 3);
        QCOMPARE(panel.yScale(), QString("auto disabled"));
        panel.choose("scaleYCombo", "500"); // its index is not a scale mode
        panel.SetRange(-4, 4);
        QCOMPARE(panel.yScale(), QString("[-4, 4] off"));
    }

    void yScaleAnnouncements()
    {
        Panel panel;
        panel.show();
        QSignalSpy spy(&panel, SIGNAL(yScaleChanged(bool, int, int)));
        const auto last = [&] {
            const QList<QVariant> arguments = spy.isEmpty() ? QList<QVariant>() : spy.last();
            spy.clear();
            QStringList words;
            for (const QVariant &argument : arguments)
                words << argument.toString();
            return words.join(' ');
        };
        panel.SetRange(-12.5, 1e30);
        QCOMPARE(last(), QString());
        auto *combo = panel.control<QComboBox>("scaleYCombo");
        for (int percent = combo->findText("100%"); percent < combo->count(); ++percent) {
            panel.choose("scaleYCombo", combo->itemText(percent));
            QCOMPARE(last(), QString("true -13 2147483647"));
        }
        panel.click("positiveOnlyButton");
        QCOMPARE(last(), QString("true -13 2147483647"));
        panel.choose("scaleYCombo", "Normalize");
        QVERIFY(last().startsWith("false"));
        panel.SetYScaleMode(2);
        panel.choose("scaleYCombo", "250000");
        QCOMPARE(last(), QString("true -250000 250000"));
        panel.choose("scaleYCombo", "Auto");
        QVERIFY(last().startsWith("false"));
        panel.SetYScaleMode(3);
        panel.choose("scaleYCombo", "20");
        QCOMPARE(last(), QString("true 0 20"));
    }

    void theAxisFollowsTheUnit_data()
    {
        columns<int, int>("mode", "samples");
        for (const int samples : {0, 1, 3, 300}) { // a sweep has 256 of them
            row(qPrintable(QString("strip chart, %1").arg(samples)), 0, samples);
            row(qPrintable(QString("sweep, %1").arg(samples)), 1, samples);
            row(qPrintable(QString("histogram, %1").arg(samples)), 2, samples);
        }
    }
    //! A unit that is announced below the proxies of the panel stands at the axis at once, with readings or without.
    void theAxisFollowsTheUnit()
    {
        const Corvale_Qt::Units::nA nanoampere;
        const Corvale_Qt::Units::V volt;
        DevicePanel panel;
        panel.device.SetUnits(&nanoampere);
        panel.SetPlotMode(Corvale_Qt::RVXScope::PlotMode(cell<int>("mode")));
        for (int i = 1; i <= cell<int>("samples"); ++i)
            panel.device.append(i, 1e-9 * i);
        const auto title = [&panel] { return panel.plot()->axisTitle(QwtPlot::yLeft).text(); };
        QTRY_COMPARE(title(), QString("nA"));
        panel.device.SetUnits(&volt);
        QTRY_COMPARE(title(), QString("V"));
        panel.device.append(1000.0, 1.0);
        QTRY_COMPARE(title(), QString("V"));
    }

    //! A range that was typed in one unit does not become one in another unit when the state comes back.
    void theRangeKeepsItsUnit()
    {
        const Corvale_Qt::Units::nA nanoampere;
        const Corvale_Qt::Units::V volt;
        QByteArray state;
        {
            DevicePanel panel(1, {{1, {5e-9}}, {2, {6e-9}}});
            panel.device.SetUnits(&nanoampere);
            panel.plotView()->setSecondAxis(true);
            panel.plot()->grab();
            panel.choose("scaleYCombo", "100%");
            panel.SetRange(-20.0, 30.0);
            QCOMPARE(panel.plotView()->rangeUnit().value_or("none"), QString("nA"));
            state = panel.saveState();
        }
        DevicePanel other(1, {{1, {5.0}}, {2, {6.0}}});
        other.device.SetUnits(&volt);
        QVERIFY(other.restoreState(state));
        const auto shown = [&other] {
            other.plotView()->grab();
            const QwtInterval y = other.plot()->axisInterval(QwtPlot::yLeft);
            return QString("%1..%2").arg(y.minValue()).arg(y.maxValue());
        };
        QTRY_VERIFY(shown() != "-20..30" && other.plotView()->shownUnit() == "V");
        other.device.SetUnits(&nanoampere);
        QTRY_COMPARE(shown(), QString("-20..30"));
    }

    void positiveOnlyFromTheHost()
    {
        Panel panel; // a host sets up the panel before it is shown
        panel.choose("scaleYCombo", "100%");
        panel.SetPositiveOnly(true);
        QCOMPARE(panel.yScale(), QString("[-0.1, 1] on"));
        panel.SetYScaleMode(1);
        panel.SetPositiveOnly(false);
        QVERIFY(panel.control<QAbstractButton>("positiveOnlyButton")->isChecked());
    }

private:
    QTemporaryDir m_folder;
};

CORVALE_QT_TEST_MAIN(tst_RVXScopeSaving)
#include "tst_RVXScopeSaving.moc"
