// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <QActionGroup>

class QAction;
class QMenu;

namespace Corvale_Qt {
class RVXScope;
} // namespace Corvale_Qt

namespace Monitor {

class Session;

/*! The entries of the menu that say what the time axis of the scope shows. Unless the operator chooses, it is the time of
    the clock if the stream tells the moment of its readings: by the start of its times, or by stamps that count from 1970. */
class TimeAxisActions : public QObject
{
    Q_OBJECT

public:
    //! Adds a submenu to \a menu.
    TimeAxisActions(Session &session, Corvale_Qt::RVXScope &scope, QMenu *menu);

    //! Returns the name of the choice: "auto", "seconds", "relative", "local" or "utc".
    QString choice() const;
    //! Makes a choice by its name. Ignores a name that is none.
    void choose(const QString &name);
    /*! Sets the moment at which the times of a stream are 0 that states none; invalid if it is not known. Sources that are shown
        together need it. */
    void setArrivalOrigin(const QDateTime &origin);

Q_SIGNALS:
    //! The operator has made another choice.
    void chosen(const QString &name);

private:
    void beginStream(const StreamHeader &header);
    void lookAtFirstReading();
    void apply();

    Session &m_session;
    Corvale_Qt::RVXScope &m_scope;
    QActionGroup m_actions;
    bool m_hasTime = true; //!< readings have times, rather than numbers
    bool m_hasClock = false; //!< the moment of each reading is known
    bool m_waitsForReading = false; //!< whose time stamp tells whether it counts from 1970
};

} // namespace Monitor
