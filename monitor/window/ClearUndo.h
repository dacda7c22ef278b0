// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/model/MultichannelDeviceModel.h"

#include <QObject>

class QAction;

namespace Corvale_Qt {
class RVXScope;
} // namespace Corvale_Qt

namespace Monitor {

class NoticeLine;
class Session;

/*! Keeps the readings that an operator cleared, with the history before them and what waited in a pause, and offers them
    back for a minute: by an action, and by a notice that says how many they are. Another stream ends the offer. */
class ClearUndo : public QObject
{
    Q_OBJECT

public:
    //! How long readings can be brought back.
    static constexpr double patience = 60.0; // s

    //! \a notice is a line of the window that this object fills.
    ClearUndo(Session &session, Corvale_Qt::RVXScope &scope, NoticeLine &notice, QObject *parent);

    QAction *action() const { return m_action; }
    //! Shows the readings again, before those that have come since, and sets the period that they were taken with.
    void undo();

private:
    void keep();
    void expire();
    void forget();

    Session &m_session;
    Corvale_Qt::RVXScope &m_scope;
    NoticeLine &m_notice;
    QAction *m_action;
    std::shared_ptr<MultichannelDeviceModel::TakenReadings> m_kept;
    int m_period = 0; // ms
    double m_keptAt = 0.0;
};

} // namespace Monitor
