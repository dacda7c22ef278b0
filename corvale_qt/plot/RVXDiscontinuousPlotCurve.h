// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <qwt_plot_curve.h>

namespace Corvale_Qt {

class CurveLayer;

/*! A curve that breaks at missing samples. A sample whose x or y is not finite is not drawn, and no line leads to or from it.
    A sample between two missing ones is drawn as a point of the pen's width.

    The bounding rectangle contains finite samples only, so that automatic axes ignore the others. */
class CORVALE_QT_EXPORT RVXDiscontinuousPlotCurve : public QwtPlotCurve
{
public:
    //! Constructs a curve with a \a title that clips its lines to the canvas.
    explicit RVXDiscontinuousPlotCurve(const QString &title = QString());
    //! Constructs a curve with a formatted \a title.
    explicit RVXDiscontinuousPlotCurve(const QwtText &title);
    ~RVXDiscontinuousPlotCurve() override;

    QRectF boundingRect() const override;

    /*! Makes dense curves draw into \a layer, an item of the same plot, together with other curves. Views of the library use
        it to draw many channels. The curve does not own the layer, which must outlive it; null removes the layer. */
    void setLayer(CurveLayer *layer);

protected:
    //! Draws each sequence of finite samples from \a from to \a to, both included, in the given style.
    void drawCurve(QPainter *painter,
                   int style,
                   const QwtScaleMap &xMap,
                   const QwtScaleMap &yMap,
                   const QRectF &canvasRect,
                   int from,
                   int to) const override;
    //! Draws the lines between finite samples.
    void drawLines(QPainter *painter,
                   const QwtScaleMap &xMap,
                   const QwtScaleMap &yMap,
                   const QRectF &canvasRect,
                   int from,
                   int to) const override;
    //! Draws the symbols of finite samples.
    void drawSymbols(QPainter *painter,
                     const QwtSymbol &symbol,
                     const QwtScaleMap &xMap,
                     const QwtScaleMap &yMap,
                     const QRectF &canvasRect,
                     int from,
                     int to) const override;

private:
    template<typename DrawRun>
    void forEachFiniteRun(int from, int to, DrawRun drawRun) const;

    CurveLayer *m_layer = nullptr;
};

} // namespace Corvale_Qt
