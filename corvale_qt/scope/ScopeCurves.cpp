// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/ColumnSeries_p.h"
#include "corvale_qt/models/RVXSeriesData.h"
#include "corvale_qt/plot/RVXDiscontinuousPlotCurve.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/ScopeAxes_p.h"
#include "corvale_qt/scope/ScopeCurves_p.h"

#include <qwt_plot.h>
#include <qwt_scale_engine.h>

#include <QPen>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

// The curves lie between the grid and the markers. The steps keep channels in order when one is hidden and shown again.
constexpr double kLowestLayer = 20.0;
constexpr double kLayerStep = 0.01;
constexpr double kRaisedWidth = 3.0;
constexpr size_t kMostWideSamples = 5000;

/*! Divides a series by its own largest magnitude, or by \a least if that is larger. A series of a class that the host defines
    stays as it is. Returns the divisor. */
double normalize(QwtSeriesData<QPointF> *series, double least)
{
    const auto largest = [series, least] {
        const QRectF bounds = series->boundingRect();
        return std::max({std::abs(bounds.top()), std::abs(bounds.bottom()), least});
    };
    double divisor = 1.0;
    if (auto *ofModel = dynamic_cast<RVXSeriesData *>(series))
        ofModel->setScale(divisor = largest());
    else if (auto *kept = dynamic_cast<ColumnSeries *>(series))
        kept->setScale(divisor = largest());
    return divisor > 0.0 ? divisor : 1.0; // a divisor that is not is ignored by the series, too
}

//! Returns whether a sample is 0 or negative. A first sample without a reading counts in the bounds as 0.
bool hasNotPositive(const RVXDiscontinuousPlotCurve &curve)
{
    const double least = curve.dataSize() > 0 ? curve.boundingRect().top() : 1.0;
    bool found = least < 0.0;
    for (size_t i = 0; least == 0.0 && !found && i < curve.dataSize(); ++i)
        found = curve.sample(int(i)).y() <= 0.0;
    return found;
}

} // namespace

ScopeCurves::ScopeCurves(QwtPlot *plot,
                         const ScopeModel &model,
                         const ScopeAxes &axes,
                         ScopeMarkers &markers)
    : m_plot(plot)
    , m_model(model)
    , m_axes(axes)
    , m_markers(markers)
    , m_history(plot, &m_layer)
{
    // The layer lies directly above the last curve.
    m_layer.setZ(kLowestLayer + kLayerStep * ScopeModel::maximumChannels);
    m_layer.attach(plot);
}

ScopeCurves::~ScopeCurves() = default;

void ScopeCurves::createCurves(int count)
{
    clearCurves();
    m_count = count;
    for (int i = 0; i < count; ++i) {
        auto curve =
            std::make_unique<RVXDiscontinuousPlotCurve>(QStringLiteral("Channel %1").arg(i));
        curve->setPaintAttribute(QwtPlotCurve::ClipPolygons, true);
        curve->setStyle(QwtPlotCurve::NoCurve);
        curve->setZ(kLowestLayer + i * kLayerStep);
        curve->setLayer(&m_layer);
        m_curves[size_t(i)] = std::move(curve);
    }
    setRaised(m_raised);
}

void ScopeCurves::clearCurves()
{
    for (int i = 0; i < m_count; ++i)
        m_curves[size_t(i)].reset();
    m_history.drop();
    m_count = 0;
}

void ScopeCurves::detach()
{
    for (int i = 0; i < m_count; ++i)
        m_curves[size_t(i)]->detach();
    m_history.drop();
}

void ScopeCurves::dropData()
{
    m_history.drop();
    for (int i = 0; i < m_count; ++i) {
        m_curves[size_t(i)]->detach();
        m_curves[size_t(i)]->setSamples(QVector<QPointF>());
    }
}

bool ScopeCurves::showReadings() const
{
    for (int i = 0; i < m_count; ++i) {
        const RVXDiscontinuousPlotCurve &curve = *m_curves[size_t(i)];
        for (size_t k = 0; curve.plot() && k < curve.dataSize(); ++k) {
            if (std::isfinite(curve.sample(int(k)).y()))
                return true;
        }
    }
    return false;
}

QStringList ScopeCurves::namesOfNotPositive() const
{
    QStringList names;
    for (int channel = 1; channel <= m_count; ++channel) {
        const RVXDiscontinuousPlotCurve &curve = *m_curves[size_t(channel - 1)];
        if (curve.plot() && (hasNotPositive(curve) || m_history.hasNotPositive(channel)))
            names << m_model.name(channel);
    }
    return names;
}

bool ScopeCurves::isDrawn(int channel) const
{
    return channel >= 1 && channel <= m_count && m_curves[size_t(channel - 1)]->plot();
}

void ScopeCurves::plotCurves(const SeriesMaker &makeSeries, int firstRow, int scaleMode)
{
    const QwtScaleEngine *const engine = m_plot->axisScaleEngine(QwtPlot::yLeft);
    m_isLogarithmic = dynamic_cast<const QwtLogScaleEngine *>(engine);
    for (int channel = 1; channel <= m_count; ++channel) {
        RVXDiscontinuousPlotCurve &curve = *m_curves[size_t(channel - 1)];
        const int axis = m_axes.axisOf(channel);
        const bool isDrawn = axis != ScopeAxes::noAxis && m_model.isShown(channel);
        QwtSeriesData<QPointF> *series = isDrawn ? makeSeries(channel) : nullptr;
        if (!series) {
            curve.detach();
            m_history.hide(channel);
            continue;
        }
        const double divisor = giveData(channel, series, scaleMode);
        givePen(channel);
        if (curve.yAxis() != axis)
            curve.setYAxis(axis);
        curve.attach(m_plot);
        m_history.show(channel, curve, divisor);
        m_markers.snap(channel, *curve.data(), firstRow);
        m_markers.snapToBlock(channel, divisor);
    }
}

//! Gives a curve its series. Returns what y is divided by.
double ScopeCurves::giveData(int channel, QwtSeriesData<QPointF> *series, int scaleMode)
{
    RVXDiscontinuousPlotCurve &curve = *m_curves[size_t(channel - 1)];
    const bool isNormalized = scaleMode == RVXScopePlotView::Normalized;
    const double divisor = isNormalized ? normalize(series, m_history.largest(channel)) : 1.0;
    curve.setSamples(series);
    // An axis that spans all values leaves nothing to clip.
    const bool clips = m_isZoomed
        || (scaleMode != RVXScopePlotView::AutoScale && scaleMode != RVXScopePlotView::FullRange)
        || m_isLogarithmic;
    curve.setPaintAttribute(QwtPlotCurve::ClipPolygons, clips);
    return divisor;
}

void ScopeCurves::setRaised(int channel)
{
    const auto setZ = [this](int each, double z) {
        if (each >= 1 && each <= m_count)
            m_curves[size_t(each - 1)]->setZ(z);
    };
    setZ(m_raised, kLowestLayer + (m_raised - 1) * kLayerStep);
    m_raised = channel;
    // Above all other curves, and still below the layer.
    setZ(m_raised, kLowestLayer + (ScopeModel::maximumChannels - 0.5) * kLayerStep);
}

void ScopeCurves::givePen(int channel)
{
    RVXDiscontinuousPlotCurve &curve = *m_curves[size_t(channel - 1)];
    QPen pen = m_model.pen(channel);
    if (pen.brush().style() == Qt::NoBrush)
        pen = curve.pen();
    // A painter takes too long for a wide line through many samples.
    const bool isWide = channel == m_raised && curve.dataSize() <= kMostWideSamples;
    pen.setWidthF(isWide ? kRaisedWidth : 1.0);
    if (curve.pen() != pen)
        curve.setPen(pen);
    curve.setStyle(QwtPlotCurve::Lines);
}

} // namespace Corvale_Qt
