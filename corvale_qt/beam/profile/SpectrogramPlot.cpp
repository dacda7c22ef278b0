// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/BeamRaster_p.h"
#include "corvale_qt/beam/profile/SpectrogramPlot_p.h"
#include "corvale_qt/numerics/RoundPixelDetector.h"
#include "corvale_qt/plot/PlotAxis_p.h"
#include "corvale_qt/plot/PlotRange_p.h"

#include <qwt_plot_canvas.h>
#include <qwt_plot_picker.h>
#include <qwt_scale_widget.h>
#include <qwt_text.h>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr int kLeftStep = 2;
constexpr double kSmallestColorRange = 1e-290; // a step of the colour bar is still a normal number

/*! Labels the colour bar: short in every order of magnitude, without the group signs of a locale. */
class SpectrogramScaleDraw : public ThinnedScaleDraw
{
public:
    explicit SpectrogramScaleDraw(const SpectrogramPlot &plot)
        : m_plot(plot)
    {
    }
    QwtText label(double value) const override;

private:
    const SpectrogramPlot &m_plot;
};

QwtText SpectrogramScaleDraw::label(double value) const
{
    // Tick positions are sums of steps, so 0 may be off by a rounding error.
    const double span = scaleDiv().range();
    const bool zero = std::abs(value) < 1e-9 * std::abs(span);
    return QwtText(QString::number(zero ? 0.0 : value * m_plot.barFactor(), 'g', 6));
}

} // namespace

/*! Shows beside the mouse which channel it is on and the value of that channel. */
class ChannelHover : public QwtPlotPicker
{
public:
    //! Becomes a child of the plot's canvas.
    explicit ChannelHover(SpectrogramPlot *plot);
    //! Makes room for the present text, which changes under a pointer at rest.
    void refresh() { updateDisplay(); }

protected:
    QwtText trackerTextF(const QPointF &position) const override;

private:
    const SpectrogramPlot *m_plot;
};

ChannelHover::ChannelHover(SpectrogramPlot *plot)
    : QwtPlotPicker(plot->canvas())
    , m_plot(plot)
{
    setTrackerMode(AlwaysOn);
    setTrackerPen(QPen(Qt::white));
}

QwtText ChannelHover::trackerTextF(const QPointF &position) const
{
    QwtText text(m_plot->hoverText(position), QwtText::PlainText);
    text.setColor(Qt::white);
    text.setBackgroundBrush(QColor(0, 0, 0, 200));
    return text;
}

SpectrogramPlot::SpectrogramPlot(QWidget *parent)
    : SquarePlot(parent)
    , m_background(new Background)
    , m_raster(new BeamRaster)
    , m_meanX(new MeanCurve(tr("Mean X"), Qt::Vertical))
    , m_meanY(new MeanCurve(tr("Mean Y"), Qt::Horizontal))
    , m_ellipse(new Ellipse)
    , m_layoutView(this)
{
    auto *plotCanvas = new QwtPlotCanvas(this);
    plotCanvas->setFrameStyle(QFrame::NoFrame);
    setCanvas(plotCanvas);
    m_raster->setZ(RasterLayer);
    for (QwtPlotItem *item :
         std::initializer_list<QwtPlotItem *>{m_background, m_raster, m_meanX, m_meanY, m_ellipse})
        item->attach(this);
    m_background->setText(tr("No Data"));
    m_hover = new ChannelHover(this);

    styleAxis(this, xBottom);
    styleAxis(this, yLeft);
    styleAxis(this, yRight, new SpectrogramScaleDraw(*this));
    axisWidget(yRight)->setColorBarEnabled(true);
    axisWidget(yRight)->setColorBarWidth(16);
    setColorBarVisible(true);
    applyColors();
    applyAxes();
}

SpectrogramPlot::~SpectrogramPlot() = default;

void SpectrogramPlot::replot()
{
    SquarePlot::replot();
    if (m_hover)
        m_hover->refresh();
}

void SpectrogramPlot::setDetector(ProfileLayout layout)
{
    m_layout = layout;
    m_grid = DetectorGrid::of(layout);
    m_raster->setGrid(m_grid.size);
    clearItems();
}

void SpectrogramPlot::setDescribed(const DetectorLayout &layout)
{
    m_layoutView.setLayout(layout);
    m_layout = ProfileLayout::None;
    m_grid = {};
    m_raster->setGrid(0);
    applyColors();
    clearItems();
}

void SpectrogramPlot::clearItems()
{
    m_meanX->setMean(qQNaN(), 0, 0);
    m_meanY->setMean(qQNaN(), 0, 0);
    m_ellipse->setHidden(true);
    m_background->setText(tr("No Data"));
    applyAxes();
    applyEllipseOptions();
}

void SpectrogramPlot::setInverted(bool x, bool y)
{
    m_invertX = x;
    m_invertY = y;
    applyAxes();
    applyEllipseOptions();
}

void SpectrogramPlot::applyAxes()
{
    if (m_layoutView.isShown())
        return;
    if (m_grid.size == 0) {
        setAxisScale(xBottom, 0, 1);
        setAxisScale(yLeft, 1, 0);
        return;
    }
    const double size = m_grid.size;
    // Row 0 is at the top, so the left axis runs downwards unless it is inverted.
    setAxisScale(xBottom, m_invertX ? size : 0, m_invertX ? 0 : size, m_grid.bottomStep);
    setAxisScale(yLeft, m_invertY ? 0 : size, m_invertY ? size : 0, kLeftStep);
}

void SpectrogramPlot::setFrame(const JudgedFrame &frame)
{
    const BeamFrame &beam = frame.beam;
    m_background->setText(QString());
    QRectF reach(0, 0, m_grid.size, m_grid.size);
    if (m_layoutView.isShown()) {
        m_layoutView.setFrame(frame);
        reach = homeOf(m_layoutView.layout());
    } else {
        m_raster->setValues(beam.raster);
    }
    m_meanX->setMean(beam.rasterMeanX, reach.top(), reach.bottom());
    m_meanY->setMean(beam.rasterMeanY, reach.left(), reach.right());
    m_ellipse->setShape(beam.ellipse);
    m_ellipse->setHidden(!beam.calc.valid || !(beam.ellipse.semiMajor > 0));
}

bool SpectrogramPlot::hideEllipse()
{
    const bool shown = !m_ellipse->isHidden();
    m_ellipse->setHidden(true);
    return shown;
}

void SpectrogramPlot::setSigmaCount(int count)
{
    m_ellipse->setSigmaCount(count);
}

void SpectrogramPlot::setEllipseOptions(const EllipseOptions &options)
{
    m_options = options;
    applyEllipseOptions();
}

void SpectrogramPlot::applyEllipseOptions()
{
    EllipseOptions inAxes = m_options;
    if (m_layoutView.isShown()) {
        inAxes.xOrigin /= millimetresPer(m_layoutView.layout().unit(DetectorLayout::Axis::X));
        inAxes.yOrigin /= millimetresPer(m_layoutView.layout().unit(DetectorLayout::Axis::Y));
    } else if (m_grid.size > 0) {
        const double middle = m_grid.size / 2.0;
        const double right = m_options.xOrigin / m_grid.pitch;
        const double up = m_options.yOrigin / m_grid.pitch;
        inAxes.xOrigin = middle + (m_invertX ? -right : right);
        inAxes.yOrigin = middle - (m_invertY ? -up : up);
    }
    m_ellipse->setOptions(inAxes);
}

void SpectrogramPlot::setMeansVisible(bool x, bool y)
{
    m_meanX->setVisible(x);
    m_meanY->setVisible(y);
}

void SpectrogramPlot::setColorRange(double max)
{
    if (!isPlottable(max) || !(max > kSmallestColorRange))
        return;
    m_colorRange = max;
    applyColors();
}

void SpectrogramPlot::setColorSettings(const ColorSettings &settings)
{
    m_colors = settings;
    applyColors();
}

void SpectrogramPlot::applyColors()
{
    if (m_layoutView.isShown()) {
        m_layoutView.setColors(m_colors, m_colorRange);
        return;
    }
    // Raster and colour bar each delete their map.
    m_raster->setColorMap(makeColorMap(m_colors.map));
    m_raster->setColorRange(m_colorRange);
    axisWidget(yRight)->setColorMap(QwtInterval(0, m_colorRange), makeColorMap(m_colors.map));
    if (m_unit.takesPrefix)
        m_prefix.follow(m_colorRange);
    setAxisScale(yRight, 0, m_colorRange);
    setAxisTitle(yRight, LayoutView::tr("Intensity (%1)").arg(m_prefix.symbol()));
}

void SpectrogramPlot::setSmoothing(bool smoothing)
{
    m_raster->setSmoothing(smoothing);
    m_layoutView.setSmoothing(smoothing);
}

void SpectrogramPlot::setAmountUnit(const AmountUnit &unit)
{
    if (unit == m_unit)
        return;
    m_unit = unit;
    m_prefix = unit.prefix();
    applyColors();
}

double SpectrogramPlot::barFactor() const
{
    return m_layoutView.isShown() ? m_layoutView.barFactor() : m_prefix.shown(1.0);
}

void SpectrogramPlot::setColorBarVisible(bool visible)
{
    enableAxis(yRight, visible);
}

QString SpectrogramPlot::hoverText(const QPointF &position) const
{
    if (m_layoutView.isShown())
        return m_layoutView.hoverText(position);
    const int last = m_grid.size - 1;
    const int column = std::max(0, std::min(last, static_cast<int>(position.x())));
    const int row = std::max(0, std::min(last, static_cast<int>(position.y())));
    const int cell = row * m_grid.size + column;
    const QVector<double> values = m_raster->values();
    if (cell >= values.size())
        return QStringLiteral("NULL");
    Units::SiPrefix prefix = m_unit.prefix();
    prefix.follow(values[cell]);
    const QString value =
        m_unit.takesPrefix ? prefix.text(values[cell]) : QString::number(values[cell], 'g', 6);
    if (m_layout != ProfileLayout::PixelMatrix)
        return QStringLiteral("Index [%1][%2]: %3").arg(column).arg(row).arg(value);
    const int reading = RoundPixelDetector::readingAt(row, column);
    if (reading == RoundPixelDetector::kNotWired)
        return tr("Out of bounds");
    return tr("Channel %1: %2").arg(reading + 1).arg(value);
}

} // namespace Corvale_Qt
