// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: what the scope plot view asks of its model.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/models/ChannelLimit_p.h"
#include "corvale_qt/models/PlotColumns_p.h"

#include <QAbstractItemModel>
#include <QBrush>
#include <QPointer>
#include <QString>

namespace Corvale_Qt {

class RVXAbstractPlotDataModel;

namespace Units {
class MeasurementUnit;
} // namespace Units

/*! Both sides of the model that a view shows. Without a model, after the model was deleted, and for a model that is no
    plot model, it has no channels and no rows. */
class ScopeModel
{
public:
    static constexpr int maximumChannels = maxChannels;

    void set(QAbstractItemModel *items);
    //! The numbers' side, or null.
    RVXAbstractPlotDataModel *plot() const { return m_items ? m_plot : nullptr; }
    PlotColumnReader reader() const { return PlotColumnReader(plot()); }

    //! Channels that the model has.
    int allChannels() const;
    //! Channels that are drawn: columns 1 to this.
    int channelCount() const;
    //! The newest sample's row; less than 1 where there is none.
    int lastRow() const;

    bool isShown(int channel) const;
    QString name(int channel) const;
    //! The channel's brush; one of the palette where the model gives none, since the canvas is black.
    QBrush brush(int channel) const;
    //! Symbol of the unit of x; empty where there is none.
    QString xUnitName() const;
    //! Text of a value that is in the unit of x already.
    QString formatX(double x) const;
    //! Symbol of the values' unit; empty where there is none.
    QString unitName() const;
    //! What becomes of 1 in that unit; 1 where there is none.
    double unitScale() const;

    //! The model that is the source of all proxies over it.
    static QAbstractItemModel *innermost(QAbstractItemModel *model);

private:
    QVariant header(int channel, int role) const;

    QPointer<QAbstractItemModel> m_items;
    RVXAbstractPlotDataModel *m_plot = nullptr;
};

} // namespace Corvale_Qt
