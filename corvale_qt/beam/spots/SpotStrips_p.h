// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/SpotDifferences.h"

#include <vector>

namespace Corvale_Qt {

/*! Finds the spot nearest to a place. The spots are sorted by x and cut into strips of about the square root of their number,
    and each strip is sorted by y. So a search reads few spots however they lie, even if all are crowded at one place and one
    is far away, which no grid of equal cells could do. */
class SpotStrips
{
public:
    static constexpr int none = -1;

    //! The \a spots must outlive this object.
    explicit SpotStrips(const QVector<ComparedSpot> &spots);

    /*! Returns the index of the spot nearest to \a place that is not further away than the root of \a squaredReach; of several
        at one distance, the first. */
    int nearest(const ComparedSpot &place, double squaredReach) const;
    //! Takes a spot out, so that it is not found any more. It must be in.
    void take(int index);

private:
    struct Strip
    {
        double left = 0;
        double right = 0;
        std::vector<int> spots; //!< rising in y; at the same y, rising in their index
    };
    //! The nearest spot so far.
    struct Best
    {
        int index = none;
        double squaredDistance = 0;
    };

    bool isBelow(int a, int b) const;
    void searchStrip(const Strip &strip, const ComparedSpot &place, Best &best) const;
    void consider(int index, const ComparedSpot &place, Best &best) const;

    const QVector<ComparedSpot> &m_spots;
    std::vector<Strip> m_strips; //!< from left to right
    std::vector<int> m_stripOf; //!< for each spot
};

//! Returns the square of the distance of two spots.
double squaredDistance(const ComparedSpot &a, const ComparedSpot &b);

} // namespace Corvale_Qt
