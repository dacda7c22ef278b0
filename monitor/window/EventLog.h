// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/widgets/RVXLogBrowser.h>

namespace Monitor {

class Session;

//! The events of a session with their times, and those of the sessions beside it.
class EventLog : public Corvale_Qt::RVXLogBrowser
{
    Q_OBJECT

public:
    explicit EventLog(Session &session, QWidget *parent = nullptr);
    //! Sets what stands before the events of the session; nothing if it is empty.
    void setName(const QString &name) { m_name = name; }
    //! Lists the events of another session, too, with its name.
    void follow(Session &session, const QString &name);

protected:
    void changeEvent(QEvent *event) override;

private:
    void adoptPalette();
    void write(const QString &text);

    Session &m_session;
    QString m_name;
};

} // namespace Monitor
