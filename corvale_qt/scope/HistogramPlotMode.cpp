// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/SampleNoise_p.h"
#include "corvale_qt/scope/HistogramPlotMode_p.h"
#include "corvale_qt/scope/MarkerLabels_p.h"
#include "corvale_qt/scope/MarkerStatistics_p.h"
#include "corvale_qt/scope/ScopeContext_p.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
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

    //! Puts bar i, counted from 0, elsewhere than at i + 1.
    void setPlace(int i, double left, double right)
    {
        d_samples[i].interval = QwtInterval(left, right);
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

HistogramPlotMode::HistogramPlotMode(ScopeContext &context)
    : ScopePlotMode(context)
    , m_series(new BarSeries)
{
    m_context.histogram.setData(m_series);
}

void HistogramPlotMode::enter()
{
    m_context.curves.detach();
    m_context.gaps.hide();
    m_context.limits.hide();
    m_context.triggerMarks.hide();
    m_context.surface.showOnly(m_context.plot);
    m_context.followUnits(ScopeAxes::Show::FirstUnit);
    prepareAxis();
    showNames();
    m_context.surface.showScrollBar(false);
    m_context.statistics.show();
}

void HistogramPlotMode::showNames()
{
    m_context.namesChanged = false;
    const bool placed = m_context.statistics.places().apply(m_context.model.channelCount());
    if (!m_context.hasBarNames || placed)
        return;
    QStringList names;
    for (int channel = 1; channel <= m_context.model.channelCount(); ++channel)
        names << m_context.model.name(channel);
    m_context.axes.showChannelNames(names);
}

void HistogramPlotMode::prepareAxis()
{
    const int channels = m_context.model.channelCount();
    const HistogramPlaces &places = m_context.statistics.places();
    m_context.axes.prepareChannelAxis(channels);
    const bool placed = places.apply(channels);
    m_series->resize(0); // bars that stood elsewhere
    m_series->resize(channels);
    for (int i = 0; placed && i < channels; ++i)
        m_series->setPlace(i, places.bar(i).left, places.bar(i).right);
    if (!placed)
        return;
    places.prepareAxis(m_context.plot);
    m_context.axes.setXTitle(places.title());
}

void HistogramPlotMode::plot()
{
    if (m_context.namesChanged)
        showNames();
    const int channels = m_context.model.channelCount();
    const int last = m_context.model.lastRow();
    if (channels < 1 || last < 1) {
        clear();
        return;
    }
    m_context.followUnits(ScopeAxes::Show::FirstUnit);
    m_context.statistics.read(last);
    const double divisor = plotDivisor();
    drawBars(divisor);
    m_context.histogram.attach(m_context.plot);
    m_context.limits.showOverBars(divisor, [this](int channel) {
        return m_series->sample(size_t(channel - 1)).interval;
    });
    m_context.showYTitles();
    m_context.statistics.showResults(divisor);
    showMarkers();
    m_context.noteHidden(m_context.yScale.isLogarithmic ? namesOfNotPositive() : QStringList());
    m_context.holdYAxis();
    m_context.axes.update();
}

void HistogramPlotMode::clear()
{
    m_context.histogram.detach();
    m_context.statistics.clear();
    m_context.hideNote();
    m_context.markers.detachAll();
    m_context.followUnits(ScopeAxes::Show::FirstUnit);
    m_context.axes.showEmpty();
    m_context.showYTitles();
    m_context.axes.update();
}

//! Returns the largest magnitude of all bars in a normalised histogram, and 1 in others.
double HistogramPlotMode::plotDivisor() const
{
    double largest = 0.0;
    for (double reading : m_context.statistics.bars().readings) {
        if (std::abs(reading) > largest)
            largest = std::abs(reading);
    }
    return m_context.yScale.mode == RVXScopePlotView::Normalized && largest > 0.0 ? largest : 1.0;
}

void HistogramPlotMode::drawBars(double divisor)
{
    const QVector<double> &readings = m_context.statistics.bars().readings;
    m_series->resize(readings.size());
    for (int i = 0; i < readings.size(); ++i) {
        const double height = m_context.statistics.barHeight(i);
        m_series->setValue(i, std::isnan(height) ? 0.0 : height / divisor);
    }
}

//! Returns the names of the channels whose bars are negative.
QStringList HistogramPlotMode::namesOfNotPositive() const
{
    QStringList names;
    const QVector<double> &readings = m_context.statistics.bars().readings;
    for (int i = 0; i < readings.size(); ++i) {
        if (readings[i] <= 0.0)
            names << m_context.model.name(i + 1);
    }
    return names;
}

void HistogramPlotMode::showMarkers()
{
    for (int i = 0; i < ScopeMarkers::count; ++i) {
        if (m_context.markers.isAttached(i))
            describeMarker(i);
    }
    if (m_context.markers.isAttached(0) && m_context.markers.isAttached(1)) {
        keepLabelsApart(*m_context.markers.item(0),
                        *m_context.markers.item(1),
                        m_context.plot->axisInterval(QwtPlot::xBottom).width());
    }
}

void HistogramPlotMode::describeMarker(int index)
{
    const QVector<double> &readings = m_context.statistics.bars().readings;
    QwtPlotMarker &marker = *m_context.markers.item(index);
    const int channel = markerChannel(index);
    QString text = barText(channel);
    if (index == 1 && m_context.markers.isAttached(0))
        text = spanText(m_context.model, channel, text, span());
    marker.setYAxis(QwtPlot::yLeft);
    marker.setValue(markerPlace(channel), m_series->sample(size_t(channel - 1)).value);
    setMarkerLabel(marker, text, index == m_context.markers.selected());
    setMarkerLine(marker, m_context.model.brush(channel));
    const QwtInterval axis = m_context.plot->axisInterval(QwtPlot::xBottom);
    const bool placed = m_context.statistics.places().apply(readings.size());
    const bool isRight = placed ? marker.xValue() > axis.minValue() + 0.75 * axis.width()
                                : channel > 0.75 * readings.size();
    alignMarkerLabel(marker, isRight ? Qt::AlignLeft : Qt::AlignRight);
}

//! Returns the label of a marker on a bar. In a normalised histogram, whose axis has no unit, it names the unit.
QString HistogramPlotMode::barText(int channel) const
{
    const HistogramBars &bars = m_context.statistics.bars();
    const double reading = bars.readings[channel - 1];
    MarkedSample sample{bars.time, channel, reading};
    const bool hasSiPrefix = m_context.model.hasSiPrefix();
    if (hasSiPrefix)
        sample.noise = sampleNoise(m_context.model.reader(), channel, bars.row);
    const QString text = sampleText(m_context.model, sample);
    const bool namesUnit = !hasSiPrefix && m_context.yScale.mode == RVXScopePlotView::Normalized
        && !std::isnan(reading) && !bars.unit.isEmpty();
    return namesUnit ? text + QLatin1Char(' ') + bars.unit : text;
}

//! Returns the channel, counted from 1, whose place is nearest to \a x.
int HistogramPlotMode::channelAt(double x) const
{
    const int channels = m_context.statistics.bars().readings.size();
    const HistogramPlaces &places = m_context.statistics.places();
    if (places.apply(channels))
        return places.nearestChannel(x) + 1;
    return int(std::lround(std::clamp(x, 1.0, double(channels))));
}

//! Returns whether a channel has a bar; one in another unit than that of the axis has none.
bool HistogramPlotMode::hasBar(int channel) const
{
    return m_context.axes.axisOf(channel) != ScopeAxes::noAxis;
}

//! Returns the channel whose bar is \a steps bars beside that of another one, or as far as there are bars.
int HistogramPlotMode::channelBeside(int channel, int steps) const
{
    const int channels = m_context.statistics.bars().readings.size();
    const int direction = steps < 0 ? -1 : 1;
    int found = channel;
    for (int next = channel + direction; steps != 0 && next >= 1 && next <= channels;
         next += direction) {
        if (!hasBar(next))
            continue;
        found = next;
        steps -= direction;
    }
    return found;
}

//! Returns the channel on whose bar a marker stands. A marker beside a bar that is not drawn stands on the next one.
int HistogramPlotMode::markerChannel(int index) const
{
    const int nearest = channelAt(m_context.markers.item(index)->xValue());
    if (hasBar(nearest))
        return nearest;
    const int before = channelBeside(nearest, -1);
    const int after = channelBeside(nearest, 1);
    const bool isBefore = hasBar(before) && (!hasBar(after) || nearest - before <= after - nearest);
    return isBefore ? before : after;
}

//! Returns x of a channel's bar, counted from 1.
double HistogramPlotMode::markerPlace(int channel) const
{
    const HistogramPlaces &places = m_context.statistics.places();
    return places.apply(m_context.statistics.bars().readings.size()) ? places.bar(channel - 1).place
                                                                     : channel;
}

//! Returns the statistics of the bars from one marker to the other.
MarkerStatistics HistogramPlotMode::span() const
{
    const auto ends = std::minmax({markerChannel(0), markerChannel(1)});
    MarkerStatistics statistics;
    for (int bar = ends.first; bar <= ends.second; ++bar) {
        if (hasBar(bar))
            statistics.add(m_context.statistics.bars().readings[bar - 1]);
    }
    return statistics;
}

ScopeMarkerStatistics HistogramPlotMode::markerStatistics() const
{
    ScopeMarkerStatistics result;
    const HistogramBars &bars = m_context.statistics.bars();
    if (bars.readings.isEmpty())
        return result;
    ScopeMarkerStatistics::Marker *const markers[ScopeMarkers::count] = {&result.first,
                                                                         &result.second};
    for (int i = 0; i < ScopeMarkers::count; ++i) {
        const int channel = markerChannel(i);
        if (m_context.markers.isAttached(i))
            *markers[i] = {true, bars.row, channel, bars.time, bars.readings[channel - 1]};
    }
    if (result.hasSpan()) {
        result.difference = result.second.reading - result.first.reading;
        span().writeTo(result);
    }
    return result;
}

bool HistogramPlotMode::showsReadings() const
{
    const QVector<double> &readings = m_context.statistics.bars().readings;
    return m_context.histogram.plot()
        && std::any_of(readings.begin(), readings.end(), [](double reading) {
               return !std::isnan(reading);
           });
}

HoverReading HistogramPlotMode::readingAt(double x) const
{
    HoverReading reading;
    const HistogramBars &bars = m_context.statistics.bars();
    const bool isInside = m_context.plot->axisInterval(QwtPlot::xBottom).contains(x);
    if (!m_context.histogram.plot() || bars.readings.isEmpty() || !isInside)
        return reading;
    const int channel = channelAt(x);
    if (!hasBar(channel))
        return reading;
    const ScopeModel &model = m_context.model;
    MarkedSample sample{bars.time, channel, bars.readings[channel - 1]};
    if (model.hasSiPrefix())
        sample.noise = sampleNoise(model.reader(), channel, bars.row);
    reading.x = markerPlace(channel);
    reading.place = placeText(model, bars.time, 0.0);
    reading.channels.append(
        {model.name(channel), hoverText(model, sample), model.brush(channel).color()});
    return reading;
}

void HistogramPlotMode::moveMarker(int index, int steps)
{
    if (m_context.statistics.bars().readings.isEmpty())
        return;
    const int channel = channelBeside(markerChannel(index), steps);
    m_context.markers.item(index)->setXValue(markerPlace(channel));
}

} // namespace Corvale_Qt
