// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotMapViewColumnMapper.h"

namespace Corvale_Qt {

SpotMapViewColumnMapper::SpotMapViewColumnMapper() = default;
SpotMapViewColumnMapper::SpotMapViewColumnMapper(const SpotMapViewColumnMapper &) = default;
SpotMapViewColumnMapper &
SpotMapViewColumnMapper::operator=(const SpotMapViewColumnMapper &) = default;
SpotMapViewColumnMapper::~SpotMapViewColumnMapper() = default;

int SpotMapViewColumnMapper::mapColumnToSource(SpotMapView::MapColumn column) const
{
    return column;
}

} // namespace Corvale_Qt
