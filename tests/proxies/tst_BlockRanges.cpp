// SPDX-License-Identifier: LGPL-2.1-or-later
// The ranges kept for blocks of samples, while samples are added, dropped and changed.
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

    void act(const QString &step)
    {
        const QString what = step.section(' ', 0, 0);
        const int number = step.section(' ', 1).toInt();
        if (what == "add" || what == "add-with-gaps")
            add(number, what == "add" ? 0.0 : 0.01);
        else if (what == "tick")
            tick(number);
        else if (what == "average")
            averaging.setAveraging(number);
        else if (what == "zero")
            zeroing.zeroNow();
        else if (what == "clear")
            model.Clear();
        else
            model.setData(model.index(0, 1), Qt::Unchecked, Qt::CheckStateRole);
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
    // A first sample that is not finite counts as 0.
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
    if (rows < 1)
        return;
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
    for (const char *const step : {"add 5000",
                                   "average 7",
                                   "add 3001",
                                   "tick 77",
                                   "zero",
                                   "clear",
                                   "add 4000",
                                   "add-with-gaps 2000",
                                   "average 1",
                                   "add 120000",
                                   "tick 333",
                                   "average 16",
                                   "tick 50",
                                   "add 700",
                                   "check"}) {
        stack.act(step);
        compare(stack);
        if (QTest::currentTestFailed())
            QFAIL(step);
    }
}

CORVALE_QT_TEST_MAIN(tst_BlockRanges)
#include "tst_BlockRanges.moc"
