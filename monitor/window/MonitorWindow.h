// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/window/WindowSettings.h"

#include <QMainWindow>

#include <memory>

class QVBoxLayout;

namespace Monitor {

class ClearUndo;
class CompanionPanes;
class Companions;
class DisplayTabs;
class LatestValuePanel;
class NoticeLine;
class PlotRoom;
class Session;
class SourceSwitch;
class TapeBar;

/*! The window: values on the left, displays in the middle, statistics on the right, log and status below. It arranges
    its parts and assigns their keys; what they do is up to them. */
class MonitorWindow : public QMainWindow
{
    Q_OBJECT

public:
    //! The initial size, if the screen is large enough.
    static constexpr QSize usualSize{1600, 1000};

    //! Keeps layout and statistics settings in \a settingsFile; the session must outlive the window.
    MonitorWindow(Session &session, const QString &settingsFile, QWidget *parent = nullptr);
    ~MonitorWindow() override;

    DisplayTabs &displays() const { return *m_displays; }
    //! Returns the sources that are read beside that of the session.
    Companions &companions() const { return *m_companions; }
    //! Returns what opens other sources in this window.
    SourceSwitch &sources() const { return *m_sources; }
    //! Names the source and says how to choose another one, unless the operator dismissed this line before.
    void showHint();
    //! Puts a notice, a child of the central widget, above all others.
    void addNotice(NoticeLine *notice);

protected:
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void addCentre();
    void addDocks();
    void addDock(QWidget *widget, const char *name, const QString &title, Qt::DockWidgetArea area);
    void addMenus();
    void readBeside();
    void showTitle();
    void restoreTimeSpan();
    void restoreLayout();
    void restoreDisplay(const StreamHeader &header);
    void followDisplay();
    void saveDisplay();
    void saveLayout();

    Session &m_session;
    WindowSettings m_settings;
    const std::unique_ptr<Companions> m_companions;
    DisplayTabs *m_displays;
    CompanionPanes *m_panes = nullptr;
    QVBoxLayout *m_centre = nullptr;
    SourceSwitch *m_sources = nullptr;
    LatestValuePanel *m_values = nullptr;
    TapeBar *m_tape = nullptr;
    PlotRoom *m_plotRoom = nullptr;
    ClearUndo *m_undoClear = nullptr;
    bool m_wasShown = false;
    //! The kinds of streams whose separate windows were restored.
    QVector<StreamKind> m_arranged;
};

} // namespace Monitor
