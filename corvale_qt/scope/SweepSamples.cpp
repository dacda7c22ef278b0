// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/ColumnSeries_p.h"
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/models/RVXSeriesData.h"
#include "corvale_qt/scope/ScopeModel_p.h"
#include "corvale_qt/scope/SweepSamples_p.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <typeinfo>

namespace Corvale_Qt {

void SweepSamples::clear()
{
    m_columns.clear();
    m_points.clear();
}

void SweepSamples::take(const ScopeModel &model, RowRange rows)
{
    const int channels = model.channelCount();
    m_origin = 0.0;
    m_columns.resize(channels + 1);
    m_points.resize(channels + 1);
    QVector<double> &x = m_columns[0];
    x.resize(rows.size());
    model.reader().read(0, rows.first, rows.size(), x.data());
    m_xVersion = newXVersion();
    m_xRises = true;
    for (int i = 1; i < x.size(); ++i)
        m_xRises = m_xRises && x[i - 1] < x[i];
    for (int channel = 1; channel <= channels; ++channel)
        takeChannel(model, rows, channel);
    m_unitName = model.unitName();
    m_unitScale = model.unitScale();
}

void SweepSamples::setOrigin(int row)
{
    if (row < 1 || row > size())
        return;
    const double origin = m_columns[0][row - 1];
    m_origin = origin;
    for (double &x : m_columns[0])
        x -= origin;
    for (QVector<QPointF> &points : m_points) {
        for (QPointF &point : points)
            point.rx() -= origin;
    }
    m_xVersion = newXVersion();
}

void SweepSamples::takeChannel(const ScopeModel &model, RowRange rows, int channel)
{
    QVector<double> &values = m_columns[channel];
    QVector<QPointF> &points = m_points[channel];
    values.resize(0); // keeps its memory
    points.resize(0);
    if (!model.isShown(channel))
        return;
    values.resize(rows.size());
    model.reader().read(channel, rows.first, rows.size(), values.data());
    const std::unique_ptr<QwtSeriesData<QPointF>> series(
        model.plot()->seriesData(channel, rows.first, rows.last));
    const QwtSeriesData<QPointF> *const given = series.get();
    if (!given || typeid(*given) == typeid(RVXSeriesData))
        return;
    // A series of a class that the host defines may give other points than the cells of the model.
    points.reserve(int(series->size()));
    for (size_t i = 0; i < series->size(); ++i)
        points.append(series->sample(i));
}

bool SweepSamples::hasUnitOf(const ScopeModel &model) const
{
    return m_unitName == model.unitName() && m_unitScale == model.unitScale();
}

QwtSeriesData<QPointF> *SweepSamples::series(int channel) const
{
    if (!has(channel, 1, 1))
        return nullptr;
    if (!m_points[channel].isEmpty())
        return new QwtPointSeriesData(m_points[channel]);
    return new ColumnSeries(*this, channel, size());
}

bool SweepSamples::has(int column, int firstRow, int count) const
{
    return column >= 0 && column < m_columns.size() && firstRow >= 1 && count >= 0
        && count <= m_columns[column].size() - firstRow + 1;
}

void SweepSamples::read(int column, int firstRow, int count, double *out) const
{
    if (has(column, firstRow, count))
        std::copy_n(m_columns[column].data() + firstRow - 1, count, out);
    else
        std::fill_n(out, std::max(count, 0), std::numeric_limits<double>::quiet_NaN());
}

bool SweepSamples::columnSpans(int column, int firstRow, int count, RingSpans &spans) const
{
    if (!has(column, firstRow, count))
        return false;
    spans = RingSpans();
    spans.piece[0] = m_columns[column].data() + firstRow - 1;
    spans.size[0] = count;
    spans.ringSize = size();
    return true;
}

} // namespace Corvale_Qt
