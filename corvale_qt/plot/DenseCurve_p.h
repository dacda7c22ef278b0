// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

class QwtScaleMap;

namespace Corvale_Qt {

class LineBreaks;
class PixelRuns;
class SeriesSpans;

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
