// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/FrameFeeder.h"

#include "monitor/model/MultichannelDeviceModel.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Monitor {

namespace {

//! Of rows that come together, so many are handed on: enough for the lines over time, little enough for a flood.
constexpr int mostRowsAtOnce = 100;
//! What the lines over time show of the past.
constexpr double shownPast = 5.0; // s
//! The displays take a picture every 100 ms.
constexpr int afterTheNextPicture = 130; // ms

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
    m_again.setSingleShot(true);
    m_again.setInterval(afterTheNextPicture);
    connect(&m_again, &QTimer::timeout, this, &FrameFeeder::feedLastAgain);
    beginStream();
}

bool FrameFeeder::hasPosition() const
{
    return hasProfile() || std::min({m_left, m_right, m_up, m_down}) >= 0;
}

bool FrameFeeder::hasShownProfile() const
{
    return hasProfile() && m_profile->getCalc().valid;
}

void FrameFeeder::beginStream()
{
    const StreamHeader &header = m_model->header();
    m_frames = DetectorFrames(header);
    m_left = header.indexOf(QStringLiteral("left"));
    m_right = header.indexOf(QStringLiteral("right"));
    m_up = header.indexOf(QStringLiteral("up"));
    m_down = header.indexOf(QStringLiteral("down"));
    m_values.resize(std::size_t(header.channels.size()));
    m_lastFrame.clear();
    m_lastShown = {};
    if (header.kind == StreamKind::Strips)
        m_profile->setL408(true);
    else if (header.kind == StreamKind::Pixels)
        m_profile->setPixelated(true);
    const double reach = hasProfile() ? 20.0 : 1.0; // mm, or the asymmetry of two halves
    m_position->setXScale(-reach, reach);
    m_position->setYScale(-reach, reach);
    m_position->setScale(1);
}

void FrameFeeder::feedRows(int first, int last)
{
    if (!hasPosition())
        return;
    const int from = firstRowToFeed(first, last);
    const int step = 1 + (last - from) / mostRowsAtOnce;
    for (int row = last - (last - from) / step * step; row <= last; row += step)
        feed(row);
    m_again.start();
}

//! After a pause many rows come at once; of these, what is long past would be out of sight at once.
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

void FrameFeeder::feed(int row)
{
    for (std::size_t i = 0; i < m_values.size(); ++i)
        m_values[i] = m_model->receivedValue(row, int(i));
    if (!hasProfile()) {
        feedPosition(m_values.data());
        return;
    }
    m_lastFrame = m_frames.readingsOf(m_values.data());
    showFrame(m_model->doubleData(row, 0));
}

void FrameFeeder::showFrame(double time)
{
    // The display's own start, which it takes for a frame that it has seen.
    m_lastTime = time == 0.0 ? std::numeric_limits<double>::min() : time;
    m_profile->setData(m_lastFrame, m_lastTime);
    followProfile();
}

//! The profile display shows the latest frame when a picture is due; the position is that frame's.
void FrameFeeder::followProfile()
{
    const Corvale_Qt::SpectrogramCalc shown = m_profile->getCalc();
    const bool isNew = shown.meanX != m_lastShown.meanX || shown.meanY != m_lastShown.meanY
        || shown.integral != m_lastShown.integral;
    m_lastShown = shown;
    if (isNew && shown.valid)
        m_position->setData(shown.meanX, shown.meanY);
}

/*! The displays take a frame when a picture is due, and keep no other: the last frame of a burst comes once more,
    by the smallest step later, so that it is the one that stays. */
void FrameFeeder::feedLastAgain()
{
    if (!hasProfile())
        feedPosition(m_values.data());
    else if (!m_lastFrame.isEmpty())
        showFrame(std::nextafter(m_lastTime, std::numeric_limits<double>::infinity()));
}

//! The asymmetry of two halves, from -1 to 1; nothing to show while there is no beam.
void FrameFeeder::feedPosition(const double *values)
{
    const double left = finiteOrZero(values[m_left]), right = finiteOrZero(values[m_right]);
    const double up = finiteOrZero(values[m_up]), down = finiteOrZero(values[m_down]);
    const double x = left + right > 0.0 ? (right - left) / (right + left) : std::nan("");
    const double y = up + down > 0.0 ? (up - down) / (up + down) : std::nan("");
    const bool plausible = std::abs(x) <= 1.0 && std::abs(y) <= 1.0;
    if (plausible)
        m_position->setData(x, y);
}

} // namespace Monitor
