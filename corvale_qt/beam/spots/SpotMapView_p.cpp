// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotGeometry_p.h"
#include "corvale_qt/beam/spots/SpotMapView_p.h"

#include <QCoreApplication>
#include <QDebug>

#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

//! NaN for what is no number, or none of single precision: nothing shall be shown as if it were 0.
float numberAt(const QModelIndex &index)
{
    bool isNumber = false;
    const double value = index.data(Qt::UserRole).toDouble(&isNumber);
    const bool fits = std::abs(value) <= double(std::numeric_limits<float>::max());
    return isNumber && fits ? float(value) : std::numeric_limits<float>::quiet_NaN();
}

} // namespace

SpotMapViewPrivate::SpotMapViewPrivate(SpotMapView *view)
    : columnMapper(std::make_unique<SpotMapViewColumnMapper>())
    , picture(makeImageStore(), drawSpots)
    , path(makeImageStore(QImage::Format_ARGB32_Premultiplied), drawPath)
    , q_ptr(view)
{
}

QEvent::Type SpotMapViewPrivate::spotsChangedEvent()
{
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

void SpotMapViewPrivate::connectModel()
{
    Q_Q(SpotMapView);
    rearrangements.watch(q->model(), q, [this] {
        loadModel();
    });
}

void SpotMapViewPrivate::loadModel()
{
    Q_Q(SpotMapView);
    const int rows = q->model() ? q->model()->rowCount(q->rootIndex()) : 0;
    spots.assign(dataForRows(q->rootIndex(), 0, rows - 1));
    spotsChanged();
}

SpotMapView::MapSpot SpotMapViewPrivate::dataForRow(const QModelIndex &parent, int row) const
{
    Q_Q(const SpotMapView);
    const auto field = [&](SpotMapView::MapColumn column) {
        return numberAt(q->model()->index(row, columnMapper->mapColumnToSource(column), parent));
    };
    return {field(SpotMapView::XColumn),
            field(SpotMapView::YColumn),
            field(SpotMapView::DoseColumn),
            field(SpotMapView::SigmaColumn)};
}

QVector<SpotMapView::MapSpot>
SpotMapViewPrivate::dataForRows(const QModelIndex &parent, int first, int last) const
{
    QVector<SpotMapView::MapSpot> rows;
    rows.reserve(qMax(0, last - first + 1));
    for (int row = first; row <= last; ++row)
        rows.append(dataForRow(parent, row));
    return rows;
}

bool SpotMapViewPrivate::inStep() const
{
    Q_Q(const SpotMapView);
    return spots.size() == q->model()->rowCount(q->rootIndex());
}

void SpotMapViewPrivate::spotsChanged()
{
    Q_Q(SpotMapView);
    q->viewport()->update();
    QEvent event(spotsChangedEvent());
    QCoreApplication::sendEvent(q->viewport(), &event);
    resetBounds();
}

bool SpotMapViewPrivate::findBounds()
{
    QRectF extent = spots.extent();
    if (comparing())
        extent |= target->d_func()->spots.extent();
    const QRectF square = makeSquare(extent);
    if (square == bounds)
        return false;
    bounds = square;
    qDebug() << "original bounds x" << extent.left() << extent.right();
    qDebug() << "original bounds y" << extent.top() << extent.bottom();
    return true;
}

void SpotMapViewPrivate::resetBounds()
{
    Q_Q(SpotMapView);
    if (findBounds())
        Q_EMIT q->boundsChanged(bounds);
}

void SpotMapViewPrivate::followTargetBounds()
{
    Q_Q(SpotMapView);
    if (!findBounds())
        return;
    QMetaObject::invokeMethod(
        q,
        [q] {
            Q_EMIT q->boundsChanged(q->bounds());
        },
        Qt::QueuedConnection);
}

QRect SpotMapViewPrivate::pictureRect() const
{
    Q_Q(const SpotMapView);
    return Corvale_Qt::pictureRect(q->viewport()->rect(), bounds);
}

SpotScene SpotMapViewPrivate::scene() const
{
    Q_Q(const SpotMapView);
    const double ratio = q->viewport()->devicePixelRatioF();
    const QSizeF size = QSizeF(pictureRect().size()) * ratio;
    return {size.toSize(), ratio, bounds, spots.largestDose(), spotColor, backgroundColor};
}

bool SpotMapViewPrivate::comparing() const
{
    return target && displayMode != SpotMapView::Data;
}

bool SpotMapViewPrivate::targetIsNews() const
{
    return comparing()
        && (!comparison || comparison->targetVersion() != target->d_func()->spots.version());
}

const QImage &SpotMapViewPrivate::spotsImage()
{
    const SpotScene dataScene = scene();
    if (comparing() && !comparison)
        comparison = std::make_unique<MapComparison>();
    if (comparing() && displayMode == SpotMapView::Difference)
        return comparison->difference(spots, target->d_func()->spots, dataScene);

    picture.update(spots, dataScene);
    if (!comparing())
        return picture.image();
    return comparison->overlay(spots,
                               target->d_func()->spots,
                               dataScene,
                               picture.image(),
                               picture.version());
}

QImage SpotMapViewPrivate::pathImage()
{
    const bool onlyDifference = comparing() && displayMode == SpotMapView::Difference;
    if (pathColor.alpha() == 0 || onlyDifference)
        return QImage();
    SpotScene pathScene = scene();
    pathScene.colour = pathColor;
    pathScene.background = Qt::transparent;
    // The dose has no part in it.
    pathScene.fullScaleDose = 0.0F;
    path.update(spots, pathScene);
    return path.image();
}

void SpotMapViewPrivate::recreateFBO()
{
    Q_Q(SpotMapView);
    picture.reset();
    q->viewport()->update();
}

void SpotMapViewPrivate::follow(const SpotMapView *newTarget)
{
    Q_Q(SpotMapView);
    target = newTarget;
    targetViewport = target ? target->viewport() : nullptr;
    if (!target)
        return;
    targetViewport->installEventFilter(q);
    targetDeletion = QObject::connect(target, &SpotMapView::aboutToBeDeleted, q, [this] {
        follow(nullptr);
        targetChanged();
    });
}

void SpotMapViewPrivate::targetChanged()
{
    Q_Q(SpotMapView);
    comparison.reset();
    recreateFBO();
    const QPointer<SpotMapView> stillThere(q);
    if (!target)
        q->setDisplayMode(SpotMapView::Data);
    else
        resetBounds();
    if (stillThere)
        Q_EMIT q->diffTargetChanged(target != nullptr);
}

} // namespace Corvale_Qt
