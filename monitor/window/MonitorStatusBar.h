// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/recording/SpaceForecast.h"
#include "monitor/session/Companions.h"
#include "monitor/window/StatusField.h"

#include <QStatusBar>

namespace Monitor {

class Session;

//! The state of the session in one line: source, abnormal states, rate, bad lines, gaps, recording and clock.
class MonitorStatusBar : public QStatusBar
{
    Q_OBJECT

public:
    explicit MonitorStatusBar(Session &session, QWidget *parent = nullptr);
    //! Updates all fields.
    void refresh();

    //! Shows the states of the sources beside, too. The companions must outlive the status line.
    void setCompanions(const Companions &companions);
    //! Returns the worst of what is beyond the limits of a session, and how much more there is.
    static QVector<StatusField::Part> alarmNotice(const Session &session);

private:
    StatusField *add(const char *name, const QString &meaning, int stretch = 0);
    void refreshIfDue();
    static void keepRoomFor(StatusField *field, const QString &text);
    static QString rateText(double rate);
    static QString badText(qint64 lines);
    static QString pausedText(qint64 readings);
    static QString gapsText(qint64 gaps);
    QString clockText() const;
    QVector<StatusField::Part> notices() const;
    QVector<StatusField::Part> recordingNotices() const;
    QVector<StatusField::Part> companionNotices() const;
    std::vector<Companions::Member> companions() const;
    QString sourceText() const;
    QString recordingText() const;
    void noteSpace();

    Session &m_session;
    const Companions *m_companions = nullptr;
    double m_refreshedAt = -1.0;
    SpaceForecast m_space;
    StatusField *m_source;
    StatusField *m_notices;
    StatusField *m_rate;
    StatusField *m_bad;
    StatusField *m_gaps;
    StatusField *m_recording;
    StatusField *m_clock;
};

} // namespace Monitor
