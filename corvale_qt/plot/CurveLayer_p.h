// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/RunImage_p.h"
#include "corvale_qt/plot/StripPicture_p.h"

#include <qwt_plot_item.h>

#include <QVector>

namespace Corvale_Qt {

class PixelRuns;

/*! One picture for all dense curves of a plot. Their runs are written into it as plain pixels, and the picture is drawn onto
    the canvas once, directly above the curves. A painter spends some 40 instructions on each pixel of a vertical line; the
    picture needs two.

    With a grid of pixel columns, the picture is kept from frame to frame (StripPicture).

    Attach it to the plot above the curves that use it (RVXDiscontinuousPlotCurve::setLayer()). A curve that is painted
    directly flushes it first, so that the curves keep their order. */
class CurveLayer : public QwtPlotItem
{
public:
    CurveLayer();

    /*! Returns the samples, as rising indexes into the series of the curves that use the layer, to which no line leads from
        the sample before. */
    QVector<int> &breaks() { return m_breaks; }
    const QVector<int> &breaks() const { return m_breaks; }

    //! Sets the pixel columns of a time axis that moves by whole columns; without a grid, as at first, no picture is kept.
    void setGrid(const PixelGrid &grid) { m_kept.setGrid(grid); }
    /*! Adds a curve to the picture that is kept, inside of \a clip, in pixels of \a painter's coordinates. Returns false if it cannot be
        kept: its runs are to be added then. */
    bool addKept(QPainter *painter,
                 const QRect &clip,
                 const QwtScaleMap &xMap,
                 const StripPicture::Curve &curve);

    /*! Adds runs that lie inside \a clip, in pixels of \a painter's coordinates. \a color must be opaque. Runs that were added
        for another clip are drawn first. */
    void add(QPainter *painter, const QRect &clip, const PixelRuns &runs, const QColor &color);
    //! Draws the picture onto the canvas and empties it. Does nothing if \a painter is not the one of add().
    void flush(QPainter *painter) const;

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    //! Draws the picture and starts an empty one.
    void begin(QPainter *painter, const QRect &clip);

    QVector<int> m_breaks;
    mutable StripPicture m_kept;
    mutable RunImage m_image;
    QRect m_clip;
    // The painter that runs or curves were added for; null while there are none.
    mutable QPainter *m_painter = nullptr;
};

} // namespace Corvale_Qt
