// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotMapView.h"

#include "corvale_qt/beam/spots/SpotGeometry_p.h"
#include "corvale_qt/beam/spots/SpotMapView_p.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QToolTip>

namespace Corvale_Qt {

namespace {

//! Half of a ring's dark edge and one pixel for antialiasing.
constexpr int ringMargin = 3;

} // namespace

SpotMapView::SpotMapView(QWidget *parent)
    : QAbstractItemView(parent)
    , d_ptr(std::make_unique<SpotMapViewPrivate>(this))
{
    setAccessibleName(tr("Spot map"));
    describeChart(this, [this] {
        return d_ptr->words();
    });
    qRegisterMetaType<DisplayMode>("Corvale_Qt::SpotMapView::DisplayMode");
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // This calls setupViewport().
    if (QWidget *viewport = makeOpenGlViewport())
        setViewport(viewport);
}

SpotMapView::~SpotMapView()
{
    // QObject::destroyed() would be too late: until then, a view that compares with this one could ask for its
    // spots.
    Q_EMIT aboutToBeDeleted(QPrivateSignal());
}

QRectF SpotMapView::bounds() const
{
    Q_D(const SpotMapView);
    return d->bounds;
}

float SpotMapView::maxDose() const
{
    Q_D(const SpotMapView);
    return d->spots.largestDose();
}

SpotMapView::DisplayMode SpotMapView::displayMode() const
{
    Q_D(const SpotMapView);
    return d->displayMode;
}

void SpotMapView::setBackgroundColor(const QColor &color)
{
    Q_D(SpotMapView);
    d->backgroundColor = color.rgb(); // without its alpha; that of an invalid colour is black
    viewport()->update();
}

void SpotMapView::setSpotColor(const QColor &color)
{
    Q_D(SpotMapView);
    d->spotColor = color.isValid() ? color : QColor(Qt::white);
    viewport()->update();
}

void SpotMapView::setPathColor(const QColor &color)
{
    Q_D(SpotMapView);
    d->pathColor = color.isValid() ? color : QColor(Qt::transparent);
    viewport()->update();
}

void SpotMapView::setColumnMapper(SpotMapViewColumnMapper *mapper)
{
    Q_D(SpotMapView);
    if (mapper && mapper == d->columnMapper.get())
        return;
    d->columnMapper.reset(mapper ? mapper : new SpotMapViewColumnMapper);
    d->loadModel();
}

float SpotMapView::doseScale() const
{
    Q_D(const SpotMapView);
    return d->comparing() ? qMax(maxDose(), d->target->maxDose()) : maxDose();
}

QColor SpotMapView::spotColor() const
{
    Q_D(const SpotMapView);
    return d->spotColor;
}

QColor SpotMapView::backgroundColor() const
{
    Q_D(const SpotMapView);
    return d->backgroundColor;
}

void SpotMapView::setDisplayMode(DisplayMode mode)
{
    Q_D(SpotMapView);
    if (mode < Data || mode > DifferenceOverlay)
        return;
    const bool changed = mode != d->displayMode;
    d->displayMode = mode;
    if (!d->comparing())
        d->comparison.reset();
    viewport()->update();
    const QPointer<SpotMapView> stillThere(this);
    d->resetBounds();
    if (stillThere && changed)
        Q_EMIT displayModeChanged(mode);
}

void SpotMapView::setDisplayMode(int mode)
{
    if (mode >= Data && mode <= DifferenceOverlay)
        setDisplayMode(static_cast<DisplayMode>(mode));
}

void SpotMapView::setDiffTarget(const SpotMapView *target)
{
    Q_D(SpotMapView);
    if (d->targetViewport)
        d->targetViewport->removeEventFilter(this);
    disconnect(d->targetDeletion);
    d->follow(target);
    d->targetChanged();
}

SpotDifferences SpotMapView::differences() const
{
    Q_D(const SpotMapView);
    return d->differences();
}

void SpotMapView::setModel(QAbstractItemModel *model)
{
    Q_D(SpotMapView);
    // This calls reset(), which reads the rows.
    QAbstractItemView::setModel(model);
    d->connectModel();
}

void SpotMapView::setRootIndex(const QModelIndex &index)
{
    Q_D(SpotMapView);
    QAbstractItemView::setRootIndex(index);
    d->loadModel();
}

void SpotMapView::reset()
{
    Q_D(SpotMapView);
    QAbstractItemView::reset();
    d->loadModel();
}

void SpotMapView::rowsInserted(const QModelIndex &parent, int start, int end)
{
    Q_D(SpotMapView);
    QAbstractItemView::rowsInserted(parent, start, end);
    if (parent != rootIndex())
        return;
    d->selected.forget();
    if (start <= d->spots.size())
        d->spots.insert(start, d->dataForRows(parent, start, end));
    if (d->inStep())
        d->spotsChanged();
    else
        d->loadModel();
}

void SpotMapView::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    Q_D(SpotMapView);
    QAbstractItemView::rowsAboutToBeRemoved(parent, start, end);
    if (parent != rootIndex() || start < 0)
        return;
    d->selected.forget();
    d->spots.remove(start, qMin(end + 1, d->spots.size()) - start);
    d->spotsChanged();
}

void SpotMapView::dataChanged(const QModelIndex &topLeft,
                              const QModelIndex &bottomRight,
                              const QVector<int> &roles)
{
    Q_D(SpotMapView);
    QAbstractItemView::dataChanged(topLeft, bottomRight, roles);
    if (topLeft.parent() != rootIndex())
        return;
    bool changed = false;
    const int last = qMin(bottomRight.row(), d->spots.size() - 1);
    for (int row = qMax(topLeft.row(), 0); row <= last; ++row)
        changed |= d->spots.replace(row, d->dataForRow(topLeft.parent(), row));
    if (changed)
        d->spotsChanged();
}

QRect SpotMapView::visualRect(const QModelIndex &index) const
{
    Q_D(const SpotMapView);
    if (!index.isValid() || index.model() != model() || index.parent() != rootIndex())
        return QRect();
    return d->hitTest().spotRect(index.row(), spotReach);
}

void SpotMapView::scrollTo(const QModelIndex &, ScrollHint)
{
    // The whole map is always in view.
}

QModelIndex SpotMapView::indexAt(const QPoint &point) const
{
    Q_D(const SpotMapView);
    const int row = d->hitTest().rowAt(point);
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
    QVector<int> rows;
    if (rect.width() == 1 && rect.height() == 1) {
        // A click or a step of the keyboard, which must not end on another spot at the same place.
        const bool onCurrent = visualRect(currentIndex()).center() == rect.topLeft();
        const int row = onCurrent ? currentIndex().row() : d->hitTest().rowAt(rect.topLeft());
        if (row >= 0)
            rows.append(row);
    } else {
        rows = d->hitTest().rowsIn(rect.normalized());
    }
    if (model() && selectionModel())
        d->selected.select(*selectionModel(), rootIndex(), rows, command);
}

void SpotMapView::selectionChanged(const QItemSelection &selected, const QItemSelection &)
{
    Q_D(SpotMapView);
    d->selected.selectionChanged(selected);
    // The base class would unite the rectangles of thousands of spots, which takes longer than drawing all of the picture.
    viewport()->update();
}

void SpotMapView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QAbstractItemView::currentChanged(current, previous);
    viewport()->update();
}

void SpotMapView::keyPressEvent(QKeyEvent *event)
{
    // Pages are the layers of a plan, which the parent widget steps through.
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
    const SpotHitTest places = d->hitTest();
    const int row = places.rowAt(help->pos());
    if (row < 0)
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(),
                           places.toolTip(row),
                           viewport(),
                           places.spotRect(row, 1.0));
    return true;
}

void SpotMapView::setupViewport(QWidget *viewport)
{
    Q_D(SpotMapView);
    QAbstractItemView::setupViewport(viewport);
    d->picture.setLayer(makeSpotLayer(viewport));
}

void SpotMapView::paintEvent(QPaintEvent *)
{
    Q_D(SpotMapView);
    const QRect rect = d->pictureRect();
    if (!canPaintOn(viewport()) || rect.isEmpty())
        return;
    const QImage shown = d->shownImage();
    QPainter painter(viewport());
    painter.setClipRegion(QRegion(viewport()->rect()) - rect);
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Window));
    painter.setClipRect(rect);
    painter.drawImage(rect, shown, shown.rect());
    d->drawRemarks(painter);
}

void SpotMapView::resizeEvent(QResizeEvent *event)
{
    Q_D(SpotMapView);
    QAbstractItemView::resizeEvent(event);
    d->recreateFBO();
}

bool SpotMapView::eventFilter(QObject *watched, QEvent *event)
{
    Q_D(SpotMapView);
    if (watched == d->targetViewport && event->type() == SpotMapViewPrivate::spotsChangedEvent()) {
        d->announceDifferences();
        if (d->comparing())
            d->followTargetBounds();
    }
    // A repaint of the target without new spots is ignored: otherwise two views that compare with each other
    // would repaint for ever.
    if (watched == d->targetViewport && d->targetIsNews()
        && (event->type() == QEvent::Paint
            || event->type() == SpotMapViewPrivate::spotsChangedEvent()))
        viewport()->update();
    return QAbstractItemView::eventFilter(watched, event);
}

} // namespace Corvale_Qt
