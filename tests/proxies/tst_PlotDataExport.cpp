// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/proxies/PlotDataExport.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

class tst_PlotDataExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesWhatIsChosen()
    {
        const Units::nA nA;
        const Units::mm mm;
        RVXMultichannelDeviceModel model;
        model.setChannels(
            {{"left, top", nullptr, &nA}, {"hidden", nullptr, &nA}, {"motor\naxis", &mm, &mm}});
        model.SetUnits(&nA);
        model.setData(model.index(0, 2), Qt::Unchecked, Qt::CheckStateRole);
        // The last two moments lie beyond the dates that can be relied on.
        model.appendRows({1.0, 2.0, 2.002, 2e11, 6e11},
                         {0.1, 9, 1, 1.0 / 3.0, 9, 2, std::nan(""), 9, 3, 5, 9, 4, 6, 9, 5});
        PlotDataExport save(&model);
        save.setTimes(2.0, 2e11);
        save.setShownOnly(true);
        save.setStartTime(QDateTime(QDate(2026, 3, 29), QTime(0, 59, 58), Qt::UTC));
        const QTemporaryDir folder;
        QSignalSpy finished(&save, &PlotDataExport::finished);
        QVERIFY(save.start(folder.filePath("a.csv")));
        model.Clear(); // the rows were copied
        QTRY_COMPARE(finished.count(), 1);
        QCOMPARE(finished.first().first().toBool(), true);
        QCOMPARE(QString(fileContents(folder.filePath("a.csv"))),
                 QString("time (s),UTC,\"left, top (nA)\",\"motor\naxis (mm)\"\n"
                         "2,2026-03-29T01:00:00.000Z,0.3333333333333333,2\n"
                         "2.002,2026-03-29T01:00:00.002Z,,3\n2e+11,,5,4\n"));
        QVERIFY(!save.start(folder.filePath("b.csv")));
        QCOMPARE(save.errorString(), QString("there are no rows to save"));
    }

    void longExportsLetTheLoopRun()
    {
        RVXMultichannelDeviceModel model(4);
        const int rows = 50000;
        QVector<double> times;
        for (int i = 0; i < rows; ++i)
            times << 1.0 + 0.001 * i;
        model.appendRows(times, QVector<double>(4 * rows, 0.1));
        const QTemporaryDir folder;
        const QString path = folder.filePath("long.csv");
        PlotDataExport save(&model);
        QSignalSpy progressed(&save, &PlotDataExport::progressed);
        QSignalSpy finished(&save, &PlotDataExport::finished);
        QVERIFY(save.start(path));
        QVERIFY(!save.start(path));
        connect(&save, &PlotDataExport::progressed, &save, [&](int done) {
            if (done > rows / 2)
                save.cancel();
        });
        QTRY_COMPARE(finished.count(), 1);
        QCOMPARE(finished.first().first().toBool(), false);
        QVERIFY(progressed.count() > 3);
        QVERIFY(!QFile::exists(path));

        QVERIFY(save.start(path));
        disconnect(&save, &PlotDataExport::progressed, nullptr, nullptr);
        QTRY_COMPARE(finished.count(), 2);
        QCOMPARE(fileContents(path).count('\n'), rows + 1);
        QVERIFY(!save.start(folder.filePath("no/such/folder.csv")));
        QVERIFY(!save.errorString().isEmpty());
    }
};

CORVALE_QT_TEST_MAIN(tst_PlotDataExport)
#include "tst_PlotDataExport.moc"
