// SPDX-License-Identifier: LGPL-2.1-or-later
// What lies over the picture of a spot map, and how it answers to the mouse and the keyboard.
#include "corvale_qt/beam/spots/SpotGeometry_p.h"
#include "corvale_qt/beam/spots/SpotMapView_p.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

namespace Corvale_Qt {

namespace {

//! A ring around a spot is at least this large, in pixels.
constexpr double smallestRing = 3.0;
//! Half of the ring's dark edge and one pixel for antialiasing.
constexpr int ringMargin = 3;

} // namespace

double SpotMapViewPrivate::pixelsPerUnit() const
{
    return pictureRect().width() / bounds.width();
}

QPointF SpotMapViewPrivate::pixelOf(const SpotMapView::MapSpot &spot) const
{
    const QRectF rect = pictureRect();
    const QPointF unit = toUnitSquare(bounds, QPointF(spot.x, spot.y));
    return rect.topLeft() + QPointF(unit.x() * rect.width(), unit.y() * rect.height());
}

QRect SpotMapViewPrivate::spotRect(int row, double sigmas) const
{
    if (row < 0 || row >= spots.size() || !isDrawable(spots.at(row)) || bounds.isEmpty())
        return QRect();
    const double side = 2.0 * sigmas * spots.at(row).sigma * pixelsPerUnit();
    QRectF rect(0.0, 0.0, side, side);
    rect.moveCenter(pixelOf(spots.at(row)));
    return makeSquare(rect.toAlignedRect());
}

int SpotMapViewPrivate::rowAt(const QPoint &point) const
{
    const QRectF rect = pictureRect();
    if (bounds.isEmpty() || !rect.contains(point))
        return -1;
    // The point of the map under the middle of the pixel.
    const QPointF inPicture = QPointF(point) + QPointF(0.5, 0.5) - rect.topLeft();
    const QPointF unit(inPicture.x() / rect.width(), inPicture.y() / rect.height());
    return spots.nearest(fromUnitSquare(bounds, unit));
}

QString SpotMapViewPrivate::toolTip(int row) const
{
    const SpotMapView::MapSpot &spot = spots.at(row);
    // Counted from 1, as tables show it.
    return SpotMapView::tr("Row %1\nX %2\nY %3\nDose %4\nSigma %5")
        .arg(QString::number(row + 1),
             QString::number(double(spot.x)),
             QString::number(double(spot.y)),
             QString::number(double(spot.dose)),
             QString::number(double(spot.sigma)));
}

void SpotMapViewPrivate::drawSelection(QPainter &painter) const
{
    Q_Q(const SpotMapView);
    if (!q->selectionModel() || !q->selectionModel()->hasSelection())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    const QPen edge(Qt::black, 4.0);
    const QPen ring(q->palette().color(QPalette::Highlight).lighter(140), 2.0);
    for (const QItemSelectionRange &range : q->selectionModel()->selection()) {
        for (int row = range.top(); row <= qMin(range.bottom(), spots.size() - 1); ++row) {
            if (!isDrawable(spots.at(row)))
                continue;
            const double radius = qMax(spots.at(row).sigma * pixelsPerUnit(), smallestRing);
            for (const QPen &pen : {edge, ring}) {
                painter.setPen(pen);
                painter.drawEllipse(pixelOf(spots.at(row)), radius, radius);
            }
        }
    }
}

QStringList SpotMapViewPrivate::remarks() const
{
    const SpotList *other = comparing() ? &target->d_func()->spots : nullptr;
    QStringList lines;
    if (spots.drawableCount() == 0)
        lines << (other ? SpotMapView::tr("No spots in this map") : SpotMapView::tr("No spots"));
    if (other && other->drawableCount() == 0)
        lines << SpotMapView::tr("No spots in the map to compare with");
    const auto addMissing = [&lines](const SpotList &list, const QString &text) {
        if (list.size() > list.drawableCount())
            lines << text.arg(list.size() - list.drawableCount());
    };
    addMissing(spots, SpotMapView::tr("Spots that cannot be drawn: %1"));
    if (other)
        addMissing(*other, SpotMapView::tr("Spots to compare with that cannot be drawn: %1"));
    return lines;
}

void SpotMapViewPrivate::drawRemarks(QPainter &painter) const
{
    const QString text = remarks().join(QLatin1Char('\n'));
    if (text.isEmpty())
        return;
    constexpr int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
    const QRect room = pictureRect().adjusted(4, 4, -4, -4);
    const QRect place = painter.boundingRect(room, flags, text);
    // Both colours are its own, since those of the map may be any.
    painter.fillRect(place.adjusted(-2, -1, 2, 1), QColor(0, 0, 0, 160));
    painter.setPen(Qt::white);
    painter.drawText(place, flags, text);
}

QRect SpotMapView::visualRect(const QModelIndex &index) const
{
    Q_D(const SpotMapView);
    if (!index.isValid() || index.model() != model() || index.parent() != rootIndex())
        return QRect();
    return d->spotRect(index.row(), spotReach);
}

void SpotMapView::scrollTo(const QModelIndex &, ScrollHint)
{
    // The whole map is always in view.
}

QModelIndex SpotMapView::indexAt(const QPoint &point) const
{
    Q_D(const SpotMapView);
    const int row = d->rowAt(point);
    return row < 0 ? QModelIndex() : model()->index(row, 0, rootIndex());
}

bool SpotMapView::isIndexHidden(const QModelIndex &) const
{
    return false;
}

QRegion SpotMapView::visualRegionForSelection(const QItemSelection &selection) const
{
    QRegion region;
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            const QRect rect = visualRect(range.model()->index(row, 0, range.parent()));
            if (!rect.isNull())
                region += rect.adjusted(-ringMargin, -ringMargin, ringMargin, ringMargin);
        }
    }
    return region;
}

int SpotMapView::horizontalOffset() const
{
    return 0;
}

int SpotMapView::verticalOffset() const
{
    return 0;
}

QModelIndex SpotMapView::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    if (!model())
        return QModelIndex();
    const int last = model()->rowCount(rootIndex()) - 1;
    int row = currentIndex().row();
    switch (action) {
    case MoveUp:
    case MoveLeft:
    case MovePrevious:
        row = qMax(0, row - 1);
        break;
    case MoveDown:
    case MoveRight:
    case MoveNext:
        row = qMin(row + 1, last);
        break;
    case MoveHome:
        row = 0;
        break;
    case MoveEnd:
        row = last;
        break;
    default:
        break;
    }
    return model()->index(row, 0, rootIndex());
}

void SpotMapView::setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command)
{
    Q_D(SpotMapView);
    QItemSelection selection;
    const auto select = [&](const QModelIndex &index) {
        selection.select(index, index);
    };
    if (rect.width() == 1 && rect.height() == 1) {
        // A click, or a step of the keyboard; the latter must not end on another spot at the same
        // place.
        const bool onCurrent = visualRect(currentIndex()).center() == rect.topLeft();
        select(onCurrent ? currentIndex() : indexAt(rect.topLeft()));
    } else {
        for (int row = 0; row < d->spots.size(); ++row) {
            const QPoint centre = d->spotRect(row, spotReach).center();
            if (isDrawable(d->spots.at(row)) && rect.normalized().contains(centre))
                select(model()->index(row, 0, rootIndex()));
        }
    }
    selectionModel()->select(selection, command);
}

void SpotMapView::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QAbstractItemView::selectionChanged(selected, deselected);
    viewport()->update();
}

void SpotMapView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QAbstractItemView::currentChanged(current, previous);
    viewport()->update();
}

void SpotMapView::keyPressEvent(QKeyEvent *event)
{
    // Pages are the layers of a plan, and those are the business of who holds this view.
    if (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown)
        event->ignore();
    else
        QAbstractItemView::keyPressEvent(event);
}

bool SpotMapView::viewportEvent(QEvent *event)
{
    Q_D(SpotMapView);
    if (event->type() != QEvent::ToolTip)
        return QAbstractItemView::viewportEvent(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const int row = d->rowAt(help->pos());
    if (row < 0)
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), d->toolTip(row), viewport(), d->spotRect(row, 1.0));
    return true;
}

} // namespace Corvale_Qt
