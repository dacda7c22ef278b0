// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/BeamFrame_p.h"
#include "corvale_qt/beam/profile/LayoutView_p.h"
#include "corvale_qt/beam/profile/SpectrogramItems_p.h"
#include "corvale_qt/plot/SquarePlot_p.h"

namespace Corvale_Qt {

class BeamRaster;
class ChannelHover;

/*! The raster with the items on it, its axes and its colour bar. */
class SpectrogramPlot : public SquarePlot
{
    Q_OBJECT

public:
    explicit SpectrogramPlot(QWidget *parent = nullptr);
    ~SpectrogramPlot() override;

    //! Shows an empty raster for a detector.
    void setDetector(ProfileLayout layout);
    ProfileLayout detector() const { return m_layout; }
    //! Inverts the axes.
    void setInverted(bool x, bool y);
    bool isInvertedX() const { return m_invertX; }
    bool isInvertedY() const { return m_invertY; }

    //! Shows an empty detector as it is described, in place of a preset; none for an empty layout.
    void setDescribed(const DetectorLayout &layout);
    //! Returns what shows described detectors.
    LayoutView &layoutView() { return m_layoutView; }

    //! Takes raster, means and ellipse of a frame, which the next replot paints.
    void setFrame(const JudgedFrame &frame);
    //! Hides the ellipse and the arrow until the next frame. Returns false if they are hidden already.
    bool hideEllipse();
    void setSigmaCount(int count);
    //! Sets the options; the origin is in mm, in the same coordinates as the means.
    void setEllipseOptions(const EllipseOptions &options);
    void setMeansVisible(bool x, bool y);

    void replot() override;

    //! Makes the colours run from 0 to \a max. Ignored unless \a max is above 0.
    void setColorRange(double max);
    //! Sets the colours. Logarithm and typed range are used for described detectors only.
    void setColorSettings(const ColorSettings &settings);
    const ColorSettings &colorSettings() const { return m_colors; }
    void setSmoothing(bool smoothing);
    //! Sets the symbol of the unit of the values, and whether they are shown with the prefix that suits them.
    void setAmountUnit(const AmountUnit &unit);
    //! Returns what the labels of the colour bar are multiplied by.
    double barFactor() const;
    void setColorBarVisible(bool visible);

    //! Returns the text beside the mouse at a position in the units of the axes: the channel or the cell, and its value.
    QString hoverText(const QPointF &position) const;

private:
    void clearItems();
    void applyAxes();
    void applyColors();
    void applyEllipseOptions();

    // All items belong to the plot.
    Background *m_background;
    BeamRaster *m_raster;
    MeanCurve *m_meanX;
    MeanCurve *m_meanY;
    Ellipse *m_ellipse;
    ChannelHover *m_hover = nullptr;
    LayoutView m_layoutView;
    AmountUnit m_unit{QStringLiteral("C"), false, QString()};
    Units::SiPrefix m_prefix = m_unit.prefix(); //!< of the colour bar, unless a layout is shown

    ProfileLayout m_layout = ProfileLayout::None;
    DetectorGrid m_grid;
    EllipseOptions m_options;
    ColorSettings m_colors;
    double m_colorRange = 1;
    bool m_invertX = false;
    bool m_invertY = false;
};

} // namespace Corvale_Qt
