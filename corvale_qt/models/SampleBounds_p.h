// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QPointF>
#include <QRectF>

#include <algorithm>

class QDebug;
template<typename T>
class QwtSeriesData;

namespace Corvale_Qt {

struct RingSpans;
class SeriesSpans;

//! The smallest and the largest of the finite numbers among some numbers, and whether all of them are finite.
struct ValueRange
{
    double least;
    double greatest;
    bool allFinite;

    //! Extends the range by another one.
    void unite(const ValueRange &other)
    {
        least = std::min(least, other.least);
        greatest = std::max(greatest, other.greatest);
        allFinite = allFinite && other.allFinite;
    }
};

QDebug operator<<(QDebug debug, const ValueRange &range);

/*! Returns the range of the stored numbers of rows \a first to \a last - 1, counted from the first row of the spans;
    factor and zero are not applied. If no number is finite, least is greater than greatest. */
ValueRange storedRange(const RingSpans &spans, int first, int last);
//! Returns what storedRange() returns, but always reads every number instead of cached ranges.
ValueRange readRange(const RingSpans &spans, int first, int last);

/*! Finds the rectangle around samples. Samples with a coordinate that is not finite are left out, except that the first
    one always counts, with 0 for such a coordinate. */
class SampleBounds
{
public:
    explicit SampleBounds(const QPointF &first);

    //! Adds a sample; ignores it unless both coordinates are finite.
    void add(double x, double y);
    /*! Adds samples from the ranges of their memory. Returns false and adds nothing if the result could differ from that of
        add() for each sample. */
    bool add(const SeriesSpans &samples);
    //! Returns the rectangle; top is the smallest y.
    QRectF rectangle() const;

private:
    double m_left;
    double m_right;
    double m_top;
    double m_bottom;
};

//! Returns the rectangle around the first \a count samples of a series, at least one.
QRectF boundsOf(const QwtSeriesData<QPointF> &series, int count);

} // namespace Corvale_Qt
