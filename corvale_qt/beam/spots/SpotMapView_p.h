// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the spot map's own classes.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/beam/spots/SpotPictureCache_p.h"
#include "corvale_qt/beam/spots/MapComparison_p.h"
#include "corvale_qt/models/StructureWatcher_p.h"
#include "corvale_qt/beam/spots/SpotList_p.h"
#include "corvale_qt/beam/spots/SpotMapView.h"
#include "corvale_qt/beam/spots/SpotMapViewColumnMapper.h"

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
    //! Whether there is one spot for each row; a model that announces something else is read anew.
    bool inStep() const;
    /*! What follows from any change of the spots: bounds, a repaint, word to the views that compare with
        this one. */
    void spotsChanged();
    //! Tells of new bounds; last, since a host may do anything when it hears of them.
    void resetBounds();
    //! Makes room for the spots of the target, which have changed, and tells of it later: the target is not done yet.
    void followTargetBounds();

    // The picture.
    QRect pictureRect() const;
    SpotScene scene() const;
    bool comparing() const;
    bool targetIsNews() const;
    /*! Brings up to date, and gives, what the display mode shows; before anything is painted on the
        viewport. */
    const QImage &spotsImage();
    //! Lies over the spots; null where there is no path to show.
    QImage pathImage();
    void drawSelection(QPainter &painter) const;
    //! Says in words what the picture does not show.
    void drawRemarks(QPainter &painter) const;
    void recreateFBO();

    void follow(const SpotMapView *target);
    void targetChanged();

    // Between the map and the viewport.
    QPointF pixelOf(const SpotMapView::MapSpot &spot) const;
    double pixelsPerUnit() const;
    QRect spotRect(int row, double sigmas) const;
    int rowAt(const QPoint &point) const;
    QString toolTip(int row) const;

    //! Sent to a view's own viewport, where the event filters of the views that compare with it see it even
    //! while the view is hidden and paints nothing.
    static QEvent::Type spotsChangedEvent();

    SpotList spots;
    std::unique_ptr<SpotMapViewColumnMapper> columnMapper;
    ModelRearrangements rearrangements;
    QRectF bounds;

    SpotMapView::DisplayMode displayMode = SpotMapView::Data;
    QColor spotColor = Qt::white;
    QColor pathColor = Qt::transparent;
    QColor backgroundColor = Qt::black;
    KeptPicture picture;
    KeptPicture path;

    const SpotMapView *target = nullptr;
    QPointer<QWidget> targetViewport;
    QMetaObject::Connection targetDeletion;
    //! While comparing.
    std::unique_ptr<MapComparison> comparison;

private:
    //! False where they are what they were.
    bool findBounds();
    QStringList remarks() const;

    SpotMapView *const q_ptr;
    Q_DECLARE_PUBLIC(SpotMapView)
};

} // namespace Corvale_Qt
