// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/SpotErrorModel.h"

namespace Monitor {

namespace {

constexpr int columns = 7;

} // namespace

void SpotErrorModel::setSpots(const std::vector<SpotErrors::Spot> &spots)
{
    beginResetModel();
    m_spots = spots;
    endResetModel();
}

int SpotErrorModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_spots.size());
}

int SpotErrorModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant SpotErrorModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || (role != Qt::UserRole && role != Qt::DisplayRole))
        return {};
    const SpotErrors::Spot &spot = m_spots[std::size_t(index.row())];
    const double fields[columns] = {double(spot.row + 1),
                                    spot.energy,
                                    spot.number,
                                    spot.xError,
                                    spot.yError,
                                    spot.plannedX,
                                    spot.plannedY};
    return fields[index.column()];
}

} // namespace Monitor
