// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QIdentityProxyModel>
#include <QStringList>

namespace Monitor {

class Alarms;

//! Marks the values of a latest-value table that are beyond their limits, by colour and in words.
class LimitMarks : public QIdentityProxyModel
{
    Q_OBJECT

public:
    explicit LimitMarks(const Alarms &alarms, QObject *parent = nullptr);
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    //! Returns the words that are put in front of values, each with the blank after it.
    static QStringList words();

private:
    void refresh();

    const Alarms &m_alarms;
};

} // namespace Monitor
