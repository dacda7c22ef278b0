// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/SpotMapView.h"

#include <QVector>

namespace Corvale_Qt {

/*! Returns whether all fields of \a spot are finite and its sigma is above 0. A spot that cannot be drawn only
    keeps its row. */
bool isDrawable(const SpotMapView::MapSpot &spot);

//! The limits of a set of spots, of which only those that can be drawn count.
struct SpotLimits
{
    double left = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    double top = 0.0;
    float dose = 0.0F; //!< the largest dose, at least 0
    int drawable = 0; //!< the number of spots that can be drawn

    //! Returns the limits of a single spot.
    static SpotLimits of(const SpotMapView::MapSpot &spot);
    //! Returns the limits of \a count spots from row \a first on.
    static SpotLimits of(const QVector<SpotMapView::MapSpot> &spots, int first, int count);
    //! Returns the smallest rectangle that holds the spots; empty without any.
    QRectF rect() const;
    //! Widens these limits so that they also hold \a other.
    void add(const SpotLimits &other);
};

/*! The limits of a list of spots, stored for blocks of rows. A change reads the rows of one block again and
    combines the limits of all blocks. So its cost does not depend on the spots, not even if each change removes
    the outermost one. */
class SpotBlocks
{
public:
    using Spots = QVector<SpotMapView::MapSpot>;

    const SpotLimits &limits() const { return m_limits; }

    void clear();
    void append(const SpotMapView::MapSpot &spot);
    //! Call these after \a spots has changed.
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

    //! Returns the block that holds \a row.
    Place placeOf(int row) const;
    //! Splits a block with more than twice the usual number of rows into blocks of the usual size.
    void split(int block);
    //! Reads the rows of \a count blocks again, and combines the limits of all blocks.
    void rescan(const Spots &spots, Place from, int count);

    QVector<Block> m_blocks;
    SpotLimits m_limits;
};

} // namespace Corvale_Qt
