// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXSplitPlot.h"

#include "corvale_qt/beam/profile/Logging_p.h"
#include "corvale_qt/beam/profile/NoBeamText_p.h"
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/plot/AccessibleChart_p.h"
#include "corvale_qt/plot/LayoutWhenShown_p.h"
#include "corvale_qt/plot/PlotAxis_p.h"
#include "corvale_qt/plot/PlotRange_p.h"
#include "corvale_qt/plot/ScaleFractions_p.h"

#include "ui_RVXSplitPlot.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_item.h>
#include <qwt_scale_map.h>

#include <QColor>
#include <QPainter>
#include <QTimer>
#include <QVector>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Corvale_Qt {

namespace {

constexpr int kMostPlots = 256;
//! Half of the bar's height and of the axis's, in units of the left axis.
constexpr double kHalfBar = 0.12;
constexpr double kHalfHeight = 0.2;

/*! Draws one value as a bar from 0, with its text at the end of the bar and a line through 0. */
class SplitItem : public QwtPlotItem
{
public:
    explicit SplitItem(const QColor &color);

    void setValue(double value) { m_value = value; }
    //! Returns the value as it stands at the end of the bar.
    QString text() const;

    int rtti() const override;
    //! Returns a rectangle centred on 0, so that an automatic axis keeps 0 in the middle.
    QRectF boundingRect() const override;
    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    //! Draws an arrow at the edge that the value lies beyond.
    static void drawArrow(QPainter *painter, const QRectF &canvasRect, bool leftwards);
    void drawValue(QPainter *painter,
                   const QRectF &canvasRect,
                   const QRectF &bar,
                   double zero,
                   double end) const;

    QColor m_color;
    double m_value = 0;
};

/*! A small plot of one split indicator. */
class SplitPlot : public QwtPlot
{
public:
    //! \a index is the plot's number, counted from 0, and chooses its colour.
    explicit SplitPlot(int index, QWidget *parent = nullptr);

    //! Stores \a value and paints it.
    void showValue(double value);
    //! Says that there is no beam until the next value.
    void showNoBeam();
    bool saysNoBeam() const { return m_noBeam->isVisible(); }
    //! Returns what a screen reader says of the plot.
    ChartWords words() const;

private:
    SplitItem *m_item; // the items belong to the plot
    NoBeamText *m_noBeam;
};

SplitItem::SplitItem(const QColor &color)
    : m_color(color)
{
    setItemAttribute(AutoScale, true);
}

int SplitItem::rtti() const
{
    return QwtPlotItem::Rtti_PlotUserItem;
}

QString SplitItem::text() const
{
    return std::isnan(m_value) ? QStringLiteral("NaN") : QString::number(m_value, 'g', 4);
}

QRectF SplitItem::boundingRect() const
{
    if (!isPlottable(m_value))
        return QRectF(1.0, 1.0, -2.0, -2.0); // Qwt's "nothing to show"
    const double reach = std::abs(m_value);
    return QRectF(-reach, -kHalfHeight, 2 * reach, 2 * kHalfHeight);
}

void SplitItem::draw(QPainter *painter,
                     const QwtScaleMap &xMap,
                     const QwtScaleMap &yMap,
                     const QRectF &canvasRect) const
{
    const double zero = xMap.transform(0);
    // A bar beyond the axis ends at its edge; a value that cannot be plotted has no bar.
    const double end = isPlottable(m_value)
        ? std::clamp(xMap.transform(m_value), canvasRect.left(), canvasRect.right())
        : zero;
    const QRectF bar =
        QRectF(QPointF(zero, yMap.transform(kHalfBar)), QPointF(end, yMap.transform(-kHalfBar)))
            .normalized();
    painter->fillRect(bar, m_color);
    painter->setPen(QPen(QColor(200, 200, 200), 0));
    painter->drawLine(QPointF(zero, canvasRect.top()), QPointF(zero, canvasRect.bottom()));
    if (isPlottable(m_value)) {
        const double place = xMap.transform(m_value);
        // Half a pixel of tolerance keeps a value at the very end of the axis in range after rounding.
        if (place < canvasRect.left() - 0.5 || place > canvasRect.right() + 0.5)
            drawArrow(painter, canvasRect, place < canvasRect.left());
    }
    drawValue(painter, canvasRect, bar, zero, end);
}

void SplitItem::drawArrow(QPainter *painter, const QRectF &canvasRect, bool leftwards)
{
    const double height = 0.5 * canvasRect.height();
    const double length = leftwards ? -0.5 * height : 0.5 * height;
    const QPointF tip(leftwards ? canvasRect.left() : canvasRect.right(), canvasRect.center().y());
    const QPointF base = tip - QPointF(length, 0);
    painter->setPen(QPen(Qt::black, 1));
    painter->setBrush(Qt::white);
    painter->drawPolygon(
        QPolygonF({tip, base - QPointF(0, height / 2), base + QPointF(0, height / 2)}));
}

void SplitItem::drawValue(QPainter *painter,
                          const QRectF &canvasRect,
                          const QRectF &bar,
                          double zero,
                          double end) const
{
    QFont font = painter->font();
    font.setPixelSize(std::clamp(static_cast<int>(canvasRect.height() * 0.22), 9, 48));
    painter->setFont(font);
    const QFontMetricsF metrics(font);
    const QSizeF size(metrics.horizontalAdvance(text()), metrics.height());
    const double gap = metrics.averageCharWidth();

    // The text is beyond the bar's end. Without room there it is on the bar, or, if the bar is too small, on the
    // other side of the zero line.
    const bool leftwards = end < zero;
    const double beyond = leftwards ? end - gap - size.width() : end + gap;
    const double onBar = leftwards ? end + gap : end - gap - size.width();
    const double across = leftwards ? zero + gap : zero - gap - size.width();
    const bool hasRoom = beyond >= canvasRect.left() && beyond + size.width() <= canvasRect.right();
    const bool barHolds = bar.height() >= metrics.ascent() && bar.width() >= size.width() + 2 * gap;
    const QPointF topLeft(hasRoom        ? beyond
                              : barHolds ? onBar
                                         : across,
                          canvasRect.center().y() - size.height() / 2);
    const bool darkText = !hasRoom && barHolds && qGray(m_color.rgb()) > 100;
    painter->setPen(darkText ? Qt::black : Qt::white);
    painter->drawText(QRectF(topLeft, size), Qt::AlignCenter | Qt::TextDontClip, text());
}

SplitPlot::SplitPlot(int index, QWidget *parent)
    : QwtPlot(parent)
    , m_item(new SplitItem(RVXPlotColors::color(index)))
    , m_noBeam(new NoBeamText)
{
    new LayoutWhenShown(this);
    auto *canvas = new QwtPlotCanvas(this);
    canvas->setFrameStyle(QFrame::NoFrame);
    setCanvas(canvas);
    setCanvasBackground(Qt::black);
    setAccessibleName(RVXSplitPlot::tr("Split %1").arg(index + 1));
    describeChart(this, [this] {
        return words();
    });
    setMinimumSize(120, 40); // Qwt's own hint leaves room for every label
    enableAxis(xBottom, true);
    enableAxis(yLeft, false);
    styleAxis(this, xBottom);
    setAxisScale(yLeft, -kHalfHeight, kHalfHeight, 0.1);
    setAxisScale(xBottom, -1.0, 1.0, 0.1);
    m_item->attach(this);
    m_noBeam->attach(this);
    replot();
}

ChartWords SplitPlot::words() const
{
    if (saysNoBeam())
        return {RVXSplitPlot::tr("no beam"), QString()};
    const QString label = axisTitle(xBottom).text();
    return {RVXSplitPlot::tr("newest value"),
            label.isEmpty() ? m_item->text() : label + ' ' + m_item->text()};
}

void SplitPlot::showValue(double value)
{
    m_item->setValue(value);
    m_item->setVisible(true);
    m_noBeam->setVisible(false);
    replot();
}

void SplitPlot::showNoBeam()
{
    m_item->setVisible(false);
    m_noBeam->setVisible(true);
    replot();
}

} // namespace

class RVXSplitPlotPrivate
{
public:
    SplitPlot *plotAt(int i) const { return i >= 0 && i < plots.size() ? plots[i] : nullptr; }

    Ui::RVXSplitPlot ui{};
    QVector<SplitPlot *> plots; // children of the widget
    QTimer timer;
    PlotRange range;
    double fraction = 1.0;
    double minimumSum = 0.0;
    bool autoScale = false;
    bool redrawPending = false;
};

RVXSplitPlot::RVXSplitPlot(QWidget *parent)
    : QWidget(parent)
    , d_ptr(new RVXSplitPlotPrivate)
{
    Q_D(RVXSplitPlot);
    d->ui.setupUi(this);
    d->timer.setParent(this); // children of the widget tell whether it rests
    connect(&d->timer, SIGNAL(timeout()), this, SLOT(update()));
    d->timer.start(100);
}

RVXSplitPlot::~RVXSplitPlot() = default;

void RVXSplitPlot::setNumberPlots(int n)
{
    Q_D(RVXSplitPlot);
    if (n > kMostPlots)
        qCDebug(profileLog) << "RVXSplitPlot::setNumberPlots:" << n << "asked," << kMostPlots
                            << "made";
    qDeleteAll(d->plots);
    d->plots.clear();
    for (int i = 0; i < qMin(n, kMostPlots); ++i) {
        d->plots << new SplitPlot(i, this);
        d->ui.verticalLayout->addWidget(d->plots.last());
    }
}

void RVXSplitPlot::setData(double value, int i)
{
    Q_D(RVXSplitPlot);
    if (SplitPlot *plot = d->plotAt(i))
        plot->showValue(value);
}

void RVXSplitPlot::setData(double a, double b)
{
    Q_D(RVXSplitPlot);
    if (!d->redrawPending)
        return;
    setData(a, 0);
    setData(b, 1);
    d->redrawPending = false;
    if (!d->timer.isActive())
        d->timer.start();
}

void RVXSplitPlot::setData(double a, double b, double sum)
{
    Q_D(RVXSplitPlot);
    if (std::isfinite(sum) && sum >= d->minimumSum) {
        setData(a, b);
        return;
    }
    for (int i : {0, 1}) {
        if (SplitPlot *plot = d->plotAt(i))
            plot->showNoBeam();
    }
}

void RVXSplitPlot::showNoBeam()
{
    Q_D(RVXSplitPlot);
    for (SplitPlot *plot : qAsConst(d->plots))
        plot->showNoBeam();
}

double RVXSplitPlot::minimumSum() const
{
    Q_D(const RVXSplitPlot);
    return d->minimumSum;
}

void RVXSplitPlot::setMinimumSum(double sum)
{
    Q_D(RVXSplitPlot);
    if (!std::isnan(sum))
        d->minimumSum = sum;
}

bool RVXSplitPlot::showsNoBeam(int i) const
{
    Q_D(const RVXSplitPlot);
    const SplitPlot *plot = d->plotAt(i);
    return plot && plot->saysNoBeam();
}

void RVXSplitPlot::setAxisLabel(const QString &text, int i)
{
    Q_D(RVXSplitPlot);
    if (SplitPlot *plot = d->plotAt(i))
        plot->setAxisTitle(QwtPlot::xBottom, text);
}

void RVXSplitPlot::setScale(int index)
{
    Q_D(RVXSplitPlot);
    d->autoScale = index == kAutoScaleIndex;
    if (!d->autoScale)
        d->fraction = scaleFraction(index);
    updateScale();
}

void RVXSplitPlot::setXScale(double min, double max)
{
    Q_D(RVXSplitPlot);
    if (d->range.set(min, max, "RVXSplitPlot::setXScale"))
        updateScale();
}

void RVXSplitPlot::updateScale()
{
    Q_D(RVXSplitPlot);
    for (SplitPlot *plot : qAsConst(d->plots)) {
        if (d->autoScale)
            plot->setAxisAutoScale(QwtPlot::xBottom, true);
        else
            d->range.apply(plot, QwtPlot::xBottom, d->fraction);
        plot->replot();
    }
}

void RVXSplitPlot::update()
{
    Q_D(RVXSplitPlot);
    if (std::exchange(d->redrawPending, true))
        d->timer.stop(); // until the next values
}

} // namespace Corvale_Qt
