// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/StaleMarks.h"

namespace Monitor {

namespace {

constexpr int markedColumn = 1;
//! What the table shows where nothing has been read, which cannot be old.
const QString noValue = QStringLiteral("N/A");

} // namespace

StaleMarks::StaleMarks(QObject *parent)
    : QIdentityProxyModel(parent)
{
}

void StaleMarks::setStale(bool stale)
{
    m_stale = stale;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, markedColumn), index(rowCount() - 1, markedColumn));
}

QVariant StaleMarks::data(const QModelIndex &index, int role) const
{
    QVariant value = QIdentityProxyModel::data(index, role);
    if (!m_stale || index.column() != markedColumn)
        return value;
    switch (role) {
    case StaleRole:
        return true;
    case Qt::DisplayRole:
        return value == noValue ? value : tr("old: %1").arg(value.toString());
    case Qt::ToolTipRole:
        return tr("This value is old: no reading has arrived since.");
    default:
        return value;
    }
}

} // namespace Monitor
