// SPDX-License-Identifier: LGPL-2.1-or-later
// What an item view is asked about places: scrolling and the little there is of indexes.
#include "corvale_qt/numerics/ClampedInt_p.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_scale_map.h>

#include <QDebug>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

QModelIndex RVXScopePlotView::indexAt(const QPoint &) const
{
    return QModelIndex();
}

QRect RVXScopePlotView::visualRect(const QModelIndex &) const
{
    return QRect();
}

void RVXScopePlotView::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    Q_D(RVXScopePlotView);
    const bool isSample = index.isValid() && index.model() == model() && index.row() >= 1
        && index.row() <= d->model.lastRow();
    if (d->mode != StripMode || !isSample)
        return;
    const double t = model()->data(model()->index(index.row(), 0), Qt::DisplayRole).toDouble();
    const QwtInterval shown = d->plot->axisInterval(QwtPlot::xBottom);
    if (hint == EnsureVisible && t >= shown.minValue() && t <= shown.maxValue())
        return;
    // In units of x, not of the scroll bar, and for every hint where the centre would be: kept on purpose, for the
    // hosts that rely on where this ends.
    horizontalScrollBar()->setValue(clampedToInt(shown.width() * 0.5 + t));
}

QSize RVXScopePlotView::minimumSizeHint() const
{
    Q_D(const RVXScopePlotView);
    const QSize base = QAbstractItemView::minimumSizeHint();
    if (!d) // still being made
        return base;
    const int around = height() - viewport()->height();
    return QSize(base.width(), std::max(base.height(), d->layout->minimumSize().height() + around));
}

void RVXScopePlotView::scrollTo(int)
{
    Q_D(RVXScopePlotView);
    if (!d->plotting)
        RequestReplot();
}

void RVXScopePlotView::scrollContentsBy(int, int)
{
    // The plot is made again for the new value; nothing is moved.
}

int RVXScopePlotView::horizontalOffset() const
{
    Q_D(const RVXScopePlotView);
    return d->mode == StripMode ? horizontalScrollBar()->value() : 0;
}

int RVXScopePlotView::verticalOffset() const
{
    return 0;
}

void RVXScopePlotView::keyboardSearch(const QString &) { }

bool RVXScopePlotView::isIndexHidden(const QModelIndex &) const
{
    return false;
}

QModelIndex RVXScopePlotView::moveCursor(CursorAction, Qt::KeyboardModifiers)
{
    return QModelIndex();
}

bool RVXScopePlotView::edit(const QModelIndex &, EditTrigger, QEvent *)
{
    return false;
}

//! The bars of the selected channels; in the other modes a channel lies all over the canvas.
QRegion RVXScopePlotView::visualRegionForSelection(const QItemSelection &selection) const
{
    Q_D(const RVXScopePlotView);
    const QPoint corner = d->canvas->mapTo(viewport(), QPoint(0, 0));
    const QRect canvas(corner, d->canvas->size());
    QRegion region;
    for (const QItemSelectionRange &range : selection) {
        if (d->mode != HistogramMode) {
            region += canvas;
            continue;
        }
        const QwtScaleMap map = d->plot->canvasMap(QwtPlot::xBottom);
        const int left = int(std::floor(map.transform(range.left() - 0.5)));
        const int right = int(std::ceil(map.transform(range.right() + 0.5)));
        region += QRect(corner.x() + left, corner.y(), right - left, canvas.height());
    }
    return region & canvas;
}

void RVXScopePlotView::setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags)
{
    qDebug() << "RVXScopePlotView::setSelection rect:" << rect;
}

} // namespace Corvale_Qt
