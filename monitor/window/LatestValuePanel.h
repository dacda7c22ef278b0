// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QIdentityProxyModel>
#include <QWidget>

class QLabel;

namespace Corvale_Qt {
class RVXTableView;
} // namespace Corvale_Qt

namespace Monitor {

class Session;

//! Marks the values of a latest-value table as old, where the numbers stand.
class StaleMarks : public QIdentityProxyModel
{
    Q_OBJECT

public:
    explicit StaleMarks(QObject *parent = nullptr);
    void setStale(bool stale);
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    bool m_stale = false;
};

//! The newest value of each channel, with a check box that shows the channel in the plots.
class LatestValuePanel : public QWidget
{
    Q_OBJECT

public:
    explicit LatestValuePanel(Session &session, QWidget *parent = nullptr);
    QSize sizeHint() const override;

private:
    void checkAll(bool on);

    Session &m_session;
    StaleMarks *m_marks;
    Corvale_Qt::RVXTableView *m_table;
};

} // namespace Monitor
