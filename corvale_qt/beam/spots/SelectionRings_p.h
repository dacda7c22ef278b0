// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QColor>
#include <QHash>
#include <QImage>
#include <QPointF>

class QPainter;

namespace Corvale_Qt {

/*! Draws rings around the selected spots of a map, of which there may be thousands. Rings of the same size are one picture, for
    each of a few places within a pixel. */
class SelectionRings
{
public:
    SelectionRings(const QColor &color, double pixelRatio);

    //! Draws a ring; \a radius is in pixels, and a very small one is enlarged.
    void draw(QPainter &painter, const QPointF &centre, double radius);

private:
    QImage picture(const QPointF &centre, double radius, int side) const;

    const QColor m_color;
    const double m_pixelRatio;
    QHash<quint64, QImage> m_pictures;
};

} // namespace Corvale_Qt
