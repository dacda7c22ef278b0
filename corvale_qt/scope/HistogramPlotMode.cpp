// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/scope/HistogramPlotMode_p.h"
#include "corvale_qt/scope/MarkerLabels_p.h"
#include "corvale_qt/scope/MarkerStatistics_p.h"
#include "corvale_qt/scope/ScopeContext_p.h"
#include "corvale_qt/scope/ScopeSurface_p.h"

#include <qwt_plot.h>
#include <qwt_series_data.h>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

//! The bars, which each plot changes in place. Bar i, counted from 0, spans i + 0.5 to i + 1.5: channel k is at x = k.
class BarSeries : public QwtArraySeriesData<QwtIntervalSample>
{
public:
    void resize(int channels)
    {
        for (int i = d_samples.size(); i < channels; ++i)
            d_samples.append(QwtIntervalSample(0.0, i + 0.5, i + 1.5));
        d_samples.resize(channels);
    }

    void setValue(int i, double value)
    {
        d_samples[i].value = value;
        d_boundingRect = QRectF(0.0, 0.0, -1.0, -1.0);
    }

    QRectF boundingRect() const override
    {
        if (d_boundingRect.width() < 0.0)
            d_boundingRect = qwtBoundingRect(*this);
        return d_boundingRect;
    }
};

namespace {

//! Returns the value for the fits: 0 for a channel without a reading and for a reading beyond single precision.
float fitValue(double reading)
{
    return std::isfinite(float(reading)) ? float(reading) : 0.0F;
}

} // namespace

HistogramPlotMode::HistogramPlotMode(ScopeContext &context)
    : ScopePlotMode(context)
    , m_series(new BarSeries)
{
    m_context.histogram.setData(m_series);
}

void HistogramPlotMode::enter()
{
    m_context.curves.detach();
    m_context.surface.showOnly(m_context.plot);
    m_context.axes.prepareChannelAxis(m_context.model.channelCount());
    m_context.surface.showScrollBar(false);
    m_context.statistics.show();
}

void HistogramPlotMode::plot()
{
    const int channels = m_context.model.channelCount();
    const int last = m_context.model.lastRow();
    if (channels < 1 || last < 1) {
        clear();
        return;
    }
    readChannels(channels, last);
    drawBars();
    m_context.histogram.attach(m_context.plot);
    m_context.axes.setYTitle(m_context.yTitle());
    showStatistics(last);
    showMarkers(last);
    m_context.plot->updateAxes();
}

void HistogramPlotMode::clear()
{
    m_context.histogram.detach();
    m_context.statistics.clear();
    m_context.markers.detachAll();
    m_context.plot->updateAxes();
}

void HistogramPlotMode::readChannels(int channels, int row)
{
    m_readings.resize(channels);
    m_bars.values.resize(channels);
    for (int i = 0; i < channels; ++i) {
        const double value = m_context.model.isShown(i + 1)
            ? m_context.model.plot()->doubleData(row, i + 1)
            : std::nan("");
        m_readings[i] = std::isfinite(value) ? value : std::nan("");
        m_bars.values[i] = fitValue(m_readings[i]);
    }
    m_bars.divisor = plotDivisor();
    m_bars.unit = m_context.model.unitName();
    m_bars.unitScale = m_context.model.unitScale();
}

//! Returns the largest magnitude of all bars in a normalised histogram, and 1 in others.
double HistogramPlotMode::plotDivisor() const
{
    double largest = 0.0;
    for (double reading : m_readings) {
        if (std::abs(reading) > largest)
            largest = std::abs(reading);
    }
    return m_context.yScale.mode == RVXScopePlotView::Normalized && largest > 0.0 ? largest : 1.0;
}

void HistogramPlotMode::drawBars()
{
    m_series->resize(m_readings.size());
    for (int i = 0; i < m_readings.size(); ++i) {
        const bool hasReading = !std::isnan(m_readings[i]);
        m_series->setValue(i, hasReading ? m_readings[i] / m_bars.divisor : 0.0);
    }
}

void HistogramPlotMode::showStatistics(int row)
{
    m_bars.deviceFits.clear();
    if (m_context.statistics.needsDeviceFits())
        m_bars.deviceFits = m_context.model.deviceFits(row);
    m_context.statistics.compute(m_bars);
}

void HistogramPlotMode::showMarkers(int row)
{
    for (int i = 0; i < ScopeMarkers::count; ++i) {
        if (m_context.markers.isAttached(i))
            describeMarker(i, row);
    }
    if (m_context.markers.isAttached(0) && m_context.markers.isAttached(1)) {
        keepLabelsApart(*m_context.markers.item(0),
                        *m_context.markers.item(1),
                        m_context.plot->axisInterval(QwtPlot::xBottom).width());
    }
}

void HistogramPlotMode::describeMarker(int index, int row)
{
    QwtPlotMarker &marker = *m_context.markers.item(index);
    const int channel = markerChannel(index);
    QString text = barText(channel, row);
    if (index == 1 && m_context.markers.isAttached(0)) {
        const auto ends = std::minmax({channel, markerChannel(0)});
        MarkerStatistics statistics;
        for (int bar = ends.first; bar <= ends.second; ++bar)
            statistics.add(m_readings[bar - 1]);
        text = spanText(text, statistics);
    }
    marker.setValue(channel, m_series->sample(size_t(channel - 1)).value);
    setMarkerLabel(marker, text, index == m_context.markers.selected());
    setMarkerLine(marker, m_context.model.brush(channel));
    alignMarkerLabel(marker, channel > 0.75 * m_readings.size() ? Qt::AlignLeft : Qt::AlignRight);
}

//! Returns the label of a marker on a bar. In a normalised histogram, whose axis has no unit, it names the unit.
QString HistogramPlotMode::barText(int channel, int row) const
{
    const double reading = m_readings[channel - 1];
    const QString text =
        sampleText(m_context.model, m_context.model.plot()->doubleData(row, 0), channel, reading);
    const bool namesUnit = m_context.yScale.mode == RVXScopePlotView::Normalized
        && !std::isnan(reading) && !m_bars.unit.isEmpty();
    return namesUnit ? text + QLatin1Char(' ') + m_bars.unit : text;
}

int HistogramPlotMode::markerChannel(int index) const
{
    const double x = m_context.markers.item(index)->xValue();
    return int(std::lround(std::clamp(x, 1.0, double(m_readings.size()))));
}

void HistogramPlotMode::moveMarker(int index, int steps)
{
    if (!m_readings.isEmpty())
        m_context.markers.item(index)->setXValue(markerChannel(index) + steps);
}

} // namespace Corvale_Qt
