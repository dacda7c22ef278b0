// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/SeriesSource_p.h"
#include "corvale_qt/plot/ColumnRows_p.h"
#include "corvale_qt/plot/DenseCurve_p.h"
#include "corvale_qt/plot/PixelGrid_p.h"
#include "corvale_qt/plot/PixelRuns_p.h"
#include "corvale_qt/plot/RunImage_p.h"

#include <qwt_scale_map.h>

#include <QColor>
#include <QRect>

#include <unordered_map>
#include <vector>

namespace Corvale_Qt {

//! What one curve reads in each pixel column, kept from frame to frame as long as the rows of the column stay.
class CurveColumns
{
public:
    //! Returns whether changes of the samples can be noticed.
    static bool canFollow(const SeriesSpans &samples);

    /*! Reads the columns of \a rows, whose last update was for the x of \a samples, that have changed since the last call. Returns
        false if all were read because the samples are not those of the last call. */
    bool update(const SeriesSpans &samples, const ColumnRows &rows);

    //! How a curve becomes runs, in the coordinates of a painter.
    struct Look
    {
        const QwtScaleMap &yMap;
        const QVector<int> &breaks; //!< those of the last update of the rows
        qint64 columnAtZero; //!< the column at x = 0 of the painter
    };
    /*! Adds the columns \a span, with those that lines lead from and to. The last call of update() must have been for these samples
        and rows. */
    void addTo(PixelRuns &runs,
               const SeriesSpans &samples,
               const ColumnRows &rows,
               const ColumnSpan &span,
               const Look &look) const;

private:
    quint64 m_content = 0; // of the ring
    qint64 m_offset = 0; // from the index of a row in the ring of x to that in the ring of y
    quint64 m_stamp = 0; // the last update of the rows that was followed
    QVector<ColumnReadings> m_readings; // by the places of the columns
};

/*! The picture of the dense curves of a chart whose time axis moves by whole pixel columns. It is kept and moved along, and only
    columns whose rows have changed are drawn anew. If the curves look different than before (another scale, colour or zero, another
    curve), all columns are, from what was read of them. The picture is equal to one that is drawn from nothing. */
class StripPicture
{
public:
    //! A curve as it is drawn in this frame.
    struct Curve
    {
        const void *owner; //!< tells curves apart from frame to frame
        SeriesSpans samples; //!< valid as long as the frame is painted
        QwtScaleMap yMap;
        QRgb color; //!< opaque
    };

    //! Sets the columns of the time axis; without a grid no curve is taken.
    void setGrid(const PixelGrid &grid) { m_grid = grid; }

    //! Returns whether the picture can keep a curve that is drawn with \a xMap.
    bool takes(const QwtScaleMap &xMap, const Curve &curve) const;
    /*! Adds the next curve of this frame, one that takes() was true for, inside of \a clip, in pixels of a painter; \a breaks are the
        samples to which no line leads. Returns false if it does not fit to the curves before it: it must be drawn otherwise. */
    bool
    add(const QRect &clip, const QwtScaleMap &xMap, const Curve &curve, const QVector<int> &breaks);
    //! Returns whether no curve was added in this frame.
    bool isEmpty() const { return m_curves.empty(); }
    //! Draws the curves of this frame, and ends it.
    void draw(QPainter *painter, const QVector<int> &breaks);
    //! Ends a frame that is not drawn, if one has begun.
    void drop();

private:
    //! All that a curve's pixels depend on beside its samples.
    struct Look
    {
        const void *owner;
        QRgb color;
        double factor;
        double zero;
        double divisor;
        double scale[2];
        double paint[2];

        bool operator==(const Look &other) const;
    };
    //! What is kept of a curve.
    struct Kept
    {
        CurveColumns columns;
        quint64 frame = 0; // in which it was drawn last
    };

    static Look lookOf(const Curve &curve);
    bool takeColor(QRgb color);
    bool isAnew();
    void drawColumns(const ColumnSpan &span, const QVector<int> &breaks);
    void forgetCurves();
    void end();

    PixelGrid m_grid;
    ColumnRows m_rows;
    std::unordered_map<const void *, Kept> m_kept;
    std::vector<Curve> m_curves; // of this frame, in their order
    QVector<QRgb> m_colors; // of this frame
    QRect m_clip;
    bool m_isSame = true; // the samples of all curves of this frame are those of the frame before
    quint64 m_frame = 0;

    RunImage m_image;
    QVector<Look> m_looks; // of the curves in the picture
    QRect m_drawnClip; // of the picture
    PixelRuns m_runs;
};

} // namespace Corvale_Qt
