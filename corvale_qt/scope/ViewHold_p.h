// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/SampleRows_p.h"

#include <qwt_interval.h>

#include <QVector>

#include <optional>

class QwtScaleMap;

namespace Corvale_Qt {

class PlotDataReader;

//! What a user has zoomed or panned to. An axis whose interval is not valid follows the samples, or the scale that is set.
struct ViewWindow
{
    QwtInterval x;
    QwtInterval y; //!< of the left axis
    QwtInterval right; //!< of the right axis

    //! Returns whether a y axis has been zoomed or panned.
    bool hasY() const { return y.isValid() || right.isValid(); }
    bool operator==(const ViewWindow &other) const
    {
        return x == other.x && y == other.y && right == other.right;
    }
};

/*! The window that a view keeps while rows come and leave, with the windows before it, and the rows that lie in it: these
    are found once and then move along with the rows of the model, so that no frame searches the buffer. */
class ViewHold
{
public:
    //! The number of earlier windows that are kept, at most.
    static constexpr int mostKept = 32;

    const ViewWindow &window() const { return m_window; }
    //! Returns whether the x axis stands still.
    bool isHeld() const { return m_window.x.isValid(); }
    //! Returns whether an axis has been zoomed or panned.
    bool isChanged() const { return isHeld() || m_window.hasY(); }

    //! Shows another window.
    void show(const ViewWindow &window);
    //! Shows the same window at another x; it follows the samples if the interval is not valid.
    void showX(const QwtInterval &x);
    //! Forgets the ranges of y, also those of earlier windows.
    void forgetY();
    //! Notes the present window, so that takeEarlier() returns it.
    void remember();
    //! Returns the window that was noted last and differs from the present one, and forgets it; empty if there is none.
    std::optional<ViewWindow> takeEarlier();
    //! Forgets the windows that were noted.
    void forgetEarlier() { m_earlier.clear(); }

    /*! Returns the rows of the window, with one sample beyond each border; the range is empty if they have left the model.
        \a firstOfPart is the first row of the acquisition that goes on. The window keeps to the acquisition in which it was
        held first, also when another one begins whose times are the same. */
    RowRange rows(const PlotDataReader &reader, int firstOfPart, int lastRow);
    //! Returns the rows of the acquisition that the window shows, which may have ended.
    RowRange part(int firstOfPart, int lastRow) const;
    //! Moves the rows along with rows \a start to \a end, which the model has removed.
    void rowsRemoved(int start, int end);
    //! Makes the next request search the rows again.
    void forgetRows();

private:
    static constexpr int kOpen = -1;

    ViewWindow m_window;
    QVector<ViewWindow> m_earlier;

    RowRange m_rows;
    bool m_isComplete =
        false; //!< the rows are found, and one beyond the right border is among them
    int m_partFirst = 0; //!< first row of the acquisition; 0 while it is not known
    int m_partEnd = kOpen; //!< last row of an acquisition that has ended
};

//! Returns the interval of a map after its scale was multiplied by \a factor, with the value at a pixel staying there.
QwtInterval zoomedBy(const QwtScaleMap &map, double pixel, double factor);
//! Returns the interval of a map after its contents were moved by a number of pixels.
QwtInterval movedBy(const QwtScaleMap &map, double pixels);
//! Returns an interval that doubles can divide into pixels; not valid if the bounds are not finite or are equal.
QwtInterval divisible(const QwtInterval &wanted);
/*! Returns the interval of time that a user may go to instead of \a wanted: at most twice as wide as all samples, or as wide
    as \a shown if that is more, and never apart from the samples. */
QwtInterval
reachable(const QwtInterval &wanted, const QwtInterval &samples, const QwtInterval &shown);

} // namespace Corvale_Qt
