// SPDX-License-Identifier: LGPL-2.1-or-later
#include "SpotChart.h"

#include <QCoreApplication>

using namespace Corvale_Qt;

namespace {

constexpr int side = 600;

QList<QStandardItem *> rowOf(int number)
{
    const SpotMapView::MapSpot spot = mapSpot(number);
    QList<QStandardItem *> row;
    for (float field : {float(number), spot.sigma, spot.x, spot.y, spot.dose}) {
        auto *item = new QStandardItem;
        item->setData(field, Qt::UserRole);
        row.append(item);
    }
    return row;
}

} // namespace

SpotMapView::MapSpot mapSpot(int number)
{
    if (number < 2)
        return {100.0F * float(number), 100.0F * float(number), 10.0F, 1.5F};
    const auto spread = [number](int step, int places) {
        return 0.01F * float(qint64(number) * step % places);
    };
    return {spread(7919, 10000), spread(4729, 9973), float(1 + number % 9), 1.5F};
}

QVector<SpotMapView::MapSpot> mapSpots(int count)
{
    QVector<SpotMapView::MapSpot> spots;
    for (int i = 0; i < count; ++i)
        spots.append(mapSpot(i));
    return spots;
}

SpotChart::SpotChart(int spots)
{
    for (int i = 0; i < spots; ++i)
        m_spots.appendRow(rowOf(i));
    setFrameStyle(QFrame::NoFrame);
    setModel(&m_spots);
    resize(side, side);
    show();
    QCoreApplication::processEvents();
    if (viewport()->size() != QSize(side, side))
        qFatal("The map is not 600 x 600");
}

void SpotChart::addSpot()
{
    m_spots.appendRow(rowOf(m_spots.rowCount()));
}

void SpotChart::moveSpot(int row)
{
    constexpr int xColumn = SpotMapView::XColumn;
    QStandardItem *x = m_spots.item(row % m_spots.rowCount(), xColumn);
    const double place = x->data(Qt::UserRole).toDouble();
    x->setData(place < 50.0 ? place + 0.1 : place - 0.1, Qt::UserRole);
}

void SpotChart::selectBand(const QRect &rect)
{
    setSelection(rect, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void SpotChart::drawAnew()
{
    m_white = !m_white;
    setSpotColor(m_white ? Qt::white : Qt::yellow);
    viewport()->repaint();
}

bool SpotChart::isAsDrawnAnew()
{
    const QImage grown = picture();
    drawAnew();
    drawAnew();
    return grown == picture();
}

QImage SpotChart::picture()
{
    return viewport()->grab().toImage();
}
