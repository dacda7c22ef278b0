// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"

#include <QDebug>

#include <algorithm>

namespace Corvale_Qt {

QDebug operator<<(QDebug debug, const ColumnSpans &spans)
{
    const QDebugStateSaver saver(debug);
    return debug.nospace() << "ColumnSpans(" << spans.size[0] << " + " << spans.size[1] << " of "
                           << spans.ringSize << " numbers, value = " << spans.factor
                           << " * number - " << spans.zero << ')';
}

PlotColumns::PlotColumns()
{
    m_columns = this;
}

PlotColumns::~PlotColumns() = default;

bool PlotColumns::columnSpans(int, int, int, ColumnSpans &) const
{
    return false;
}

bool PlotColumns::spans(int column, int firstRow, int count, Spans &spans) const
{
    ColumnSpans own;
    if (!columnSpans(column, firstRow, count, own))
        return false;
    spans = static_cast<const Spans &>(own);
    return true;
}

bool PlotColumns::appendText(QByteArray &, int, int) const
{
    return false;
}

qint64 PlotColumns::droppedRows(int) const
{
    return -1;
}

const PlotColumns *PlotColumns::of(const RVXAbstractPlotDataModel *model)
{
    const RVXBulkPlotData *const bulk = RVXBulkPlotData::of(model);
    const PlotColumns *const own = bulk ? bulk->m_columns : nullptr;
    return own && own->vouchedType() == typeid(*model) ? own : nullptr;
}

PlotColumnReader::PlotColumnReader(const RVXAbstractPlotDataModel *model)
    : PlotColumnReader(ofBulk(RVXBulkPlotData::of(model)))
{
    m_object = dynamic_cast<const QObject *>(model);
    m_isGuarded = !m_object.isNull();
    m_model = model;
}

PlotColumnReader PlotColumnReader::ofBulk(const RVXBulkPlotData *bulk)
{
    PlotColumnReader reader;
    reader.m_bulk = bulk;
    reader.m_own = bulk ? bulk->m_columns : nullptr;
    return reader;
}

void PlotColumnReader::read(int column, int firstRow, int count, double *out) const
{
    if (isBulk()) {
        m_bulk->read(column, firstRow, count, out);
    } else if (!m_model || isGone()) {
        std::fill_n(out, std::max(count, 0), 0.0);
    } else {
        for (int i = 0; i < count; ++i)
            out[i] = m_model->doubleData(firstRow + i, column);
    }
}

bool PlotColumnReader::spans(int column, int firstRow, int count, ColumnSpans &spans) const
{
    if (!isBulk())
        return false;
    return m_own ? m_own->columnSpans(column, firstRow, count, spans)
                 : hostSpans(column, firstRow, count, spans);
}

//! Asks a host's model. Spans that do not fit what was asked for are not used, since they would be read beyond their end.
bool PlotColumnReader::hostSpans(int column, int firstRow, int count, ColumnSpans &spans) const
{
    spans = ColumnSpans();
    const auto isWhole = [&spans](int i) {
        return spans.size[i] == 0 || (spans.size[i] > 0 && spans.piece[i]);
    };
    return m_bulk->spans(column, firstRow, count, spans) && spans.count() == count && isWhole(0)
        && isWhole(1);
}

} // namespace Corvale_Qt
