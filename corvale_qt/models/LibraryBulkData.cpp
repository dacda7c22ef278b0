// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"

#include <QDebug>

#include <algorithm>

namespace Corvale_Qt {

QDebug operator<<(QDebug debug, const RingSpans &spans)
{
    const QDebugStateSaver saver(debug);
    return debug.nospace() << "RingSpans(" << spans.size[0] << " + " << spans.size[1] << " of "
                           << spans.ringSize << " numbers, value = " << spans.factor
                           << " * number - " << spans.zero << ')';
}

LibraryBulkData::LibraryBulkData()
{
    m_columns = this;
}

LibraryBulkData::~LibraryBulkData() = default;

bool LibraryBulkData::columnSpans(int, int, int, RingSpans &) const
{
    return false;
}

bool LibraryBulkData::spans(int column, int firstRow, int count, Spans &spans) const
{
    RingSpans own;
    if (!columnSpans(column, firstRow, count, own))
        return false;
    spans = static_cast<const Spans &>(own);
    return true;
}

bool LibraryBulkData::appendText(QByteArray &, int, int) const
{
    return false;
}

qint64 LibraryBulkData::droppedRows(int) const
{
    return -1;
}

const LibraryBulkData *LibraryBulkData::of(const RVXAbstractPlotDataModel *model)
{
    const RVXBulkPlotData *const bulk = RVXBulkPlotData::of(model);
    const LibraryBulkData *const own = bulk ? bulk->m_columns : nullptr;
    return own && own->vouchedType() == typeid(*model) ? own : nullptr;
}

PlotDataReader::PlotDataReader(const RVXAbstractPlotDataModel *model)
    : PlotDataReader(ofBulk(RVXBulkPlotData::of(model)))
{
    m_object = dynamic_cast<const QObject *>(model);
    m_isGuarded = !m_object.isNull();
    m_model = model;
}

PlotDataReader PlotDataReader::ofBulk(const RVXBulkPlotData *bulk)
{
    PlotDataReader reader;
    reader.m_bulk = bulk;
    reader.m_own = bulk ? bulk->m_columns : nullptr;
    return reader;
}

void PlotDataReader::read(int column, int firstRow, int count, double *out) const
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

bool PlotDataReader::spans(int column, int firstRow, int count, RingSpans &spans) const
{
    if (!isBulk())
        return false;
    return m_own ? m_own->columnSpans(column, firstRow, count, spans)
                 : hostSpans(column, firstRow, count, spans);
}

//! Asks a host's model. Spans that do not fit what was asked for are not used, since they would be read beyond their end.
bool PlotDataReader::hostSpans(int column, int firstRow, int count, RingSpans &spans) const
{
    spans = RingSpans();
    const auto isWhole = [&spans](int i) {
        return spans.size[i] == 0 || (spans.size[i] > 0 && spans.piece[i]);
    };
    return m_bulk->spans(column, firstRow, count, spans) && spans.count() == count && isWhole(0)
        && isWhole(1);
}

} // namespace Corvale_Qt
