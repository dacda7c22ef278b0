// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QIdentityProxyModel>

namespace Monitor {

class Alarms;

//! Marks the values of a latest-value table that are beyond their limits, by colour and in words.
class LimitMarks : public QIdentityProxyModel
{
    Q_OBJECT

public:
    explicit LimitMarks(const Alarms &alarms, QObject *parent = nullptr);
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    //! Returns the longest word that is put in front of a value, with the blank after it.
    static QString longestMark();

private:
    void refresh();

    const Alarms &m_alarms;
};

} // namespace Monitor
