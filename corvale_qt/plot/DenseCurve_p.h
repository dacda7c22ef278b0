// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QVector>

#include <algorithm>

class QwtScaleMap;

namespace Corvale_Qt {

class PixelRuns;
class SeriesSpans;

/*! Walks forward through the samples to which no line leads from the sample before, given as sorted indexes into a series.
    Samples are counted from the first one that is drawn. */
class LineBreaks
{
public:
    //! \a breaks may be null if there are none; \a from is the first sample that is drawn.
    LineBreaks(const QVector<int> *breaks, int from)
        : m_from(from)
    {
        if (!breaks)
            return;
        m_next = std::lower_bound(breaks->constBegin(), breaks->constEnd(), from);
        m_end = breaks->constEnd();
    }

    //! Returns whether no line leads to sample \a i. The samples of all calls must not fall.
    bool isAt(int i)
    {
        while (m_next != m_end && *m_next - m_from < i)
            ++m_next;
        return m_next != m_end && *m_next - m_from == i;
    }
    /*! Returns how many of the \a count samples from \a first on, for which isAt() was called last, can be drawn as one
        line. */
    int lengthOfLine(int first, int count) const
    {
        const bool isHere = m_next != m_end && *m_next - m_from <= first;
        const int *const after = isHere ? m_next + 1 : m_next;
        return after == m_end ? count : std::min(count, *after - m_from - first);
    }

private:
    int m_from;
    const int *m_next = nullptr;
    const int *m_end = nullptr;
};

//! The stored numbers of a curve in one pixel column, before they are converted to the y that is shown.
struct ColumnReadings
{
    enum Kind {
        None, //!< no number is finite
        Some, //!< some numbers are finite
        All //!< all numbers are finite
    };

    double first = 0.0;
    double least = 0.0;
    double greatest = 0.0;
    double last = 0.0;
    Kind kind = None;

    //! Reads rows \a first to \a end - 1, at least one, counted from the first sample.
    static ColumnReadings of(const SeriesSpans &samples, int first, int end);
};

//! A curve with many samples for each pixel column, read directly from the memory that holds its samples.
class DenseCurve
{
public:
    //! Samples and map must live as long.
    DenseCurve(const SeriesSpans &samples, const QwtScaleMap &yMap)
        : m_samples(samples)
        , m_yMap(yMap)
    {
    }

    //! Adds what was read of rows \a first to \a end - 1, which lie in one pixel column and which no break divides.
    void add(PixelRuns &runs, int column, const ColumnReadings &readings, int first, int end) const;
    //! Reads and adds rows \a first to \a end - 1, which lie in one pixel column; \a breaks count from row \a first.
    void add(PixelRuns &runs, int column, LineBreaks breaks, int first, int end) const;

private:
    void addOneByOne(PixelRuns &runs, int column, int first, int end) const;

    const SeriesSpans &m_samples;
    const QwtScaleMap &m_yMap;
};

} // namespace Corvale_Qt
