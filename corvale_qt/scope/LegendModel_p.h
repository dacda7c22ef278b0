// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/ChannelLimits.h"
#include "corvale_qt/proxies/LatestCells_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"

#include <QAbstractListModel>
#include <QCoreApplication>
#include <QPen>
#include <QPointer>

#include <functional>

namespace Corvale_Qt {

class ScopeModel;

/*! The channels that a scope draws, one in each row: name, check box, line and newest value. Values are read when they are asked
    for; it does not announce them. */
class LegendModel : public QAbstractListModel
{
public:
    //! Roles in addition to Qt's.
    enum Role {
        ValueRole = Qt::UserRole, //!< the newest value as text
        PenRole, //!< the pen of the curve
        LimitRole, //!< how the newest value lies beyond its limits, as text; empty if it lies within them
        LimitColorRole, //!< the colour that goes with it
        WatchedRole, //!< whether the channel has limits
        GroundRole, //!< the colour of the canvas on which the curve is drawn
        AxisRole, //!< an arrow to the right for a channel on the right y axis, otherwise empty
        WideValueRole, //!< a text as wide as the values of the channel usually get
    };

    //! Shows the channels of another model; null for none. The model is not owned.
    void setSource(QAbstractItemModel *source);
    /*! Shows values, axes and limit states as \a view does now; the prefix, the unit and the colours do not follow it later. The
        view may be deleted first. */
    void takeLook(const RVXScopePlotView *view);
    //! Sets whether values have a prefix of their unit.
    void setSiPrefix(bool on);
    //! Sets whether the pens are those of curves on a white canvas.
    void setOnWhite(bool onWhite);
    //! Sets the unit of the values whose quantity has it; empty for the one that suits each.
    void setValueUnit(const QString &symbol);
    //! What tells about the limits of a channel, counted from 1.
    struct Limits
    {
        std::function<bool(int channel)> areSet;
        std::function<LimitState(int channel)> stateOf;
    };
    void setLimits(const Limits &limits);
    //! Sets what tells which y axis a channel, counted from 1, is drawn on.
    void setAxes(const std::function<RVXScopePlotView::ChannelAxis(int channel)> &axisOf);
    //! Announces that a channel, counted from 1, has another limit state.
    void changeLimitState(int channel);
    //! Announces that the names, the lines or the limits of channels may be others.
    void changeAll();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    QString value(int channel) const;
    QString wideValue(int channel) const;
    QString accessibleText(const QString &name, int channel) const;
    LimitState limitState(int channel) const;
    RVXScopePlotView::ChannelAxis axis(int channel) const;

    QPointer<QAbstractItemModel> m_source;
    QVector<QMetaObject::Connection> m_connections;
    Limits m_limits;
    std::function<RVXScopePlotView::ChannelAxis(int channel)> m_axisOf;
    bool m_hasSiPrefix = false;
    bool m_isOnWhite = false;
    mutable LatestPrefixes m_prefixes; // a text depends on the readings before

    Q_DECLARE_TR_FUNCTIONS(Corvale_Qt::LegendModel)
};

} // namespace Corvale_Qt
