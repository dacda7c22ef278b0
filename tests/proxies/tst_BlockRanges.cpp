// SPDX-License-Identifier: LGPL-2.1-or-later
// Ranges that are kept for blocks of samples, while the samples under them come, go and change.
#include "corvale_qt/models/RVXSeriesData.h"
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "tests/support/TestMain.h"

#include <cmath>
#include <limits>
#include <random>

using namespace Corvale_Qt;

namespace {

struct Stack
{
    Stack()
    {
        merged.addSourceModel(&model, 1);
        averaging.setSourceModel(&merged);
        zeroing.setSourceModel(&averaging);
    }

    void add(int count, double missing = 0.0)
    {
        model.setAutoUpdate(false);
        for (int i = 0; i < count; ++i) {
            const bool isMissing = std::generate_canonical<double, 32>(random) < missing;
            model.AddData(now += 1.0,
                          isMissing ? std::numeric_limits<double>::quiet_NaN() : value(random));
        }
        model.UpdateView();
        model.setAutoUpdate(true);
    }

    void tick(int count)
    {
        for (int i = 0; i < count; ++i)
            model.AddData(now += 1.0, value(random));
    }

    RVXSingleChannelDataModel model;
    RVXMultichannelProxyModel merged;
    RVXAveragingProxyModel averaging;
    RVXZeroingProxyModel zeroing;
    std::mt19937 random{11};
    // A heavy tail, so that the extremes are single samples.
    std::cauchy_distribution<double> value{0.0, 1.0};
    double now = 0.0;
};

QPair<double, double> rangeCellByCell(const RVXAbstractPlotDataModel &model, int first, int last)
{
    // The first sample counts as 0 where it is missing.
    const double start = model.doubleData(first, 1);
    QPair<double, double> range(std::isfinite(start) ? start : 0.0, 0.0);
    range.second = range.first;
    for (int row = first; row <= last; ++row) {
        const double y = model.doubleData(row, 1);
        if (!std::isfinite(y))
            continue;
        range.first = std::min(range.first, y);
        range.second = std::max(range.second, y);
    }
    return range;
}

} // namespace

class tst_BlockRanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void areThoseOfTheCells();

private:
    void compare(Stack &stack);
};

void tst_BlockRanges::compare(Stack &stack)
{
    const int rows = stack.model.rowCount() - 1;
    for (const RVXAbstractPlotDataModel *model :
         {static_cast<const RVXAbstractPlotDataModel *>(&stack.model),
          static_cast<const RVXAbstractPlotDataModel *>(&stack.averaging),
          static_cast<const RVXAbstractPlotDataModel *>(&stack.zeroing)}) {
        for (int i = 0; i < 6; ++i) {
            const int length = std::min(rows, i == 0 ? rows : 1 + int(stack.random() % 3000));
            const int first = 1 + int(stack.random() % unsigned(rows - length + 1));
            const RVXSeriesData series(*model, 1, first, first + length - 1);
            const QRectF bounds = series.boundingRect();
            const auto expected = rangeCellByCell(*model, first, first + length - 1);
            QCOMPARE(bounds.top(), expected.first);
            QCOMPARE(bounds.height(), expected.second - expected.first);
        }
    }
}

void tst_BlockRanges::areThoseOfTheCells()
{
    Stack stack;
    const auto expectSame = [&](const char *what, auto change) {
        change();
        compare(stack);
        if (QTest::currentTestFailed())
            qWarning("after: %s", what);
        return !QTest::currentTestFailed();
    };
    QVERIFY(expectSame("some", [&] {
        stack.add(5000);
    }));
    QVERIFY(expectSame("another length", [&] {
        stack.averaging.setAveraging(7);
    }));
    QVERIFY(expectSame("more", [&] {
        stack.add(3001);
    }));
    QVERIFY(expectSame("one by one", [&] {
        stack.tick(77);
    }));
    QVERIFY(expectSame("zeroed", [&] {
        stack.zeroing.zeroNow();
    }));
    QVERIFY(expectSame("cleared", [&] {
        stack.model.Clear();
        stack.add(4000);
    }));
    QVERIFY(expectSame("gaps", [&] {
        stack.add(2000, 0.01);
    }));
    QVERIFY(expectSame("short averages", [&] {
        stack.averaging.setAveraging(1);
    }));
    QVERIFY(expectSame("full", [&] {
        stack.add(120000);
    }));
    QVERIFY(expectSame("rolling", [&] {
        stack.tick(333);
    }));
    QVERIFY(expectSame("averaged, rolling", [&] {
        stack.averaging.setAveraging(16);
        stack.tick(50);
    }));
    QVERIFY(expectSame("rolling in batches", [&] {
        stack.add(700);
    }));
    QVERIFY(expectSame("a changed header", [&] {
        stack.model.setData(stack.model.index(0, 1), Qt::Unchecked, Qt::CheckStateRole);
    }));
}

CORVALE_QT_TEST_MAIN(tst_BlockRanges)
#include "tst_BlockRanges.moc"
