// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/ColumnSeries_p.h"
#include "corvale_qt/models/SeriesSource_p.h"

namespace Corvale_Qt {

ColumnSeries::ColumnSeries(const LibraryBulkData &columns, int column, int rows)
    : m_source{PlotDataReader::ofBulk(&columns), column, 1, 1.0}
    , m_rows(rows)
{
}

size_t ColumnSeries::size() const
{
    return size_t(m_rows);
}

QPointF ColumnSeries::sample(size_t i) const
{
    QPointF point;
    m_source.readX(i, 1, &point.rx());
    m_source.readY(i, 1, &point.ry());
    return point;
}

QRectF ColumnSeries::boundingRect() const
{
    if (!d_boundingRect.isValid() && m_rows > 0)
        d_boundingRect = boundsOf(*this, m_rows);
    return d_boundingRect;
}

void ColumnSeries::setScale(double scale)
{
    if (!(scale > 0.0))
        return;
    m_source.scale = scale;
    d_boundingRect = QRectF(0.0, 0.0, -1.0, -1.0);
}

} // namespace Corvale_Qt
