// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <qwt_plot_curve.h>

namespace Corvale_Qt {

class CurveLayer;

/*! A curve that breaks where samples are missing: a sample whose x or y is not finite is not drawn, and no line
    leads to or from it. A sample between two missing ones is drawn as a point of the pen's width.

    Its bounding rectangle holds finite samples only, so that an automatic axis never meets the others. */
class CORVALE_QT_EXPORT RVXDiscontinuousPlotCurve : public QwtPlotCurve
{
public:
    explicit RVXDiscontinuousPlotCurve(const QString &title = QString());
    explicit RVXDiscontinuousPlotCurve(const QwtText &title);
    ~RVXDiscontinuousPlotCurve() override;

    QRectF boundingRect() const override;

    /*! For views of this library that draw many channels: dense curves are gathered in \a layer, an item of the
        same plot, which must outlive the curve or be taken away with null. */
    void setLayer(CurveLayer *layer);

protected:
    void drawCurve(QPainter *painter,
                   int style,
                   const QwtScaleMap &xMap,
                   const QwtScaleMap &yMap,
                   const QRectF &canvasRect,
                   int from,
                   int to) const override;
    void drawLines(QPainter *painter,
                   const QwtScaleMap &xMap,
                   const QwtScaleMap &yMap,
                   const QRectF &canvasRect,
                   int from,
                   int to) const override;
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
