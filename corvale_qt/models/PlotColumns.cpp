// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"

#include <QDebug>

#include <algorithm>
#include <typeinfo>
#include <unordered_map>

namespace Corvale_Qt {

namespace {

// Filled while the library is loaded; a function's static, since the order of loading is not ours.
std::unordered_map<std::type_index, PlotColumns::Finder> &finders()
{
    static std::unordered_map<std::type_index, PlotColumns::Finder> known;
    return known;
}

} // namespace

QDebug operator<<(QDebug debug, const ColumnSpans &spans)
{
    const QDebugStateSaver saver(debug);
    return debug.nospace() << "ColumnSpans(" << spans.size[0] << " + " << spans.size[1] << " of "
                           << spans.ringSize << " numbers, value = " << spans.factor
                           << " * number - " << spans.zero << ')';
}

PlotColumns::~PlotColumns() = default;

bool PlotColumns::spans(int, int, int, ColumnSpans &) const
{
    return false;
}

bool PlotColumns::appendText(QByteArray &, int, int) const
{
    return false;
}

quint64 PlotColumns::xVersion() const
{
    return 0;
}

qint64 PlotColumns::droppedRows(int) const
{
    return -1;
}

const PlotColumns *PlotColumns::of(const RVXAbstractPlotDataModel *model)
{
    if (!model)
        return nullptr;
    const auto found = finders().find(typeid(*model));
    return found == finders().end() ? nullptr : found->second(*model);
}

bool PlotColumns::add(std::type_index modelClass, Finder find)
{
    return finders().emplace(modelClass, find).second;
}

PlotColumnReader::PlotColumnReader(const RVXAbstractPlotDataModel *model)
    : m_object(dynamic_cast<const QObject *>(model))
    , m_isGuarded(!m_object.isNull())
    , m_model(model)
    , m_columns(PlotColumns::of(model))
{
}

PlotColumnReader::PlotColumnReader(const PlotColumns *columns)
    : m_columns(columns)
{
}

void PlotColumnReader::read(int column, int firstRow, int count, double *out) const
{
    if (const PlotColumns *const bulk = columns()) {
        bulk->read(column, firstRow, count, out);
    } else if (!m_model || isGone()) {
        std::fill_n(out, std::max(count, 0), 0.0);
    } else {
        for (int i = 0; i < count; ++i)
            out[i] = m_model->doubleData(firstRow + i, column);
    }
}

bool PlotColumnReader::xRises() const
{
    return columns() && m_columns->xRises();
}

bool PlotColumnReader::spans(int column, int firstRow, int count, ColumnSpans &spans) const
{
    return columns() && m_columns->spans(column, firstRow, count, spans);
}

quint64 PlotColumnReader::xVersion() const
{
    return columns() ? m_columns->xVersion() : 0;
}

qint64 PlotColumnReader::droppedRows(int column) const
{
    return columns() ? m_columns->droppedRows(column) : -1;
}

} // namespace Corvale_Qt
