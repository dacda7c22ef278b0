// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/FrameFeeder.h"

#include "monitor/model/MultichannelDeviceModel.h"
#include "monitor/readings/LeftOut.h"
#include "monitor/readings/StreamDetector.h"
#include "monitor/readings/UnitSymbols.h"
#include <corvale_qt/units/MeasurementUnit.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Monitor {

namespace {

//! How many rows of a block are handed on: enough for the lines over time, few enough in a flood.
constexpr int mostRowsAtOnce = 100;
//! How much of the past the lines over time show.
constexpr double shownPast = 5.0; // s
//! The displays redraw every 100 ms; after this time they have done so.
constexpr int afterTheNextPicture = 130; // ms

/*! Returns the range, widened about its middle to ten steps that are easy to read: the position display has a tick at each tenth
    of its range. */
std::pair<double, double> tenRoundSteps(double lower, double upper)
{
    if (!(upper > lower))
        return {lower - 1, upper + 1};
    constexpr double steps = 10;
    const double decade = std::pow(10.0, std::floor(std::log10((upper - lower) / steps)));
    for (const double factor : {1.0, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0, 8.0, 10.0, 15.0, 20.0}) {
        const double step = factor * decade;
        const double first = std::floor(lower / step);
        const double spare = first + steps - std::ceil(upper / step);
        const double from = first - std::floor(spare / 2);
        if (spare >= 0)
            return {from * step, (from + steps) * step};
    }
    return {lower, upper}; // of numbers that are too large to be rounded
}

double finiteOrZero(double value)
{
    return std::isfinite(value) ? value : 0.0;
}

} // namespace

FrameFeeder::FrameFeeder(MultichannelDeviceModel *model,
                         Corvale_Qt::RVXSpectrogram *profile,
                         Corvale_Qt::RVXPositionPlot *position,
                         QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_profile(profile)
    , m_position(position)
{
    connect(model, &QAbstractItemModel::modelReset, this, &FrameFeeder::beginStream);
    connect(model,
            &QAbstractItemModel::rowsInserted,
            this,
            [this](const QModelIndex &, int first, int last) {
                feedRows(first, last);
            });
    // Also if a person chooses another estimate of the frame that is shown.
    connect(profile,
            &Corvale_Qt::RVXSpectrogram::shownResultChanged,
            this,
            &FrameFeeder::followProfile);
    m_again.setSingleShot(true);
    m_again.setInterval(afterTheNextPicture);
    connect(&m_again, &QTimer::timeout, this, &FrameFeeder::feedLastAgain);
    beginStream();
}

bool FrameFeeder::hasPosition() const
{
    using Axis = Corvale_Qt::DetectorLayout::Axis;
    if (hasProfile()) // a single plane knows one coordinate only
        return m_detector.cells(Axis::X) > 0 && m_detector.cells(Axis::Y) > 0;
    return std::min({m_left, m_right, m_up, m_down}) >= 0;
}

//! Returns whether the displays show rows of the model. In a stream of frames, these are only numbers of the frames.
bool FrameFeeder::showsRows() const
{
    return (hasProfile() || hasPosition()) && !m_model->header().hasFrames();
}

bool FrameFeeder::hasShownProfile() const
{
    return hasProfile() && m_profile->shownResult().frame > m_framesBefore;
}

bool FrameFeeder::hasShownPosition() const
{
    return hasProfile() ? hasShownProfile() : m_hasPosition;
}

void FrameFeeder::setZeros(const QVector<double> &zeros)
{
    m_baseZeros = zeros;
    convertZeros();
    const int last = m_model->rowCount() - 1;
    if (last < 1 || !showsRows())
        return;
    readRow(last);
    if (hasProfile()) {
        takeValues(std::nextafter(m_lastTime, std::numeric_limits<double>::infinity()), values());
        return;
    }
    feedPosition(m_values.data());
    m_again.start();
}

//! Converts the zeros to the unit of the readings of this stream.
void FrameFeeder::convertZeros()
{
    const auto unit = unitFromSymbol(m_model->header().commonUnit());
    m_zeros = m_baseZeros;
    m_zeros.resize(m_model->header().channels.size());
    for (double &zero : m_zeros)
        zero = unit ? unit->scale(zero) : zero;
}

void FrameFeeder::beginStream()
{
    const StreamHeader &header = m_model->header();
    m_detector = detectorOf(header);
    m_left = header.indexOf(QStringLiteral("left"));
    m_right = header.indexOf(QStringLiteral("right"));
    m_up = header.indexOf(QStringLiteral("up"));
    m_down = header.indexOf(QStringLiteral("down"));
    m_values.resize(std::size_t(header.channels.size()));
    convertZeros();
    m_framesBefore = m_profile->shownResult().frame;
    m_hasPosition = false;
    tellLeftOut({});
    m_position->setScale(1);
    if (hasProfile()) {
        beginDetector();
        return;
    }
    constexpr double reach = 1.0; // the asymmetry of two halves
    m_position->setPositionUnit(QString());
    m_position->setXScale(-reach, reach);
    m_position->setYScale(-reach, reach);
}

//! Shows the detector of the stream in both displays, at its full size.
void FrameFeeder::beginDetector()
{
    using Axis = Corvale_Qt::DetectorLayout::Axis;
    const StreamHeader &header = m_model->header();
    m_profile->setLayout(m_detector);
    m_profile->setVerdictLimits(verdictLimitsOn(m_detector, m_verdictLimits));
    if (header.hasFrames()) // as the numbers in chart and table
        m_profile->setEstimator(Corvale_Qt::BeamEstimator::LeastSquares);
    // Without a unit the display would take the readings for coulombs.
    const QString unit = header.readingUnit();
    m_profile->setIntensityUnit(unit.isEmpty() ? tr("arb. units") : unit);
    m_position->setPositionUnit(m_profile->lengthUnit(Axis::X));
    const QRectF reach = m_profile->lengthArea();
    const auto [left, right] = tenRoundSteps(reach.left(), reach.right());
    const auto [bottom, top] = tenRoundSteps(reach.top(), reach.bottom());
    m_position->setXScale(left, right);
    m_position->setYScale(bottom, top);
}

void FrameFeeder::setVerdictLimits(const Corvale_Qt::VerdictLimits &limits)
{
    m_verdictLimits = limits;
    if (!hasProfile())
        return;
    m_profile->setVerdictLimits(verdictLimitsOn(m_detector, limits));
}

void FrameFeeder::feedRows(int first, int last)
{
    if (!showsRows())
        return;
    const int from = firstRowToFeed(first, last);
    const int step = 1 + (last - from) / mostRowsAtOnce;
    for (int row = last - (last - from) / step * step; row <= last; row += step)
        feed(row);
    if (!hasProfile())
        m_again.start();
}

//! Returns the first row worth handing on: after a pause many rows come at once, and the oldest would not be seen.
int FrameFeeder::firstRowToFeed(int first, int last) const
{
    if (last - first < mostRowsAtOnce)
        return first;
    const double oldest = m_model->doubleData(last, 0) - shownPast;
    int from = last;
    while (from > first && m_model->doubleData(from - 1, 0) >= oldest)
        --from;
    return from;
}

void FrameFeeder::readRow(int row)
{
    for (std::size_t i = 0; i < m_values.size(); ++i)
        m_values[i] = m_model->receivedValue(row, int(i)) - m_zeros.at(int(i));
}

void FrameFeeder::feed(int row)
{
    readRow(row);
    if (hasProfile())
        takeValues(m_model->doubleData(row, 0), values());
    else
        feedPosition(m_values.data());
}

//! Returns the readings of the row that was read.
QVector<double> FrameFeeder::values() const
{
    return QVector<double>(m_values.begin(), m_values.end());
}

void FrameFeeder::takeFrame(double time, const QVector<double> &values)
{
    if (hasProfile())
        takeValues(time, values);
}

void FrameFeeder::takeValues(double time, const QVector<double> &values)
{
    const auto frame = Corvale_Qt::DetectorFrame::of(m_detector, values.constData(), values.size());
    const StreamHeader &header = m_model->header();
    if (!header.hasFrames()) // of frames the session tells it
        tellLeftOut(LoggedText::of([&] {
            return LeftOut::of(frame, header.readingUnit()).text();
        }));
    // The display starts with time 0 and would take a frame at 0 for one that it has seen.
    m_lastTime = time == 0.0 ? std::numeric_limits<double>::min() : time;
    m_profile->setFrame(frame, m_lastTime);
}

void FrameFeeder::tellLeftOut(const LoggedText &text)
{
    if (text == m_leftOut)
        return;
    m_leftOut = text;
    Q_EMIT leftOutChanged(text);
}

//! Hands the position of the frame that the profile display shows to the position plot, or says why there is none.
void FrameFeeder::followProfile()
{
    if (!hasShownProfile())
        return;
    const Corvale_Qt::SpectrogramResult result = m_profile->shownResult();
    const Corvale_Qt::SpectrogramCalc &shown = result.calc;
    const bool isNew = result.frame != m_lastFrame || shown.valid != m_lastShown.valid
        || shown.meanX != m_lastShown.meanX || shown.meanY != m_lastShown.meanY;
    m_lastFrame = result.frame;
    m_lastShown = shown;
    if (!shown.valid)
        showWhyNotValid(shown.integral);
    else if (isNew)
        m_position->setData(shown.meanX, shown.meanY, shown.integral);
}

void FrameFeeder::showWhyNotValid(double sum)
{
    const bool hasBeam = sum >= m_position->minimumSum()
        && m_profile->verdict().peakInNoise > m_profile->verdictLimits().peakInNoise;
    if (const auto place = placeBesideDetector(); hasBeam && place)
        m_position->setData(place->x(), place->y());
    else if (hasBeam)
        m_position->showNotValid();
    else
        m_position->showNoBeam();
}

//! Returns where the middle of a beam lies that is not on the detector, if its flank on the detector is described well.
std::optional<QPointF> FrameFeeder::placeBesideDetector() const
{
    using Axis = Corvale_Qt::DetectorLayout::Axis;
    const QRectF area = m_profile->lengthArea();
    const auto placeOn = [this](Axis axis, double length) {
        const Corvale_Qt::BeamEstimate estimate = m_profile->estimate(axis);
        const double worst = m_profile->verdictLimits().residualRms;
        if (!estimate.isOk() || !(estimate.quality.residualRms <= worst))
            return std::nan("");
        // Lengths have another unit than the detector's own places.
        return estimate.position.value * length
            / (m_detector.upperEdge(axis) - m_detector.lowerEdge(axis));
    };
    const QPointF place(placeOn(Axis::X, area.width()), placeOn(Axis::Y, area.height()));
    if (std::isnan(place.x()) || std::isnan(place.y()) || area.contains(place))
        return {};
    return place;
}

//! Shows the newest position of halves once the position plot, which skips positions that come too fast, is due to draw again.
void FrameFeeder::feedLastAgain()
{
    if (!hasProfile())
        feedPosition(m_values.data());
}

//! Shows the asymmetries of the two pairs of halves, from -1 to 1, or that there is no beam.
void FrameFeeder::feedPosition(const double *values)
{
    const double left = finiteOrZero(values[m_left]), right = finiteOrZero(values[m_right]);
    const double up = finiteOrZero(values[m_up]), down = finiteOrZero(values[m_down]);
    const double x = left + right > 0.0 ? (right - left) / (right + left) : std::nan("");
    const double y = up + down > 0.0 ? (up - down) / (up + down) : std::nan("");
    const bool plausible = std::abs(x) <= 1.0 && std::abs(y) <= 1.0;
    m_hasPosition = m_hasPosition || plausible;
    if (plausible)
        m_position->setData(x, y, left + right + up + down);
    else
        m_position->showNoBeam();
}

} // namespace Monitor
