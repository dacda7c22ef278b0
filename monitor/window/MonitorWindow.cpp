// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/MonitorWindow.h"

#include "monitor/core/Clock.h"
#include "monitor/session/Companions.h"
#include "monitor/window/AddSourceAction.h"
#include "monitor/window/BackgroundWatch.h"
#include "monitor/window/ClearUndo.h"
#include "monitor/window/CompanionPanes.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/EditMenu.h"
#include "monitor/window/EventLog.h"
#include "monitor/window/FileDrop.h"
#include "monitor/window/FileMenu.h"
#include "monitor/window/FirstHint.h"
#include "monitor/window/FocusRing.h"
#include "monitor/window/HelpMenu.h"
#include "monitor/window/KeptCompanions.h"
#include "monitor/window/LatestValuePanel.h"
#include "monitor/window/LeadHeading.h"
#include "monitor/window/LeftOutNotice.h"
#include "monitor/window/LimitActions.h"
#include "monitor/window/Look.h"
#include "monitor/window/MeasureMenu.h"
#include "monitor/window/MonitorStatusBar.h"
#include "monitor/window/PictureActions.h"
#include "monitor/window/PlotRoom.h"
#include "monitor/window/ScopeMemory.h"
#include "monitor/window/ScreenFit.h"
#include "monitor/window/SourceNotice.h"
#include "monitor/window/SourceSwitch.h"
#include "monitor/window/StatisticsPanel.h"
#include "monitor/window/Symbols.h"
#include "monitor/window/TapeBar.h"
#include "monitor/window/TimeAxisActions.h"
#include "monitor/window/ViewMenu.h"
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>
#include <corvale_qt/widgets/TimeSpanBox.h>

#include <QDockWidget>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScreen>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace Monitor {

namespace {

constexpr int logHeight = 120;
//! A window may be made this small, whatever its parts would like: the status line stays in it.
constexpr QSize smallest(800, 360);
//! A window of this width has room for values, displays and statistics side by side.
constexpr int roomyWidth = 1280;

} // namespace

MonitorWindow::MonitorWindow(Session &session, const QString &settingsFile, QWidget *parent)
    : QMainWindow(parent)
    , m_session(session)
    , m_settings(settingsFile)
    , m_companions(std::make_unique<Companions>(session))
    , m_displays(new DisplayTabs(session))
{
    m_settings.makeFolder(); // the statistics page writes there by itself
    m_sources = new SourceSwitch(session, m_settings, this);
    new ScopeMemory(session, *m_displays->scope(), m_settings, this);
    showTitle();
    addCentre();
    auto *status = new MonitorStatusBar(session, this);
    status->setCompanions(*m_companions);
    setStatusBar(status);
    addDocks();
    m_plotRoom =
        new PlotRoom(this, findChild<QDockWidget *>(QStringLiteral("log")), m_displays->scope());
    addMenus();
    readBeside();
    restoreLayout();
    restoreTimeSpan();
    followDisplay();
    connect(&session, &Session::streamStarted, this, &MonitorWindow::restoreDisplay);
    connect(&session, &Session::sourceReplaced, this, &MonitorWindow::showTitle);
    new FocusRing(this);
    new BackgroundWatch(session.clock(), this);
    connect(new FileDrop(this), &FileDrop::dropped, m_sources, &SourceSwitch::open);
    connect(m_sources, &SourceSwitch::optionsChanged, this, [this](const MonitorOptions &options) {
        m_displays->setMinimumSum(options.minimumSum);
        m_displays->setVerdictLimits(options.verdictLimits);
        m_panes->setOptions(options);
    });
}

MonitorWindow::~MonitorWindow()
{
    m_plotRoom->setShared(false); // so that the controls come back at the next start
    delete m_panes; // they show the companions, which go before the other parts
}

void MonitorWindow::addCentre()
{
    auto *centre = new QWidget(this);
    auto *cleared = new NoticeLine(centre);
    cleared->setObjectName(QStringLiteral("cleared"));
    m_undoClear = new ClearUndo(m_session, *m_displays->scope(), *cleared, this);
    m_centre = new QVBoxLayout(centre);
    m_centre->setContentsMargins(0, 0, 0, 0);
    m_centre->setSpacing(Look::gap / 4);
    m_centre->addWidget(new SourceNotice(m_session, centre));
    m_centre->addWidget(new LeftOutNotice(m_session, *m_displays, centre));
    m_centre->addWidget(cleared);
    auto *displays = new QSplitter(Qt::Vertical, centre);
    displays->setChildrenCollapsible(false);
    displays->addWidget(m_displays);
    m_panes = new CompanionPanes(*m_companions, *m_displays);
    displays->addWidget(m_panes);
    m_centre->addWidget(displays, 1);
    setCentralWidget(centre);
}

//! Adds the menus, one class for each. The panels must exist.
void MonitorWindow::addMenus()
{
    const auto *pictures = new PictureActions(m_session, *m_displays, m_settings, this);
    menuBar()->addMenu(
        new FileMenu(m_session, *m_sources, *m_displays, m_settings, *pictures, this));
    auto *add = new AddSourceAction(*m_companions, m_session, *m_sources, m_settings, this);
    static_cast<FileMenu *>(menuBar()->actions().first()->menu())->addBeside(add);
    menuBar()->addMenu(
        new EditMenu(*m_displays, *m_values, *pictures, m_undoClear->action(), this));
    auto *view = new ViewMenu(m_session, *m_displays, *m_values, m_settings, this);
    view->addPanel(findChild<QDockWidget *>(QStringLiteral("values")), tr("Latest &values"));
    view->addPanel(findChild<QDockWidget *>(QStringLiteral("statistics")), tr("Statist&ics"));
    view->addPanel(findChild<QDockWidget *>(QStringLiteral("log")), tr("&Log"));
    view->addPanel(m_tape->action());
    menuBar()->addMenu(view);
    menuBar()->addMenu(new MeasureMenu(m_session, *m_displays, m_settings, this));
    menuBar()->addMenu(new HelpMenu(menuBar(), this));
}

//! Has log, alarms and time axis follow the sources that are read beside that of the session.
void MonitorWindow::readBeside()
{
    auto *log = findChild<EventLog *>();
    auto *limits = findChild<LimitActions *>();
    auto *axis = findChild<TimeAxisActions *>();
    connect(m_companions.get(), &Companions::added, this, [=](Session &session) {
        log->follow(session, m_companions->nameOf(&session));
        limits->watch(session);
    });
    connect(m_sources, &SourceSwitch::currentChanged, this, [this] {
        m_companions->setLeadName(usualSourceName(m_sources->current()));
    });
    const StreamClock *clock = m_companions->members().front().clock;
    const auto follow = [=] {
        m_plotRoom->setShared(!m_companions->isEmpty());
        log->setName(m_companions->nameOf(&m_session));
        if (!m_companions->isEmpty() && clock->isByArrival())
            axis->setArrivalOrigin(clock->originDate());
    };
    connect(m_companions.get(), &Companions::changed, this, follow);
    connect(clock, &StreamClock::originChanged, this, follow);
    auto *heading = new LeadHeading(*m_companions, this);
    for (const char *first : {"saveShown", "copyValues", "strip", "zero"})
        heading->addBefore(QLatin1String(first), *menuBar());
    connect(m_companions.get(), &Companions::changed, this, [this] {
        keepCompanions(m_sources->current(), m_companions->addresses(), m_settings);
    });
}

void MonitorWindow::addDocks()
{
    m_values = new LatestValuePanel(m_session);
    m_values->follow(m_displays->baseline());
    connect(m_displays->scope()->plotView(),
            &Corvale_Qt::RVXScopePlotView::valueUnitChanged,
            m_values,
            &LatestValuePanel::setValueUnit);
    addDock(m_values, "values", tr("Latest values"), Qt::LeftDockWidgetArea);
    addDock(new StatisticsPanel(m_session, *m_displays, m_settings),
            "statistics",
            tr("Statistics"),
            Qt::RightDockWidgetArea);
    addDock(new EventLog(m_session), "log", tr("Log (UTC)"), Qt::BottomDockWidgetArea);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    m_tape = new TapeBar(m_session, *m_companions, this);
}

void MonitorWindow::addDock(QWidget *widget,
                            const char *name,
                            const QString &title,
                            Qt::DockWidgetArea area)
{
    auto *dock = new QDockWidget(title, this);
    dock->setObjectName(QLatin1String(name));
    dock->setWidget(widget);
    giveSymbols(dock);
    addDockWidget(area, dock);
}

void MonitorWindow::showTitle()
{
    setWindowTitle(tr("%1 - Corvale Monitor").arg(m_session.source().description()));
}

void MonitorWindow::restoreTimeSpan()
{
    Corvale_Qt::TimeSpanBox *box = m_displays->spanControl()->box();
    box->setSpan(m_settings.timeSpan());
    connect(box, &Corvale_Qt::TimeSpanBox::spanChanged, this, [this](double seconds) {
        m_settings.setTimeSpan(seconds);
    });
}

void MonitorWindow::showHint()
{
    addNotice(new FirstHint(m_session, m_settings, centralWidget()));
}

void MonitorWindow::addNotice(NoticeLine *notice)
{
    m_centre->insertWidget(0, notice);
}

void MonitorWindow::restoreLayout()
{
    setMinimumSize(smallest);
    resize(usualSize.boundedTo(QGuiApplication::primaryScreen()->availableSize()));
    resizeDocks({findChild<QDockWidget *>(QStringLiteral("log"))}, {logHeight}, Qt::Vertical);
    restoreGeometry(m_settings.geometry());
    // On a small screen the displays need the room; View > Statistics shows the panel.
    if (m_settings.docks().isEmpty() && width() < roomyWidth)
        findChild<QDockWidget *>(QStringLiteral("statistics"))->hide();
    restoreState(m_settings.docks());
    if (!isMaximized() && !isFullScreen())
        fitToScreen(this);
}

void MonitorWindow::showEvent(QShowEvent *event)
{
    if (!std::exchange(m_wasShown, true))
        m_plotRoom->begin(m_settings, !m_settings.docks().isEmpty());
    QMainWindow::showEvent(event);
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

//! Keeps which display is in front, so that the next part or source of the same kind shows it as well.
void MonitorWindow::followDisplay()
{
    auto *settled =
        new QTimer(this); // a stream that starts puts its own displays in front of each other first
    settled->setSingleShot(true);
    settled->setInterval(0);
    connect(settled, &QTimer::timeout, this, &MonitorWindow::saveDisplay);
    const auto wait = [settled] {
        settled->start();
    };
    connect(m_displays, &QTabWidget::currentChanged, settled, wait);
    connect(m_displays->scope(), &Corvale_Qt::RVXScope::plotModeChanged, settled, wait);
}

void MonitorWindow::saveDisplay()
{
    const StreamHeader &header = m_session.model().header();
    if (!header.channels.isEmpty())
        m_settings.setDisplay(header.kind, m_displays->currentDisplay());
}

void MonitorWindow::saveLayout()
{
    m_settings.setLayout(saveGeometry(), saveState());
    m_plotRoom->save(m_settings);
    saveDisplay();
    const StreamHeader &header = m_session.model().header();
    if (!header.channels.isEmpty())
        m_settings.setWindows(header.kind, m_displays->windows());
}

bool MonitorWindow::event(QEvent *event)
{
    if (event->type() != QEvent::UpdateRequest)
        return QMainWindow::event(event);
    const Clock &clock = m_session.clock();
    const double begin = clock.seconds();
    const bool taken = QMainWindow::event(event); // paints all that is to be painted
    const double seconds = clock.seconds() - begin;
    for (const Companions::Member &member : m_companions->members())
        member.session->notePainting(seconds);
    return taken;
}

void MonitorWindow::closeEvent(QCloseEvent *event)
{
    saveLayout();
    QMainWindow::closeEvent(event);
}

} // namespace Monitor
