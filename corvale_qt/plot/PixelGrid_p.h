// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QtGlobal>

class QwtScaleMap;

namespace Corvale_Qt {

//! Consecutive pixel columns, both ends included.
struct ColumnSpan
{
    qint64 first = 0;
    qint64 last = -1;

    bool isEmpty() const { return last < first; }
    //! Returns the number of columns, of which there must be fewer than an int counts.
    int count() const { return int(last - first) + 1; }
    bool contains(qint64 column) const { return column >= first && column <= last; }
    bool operator==(const ColumnSpan &other) const
    {
        return first == other.first && last == other.last;
    }
};

/*! The pixel columns of a time axis. They are numbered by their time, so that a column keeps its number, and all that is drawn in
    it, while the axis moves along by whole columns. */
struct PixelGrid
{
    double origin = 0.0; //!< x in the middle of column 0
    double step = 0.0; //!< width of a column in units of x; 0 if there is no grid
    qint64 left = 0; //!< the column at the left end of the axis
    int width = 0; //!< columns from the left end of the axis to the right end

    /*! Returns the grid of an axis of \a width, in units of x, across \a columns, that ends at \a right or less than a column
        later; none if x is too large for its differences to be told apart. */
    static PixelGrid endingAt(double right, double width, int columns);
    //! Returns the grid of an axis that stays where it is.
    static PixelGrid between(double left, double right, int columns);

    bool isValid() const { return step > 0.0; }
    //! Returns x in the middle of a column.
    double x(qint64 column) const { return origin + double(column) * step; }
    //! Returns the column of \a x, which must not be NaN; one that is enormously far away is limited.
    qint64 columnOf(double x) const;
    //! Returns whether \a map draws this axis, and its columns on whole pixels of a painter.
    bool describes(const QwtScaleMap &map) const;
    //! Returns the columns that lie at pixels \a first to \a last of a painter with a map that the grid describes.
    ColumnSpan at(const QwtScaleMap &map, int first, int last) const;
    //! Returns whether a column of the other grid has the same number here.
    bool numbersLike(const PixelGrid &other) const
    {
        return origin == other.origin && step == other.step;
    }
};

} // namespace Corvale_Qt
