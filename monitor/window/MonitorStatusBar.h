// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/recording/SpaceForecast.h"

#include <QLabel>
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

private:
    QLabel *add(const char *name, const QString &toolTip, int stretch = 0);
    void refreshIfDue();
    void keepRoomFor(QLabel *label, const QString &text);
    static QString rateText(double rate);
    static QString badText(qint64 lines);
    static QString gapsText(qint64 gaps);
    QString clockText() const;
    QString noticesText() const;
    QString alarmText() const;
    QString recordingText() const;
    void noteSpace();

    Session &m_session;
    double m_refreshedAt = -1.0;
    SpaceForecast m_space;
    QLabel *m_source;
    QLabel *m_notices;
    QLabel *m_rate;
    QLabel *m_bad;
    QLabel *m_gaps;
    QLabel *m_recording;
    QLabel *m_clock;
};

} // namespace Monitor
