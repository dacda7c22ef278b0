// SPDX-License-Identifier: LGPL-2.1-or-later
#include "ChannelStack.h"
#include "Chart.h"
#include "Goal.h"
#include "Goals.h"
#include <corvale_qt/RVXDiscontinuousPlotCurve>
#include <corvale_qt/RVXSeriesData>

#include <qwt_plot_curve.h>

#include <QVector>

using namespace Corvale_Qt;

namespace {

QVector<QPointF> copyOf(const QwtSeriesData<QPointF> &series)
{
    QVector<QPointF> points(int(series.size()));
    for (int i = 0; i < points.size(); ++i)
        points[i] = series.sample(size_t(i));
    return points;
}

//! The same channels twice: by the library's curve out of the proxies, by Qwt's out of copied points.
class TwoCharts
{
public:
    TwoCharts(int channels, int samples)
        : stack(channels, samples)
        , ours(QwtInterval(1.0, samples))
        , stock(QwtInterval(1.0, samples))
    {
        for (int channel = 1; channel <= channels; ++channel) {
            auto *series = stack.top().seriesData(channel, 1, samples);
            auto *plain = new QwtPlotCurve;
            plain->setPaintAttribute(QwtPlotCurve::FilterPoints, false);
            plain->setSamples(copyOf(*series));
            stock.addCurve(plain, channel);
            auto *curve = new RVXDiscontinuousPlotCurve;
            curve->setSamples(series);
            ours.addCurve(curve, channel);
        }
    }

    double ratio()
    {
        return timesFaster(
            [this] {
                ours.drawFrame();
            },
            [this] {
                stock.drawFrame();
            });
    }

    ChannelStack stack;
    Chart ours;
    Chart stock;
};

} // namespace

void measureStripRepaint()
{
    {
        TwoCharts charts(64, 100000);
        report({"1a repaint 64 x 100k, times faster than QwtPlotCurve",
                charts.ratio(),
                Goal::AtLeast,
                25});
    }
    {
        TwoCharts charts(64, 10000);
        report({"1b repaint 64 x 10k, times faster than QwtPlotCurve",
                charts.ratio(),
                Goal::AtLeast,
                4.5});
    }
    for (int channels : {8, 64, 256}) {
        TwoCharts charts(channels, 256);
        report({QStringLiteral("3 repaint %1 x 256, share of QwtPlotCurve's time").arg(channels),
                1.0 / charts.ratio(),
                Goal::AtMost,
                1.05});
    }
}
