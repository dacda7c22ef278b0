// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/RVXPositionErrorPlot.h"

#include "corvale_qt/beam/spots/RVXPositionErrorPlot_p.h"

#include <QEvent>
#include <QPolygonF>

#include <cmath>

namespace Corvale_Qt {

namespace {

//! An axis has a tick every millimetre: more than this could not be drawn in useful time.
constexpr float largestTolerance = 1000.0F;
//! How far from a dot the mouse still finds it, and half the side of its rectangle, in pixels.
constexpr int reach = 6;
constexpr QSize usualSize(480, 440);

bool isTolerance(float tolerance)
{
    return tolerance > 0.0F && tolerance <= largestTolerance;
}

} // namespace

RVXPositionErrorPlot::RVXPositionErrorPlot(QWidget *parent)
    : QAbstractItemView(parent)
    , d_ptr(std::make_unique<RVXPositionErrorPlotPrivate>(this))
{
    setFrameShape(NoFrame);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(QPalette::Window);
}

RVXPositionErrorPlot::~RVXPositionErrorPlot() = default;

void RVXPositionErrorPlot::setSamples(const QPolygonF &samples)
{
    Q_D(RVXPositionErrorPlot);
    d->plotPending = false;
    d->dots->setSamples(samples);
    d->ui.qwtPlot->replot();
}

void RVXPositionErrorPlot::setTolerance(float tx, float ty)
{
    Q_D(RVXPositionErrorPlot);
    if (!isTolerance(tx) || !isTolerance(ty))
        return;
    d->xTolerance = tx;
    d->yTolerance = ty;
    d->showTolerance();
}

void RVXPositionErrorPlot::clearSpotData()
{
    Q_D(RVXPositionErrorPlot);
    d->setErrorMap({});
}

void RVXPositionErrorPlot::setModel(QAbstractItemModel *model)
{
    Q_D(RVXPositionErrorPlot);
    // Comes back through reset(), which reads the rows.
    QAbstractItemView::setModel(model);
    d->rearrangements.watch(this->model(), this, [d] {
        d->loadModel();
    });
}

QSize RVXPositionErrorPlot::minimumSizeHint() const
{
    // A scroll area would let its contents be cut off.
    const QMargins frame(frameWidth(), frameWidth(), frameWidth(), frameWidth());
    return viewport()->minimumSizeHint().grownBy(frame);
}

QSize RVXPositionErrorPlot::sizeHint() const
{
    // Not Qwt's own, which has room for the label of every millimetre.
    return minimumSizeHint().expandedTo(usualSize);
}

void RVXPositionErrorPlot::setRootIndex(const QModelIndex &index)
{
    Q_D(RVXPositionErrorPlot);
    QAbstractItemView::setRootIndex(index);
    d->loadModel();
}

void RVXPositionErrorPlot::reset()
{
    Q_D(RVXPositionErrorPlot);
    QAbstractItemView::reset();
    d->loadModel();
}

void RVXPositionErrorPlot::rowsInserted(const QModelIndex &parent, int start, int end)
{
    Q_D(RVXPositionErrorPlot);
    QAbstractItemView::rowsInserted(parent, start, end);
    if (parent != rootIndex())
        return;
    if (start <= d->spots.size())
        d->spots.insert(start, d->dataForRows(parent, start, end));
    if (d->spots.size() == model()->rowCount(parent))
        d->spotsChanged();
    else
        d->loadModel();
}

void RVXPositionErrorPlot::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    Q_D(RVXPositionErrorPlot);
    QAbstractItemView::rowsAboutToBeRemoved(parent, start, end);
    const int count = qMin(end + 1, d->spots.size()) - start;
    if (parent != rootIndex() || count <= 0)
        return;
    d->spots.remove(start, count);
    d->spotsChanged();
}

void RVXPositionErrorPlot::dataChanged(const QModelIndex &topLeft,
                                       const QModelIndex &bottomRight,
                                       const QVector<int> &roles)
{
    Q_D(RVXPositionErrorPlot);
    QAbstractItemView::dataChanged(topLeft, bottomRight, roles);
    const int last = qMin(bottomRight.row(), d->spots.size() - 1);
    if (topLeft.parent() != rootIndex() || topLeft.row() < 0 || topLeft.row() > last)
        return;
    d->spots.updateErrorSpots(topLeft.row(), d->dataForRows(topLeft.parent(), topLeft.row(), last));
    d->spotsChanged();
}

void RVXPositionErrorPlot::paintEvent(QPaintEvent *event)
{
    Q_D(RVXPositionErrorPlot);
    QAbstractItemView::paintEvent(event);
    d->plot();
}

QRect RVXPositionErrorPlot::visualRect(const QModelIndex &index) const
{
    Q_D(const RVXPositionErrorPlot);
    if (!index.isValid() || index.parent() != rootIndex() || index.row() >= d->spots.size())
        return QRect();
    const QPointF point = d->pixelOf(index.row());
    const QRectF viewportRect = viewport()->rect();
    // Also not where the error is no number.
    if (!viewportRect.contains(point))
        return QRect();
    QRect rect(0, 0, 2 * reach + 1, 2 * reach + 1);
    rect.moveCenter(point.toPoint());
    return rect;
}

QModelIndex RVXPositionErrorPlot::indexAt(const QPoint &point) const
{
    Q_D(const RVXPositionErrorPlot);
    int found = -1;
    double smallest = reach;
    for (int row = 0; row < d->spots.size(); ++row) {
        const QPointF offset = d->pixelOf(row) - point;
        const double distance = std::hypot(offset.x(), offset.y());
        if (distance <= smallest) {
            found = row;
            smallest = distance;
        }
    }
    return found < 0 ? QModelIndex() : model()->index(found, 0, rootIndex());
}

void RVXPositionErrorPlot::scrollTo(const QModelIndex &, ScrollHint)
{
    // All of the plot is always in view.
}

QRegion RVXPositionErrorPlot::visualRegionForSelection(const QItemSelection &selection) const
{
    QRegion region;
    for (const QModelIndex &index : selection.indexes())
        region += visualRect(index);
    return region;
}

bool RVXPositionErrorPlot::isIndexHidden(const QModelIndex &) const
{
    return false;
}

int RVXPositionErrorPlot::horizontalOffset() const
{
    return 0;
}

int RVXPositionErrorPlot::verticalOffset() const
{
    return 0;
}

QModelIndex RVXPositionErrorPlot::moveCursor(CursorAction, Qt::KeyboardModifiers)
{
    return currentIndex();
}

void RVXPositionErrorPlot::setSelection(const QRect &, QItemSelectionModel::SelectionFlags)
{
    // The dots are looked at, not selected.
}

void RVXPositionErrorPlot::changeEvent(QEvent *event)
{
    Q_D(RVXPositionErrorPlot);
    QAbstractItemView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        d->dots->setHighlightColor(palette().color(QPalette::Highlight));
        d->ui.qwtPlot->replot();
    } else if (event->type() == QEvent::FontChange) {
        d->fitFields();
    }
}

} // namespace Corvale_Qt
