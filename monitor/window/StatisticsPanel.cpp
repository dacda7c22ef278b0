// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/StatisticsPanel.h"

#include "monitor/readings/FitParameters.h"
#include "monitor/session/Session.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/WindowSettings.h"
#include <corvale_qt/beam/profile/RVXSpectrogram.h>
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>
#include <corvale_qt/scope/RVXStatisticsSetupPage.h>

#include <QFileInfo>

namespace Monitor {

using namespace Corvale_Qt;

StatisticsPanel::StatisticsPanel(Session &session,
                                 DisplayTabs &displays,
                                 const WindowSettings &settings,
                                 QWidget *parent)
    : QScrollArea(parent)
    , m_page(new RVXStatisticsSetupPage)
{
    m_page->addPlotView(displays.scope()->plotView());
    // The page names no parameters of what the histogram does not show; the profile goes on with those that a report has.
    const FitParameters initial;
    RVXSpectrogram *profile = displays.profile();
    connect(m_page,
            &RVXStatisticsSetupPage::RegressionOptions,
            profile,
            [profile, initial](bool on, const QVector<double> &parameters, int peaks) {
                profile->SetRegressionOptions(on, on ? parameters : initial.regression, peaks);
            });
    connect(m_page,
            &RVXStatisticsSetupPage::CoGOptions,
            profile,
            [profile, initial](bool on, const QVector<double> &parameters, int peaks) {
                profile->SetCoGOptions(on, on ? parameters : initial.centreOfGravity, peaks);
            });
    if (!settings.hasStatistics())
        connect(&session, &Session::streamStarted, this, &StatisticsPanel::suggestFor);
    m_page->setApplicationSettings(QFileInfo(settings.fileName()), false, settings.isXml());

    setWidget(m_page);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    // A small screen shows a part of the page and scrolls, so that the displays keep their room.
    setMinimumWidth(m_page->minimumSizeHint().width() / 3);
}

//! Enables a fit for each profile of strips, both of which lie in one histogram, until the operator chooses.
void StatisticsPanel::suggestFor(const StreamHeader &header)
{
    using Axis = DetectorLayout::Axis;
    const DetectorLayout &detector = header.detector;
    const bool isOnePlane = detector.kind() == DetectorKind::Strips
        && (detector.cells(Axis::X) == 0 || detector.cells(Axis::Y) == 0);
    // Two planes share the histogram evenly, so unequal ones would be cut at a wrong place.
    if (header.kind != StreamKind::Strips && !isOnePlane)
        return;
    m_page->set_peaks(isOnePlane ? 1 : 2);
    m_page->enable_regression();
}

} // namespace Monitor
