// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/TimeScaleDraw_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/ScopeModel_p.h"
#include "corvale_qt/scope/ScopeTimeAxis_p.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_scale_div.h>
#include <qwt_scale_widget.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Corvale_Qt {

namespace {

constexpr int kLeftBorder = 90; // as other axes of the scope have it
constexpr int kRightBorder = 20;

TimeScaleDraw *drawOf(QwtPlot *plot)
{
    return dynamic_cast<TimeScaleDraw *>(plot->axisScaleDraw(QwtPlot::xBottom));
}

//! Returns whether the axis shows a range that does not follow the data, with ticks at distances that Qwt chooses.
bool hasNumbers(const QwtPlot *plot, const std::pair<double, double> &range)
{
    const QwtScaleDiv &shown = plot->axisScaleDiv(QwtPlot::xBottom);
    return !plot->axisAutoScale(QwtPlot::xBottom) && plot->axisStepSize(QwtPlot::xBottom) == 0.0
        && std::pair(shown.lowerBound(), shown.upperBound()) == range;
}

//! Leaves room for half of a label beyond the last tick, so that the canvas keeps its width while labels move.
void setRightBorder(QwtPlot *plot, double width)
{
    const int border = std::max(kRightBorder, int(std::ceil(0.5 * width)) + 1);
    plot->axisWidget(QwtPlot::xBottom)->setMinBorderDist(kLeftBorder, border);
}

} // namespace

ScopeTimeAxis::ScopeTimeAxis(QwtPlot *plot, const ScopeModel &model)
    : m_plot(plot)
    , m_model(model)
{
}

void ScopeTimeAxis::setKind(int kind)
{
    m_kind = kind;
    restart();
    m_unit.clear();
    if (kind == RVXScopePlotView::LocalTime)
        m_offsets = ClockOffsets(QTimeZone::systemTimeZone());
    else if (kind == RVXScopePlotView::Utc)
        m_offsets = ClockOffsets(QTimeZone::utc());
    if (TimeScaleDraw *draw = drawOf(m_plot)) {
        draw->useNumbers();
        setRightBorder(m_plot, 0.0);
    }
}

void ScopeTimeAxis::restart()
{
    m_numbered.reset();
    m_divided.reset();
}

bool ScopeTimeAxis::isTranslated() const
{
    return m_kind != RVXScopePlotView::Seconds && !m_isFromTrigger && m_model.secondsPerX() > 0.0;
}

//! Returns how x becomes a moment of a clock, or a time before or after the newest reading.
TimeScale ScopeTimeAxis::scale() const
{
    TimeScale scale;
    scale.secondsPerX = m_model.secondsPerX();
    if (m_kind == RVXScopePlotView::RelativeToNow)
        scale.origin = -scale.toMoment(m_model.newestX());
    else if (m_origin.isValid())
        scale.origin = m_origin.toMSecsSinceEpoch() * kMillisecond;
    return scale;
}

void ScopeTimeAxis::show(double left, double right)
{
    if (!std::isfinite(left) || !std::isfinite(right) || !std::isfinite(right - left))
        return;
    if (isTranslated() && showTicks(left, right))
        return;
    showNumbers(left, right);
}

void ScopeTimeAxis::showEmpty(double width)
{
    const bool isWidth = width > 0.0 && std::isfinite(width);
    showNumbers(0.0, isWidth ? width : 1.0);
}

//! Shows a range with the numbers of the model.
void ScopeTimeAxis::showNumbers(double left, double right)
{
    if (TimeScaleDraw *draw = drawOf(m_plot))
        draw->useNumbers();
    m_unit.clear();
    const std::pair range(left, right);
    const bool isOther = std::exchange(m_numbered, range) != range;
    if (isOther || !hasNumbers(m_plot, range)) // Qwt would divide even the same range anew
        m_plot->setAxisScale(QwtPlot::xBottom, left, right);
}

//! Returns false if the range cannot have ticks of a clock.
bool ScopeTimeAxis::showTicks(double left, double right)
{
    TimeScaleDraw *const draw = drawOf(m_plot);
    if (!draw)
        return false;
    QwtScaleWidget *const widget = m_plot->axisWidget(QwtPlot::xBottom);
    if (m_widths.setFont(widget->font(), *widget))
        m_divided.reset();
    const double pixels = m_plot->canvas()->contentsRect().width();
    divide({{left, right, pixels}, scale()});
    if (m_ticks.unit.isEmpty())
        return false;
    m_unit = m_ticks.unit;
    m_numbered.reset();
    const bool isOther = draw->setTicks(m_ticks);
    const QwtScaleDiv shown(left, right, m_ticks.minor, QList<double>(), m_ticks.major);
    m_plot->setAxisScaleDiv(QwtPlot::xBottom, shown);
    setRightBorder(m_plot, m_widestLine);
    if (isOther)
        widget->update();
    return true;
}

//! Finds the ticks of a range and the width of their widest line, unless they are known.
void ScopeTimeAxis::divide(const Division &division)
{
    if (m_divided == division)
        return;
    m_divided = division;
    const TextWidth width = [this](const QString &text) {
        return m_widths.of(text);
    };
    m_ticks = m_kind == RVXScopePlotView::RelativeToNow
        ? durationTicks(division.range, division.scale, width)
        : clockTicks(division.range, division.scale, m_offsets, width);
    m_widestLine = 0.0;
    for (const QString &label : qAsConst(m_ticks.labels)) {
        for (const QString &line : label.split(QLatin1Char('\n')))
            m_widestLine = std::max(m_widestLine, width(line));
    }
}

QString ScopeTimeAxis::title() const
{
    if (!isTranslated() || m_unit.isEmpty())
        return m_model.xUnitName();
    switch (m_kind) {
    case RVXScopePlotView::RelativeToNow:
        return RVXScopePlotView::tr("Time from the newest reading (%1)").arg(m_unit);
    case RVXScopePlotView::LocalTime:
        return RVXScopePlotView::tr("Time (local, %1)").arg(m_unit);
    default:
        return RVXScopePlotView::tr("Time (UTC)");
    }
}

QString ScopeTimeAxis::text(double x, double resolution) const
{
    const qint64 moment = scale().toMoment(x);
    constexpr double usual = 1e-3; // where nothing says how fine the time is shown
    const double seconds = resolution > 0.0 ? resolution * m_model.secondsPerX() : usual;
    return m_kind == RVXScopePlotView::RelativeToNow ? durationText(moment, seconds)
                                                     : clockText(moment, seconds, m_offsets);
}

} // namespace Corvale_Qt
