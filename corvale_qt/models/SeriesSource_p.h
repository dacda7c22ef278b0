// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/LibraryBulkData_p.h"

#include <qwt_series_data.h>

#include <QPointF>
#include <QRectF>

#include <algorithm>

namespace Corvale_Qt {

//! The model and the column behind a series, so that many of its points can be read at once.
struct SeriesSource
{
    PlotDataReader reader; //!< without a bulk interface, the series can only be read point by point
    int column = 0; //!< of y; x is column 0
    int startRow = 0; //!< row of the first point
    double scale = 1.0; //!< divisor of y

    /*! Returns the source of a ColumnSeries, or of an RVXSeriesData over a model with a bulk interface. For any other series,
        and for subclasses of these two, the reader of the returned source has no bulk interface. */
    static SeriesSource of(const QwtSeriesData<QPointF> *series);

    //! Writes the x of \a count points to \a x, starting with point \a first.
    void readX(size_t first, int count, double *x) const
    {
        reader.read(0, startRow + int(first), count, x);
    }
    //! Writes the y of \a count points to \a y, starting with point \a first.
    void readY(size_t first, int count, double *y) const
    {
        reader.read(column, startRow + int(first), count, y);
        for (int i = 0; i < count; ++i)
            y[i] /= scale;
    }
};

//! The points of a series, read directly from the memory that holds them.
class SeriesSpans
{
public:
    //! Finds \a count points, starting with point \a first.
    SeriesSpans(SeriesSource source, int first, int count);

    //! Returns false if the points do not lie in memory; then no other function may be called.
    bool areFound() const { return m_found; }
    //! Returns true if x is finite and rises from each point to the next.
    bool rise() const;
    quint64 xVersion() const { return m_source.reader.xVersion(); }
    int count() const { return m_x.count(); }
    double x(int i) const { return m_x.value(i); }
    double y(int i) const { return shown(m_y.stored(i)); }
    //! Writes the y of \a count points to \a out, starting with point \a first.
    void values(int first, int count, double *out) const;
    //! Converts a stored number to the y that is shown.
    double shown(double stored) const
    {
        const double value = m_y.factor * stored - m_y.zero;
        // The division would take as long as the rest of the conversion.
        return m_source.scale == 1.0 ? value : value / m_source.scale;
    }
    //! Returns what the converted numbers are divided by.
    double divisor() const { return m_source.scale; }
    const RingSpans &storedX() const { return m_x; }
    const RingSpans &storedY() const { return m_y; }

private:
    void convert(const double *stored, int count, double *out) const;

    SeriesSource m_source;
    RingSpans m_x;
    RingSpans m_y;
    bool m_found = false;
};

/*! Calls use(i, x, y) for \a count points of a series, starting with point \a first, also for missing ones; i counts from 0.
    The points are read in chunks if the model can. */
template<typename Use>
void forEachPoint(const QwtSeriesData<QPointF> &series, int first, int count, Use use)
{
    const SeriesSource source = SeriesSource::of(&series);
    if (!source.reader.isBulk()) {
        for (int i = 0; i < count; ++i) {
            const QPointF point = series.sample(size_t(first) + size_t(i));
            use(i, point.x(), point.y());
        }
        return;
    }
    constexpr int chunk = 512;
    double x[chunk];
    double y[chunk];
    for (int done = 0; done < count; done += chunk) {
        const int size = std::min(chunk, count - done);
        source.readX(size_t(first) + size_t(done), size, x);
        source.readY(size_t(first) + size_t(done), size, y);
        for (int i = 0; i < size; ++i)
            use(done + i, x[i], y[i]);
    }
}

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
