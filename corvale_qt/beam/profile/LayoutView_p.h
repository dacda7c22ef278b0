// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/AmountUnit_p.h"
#include "corvale_qt/beam/profile/CellPicture_p.h"
#include "corvale_qt/beam/profile/ColorMaps_p.h"
#include "corvale_qt/beam/profile/ProjectionItem_p.h"
#include "corvale_qt/detector/DetectorLayout.h"
#include "corvale_qt/units/SiPrefix.h"

#include <QCoreApplication>
#include <QRectF>

class QwtPlot;

namespace Corvale_Qt {

class PlotZoom;

//! How values become colours on a described detector.
struct ColorSettings
{
    ColorMapChoice map = ColorMapChoice::Color;
    bool isLogarithmic = false;
    bool isTyped = false; //!< whether the range below counts, and not that of the frame
    double low = 0;
    double high = 1;

    /*! Returns the range of the colours if the display would otherwise use 0 to \a max. A logarithmic range without a usable
        low end spans three decades. */
    QwtInterval range(double max) const;
};

/*! Shows the frames of a described detector on the plot of the profile display: the cells at their places, axes in their
    units, marks on cells, projections, zoom. */
class LayoutView
{
public:
    //! Adds its items to the plot, which owns them.
    explicit LayoutView(QwtPlot *plot);
    LayoutView(const LayoutView &) = delete;
    LayoutView &operator=(const LayoutView &) = delete;

    //! Shows an empty detector, or nothing for an empty layout.
    void setLayout(const DetectorLayout &layout);
    const DetectorLayout &layout() const { return m_layout; }
    bool isShown() const { return !m_layout.isEmpty(); }
    void setFrame(const JudgedFrame &frame);

    void setColors(const ColorSettings &settings, double max);
    void setSmoothing(bool smoothing) { m_picture->setSmoothing(smoothing); }
    void setProjectionsVisible(bool visible);
    bool areProjectionsVisible() const { return m_projectionsWanted; }
    //! Sets the unit of the values.
    void setUnit(const AmountUnit &unit);
    //! Returns what the labels of the colour bar are multiplied by.
    double barFactor() const { return m_barPrefix.shown(1.0); }
    //! Returns the zoom; null before the first layout.
    PlotZoom *zoom() { return m_zoom; }
    //! Returns the place and the value under the mouse, and what is wrong with the cell.
    QString hoverText(const QPointF &place) const;

private:
    void applyTitles();
    void setBarLogarithmic(bool logarithmic);
    QString cellText(int column, int row) const;

    QwtPlot *m_plot;
    CellPicture *m_picture; // the items belong to the plot
    CellMarks *m_marks;
    ProjectionItem *m_projections;
    PlotZoom *m_zoom = nullptr; // a child of the plot
    bool m_isBarLogarithmic = false;
    DetectorLayout m_layout;
    JudgedFrame m_frame;
    AmountUnit m_unit{QString(), true, QString()};
    Units::SiPrefix m_barPrefix; //!< of the colour bar
    bool m_projectionsWanted = true;

    Q_DECLARE_TR_FUNCTIONS(Corvale_Qt::LayoutView)
};

//! Returns the places of a detector as they are shown: y upwards; square if both axes have one unit and similar lengths.
QRectF homeOf(const DetectorLayout &layout);

} // namespace Corvale_Qt
