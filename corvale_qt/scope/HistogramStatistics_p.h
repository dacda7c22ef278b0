// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/RVXScopePlotView.h"

#include <QVariantList>
#include <QVector>

#include <array>
#include <memory>
#include <vector>

class QVBoxLayout;
class QwtPlot;

namespace Corvale_Qt {

class RVX_HistogramItemAxisWidget;
class RVX_StatisticsHistogramItem;

//! A group of consecutive channels.
struct ChannelGroup
{
    int offset = 0; //!< index of the first channel, counted from 0
    int size = 0;
};

//! Returns the channels of item \a index of \a count. If there are fewer channels than items, some groups are empty.
ChannelGroup channelGroup(int index, int count, int channels);

//! What a histogram shows, in the form that the statistics items need.
struct HistogramBars
{
    QVector<float> values; //!< of all channels, not divided by divisor
    double divisor = 1.0; //!< the plot shows each value divided by this
    QString unit; //!< of the values; empty for none
    double unitScale = 1.0; //!< what 1 in the base unit is in that unit
    QVariantList deviceFits;
};

//! All statistics items of a view. The items of one type share an axis widget.
class HistogramStatistics
{
public:
    using Type = RVXScopePlotView::HistogramItemTypes;

    explicit HistogramStatistics(QwtPlot *plot);
    ~HistogramStatistics();

    //! Creates the axis widgets, hidden, at the top of a layout. Must be called before the other functions.
    void insertInto(QVBoxLayout *layout);
    //! Replaces the items of a type. \a shown says whether the view shows the histogram.
    void enable(Type type, int count, const QVector<double> &parameters, bool full, bool shown);
    //! Returns the items of a type in channel order; they are not given away.
    QVector<RVX_StatisticsHistogramItem *> items(Type type) const;

    //! Shows the axis widgets of the types that have items.
    void show();
    //! Hides the axis widgets and takes the items off the plot.
    void hide();
    //! Clears the results of all items, because there is no sample to compute from.
    void clear();

    //! Returns whether an item shows fits that the device computes.
    bool needsDeviceFits() const;
    //! Computes all items, each from its share of the channels.
    void compute(const HistogramBars &bars);

    // Items that are enabled later get both settings, too.
    void toggleMLFC(bool enable);
    void upload_MLFC_calibration_table(const std::vector<double> *table);

private:
    struct Family
    {
        RVX_HistogramItemAxisWidget *axisWidget = nullptr;
        std::vector<std::unique_ptr<RVX_StatisticsHistogramItem>> items;
    };

    template<typename Action>
    void forEachItem(Action action) const;

    QwtPlot *m_plot;
    std::array<Family, 4> m_families;
    bool m_showsEnergy = false;
    std::vector<double> m_energies;
    bool m_hasEnergies = false;
};

} // namespace Corvale_Qt
