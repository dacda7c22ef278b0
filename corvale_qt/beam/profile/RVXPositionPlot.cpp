// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXPositionPlot.h"

#include "corvale_qt/beam/profile/NoBeamText_p.h"
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/plot/AccessibleChart_p.h"
#include "corvale_qt/plot/GridLines_p.h"
#include "corvale_qt/plot/PlotAxis_p.h"
#include "corvale_qt/plot/PlotRange_p.h"
#include "corvale_qt/plot/ScaleFractions_p.h"
#include "corvale_qt/plot/SquarePlot_p.h"

#include "ui_RVXPositionPlot.h"

#include <qwt_interval.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_scale_map.h>

#include <QPainter>
#include <QPointF>
#include <QTimer>
#include <QVector>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Corvale_Qt {

namespace {

//! Returns a length that follows the canvas, so that the marker is visible on small and on large displays.
double shareOf(const QRectF &canvas, double share, double atLeast)
{
    return std::max(atLeast, share * std::min(canvas.width(), canvas.height()));
}

bool isPlottablePoint(const QPointF &point)
{
    return isPlottable(point.x()) && isPlottable(point.y());
}

//! How many pixels beyond its axis a position at the very end may come to lie.
constexpr double rounding = 1e-6;

//! Returns the pixels from one end of an axis to the other. The canvas may be a pixel larger.
QwtInterval pixelsOf(const QwtScaleMap &map)
{
    return QwtInterval(map.p1(), map.p2()).normalized();
}

/*! Draws the latest position as an open circle with a cross, or as an arrow if it lies beyond the end of an axis.
    Draws nothing without a position. */
class PlotItem : public QwtPlotCurve
{
public:
    PlotItem();

    void setPosition(double x, double y);

protected:
    void drawSeries(QPainter *painter,
                    const QwtScaleMap &xMap,
                    const QwtScaleMap &yMap,
                    const QRectF &canvasRect,
                    int from,
                    int to) const override;

private:
    static void drawMarker(QPainter *painter, const QPointF &centre, double radius);
    void
    drawArrow(QPainter *painter, const QPointF &tip, const QPointF &beyond, double radius) const;

    QPointF m_position;
};

/*! Draws the last positions as dots that fade with age. The last sample is the newest. */
class TrailCurve : public QwtPlotCurve
{
public:
    TrailCurve();

    QRectF boundingRect() const override;

protected:
    void drawDots(QPainter *painter,
                  const QwtScaleMap &xMap,
                  const QwtScaleMap &yMap,
                  const QRectF &canvasRect,
                  int from,
                  int to) const override;
};

/*! The X/Y plane with the marker and the trail. */
class PositionPlot : public SquarePlot
{
public:
    static constexpr int trailLength = 20;

    explicit PositionPlot(QWidget *parent = nullptr);

    //! Takes the newest position, which the next replot shows.
    void append(double x, double y);
    //! Removes the marker, and says why.
    void removeMarker(const QString &reason);
    bool saysNoBeam() const
    {
        return m_noBeam->isVisible() && m_noBeam->text() == NoBeamText::noBeam();
    }
    //! Returns what a screen reader says of the plot.
    ChartWords words() const;

private:
    TrailCurve *m_trail; // the items belong to the plot
    PlotItem *m_marker;
    NoBeamText *m_noBeam;
    QVector<double> m_trailX;
    QVector<double> m_trailY;
};

PlotItem::PlotItem()
    : m_position(std::numeric_limits<double>::quiet_NaN(), 0)
{
    setRenderHint(RenderAntialiased, true);
    setItemAttribute(AutoScale, false);
    setPen(Qt::yellow);
    setZ(20);
}

void PlotItem::setPosition(double x, double y)
{
    m_position = {x, y};
}

void PlotItem::drawSeries(QPainter *painter,
                          const QwtScaleMap &xMap,
                          const QwtScaleMap &yMap,
                          const QRectF &canvasRect,
                          int /*from*/,
                          int /*to*/) const
{
    if (!isPlottablePoint(m_position))
        return;
    const QPointF centre = QwtScaleMap::transform(xMap, yMap, m_position);
    const double radius = shareOf(canvasRect, 0.025, 6);
    painter->setPen(QPen(pen().color(), shareOf(canvasRect, 0.004, 1.5)));
    const QwtInterval columns = pixelsOf(xMap), rows = pixelsOf(yMap);
    const QPointF onScale(std::clamp(centre.x(), columns.minValue(), columns.maxValue()),
                          std::clamp(centre.y(), rows.minValue(), rows.maxValue()));
    const QPointF beyond = centre - onScale;
    if (std::abs(beyond.x()) <= rounding && std::abs(beyond.y()) <= rounding)
        drawMarker(painter, centre, radius);
    else
        drawArrow(painter, onScale, beyond, radius);
}

void PlotItem::drawMarker(QPainter *painter, const QPointF &centre, double radius)
{
    const QPointF right(1.6 * radius, 0);
    const QPointF down(0, 1.6 * radius);
    painter->setBrush(Qt::NoBrush);
    painter->drawEllipse(centre, radius, radius);
    painter->drawLine(centre - right, centre + right);
    painter->drawLine(centre - down, centre + down);
}

//! Draws an arrow that points straight out of the edge, or the corner, that the position lies beyond.
void PlotItem::drawArrow(QPainter *painter,
                         const QPointF &tip,
                         const QPointF &beyond,
                         double radius) const
{
    const auto direction = [](double way) {
        return way > rounding ? 1 : way < -rounding ? -1 : 0;
    };
    const int x = direction(beyond.x());
    const int y = direction(beyond.y());
    const double length = 2.4 * radius / std::hypot(x, y);
    const QPointF back(-length * x, -length * y);
    const QPointF aside(0.4 * back.y(), -0.4 * back.x());
    painter->setBrush(pen().color());
    painter->drawPolygon(QPolygonF({tip, tip + back + aside, tip + back - aside}));
}

TrailCurve::TrailCurve()
{
    setStyle(Dots);
    setRenderHint(RenderAntialiased, true);
    setPen(RVXPlotColors::color(0));
    setZ(10);
}

QRectF TrailCurve::boundingRect() const
{
    QRectF bounds(1.0, 1.0, -2.0, -2.0); // Qwt's "nothing to show"
    for (size_t i = 0; i < dataSize(); ++i) {
        const QPointF point = sample(static_cast<int>(i));
        if (!isPlottablePoint(point))
            continue;
        if (bounds.width() < 0)
            bounds = QRectF(point, QSizeF(0, 0));
        bounds.setCoords(std::min(bounds.left(), point.x()),
                         std::min(bounds.top(), point.y()),
                         std::max(bounds.right(), point.x()),
                         std::max(bounds.bottom(), point.y()));
    }
    // Leaves room for whole dots and the whole marker at the edges.
    const double x = 0.05 * bounds.width();
    const double y = 0.05 * bounds.height();
    return bounds.width() < 0 ? bounds : bounds.adjusted(-x, -y, x, y);
}

void TrailCurve::drawDots(QPainter *painter,
                          const QwtScaleMap &xMap,
                          const QwtScaleMap &yMap,
                          const QRectF &canvasRect,
                          int from,
                          int to) const
{
    QColor color = pen().color();
    const double radius = shareOf(canvasRect, 0.008, 2);
    painter->setPen(Qt::NoPen);
    for (int i = from; i <= to; ++i) {
        const QPointF point = sample(i);
        if (!isPlottablePoint(point))
            continue;
        const QPointF centre = QwtScaleMap::transform(xMap, yMap, point);
        if (!canvasRect.contains(centre))
            continue;
        const int age = to - i;
        // The oldest dot keeps some of its colour.
        color.setAlphaF(1.0 - 0.85 * age / PositionPlot::trailLength);
        painter->setBrush(color);
        painter->drawEllipse(centre, radius, radius);
    }
}

PositionPlot::PositionPlot(QWidget *parent)
    : SquarePlot(parent)
    , m_trail(new TrailCurve)
    , m_marker(new PlotItem)
    , m_noBeam(new NoBeamText)
{
    auto *canvas = new QwtPlotCanvas(this);
    canvas->setFrameStyle(QFrame::NoFrame);
    setCanvas(canvas);
    setCanvasBackground(Qt::black);
    setAccessibleName(RVXPositionPlot::tr("Position"));
    describeChart(this, [this] {
        return words();
    });
    setAxisTitle(yLeft, RVXPositionPlot::tr("Y Position"));
    setAxisTitle(xBottom, RVXPositionPlot::tr("X Position"));
    styleAxis(this, yLeft);
    styleAxis(this, xBottom);
    followData(this, yLeft);
    followData(this, xBottom);

    auto *grid = new GridLines;
    grid->enableXMin(true);
    grid->enableYMin(true);
    grid->setMajorPen(QColor(88, 88, 88));
    grid->setMinorPen(QColor(48, 48, 48));
    grid->setZ(0);
    grid->attach(this);
    m_trail->attach(this);
    m_marker->attach(this);
    m_noBeam->attach(this);
    replot();
}

ChartWords PositionPlot::words() const
{
    if (m_noBeam->isVisible())
        return {m_noBeam->text(), QString()};
    if (m_trailX.isEmpty())
        return {RVXPositionPlot::tr("no position yet"), QString()};
    return {RVXPositionPlot::tr("newest position"),
            QStringLiteral("%1 %2; %3 %4")
                .arg(axisTitle(xBottom).text(),
                     QString::number(m_trailX.last(), 'g', 4),
                     axisTitle(yLeft).text(),
                     QString::number(m_trailY.last(), 'g', 4))};
}

void PositionPlot::append(double x, double y)
{
    if (m_trailX.size() >= trailLength) {
        m_trailX.removeFirst();
        m_trailY.removeFirst();
    }
    m_trailX << x;
    m_trailY << y;
    m_trail->setSamples(m_trailX, m_trailY);
    m_marker->setPosition(x, y);
    m_noBeam->setVisible(false);
}

void PositionPlot::removeMarker(const QString &reason)
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    m_marker->setPosition(none, none);
    m_noBeam->setText(reason);
    m_noBeam->setVisible(true);
}

} // namespace

class RVXPositionPlotPrivate
{
public:
    void applyScale();
    void redraw();
    void takeNewest();

    Ui::RVXPositionPlot ui{};
    PositionPlot *plot = nullptr;
    QTimer timer;
    QTimer showNewest; // fires once the events that are queued already are handled
    PlotRange xRange;
    PlotRange yRange;
    double fraction = 1.0;
    double minimumSum = 0.0;
    bool autoScale = true;
    bool redrawPending = false;
    bool newestWaits = false; // the newest position is not painted yet
};

void RVXPositionPlotPrivate::applyScale()
{
    if (autoScale) {
        followData(plot, QwtPlot::xBottom);
        followData(plot, QwtPlot::yLeft);
    } else {
        xRange.apply(plot, QwtPlot::xBottom, fraction);
        yRange.apply(plot, QwtPlot::yLeft, fraction);
    }
    plot->replot();
}

void RVXPositionPlotPrivate::redraw()
{
    plot->replot();
    redrawPending = false;
    newestWaits = false;
}

//! Shows a position that has just come, at once if the last one was shown long enough ago.
void RVXPositionPlotPrivate::takeNewest()
{
    newestWaits = true;
    if (!timer.isActive())
        timer.start();
    if (redrawPending)
        redraw();
}

RVXPositionPlot::RVXPositionPlot(QWidget *parent)
    : QWidget(parent)
    , d_ptr(new RVXPositionPlotPrivate)
{
    Q_D(RVXPositionPlot);
    d->ui.setupUi(this);
    d->plot = new PositionPlot(d->ui.frame);
    auto *layout = new QHBoxLayout(d->ui.frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(d->plot);
    for (QTimer *timer : {&d->timer, &d->showNewest})
        timer->setParent(this); // children of the widget tell whether it rests
    connect(&d->timer, SIGNAL(timeout()), this, SLOT(update()));
    d->timer.start(100);
    d->showNewest.setSingleShot(true);
    connect(&d->showNewest, &QTimer::timeout, this, [d] {
        if (d->redrawPending && d->newestWaits)
            d->redraw();
    });
}

RVXPositionPlot::~RVXPositionPlot() = default;

void RVXPositionPlot::setData(double x, double y)
{
    Q_D(RVXPositionPlot);
    d->plot->append(x, y);
    d->takeNewest();
}

void RVXPositionPlot::setData(double x, double y, double sum)
{
    Q_D(RVXPositionPlot);
    if (isPlottablePoint(QPointF(x, y)) && sum >= d->minimumSum)
        setData(x, y);
    else
        showNoBeam();
}

void RVXPositionPlot::showNoBeam()
{
    Q_D(RVXPositionPlot);
    d->plot->removeMarker(NoBeamText::noBeam());
    d->takeNewest();
}

void RVXPositionPlot::showNotValid()
{
    Q_D(RVXPositionPlot);
    d->plot->removeMarker(tr("position not valid"));
    d->takeNewest();
}

double RVXPositionPlot::minimumSum() const
{
    Q_D(const RVXPositionPlot);
    return d->minimumSum;
}

void RVXPositionPlot::setMinimumSum(double sum)
{
    Q_D(RVXPositionPlot);
    if (!std::isnan(sum))
        d->minimumSum = sum;
}

bool RVXPositionPlot::showsNoBeam() const
{
    Q_D(const RVXPositionPlot);
    return d->plot->saysNoBeam();
}

void RVXPositionPlot::setPositionUnit(const QString &unit)
{
    Q_D(RVXPositionPlot);
    const QString behind = unit.isEmpty() ? unit : QStringLiteral(" (%1)").arg(unit);
    d->plot->setAxisTitle(QwtPlot::xBottom, tr("X Position") + behind);
    d->plot->setAxisTitle(QwtPlot::yLeft, tr("Y Position") + behind);
}

void RVXPositionPlot::setScale(int index)
{
    Q_D(RVXPositionPlot);
    d->autoScale = index == kAutoScaleIndex;
    if (!d->autoScale)
        d->fraction = scaleFraction(index);
    d->applyScale();
}

void RVXPositionPlot::setXScale(double min, double max)
{
    Q_D(RVXPositionPlot);
    if (d->xRange.set(min, max, "RVXPositionPlot::setXScale"))
        updateScale();
}

void RVXPositionPlot::setYScale(double min, double max)
{
    Q_D(RVXPositionPlot);
    if (d->yRange.set(min, max, "RVXPositionPlot::setYScale"))
        updateScale();
}

void RVXPositionPlot::updateScale()
{
    Q_D(RVXPositionPlot);
    d->applyScale();
}

void RVXPositionPlot::update()
{
    Q_D(RVXPositionPlot);
    const bool isIdle = std::exchange(d->redrawPending, true) && !d->newestWaits;
    if (isIdle)
        d->timer.stop(); // until the next position
    // From now on the next position is shown at once. If none comes, the timer shows the last one.
    if (d->newestWaits)
        d->showNewest.start();
}

} // namespace Corvale_Qt
