// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <QScrollArea>

namespace Corvale_Qt {
class RVXStatisticsSetupPage;
} // namespace Corvale_Qt

namespace Monitor {

class Session;
class DisplayTabs;
class WindowSettings;

//! The library's statistics page, connected to the displays; its choices are kept in the window's settings.
class StatisticsPanel : public QScrollArea
{
    Q_OBJECT

public:
    StatisticsPanel(Session &session,
                    DisplayTabs &displays,
                    const WindowSettings &settings,
                    QWidget *parent = nullptr);

private:
    void suggestFor(const StreamHeader &header);

    Corvale_Qt::RVXStatisticsSetupPage *m_page;
};

} // namespace Monitor
