// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ValueTable.h"

#include <utility>

namespace Monitor {

namespace {

constexpr int valueInterval = 100; // milliseconds

//! While it exists, a widget asks for no paint. QWidget::setUpdatesEnabled() would ask for one in the end.
class QuietUpdates
{
public:
    explicit QuietUpdates(QWidget &widget)
        : m_widget(widget)
        , m_wasQuiet(widget.testAttribute(Qt::WA_UpdatesDisabled))
    {
        m_widget.setAttribute(Qt::WA_UpdatesDisabled);
    }
    ~QuietUpdates() { m_widget.setAttribute(Qt::WA_UpdatesDisabled, m_wasQuiet); }
    Q_DISABLE_COPY(QuietUpdates)

private:
    QWidget &m_widget;
    const bool m_wasQuiet;
};

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
    if (!areValues) {
        RVXTableView::dataChanged(topLeft, bottomRight, roles);
        return;
    }
    {
        // For several cells Qt would paint the whole table again, also the names, which take longer than the values.
        const QuietUpdates quiet(*viewport());
        RVXTableView::dataChanged(topLeft, bottomRight, roles);
    }
    viewport()->update(visualRect(topLeft).united(visualRect(bottomRight)));
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
