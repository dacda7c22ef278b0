// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 17 compares canvases with two device pixels to a pixel with the same canvases with one, for the library and its peers.
#include "ChannelStack.h"
#include "Goal.h"
#include "Goals.h"
#include "PeerCharts.h"
#include "ScopeChart.h"
#include "StockChart.h"

#include <QPainter>

#include <array>

namespace {

constexpr int rounds = 21;

//! A picture of a canvas with one or two device pixels to a pixel.
class Canvas
{
public:
    explicit Canvas(int ratio)
        : m_image(ratio * QSize(canvasWidth, canvasHeight), QImage::Format_RGB32)
    {
        m_image.setDevicePixelRatio(ratio);
    }

    void draw(QwtPlot &plot)
    {
        m_image.fill(Qt::black);
        QPainter painter(&m_image);
        painter.translate(-plot.canvas()->contentsRect().topLeft());
        plot.drawCanvas(&painter);
    }

private:
    QImage m_image;
};

//! Draws a chart with as many device pixels to a pixel, along each axis, as the number says.
using Draw = std::function<void(int ratio)>;

Work at(int ratio, const Draw &draw)
{
    return [&draw, ratio] {
        draw(ratio);
    };
}

//! Reports how much further ahead of a peer a chart is on finer pixels.
void reportLead(const QString &name, const Draw &ours, const Draw &peer)
{
    const double plain = timesFaster(at(1, ours), at(1, peer), rounds);
    const double finer = timesFaster(at(2, ours), at(2, peer), rounds);
    report({name, finer / plain, Goal::AtLeast, 1.0});
}

void measure(const QString &name, int samples, int shown)
{
    ChannelStack stack(64, samples, shown);
    ScopeChart chart(stack.top(), ScopeChart::FullRange);
    StockChart stock(chart);
    std::array<Canvas, 2> canvases{Canvas(1), Canvas(2)};
    const Draw ours = [&](int ratio) {
        canvases[size_t(ratio - 1)].draw(*chart.plot());
    };
    const Draw qwt = [&](int ratio) {
        canvases[size_t(ratio - 1)].draw(stock);
    };
    report({name + ", two pixels to one, times one's time",
            timesFaster(at(1, ours), at(2, ours), rounds),
            Goal::AtMost,
            2.5});
    reportLead(name + ", lead over QwtPlotCurve on finer pixels", ours, qwt);
#ifdef HAVE_QCUSTOMPLOT
    CustomPlotChart plain(chart);
    CustomPlotChart finer(chart);
    finer.setPixelRatio(2.0);
    reportLead(name + ", lead over QCustomPlot on finer pixels", ours, [&](int ratio) {
        (ratio == 1 ? plain : finer).drawFrame();
    });
#endif
}

} // namespace

void measureFinerPixels()
{
    measure(QStringLiteral("17 strip 64 x 100k"), 100000, 100000);
    measure(QStringLiteral("17 strip 64 x 256"), 1000, 256);
}
