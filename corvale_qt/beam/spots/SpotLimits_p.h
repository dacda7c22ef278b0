// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the spot map's own classes.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/beam/spots/SpotMapView.h"

#include <QVector>

namespace Corvale_Qt {

/*! Whether a spot can be drawn: all fields finite, sigma above 0. One that cannot keeps its row, nothing
    more. */
bool isDrawable(const SpotMapView::MapSpot &spot);

//! What is known of some spots; only those that can be drawn count.
struct SpotLimits
{
    double left = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    double top = 0.0;
    float dose = 0.0F; //!< the largest, never below 0
    int drawable = 0;

    static SpotLimits of(const SpotMapView::MapSpot &spot);
    void add(const SpotLimits &other);
};

/*! The limits of a list of spots, kept block by block. A change looks at one block of rows and at what is known of
    the others, whatever the spots are: also where each change takes away the outermost spot, or all have one dose. */
class SpotBlocks
{
public:
    using Spots = QVector<SpotMapView::MapSpot>;

    const SpotLimits &limits() const { return m_limits; }

    void clear();
    void append(const SpotMapView::MapSpot &spot);
    // After the list was changed.
    void inserted(const Spots &spots, int first, int count);
    void changed(const Spots &spots, int row);
    void removed(const Spots &spots, int first, int count);

private:
    struct Block
    {
        int rows = 0;
        SpotLimits limits;
    };
    struct Place
    {
        int block;
        int firstRow;
    };

    Place placeOf(int row) const;
    void split(int block);
    //! Looks at the rows of \a count blocks once more, and adds all blocks up.
    void look(const Spots &spots, Place from, int count);

    QVector<Block> m_blocks;
    SpotLimits m_limits;
};

} // namespace Corvale_Qt
