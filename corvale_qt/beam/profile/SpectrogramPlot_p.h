// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/BeamFrame_p.h"
#include "corvale_qt/beam/profile/SpectrogramItems_p.h"
#include "corvale_qt/plot/SquarePlot_p.h"

namespace Corvale_Qt {

class BeamRaster;

/*! The raster with all that lies on it, its axes and its colour bar. */
class SpectrogramPlot : public SquarePlot
{
    Q_OBJECT

public:
    enum ColorMode {
        Greyscale = 0,
        Color = 1,
    };

    explicit SpectrogramPlot(QWidget *parent = nullptr);
    ~SpectrogramPlot() override;

    //! An empty raster for a detector.
    void setDetector(DetectorLayout layout);
    DetectorLayout detector() const { return m_layout; }
    void setInverted(bool x, bool y);
    bool isInvertedX() const { return m_invertX; }
    bool isInvertedY() const { return m_invertY; }

    //! Raster, means and ellipse of a frame; painted at the next replot.
    void setFrame(const BeamFrame &frame);
    //! Takes the ellipse and the arrow away until the next frame; false where none is shown.
    bool hideEllipse();
    void setSigmaCount(int count);
    //! Origins in mm, as the means are told.
    void setEllipseOptions(const EllipseOptions &options);
    void setMeansVisible(bool x, bool y);

    //! Colours run from 0 to \a max; ignored unless above 0.
    void setColorRange(double max);
    void setColorMode(ColorMode mode);
    void setSmoothing(bool smoothing);
    void setColorBarTitle(const QString &title);
    void setColorBarVisible(bool visible);

    /*! What the mouse tells at a place in raster units: channel or cell, and value. */
    QString hoverText(const QPointF &position) const;

private:
    void applyAxes();
    void applyColors();
    void applyEllipseOptions();

    // All items belong to the plot.
    Background *m_background;
    BeamRaster *m_raster;
    MeanCurve *m_meanX;
    MeanCurve *m_meanY;
    Ellipse *m_ellipse;

    DetectorLayout m_layout = DetectorLayout::None;
    DetectorGrid m_grid;
    EllipseOptions m_options;
    ColorMode m_colorMode = Color;
    double m_colorRange = 1;
    bool m_invertX = false;
    bool m_invertY = false;
};

} // namespace Corvale_Qt
