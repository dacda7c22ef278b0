// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

#include <QProcess>
#include <QTemporaryDir>

//! The driver keeps an input that fails, says how to try it alone, and can try it alone.
class tst_FuzzDriver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsWhatFails();
    void triesOneFile_data();
    void triesOneFile();

private:
    bool holds(const QStringList &arguments, QByteArray *said);
    QTemporaryDir m_dir;
};

bool tst_FuzzDriver::holds(const QStringList &arguments, QByteArray *said)
{
    QProcess process;
    process.setWorkingDirectory(m_dir.path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(FUZZ_PLANTED_FAULT), arguments);
    if (!process.waitForFinished())
        qFatal("the fuzz driver does not end");
    *said = process.readAll();
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

void tst_FuzzDriver::keepsWhatFails()
{
    QByteArray said;
    QVERIFY(!holds({"100"}, &said));
    const QString kept = m_dir.filePath(QStringLiteral("fuzz_PlantedFault-failure"));
    QVERIFY2(said.contains("try it alone with: " FUZZ_PLANTED_FAULT " "), said);
    QVERIFY2(said.contains(QFile::encodeName(QFileInfo(kept).fileName())), said);
    QCOMPARE(fileContents(kept), QByteArray("a \0 fault\n", 10));
    QVERIFY(!holds({kept}, &said));
    QVERIFY2(said.contains("does not hold"), said);
}

void tst_FuzzDriver::triesOneFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("holds");
    QTest::addColumn<QByteArray>("says");
    QTest::newRow("input that holds") << "good" << true << QByteArray("good holds, 3 bytes");
    QTest::newRow("input that fails") << "bad" << false << QByteArray("does not hold");
    QTest::newRow("missing file") << "missing" << false << QByteArray("FILE for one input");
}

void tst_FuzzDriver::triesOneFile()
{
    QFETCH(QString, name);
    putFile(m_dir.filePath(QStringLiteral("good")), "abc");
    putFile(m_dir.filePath(QStringLiteral("bad")), "a fault");
    QByteArray said;
    QTEST(holds({name}, &said), "holds");
    QFETCH(QByteArray, says);
    QVERIFY2(said.contains(says), said);
}

CORVALE_QT_TEST_MAIN(tst_FuzzDriver)
#include "tst_FuzzDriver.moc"
