// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 16 compares a live frame of a chart as an operator sets it up, with cursor, markers, limits, gaps and legend, with a
// frame of the plain one.
#include "ChannelStack.h"
#include "Goal.h"
#include "Goals.h"
#include "ScopeChart.h"
#include <corvale_qt/ChannelLimits>
#include <corvale_qt/ScopeMarkerStatistics>

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>

#include <QCoreApplication>
#include <QMouseEvent>

using namespace Corvale_Qt;

namespace {

//! A chart with everything that the monitor switches on, and limits on all channels.
class WatchedChart : public ScopeChart
{
public:
    explicit WatchedChart(ChannelStack &stack)
        : ScopeChart(stack.top(), ScopeChart::FullRange)
    {
        setInteractive(true);
        setSiPrefix(true);
        setHysteresis(true);
        setMarkerDetails(true);
        setGapIntervals(3.0);
        setTimeAxis(LocalTime);
        setLegendVisible(true);
        setLimits(stack.channels());
        fitCanvas();
        placeMarkers();
        placePointer();
    }

private:
    //! Gives all channels the same limits, as those of one instrument have.
    void setLimits(int channels)
    {
        ChannelLimits limits;
        limits.highWarning = 1.2;
        limits.highAlarm = 1.5;
        limits.lowWarning = -limits.highWarning;
        limits.lowAlarm = -limits.highAlarm;
        for (int channel = 1; channel <= channels; ++channel)
            setChannelLimits(channel, limits);
    }

    void placeMarkers()
    {
        enablePlotMarker(true);
        const auto [left, right] = shownTimes();
        SelectPoint1({left + 0.25 * (right - left), 0.0});
        SelectPoint2({left + 0.75 * (right - left), 0.0});
        drawFrame();
        require(markerStatistics().hasSpan(), "16 both markers read");
    }

    void placePointer()
    {
        setCursorEnabled(true);
        QWidget *const canvas = plot()->canvas();
        const QPoint pointer = canvas->rect().center();
        QMouseEvent move(QEvent::MouseMove,
                         pointer,
                         canvas->mapToGlobal(pointer),
                         Qt::NoButton,
                         Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(canvas, &move);
    }
};

} // namespace

// The next three are functions of their own because scripts/count-instructions counts what is between their calls and returns.

[[gnu::noinline]] void drawPlain(ScopeChart &chart)
{
    chart.drawFrame();
}

[[gnu::noinline]] void drawWatched(ScopeChart &chart)
{
    chart.drawFrame();
}

[[gnu::noinline]] void measureWatchedOf(const QString &name, int samples, int shown, int rounds)
{
    constexpr int channels = 64;
    ChannelStack stack(channels, samples, shown);
    ScopeChart plain(stack.top(), ScopeChart::FullRange);
    WatchedChart watched(stack);
    // The legend, the cursor and the announcements to hosts come with a frame, and are timed with it.
    const double share = timesFaster(
        [&] {
            drawPlain(plain);
            QCoreApplication::processEvents();
        },
        [&] {
            drawWatched(watched);
            QCoreApplication::processEvents();
        },
        rounds);
    report(
        {QStringLiteral("16 %1, all that is watched on, share of the plain chart's time").arg(name),
         share,
         Goal::AtMost,
         1.1});
}

void measureWatchedChart()
{
    measureWatchedOf(QStringLiteral("strip 64 x 100k"), 100000, 100000, 15);
    measureWatchedOf(QStringLiteral("strip 64 x 256"), 1000, 256, 101);
}
