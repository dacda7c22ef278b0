// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotGeometry_p.h"
#include "corvale_qt/beam/spots/SpotHitTest_p.h"

namespace Corvale_Qt {

struct SpotHitTest::MapPart
{
    QPointF first; //!< the corner with the smallest x and y; beyond the last one in an empty part
    QPointF last;

    bool contains(const SpotMapView::MapSpot &spot) const
    {
        return spot.x >= first.x() && spot.x <= last.x() && spot.y >= first.y()
            && spot.y <= last.y();
    }
};

SpotHitTest::SpotHitTest(const SpotList &spots, const QRectF &bounds, const QRect &picture)
    : m_spots(spots)
    , m_bounds(bounds)
    , m_picture(picture)
{
}

QPointF SpotHitTest::pixelOf(int row) const
{
    const SpotMapView::MapSpot &spot = m_spots.at(row);
    const QPointF unit = toUnitSquare(m_bounds, QPointF(spot.x, spot.y));
    return m_picture.topLeft()
        + QPointF(unit.x() * m_picture.width(), unit.y() * m_picture.height());
}

double SpotHitTest::radiusOf(int row) const
{
    return m_spots.at(row).sigma * pixelsPerUnit();
}

double SpotHitTest::pixelsPerUnit() const
{
    return m_picture.width() / m_bounds.width();
}

QRect SpotHitTest::spotRect(int row, double sigmas) const
{
    if (row < 0 || row >= m_spots.size() || !isDrawable(m_spots.at(row)) || m_bounds.isEmpty())
        return QRect();
    const double side = 2.0 * sigmas * radiusOf(row);
    QRectF rect(0.0, 0.0, side, side);
    rect.moveCenter(pixelOf(row));
    return makeSquare(rect.toAlignedRect());
}

int SpotHitTest::rowAt(const QPoint &point) const
{
    if (m_bounds.isEmpty() || !m_picture.contains(point))
        return -1;
    // The point of the map under the middle of the pixel.
    const QPointF inPicture = QPointF(point) + QPointF(0.5, 0.5) - m_picture.topLeft();
    const QPointF unit(inPicture.x() / m_picture.width(), inPicture.y() / m_picture.height());
    return m_spots.nearest(fromUnitSquare(m_bounds, unit));
}

SpotHitTest::MapPart SpotHitTest::partUnder(const QRectF &pixels) const
{
    const auto toMap = [this](const QPointF &pixel) {
        const QPointF inPicture = pixel - m_picture.topLeft();
        return fromUnitSquare(
            m_bounds,
            {inPicture.x() / m_picture.width(), inPicture.y() / m_picture.height()});
    };
    return {toMap(pixels.bottomLeft()), toMap(pixels.topRight())};
}

QVector<int> SpotHitTest::rowsIn(const QRect &rect) const
{
    QVector<int> rows;
    if (m_bounds.isEmpty())
        return rows;
    // Places are rounded to pixels. A few pixels inside of the edges a spot is surely in the rectangle, and outside of them it is not.
    const MapPart wide = partUnder(QRectF(rect).adjusted(-2, -2, 2, 2));
    const MapPart inner = partUnder(QRectF(rect).adjusted(4, 4, -4, -4));
    for (int row = 0; row < m_spots.size(); ++row) {
        const SpotMapView::MapSpot &spot = m_spots.at(row);
        if (wide.contains(spot) && isDrawable(spot)
            && (inner.contains(spot) || rect.contains(spotRect(row, spotReach).center())))
            rows.append(row);
    }
    return rows;
}

QString SpotHitTest::toolTip(int row) const
{
    const SpotMapView::MapSpot &spot = m_spots.at(row);
    // Rows are counted from 1, as table views show them.
    return SpotMapView::tr("Row %1\nX %2\nY %3\nDose %4\nSigma %5")
        .arg(QString::number(row + 1),
             QString::number(double(spot.x)),
             QString::number(double(spot.y)),
             QString::number(double(spot.dose)),
             QString::number(double(spot.sigma)));
}

} // namespace Corvale_Qt
