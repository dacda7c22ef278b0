// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <QSortFilterProxyModel>

#include <optional>
#include <set>

namespace Corvale_Qt {
class SpotMapViewColumnMapper;
} // namespace Corvale_Qt

namespace Monitor {

class MultichannelDeviceModel;

//! The spots of a stream: all of them, or those of one layer.
class SpotLayers : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit SpotLayers(MultichannelDeviceModel *model, QObject *parent = nullptr);

    //! Returns whether the stream has spots with positions, doses and widths.
    bool hasSpots() const;
    //! Moves the selection by \a by places. The places are: all layers, the first to the last layer, and around again.
    void step(int by);
    //! Returns a title, for example "Layer 3 of 21" or "All 21 layers".
    QString description() const;
    //! Returns a new mapper to the columns of the spots' fields; the caller, usually a view, owns it.
    Corvale_Qt::SpotMapViewColumnMapper *newColumnMapper() const;
    //! Returns a new mapper to the columns of the planned places and doses; the caller, usually a view, owns it.
    Corvale_Qt::SpotMapViewColumnMapper *newPlannedMapper() const;
    //! The numbers of a beam and of a layer in it: plans count their layers from 1 in each beam.
    using Layer = std::pair<double, double>;
    //! Returns the layer that is shown; nothing for all layers.
    std::optional<Layer> shownLayer() const { return m_layer; }
    //! Shows a layer, or all.
    void show(const std::optional<Layer> &layer);
    //! Returns the channel of a field, counted from 0; -1 if there is none.
    int channel(const char *name) const;

Q_SIGNALS:
    //! Emitted when description() may have changed.
    void changed();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

private:
    void beginStream();
    void noteLayers(int first, int last);

    MultichannelDeviceModel *const m_model;
    Layer layerOf(int row) const;

    int m_beamChannel = -1;
    int m_layerChannel = -1;
    std::set<Layer> m_layers;
    std::optional<Layer> m_layer;
};

} // namespace Monitor
