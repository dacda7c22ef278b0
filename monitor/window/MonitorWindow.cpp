// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/MonitorWindow.h"

#include "monitor/session/Session.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/EventLog.h"
#include "monitor/window/ExportActions.h"
#include "monitor/window/LatestValuePanel.h"
#include "monitor/window/LeftOutNotice.h"
#include "monitor/window/LimitActions.h"
#include "monitor/window/MonitorStatusBar.h"
#include "monitor/window/PictureActions.h"
#include "monitor/window/RecordAction.h"
#include "monitor/window/SourceNotice.h"
#include "monitor/window/StatisticsPanel.h"
#include "monitor/window/TapePanel.h"
#include "monitor/window/TimeAxisActions.h"
#include "monitor/window/TriggerAction.h"
#include "monitor/window/ValueActions.h"
#include <corvale_qt/widgets/TimeSpanBox.h>

#include <QAction>
#include <QDockWidget>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScreen>
#include <QToolBar>
#include <QVBoxLayout>

namespace Monitor {

namespace {

constexpr int logHeight = 120;

} // namespace

MonitorWindow::MonitorWindow(Session &session, const QString &settingsFile, QWidget *parent)
    : QMainWindow(parent)
    , m_session(session)
    , m_settings(settingsFile)
    , m_displays(new DisplayTabs(session))
{
    setWindowTitle(tr("%1 - Corvale Monitor").arg(session.source().description()));
    addCentre();
    setStatusBar(new MonitorStatusBar(session, this));
    addMenus();
    addDocks();
    restoreLayout();
    restoreTimeSpan();
    connect(&session, &Session::streamStarted, this, &MonitorWindow::restoreDisplay);
}

MonitorWindow::~MonitorWindow() = default;

void MonitorWindow::addCentre()
{
    auto *centre = new QWidget(this);
    m_centre = new QVBoxLayout(centre);
    m_centre->setContentsMargins(0, 0, 0, 0);
    m_centre->setSpacing(2);
    m_centre->addWidget(new SourceNotice(m_session, centre));
    m_centre->addWidget(new LeftOutNotice(m_session, *m_displays, centre));
    m_centre->addWidget(m_displays, 1);
    setCentralWidget(centre);
}

void MonitorWindow::addDocks()
{
    addDock(new LatestValuePanel(m_session), "values", tr("Latest values"), Qt::LeftDockWidgetArea);
    addDock(new StatisticsPanel(m_session, *m_displays, m_settings),
            "statistics",
            tr("Statistics"),
            Qt::RightDockWidgetArea);
    addDock(new EventLog(m_session), "log", tr("Log"), Qt::BottomDockWidgetArea);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    if (QToolBar *tape = TapePanel::toolBarFor(m_session, this)) {
        addToolBar(Qt::BottomToolBarArea, tape);
        m_viewMenu->addAction(tape->toggleViewAction());
    }
}

void MonitorWindow::addDock(QWidget *widget,
                            const char *name,
                            const QString &title,
                            Qt::DockWidgetArea area)
{
    auto *dock = new QDockWidget(title, this);
    dock->setObjectName(QLatin1String(name));
    dock->setWidget(widget);
    addDockWidget(area, dock);
    m_viewMenu->addAction(dock->toggleViewAction());
}

void MonitorWindow::addMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    file->addAction(new RecordAction(m_session, this));
    new ExportActions(m_session, *m_displays, file, this);
    new PictureActions(*m_displays, file, this);
    file->addSeparator();
    QAction *quit = file->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);

    m_viewMenu = menuBar()->addMenu(tr("&View"));
    addPauseAction(m_viewMenu);
    addSpanAction(m_viewMenu);
    addTimeAxisActions(m_viewMenu);
    new ValueActions(m_session, *m_displays, m_settings, m_viewMenu, this);
    m_viewMenu->addAction(new TriggerAction(m_session, *m_displays, this));
    m_viewMenu->addSeparator();

    new LimitActions(m_session, *m_displays, m_settings, menuBar()->addMenu(tr("&Limits")), this);
}

void MonitorWindow::addPauseAction(QMenu *menu)
{
    QAction *pause = menu->addAction(tr("&Pause"));
    pause->setObjectName(QStringLiteral("pause"));
    pause->setCheckable(true);
    // The keys also work in the separate windows of displays.
    pause->setShortcuts({QKeySequence(Qt::Key_Space), QKeySequence(Qt::Key_Pause)});
    pause->setShortcutContext(Qt::ApplicationShortcut);
    connect(pause, &QAction::toggled, &m_session, &Session::setPaused);
    connect(&m_session, &Session::pausedChanged, pause, &QAction::setChecked);
}

void MonitorWindow::addSpanAction(QMenu *menu)
{
    QAction *span = menu->addAction(tr("&Time span"), m_displays, &DisplayTabs::editSpan);
    span->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_T));
    span->setShortcutContext(Qt::ApplicationShortcut);
}

void MonitorWindow::addTimeAxisActions(QMenu *menu)
{
    auto *axis = new TimeAxisActions(m_session, *m_displays->scope(), menu);
    axis->choose(m_settings.timeAxis());
    connect(axis, &TimeAxisActions::chosen, this, [this](const QString &choice) {
        m_settings.setTimeAxis(choice);
    });
}

void MonitorWindow::restoreTimeSpan()
{
    Corvale_Qt::TimeSpanBox *box = m_displays->spanControl()->box();
    box->setSpan(m_settings.timeSpan());
    connect(box, &Corvale_Qt::TimeSpanBox::spanChanged, this, [this](double seconds) {
        m_settings.setTimeSpan(seconds);
    });
}

void MonitorWindow::showHint(const QString &text)
{
    if (m_settings.isHintDismissed())
        return;
    auto *hint = new NoticeLine(centralWidget());
    hint->setObjectName(QStringLiteral("hint"));
    hint->setDismissible(tr("Do not show again"));
    connect(hint, &NoticeLine::dismissed, this, [this] {
        m_settings.dismissHint();
    });
    m_centre->insertWidget(0, hint);
    hint->tell(text, NoticeLine::Kind::Hint);
}

void MonitorWindow::restoreLayout()
{
    resize(usualSize.boundedTo(QGuiApplication::primaryScreen()->availableSize()));
    resizeDocks({findChild<QDockWidget *>(QStringLiteral("log"))}, {logHeight}, Qt::Vertical);
    restoreGeometry(m_settings.geometry());
    restoreState(m_settings.docks());
}

void MonitorWindow::restoreDisplay(const StreamHeader &header)
{
    m_displays->showDisplay(m_settings.display(header.kind));
    // Windows are restored once: a display that the operator puts back stays there when the source starts over.
    if (m_arranged.contains(header.kind))
        return;
    m_arranged.append(header.kind);
    m_displays->restoreWindows(m_settings.windows(header.kind));
}

void MonitorWindow::saveLayout()
{
    m_settings.setLayout(saveGeometry(), saveState());
    const StreamHeader &header = m_session.model().header();
    if (header.channels.isEmpty())
        return;
    m_settings.setDisplay(header.kind, m_displays->currentDisplay());
    m_settings.setWindows(header.kind, m_displays->windows());
}

void MonitorWindow::closeEvent(QCloseEvent *event)
{
    saveLayout();
    QMainWindow::closeEvent(event);
}

} // namespace Monitor
