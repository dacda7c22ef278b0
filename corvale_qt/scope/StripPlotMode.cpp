// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/models/RVXPlotHistory.h"
#include "corvale_qt/scope/MarkerLabels_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/ScopeContext_p.h"
#include "corvale_qt/scope/ScopeSurface_p.h"
#include "corvale_qt/scope/StripPlotMode_p.h"

#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

/*! While it exists, a scroll bar asks for no paint. In the end it asks for one if it looks different: a chart that grows by a row
    changes the range in each frame, and moves the slider by less than a pixel. */
class QuietScrollBar
{
public:
    explicit QuietScrollBar(QScrollBar &bar);
    ~QuietScrollBar();
    Q_DISABLE_COPY(QuietScrollBar)

private:
    //! What is painted of a scroll bar's range and value.
    struct Picture
    {
        QRect slider;
        bool isAtStart = false;
        bool isAtEnd = false;

        bool operator==(const Picture &other) const;
    };
    Picture picture() const;

    QScrollBar &m_bar;
    const Picture m_before;
    const bool m_wasQuiet;
};

bool QuietScrollBar::Picture::operator==(const Picture &other) const
{
    return slider == other.slider && isAtStart == other.isAtStart && isAtEnd == other.isAtEnd;
}

QuietScrollBar::QuietScrollBar(QScrollBar &bar)
    : m_bar(bar)
    , m_before(picture())
    , m_wasQuiet(bar.testAttribute(Qt::WA_UpdatesDisabled))
{
    bar.setAttribute(
        Qt::WA_UpdatesDisabled); // setUpdatesEnabled() would ask for a paint in the end
}

QuietScrollBar::~QuietScrollBar()
{
    m_bar.setAttribute(Qt::WA_UpdatesDisabled, m_wasQuiet);
    if (!(picture() == m_before))
        m_bar.update();
}

QuietScrollBar::Picture QuietScrollBar::picture() const
{
    QStyleOptionSlider option;
    option.initFrom(&m_bar);
    option.orientation = m_bar.orientation();
    if (option.orientation == Qt::Horizontal)
        option.state |= QStyle::State_Horizontal;
    option.minimum = m_bar.minimum();
    option.maximum = m_bar.maximum();
    option.sliderPosition = m_bar.sliderPosition();
    option.sliderValue = m_bar.value();
    option.singleStep = m_bar.singleStep();
    option.pageStep = m_bar.pageStep();
    option.upsideDown = m_bar.invertedAppearance();
    const QRect slider = m_bar.style()->subControlRect(QStyle::CC_ScrollBar,
                                                       &option,
                                                       QStyle::SC_ScrollBarSlider,
                                                       &m_bar);
    return {slider, m_bar.value() == m_bar.minimum(), m_bar.value() == m_bar.maximum()};
}

} // namespace

void StripPlotMode::enter()
{
    TimePlotMode::enter();
    m_context.surface.showScrollBar(true);
}

void StripPlotMode::plot()
{
    StripRequest request = currentRequest();
    if (request.samples < 2) {
        clear();
        return;
    }
    const PlotDataReader reader = m_context.model.reader();
    m_context.stripStart.update(reader, request);
    request.first = m_context.stripStart.row();
    const RVXPlotHistory *const blocks = history(reader, request.first);
    if (blocks)
        request.remembered = blocks->oldest();
    const StripWindow shown = window(reader, request);
    setDrawn(reader, shown.rows);

    followUnits();
    m_context.markers.setGaps(
        m_context.gaps.showStrip(m_context.curves, reader, shown.rows, request.samples));
    m_context.markers.begin(reader, {1, request.samples});
    m_context.markers.findInStrip(blocks, shown.firstRow);
    const bool reachesBlocks = blocks && shown.left < shown.firstRow;
    m_context.curves.history().setGapIntervals(m_context.gaps.intervals());
    m_context.curves.history().setWindow(reachesBlocks ? blocks : nullptr, shown.left, shown.right);
    const auto ofModel = [model = m_context.model.plot(), rows = shown.rows](int channel) {
        return rows.size() > 0 ? model->seriesData(channel, rows.first, rows.last) : nullptr;
    };
    m_context.curves.setZoomed(m_context.hold.isChanged());
    // The runs of blocks lie between the curves, so that these have no picture of their own.
    m_context.curves.setGrid(reachesBlocks ? PixelGrid() : gridOf(shown, request));
    m_context.curves.plotCurves(ofModel, shown.rows.first, m_context.yScale.mode);
    if (shown.left > shown.oldest || !request.following)
        m_context.surface.showScrollBar(true);
    finish(shown.left, shown.right);
    setScrollBar(stripScrollBar(shown, request));
}

//! Returns what is shown: the window that a user holds, or else the one that the request asks for.
StripWindow StripPlotMode::window(const PlotDataReader &reader, StripRequest &request)
{
    followScrollBar(reader, request);
    ViewHold &hold = m_context.hold;
    if (!hold.isHeld())
        return stripWindow(reader, request);
    StripWindow window;
    window.firstRow = sampleX(reader, request.first);
    window.oldest = std::min(window.firstRow, request.remembered);
    window.newest = sampleX(reader, request.samples);
    window.left = hold.window().x.minValue();
    window.right = hold.window().x.maxValue();
    window.rows = hold.rows(reader, request.first, request.samples);
    // Where all rows have gone, blocks are drawn with the curves, which need a sample; it lies beside the window.
    if (window.rows.size() < 1 && window.oldest < window.firstRow)
        window.rows = {request.first, request.first};
    request.following = false;
    request.scrollValue = toScrollUnits((window.left - window.oldest) * m_scrollUnits);
    return window;
}

/*! Returns the pixel columns of a window; none if it does not move by whole pixels, or grows with its samples, so that nothing that is
    drawn stays as it is. */
PixelGrid StripPlotMode::gridOf(const StripWindow &window, const StripRequest &request)
{
    if (window.grid.isValid() || request.following)
        return window.grid;
    return PixelGrid::between(window.left, window.right, request.pixels);
}

//! Holds the window that a user has scrolled to, and lets go of it at the end of the scroll bar.
void StripPlotMode::followScrollBar(const PlotDataReader &reader, const StripRequest &request)
{
    ViewHold &hold = m_context.hold;
    const QScrollBar *bar = m_context.surface.scrollBar();
    if (!hold.isHeld()) {
        if (m_context.interactive && !request.following) {
            const StripWindow window = stripWindow(reader, request);
            hold.remember();
            hold.showX(QwtInterval(window.left, window.right));
        }
    } else if (bar->value() != m_scrollValue) {
        const bool isAtEnd = bar->value() == bar->maximum();
        const double oldest = std::min(sampleX(reader, request.first), request.remembered);
        const double left = bar->value() / m_scrollUnits + oldest;
        const QwtInterval x(left, left + hold.window().x.width());
        hold.showX(isAtEnd ? QwtInterval() : x);
    }
}

//! Returns the blocks before row \a first, with which the chart begins; null if there are none.
const RVXPlotHistory *StripPlotMode::history(const PlotDataReader &reader, int first) const
{
    const bool beginsWithRows = first == 1 && reader.xRises();
    const RVXPlotHistory *const found =
        beginsWithRows ? RVXPlotHistory::of(m_context.model.plot()) : nullptr;
    return found && !std::isnan(found->oldest()) ? found : nullptr;
}

//! Returns what the window depends on, except its first row. Without samples only their number is set.
StripRequest StripPlotMode::currentRequest() const
{
    StripRequest request;
    request.samples = m_context.model.lastRow();
    if (request.samples < 1)
        return request;
    const QScrollBar *bar = m_context.surface.scrollBar();
    request.sweepLength = m_context.stripLength();
    request.width = m_context.stripWidth();
    request.whole = m_context.span.isWhole();
    request.beginsAtFirst = m_context.beginsAtFirst;
    request.end = m_context.timeEnd;
    if (m_context.movesByPixels)
        request.pixels = int(m_context.plot->canvasMap(QwtPlot::xBottom).pDist());
    request.following = request.whole || bar->value() == bar->maximum();
    request.scrollValue = bar->value();
    request.scrollUnits = m_scrollUnits;
    return request;
}

void StripPlotMode::setScrollBar(const StripScrollBar &scrolling)
{
    QScrollBar *bar = m_context.surface.scrollBar();
    const QuietScrollBar quiet(*bar);
    m_scrollUnits = scrolling.units;
    bar->setRange(0, scrolling.maximum);
    bar->setPageStep(scrolling.pageStep);
    bar->setSingleStep(scrolling.singleStep);
    bar->setValue(scrolling.value);
    m_scrollValue = bar->value();
}

void StripPlotMode::clear()
{
    showNoCurves();
    m_context.markers.detachAll();
    m_context.surface.showScrollBar(false);
    m_context.surface.scrollBar()->setRange(0, 0); // the chart follows the next samples
}

void StripPlotMode::moveMarker(int index, int steps)
{
    m_context.markers.moveInStrip(index, steps);
}

bool StripPlotMode::showSample(double x)
{
    const QwtInterval shown = m_context.plot->axisInterval(QwtPlot::xBottom);
    if (shown.contains(x))
        return false;
    const PlotDataReader reader = m_context.model.reader();
    const int first = m_context.stripStart.row();
    const RVXPlotHistory *const blocks = history(reader, first);
    const double oldest = blocks ? blocks->oldest() : sampleX(reader, first);
    const double left = x - 0.5 * shown.width();
    m_context.surface.scrollBar()->setValue(toScrollUnits((left - oldest) * m_scrollUnits));
    return true;
}

QwtInterval StripPlotMode::timeExtent() const
{
    const int last = m_context.model.lastRow();
    if (last < 2)
        return QwtInterval();
    const PlotDataReader reader = m_context.model.reader();
    const RowRange part = m_context.hold.part(m_context.stripStart.row(), last);
    const RVXPlotHistory *const blocks = history(reader, part.first);
    const double oldest = blocks ? blocks->oldest() : sampleX(reader, part.first);
    const QwtInterval extent(oldest, sampleX(reader, part.last));
    return std::isfinite(extent.width()) ? extent.normalized() : QwtInterval();
}

QString StripPlotMode::missingText() const
{
    const QwtInterval &x = m_context.hold.window().x;
    const QwtInterval extent = timeExtent();
    if (!x.isValid() || !extent.isValid() || x.minValue() >= extent.minValue())
        return QString();
    return RVXScopePlotView::tr("the readings begin at %1")
        .arg(placeText(m_context.model, extent.minValue(), x.width() / 1000.0));
}

} // namespace Corvale_Qt
