// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/window/NoticeLine.h"

namespace Monitor {

class Session;
struct RefusedLine;

//! A notice while the source delivers nothing: what was tried, what came back, and what a person can do.
class SourceNotice : public NoticeLine
{
    Q_OBJECT

public:
    explicit SourceNotice(Session &session, QWidget *parent = nullptr);

private:
    void beginWait();
    void refresh();
    void refreshIfDue();
    QString silenceText() const;
    void noteRefused(const RefusedLine &line);

    Session &m_session;
    double m_since;
    double m_refreshedAt = 0.0;
    QString m_firstRefused;
};

} // namespace Monitor
