// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/session/Companions.h"
#include "monitor/session/MonitorOptions.h"

#include <qwt_interval.h>

#include <QScrollArea>

class QSplitter;

namespace Monitor {

class CompanionPane;
class DisplayTabs;

/*! The panes of the sources that are read beside the one of the window, below each other, hidden while there are none. Their strip charts
    show the same stretch of time as that of the lead, each on the readings and the times of its own source: they end at the latest
    moment of all, so that a source that has fallen silent is seen to be. */
class CompanionPanes : public QScrollArea
{
    Q_OBJECT

public:
    //! \a lead are the displays of the lead. Companions and displays must outlive the panes.
    CompanionPanes(Companions &companions, DisplayTabs &lead, QWidget *parent = nullptr);
    ~CompanionPanes() override;

    const QList<CompanionPane *> &panes() const { return m_panes; }
    //! Sets the range of all companions, and the limits by which their displays judge.
    void setOptions(const MonitorOptions &options);

private:
    void addPane(Session &session);
    void applyOptions(const CompanionPane &pane) const;
    void shareRoom();
    void removePane(Session &session);
    void closeAsAsked(Session &session);
    void refreshIfDue();
    void alignEnds();
    void alignAxes();
    void followHold(bool isAnew);
    void followSpan(DisplayTabs &displays) const;

    Companions &m_companions;
    DisplayTabs &m_lead;
    QSplitter *m_stack;
    QList<CompanionPane *> m_panes;
    MonitorOptions m_options;
    double m_alignedAt = 0.0;
    QwtInterval m_held; //!< in seconds since 1970; invalid while the lead is not held
};

} // namespace Monitor
