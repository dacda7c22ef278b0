// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_series_data.h>

#include <deque>
#include <memory>

namespace Corvale_Qt {

/*! Mean X and mean Y of the frames so far, oldest first, with rising time stamps; one from before the newest
    starts anew. Holds 3000 frames; one more
    pushes out the oldest. */
class MeanHistory
{
public:
    struct Entry
    {
        double time;
        double meanX;
        double meanY;
    };
    static constexpr std::size_t limit = 3000;
    //! Seconds that are shown.
    static constexpr double span = 5.0;

    void append(const Entry &entry);
    void clear();
    //! Mean X of every frame changes its sign, where it has one; likewise mean Y.
    void mirror(bool x, bool y);
    void setUnlimited(bool unlimited) { m_unlimited = unlimited; }
    bool isUnlimited() const { return m_unlimited; }

    const std::deque<Entry> &entries() const { return m_entries; }
    //! Index of the first entry that a plot of the newest \a span seconds needs.
    std::size_t firstShown() const { return m_firstShown; }

private:
    std::deque<Entry> m_entries;
    std::size_t m_firstShown = 0;
    bool m_unlimited = false;
};

/*! The part of a history that is shown, as a curve reads it: a frame without a mean has no finite value. */
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
