// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QPointF>
#include <QRectF>

#include <algorithm>

namespace Corvale_Qt {

struct ColumnSpans;
struct SeriesColumns;

//! Smallest and largest of some numbers; what is not finite is known, and left out of the two.
struct ValueRange
{
    double least;
    double greatest;
    bool allFinite;

    void unite(const ValueRange &other)
    {
        least = std::min(least, other.least);
        greatest = std::max(greatest, other.greatest);
        allFinite = allFinite && other.allFinite;
    }
};

/*! Of rows \a first to \a last - 1 of the spans, counted from their first row: as they are stored, neither
    multiplied nor subtracted from. Where none is finite, least is above greatest. */
ValueRange storedRange(const ColumnSpans &spans, int first, int last);
//! The same, whoever keeps ranges: reads all of them.
ValueRange readRange(const ColumnSpans &spans, int first, int last);

/*! The rectangle around samples: of those that are finite, and of the first one, whose coordinates count as 0
    where they are not. */
class SampleBounds
{
public:
    explicit SampleBounds(const QPointF &first);

    void add(double x, double y);
    /*! All samples of a series at once, at the cost of reading their memory; false, and nothing added, where
        that cannot be done with the same result. */
    bool addSpans(const SeriesColumns &columns, int count);
    QRectF rectangle() const;

private:
    double m_left;
    double m_right;
    double m_top;
    double m_bottom;
};

} // namespace Corvale_Qt
