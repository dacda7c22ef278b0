// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/CompanionPanes.h"

#include "monitor/core/Clock.h"
#include "monitor/window/CompanionPane.h"
#include "monitor/window/DisplayTabs.h"
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>
#include <corvale_qt/widgets/TimeSpanBox.h>

#include <qwt_plot.h>

#include <QMessageBox>
#include <QSplitter>

#include <algorithm>
#include <limits>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

constexpr double alignInterval = 0.1; // s
//! A pane has room for a chart with its scales; more of them scroll.
constexpr int leastPaneHeight = 360;
constexpr int leastHeight = 200;
constexpr double openEnd = std::numeric_limits<double>::quiet_NaN();

} // namespace

CompanionPanes::CompanionPanes(Companions &companions, DisplayTabs &lead, QWidget *parent)
    : QScrollArea(parent)
    , m_companions(companions)
    , m_lead(lead)
    , m_stack(new QSplitter(Qt::Vertical))
{
    setObjectName(QStringLiteral("companions"));
    setWidget(m_stack);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setMinimumHeight(leastHeight);
    hide();
    connect(&companions, &Companions::added, this, &CompanionPanes::addPane);
    connect(&companions, &Companions::closing, this, &CompanionPanes::removePane);
    const Companions::Member own = companions.members().front();
    connect(&own.session->clock(), &Clock::tick, this, &CompanionPanes::refreshIfDue);
    connect(lead.scope(), &RVXScope::timeAxisChanged, this, &CompanionPanes::alignAxes);
    connect(lead.spanControl()->box(), &TimeSpanBox::spanChanged, this, [this] {
        for (const CompanionPane *pane : qAsConst(m_panes))
            followSpan(pane->displays());
    });
}

CompanionPanes::~CompanionPanes() = default;

void CompanionPanes::addPane(Session &session)
{
    const auto members = m_companions.members();
    const auto member = std::find_if(members.begin(), members.end(), [&](const auto &each) {
        return each.session == &session;
    });
    auto *pane = new CompanionPane(*member);
    pane->setMinimumHeight(leastPaneHeight);
    m_panes.append(pane);
    m_stack->addWidget(pane);
    followSpan(pane->displays());
    applyOptions(*pane);
    connect(member->clock, &StreamClock::originChanged, this, &CompanionPanes::alignAxes);
    connect(&session, &Session::streamStarted, this, &CompanionPanes::alignAxes);
    connect(
        pane,
        &CompanionPane::closeAsked,
        this,
        [this, &session] {
            closeAsAsked(session);
        },
        Qt::QueuedConnection); // the button goes with the pane
    alignAxes();
    show();
    shareRoom();
}

/*! Gives all sources the same height. The first source gets at least the height of a pane, unless that is more than half of the
    room. */
void CompanionPanes::shareRoom()
{
    const int panes = m_panes.size();
    m_stack->setSizes(QVector<int>(panes, height()).toList());
    auto *all = qobject_cast<QSplitter *>(parentWidget());
    if (!all)
        return;
    const int height = all->height();
    const int lead = std::max(height / (1 + panes), std::min(height / 2, leastPaneHeight));
    all->setSizes({lead, height - lead});
}

void CompanionPanes::setOptions(const MonitorOptions &options)
{
    m_options = options;
    for (const CompanionPane *pane : qAsConst(m_panes))
        applyOptions(*pane);
}

void CompanionPanes::applyOptions(const CompanionPane &pane) const
{
    pane.companion().session->setRange(m_options.rangeLow, m_options.rangeHigh);
    pane.displays().setMinimumSum(m_options.minimumSum);
    pane.displays().setVerdictLimits(m_options.verdictLimits);
}

//! Closes a companion, unless that would end a recording which the operator wants to go on.
void CompanionPanes::closeAsAsked(Session &session)
{
    if (m_companions.nameOf(&session).isEmpty())
        return; // it was closed in between
    if (const Recorder *recorder = session.recorder()) {
        QMessageBox box(QMessageBox::Question,
                        tr("End the recording?"),
                        tr("Closing the source ends its recording. What was recorded stays in %1.")
                            .arg(recorder->fileName()),
                        QMessageBox::Close | QMessageBox::Cancel,
                        this);
        box.setTextFormat(Qt::PlainText); // a file may be called anything
        box.setDefaultButton(QMessageBox::Cancel);
        if (box.exec() != QMessageBox::Close)
            return;
    }
    m_companions.close(&session);
}

void CompanionPanes::removePane(Session &session)
{
    const auto found = std::find_if(m_panes.begin(), m_panes.end(), [&](const auto *pane) {
        return pane->companion().session == &session;
    });
    if (found == m_panes.end())
        return;
    CompanionPane *pane = *found;
    m_panes.erase(found);
    delete pane;
    setVisible(!m_panes.isEmpty());
    if (m_panes.isEmpty())
        m_lead.scope()->plotView()->setTimeEnd(openEnd);
}

void CompanionPanes::followSpan(DisplayTabs &displays) const
{
    displays.spanControl()->box()->setSpan(m_lead.spanControl()->box()->span());
}

void CompanionPanes::refreshIfDue()
{
    if (m_panes.isEmpty())
        return;
    const double now = m_companions.members().front().session->clock().seconds();
    if (now - m_alignedAt < alignInterval)
        return;
    m_alignedAt = now;
    alignEnds();
    followHold(false);
    for (CompanionPane *pane : qAsConst(m_panes))
        pane->refresh();
}

//! Makes all charts end at the same moment. A source whose clock is wrong keeps to its own newest reading.
void CompanionPanes::alignEnds()
{
    const std::optional<double> present = m_companions.present();
    const auto align = [&present](const StreamClock &clock, RVXScope &scope) {
        const bool isPlaced = present && clock.origin() && clock.isInStep();
        scope.plotView()->setTimeEnd(isPlaced ? *present - *clock.origin() : openEnd);
    };
    align(*m_companions.members().front().clock, *m_lead.scope());
    for (const CompanionPane *pane : qAsConst(m_panes))
        align(*pane->companion().clock, *pane->displays().scope());
}

//! Gives all time axes the same labels, each from the moment at which the times of its source are 0.
void CompanionPanes::alignAxes()
{
    for (const CompanionPane *pane : qAsConst(m_panes)) {
        RVXScope &scope = *pane->displays().scope();
        const QDateTime origin = pane->companion().clock->originDate();
        scope.setTimeOrigin(origin);
        scope.setTimeAxis(origin.isValid() ? m_lead.scope()->timeAxis() : RVXScope::Seconds);
    }
    followHold(true); // it lies elsewhere in charts whose times are others
}

/*! Shows the stretch of time that the operator holds in the chart of the lead in the other charts, too: when it has changed, or
    anew, for charts that do not show it yet. */
void CompanionPanes::followHold(bool isAnew)
{
    const RVXScope &lead = *m_lead.scope();
    const std::optional<double> origin = m_companions.members().front().clock->origin();
    const bool isHeld =
        lead.plotView()->isHeld() && lead.plotMode() == RVXScope::StripMode && origin;
    const QwtPlot *plot = lead.plotView()->findChild<QwtPlot *>();
    const QwtInterval x = plot->axisInterval(QwtPlot::xBottom);
    const QwtInterval held =
        isHeld ? QwtInterval(*origin + x.minValue(), *origin + x.maxValue()) : QwtInterval();
    if (m_held == held && !(isAnew && isHeld))
        return;
    for (const CompanionPane *pane : qAsConst(m_panes)) {
        const StreamClock &clock = *pane->companion().clock;
        RVXScopePlotView *view = pane->displays().scope()->plotView();
        if (isHeld && clock.origin() && view->plotMode() == RVXScopePlotView::StripMode)
            view->zoomToX(held.minValue() - *clock.origin(), held.maxValue() - *clock.origin());
        else
            view->goLive();
    }
    m_held = held;
}

} // namespace Monitor
