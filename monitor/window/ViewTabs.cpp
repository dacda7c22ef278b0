// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ViewTabs.h"

#include "monitor/session/Session.h"
#include <corvale_qt/beam/SpotMapView.h>
#include <corvale_qt/beam/SpotMapWidget.h>
#include <corvale_qt/scope/RVXScope.h>

#include <QMap>

namespace Monitor {

using namespace Corvale_Qt;

ViewTabs::ViewTabs(Session &session, QWidget *parent)
    : RVXPopOutTabWidget(parent)
    , m_session(session)
    , m_scope(new RVXScope(this))
    , m_profile(new RVXSpectrogram(this))
    , m_position(new RVXPositionPlot(this))
    , m_spotMap(new SpotMapWidget(this))
    , m_frames(&session.model(), m_profile, m_position)
    , m_spots(&session.model())
{
    m_scope->setObjectName(QStringLiteral("scope"));
    m_profile->setObjectName(QStringLiteral("profile"));
    m_position->setObjectName(QStringLiteral("position"));
    m_spotMap->setObjectName(QStringLiteral("spots"));
    m_profile->sidebarEnabled(true);
    m_scope->setModel(&session.model());
    m_spotMap->spotMapView()->setModel(&m_spots);
    addTab(m_scope, tr("Scope"));
    for (QWidget *page : {static_cast<QWidget *>(m_profile),
                          static_cast<QWidget *>(m_position),
                          static_cast<QWidget *>(m_spotMap)})
        page->hide();

    connect(&session, &Session::streamStarted, this, &ViewTabs::beginStream);
    connect(m_spotMap, &SpotMapWidget::layerChange, &m_spots, &SpotLayers::step);
    connect(&m_spots, &SpotLayers::changed, this, [this] {
        m_spotMap->setTitle(m_spots.description());
    });
    connect(&m_spots, &QAbstractItemModel::rowsInserted, this, &ViewTabs::showLatestSpot);
}

void ViewTabs::beginStream()
{
    const Layout layout = m_session.model().header().layout;
    if (m_spots.hasSpots())
        m_spotMap->spotMapView()->setColumnMapper(m_spots.newColumnMapper());
    setTab(m_profile, tr("2D profile"), m_frames.hasProfile());
    setTab(m_position, tr("Position"), m_frames.hasPosition());
    setTab(m_spotMap, tr("Spot map"), m_spots.hasSpots());
    m_scope->SetPlotMode(layout == Layout::Channels ? RVXScope::StripMode
                                                    : RVXScope::HistogramMode);
    if (m_frames.hasProfile())
        setCurrentWidget(m_profile);
    else if (m_spots.hasSpots())
        setCurrentWidget(m_spotMap);
}

//! A page that an operator took out into a window stays there.
void ViewTabs::setTab(QWidget *page, const QString &title, bool present)
{
    if (isPoppedOut(page))
        return;
    const int index = indexOf(page);
    if (present && index < 0)
        addTab(page, title);
    else if (!present && index >= 0)
        removeTab(index);
}

void ViewTabs::showLatestSpot()
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

bool ViewTabs::showView(const QString &name)
{
    static const QMap<QString, RVXScope::PlotMode> modes = {
        {QStringLiteral("strip"), RVXScope::StripMode},
        {QStringLiteral("scope"), RVXScope::ScopeMode},
        {QStringLiteral("histogram"), RVXScope::HistogramMode}};
    if (modes.contains(name)) {
        setCurrentWidget(m_scope);
        m_scope->SetPlotMode(modes.value(name));
        return true;
    }
    for (QWidget *page : {static_cast<QWidget *>(m_profile),
                          static_cast<QWidget *>(m_position),
                          static_cast<QWidget *>(m_spotMap)}) {
        if (page->objectName() == name && indexOf(page) >= 0) {
            setCurrentWidget(page);
            return true;
        }
    }
    return false;
}

bool ViewTabs::hasDrawn() const
{
    const bool needsProfile =
        currentWidget() == m_profile || (currentWidget() == m_position && m_frames.hasProfile());
    if (needsProfile)
        return m_frames.hasShownProfile();
    if (currentWidget() == m_spotMap)
        return m_spots.rowCount() > 0;
    return m_session.model().rowCount() > 2;
}

} // namespace Monitor
