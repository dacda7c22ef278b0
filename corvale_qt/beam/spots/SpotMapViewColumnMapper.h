// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/beam/spots/SpotMapView.h"

namespace Corvale_Qt {

/*! Tells a spot map which column of its model holds a field of a spot. This class returns the number of the
    logical column. Derive from it for a model with other columns.

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
    //! Copies a mapper; this class has no state.
    SpotMapViewColumnMapper(const SpotMapViewColumnMapper &other);
    //! Assigns a mapper; this class has no state.
    SpotMapViewColumnMapper &operator=(const SpotMapViewColumnMapper &other);
    virtual ~SpotMapViewColumnMapper();

    //! Returns the column of the model, counted from 0, that holds the field of the logical \a column.
    virtual int mapColumnToSource(SpotMapView::MapColumn column) const;
};

} // namespace Corvale_Qt
