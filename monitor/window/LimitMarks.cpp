// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/LimitMarks.h"

#include "monitor/session/Alarms.h"
#include "monitor/window/Look.h"

#include <QBrush>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

constexpr int valueColumn = 1;

Look::State lookOf(LimitState state)
{
    return isAlarm(state) ? Look::State::Trouble : Look::State::Waiting;
}

} // namespace

LimitMarks::LimitMarks(const Alarms &alarms, QObject *parent)
    : QIdentityProxyModel(parent)
    , m_alarms(alarms)
{
    connect(&alarms, &Alarms::changed, this, &LimitMarks::refresh);
}

void LimitMarks::refresh()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, valueColumn), index(rowCount() - 1, valueColumn));
}

QStringList LimitMarks::words()
{
    return {tr("ALARM %1").arg(QString()), tr("WARN %1").arg(QString())};
}

QVariant LimitMarks::data(const QModelIndex &index, int role) const
{
    QVariant value = QIdentityProxyModel::data(index, role);
    if (index.column() != valueColumn
        || (role != Qt::DisplayRole && role != Qt::BackgroundRole && role != Qt::ForegroundRole
            && role != Qt::ToolTipRole))
        return value;
    const LimitState state = m_alarms.state(index.row());
    if (state == LimitState::Normal)
        return value;
    switch (role) {
    case Qt::BackgroundRole:
        return QBrush(Look::ground(lookOf(state)));
    case Qt::ForegroundRole:
        return QBrush(Look::ink(lookOf(state)));
    case Qt::DisplayRole:
        return (isAlarm(state) ? tr("ALARM %1") : tr("WARN %1")).arg(value.toString());
    default:
        return isHigh(state) ? tr("%1, above its limit").arg(value.toString())
                             : tr("%1, below its limit").arg(value.toString());
    }
}

} // namespace Monitor
