// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: all statistics items of a scope plot view.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

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

//! Some channels that follow each other.
struct ChannelGroup
{
    int offset = 0; //!< the first channel's number less one
    int size = 0;
};

//! The share of item \a index of \a count in \a channels; with fewer channels than items, some get none.
ChannelGroup channelGroup(int index, int count, int channels);

//! What a histogram shows, as its items take it.
struct HistogramBars
{
    QVector<float> values; //!< of all channels, not divided
    double divisor = 1.0; //!< the plot shows the values divided by this
    QString unit; //!< of the values; empty for none
    QVariantList deviceFits;
};

//! The items of each type with the axis widget that they share.
class HistogramStatistics
{
public:
    using Type = RVXScopePlotView::HistogramItemTypes;

    explicit HistogramStatistics(QwtPlot *plot);
    ~HistogramStatistics();

    //! Puts the axis widgets, hidden, on top of the layout of the view's viewport.
    void insertInto(QVBoxLayout *layout);
    //! Replaces the items of a type; \a shown where the histogram is on the screen.
    void enable(Type type, int count, const QVector<double> &parameters, bool full, bool shown);
    QVector<RVX_StatisticsHistogramItem *> items(Type type) const;

    //! The histogram is shown: the axis widgets of the types that have items are, too.
    void show();
    void hide();
    //! There is nothing to compute from.
    void clear();

    bool needsDeviceFits() const;
    //! Computes all items, each from its share of the channels.
    void compute(const HistogramBars &bars);

    // Both are kept for items that come later.
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
