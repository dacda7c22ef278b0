// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 3 checks charts with few samples, which cannot be drawn faster and must not be drawn more slowly.
#include "ChannelStack.h"
#include "Goal.h"
#include "Goals.h"
#include "Points.h"
#include "ScopeChart.h"
#include "StockChart.h"

// The next three are functions of their own because scripts/count-instructions counts what is between their calls and returns.

[[gnu::noinline]] void drawSparseOurs(ScopeChart &chart)
{
    chart.drawFrame();
}

[[gnu::noinline]] void drawSparseStock(StockChart &chart)
{
    chart.drawFrame();
}

[[gnu::noinline]] void measureSparseOf(int channels)
{
    constexpr int rounds = 31; // many, since a frame takes a millisecond and the limit is close
    ChannelStack stack(channels, 1000, 256);
    ScopeChart ours(stack.top(), ScopeChart::FullRange);
    StockChart stock(ours);
    const QString name = QStringLiteral("3 strip %1 x 256").arg(channels);
    const double share = timesFaster(
        [&] {
            drawSparseStock(stock);
        },
        [&] {
            drawSparseOurs(ours);
        },
        rounds);
    report({name + ", share of QwtPlotCurve's time", share, Goal::AtMost, 1.05});
    const int pixels = differingPixels(ours.picture(), stock.picture());
    report({name + ", pixels other than its", double(pixels), Goal::AtMost, 0.0});
}

void measureSparseRepaint()
{
    for (int channels : {8, 64, 256})
        measureSparseOf(channels);
}
