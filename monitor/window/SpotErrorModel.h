// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/SpotErrors.h"

#include <QAbstractTableModel>

namespace Monitor {

//! Position errors as the rows that RVXPositionErrorPlot reads: energy, number, errors and planned places from column 1 on.
class SpotErrorModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    //! Replaces all rows.
    void setSpots(const std::vector<SpotErrors::Spot> &spots);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    std::vector<SpotErrors::Spot> m_spots;
};

} // namespace Monitor
