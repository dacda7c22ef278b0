// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

//! The driver keeps an input that fails, says how to try it alone, and can try it alone.
class tst_FuzzDriver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsWhatFails()
    {
        const QByteArray said = failureOf({"100"});
        const QString kept = m_dir.filePath("fuzz_PlantedFault-failure");
        QVERIFY2(said.contains("try it alone with: " FUZZ_PLANTED_FAULT " "), said);
        QVERIFY2(said.contains(QFile::encodeName(QFileInfo(kept).fileName())), said);
        QCOMPARE(fileContents(kept), QByteArray("a \0 fault\n", 10));
        QVERIFY(failureOf({kept}).contains("does not hold"));
        QVERIFY(failureOf({"missing"}).contains("FILE for one input"));
        putFile(m_dir.filePath("good"), "abc");
        QCOMPARE(failureOf({"good"}), QByteArray());
    }

private:
    //! Returns what the driver says if it fails, else nothing.
    QByteArray failureOf(const QStringList &arguments)
    {
        QProcess process;
        process.setWorkingDirectory(m_dir.path());
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(FUZZ_PLANTED_FAULT, arguments);
        if (!process.waitForFinished())
            qFatal("the fuzz driver does not end");
        const bool holds = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
        return holds ? QByteArray() : process.readAll();
    }
    QTemporaryDir m_dir;
};

CORVALE_QT_TEST_MAIN(tst_FuzzDriver)
#include "tst_FuzzDriver.moc"
