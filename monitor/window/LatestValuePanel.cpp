// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/LatestValuePanel.h"

#include "monitor/session/Session.h"
#include <corvale_qt/proxies/RVXLatestPlotDataProxyModel.h>
#include <corvale_qt/widgets/RVXTableView.h>

#include <QBrush>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

namespace Monitor {

namespace {

constexpr int valueColumn = 1;

} // namespace

StaleMarks::StaleMarks(QObject *parent)
    : QIdentityProxyModel(parent)
{
}

void StaleMarks::setStale(bool stale)
{
    m_stale = stale;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, valueColumn), index(rowCount() - 1, valueColumn));
}

QVariant StaleMarks::data(const QModelIndex &index, int role) const
{
    const QVariant value = QIdentityProxyModel::data(index, role);
    if (!m_stale || index.column() != valueColumn)
        return value;
    switch (role) {
    case Qt::ForegroundRole:
        return QBrush(QColor(150, 150, 150));
    case Qt::DisplayRole:
        return QString(QChar(0x29d7) + QStringLiteral(" ") + value.toString()); // an hourglass
    case Qt::ToolTipRole:
        return tr("old: nothing has come since");
    default:
        return value;
    }
}

LatestValuePanel::LatestValuePanel(Session &session, QWidget *parent)
    : QWidget(parent)
    , m_session(session)
    , m_marks(new StaleMarks(this))
    , m_table(new Corvale_Qt::RVXTableView(this))
{
    auto *latest = new Corvale_Qt::RVXLatestPlotDataProxyModel(this);
    latest->setSourceModel(&session.model());
    m_marks->setSourceModel(latest);
    m_table->setModel(m_marks);
    m_table->setDragEnabled(true);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);

    auto *all = new QPushButton(tr("&All"), this);
    all->setToolTip(tr("Show all channels"));
    auto *none = new QPushButton(tr("N&one"), this);
    none->setToolTip(tr("Show no channel"));
    connect(all, &QPushButton::clicked, this, [this] {
        checkAll(true);
    });
    connect(none, &QPushButton::clicked, this, [this] {
        checkAll(false);
    });
    connect(&session, &Session::staleChanged, m_marks, &StaleMarks::setStale);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(all);
    buttons->addWidget(none);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(m_table);
    layout->addLayout(buttons);
}

QSize LatestValuePanel::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 34, 400};
}

void LatestValuePanel::checkAll(bool on)
{
    MultichannelDeviceModel &model = m_session.model();
    for (int column = 1; column < model.columnCount(); ++column)
        model.setData(model.index(0, column), on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
}

} // namespace Monitor
