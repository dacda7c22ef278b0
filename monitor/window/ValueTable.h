// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/widgets/RVXTableView.h>

#include <QTimer>

namespace Monitor {

/*! A table of channels with their newest values. Values are painted at most ten times a second, as often as a person reads them,
    and none later than a tenth of a second after it has come; painting a table takes longer than painting a frame of the chart. */
class ValueTable : public Corvale_Qt::RVXTableView
{
    Q_OBJECT

public:
    explicit ValueTable(QWidget *parent = nullptr);

    void dataChanged(const QModelIndex &topLeft,
                     const QModelIndex &bottomRight,
                     const QVector<int> &roles) override;

private:
    void catchUp();

    QTimer m_refresh; //!< runs after values have been painted
    bool m_isBehind = false;
};

} // namespace Monitor
