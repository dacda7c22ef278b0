// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/FiniteScaleEngine_p.h"
#include "corvale_qt/plot/NumberScaleDraw_p.h"
#include "corvale_qt/plot/ScaleFractions_p.h"
#include "corvale_qt/plot/TimeScaleDraw_p.h"
#include "corvale_qt/scope/ChannelNameDraw.h"
#include "corvale_qt/scope/ChannelNumberDraw.h"
#include "corvale_qt/scope/ChannelUnits_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/ScopeAxes_p.h"

#include <qwt_plot.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>
#include <qwt_text.h>

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Corvale_Qt {

namespace {

/*! Labels the bars of a histogram with the names of their channels. Names that do not fit under their bars are shortened in the
    middle, and written upwards if not even four letters fit. */
class BarNameDraw : public QwtScaleDraw
{
public:
    //! \a names are those of channels 1 and up.
    explicit BarNameDraw(const QStringList &names);
    QwtText label(double channel) const override;
    void draw(QPainter *painter, const QPalette &palette) const override;
    double extent(const QFont &font) const override;

private:
    bool isUpright(const QFont &font) const;
    double barWidth() const;
    QString shortened(const QString &name, const QFont &font, double room) const;

    QStringList m_names;
};

constexpr double gap = 4.0; // between names
constexpr double longestUpright = 90.0; // of a name that is written upwards

BarNameDraw::BarNameDraw(const QStringList &names)
    : m_names(names)
{
}

//! Returns no text: draw() writes the names, because their room depends on the width of the bars.
QwtText BarNameDraw::label(double) const
{
    return QwtText();
}

double BarNameDraw::barWidth() const
{
    return std::abs(scaleMap().transform(2.0) - scaleMap().transform(1.0));
}

//! Returns whether names are written upwards.
bool BarNameDraw::isUpright(const QFont &font) const
{
    const QFontMetricsF metrics(font);
    const double room = barWidth() - gap;
    const bool allFit = std::all_of(m_names.begin(), m_names.end(), [&](const QString &name) {
        return metrics.horizontalAdvance(name) <= room;
    });
    return !allFit && room < metrics.horizontalAdvance(QStringLiteral("MMMM"));
}

QString BarNameDraw::shortened(const QString &name, const QFont &font, double room) const
{
    return QFontMetricsF(font).elidedText(name, Qt::ElideMiddle, room);
}

double BarNameDraw::extent(const QFont &font) const
{
    const QFontMetricsF metrics(font);
    double length = metrics.height();
    if (isUpright(font)) {
        for (const QString &name : m_names)
            length = std::max(length, metrics.horizontalAdvance(name));
        length = std::min(length, longestUpright);
    }
    return std::ceil(QwtScaleDraw::extent(font) + spacing() + length);
}

void BarNameDraw::draw(QPainter *painter, const QPalette &palette) const
{
    QwtScaleDraw::draw(painter, palette);
    const QFont font = painter->font();
    const QFontMetricsF metrics(font);
    const bool upright = isUpright(font);
    // Every nth name, if even upright ones are closer together than their height.
    const int step = std::max(int(std::ceil(metrics.height() / std::max(barWidth(), 0.1))), 1);
    const double top = pos().y() + maxTickLength() + spacing();
    painter->save();
    painter->setPen(palette.color(QPalette::Text));
    for (int i = 0; i < m_names.size(); i += upright ? step : 1) {
        const double x = scaleMap().transform(i + 1);
        painter->save();
        painter->translate(x, top);
        QRectF place(-0.5 * barWidth(), 0.0, barWidth(), metrics.height());
        if (upright) {
            painter->rotate(-90.0);
            place =
                QRectF(-longestUpright, -0.5 * metrics.height(), longestUpright, metrics.height());
        }
        const double room = upright ? longestUpright : barWidth() - gap;
        const Qt::Alignment alignment = upright ? Qt::AlignRight : Qt::AlignHCenter;
        painter->drawText(place,
                          int(alignment | Qt::AlignVCenter) | Qt::TextSingleLine,
                          shortened(m_names[i], font, room));
        painter->restore();
    }
    painter->restore();
}

constexpr int kLargestScaleMode = 14;
constexpr int kFewestNumberedChannels = 9;
constexpr int kFullRangeIndex = 2; // see RVXScopePlotView::PlotScales
// The lower end of a logarithmic axis whose range begins at 0 or below, as a part of the upper end.
constexpr double kLowestOfLogarithmic = 1e-4;

//! Widens bounds that are equal, because such an axis has no ticks. The value ends up in the middle.
std::pair<double, double> withWidth(const std::pair<double, double> &bounds)
{
    if (bounds.first != bounds.second)
        return bounds;
    const double room = bounds.first != 0.0 ? 0.1 * std::abs(bounds.first) : 1.0;
    return {bounds.first - room, bounds.second + room};
}

QFont titleFont(int points)
{
    QFont font("Arial", points);
    font.setWeight(QFont::Bold);
    return font;
}

void setTitle(QwtPlot *plot, int axis, const QString &text, int points)
{
    QwtText title(text, QwtText::PlainText);
    title.setFont(titleFont(points));
    plot->setAxisTitle(axis, title);
}

} // namespace

bool YScale::isAutomatic() const
{
    return mode <= kAutoScaleIndex || mode > kLargestScaleMode;
}

bool YScale::isOfFullScale() const
{
    return followsFullScale && !isRangeGiven && !isAutomatic() && mode != kNormalizeScaleIndex;
}

std::pair<double, double> YScale::bounds() const
{
    // A tenth of the negative range stays visible, so that a zero line with noise on it does.
    const double below = positiveOnly ? 0.1 : 1.0;
    if (mode == kNormalizeScaleIndex)
        return {-1.0 * below, 1.0};
    const double fraction = scaleFraction(mode);
    return withWidth({below * range.first * fraction, range.second * fraction});
}

YScale YScale::withoutRange() const
{
    YScale scale = *this;
    scale.isRangeGiven = false;
    if (!scale.isOfFullScale() && mode != kNormalizeScaleIndex)
        scale.mode = kAutoScaleIndex;
    return scale;
}

YScale YScale::withOtherRange() const
{
    YScale scale = *this;
    scale.isRangeGiven = true;
    scale.range = {otherRange->minimum, otherRange->maximum};
    scale.positiveOnly = false;
    scale.mode = kFullRangeIndex;
    return scale;
}

ScopeAxes::ScopeAxes(QwtPlot *plot, const ChannelUnits &units)
    : m_plot(plot)
    , m_units(units)
    , m_values{{{plot, QwtPlot::yLeft}, {plot, QwtPlot::yRight}}}
    , m_timeFont(plot->axisFont(QwtPlot::xBottom))
{
    m_plot->setAxisScaleEngine(QwtPlot::xBottom, new FiniteScaleEngine);
    m_plot->setAxisScale(QwtPlot::xBottom, 0.0, 1.0);
    showEmpty();
}

void ScopeAxes::showEmpty()
{
    for (const int axis : {QwtPlot::yLeft, QwtPlot::yRight})
        values(axis).showEmpty(values(axis).isLogarithmic() ? kLowestOfLogarithmic : -1.0, 1.0);
}

void ScopeAxes::setYScale(const YScale &scale)
{
    for (const int axis : {QwtPlot::yLeft, QwtPlot::yRight}) {
        const QString unit = values(axis).givenUnit();
        const bool hasRange = scale.rangeUnit && m_units.areApart() ? unit == *scale.rangeUnit
                                                                    : axis == QwtPlot::yLeft;
        const bool hasOther = scale.otherRange && m_units.areApart()
            && unit == scale.otherRange->unit && scale.mode != kNormalizeScaleIndex && !hasRange;
        applyYScale(axis,
                    hasRange       ? scale
                        : hasOther ? scale.withOtherRange()
                                   : scale.withoutRange());
    }
}

void ScopeAxes::applyYScale(int axis, const YScale &scale)
{
    values(axis).setSteady(scale.isSteady);
    values(axis).setLogarithmic(scale.isLogarithmic);
    if (scale.isOfFullScale()) {
        const double fraction = scaleFraction(scale.mode);
        values(axis).showFractions((scale.positiveOnly ? -0.1 : -1.0) * fraction, fraction);
        return;
    }
    values(axis).showFractions(0.0, 0.0);
    if (scale.isAutomatic()) {
        m_plot->setAxisAutoScale(axis, true);
        return;
    }
    auto [lower, upper] = scale.bounds();
    if (scale.isLogarithmic && lower <= 0.0)
        lower = kLowestOfLogarithmic * upper;
    m_plot->setAxisScale(axis, lower, upper, 0.0);
}

bool ScopeAxes::followUnits(Show show, bool isRelative)
{
    if (std::exchange(m_show, show) != show && m_units.areApart())
        ++m_showVersion;
    const QString left = isRelative ? QString() : m_units.symbol(ChannelUnits::First);
    bool isOther = values().setGivenUnit(left);
    const bool hasRight = show == Show::TwoUnits && m_units.hasSecond();
    if (hasRight && values(QwtPlot::yRight).setGivenUnit(m_units.symbol(ChannelUnits::Second)))
        isOther = true;
    if (std::exchange(m_hasRight, hasRight) != hasRight) {
        values(QwtPlot::yRight).restart();
        m_plot->enableAxis(QwtPlot::yRight, hasRight);
    }
    return isOther;
}

int ScopeAxes::axisOf(int channel) const
{
    const ChannelUnits::Place place =
        m_show == Show::AllUnits ? ChannelUnits::First : m_units.placeOf(channel);
    if (place == ChannelUnits::First)
        return QwtPlot::yLeft;
    return place == ChannelUnits::Second && m_hasRight ? int(QwtPlot::yRight) : noAxis;
}

int ScopeAxes::version() const
{
    return m_units.version() + m_showVersion;
}

QStringList ScopeAxes::namesWithoutAxis() const
{
    if (m_show == Show::AllUnits)
        return {};
    return m_units.namesFrom(m_hasRight ? ChannelUnits::Further : ChannelUnits::Second);
}

void ScopeAxes::prepareTimeAxis()
{
    for (ValueAxis &axis : m_values)
        axis.restart();
    m_plot->setAxisScaleDraw(QwtPlot::xBottom, new TimeScaleDraw);
    m_plot->setAxisFont(QwtPlot::xBottom, m_timeFont);
    m_plot->setAxisMaxMajor(QwtPlot::xBottom, 6);
    m_plot->setAxisMaxMinor(QwtPlot::xBottom, 10);
    m_plot->axisWidget(QwtPlot::xBottom)->setMinBorderDist(90, 20);
}

void ScopeAxes::prepareChannelAxis(int channels)
{
    values().restart();
    if (channels < kFewestNumberedChannels) {
        m_plot->setAxisScaleDraw(QwtPlot::xBottom, new ChannelNameDraw);
    } else {
        m_plot->setAxisScaleDraw(QwtPlot::xBottom, new ChannelNumberDraw(channels));
        m_plot->setAxisFont(QwtPlot::xBottom, QFont("Arial", 8));
    }
    m_plot->axisWidget(QwtPlot::xBottom)->setMinBorderDist(90, 5);
    for (const int axis : {QwtPlot::xBottom, QwtPlot::xTop}) {
        m_plot->setAxisMaxMajor(axis, std::max(channels, 1));
        m_plot->setAxisMaxMinor(axis, 0);
        m_plot->setAxisScale(axis, 0.5, std::max(channels, 1) + 0.5);
    }
    setXTitle(RVXScopePlotView::tr("Channel"));
}

void ScopeAxes::showChannelNames(const QStringList &names)
{
    m_plot->setAxisScaleDraw(QwtPlot::xBottom, new BarNameDraw(names));
}

void ScopeAxes::setYTitle(int axis, const QString &title)
{
    if (title == m_yTitles[size_t(axis)])
        return;
    m_yTitles[size_t(axis)] = title;
    setTitle(m_plot, axis, title, 10);
}

void ScopeAxes::update()
{
    bool isOther = false;
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis)
        isOther = labelOnlyShown(axis) || isOther;
    m_plot->updateAxes();
    if (isOther)
        m_plot->updateLayout();
}

//! Takes the labels from an axis that is not shown: Qwt measures them for each picture. Returns whether a shown one got its back.
bool ScopeAxes::labelOnlyShown(int axis)
{
    QwtScaleDraw *const draw = m_plot->axisScaleDraw(axis);
    const bool isShown = m_plot->axisEnabled(axis);
    bool &isWithout = m_isWithoutLabels[size_t(axis)];
    if (isShown ? !isWithout : !draw->hasComponent(QwtAbstractScaleDraw::Labels))
        return false;
    isWithout = !isShown;
    draw->enableComponent(QwtAbstractScaleDraw::Labels, isShown);
    return isShown;
}

void ScopeAxes::setXTitle(const QString &title)
{
    if (title == m_xTitle)
        return;
    m_xTitle = title;
    setTitle(m_plot, QwtPlot::xBottom, title, 8);
}

} // namespace Corvale_Qt
