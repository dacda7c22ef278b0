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

//! The spots of a stream, all of them or those of one layer.
class SpotLayers : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit SpotLayers(MultichannelDeviceModel *model, QObject *parent = nullptr);

    //! Whether the stream has spots: positions and doses.
    bool hasSpots() const;
    //! Goes from all layers to the first, from there on to the last, and back.
    void step(int by);
    //! For a title, for example "Layer 3 of 21" or "All 21 layers".
    QString description() const;
    //! Where the spots' fields lie; the caller, in general the view, owns it.
    Corvale_Qt::SpotMapViewColumnMapper *newColumnMapper() const;
    //! Channel of a field, -1 where there is none.
    int channel(const char *name) const;

Q_SIGNALS:
    void changed();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

private:
    void beginStream();
    void noteLayers(int first, int last);

    MultichannelDeviceModel *const m_model;
    //! Of a beam or energy, and within it: plans count their layers anew in each beam.
    using Layer = std::pair<double, double>;
    Layer layerOf(int row) const;

    int m_beamChannel = -1;
    int m_layerChannel = -1;
    std::set<Layer> m_layers;
    std::optional<Layer> m_layer;
};

} // namespace Monitor
