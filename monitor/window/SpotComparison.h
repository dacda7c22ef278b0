// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/model/MultichannelDeviceModel.h"
#include "monitor/session/SpotPlan.h"
#include "monitor/window/SpotErrorModel.h"
#include "monitor/window/SpotLayers.h"

#include <QTimer>
#include <QWidget>

class QLabel;

namespace Corvale_Qt {
class RVXPositionErrorPlot;
class SpotMapView;
class SpotMapWidget;
} // namespace Corvale_Qt

namespace Monitor {

/*! The page of position errors: measured against planned spots, as dots with a tolerance, and in numbers. It gives the spot map
    the planned spots to compare with. The planned spots come from a list, or from columns of the stream itself.

    The comparison follows the model at most five times a second. */
class SpotComparison : public QWidget
{
    Q_OBJECT

public:
    //! \a measured, \a layers and \a map must outlive the page.
    SpotComparison(const SpotPlan &plan,
                   MultichannelDeviceModel *measured,
                   SpotLayers *layers,
                   Corvale_Qt::SpotMapWidget *map,
                   QWidget *parent = nullptr);

    //! Returns whether the stream has spots to compare with planned ones.
    bool isPresent() const;
    //! Returns one line about missing and extra spots and doses; empty if nothing is compared.
    QString differences() const { return isPresent() ? m_differences : QString(); }

Q_SIGNALS:
    //! Emitted when differences() has changed.
    void changed();

private:
    void beginStream();
    void followLayer();
    void refresh();
    SpotRows measuredRows() const;

    const SpotPlan m_plan;
    MultichannelDeviceModel *const m_measured;
    SpotLayers *const m_layers;
    Corvale_Qt::SpotMapWidget *const m_map;
    MultichannelDeviceModel m_planned; //!< the list of planned spots
    SpotLayers m_plannedLayers{&m_planned};
    Corvale_Qt::SpotMapView *const m_target; //!< never shown; the map compares with it
    SpotErrorModel m_errors;
    Corvale_Qt::RVXPositionErrorPlot *const m_plot;
    QLabel *const m_numbers;
    QString m_differences;
    QTimer m_refresh;
};

} // namespace Monitor
