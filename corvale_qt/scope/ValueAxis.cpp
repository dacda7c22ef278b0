// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/PositiveScaleEngine_p.h"
#include "corvale_qt/plot/PrefixScaleDraw_p.h"
#include "corvale_qt/plot/SteadyScaleEngine_p.h"
#include "corvale_qt/scope/ValueAxis_p.h"

#include <qwt_plot.h>
#include <qwt_scale_div.h>
#include <qwt_scale_widget.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Corvale_Qt {

ValueAxis::ValueAxis(QwtPlot *plot, int axis)
    : m_plot(plot)
    , m_axis(axis)
{
    plot->setAxisScaleEngine(axis, new SteadyScaleEngine);
    plot->setAxisScaleDraw(axis, new PrefixScaleDraw);
    connect(plot->axisWidget(axis), &QwtScaleWidget::scaleDivChanged, this, [this] {
        followScale();
    });
}

void ValueAxis::setSiPrefix(bool on)
{
    if (std::exchange(m_isOn, on) != on)
        chooseAnew();
}

void ValueAxis::setFixedUnit(const QString &symbol)
{
    m_fixedUnit = symbol;
    chooseAnew();
}

bool ValueAxis::setGivenUnit(const QString &symbol)
{
    if (symbol == m_givenUnit)
        return false;
    m_givenUnit = symbol;
    chooseAnew();
    return true;
}

void ValueAxis::setListener(std::function<void()> listener)
{
    m_listener = std::move(listener);
}

QString ValueAxis::unit() const
{
    return hasPrefix() ? m_prefix.symbol() : m_givenUnit;
}

QString ValueAxis::shownText(double value) const
{
    constexpr int digits = 6;
    return QString::number(m_isOn ? m_prefix.shown(value) : value, 'g', digits);
}

double ValueAxis::typedValue(const QString &text, const QString &plainUnit) const
{
    const Units::SiPrefix plain(plainUnit);
    return (m_isOn ? m_prefix : plain).parse(text).value_or(std::nan(""));
}

//! Returns the engine of the axis; null if a subclass of the view has set another one.
SteadyScaleEngine *ValueAxis::engine() const
{
    return dynamic_cast<SteadyScaleEngine *>(m_plot->axisScaleEngine(m_axis));
}

void ValueAxis::setSteady(bool on)
{
    if (std::exchange(m_isSteady, on) != on && engine())
        engine()->setSteady(on);
}

void ValueAxis::showFractions(double lower, double upper)
{
    const bool isOther = lower != m_lowerFraction || upper != m_upperFraction;
    m_lowerFraction = lower;
    m_upperFraction = upper;
    if (isOther && engine())
        engine()->setFractions(lower, upper);
    if (lower < upper)
        m_plot->setAxisAutoScale(m_axis, true);
}

void ValueAxis::setLogarithmic(bool on)
{
    if (std::exchange(m_isLogarithmic, on) == on)
        return;
    if (on) {
        m_plot->setAxisScaleEngine(m_axis, new PositiveScaleEngine);
        return;
    }
    auto *linear = new SteadyScaleEngine;
    linear->setSteady(m_isSteady);
    linear->setFractions(m_lowerFraction, m_upperFraction);
    m_plot->setAxisScaleEngine(m_axis, linear);
}

void ValueAxis::restart()
{
    if (engine())
        engine()->restart();
}

void ValueAxis::showEmpty(double lower, double upper)
{
    if (!m_plot->axisAutoScale(m_axis))
        return;
    restart();
    // An engine that is set later needs the range. The prefix needs the scale at once, to see that there are no data.
    m_plot->setAxisScale(m_axis, lower, upper);
    m_plot->setAxisScaleDiv(
        m_axis,
        m_plot->axisScaleEngine(m_axis)->divideScale(lower,
                                                     upper,
                                                     m_plot->axisMaxMajor(m_axis),
                                                     m_plot->axisMaxMinor(m_axis)));
    m_plot->setAxisAutoScale(m_axis, true);
    m_emptyRange = {lower, upper};
    chooseAnew();
}

//! Chooses the prefix without regard to the one that is shown.
void ValueAxis::chooseAnew()
{
    m_prefix = Units::SiPrefix(m_givenUnit);
    if (m_isOn && !m_fixedUnit.isEmpty())
        m_prefix.fix(m_fixedUnit);
    followScale();
    show();
}

//! Chooses the prefix that suits the scale. The scale of an empty chart leaves the choice to that of the first samples.
void ValueAxis::followScale()
{
    const QwtScaleDiv &div = m_plot->axisScaleDiv(m_axis);
    if (m_emptyRange == std::pair(div.lowerBound(), div.upperBound()))
        return;
    m_emptyRange.reset();
    if (!hasPrefix())
        return;
    if (m_prefix.follow(std::max(std::abs(div.lowerBound()), std::abs(div.upperBound()))))
        show();
}

void ValueAxis::show()
{
    auto *draw = dynamic_cast<PrefixScaleDraw *>(m_plot->axisScaleDraw(m_axis));
    if (draw)
        draw->setPrefix(hasPrefix() ? std::optional(m_prefix) : std::nullopt);
    m_plot->axisWidget(m_axis)->update();
    const QString unit = this->unit();
    if (std::exchange(m_shownUnit, unit) != unit && m_listener)
        m_listener();
}

} // namespace Corvale_Qt
