// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <memory>

class QCustomPlot;
class ScopeChart;

namespace QtCharts {
class QChartView;
} // namespace QtCharts

//! Draws curves with QCustomPlot: with adaptive sampling, without antialiasing, on a canvas of 1000 x 600 pixels.
class CustomPlotChart
{
public:
    explicit CustomPlotChart(ScopeChart &chart);
    ~CustomPlotChart();
    void drawFrame();
    //! Sets how many device pixels a pixel has along each axis.
    void setPixelRatio(double ratio);

private:
    const std::unique_ptr<QCustomPlot> m_plot;
};

//! Draws curves with Qt Charts, without OpenGL.
class QtChartsChart
{
public:
    explicit QtChartsChart(ScopeChart &chart);
    ~QtChartsChart();
    void drawFrame();

private:
    const std::unique_ptr<QtCharts::QChartView> m_view;
};
