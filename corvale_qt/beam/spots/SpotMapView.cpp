// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotMapView.h"

#include "corvale_qt/beam/spots/SpotMapView_p.h"

#include <QPainter>
#include <QPointer>

namespace Corvale_Qt {

SpotMapView::SpotMapView(QWidget *parent)
    : QAbstractItemView(parent)
    , d_ptr(std::make_unique<SpotMapViewPrivate>(this))
{
    qRegisterMetaType<DisplayMode>("Corvale_Qt::SpotMapView::DisplayMode");
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Comes back through setupViewport().
    if (QWidget *viewport = makeOpenGlViewport())
        setViewport(viewport);
}

SpotMapView::~SpotMapView()
{
    // By the time of QObject::destroyed() a view that compares with this one could have asked for spots
    // that are no more.
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
    d->backgroundColor = color.isValid() ? color.rgb() : QColor(Qt::black);
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

void SpotMapView::setModel(QAbstractItemModel *model)
{
    Q_D(SpotMapView);
    // Comes back through reset(), which reads the rows.
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

void SpotMapView::setupViewport(QWidget *viewport)
{
    Q_D(SpotMapView);
    QAbstractItemView::setupViewport(viewport);
    d->picture.setStore(makePictureStore(viewport));
}

void SpotMapView::paintEvent(QPaintEvent *)
{
    Q_D(SpotMapView);
    const QRect rect = d->pictureRect();
    if (!canPaintOn(viewport()) || rect.isEmpty())
        return;
    const QImage &spots = d->spotsImage();
    const QImage path = d->pathImage();
    QPainter painter(viewport());
    painter.setClipRegion(QRegion(viewport()->rect()) - rect);
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Window));
    painter.setClipRect(rect);
    painter.drawImage(rect, spots, spots.rect());
    if (!path.isNull())
        painter.drawImage(rect, path, path.rect());
    d->drawSelection(painter);
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
    if (watched == d->targetViewport && d->comparing()
        && event->type() == SpotMapViewPrivate::spotsChangedEvent())
        d->followTargetBounds();
    // A target that repaints for another reason is no news: two views that compare with each other
    // would repaint for ever.
    if (watched == d->targetViewport && d->targetIsNews()
        && (event->type() == QEvent::Paint
            || event->type() == SpotMapViewPrivate::spotsChangedEvent()))
        viewport()->update();
    return QAbstractItemView::eventFilter(watched, event);
}

} // namespace Corvale_Qt
