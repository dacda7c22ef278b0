// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/models/SaveProgress.h"
#include "tests/scope/FileDialogAnswer.h"
#include "tests/scope/PanelDevice.h"
#include "tests/support/Rows.h"
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

//! How the scope panel saves its samples to a file.
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
            QTimer::singleShot(0, this, [&] {
                acknowledgeMessage(&message);
            });
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

private:
    QTemporaryDir m_folder;
};

CORVALE_QT_TEST_MAIN(tst_RVXScopeSaving)
#include "tst_RVXScopeSaving.moc"
