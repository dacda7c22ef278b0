// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/MapComparison_p.h"
#include "corvale_qt/beam/spots/QueuedNotice_p.h"
#include "corvale_qt/beam/spots/RingedMap_p.h"
#include "corvale_qt/beam/spots/RowSelection_p.h"
#include "corvale_qt/beam/spots/SpotDifferences.h"
#include "corvale_qt/beam/spots/SpotHitTest_p.h"
#include "corvale_qt/beam/spots/SpotList_p.h"
#include "corvale_qt/beam/spots/SpotMapView.h"
#include "corvale_qt/beam/spots/SpotMapViewColumnMapper.h"
#include "corvale_qt/beam/spots/SpotPictureCache_p.h"
#include "corvale_qt/models/StructureWatcher_p.h"
#include "corvale_qt/plot/AccessibleChart_p.h"

#include <QEvent>
#include <QPointer>

namespace Corvale_Qt {

class SpotMapViewPrivate
{
public:
    explicit SpotMapViewPrivate(SpotMapView *view);

    // The spots, in step with the rows of the model.
    void connectModel();
    void loadModel();
    SpotMapView::MapSpot dataForRow(const QModelIndex &parent, int row) const;
    QVector<SpotMapView::MapSpot> dataForRows(const QModelIndex &parent, int first, int last) const;
    //! Returns whether there is one spot for each row. If not, the model has announced other changes than it made.
    bool inStep() const;
    //! Call this after each change of the spots. It repaints, tells the views that compare with this one, and finds
    //! the bounds.
    void spotsChanged();
    //! Finds the bounds, and emits boundsChanged() if they changed. Call it last: a host may delete the view then.
    void resetBounds();
    //! Finds the bounds after a change of the target, and announces them later, when the target has settled.
    void followTargetBounds();

    // The picture.
    QRect pictureRect() const;
    SpotHitTest hitTest() const;
    SpotStyle spotStyle() const;
    bool comparing() const;
    //! Returns whether the target's spots have changed since they were drawn in a comparison.
    bool targetIsNews() const;
    /*! Returns the up-to-date picture of all that is shown. Call it before painting on the viewport begins, since it may make the
        OpenGL context current. */
    QImage shownImage();
    //! Writes on the picture what it cannot show.
    void drawRemarks(QPainter &painter) const;
    void recreateFBO();

    SpotDifferences differences() const;
    //! Emits differencesChanged() and doseScaleChanged() later if anything listens.
    void announceDifferences();

    void follow(const SpotMapView *target);
    void targetChanged();

    //! Returns the type of the event that a view sends to its own viewport when its spots have changed. The event
    //! filters of the views that compare with it see it there even while the view is hidden and does not paint.
    static QEvent::Type spotsChangedEvent();

    SpotList spots;
    std::unique_ptr<SpotMapViewColumnMapper> columnMapper;
    StructureWatcher structureWatcher;
    QRectF bounds;
    RowSelection selected;

    SpotMapView::DisplayMode displayMode = SpotMapView::Data;
    QColor spotColor = Qt::white;
    QColor pathColor = Qt::transparent;
    QColor backgroundColor = Qt::black;
    SpotPictureCache picture;
    SpotPictureCache path;
    RingedMap ringed;

    const SpotMapView *target = nullptr;
    QPointer<QWidget> targetViewport;
    QMetaObject::Connection targetDeletion;
    QueuedNotice differencesNotice;
    QueuedNotice doseScaleNotice;
    //! Null while no map is compared.
    std::unique_ptr<MapComparison> comparison;

private:
    //! The differences between two versions of the maps.
    struct KnownDifferences
    {
        quint64 mapVersion = 0;
        quint64 targetVersion = 0;
        SpotDifferences differences; //!< not computed before the first use
    };
    mutable KnownDifferences known;

    //! Returns the picture of the display mode.
    const QImage &spotsImage();
    //! Returns the picture of the path, which lies over the spots; null if no path is shown.
    QImage pathImage();
    //! Computes the bounds, and returns whether they changed.
    bool findBounds();
    //! Returns the lines that drawRemarks() writes.
    QStringList remarks() const;
    //! Returns what a screen reader says of the map.
    ChartWords words() const;

    SpotMapView *const q_ptr;
    Q_DECLARE_PUBLIC(SpotMapView)
};

} // namespace Corvale_Qt
