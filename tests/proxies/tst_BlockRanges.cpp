// SPDX-License-Identifier: LGPL-2.1-or-later
// The ranges kept for blocks of samples, while samples are added, dropped and changed.
#include "tests/proxies/ProxyTest.h"
#include "tests/support/SeriesBounds.h"

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
    int below(int limit) { return int(random() % unsigned(limit)); }

    void add(int count, bool atOnce, int oneGapIn = 0)
    {
        model.setAutoUpdate(!atOnce);
        for (int i = 0; i < count; ++i) {
            const bool isGap = oneGapIn > 0 && below(oneGapIn) == 0;
            model.AddData(now += 1.0, isGap ? qQNaN() : value(random));
        }
        model.UpdateView();
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

} // namespace

class tst_BlockRanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void areThoseOfTheCells()
    {
        Stack stack;
        for (int step = 0; step < 28; ++step) {
            const int what = stack.below(8);
            if (step == 0 || step == 14)
                stack.add(step == 0 ? 5000 : 120000, true);
            else if (what < 3)
                stack.add(stack.below(4000), true, what == 0 ? 100 : 0);
            else if (what == 3)
                stack.add(stack.below(400), false);
            else if (what < 6)
                stack.averaging.setAveraging(1 + stack.below(20));
            else if (what == 6)
                stack.zeroing.zeroNow();
            else if (step % 2 == 0)
                stack.model.Clear();
            else
                stack.model.setData(stack.model.index(0, 1), Qt::Unchecked, Qt::CheckStateRole);
            compare(stack, step % 3 == 2);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QString("step %1: %2").arg(step).arg(what)));
        }
    }

private:
    void compare(Stack &stack, bool all)
    {
        const int rows = stack.model.rowCount() - 1;
        for (const RVXAbstractPlotDataModel *model :
             {static_cast<const RVXAbstractPlotDataModel *>(&stack.model),
              static_cast<const RVXAbstractPlotDataModel *>(&stack.averaging),
              static_cast<const RVXAbstractPlotDataModel *>(&stack.zeroing)}) {
            for (int i = 0; i < 6 && rows > 0; ++i) {
                const int length = std::min(rows, all && i == 0 ? rows : 1 + stack.below(3000));
                const int first = 1 + stack.below(rows - length + 1);
                const RVXSeriesData series(*model, 1, first, first + length - 1);
                QCOMPARE(series.boundingRect(), boundsByHand(series));
            }
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_BlockRanges)
#include "tst_BlockRanges.moc"
