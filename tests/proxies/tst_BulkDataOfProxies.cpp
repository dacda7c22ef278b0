// SPDX-License-Identifier: LGPL-2.1-or-later
// Proxies return the same numbers by the chunk as cell by cell, to the last bit.
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "tests/proxies/ProxyTest.h"

#include <cstring>

using namespace Corvale_Qt;

namespace {

QString difference(const RVXAbstractPlotDataModel &model, int column, int firstRow, int count)
{
    const LibraryBulkData *const columns = LibraryBulkData::of(&model);
    if (!columns)
        return QStringLiteral("no chunks");
    QVector<double> chunk(count, -12345.0);
    columns->read(column, firstRow, count, chunk.data());
    RingSpans spans;
    const bool lies = columns->spans(column, firstRow, count, spans);
    for (int i = 0; i < count; ++i) {
        const double cell = model.doubleData(firstRow + i, column);
        const double there = lies ? spans.value(i) : cell;
        if (std::memcmp(&cell, &there, sizeof cell) != 0)
            return QStringLiteral("column %1, row %2 lies elsewhere").arg(column).arg(firstRow + i);
        if (std::memcmp(&cell, &chunk[i], sizeof cell) != 0)
            return QStringLiteral("column %1, row %2: %3 instead of %4")
                .arg(column)
                .arg(firstRow + i)
                .arg(chunk[i])
                .arg(cell);
    }
    return QString();
}

//! Returns the first difference over all starts and lengths within and around the rows of \a model.
QString difference(const RVXAbstractPlotDataModel &model)
{
    const auto *items = dynamic_cast<const QAbstractItemModel *>(&model);
    const int rows = items->rowCount();
    for (int column = -1; column <= items->columnCount(); ++column) {
        for (int firstRow = -2; firstRow <= rows + 1; ++firstRow) {
            for (int count = 0; count <= rows + 3; ++count) {
                QString found = difference(model, column, firstRow, count);
                if (!found.isEmpty())
                    return found;
            }
        }
    }
    return QString();
}

} // namespace

class tst_BulkDataOfProxies : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void averagingAndZeroing()
    {
        const Units::nA nA;
        BufferModel source(3, 6);
        source.SetUnits(&nA);
        RVXAveragingProxyModel averaging;
        RVXZeroingProxyModel zeroing;
        averaging.setAveraging(3);
        averaging.setSourceModel(&source);
        zeroing.setSourceModel(&averaging);
        for (int i = 1; i <= 10; ++i) {
            source.append(i * 0.1, i / 7.0);
            if (i == 5)
                zeroing.zeroNow();
            QCOMPARE(difference(averaging) + difference(zeroing), QString());
        }
        zeroing.zeroClear();
        source.SetUnits(nullptr);
        QCOMPARE(difference(zeroing), QString());
    }

    void multichannel()
    {
        BufferModel host(2, 5);
        RVXSingleChannelDataModel shorter;
        RVXSingleChannelDataModel empty;
        RVXSingleChannelDataModel longer;
        RVXMultichannelProxyModel merged;
        merged.addSourceModel(&host, 2);
        merged.addSourceModel(&shorter, 1);
        merged.addSourceModel(&empty, 1);
        QCOMPARE(difference(merged), QString());
        for (int i = 1; i <= 7; ++i) {
            host.append(i, i / 3.0);
            if (i % 2 == 0)
                shorter.AddData(i + 0.5, i / 9.0);
            QCOMPARE(difference(merged), QString());
        }
        merged.addSourceModel(&longer, 1);
        for (int i = 1; i <= 8; ++i)
            longer.AddData(i + 0.7, i / 11.0);
        QCOMPARE(difference(merged), QString());
    }

    void withoutSources()
    {
        const RVXAveragingProxyModel averaging;
        const RVXZeroingProxyModel zeroing;
        const RVXMultichannelProxyModel merged;
        QCOMPARE(difference(averaging) + difference(zeroing) + difference(merged), QString());
        QVERIFY(!LibraryBulkData::of(&merged)->xRises());
    }

    void risingTimes()
    {
        RVXSingleChannelDataModel one;
        RVXSingleChannelDataModel two;
        RVXMultichannelProxyModel merged;
        RVXAveragingProxyModel averaging;
        RVXZeroingProxyModel top;
        merged.addSourceModel(&one, 1);
        merged.addSourceModel(&two, 1);
        averaging.setSourceModel(&merged);
        top.setSourceModel(&averaging);
        const auto risesAfter = [&](RVXSingleChannelDataModel &model, double time) {
            model.AddData(time, 1);
            return LibraryBulkData::of(&top)->xRises();
        };
        QVERIFY(risesAfter(one, 1));
        QVERIFY(risesAfter(two, 1));
        QVERIFY2(!risesAfter(two, 0.5), "the column has the times of two sources");
        QVERIFY(risesAfter(one, 2));
        QVERIFY(!risesAfter(one, 1.5));
    }

    void subclassesSpeakForThemselves()
    {
        class Shifted : public RVXZeroingProxyModel
        {
            double doubleData(int row, int column) const override
            {
                return RVXZeroingProxyModel::doubleData(row, column) + 1.0;
            }
        };
        BufferModel source(1);
        Shifted shifted;
        RVXAveragingProxyModel averaging;
        shifted.setSourceModel(&source);
        averaging.setSourceModel(&shifted);
        source.append(1, 5);
        QVERIFY(!LibraryBulkData::of(&shifted));
        QCOMPARE(averaging.doubleData(1, 1), 6.0);
        QCOMPARE(difference(averaging), QString());
    }
};

CORVALE_QT_TEST_MAIN(tst_BulkDataOfProxies)
#include "tst_BulkDataOfProxies.moc"
