// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QVector>

class QwtScaleMap;

namespace Corvale_Qt {

class SeriesSpans;

/*! Finds where the samples of a chart lie along the x axis, in pixels, and keeps it for the other channels of the chart. What
    is kept serves samples with the same memory and version of x on the same axis. Nothing is kept if changes of x are not
    counted (RVXBulkPlotData::xVersion() is 0), or if the map has a transformation, which its ends do not describe. */
class SampleXCache
{
public:
    //! The pixels of the samples.
    struct Positions
    {
        QVector<double> x; //!< a NaN for a sample that is not finite
        bool areFinite = false;
        bool areWhole = false;
    };
    //! The rows of a pixel column, up to those of the next one.
    struct Edge
    {
        int column; //!< x of the pixel column
        int first; //!< its first row, counted from the first sample
    };
    //! The pixel columns that have rows, in the order of the rows.
    struct Columns
    {
        QVector<Edge> edges;
        int end = 0; //!< one past the last row of the last column
        int left = 0;
        int right = 0;
    };

    //! Returns the x of all samples, rounded as Qwt rounds if \a whole is true. They are valid until the next call.
    const Positions &positions(const SeriesSpans &samples, const QwtScaleMap &map, bool whole);
    /*! Returns which rows fall on which of the pixel columns \a left to \a right, and one row beyond either edge so that
        lines reach the border. The x of the samples must rise: each column's first row is searched for. The result is valid
        until the next call. */
    const Columns &columns(const SeriesSpans &samples, const QwtScaleMap &map, int left, int right);

private:
    //! Identifies the samples and the axis. A key without a version matches none.
    struct Key
    {
        quint64 version = 0;
        const double *memory = nullptr; // of the first sample
        int count = 0;
        double scale[2] = {0.0, 0.0};
        double paint[2] = {0.0, 0.0};

        bool matches(const Key &other) const;
    };

    static Key keyOf(const SeriesSpans &samples, const QwtScaleMap &map);
    //! Forgets what was found for other samples or for another axis.
    void follow(const Key &key);

    Key m_key;
    bool m_hasPositions = false;
    bool m_hasColumns = false;
    Positions m_positions;
    Columns m_columns;
};

} // namespace Corvale_Qt
