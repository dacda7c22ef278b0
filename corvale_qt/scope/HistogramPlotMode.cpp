// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/scope/MarkerLabels_p.h"
#include "corvale_qt/scope/MarkerStatistics_p.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"

#include <qwt_plot.h>
#include <qwt_series_data.h>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

//! The bars, changed in place from plot to plot. Bar i spans i + 0.5 to i + 1.5: channel k stands at k.
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

//! Returns the value that the fits get: 0 for a channel without a reading, or with one beyond single precision.
float fitValue(double reading)
{
    return std::isfinite(float(reading)) ? float(reading) : 0.0F;
}

} // namespace

HistogramPlotMode::HistogramPlotMode(RVXScopePlotViewPrivate &view)
    : ScopePlotMode(view)
    , m_series(new BarSeries)
{
    d.histogram.setData(m_series);
}

void HistogramPlotMode::enter()
{
    d.curves.detach();
    d.showOnly(d.plot);
    d.axes.prepareChannelAxis(d.model.channelCount());
    d.showScrollBar(false);
    d.statistics.show();
}

void HistogramPlotMode::plot()
{
    const int channels = d.model.channelCount();
    const int last = d.model.lastRow();
    if (channels < 1 || last < 1) {
        clear();
        return;
    }
    readChannels(channels, last);
    drawBars();
    d.histogram.attach(d.plot);
    d.axes.setYTitle(d.yTitle());
    showStatistics(last);
    showMarkers(last);
    d.plot->updateAxes();
}

void HistogramPlotMode::clear()
{
    d.histogram.detach();
    d.statistics.clear();
    d.markers.detachAll();
    d.plot->updateAxes();
}

void HistogramPlotMode::readChannels(int channels, int row)
{
    m_readings.resize(channels);
    m_bars.values.resize(channels);
    for (int i = 0; i < channels; ++i) {
        const double value =
            d.model.isShown(i + 1) ? d.model.plot()->doubleData(row, i + 1) : std::nan("");
        m_readings[i] = std::isfinite(value) ? value : std::nan("");
        m_bars.values[i] = fitValue(m_readings[i]);
    }
    m_bars.divisor = plotDivisor();
    m_bars.unit = d.model.unitName();
}

//! Returns the largest magnitude of all bars in a normalised histogram, and 1 in others.
double HistogramPlotMode::plotDivisor() const
{
    double largest = 0.0;
    for (double reading : m_readings) {
        if (std::abs(reading) > largest)
            largest = std::abs(reading);
    }
    return d.yScale.mode == RVXScopePlotView::Normalized && largest > 0.0 ? largest : 1.0;
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
    if (d.statistics.needsDeviceFits()) {
        const QAbstractItemModel *items = d.q_ptr->model();
        m_bars.deviceFits =
            items->data(items->index(row, 0), RVXAbstractPlotDataModel::DeviceFitRole).toList();
    }
    d.statistics.compute(m_bars);
}

void HistogramPlotMode::showMarkers(int row)
{
    for (int i = 0; i < ScopeMarkers::count; ++i) {
        if (d.markers.isAttached(i))
            describeMarker(i, row);
    }
    if (d.markers.isAttached(0) && d.markers.isAttached(1)) {
        keepLabelsApart(*d.markers.item(0),
                        *d.markers.item(1),
                        d.plot->axisInterval(QwtPlot::xBottom).width());
    }
}

void HistogramPlotMode::describeMarker(int index, int row)
{
    QwtPlotMarker &marker = *d.markers.item(index);
    const int channel = markerChannel(index);
    QString text = barText(channel, row);
    if (index == 1 && d.markers.isAttached(0)) {
        const auto ends = std::minmax({channel, markerChannel(0)});
        MarkerStatistics statistics;
        for (int bar = ends.first; bar <= ends.second; ++bar)
            statistics.add(m_readings[bar - 1]);
        text = spanText(text, statistics);
    }
    marker.setValue(channel, m_series->sample(size_t(channel - 1)).value);
    setMarkerLabel(marker, text, index == d.markers.selected());
    setMarkerLine(marker, d.model.brush(channel));
    alignMarkerLabel(marker, channel > 0.75 * m_readings.size() ? Qt::AlignLeft : Qt::AlignRight);
}

//! Returns the text of a marker on a bar. The reading has its unit where the axis does not name it.
QString HistogramPlotMode::barText(int channel, int row) const
{
    const double reading = m_readings[channel - 1];
    const QString text = sampleText(d.model, d.model.plot()->doubleData(row, 0), channel, reading);
    const bool namesUnit = d.yScale.mode == RVXScopePlotView::Normalized && !std::isnan(reading)
        && !m_bars.unit.isEmpty();
    return namesUnit ? text + QLatin1Char(' ') + m_bars.unit : text;
}

int HistogramPlotMode::markerChannel(int index) const
{
    const double x = d.markers.item(index)->xValue();
    return int(std::lround(std::clamp(x, 1.0, double(m_readings.size()))));
}

void HistogramPlotMode::moveMarker(int index, int steps)
{
    if (!m_readings.isEmpty())
        d.markers.item(index)->setXValue(markerChannel(index) + steps);
}

CompanionPlotMode::CompanionPlotMode(RVXScopePlotViewPrivate &view, QWidget *companion)
    : ScopePlotMode(view)
    , m_companion(companion)
{
}

void CompanionPlotMode::enter()
{
    d.histogram.detach();
    d.statistics.hide();
    d.showScrollBar(false);
    d.showOnly(m_companion);
}

void CompanionPlotMode::plot() { }

void CompanionPlotMode::clear() { }

} // namespace Corvale_Qt
