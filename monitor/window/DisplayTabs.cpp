// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/DisplayTabs.h"

#include "monitor/readings/FitParameters.h"
#include "monitor/readings/StreamDetector.h"
#include "monitor/session/Session.h"
#include "monitor/window/Baseline.h"
#include "monitor/window/ScreenFit.h"
#include "monitor/window/StateBadge.h"
#include "monitor/window/SweepNotice.h"
#include "monitor/window/Symbols.h"
#include <corvale_qt/beam/spots/SpotMapView.h>
#include <corvale_qt/beam/spots/SpotMapWidget.h>
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>
#include <corvale_qt/widgets/TimeSpanBox.h>

#include <algorithm>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

//! Shows values in units that a person would use, a y axis that stays still, and which channel is which.
void showValuesForPeople(RVXScopePlotView &view)
{
    view.setSiPrefix(true);
    view.setSecondAxis(true);
    view.setHysteresis(true);
    view.setFullScaleFromData(true);
    view.setLegendVisible(true);
}

//! A pause longer than this many usual intervals is an outage, as the count of gaps in the status line says.
constexpr double usualGapIntervals = 3.0;

//! Lets the operator stop at a moment and measure it.
void letOperatorMove(RVXScope &scope)
{
    scope.setInteractive(true);
    scope.setCursorEnabled(true);
    scope.setMarkersEnabled(true);
    scope.setMarkerDetails(true);
}

} // namespace

DisplayTabs::DisplayTabs(Session &session, QWidget *parent)
    : RVXPopOutTabWidget(parent)
    , m_session(session)
    , m_scope(new RVXScope(this))
    , m_baseline(new Baseline(session, *m_scope, this))
    , m_span(new SpanControl(*m_scope, this))
    , m_profile(new ProfilePage(this))
    , m_position(new RVXPositionPlot(this))
    , m_spotMap(new SpotMapWidget(this))
    , m_frames(&session.model(), m_profile->display(), m_position)
    , m_spots(&session.model())
    , m_comparison(
          new SpotComparison(session.spotPlan(), &session.model(), &m_spots, m_spotMap, this))
{
    m_scope->setObjectName(QStringLiteral("scope"));
    m_profile->setObjectName(QStringLiteral("profile"));
    // Those of companions stay as they are, since no statistics page changes them.
    const FitParameters initial;
    m_profile->display()->SetRegressionOptions(false, initial.regression, 1);
    m_profile->display()->SetCoGOptions(false, initial.centreOfGravity, 1);
    m_position->setObjectName(QStringLiteral("position"));
    m_spotMap->setObjectName(QStringLiteral("spots"));
    m_spotMap->setLegendVisible(true);
    m_comparison->setObjectName(QStringLiteral("errors"));
    m_scope->setModel(&session.model());
    m_scope->setBeginAtFirst(true);
    m_scope->plotView()->setMovesByPixels(true);
    showValuesForPeople(*m_scope->plotView());
    m_scope->plotView()->setGapIntervals(usualGapIntervals);
    letOperatorMove(*m_scope);
    giveSymbols(m_scope);
    m_scope->setConfirmClear(true);
    m_sweepNotice = new SweepNotice(*m_scope);
    connect(m_scope->plotView(),
            &RVXScopePlotView::valueUnitChanged,
            m_profile,
            &ProfilePage::setValueUnit);
    showBaselineOn({m_profile, m_position});
    setCornerWidget(m_span);
    m_spotMap->spotMapView()->setModel(&m_spots);
    addTab(m_scope, tr("Scope"));
    for (QWidget *page : optionalDisplays())
        page->hide();

    connect(&session, &Session::streamStarted, this, &DisplayTabs::beginStream);
    connect(&session, &Session::frameShown, &m_frames, &FrameFeeder::takeFrame);
    connect(&m_frames, &FrameFeeder::leftOutChanged, this, &DisplayTabs::leftOutChanged);
    connect(&session, &Session::sourceReplaced, this, &DisplayTabs::beginStream);
    connect(this, &QTabWidget::currentChanged, this, &DisplayTabs::showSpanControl);
    connect(this, &DisplayTabs::tabPoppedOut, this, &DisplayTabs::showSpanControl);
    connect(this, &DisplayTabs::tabPoppedIn, this, &DisplayTabs::showSpanControl);
    connect(m_scope, &RVXScope::plotModeChanged, this, &DisplayTabs::showSpanControl);
    connect(m_span->box(), &TimeSpanBox::refused, &session, &Session::noted);
    connect(m_scope,
            &RVXScope::bufferedIntervalChanged,
            &session,
            [&session](bool on, double interval) {
                session.setShowInterval(on ? interval : 0.0);
            });
    connect(m_spotMap, &SpotMapWidget::layerChange, &m_spots, &SpotLayers::step);
    connect(&m_spots, &SpotLayers::changed, this, &DisplayTabs::describeSpots);
    connect(m_comparison, &SpotComparison::changed, this, &DisplayTabs::describeSpots);
    connect(&m_spots, &QAbstractItemModel::rowsInserted, this, &DisplayTabs::showLatestSpot);
}

DisplayTabs::~DisplayTabs()
{
    delete m_sweepNotice;
    delete m_baseline; // both hear of the scope, which goes later
}

//! Subtracts on the other displays what the scope subtracts, and says so beside their numbers.
void DisplayTabs::showBaselineOn(const QList<QWidget *> &displays)
{
    connect(m_baseline, &Baseline::changed, this, [this] {
        m_frames.setZeros(m_baseline->zeros());
    });
    for (QWidget *display : displays) {
        auto *badge = new StateBadge(display);
        connect(m_baseline, &Baseline::changed, badge, [this, badge] {
            // A frame is shown as it came: only its numbers are channels.
            const bool areFrames = m_session.model().header().hasFrames();
            badge->tell(areFrames ? QString() : m_baseline->text());
        });
    }
}

//! Returns the displays that have a tab only while the stream has data for them.
QList<QWidget *> DisplayTabs::optionalDisplays() const
{
    return {m_profile, m_position, m_spotMap, m_comparison};
}

void DisplayTabs::beginStream()
{
    const StreamHeader &header = m_session.model().header();
    if (m_spots.hasSpots())
        showSpotColumns();
    setTab(m_profile, tr("2D profile"), m_frames.hasProfile());
    setTab(m_position, tr("Position"), m_frames.hasPosition());
    setTab(m_spotMap, tr("Spot map"), m_spots.hasSpots());
    setTab(m_comparison, tr("Position errors"), m_comparison->isPresent());
    showDetectorInScope();
    if (header.hasRange() && !header.hasFrames())
        m_scope->SetRange(header.rangeLow, header.rangeHigh);
    else
        m_scope->plotView()->resetRange();
    m_span->setTimed(!header.isList());
    const bool profiles = !header.hasFrames()
        && (header.kind == StreamKind::Strips || header.kind == StreamKind::Pixels);
    m_scope->SetPlotMode(profiles ? RVXScope::HistogramMode : RVXScope::StripMode);
    if (m_frames.hasProfile())
        setCurrentWidget(m_profile);
    else if (m_spots.hasSpots())
        setCurrentWidget(m_spotMap);
    showSpanControl();
}

void DisplayTabs::showDetectorInScope()
{
    const StreamHeader &header = m_session.model().header();
    // The channels of a stream of frames are not cells.
    m_scope->plotView()->setDetectorLayout(
        header.hasFrames() ? DetectorLayout()
                           : withVerdictLimits(detectorOf(header), m_verdictLimits));
}

void DisplayTabs::setVerdictLimits(const VerdictLimits &limits)
{
    m_verdictLimits = limits;
    m_frames.setVerdictLimits(limits);
    m_profile->showNumbers(); // of the frame that is shown, by its new verdict
    showDetectorInScope();
}

//! Shows the control while a strip chart can be seen that has its span.
void DisplayTabs::showSpanControl()
{
    const bool canSeeScope = currentWidget() == m_scope || isPoppedOut(m_scope);
    const bool hasRoom = count() > 0; // beside the tabs
    m_span->setVisible(canSeeScope && hasRoom && m_span->applies());
}

void DisplayTabs::editSpan()
{
    if (!m_span->isTimed())
        return;
    if (count() == 0) // the control has its place beside the tabs
        popIn(m_scope);
    setCurrentWidget(m_scope); // does nothing for a scope in a separate window
    m_scope->setPlotMode(RVXScope::StripMode);
    m_span->edit();
}

void DisplayTabs::setTab(QWidget *page, const QString &title, bool present)
{
    if (!present && isPoppedOut(page))
        popIn(page);
    const int index = indexOf(page);
    if (present && index < 0 && !isPoppedOut(page))
        addTab(page, title);
    else if (!present && index >= 0)
        removeTab(index);
}

//! Tells the map where the stream has the fields of its spots, and in which unit their doses are.
void DisplayTabs::showSpotColumns()
{
    m_spotMap->spotMapView()->setColumnMapper(m_spots.newColumnMapper());
    const QString unit = m_session.model().header().channels[m_spots.channel("mu")].unit;
    m_spotMap->setDoseUnit(unit.isEmpty() ? QStringLiteral("MU") : unit);
}

void DisplayTabs::describeSpots()
{
    const QString missing = m_comparison->differences().section(QLatin1Char(';'), 0, 0);
    const QString form = m_spots.shownLayer() ? tr("%1; in all layers %2") : tr("%1; %2");
    m_spotMap->setTitle(missing.isEmpty() ? m_spots.description()
                                          : form.arg(m_spots.description(), missing));
}

void DisplayTabs::showLatestSpot()
{
    const MultichannelDeviceModel &model = m_session.model();
    const int row = model.rowCount() - 1;
    const auto text = [&](const char *channel) {
        const int column = m_spots.channel(channel);
        return column < 0 ? QString() : QString::number(model.receivedValue(row, column), 'f', 2);
    };
    m_spotMap->setXvalue(text("x"));
    m_spotMap->setYvalue(text("y"));
    m_spotMap->setDoseValue(text("mu"));
}

namespace {

const QVector<QPair<QString, RVXScope::PlotMode>> scopeDisplays = {
    {QStringLiteral("strip"), RVXScope::StripMode},
    {QStringLiteral("scope"), RVXScope::ScopeMode},
    {QStringLiteral("histogram"), RVXScope::HistogramMode},
};

} // namespace

bool DisplayTabs::offers(const QString &name) const
{
    const QList<QWidget *> optional = optionalDisplays();
    const auto page = std::find_if(optional.begin(), optional.end(), [&](const QWidget *display) {
        return display->objectName() == name;
    });
    return page == optional.end() || indexOf(*page) >= 0 || isPoppedOut(*page);
}

bool DisplayTabs::showDisplay(const QString &name)
{
    for (const auto &[scopeDisplay, mode] : scopeDisplays) {
        if (scopeDisplay == name) {
            popIn(m_scope);
            setCurrentWidget(m_scope);
            m_scope->SetPlotMode(mode);
            return true;
        }
    }
    for (QWidget *page : optionalDisplays()) {
        const bool isThere = indexOf(page) >= 0 || isPoppedOut(page);
        if (page->objectName() == name && isThere) {
            popIn(page);
            setCurrentWidget(page);
            return true;
        }
    }
    return false;
}

QMap<QString, QByteArray> DisplayTabs::windows() const
{
    QMap<QString, QByteArray> windows;
    for (const QWidget *page : poppedOutPages())
        windows.insert(page->objectName(), page->window()->saveGeometry());
    return windows;
}

void DisplayTabs::restoreWindows(const QMap<QString, QByteArray> &windows)
{
    QList<QWidget *> pages = optionalDisplays();
    pages.prepend(m_scope);
    for (QWidget *page : qAsConst(pages)) {
        if (indexOf(page) < 0 || !windows.contains(page->objectName()))
            continue;
        popOut(indexOf(page));
        page->window()->restoreGeometry(windows.value(page->objectName()));
        fitToScreen(page->window()); // its screen may be gone
    }
}

QString DisplayTabs::currentDisplay() const
{
    if (currentWidget() != m_scope)
        return currentWidget() ? currentWidget()->objectName() : QString();
    const auto shown =
        std::find_if(scopeDisplays.begin(), scopeDisplays.end(), [this](const auto &display) {
            return display.second == m_scope->plotMode();
        });
    return shown != scopeDisplays.end() ? shown->first : QString();
}

QWidget *DisplayTabs::displayInUse() const
{
    for (QWidget *page : poppedOutPages())
        if (page->isActiveWindow())
            return page;
    return currentWidget() ? currentWidget() : m_scope;
}

bool DisplayTabs::hasDrawn() const
{
    if (currentWidget() == m_profile)
        return m_frames.hasShownProfile();
    if (currentWidget() == m_position)
        return m_frames.hasShownPosition();
    if (currentWidget() == m_spotMap)
        return m_spots.rowCount() > 0;
    if (currentWidget() == m_comparison)
        return !m_comparison->differences().isEmpty();
    return m_scope->plotView()->showsReadings();
}

} // namespace Monitor
