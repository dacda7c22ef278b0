// SPDX-License-Identifier: LGPL-2.1-or-later
// Measures what a frame costs at spans from a second to a week, from rows and from blocks of older readings: the processor time
// of frames that follow the newest readings, and of the first frame after a jump to another time. Prints "figure, measured, limit".
#include "Goal.h"
#include <corvale_qt/RVXMultichannelDeviceModel>
#include <corvale_qt/RVXScopePlotView>
#include <corvale_qt/ScopeMarkerStatistics>

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>

#include <QApplication>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <limits>
#include <vector>

using namespace Corvale_Qt;

namespace {

constexpr QSize canvasSize(1000, 600);

//! Returns the processor time that \a work takes, in milliseconds.
template<typename Work>
double milliseconds(Work work)
{
    const std::clock_t begin = std::clock();
    work();
    return 1e3 * double(std::clock() - begin) / CLOCKS_PER_SEC;
}

double percentile(std::vector<double> values, double share)
{
    std::sort(values.begin(), values.end());
    return values[size_t(share * double(values.size() - 1))];
}

//! A strip chart of a canvas of 1000 x 600 pixels.
class Chart : public RVXScopePlotView
{
public:
    using RVXScopePlotView::SelectPoint1;
    using RVXScopePlotView::SelectPoint2;

    explicit Chart(QAbstractItemModel &model)
    {
        setModel(&model);
        resize(canvasSize + QSize(80, 60));
        show();
        QApplication::processEvents();
    }
    void drawFrame()
    {
        qwtPlot()->replot();
        qwtPlot()->canvas()->repaint();
    }
};

//! An instrument of several channels that has run for a while.
class Instrument
{
public:
    Instrument(int channels, double rate, int capacity, double historySpan)
        : m_channels(channels)
        , m_rate(rate)
        , m_model(channels)
    {
        m_model.setCapacity(capacity);
        m_model.setHistorySpan(historySpan);
    }
    RVXMultichannelDeviceModel &model() { return m_model; }
    double now() const { return double(m_rows) / m_rate; }

    //! Returns the processor time that it takes to append rows, in milliseconds.
    double run(qint64 rows)
    {
        constexpr int block = 1000;
        double taken = 0.0;
        std::vector<double> times(block);
        std::vector<double> values(size_t(block) * size_t(m_channels));
        for (qint64 done = 0; done < rows; done += block) {
            for (int row = 0; row < block; ++row, ++m_rows) {
                times[size_t(row)] = now();
                for (int channel = 0; channel < m_channels; ++channel)
                    values[size_t(row * m_channels + channel)] = reading(channel);
            }
            taken += milliseconds([&] {
                m_model.appendRows(times.data(), values.data(), block);
            });
        }
        return taken;
    }

private:
    double reading(int channel)
    {
        m_noise = m_noise * 1664525U + 1013904223U;
        return channel + 1e-9 * double(m_noise % 1000000000U);
    }

    int m_channels;
    double m_rate;
    RVXMultichannelDeviceModel m_model;
    qint64 m_rows = 0;
    unsigned m_noise = 1;
};

void measureSpans()
{
    constexpr int channels = 16;
    constexpr double rate = 10.0;
    constexpr double week = 7.0 * 86400.0;
    constexpr int capacity = 100000;
    Instrument instrument(channels, rate, capacity, week);
    instrument.run(qint64(week * rate));
    reportFigure("22 history of a week of 16 channels at 10 Hz, MB",
                 double(instrument.model().historyMemoryInUse()) * 1e-6);
    Chart chart(instrument.model());
    chart.setBeginAtFirst(true);
    const std::pair<const char *, double> spans[] = {{"1 s", 1.0},
                                                     {"10 s", 10.0},
                                                     {"1 min", 60.0},
                                                     {"10 min", 600.0},
                                                     {"1 h", 3600.0},
                                                     {"6 h", 21600.0},
                                                     {"1 d", 86400.0},
                                                     {"2 d", 172800.0},
                                                     {"4 d", 345600.0},
                                                     {"7 d", week}};
    for (const auto &[name, span] : spans) {
        chart.setTimeSpan(span);
        std::vector<double> frames;
        for (int i = 0; i < 40; ++i) {
            instrument.run(1000);
            frames.push_back(milliseconds([&] {
                chart.drawFrame();
            }));
        }
        std::vector<double> jumps;
        for (int i = 1; i <= 20; ++i) {
            const double right = instrument.now() - (week - span) * i / 20.0;
            chart.zoomToX(right - span, right);
            jumps.push_back(milliseconds([&] {
                chart.drawFrame();
            }));
        }
        chart.goLive();
        const QString goal = QStringLiteral("22 span of %1, ").arg(QLatin1String(name));
        report({goal + "frame, ms", percentile(frames, 0.5), Goal::AtMost, 20.0});
        report({goal + "first frame after a jump, worst of 20, ms",
                percentile(jumps, 1.0),
                Goal::AtMost,
                50.0});
    }
    // Markers at both ends of the week: their numbers are read from blocks in each frame.
    chart.setTimeSpan(std::numeric_limits<double>::infinity());
    chart.enablePlotMarker(true);
    chart.SelectPoint1({instrument.now() - 0.9 * week, 1.0});
    chart.SelectPoint2({instrument.now() - 0.1 * week, 1.0});
    std::vector<double> frames;
    for (int i = 0; i < 40; ++i) {
        instrument.run(1000);
        frames.push_back(milliseconds([&] {
            chart.drawFrame();
        }));
    }
    require(chart.markerStatistics().count > 0, "22 statistics between the markers");
    report({"22 span of 7 d with markers 5.6 d apart, frame, ms",
            percentile(frames, 0.5),
            Goal::AtMost,
            20.0});
}

void measureZoom()
{
    constexpr int channels = 64;
    constexpr int rows = 100000;
    Instrument instrument(channels, 1000.0, rows, 0.0);
    instrument.run(rows);
    Chart chart(instrument.model());
    chart.setTimeSpan(std::numeric_limits<double>::infinity());
    chart.drawFrame();
    std::vector<double> frames;
    double span = double(rows) / 1000.0;
    for (int i = 0; i < 60; ++i) { // in and out again, about a place left of the middle
        span *= i % 30 < 15 ? 0.8 : 1.25;
        chart.zoomToX(40.0 - 0.4 * span, 40.0 + 0.6 * span);
        frames.push_back(milliseconds([&] {
            chart.drawFrame();
        }));
    }
    report({"22 zooming 64 x 100k, frame, ms", percentile(frames, 0.5), Goal::AtMost, 16.0});
}

void measureIngest()
{
    constexpr int channels = 16;
    constexpr int rows = 500000;
    std::vector<double> ratios;
    for (int round = 0; round < 3; ++round) {
        Instrument with(channels, 1000.0, 100000, 7.0 * 86400.0);
        Instrument without(channels, 1000.0, 100000, 0.0);
        ratios.push_back(with.run(rows) / without.run(rows));
    }
    report({"22 appending by the thousand with the history of a week, times without",
            percentile(ratios, 0.5),
            Goal::AtMost,
            1.3});
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_SCALE_FACTOR");
    const QApplication application(argc, argv);
    measureZoom();
    measureIngest();
    measureSpans();
    return allGoalsMet() ? 0 : 1;
}
