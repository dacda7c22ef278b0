// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/widgets/RVXLogBrowser.h>

namespace Monitor {

class Session;
struct RefusedLine;
struct StreamHeader;

//! What happened, with the time; of bad lines that come in floods, a few a second.
class EventLog : public Corvale_Qt::RVXLogBrowser
{
    Q_OBJECT

public:
    explicit EventLog(Session &session, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void adoptPalette();
    void noteStart(const StreamHeader &header);
    void noteAssumptions(const StreamHeader &header);
    void write(const QString &text);
    void noteRefused(const RefusedLine &line);

    Session &m_session;
    double m_floodBegan = -1e9;
    int m_shownInFlood = 0;
    qint64 m_notShown = 0;
};

} // namespace Monitor
