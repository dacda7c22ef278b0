// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 2 compares a frame of the strip chart with the other plotting libraries that were found.
#include "ChannelStack.h"
#include "Goal.h"
#include "Goals.h"
#include "PeerCharts.h"
#include "ScopeChart.h"

namespace {

//! Returns how many times faster the library draws a frame than a peer that shows the same curves.
template<typename Peer>
void measurePeer(ScopeChart &ours, const QString &name, int rounds, double limit)
{
    Peer peer(ours);
    const double faster = timesFaster(
        [&] {
            ours.drawFrame();
        },
        [&] {
            peer.drawFrame();
        },
        rounds);
    report({name, faster, Goal::AtLeast, limit});
}

void measureCustomPlot(ScopeChart &ours, const QString &what, double limit)
{
    const QString name = what + ", times faster than QCustomPlot";
#ifdef HAVE_QCUSTOMPLOT
    measurePeer<CustomPlotChart>(ours, name, 15, limit);
#else
    Q_UNUSED(ours)
    Q_UNUSED(limit)
    reportSkipped(name, "QCustomPlot was not found");
#endif
}

void measureQtCharts(ScopeChart &ours, const QString &what, double limit)
{
    const QString name = what + ", times faster than Qt Charts";
#ifdef HAVE_QTCHARTS
    measurePeer<QtChartsChart>(ours, name, usualRounds, limit);
#else
    Q_UNUSED(ours)
    Q_UNUSED(limit)
    reportSkipped(name, "Qt Charts was not found");
#endif
}

} // namespace

void measurePeerRepaint()
{
    {
        ChannelStack stack(64, 100000);
        ScopeChart ours(stack.top(), ScopeChart::FullRange);
        measureCustomPlot(ours, "2a strip 64 x 100k", 4.2);
    }
    ChannelStack stack(64, 10000);
    ScopeChart ours(stack.top(), ScopeChart::FullRange);
    measureCustomPlot(ours, "2b strip 64 x 10k", 3.0);
    // Only its repaint is measured. Setting its samples takes several times as long.
    measureQtCharts(ours, "2c strip 64 x 10k", 8.5);
}
