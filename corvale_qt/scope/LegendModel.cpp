// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/ChannelUnit_p.h"
#include "corvale_qt/scope/LegendModel_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QColor>

namespace Corvale_Qt {

namespace {

QString textOf(LimitState state)
{
    switch (state) {
    case LimitState::LowWarning:
        return LegendModel::tr("Low warning");
    case LimitState::HighWarning:
        return LegendModel::tr("High warning");
    case LimitState::LowAlarm:
        return LegendModel::tr("Low alarm");
    case LimitState::HighAlarm:
        return LegendModel::tr("High alarm");
    case LimitState::Normal:
        break;
    }
    return QString();
}

//! Returns the colour of the lines that mark such limits.
QColor colorOf(LimitState state)
{
    return isAlarm(state) ? QColor(255, 80, 70) : QColor(255, 190, 60);
}

} // namespace

void LegendModel::setSource(QAbstractItemModel *source)
{
    beginResetModel();
    for (const QMetaObject::Connection &connection : qAsConst(m_connections))
        disconnect(connection);
    m_connections.clear();
    m_source = source;
    m_prefixes.clear();
    endResetModel();
    if (!source)
        return;
    using Model = QAbstractItemModel;
    const auto on = [this, source](auto signal, auto act) {
        m_connections << connect(source, signal, this, act);
    };
    const auto restart = [this] {
        beginResetModel();
        m_prefixes.restart(m_source);
        endResetModel();
    };
    on(&Model::modelReset, restart);
    on(&Model::columnsInserted, restart);
    on(&Model::columnsRemoved, restart);
    on(&Model::columnsMoved, restart);
    on(&QObject::destroyed, [this] {
        setSource(nullptr);
    });
    // Row 0 has names, colours and check boxes. Samples change all the time, and are looked at when the legend is painted.
    on(&Model::dataChanged, [this](const QModelIndex &topLeft) {
        if (topLeft.isValid() && topLeft.row() == 0)
            changeAll();
    });
}

void LegendModel::changeAll()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

void LegendModel::takeLook(const RVXScopePlotView *view)
{
    setSiPrefix(view->hasSiPrefix());
    setOnWhite(view->hasLightCanvas());
    setValueUnit(view->valueUnit());
    const QPointer<const RVXScopePlotView> guarded(view);
    setAxes([guarded](int channel) {
        return guarded ? guarded->channelAxis(channel) : RVXScopePlotView::NoAxis;
    });
    setLimits({[guarded](int channel) {
                   return guarded && !guarded->channelLimits(channel).isEmpty();
               },
               [guarded](int channel) {
                   return guarded ? guarded->limitState(channel) : LimitState::Normal;
               }});
}

void LegendModel::setSiPrefix(bool on)
{
    m_hasSiPrefix = on;
    m_prefixes.clear();
    changeAll();
}

void LegendModel::setOnWhite(bool onWhite)
{
    m_isOnWhite = onWhite;
    // With other roles a view would lay out its items again, but later: a picture until then would lack them.
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {PenRole, GroundRole});
}

void LegendModel::setValueUnit(const QString &symbol)
{
    m_prefixes.setFixedUnit(symbol);
    changeAll();
}

void LegendModel::setAxes(const std::function<RVXScopePlotView::ChannelAxis(int channel)> &axisOf)
{
    m_axisOf = axisOf;
    changeAll();
}

RVXScopePlotView::ChannelAxis LegendModel::axis(int channel) const
{
    return m_axisOf ? m_axisOf(channel) : RVXScopePlotView::LeftAxis;
}

void LegendModel::setLimits(const Limits &limits)
{
    m_limits = limits;
    changeAll();
}

void LegendModel::changeLimitState(int channel)
{
    const QModelIndex changed = index(channel - 1);
    if (changed.isValid())
        Q_EMIT dataChanged(changed, changed, {LimitRole, LimitColorRole, Qt::AccessibleTextRole});
}

LimitState LegendModel::limitState(int channel) const
{
    return m_limits.stateOf ? m_limits.stateOf(channel) : LimitState::Normal;
}

int LegendModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid() || !m_source)
        return 0;
    ScopeModel model;
    model.set(m_source);
    return model.channelCount();
}

QString LegendModel::value(int channel) const
{
    const int last = m_source->rowCount() - 1;
    if (last < 1)
        return QString();
    const QModelIndex sample = m_source->index(last, channel);
    const QVariant text = m_hasSiPrefix ? m_prefixes.reading(sample) : readingWithUnit(sample);
    return text.toString();
}

//! Returns a text as wide as the widest reading, whatever the readings are. Where the prefix is fixed, a reading may need an exponent.
QString LegendModel::wideValue(int channel) const
{
    const bool suitsEach = m_hasSiPrefix && m_prefixes.fixedUnit().isEmpty();
    const Units::MeasurementUnit *unit = channelUnit(m_source, channel);
    return (suitsEach ? QStringLiteral("-000.00 n") : QStringLiteral("-0.00e-00 n"))
        + (unit ? unit->name() : QString());
}

QString LegendModel::accessibleText(const QString &name, int channel) const
{
    QString text = tr("%1, %2").arg(name, value(channel));
    if (axis(channel) == RVXScopePlotView::RightAxis)
        text = tr("%1, right axis").arg(text);
    const QString limit = textOf(limitState(channel));
    return limit.isEmpty() ? text : tr("%1, %2").arg(text, limit);
}

QVariant LegendModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !m_source)
        return QVariant();
    const int channel = index.row() + 1;
    ScopeModel model;
    model.set(m_source);
    model.setOnWhite(m_isOnWhite);
    switch (role) {
    case Qt::DisplayRole:
        return model.name(channel);
    case Qt::CheckStateRole:
        return model.isShown(channel) ? Qt::Checked : Qt::Unchecked;
    case Qt::ToolTipRole:
        return tr("%1: click or press Enter to hide or show it")
            .arg(model.name(channel).toHtmlEscaped());
    case Qt::AccessibleTextRole:
        return accessibleText(model.name(channel), channel);
    case ValueRole:
        return value(channel);
    case WideValueRole:
        return wideValue(channel);
    case LimitRole:
        return textOf(limitState(channel));
    case LimitColorRole:
        return colorOf(limitState(channel));
    case WatchedRole:
        return m_limits.areSet && m_limits.areSet(channel);
    case AxisRole:
        return axis(channel) == RVXScopePlotView::RightAxis ? QStringLiteral("\u2192") : QString();
    case PenRole:
        return model.pen(channel);
    case GroundRole:
        return QColor(m_isOnWhite ? Qt::white : Qt::black);
    default:
        return QVariant();
    }
}

bool LegendModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || !m_source || role != Qt::CheckStateRole)
        return false;
    return m_source->setData(m_source->index(0, index.row() + 1), value, role);
}

Qt::ItemFlags LegendModel::flags(const QModelIndex &index) const
{
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable
                           : Qt::NoItemFlags;
}

} // namespace Corvale_Qt
