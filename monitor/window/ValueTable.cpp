// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ValueTable.h"

#include <utility>

namespace Monitor {

namespace {

constexpr int valueInterval = 100; // milliseconds

} // namespace

ValueTable::ValueTable(QWidget *parent)
    : RVXTableView(parent)
{
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(valueInterval);
    connect(&m_refresh, &QTimer::timeout, this, &ValueTable::catchUp);
}

void ValueTable::dataChanged(const QModelIndex &topLeft,
                             const QModelIndex &bottomRight,
                             const QVector<int> &roles)
{
    const bool areValues = topLeft.column() > 0; // a name that was clicked is painted at once
    if (areValues && m_refresh.isActive()) {
        m_isBehind = true;
        return;
    }
    RVXTableView::dataChanged(topLeft, bottomRight, roles);
    if (areValues)
        m_refresh.start();
}

void ValueTable::catchUp()
{
    if (!model() || !std::exchange(m_isBehind, false))
        return;
    const QModelIndex last = model()->index(model()->rowCount() - 1, model()->columnCount() - 1);
    dataChanged(model()->index(0, last.column()), last, {});
}

} // namespace Monitor
