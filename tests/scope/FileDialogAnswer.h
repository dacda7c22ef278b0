// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>
#include <QtTest>

//! Accepts the next dialog for saving data with \a fileName, or cancels it if that is empty.
inline void answerFileDialog(const QString &fileName, QString *folderSeen = nullptr)
{
    QTimer::singleShot(0, [=] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        const QString kind = dialog->windowTitle() + ", " + dialog->nameFilters().join("; ")
            + (dialog->acceptMode() == QFileDialog::AcceptSave ? ", to save" : ", to open");
        const QString expected = "Save Data File, CSV File (*.csv), to save";
        if (kind != expected)
            dialog->reject(); // or the test would hang
        QCOMPARE(kind, expected);
        if (folderSeen)
            *folderSeen = dialog->directory().path();
        if (fileName.isEmpty()) {
            QTest::keyClick(dialog, Qt::Key_Escape);
            return;
        }
        dialog->findChild<QLineEdit *>("fileNameEdit")->setText(fileName);
        QTest::keyClick(dialog->findChild<QLineEdit *>("fileNameEdit"), Qt::Key_Return);
    });
}
