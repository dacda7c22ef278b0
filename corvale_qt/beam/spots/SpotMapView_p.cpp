// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotMapView_p.h"

#include "corvale_qt/beam/spots/Logging_p.h"
#include "corvale_qt/beam/spots/SpotGeometry_p.h"

#include <QCoreApplication>
#include <QMetaMethod>
#include <QPainter>

#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

//! Returns the spots that can be compared: those that can be drawn.
QVector<ComparedSpot> comparable(const SpotList &spots)
{
    QVector<ComparedSpot> result;
    result.reserve(spots.drawableCount());
    for (int row = 0; row < spots.size(); ++row) {
        const SpotMapView::MapSpot &spot = spots.at(row);
        if (isDrawable(spot))
            result.append(
                {row, double(spot.x), double(spot.y), double(spot.dose), double(spot.sigma)});
    }
    return result;
}

//! Returns NaN if the cell holds no number in the range of a float: a missing field must not be shown as 0.
float floatAt(const QModelIndex &index)
{
    bool isNumber = false;
    const double value = index.data(Qt::UserRole).toDouble(&isNumber);
    const bool fits = std::abs(value) <= double(std::numeric_limits<float>::max());
    return isNumber && fits ? float(value) : std::numeric_limits<float>::quiet_NaN();
}

} // namespace

SpotMapViewPrivate::SpotMapViewPrivate(SpotMapView *view)
    : columnMapper(std::make_unique<SpotMapViewColumnMapper>())
    , picture(makeShadedLayer())
    , path(makePaintedLayer(makeImageBuffer(QImage::Format_ARGB32_Premultiplied), drawPath))
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
    structureWatcher.watch(q->model(), q, [this] {
        loadModel();
    });
}

void SpotMapViewPrivate::loadModel()
{
    Q_Q(SpotMapView);
    const int rows = q->model() ? q->model()->rowCount(q->rootIndex()) : 0;
    selected.forget();
    spots.assign(dataForRows(q->rootIndex(), 0, rows - 1));
    spotsChanged();
}

SpotMapView::MapSpot SpotMapViewPrivate::dataForRow(const QModelIndex &parent, int row) const
{
    Q_Q(const SpotMapView);
    const auto field = [&](SpotMapView::MapColumn column) {
        return floatAt(q->model()->index(row, columnMapper->mapColumnToSource(column), parent));
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
    announceDifferences();
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
    qCDebug(spotsLog) << "original bounds x" << extent.left() << extent.right();
    qCDebug(spotsLog) << "original bounds y" << extent.top() << extent.bottom();
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

SpotHitTest SpotMapViewPrivate::hitTest() const
{
    return SpotHitTest(spots, bounds, pictureRect());
}

SpotStyle SpotMapViewPrivate::spotStyle() const
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
    const SpotStyle dataStyle = spotStyle();
    if (comparing() && !comparison)
        comparison = std::make_unique<MapComparison>();
    if (comparing() && displayMode == SpotMapView::Difference)
        return comparison->difference(spots, target->d_func()->spots, dataStyle);

    picture.update(spots, dataStyle);
    if (!comparing())
        return picture.image();
    return comparison->overlay(spots,
                               target->d_func()->spots,
                               dataStyle,
                               picture.image(),
                               picture.version());
}

QImage SpotMapViewPrivate::pathImage()
{
    const bool onlyDifference = comparing() && displayMode == SpotMapView::Difference;
    if (pathColor.alpha() == 0 || onlyDifference)
        return QImage();
    SpotStyle pathStyle = spotStyle();
    pathStyle.color = pathColor;
    pathStyle.background = Qt::transparent;
    // A path does not depend on the dose.
    pathStyle.fullScaleDose = 0.0F;
    path.update(spots, pathStyle);
    return path.image();
}

QImage SpotMapViewPrivate::shownImage()
{
    Q_Q(SpotMapView);
    const QImage &map = spotsImage();
    const QImage pathOverMap = pathImage();
    const QItemSelectionModel *selection = q->selectionModel();
    const bool anySelected = selection && selection->hasSelection();
    if (!anySelected && pathOverMap.isNull()) {
        ringed.reset();
        return map;
    }
    const QImage &image =
        ringed.image({map,
                      pathOverMap,
                      spots,
                      bounds,
                      pictureRect().size(),
                      q->viewport()->devicePixelRatioF(),
                      q->palette().color(QPalette::Highlight).lighter(140)},
                     anySelected ? selected.rows(*selection, q->rootIndex()) : RowSpans());
    return image.isNull() ? map : image;
}

QStringList SpotMapViewPrivate::remarks() const
{
    const SpotList *other = comparing() ? &target->d_func()->spots : nullptr;
    QStringList lines;
    if (spots.drawableCount() == 0)
        lines << (other ? SpotMapView::tr("No spots in this map") : SpotMapView::tr("No spots"));
    if (other && other->drawableCount() == 0)
        lines << SpotMapView::tr("No spots in the map to compare with");
    const bool beyond = target && !comparing() && target->d_func()->spots.drawableCount() > 0
        && !bounds.contains(target->d_func()->spots.extent());
    if (beyond)
        lines << SpotMapView::tr("Spots to compare with lie outside of this map");
    const auto addMissing = [&lines](const SpotList &list, const QString &text) {
        if (list.size() > list.drawableCount())
            lines << text.arg(list.size() - list.drawableCount());
    };
    addMissing(spots, SpotMapView::tr("Spots that cannot be drawn: %1"));
    if (other)
        addMissing(*other, SpotMapView::tr("Spots to compare with that cannot be drawn: %1"));
    return lines;
}

ChartWords SpotMapViewPrivate::words() const
{
    const int count = spots.drawableCount();
    QStringList lines = remarks();
    if (count > 0)
        lines.prepend(SpotMapView::tr("Spots: %1").arg(count));
    return {lines.join(QStringLiteral("; ")), QString()};
}

void SpotMapViewPrivate::drawRemarks(QPainter &painter) const
{
    const QString text = remarks().join(QLatin1Char('\n'));
    if (text.isEmpty())
        return;
    constexpr int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
    const QRect room = pictureRect().adjusted(4, 4, -4, -4);
    const QRect place = painter.boundingRect(room, flags, text);
    // White on dark is readable on a map of any colours.
    painter.fillRect(place.adjusted(-2, -1, 2, 1), QColor(0, 0, 0, 160));
    painter.setPen(Qt::white);
    painter.drawText(place, flags, text);
}

void SpotMapViewPrivate::recreateFBO()
{
    Q_Q(SpotMapView);
    picture.reset();
    q->viewport()->update();
}

SpotDifferences SpotMapViewPrivate::differences() const
{
    if (!target)
        return SpotDifferences();
    const SpotList &other = target->d_func()->spots;
    if (!known.differences.computed || known.mapVersion != spots.version()
        || known.targetVersion != other.version()) {
        known = {spots.version(),
                 other.version(),
                 compareSpots(comparable(spots), comparable(other))};
        known.differences.notComparable = spots.size() - spots.drawableCount();
        known.differences.targetNotComparable = other.size() - other.drawableCount();
    }
    return known.differences;
}

void SpotMapViewPrivate::announceDifferences()
{
    Q_Q(SpotMapView);
    static const QMetaMethod signal = QMetaMethod::fromSignal(&SpotMapView::differencesChanged);
    if (q->isSignalConnected(signal))
        differencesNotice.post(q, &SpotMapView::differencesChanged);
    static const QMetaMethod scale = QMetaMethod::fromSignal(&SpotMapView::doseScaleChanged);
    if (q->isSignalConnected(scale))
        doseScaleNotice.post(q, &SpotMapView::doseScaleChanged);
}

void SpotMapViewPrivate::follow(const SpotMapView *newTarget)
{
    Q_Q(SpotMapView);
    target = newTarget;
    known = {};
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
    announceDifferences();
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
