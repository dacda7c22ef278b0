// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/BeamFrame_p.h"

#include <qwt_plot_curve.h>
#include <qwt_plot_item.h>

namespace Corvale_Qt {

//! Bottom to top.
enum SpectrogramLayer {
    BackgroundLayer = 0,
    RasterLayer = 10,
    MeanLayer = 20,
    EllipseLayer = 30, // and the arrow on it
};

/*! Fills the canvas behind the raster, and says so where there is nothing to show. */
class Background : public QwtPlotItem
{
public:
    Background();

    void setText(const QString &text);
    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    QString m_text;
};

/*! A line across the raster at the beam's mean X or mean Y. */
class MeanCurve : public QwtPlotCurve
{
public:
    //! \a across is Qt::Vertical for a line at a mean X.
    MeanCurve(const QString &title, Qt::Orientation across);

    //! In raster units; no line where it is not finite.
    void setMean(double mean, int size);

protected:
    void drawCurve(QPainter *painter,
                   int style,
                   const QwtScaleMap &xMap,
                   const QwtScaleMap &yMap,
                   const QRectF &canvasRect,
                   int from,
                   int to) const override;

private:
    Qt::Orientation m_across;
};

/*! What the side bar says about ellipse and arrow. */
struct EllipseOptions
{
    bool ellipse = true;
    bool arrow = false;
    int arrowSize = 12; //!< length of the head, pixels
    double xOrigin = 0; //!< where the arrow starts
    double yOrigin = 0;
};

/*! The sigma ellipse, and the displacement arrow from the origin to its centre. Both follow the scale maps, so
    they lie on the beam however the axes run. */
class Ellipse : public QwtPlotItem
{
public:
    Ellipse();

    //! Origins in raster units.
    void setOptions(const EllipseOptions &options);
    void setShape(const SigmaEllipse &oneSigma);
    void setSigmaCount(int count);
    void setHidden(bool hidden);
    bool isHidden() const { return m_hidden; }

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    void drawEllipse(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap) const;
    void drawArrow(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap) const;

    EllipseOptions m_options;
    SigmaEllipse m_oneSigma;
    int m_sigmaCount = 1;
    bool m_hidden = true;
};

} // namespace Corvale_Qt
