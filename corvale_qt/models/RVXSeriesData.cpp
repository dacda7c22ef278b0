// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXSeriesData.h"

#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/models/RVXBulkPlotData.h"
#include "corvale_qt/models/SeriesSource_p.h"

#include <QAbstractItemModel>

#include <algorithm>

namespace Corvale_Qt {

RVXSeriesData::RVXSeriesData(const RVXAbstractPlotDataModel &model,
                             int column,
                             int startRow,
                             int endRow)
    : m_model(&model)
    , m_column(column)
    , m_startRow(startRow)
    , m_endRow(endRow)
    , m_items(dynamic_cast<const QAbstractItemModel *>(&model))
    , m_bulk(RVXBulkPlotData::of(&model))
{
}

RVXSeriesData::RVXSeriesData(const RVXSeriesData &other) = default;
RVXSeriesData::~RVXSeriesData() = default;

size_t RVXSeriesData::size() const
{
    const int rows = m_items ? m_items->rowCount() : 0;
    const bool endsInside = m_startRow <= m_endRow && m_endRow < rows;
    return size_t(std::max(endsInside ? m_endRow - m_startRow + 1 : rows - m_startRow, 0));
}

QPointF RVXSeriesData::sample(size_t i) const
{
    const int row = int(i) + m_startRow;
    return QPointF(m_model->doubleData(row, 0), m_model->doubleData(row, m_column) / m_scale);
}

QRectF RVXSeriesData::boundingRect() const
{
    if (!d_boundingRect.isValid()) {
        const size_t count = size();
        if (count > 0)
            d_boundingRect = boundsOf(*this, int(count));
    }
    return d_boundingRect;
}

void RVXSeriesData::setScale(double scale)
{
    if (!(scale > 0.0))
        return;
    m_scale = scale;
    d_boundingRect = QRectF(0.0, 0.0, -1.0, -1.0);
}

const RVXAbstractPlotDataModel *RVXSeriesData::model() const
{
    return m_model;
}

int RVXSeriesData::column() const
{
    return m_column;
}

int RVXSeriesData::startRow() const
{
    return m_startRow;
}

double RVXSeriesData::scale() const
{
    return m_scale;
}

} // namespace Corvale_Qt
