// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/session/Companions.h"

#include <QWidget>

namespace Monitor {

class DisplayTabs;
class StatusField;

//! A source that is read beside another one: its name and state, its newest values and its displays.
class CompanionPane : public QWidget
{
    Q_OBJECT

public:
    //! The companion must outlive the pane.
    explicit CompanionPane(const Companions::Member &companion, QWidget *parent = nullptr);
    ~CompanionPane() override;

    DisplayTabs &displays() const { return *m_displays; }
    const Companions::Member &companion() const { return m_companion; }
    //! Shows the present state of the source.
    void refresh();

Q_SIGNALS:
    //! Emitted when the operator closes the source.
    void closeAsked();

private:
    QWidget *newHeading();

    const Companions::Member m_companion;
    DisplayTabs *m_displays;
    StatusField *m_state;
};

} // namespace Monitor
