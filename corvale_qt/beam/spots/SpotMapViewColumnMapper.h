// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/beam/spots/SpotMapView.h"

namespace Corvale_Qt {

/*! Tells a spot map in which column of its model a field of a spot lies. This one takes the logical
    column's own number; derive from it for a model with another order.

    \code
    class PlanColumns : public SpotMapViewColumnMapper
    {
    public:
        int mapColumnToSource(SpotMapView::MapColumn column) const override;
    };
    view->setColumnMapper(new PlanColumns);
    \endcode */
class CORVALE_QT_EXPORT SpotMapViewColumnMapper
{
public:
    SpotMapViewColumnMapper();
    SpotMapViewColumnMapper(const SpotMapViewColumnMapper &other);
    SpotMapViewColumnMapper &operator=(const SpotMapViewColumnMapper &other);
    virtual ~SpotMapViewColumnMapper();

    //! The model's column for a logical one.
    virtual int mapColumnToSource(SpotMapView::MapColumn column) const;
};

} // namespace Corvale_Qt
