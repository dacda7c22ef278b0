// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/HistogramStatistics_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"
#include "corvale_qt/scope/statistics/RVX_CoGHistogramItem.h"
#include "corvale_qt/scope/statistics/RVX_FitHistogramItem.h"
#include "corvale_qt/scope/statistics/RVX_GaussabolaHistogramItem.h"
#include "corvale_qt/scope/statistics/RVX_HistogramItemAxisWidget.h"
#include "corvale_qt/scope/statistics/RVX_PrecalculatedFitHistogramItem.h"
#include "corvale_qt/scope/statistics/RVX_RegressionHistogramItem.h"
#include "corvale_qt/scope/statistics/StatisticsStrips_p.h"

#include <qwt_plot.h>

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

HistogramStatistics::HistogramStatistics(QwtPlot *plot)
    : m_plot(plot)
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
    Family &family = m_families[size_t(type)];
    family.items.clear();
    family.axisWidget->hide();
    for (int i = 0; i < std::min(count, ScopeModel::maximumChannels); ++i) {
        family.items.push_back(createItem(type, family.axisWidget, parameters, full));
        RVX_StatisticsHistogramItem &item = *family.items.back();
        item.clear();
        if (!hasEnergy(item))
            continue;
        item.toggleMLFC(m_showsEnergy);
        if (m_hasEnergies)
            item.upload_MLFC_calibration_table(&m_energies);
    }
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
    forEachItem([](RVX_StatisticsHistogramItem &item) {
        item.clear();
    });
}

bool HistogramStatistics::needsDeviceFits() const
{
    bool needed = false;
    forEachItem([&needed](const RVX_StatisticsHistogramItem &item) {
        needed = needed || item.usesDeviceFit();
    });
    return needed;
}

void HistogramStatistics::compute(const HistogramBars &bars)
{
    const int channels = bars.values.size();
    // The axis of the plot ends half a channel behind the last channel.
    const double axisUpper = channels + 0.5;
    for (const Family &family : m_families) {
        const int count = int(family.items.size());
        for (int i = 0; i < count; ++i) {
            RVX_StatisticsHistogramItem &item = *family.items[size_t(i)];
            const ChannelGroup group = channelGroup(i, count, channels);
            if (auto *device = dynamic_cast<RVX_PrecalculatedFitHistogramItem *>(&item))
                device->setDeviceFit(bars.deviceFits, i);
            item.setValueUnit(bars.unit);
            item.setPlotDivisor(bars.divisor);
            // A unit may turn the sign of its readings; the limits are for magnitudes.
            item.setLimitFactor(std::abs(bars.unitScale));
            item.attach(m_plot);
            item.compute(group.offset, bars.values.mid(group.offset, group.size), axisUpper);
        }
    }
}

void HistogramStatistics::toggleMLFC(bool enable)
{
    m_showsEnergy = enable;
    forEachItem([enable](RVX_StatisticsHistogramItem &item) {
        if (hasEnergy(item))
            item.toggleMLFC(enable);
    });
}

void HistogramStatistics::upload_MLFC_calibration_table(const std::vector<double> *table)
{
    m_hasEnergies = table != nullptr;
    m_energies = table ? *table : std::vector<double>();
    std::vector<double> *energies = m_hasEnergies ? &m_energies : nullptr;
    forEachItem([energies](RVX_StatisticsHistogramItem &item) {
        if (hasEnergy(item))
            item.upload_MLFC_calibration_table(energies);
    });
}

} // namespace Corvale_Qt
