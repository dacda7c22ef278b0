// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/HistogramPlaces_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem_p.h"

#include <qwt_interval.h>

#include <QVariantList>
#include <QVector>

#include <array>
#include <limits>
#include <memory>
#include <vector>

class QVBoxLayout;
class QwtPlot;

namespace Corvale_Qt {

class ChannelUnits;
class RVX_HistogramItemAxisWidget;
class ScopeModel;

//! A group of consecutive channels.
struct ChannelGroup
{
    int offset = 0; //!< index of the first channel, counted from 0
    int size = 0;
};

//! Returns the channels of item \a index of \a count. If there are fewer channels than items, some groups are empty.
ChannelGroup channelGroup(int index, int count, int channels);

//! One sample of a model, in the forms that the histogram and the statistics items need.
struct HistogramBars
{
    int row = 0; //!< of the sample in the model; 0 for none
    double time = std::numeric_limits<double>::quiet_NaN(); //!< x of the sample
    //! One for each channel; NaN without a reading and for a hidden channel.
    QVector<double> readings;
    //! The readings for the fits: 0 without a reading and for one beyond single precision.
    QVector<float> values;
    QString unit; //!< of the values; empty for none
    double unitScale = 1.0; //!< what 1 in the base unit is in that unit
    QVariantList deviceFits;
};

/*! All statistics items of a view. The items of one type share an axis widget.

    The results belong to the newest sample of the model. A plot of the histogram computes and shows them; without one, in
    another mode or while the view is hidden, they are computed when an item is asked for its result. */
class HistogramStatistics : public StatisticsSource
{
public:
    using Type = RVXScopePlotView::HistogramItemTypes;

    //! \a plot and \a model are not owned.
    //! Counts only channels of the first of \a units if these are told apart.
    HistogramStatistics(QwtPlot *plot, const ScopeModel &model, const ChannelUnits &units);
    ~HistogramStatistics() override;

    //! Creates the axis widgets, hidden, at the top of a layout. Must be called before the other functions.
    void insertInto(QVBoxLayout *layout);
    //! Replaces the items of a type. \a shown says whether the view shows the histogram.
    void enable(Type type, int count, const QVector<double> &parameters, bool full, bool shown);
    //! Returns the items of a type in channel order; the caller does not own them.
    QVector<RVX_StatisticsHistogramItem *> items(Type type) const;
    bool hasItems() const { return m_hasItems; }
    bool hasItems(Type type) const;

    //! Shows the axis widgets of the types that have items.
    void show();
    //! Hides the axis widgets and takes the items off the plot.
    void hide();
    //! Clears the results of all items, because there is no sample to compute from.
    void clear();

    //! Sets the detector of the channels; an empty layout for none.
    void setDetector(const DetectorLayout &layout);
    //! Returns where the bars stand.
    const HistogramPlaces &places() const { return m_places; }
    //! Returns the height of a bar before it is divided: the reading, on a detector less its pedestal and over its gain.
    double barHeight(int channel) const;
    //! Returns the part of the x axis that the bars of channels \a first to \a last, counted from 1, cover.
    QwtInterval spanOfBars(int first, int last) const;

    //! Notes that the newest sample, or something else that the results depend on, has changed.
    void outdate()
    {
        m_isOutdated = true;
        m_isAnnounced = false;
    }
    //! Returns whether there are items whose change has not been announced.
    bool hasNews() const { return !m_isAnnounced && hasItems(); }
    void setAnnounced() { m_isAnnounced = true; }
    //! Computes all items from the newest sample if that has not been done yet. Shows nothing.
    void bringUpToDate() override;
    //! Reads the sample in \a row, which a plot is about to draw.
    void read(int row);
    //! Returns the sample that was read last.
    const HistogramBars &bars() const { return m_bars; }
    //! Computes all items from bars() and shows the results on the plot, which divides the bars by \a divisor.
    void showResults(double divisor);

    // Items that are enabled later get both settings, too.
    void toggleMLFC(bool enable);
    void upload_MLFC_calibration_table(const std::vector<double> *table);

private:
    struct Family
    {
        RVX_HistogramItemAxisWidget *axisWidget = nullptr;
        QVector<double> parameters; //!< of the items
        std::vector<std::unique_ptr<RVX_StatisticsHistogramItem>> items;
    };

    template<typename Action>
    void forEachItem(Action action) const;
    bool needsDeviceFits() const;
    bool isCurrent(int row) const;
    void compute(bool shown);
    void place(RVX_StatisticsHistogramItem &item, int type, const ChannelGroup &group);

    QwtPlot *m_plot;
    const ScopeModel &m_model;
    const ChannelUnits &m_units;
    HistogramBars m_bars;
    HistogramPlaces m_places;
    DetectorFrame m_frame; //!< the readings of m_bars on the cells, if they have places
    bool m_isOutdated = true;
    bool m_isAnnounced = true;
    bool m_isBusy = false; //!< the items ask for the results that are just being computed
    std::array<Family, 4> m_families;
    bool m_hasItems = false; //!< whether a family has any; asked for each row that comes
    bool m_showsEnergy = false;
    std::vector<double> m_energies;
    bool m_hasEnergies = false;
};

} // namespace Corvale_Qt
