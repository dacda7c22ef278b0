// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_series_data.h>

#include <deque>
#include <memory>

namespace Corvale_Qt {

/*! Mean X and mean Y of the frames so far, oldest first. Time stamps rise: an entry older than the newest one
    clears the history first. The history holds 3000 frames and then drops the oldest for each new one, unless it is
    unlimited. */
class MeanHistory
{
public:
    struct Entry
    {
        double time; //!< seconds
        double meanX; //!< mm; SpectrogramCalc::invalid for a frame without a mean
        double meanY;
    };
    static constexpr std::size_t limit = 3000;
    //! Length of the time that a plot shows, seconds.
    static constexpr double span = 5.0;

    void append(const Entry &entry);
    void clear();
    //! Changes the sign of every valid mean X if \a x is true, and of every valid mean Y if \a y is true.
    void mirror(bool x, bool y);
    void setUnlimited(bool unlimited) { m_unlimited = unlimited; }
    bool isUnlimited() const { return m_unlimited; }

    const std::deque<Entry> &entries() const { return m_entries; }
    //! Returns the index of the first entry that a plot of the newest `span` seconds needs.
    std::size_t firstShown() const { return m_firstShown; }

private:
    std::deque<Entry> m_entries;
    std::size_t m_firstShown = 0;
    bool m_unlimited = false;
};

/*! Offers one mean of the shown part of a history to a curve. A frame without a mean gives NaN. */
class MeanSeries : public QwtSeriesData<QPointF>
{
public:
    MeanSeries(std::shared_ptr<const MeanHistory> history, double MeanHistory::Entry::*mean);

    std::size_t size() const override;
    QPointF sample(std::size_t i) const override;
    QRectF boundingRect() const override;

private:
    std::shared_ptr<const MeanHistory> m_history;
    double MeanHistory::Entry::*m_mean;
};

} // namespace Corvale_Qt
