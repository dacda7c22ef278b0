// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QtGlobal>

namespace Corvale_Qt {

class RVXAbstractPlotDataModel;

/*! The readings that a plot model no longer has as rows, in blocks: for each channel the smallest, the largest and the mean
    reading of a block, and their number.

    Blocks come in levels. Level 0 has the shortest blocks; those of the next level hold several of them, and so on, and each
    level reaches further back than the one below. Blocks of a level follow each other in time and leave out no row, except
    that the newest rows may not fill a block of the higher levels yet. All channels have the same blocks. The newest block of
    level 0 ends with the row before row 1 of the model, and may still grow.

    RVXMultichannelDeviceModel keeps a history if its historySpan() is set. A host's own model derives from this class as
    well; views find it with of(). x must rise from block to block, and on to row 1.

    The functions are called for each frame, so none of them may take long. */
class CORVALE_QT_EXPORT RVXPlotHistory
{
public:
    //! The layout of this class; see RVXBulkPlotData::currentLayout.
    static constexpr int currentLayout = 1;

    //! When the rows of a block were taken.
    struct Interval
    {
        double first = 0.0; //!< x of the first row
        double last = 0.0; //!< x of the last row
        qint64 firstRow =
            0; //!< number of the first row, counted from the first one that the model ever had
        qint32 rows = 0; //!< how many rows there are
        float longestStep =
            0.0F; //!< the largest distance in x between neighbouring rows of the block
    };

    //! What the readings of a channel were in a block, in the unit that the model shows.
    struct Block
    {
        double least = 0.0; //!< the smallest reading that is finite
        double greatest = 0.0; //!< the largest reading that is finite
        double mean = 0.0; //!< the mean of the readings that are finite
        qint64 count = 0; //!< how many readings are finite; with 0, the other members mean nothing
    };

    virtual ~RVXPlotHistory();
    Q_DISABLE_COPY(RVXPlotHistory)

    //! Returns how many levels there are.
    virtual int levels() const = 0;
    /*! Returns the number of the oldest block that a level still has. Blocks are counted from the first one that the level
        ever had, so that a block keeps its number. */
    virtual qint64 firstBlock(int level) const = 0;
    //! Returns the number after that of the newest block of a level.
    virtual qint64 endBlock(int level) const = 0;
    //! Returns when the rows of a block were taken. The level has the block.
    virtual Interval interval(int level, qint64 block) const = 0;
    /*! Writes \a count blocks of the channel in \a column, 1 or more, to \a out, starting with block \a first. Returns false
        if there is no history of the channel. The level has the blocks. */
    virtual bool read(int level, int column, qint64 first, int count, Block *out) const = 0;

    //! Returns the x of the oldest reading in the history; NaN if it is empty.
    double oldest() const;
    //! Returns the layout that the object was compiled with.
    int layoutVersion() const { return m_layout; }

    /*! Returns the history of \a model, which may be null. Null if the model has none, and for a subclass of a class of the
        library that nobody vouches for (RVXBulkPlotVoucher): its readings may be others. */
    static const RVXPlotHistory *of(const RVXAbstractPlotDataModel *model);

protected:
    //! Hosts use the default, which their compiler takes from the header that they are built with.
    explicit RVXPlotHistory(int layout = currentLayout);

private:
    int m_layout;
};

} // namespace Corvale_Qt
