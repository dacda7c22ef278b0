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

//! What the fits can take: a bar that is no number, or none in single precision, stands at 0.
double barValue(double value)
{
    return std::isfinite(value) && std::isfinite(float(value)) ? value : 0.0;
}

} // namespace

HistogramPlotMode::HistogramPlotMode(RVXScopePlotViewPrivate &view)
    : ScopePlotMode(view)
    , m_bars(new BarSeries)
{
    d.histogram.setData(m_bars);
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
    readBars(channels, last);
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

void HistogramPlotMode::readBars(int channels, int row)
{
    m_bars->resize(channels);
    m_values.resize(channels);
    for (int i = 0; i < channels; ++i) {
        const bool shown = d.model.isShown(i + 1);
        const double value = shown ? barValue(d.model.plot()->doubleData(row, i + 1)) : 0.0;
        m_bars->setValue(i, value);
        m_values[i] = float(value);
    }
}

void HistogramPlotMode::showStatistics(int row)
{
    QVariantList deviceFits;
    if (d.statistics.needsDeviceFits()) {
        const QAbstractItemModel *items = d.q_ptr->model();
        deviceFits =
            items->data(items->index(row, 0), RVXAbstractPlotDataModel::DeviceFitRole).toList();
    }
    d.statistics.compute(m_values, deviceFits);
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
    const double value = m_bars->sample(size_t(channel - 1)).value;
    QString text = sampleText(d.model, d.model.plot()->doubleData(row, 0), channel, value);
    if (index == 1 && d.markers.isAttached(0)) {
        const auto ends = std::minmax({channel, markerChannel(0)});
        MarkerStatistics statistics;
        for (int bar = ends.first; bar <= ends.second; ++bar)
            statistics.add(m_bars->sample(size_t(bar - 1)).value);
        text = spanText(text, statistics);
    }
    marker.setValue(channel, value);
    setMarkerLabel(marker, text, index == d.markers.selected());
    setMarkerLine(marker, d.model.brush(channel));
    alignMarkerLabel(marker, channel > 0.75 * m_values.size() ? Qt::AlignLeft : Qt::AlignRight);
}

int HistogramPlotMode::markerChannel(int index) const
{
    const double x = d.markers.item(index)->xValue();
    return int(std::lround(std::clamp(x, 1.0, double(m_values.size()))));
}

void HistogramPlotMode::moveMarker(int index, int steps)
{
    if (!m_values.isEmpty())
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
