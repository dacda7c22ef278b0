// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/ChannelLimit_p.h"
#include "corvale_qt/models/LibraryBulkData_p.h"

#include <QAbstractItemModel>
#include <QBrush>
#include <QPen>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariantList>

namespace Corvale_Qt {

class RVXAbstractPlotDataModel;
class ScopeTimeAxis;

/*! The model that a view shows, as an item model and as a plot model. Without a model, after the model was deleted, and
    for a model that is not a plot model, it has no channels and no rows. */
class ScopeModel
{
public:
    static constexpr int maximumChannels = maxChannels;

    //! The model is not owned; it may be null.
    void set(QAbstractItemModel *items);
    //! Returns the numeric interface of the model, or null.
    RVXAbstractPlotDataModel *plot() const { return m_items ? m_plot : nullptr; }
    PlotDataReader reader() const { return PlotDataReader(plot()); }

    //! Returns the number of channels that the model has.
    int allChannels() const;
    //! Returns the number of channels that are drawn, at most maximumChannels. Their columns begin at 1.
    int channelCount() const;
    //! Returns the row of the newest sample; less than 1 without samples.
    int lastRow() const;

    bool isShown(int channel) const;
    QString name(int channel) const;
    //! Returns the names of the channels that are drawn.
    QStringList names() const;
    //! Returns the brush that the model gives for a channel, or else a colour of the palette.
    QBrush brush(int channel) const;
    //! Returns the pen of a channel's curve: the brush, and the dashes that the model gives.
    QPen pen(int channel) const;
    //! Returns the symbol of the unit of x; empty if x has no unit.
    QString xUnitName() const;
    //! Returns how many seconds 1 in the unit of x is: 1 if x has no unit, 0 if x is not a time.
    double secondsPerX() const;
    //! Returns x of the newest sample; 0 without samples.
    double newestX() const;
    //! Formats a value that is already in the unit of x.
    QString formatX(double x) const;
    //! Returns the symbol of the unit of the values; empty if they have no unit.
    QString unitName() const;
    //! Returns what 1 in the base unit is in the unit of the values; 1 if they have no unit.
    double unitScale() const;
    //! Returns the same for the unit of a channel, which may have one of its own.
    double unitScale(int channel) const;
    //! Returns the symbol of the unit of a channel, which may have one of its own; empty for none.
    QString unitName(int channel) const;
    //! Sets whether texts show values with a prefix of their unit.
    void setSiPrefix(bool on) { m_hasSiPrefix = on; }
    bool hasSiPrefix() const { return m_hasSiPrefix; }
    //! Sets whether brushes and pens are chosen for a white ground.
    void setOnWhite(bool onWhite) { m_isOnWhite = onWhite; }
    bool isOnWhite() const { return m_isOnWhite; }
    //! Sets the unit of texts whose quantity has it; empty for the one that suits each.
    void setFixedUnit(const QString &symbol) { m_fixedUnit = symbol; }
    const QString &fixedUnit() const { return m_fixedUnit; }
    //! Returns the text of a reading with a prefix, as the legend and tables of the same readings show it.
    QString readingWithPrefix(int channel, double reading, double noise) const;
    //! Returns the text of a number that was computed from readings of a channel, with a prefix and digits for its error.
    QString numberWithPrefix(int channel, double number, double error) const;
    //! Returns the fits that the device computed for the sample in \a row; empty if it computed none.
    QVariantList deviceFits(int row) const;

    //! Makes texts of x follow a time axis, which must live as long; null for the numbers of the model.
    void setTimeAxis(const ScopeTimeAxis *axis) { m_timeAxis = axis; }
    //! Returns the time axis if it shows something else than the numbers of the model, otherwise null.
    const ScopeTimeAxis *translatedTime() const;

    //! Follows the sources of proxies down to a model that is not a proxy of a single source.
    static QAbstractItemModel *innermost(QAbstractItemModel *model);

private:
    QVariant header(int channel, int role) const;

    QPointer<QAbstractItemModel> m_items;
    RVXAbstractPlotDataModel *m_plot = nullptr;
    bool m_hasSiPrefix = false;
    bool m_isOnWhite = false;
    QString m_fixedUnit;
    const ScopeTimeAxis *m_timeAxis = nullptr;
};

} // namespace Corvale_Qt
