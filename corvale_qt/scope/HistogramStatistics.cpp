// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/scope/ChannelUnits_p.h"
#include "corvale_qt/scope/HistogramStatistics_p.h"
#include "corvale_qt/scope/PlacedStatistics_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"
#include "corvale_qt/scope/statistics/RVX_CoGHistogramItem.h"
#include "corvale_qt/scope/statistics/RVX_FitHistogramItem.h"
#include "corvale_qt/scope/statistics/RVX_GaussabolaHistogramItem.h"
#include "corvale_qt/scope/statistics/RVX_HistogramItemAxisWidget.h"
#include "corvale_qt/scope/statistics/RVX_PrecalculatedFitHistogramItem.h"
#include "corvale_qt/scope/statistics/RVX_RegressionHistogramItem.h"
#include "corvale_qt/scope/statistics/StatisticsStrips_p.h"

#include <qwt_plot.h>

#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

std::unique_ptr<RVX_StatisticsHistogramItem> createItem(RVXScopePlotView::HistogramItemTypes type,
                                                        RVX_HistogramItemAxisWidget *axisWidget,
                                                        const QVector<double> &parameters,
                                                        bool full)
{
    switch (type) {
    case RVXScopePlotView::GaussabolaItem:
        return std::make_unique<RVX_GaussabolaHistogramItem>(axisWidget, parameters, full);
    case RVXScopePlotView::CenterOfGravityItem:
        return std::make_unique<RVX_CoGHistogramItem>(axisWidget, parameters, full);
    case RVXScopePlotView::RegressionItem:
        return std::make_unique<RVX_RegressionHistogramItem>(axisWidget, parameters, full);
    case RVXScopePlotView::PrecalculatedFitItem:
        return std::make_unique<RVX_PrecalculatedFitHistogramItem>(axisWidget, parameters, full);
    }
    return nullptr;
}

//! Returns the value for the fits: 0 for a channel without a reading and for a reading beyond single precision.
float fitValue(double reading)
{
    return std::isfinite(float(reading)) ? float(reading) : 0.0F;
}

//! Returns whether an item can show an energy; a centre of gravity cannot.
bool hasEnergy(const RVX_StatisticsHistogramItem &item)
{
    return dynamic_cast<const RVX_FitHistogramItem *>(&item) != nullptr;
}

} // namespace

ChannelGroup channelGroup(int index, int count, int channels)
{
    const int size = channels / count;
    if (size == 0)
        return index < channels ? ChannelGroup{index, 1} : ChannelGroup{channels, 0};
    const int offset = index * size;
    return {offset, index == count - 1 ? channels - offset : size};
}

HistogramStatistics::HistogramStatistics(QwtPlot *plot,
                                         const ScopeModel &model,
                                         const ChannelUnits &units)
    : m_plot(plot)
    , m_model(model)
    , m_units(units)
{
}

HistogramStatistics::~HistogramStatistics() = default;

void HistogramStatistics::insertInto(QVBoxLayout *layout)
{
    auto *strips = new StatisticsStrips(m_plot, layout->parentWidget());
    for (Family &family : m_families) {
        family.axisWidget = new RVX_HistogramItemAxisWidget(strips->widget());
        family.axisWidget->alignTo(m_plot);
        family.axisWidget->hide();
        strips->add(family.axisWidget);
    }
    layout->insertWidget(0, strips);
}

void HistogramStatistics::enable(Type type,
                                 int count,
                                 const QVector<double> &parameters,
                                 bool full,
                                 bool shown)
{
    if (type < 0 || size_t(type) >= m_families.size())
        return;
    const QScopedValueRollback<bool> guard(m_isBusy, true);
    outdate();
    Family &family = m_families[size_t(type)];
    family.items.clear();
    family.parameters = parameters;
    family.axisWidget->hide();
    for (int i = 0; i < std::min(count, ScopeModel::maximumChannels); ++i) {
        family.items.push_back(createItem(type, family.axisWidget, parameters, full));
        RVX_StatisticsHistogramItem &item = *family.items.back();
        item.clear();
        RVX_StatisticsHistogramItemPrivate::of(item).source = this;
        if (!hasEnergy(item))
            continue;
        item.toggleMLFC(m_showsEnergy);
        if (m_hasEnergies)
            item.upload_MLFC_calibration_table(&m_energies);
    }
    m_hasItems = std::any_of(m_families.begin(), m_families.end(), [](const Family &each) {
        return !each.items.empty();
    });
    family.axisWidget->setVisible(shown && !family.items.empty());
}

QVector<RVX_StatisticsHistogramItem *> HistogramStatistics::items(Type type) const
{
    QVector<RVX_StatisticsHistogramItem *> result;
    if (type >= 0 && size_t(type) < m_families.size()) {
        for (const auto &item : m_families[size_t(type)].items)
            result.append(item.get());
    }
    return result;
}

bool HistogramStatistics::hasItems(Type type) const
{
    return !m_families[size_t(type)].items.empty();
}

template<typename Action>
void HistogramStatistics::forEachItem(Action action) const
{
    for (const Family &family : m_families) {
        for (const auto &item : family.items)
            action(*item);
    }
}

void HistogramStatistics::show()
{
    for (const Family &family : m_families)
        family.axisWidget->setVisible(!family.items.empty());
}

void HistogramStatistics::hide()
{
    for (const Family &family : m_families)
        family.axisWidget->hide();
    forEachItem([](RVX_StatisticsHistogramItem &item) {
        item.detach();
    });
}

void HistogramStatistics::clear()
{
    const QScopedValueRollback<bool> guard(m_isBusy, true);
    m_bars = HistogramBars();
    m_isOutdated = false;
    forEachItem([](RVX_StatisticsHistogramItem &item) {
        item.clear();
    });
}

void HistogramStatistics::bringUpToDate()
{
    if (m_isBusy)
        return;
    const int row = m_model.channelCount() > 0 ? std::max(m_model.lastRow(), 0) : 0;
    if (isCurrent(row))
        return;
    if (row < 1) {
        clear();
        return;
    }
    read(row);
    compute(false);
}

/*! Returns whether the results are those of the sample in \a row. A host that hears of a sample before the view does may
    ask for its results already. */
bool HistogramStatistics::isCurrent(int row) const
{
    if (m_isOutdated || row != m_bars.row)
        return false;
    const double time = row > 0 ? m_model.plot()->doubleData(row, 0) : m_bars.time;
    return time == m_bars.time || (std::isnan(time) && std::isnan(m_bars.time));
}

void HistogramStatistics::read(int row)
{
    const int channels = m_model.channelCount();
    const RVXAbstractPlotDataModel *const plot = m_model.plot();
    m_bars.row = row;
    m_bars.time = plot->doubleData(row, 0);
    m_bars.readings.resize(channels);
    m_bars.values.resize(channels);
    for (int i = 0; i < channels; ++i) {
        const bool counts = m_model.isShown(i + 1) && m_units.placeOf(i + 1) == ChannelUnits::First;
        const double value = counts ? plot->doubleData(row, i + 1) : std::nan("");
        m_bars.readings[i] = std::isfinite(value) ? value : std::nan("");
        m_bars.values[i] = fitValue(m_bars.readings[i]);
    }
    if (m_places.apply(channels))
        m_frame = DetectorFrame::of(m_places.layout(), m_bars.readings.constData(), channels);
    m_bars.unit = m_units.symbol(ChannelUnits::First);
    m_bars.unitScale = m_units.scaleOfFirst();
    m_bars.deviceFits = needsDeviceFits() ? m_model.deviceFits(row) : QVariantList();
}

void HistogramStatistics::setDetector(const DetectorLayout &layout)
{
    m_places.setLayout(layout);
    outdate();
}

double HistogramStatistics::barHeight(int channel) const
{
    if (!m_places.apply(m_bars.readings.size()))
        return m_bars.readings[channel];
    const int cell = m_places.bar(channel).cell;
    return cell >= 0 && !std::isnan(m_bars.readings[channel]) ? m_frame.values[cell] : std::nan("");
}

QwtInterval HistogramStatistics::spanOfBars(int first, int last) const
{
    const int channels = m_model.channelCount();
    if (!m_places.apply(channels) || first < 1 || last > channels)
        return {first - 0.5, last + 0.5};
    QwtInterval span;
    for (int channel = first; channel <= last; ++channel) {
        const HistogramPlaces::Bar &bar = m_places.bar(channel - 1);
        if (bar.cell >= 0)
            span |= QwtInterval(bar.left, bar.right);
    }
    return span;
}

bool HistogramStatistics::needsDeviceFits() const
{
    bool needed = false;
    forEachItem([&needed](const RVX_StatisticsHistogramItem &item) {
        needed = needed || item.usesDeviceFit();
    });
    return needed;
}

void HistogramStatistics::showResults(double divisor)
{
    forEachItem([this, divisor](RVX_StatisticsHistogramItem &item) {
        item.setPlotDivisor(divisor);
        item.attach(m_plot);
    });
    compute(true);
}

//! Computes all items, each from its share of the channels.
void HistogramStatistics::compute(bool shown)
{
    const QScopedValueRollback<bool> guard(m_isBusy, true);
    m_isOutdated = false;
    const int channels = m_bars.values.size();
    // The axis of the plot ends half a channel behind the last channel.
    const double axisUpper = channels + 0.5;
    const bool placed = m_places.apply(channels);
    for (const Family &family : m_families) {
        const int count = int(family.items.size());
        for (int i = 0; i < count; ++i) {
            RVX_StatisticsHistogramItem &item = *family.items[size_t(i)];
            const ChannelGroup group = channelGroup(i, count, channels);
            if (auto *device = dynamic_cast<RVX_PrecalculatedFitHistogramItem *>(&item))
                device->setDeviceFit(m_bars.deviceFits, i);
            auto &result = RVX_StatisticsHistogramItemPrivate::of(item);
            result.row = m_bars.row;
            result.time = m_bars.time;
            result.showsResults = shown && !placed;
            result.placed.reset();
            result.hasSiPrefix = m_model.hasSiPrefix();
            result.fixedUnit = m_model.fixedUnit();
            item.setValueUnit(m_bars.unit);
            // A unit may turn the sign of its readings; the limits are for magnitudes.
            item.setLimitFactor(std::abs(m_bars.unitScale));
            item.compute(group.offset, m_bars.values.mid(group.offset, group.size), axisUpper);
            result.showsResults = shown;
            if (placed)
                place(item, int(&family - m_families.data()), group);
            result.showsResults = true;
        }
    }
}

//! Replaces the result of an item by one on the places of the strips.
void HistogramStatistics::place(RVX_StatisticsHistogramItem &item,
                                int type,
                                const ChannelGroup &group)
{
    RVX_StatisticsHistogramItemPrivate::place(item,
                                              placedFit(Type(type),
                                                        m_families[size_t(type)].parameters,
                                                        group,
                                                        m_places,
                                                        m_frame,
                                                        item.fit(),
                                                        item.limitFactor()));
}

void HistogramStatistics::toggleMLFC(bool enable)
{
    const QScopedValueRollback<bool> guard(m_isBusy,
                                           true); // the labels show what was computed last
    m_showsEnergy = enable;
    forEachItem([enable](RVX_StatisticsHistogramItem &item) {
        if (hasEnergy(item))
            item.toggleMLFC(enable);
    });
}

void HistogramStatistics::upload_MLFC_calibration_table(const std::vector<double> *table)
{
    const QScopedValueRollback<bool> guard(m_isBusy, true);
    m_hasEnergies = table != nullptr;
    m_energies = table ? *table : std::vector<double>();
    std::vector<double> *energies = m_hasEnergies ? &m_energies : nullptr;
    forEachItem([energies](RVX_StatisticsHistogramItem &item) {
        if (hasEnergy(item))
            item.upload_MLFC_calibration_table(energies);
    });
}

} // namespace Corvale_Qt
