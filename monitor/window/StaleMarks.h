// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QIdentityProxyModel>

namespace Monitor {

//! Marks the values of a latest-value table as old.
class StaleMarks : public QIdentityProxyModel
{
    Q_OBJECT

public:
    //! The role that tells whether a value is old.
    static constexpr int StaleRole = Qt::UserRole + 100;

    explicit StaleMarks(QObject *parent = nullptr);
    //! Sets whether the values are marked.
    void setStale(bool stale);
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    bool m_stale = false;
};

} // namespace Monitor
