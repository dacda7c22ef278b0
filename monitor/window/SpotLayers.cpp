// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/SpotLayers.h"

#include "monitor/core/Text.h"
#include "monitor/model/MultichannelDeviceModel.h"
#include <corvale_qt/beam/spots/SpotMapView.h>
#include <corvale_qt/beam/spots/SpotMapViewColumnMapper.h>

#include <cmath>

namespace Monitor {

namespace {

//! Maps the fields of a spot to the columns that have their names.
class StreamColumns : public Corvale_Qt::SpotMapViewColumnMapper
{
public:
    StreamColumns(int x, int y, int dose, int sigma)
        : m_columns{0, sigma, x, y, dose}
    {
    }
    int mapColumnToSource(Corvale_Qt::SpotMapView::MapColumn column) const override
    {
        return m_columns[column];
    }

private:
    int m_columns[5];
};

} // namespace

SpotLayers::SpotLayers(MultichannelDeviceModel *model, QObject *parent)
    : QSortFilterProxyModel(parent)
    , m_model(model)
{
    // These connections come before those of the base class, so that it filters rows whose layers are known.
    connect(model, &QAbstractItemModel::modelReset, this, &SpotLayers::beginStream);
    connect(model,
            &QAbstractItemModel::rowsInserted,
            this,
            [this](const QModelIndex &, int first, int last) {
                noteLayers(first, last);
            });
    setSourceModel(model);
    beginStream();
}

int SpotLayers::channel(const char *name) const
{
    return m_model->header().indexOf(QLatin1String(name));
}

bool SpotLayers::hasSpots() const
{
    return m_model->header().kind == StreamKind::Spots && channel("x") >= 0 && channel("y") >= 0
        && channel("mu") >= 0 && channel("sigma_x") >= 0;
}

Corvale_Qt::SpotMapViewColumnMapper *SpotLayers::newColumnMapper() const
{
    return new StreamColumns(channel("x") + 1,
                             channel("y") + 1,
                             channel("mu") + 1,
                             channel("sigma_x") + 1);
}

Corvale_Qt::SpotMapViewColumnMapper *SpotLayers::newPlannedMapper() const
{
    const int dose = channel("mu_planned") >= 0 ? channel("mu_planned") : channel("mu");
    return new StreamColumns(channel("x_planned") + 1,
                             channel("y_planned") + 1,
                             dose + 1,
                             channel("sigma_x") + 1);
}

void SpotLayers::show(const std::optional<Layer> &layer)
{
    if (layer == m_layer)
        return;
    m_layer = layer;
    invalidateFilter();
    Q_EMIT changed();
}

void SpotLayers::beginStream()
{
    m_beamChannel = channel("beam");
    m_layerChannel = channel("layer");
    m_layers.clear();
    m_layer.reset();
    Q_EMIT changed();
}

SpotLayers::Layer SpotLayers::layerOf(int row) const
{
    // A set cannot order NaN.
    const auto number = [&](int channel) {
        const double value = channel < 0 ? 0.0 : m_model->receivedValue(row, channel);
        return std::isnan(value) ? -1.0 : value;
    };
    return {number(m_beamChannel), number(m_layerChannel)};
}

void SpotLayers::noteLayers(int first, int last)
{
    if (m_layerChannel < 0 || !hasSpots())
        return;
    const std::size_t before = m_layers.size();
    for (int row = first; row <= last; ++row)
        m_layers.insert(layerOf(row));
    if (m_layers.size() != before)
        Q_EMIT changed();
}

void SpotLayers::step(int by)
{
    if (m_layers.size() < 2)
        return;
    // Place 0 means all layers.
    const int places = int(m_layers.size()) + 1;
    int place = m_layer ? 1 + int(std::distance(m_layers.begin(), m_layers.find(*m_layer))) : 0;
    place = ((place + by) % places + places) % places;
    if (place == 0)
        m_layer.reset();
    else
        m_layer = *std::next(m_layers.begin(), place - 1);
    invalidateFilter();
    Q_EMIT changed();
}

QString SpotLayers::description() const
{
    if (m_layers.empty())
        return tr("Spots");
    if (!m_layer)
        return Text::counted("All %n layer(s)", nullptr, qint64(m_layers.size()));
    const int place = 1 + int(std::distance(m_layers.begin(), m_layers.find(*m_layer)));
    return tr("Layer %1 of %2").arg(place).arg(m_layers.size());
}

bool SpotLayers::filterAcceptsRow(int sourceRow, const QModelIndex &) const
{
    if (sourceRow == 0 || !hasSpots())
        return false;
    return !m_layer || layerOf(sourceRow) == *m_layer;
}

} // namespace Monitor
