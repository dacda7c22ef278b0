// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/RVXDiscontinuousPlotCurve.h"
#include "corvale_qt/scope/ScopeHistory_p.h"

#include <qwt_plot.h>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

// A channel's blocks lie below its curve and above the one of the channel before.
constexpr double kBelowCurve = 0.005;

} // namespace

ScopeHistory::ScopeHistory(QwtPlot *plot, CurveLayer *layer)
    : m_plot(plot)
    , m_layer(layer)
{
}

void ScopeHistory::setWindow(const RVXPlotHistory *history, double left, double right)
{
    const int columns = std::max(m_plot->canvas()->width(), 1);
    m_frame.show(history, left, right, blocksOfColumn * columns);
}

double ScopeHistory::largest(int channel) const
{
    HistoryCurve whole(m_frame, nullptr);
    whole.show(channel, 1.0, QPen());
    const QRectF bounds = whole.boundingRect();
    return bounds.height() >= 0.0 ? std::max(std::abs(bounds.top()), std::abs(bounds.bottom()))
                                  : 0.0;
}

bool ScopeHistory::hasNotPositive(int channel) const
{
    if (m_frame.isEmpty())
        return false;
    HistoryCurve whole(m_frame, nullptr);
    whole.show(channel, 1.0, QPen());
    const QRectF bounds = whole.boundingRect();
    return bounds.height() >= 0.0 && bounds.top() <= 0.0;
}

void ScopeHistory::show(int channel, const RVXDiscontinuousPlotCurve &curve, double divisor)
{
    if (m_frame.isEmpty()) {
        hide(channel);
        return;
    }
    if (int(m_curves.size()) < channel)
        m_curves.resize(size_t(channel));
    std::unique_ptr<HistoryCurve> &own = m_curves[size_t(channel - 1)];
    if (!own)
        own = std::make_unique<HistoryCurve>(m_frame, m_layer);
    own->show(channel, divisor, curve.pen());
    if (curve.dataSize() > 0)
        own->joinTo(curve.sample(0));
    own->setYAxis(curve.yAxis());
    own->setZ(curve.z() - kBelowCurve);
    own->attach(m_plot);
}

void ScopeHistory::hide(int channel)
{
    if (channel <= int(m_curves.size()) && m_curves[size_t(channel - 1)])
        m_curves[size_t(channel - 1)]->detach();
}

void ScopeHistory::drop()
{
    for (const auto &curve : m_curves) {
        if (curve)
            curve->detach();
    }
    m_frame.clear();
}

} // namespace Corvale_Qt
