// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/SpotComparison.h"

#include "monitor/readings/SpotReport.h"
#include "monitor/window/Look.h"
#include <corvale_qt/beam/spots/RVXPositionErrorPlot.h>
#include <corvale_qt/beam/spots/SpotMapView.h>
#include <corvale_qt/beam/spots/SpotMapWidget.h>

#include <QLabel>
#include <QVBoxLayout>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

constexpr int comparisonInterval = 200; // ms

} // namespace

SpotComparison::SpotComparison(const SpotPlan &plan,
                               MultichannelDeviceModel *measured,
                               SpotLayers *layers,
                               SpotMapWidget *map,
                               QWidget *parent)
    : QWidget(parent)
    , m_plan(plan)
    , m_measured(measured)
    , m_layers(layers)
    , m_map(map)
    , m_target(new SpotMapView(this))
    , m_plot(new RVXPositionErrorPlot(this))
    , m_numbers(new QLabel(this))
{
    m_numbers->setObjectName(QStringLiteral("positionErrors"));
    m_numbers->setTextFormat(Qt::PlainText);
    m_numbers->setWordWrap(true);
    m_numbers->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_numbers->setMargin(Look::gap / 2);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_plot, 1);
    layout->addWidget(m_numbers);
    m_target->hide();
    m_plot->setTolerance(float(plan.toleranceX), float(plan.toleranceY));
    m_plot->setModel(&m_errors);
    m_planned.startStream(plan.spots.header);
    m_planned.addReadings(plan.spots.readings);

    m_refresh.setSingleShot(true);
    m_refresh.setInterval(comparisonInterval);
    connect(&m_refresh, &QTimer::timeout, this, &SpotComparison::refresh);
    connect(layers, &SpotLayers::changed, this, &SpotComparison::followLayer);
    connect(measured, &QAbstractItemModel::modelReset, this, &SpotComparison::beginStream);
    connect(measured, &QAbstractItemModel::rowsInserted, this, [this] {
        if (isPresent() && !m_refresh.isActive())
            m_refresh.start();
    });
    beginStream();
}

bool SpotComparison::isPresent() const
{
    return m_layers->hasSpots()
        && (m_plan.spots.size() > 0 || SpotErrors::isPlanned(m_measured->header()));
}

void SpotComparison::beginStream()
{
    m_errors.setSpots({});
    m_numbers->clear();
    m_differences.clear();
    const bool ofOneList = m_plan.spots.size() == 0;
    if (!isPresent()) {
        m_map->setDiffTarget(nullptr);
        return;
    }
    m_target->setModel(nullptr);
    m_target->setColumnMapper(ofOneList ? m_layers->newPlannedMapper()
                                        : m_plannedLayers.newColumnMapper());
    m_target->setModel(ofOneList ? m_layers : &m_plannedLayers);
    m_map->spotMapView()->setDiffTarget(m_target);
    m_refresh.start();
}

void SpotComparison::followLayer()
{
    m_plannedLayers.show(m_layers->shownLayer());
}

SpotRows SpotComparison::measuredRows() const
{
    SpotRows rows;
    rows.header = m_measured->header();
    const int channels = rows.header.channels.size();
    rows.readings.clear(channels);
    std::vector<double> values(static_cast<std::size_t>(channels));
    for (int row = 1; row < m_measured->rowCount(); ++row) {
        for (int channel = 0; channel < channels; ++channel)
            values[std::size_t(channel)] = m_measured->receivedValue(row, channel);
        rows.readings.append(m_measured->doubleData(row, 0), values.data());
    }
    return rows;
}

void SpotComparison::refresh()
{
    if (!isPresent())
        return;
    SpotReport report;
    report.toleranceX = m_plan.toleranceX;
    report.toleranceY = m_plan.toleranceY;
    report.errors = m_plan.spots.size() > 0 ? SpotErrors::of(measuredRows(), m_plan.spots)
                                            : SpotErrors::ofOneList(measuredRows());
    m_errors.setSpots(report.errors.spots);
    m_differences = report.doses();
    m_numbers->setText(report.positions() + QLatin1Char('\n') + m_differences);
    Q_EMIT changed();
}

} // namespace Monitor
