// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/BeamFrame_p.h"

#include <qwt_plot_curve.h>
#include <qwt_plot_item.h>

namespace Corvale_Qt {

//! Z values of the items, from bottom to top.
enum SpectrogramLayer {
    BackgroundLayer = 0,
    RasterLayer = 10,
    MeanLayer = 20,
    EllipseLayer = 30, // the ellipse and the arrow
};

/*! Fills the canvas behind the raster and shows a text while there is no frame. */
class Background : public QwtPlotItem
{
public:
    Background();

    //! Shows \a text in the middle of the canvas; an empty text shows nothing.
    void setText(const QString &text);
    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    QString m_text;
};

/*! Draws a line across the raster at the beam's mean X or mean Y. */
class MeanCurve : public QwtPlotCurve
{
public:
    //! \a across is the direction of the line: Qt::Vertical for mean X, Qt::Horizontal for mean Y.
    MeanCurve(const QString &title, Qt::Orientation across);

    //! Moves the line to \a mean, in the units of the axes, and has it reach between two places. Hides it if \a mean is not finite.
    void setMean(double mean, double from, double to);

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

/*! Settings of the ellipse and the arrow. */
struct EllipseOptions
{
    bool ellipse = true; //!< whether the ellipse is drawn
    bool arrow = false; //!< whether the arrow is drawn
    int arrowSize = 12; //!< length of the head, pixels
    double xOrigin = 0; //!< start of the arrow
    double yOrigin = 0;
};

/*! Draws the sigma ellipse and the displacement arrow from the origin to its centre. Both follow the scale maps,
    so they lie on the beam in whatever direction the axes run. */
class Ellipse : public QwtPlotItem
{
public:
    Ellipse();

    //! Sets the options; the origin is in raster units.
    void setOptions(const EllipseOptions &options);
    void setShape(const SigmaEllipse &oneSigma);
    //! Sets the number of sigmas at which the ellipse is drawn.
    void setSigmaCount(int count);
    //! Hides the ellipse and the arrow, whatever the options.
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
