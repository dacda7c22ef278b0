// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the position error plot.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/beam/spots/HighlightRecentDot_p.h"
#include "corvale_qt/models/StructureWatcher_p.h"
#include "corvale_qt/beam/spots/PositionErrorList_p.h"
#include "corvale_qt/beam/spots/RVXPositionErrorPlot.h"

#include "ui_RVXPositionErrorPlot.h"

#include <qwt_plot_grid.h>
#include <qwt_plot_shapeitem.h>

namespace Corvale_Qt {

class RVXPositionErrorPlotPrivate
{
public:
    using PositionErrorSpot = RVXPositionErrorPlot::PositionErrorSpot;

    explicit RVXPositionErrorPlotPrivate(RVXPositionErrorPlot *view);

    void setUpPlot();
    void setUpFonts();
    //! Wide enough for their numbers, in whatever font.
    void fitFields();
    void showTolerance();
    void setEnergy(const QString &energy);
    void setMeanError(const QString &x, const QString &y);
    void setErrorMap(const QVector<PositionErrorSpot> &spots);

    PositionErrorSpot dataForRow(const QModelIndex &parent, int row) const;
    QVector<PositionErrorSpot> dataForRows(const QModelIndex &parent, int first, int last) const;
    void loadModel();
    void spotsChanged();
    //! Hands the spots to the curve, if they changed since the last time.
    void plot();
    QPointF pixelOf(int row) const;

    Ui::RVXPositionErrorPlot ui;
    QwtPlotGrid *grid;
    HighlightRecentDot *dots;
    QwtPlotShapeItem *toleranceFrame;
    PositionErrorList spots;
    float xTolerance = 0.0F;
    float yTolerance = 0.0F;
    bool plotPending = false;
    ModelRearrangements rearrangements;

private:
    RVXPositionErrorPlot *const q_ptr;
    Q_DECLARE_PUBLIC(RVXPositionErrorPlot)
};

} // namespace Corvale_Qt
