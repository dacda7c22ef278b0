// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotMapWidget.h"

#include "corvale_qt/beam/spots/Logging_p.h"
#include "corvale_qt/beam/spots/SpotLegend_p.h"
#include "corvale_qt/plot/PlotAxis_p.h"
#include "corvale_qt/widgets/CheckedTint_p.h"

#include "ui_SpotMapWidget.h"

#include <qwt_scale_engine.h>

#include <QKeyEvent>

namespace Corvale_Qt {

namespace {

//! The length of a scale in pixels for each of its major ticks.
constexpr int pixelsPerTick = 55;
constexpr int minorTicks = 5;

QwtScaleDiv scaleDiv(double from, double to, int maxMajorTicks)
{
    // A map without spots has no position, so its scales show no numbers.
    if (!(from < to))
        return QwtScaleDiv(0.0, 1.0);
    return QwtLinearScaleEngine().divideScale(from, to, maxMajorTicks, minorTicks);
}

} // namespace

class SpotMapWidgetPrivate
{
public:
    void setUpAxes();
    void setUpButtons(SpotMapWidget *q);
    void showMode(SpotMapView::DisplayMode mode);
    void setScales();
    void placeMap();

    Ui::SpotMapWidget ui{};
    SpotLegend *legend = nullptr;
};

void SpotMapWidgetPrivate::setUpAxes()
{
    ui.xAxis->setAlignment(QwtScaleDraw::BottomScale);
    ui.xAxis->setTitle(SpotMapWidget::tr("X Position (mm)"));
    ui.yAxis->setAlignment(QwtScaleDraw::LeftScale);
    ui.yAxis->setTitle(SpotMapWidget::tr("Y Position (mm)"));
    for (QwtScaleWidget *axis : {ui.xAxis, ui.yAxis}) {
        axis->setScaleDraw(new ThinnedScaleDraw);
        axis->setMargin(1);
    }
}

void SpotMapWidgetPrivate::setUpButtons(SpotMapWidget *q)
{
    const auto shows = [this, q](QPushButton *button, SpotMapView::DisplayMode mode) {
        QObject::connect(button, &QPushButton::toggled, q, [this, mode](bool checked) {
            if (checked)
                ui.spotMapView->setDisplayMode(mode);
        });
    };
    for (QPushButton *button : {ui.DataButton, ui.DifferenceButton, ui.DiffOverlayButton})
        new CheckedTint(button);
    shows(ui.DataButton, SpotMapView::Data);
    shows(ui.DifferenceButton, SpotMapView::Difference);
    shows(ui.DiffOverlayButton, SpotMapView::DifferenceOverlay);

    QObject::connect(ui.spotMapView,
                     &SpotMapView::displayModeChanged,
                     q,
                     [this](SpotMapView::DisplayMode mode) {
                         showMode(mode);
                     });
    // Without a map to compare with, there is no mode to choose.
    QObject::connect(ui.spotMapView, &SpotMapView::diffTargetChanged, q, [this](bool present) {
        ui.buttonStack->setCurrentWidget(present ? ui.buttons : ui.nobuttons);
    });
}

void SpotMapWidgetPrivate::showMode(SpotMapView::DisplayMode mode)
{
    QPushButton *const buttons[] = {ui.DataButton, ui.DifferenceButton, ui.DiffOverlayButton};
    buttons[mode]->setChecked(true);
}

void SpotMapWidgetPrivate::setScales()
{
    const QRectF bounds = ui.spotMapView->bounds();
    const QSize size = ui.mapArea->size();
    const int ticks = qMax(2, qMin(size.width(), size.height()) / pixelsPerTick);
    ui.xAxis->setScaleDiv(scaleDiv(bounds.left(), bounds.right(), ticks));
    ui.yAxis->setScaleDiv(scaleDiv(bounds.top(), bounds.bottom(), ticks));
}

/*! Places the largest square map that leaves room for both scales, near the middle of the area. A scale is
    longer than the map by half a label at each end; its border distances keep the ends of its line on the edges
    of the map. */
void SpotMapWidgetPrivate::placeMap()
{
    int left = 0;
    int right = 0;
    ui.xAxis->getBorderDistHint(left, right);
    int top = 0;
    int bottom = 0;
    ui.yAxis->getBorderDistHint(top, bottom);
    const QSize area = ui.mapArea->size();
    int xAxisHeight = 0;
    int yAxisWidth = 0;
    int before = 0;
    int below = 0;
    int side = qMin(area.width(), area.height());
    // A title that is longer than its scale takes a second line, and so leaves less room for the map.
    for (int round = 0; round < 2; ++round) {
        xAxisHeight = ui.xAxis->dimForLength(left + side + right, ui.xAxis->font());
        yAxisWidth = ui.yAxis->dimForLength(top + side + bottom, ui.yAxis->font());
        // Half a label may be longer than the other scale is wide.
        before = qMax(yAxisWidth, left);
        below = qMax(xAxisHeight, bottom);
        side = qMax(0, qMin(area.width() - before - right, area.height() - top - below));
    }
    // The middle of the map lies under the title if the scales leave it room there.
    const int x = qBound(before, (area.width() - side) / 2, area.width() - right - side);
    const int y = qBound(top, (area.height() - side) / 2, area.height() - below - side);

    ui.spotMapView->setGeometry(x, y, side, side);
    ui.xAxis->setBorderDist(left, right);
    ui.xAxis->setGeometry(x - left, y + side, left + side + right, xAxisHeight);
    ui.yAxis->setBorderDist(top, bottom);
    ui.yAxis->setGeometry(x - yAxisWidth, y - top, yAxisWidth, top + side + bottom);
}

SpotMapWidget::SpotMapWidget(QWidget *parent)
    : QWidget(parent)
    , d_ptr(std::make_unique<SpotMapWidgetPrivate>())
{
    Q_D(SpotMapWidget);
    d->ui.setupUi(this);
    d->setUpAxes();
    d->setUpButtons(this);
    d->legend = new SpotLegend(*d->ui.spotMapView, this);
    d->legend->setVisible(false);
    d->ui.verticalLayout->insertWidget(d->ui.verticalLayout->indexOf(d->ui.infoPane), d->legend);
    d->ui.spotMapView->setFrameShape(QFrame::NoFrame);
    setFocusProxy(d->ui.spotMapView);
    d->ui.mapArea->installEventFilter(this);
    connect(d->ui.spotMapView, &SpotMapView::boundsChanged, this, &SpotMapWidget::updateScale);
    d->setScales();
}

SpotMapWidget::~SpotMapWidget() = default;

SpotMapView *SpotMapWidget::spotMapView() const
{
    Q_D(const SpotMapWidget);
    return d->ui.spotMapView;
}

void SpotMapWidget::setTitle(const QString &title)
{
    Q_D(SpotMapWidget);
    d->ui.titleLabel->setText(title);
}

void SpotMapWidget::setXvalue(const QString &value)
{
    Q_D(SpotMapWidget);
    d->ui.x_value->setText(value);
}

void SpotMapWidget::setYvalue(const QString &value)
{
    Q_D(SpotMapWidget);
    d->ui.y_value->setText(value);
}

void SpotMapWidget::setDoseValue(const QString &value)
{
    Q_D(SpotMapWidget);
    d->ui.dose_value->setText(value);
}

void SpotMapWidget::setDoseUnit(const QString &unit)
{
    Q_D(SpotMapWidget);
    d->ui.dose_label->setText(unit.isEmpty() ? tr("dose:") : tr("dose(%1):").arg(unit));
    d->ui.dose_label->setTextFormat(Qt::PlainText);
    d->legend->setUnit(unit);
}

void SpotMapWidget::setLegendVisible(bool visible)
{
    Q_D(SpotMapWidget);
    d->legend->setVisible(visible);
}

bool SpotMapWidget::isLegendVisible() const
{
    Q_D(const SpotMapWidget);
    return !d->legend->isHidden();
}

void SpotMapWidget::setDiffTarget(SpotMapWidget *target)
{
    Q_D(SpotMapWidget);
    d->ui.spotMapView->setDiffTarget(target ? target->spotMapView() : nullptr);
}

void SpotMapWidget::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_PageUp:
        Q_EMIT layerChange(1);
        break;
    case Qt::Key_PageDown:
        Q_EMIT layerChange(-1);
        break;
    default:
        event->ignore();
        break;
    }
}

bool SpotMapWidget::eventFilter(QObject *watched, QEvent *event)
{
    Q_D(SpotMapWidget);
    if (watched == d->ui.mapArea && event->type() == QEvent::Resize)
        d->setScales();
    // The scales post a layout request when their labels or fonts change.
    if (watched == d->ui.mapArea
        && (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest))
        d->placeMap();
    return QWidget::eventFilter(watched, event);
}

void SpotMapWidget::updateScale(QRectF)
{
    Q_D(SpotMapWidget);
    qCDebug(spotsLog) << "update scale";
    d->setScales();
    d->placeMap();
}

} // namespace Corvale_Qt
