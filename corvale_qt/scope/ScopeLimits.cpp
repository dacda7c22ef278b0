// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/scope/ScopeAxes_p.h"
#include "corvale_qt/scope/ScopeLimits_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"

#include <qwt_plot.h>

#include <QVarLengthArray>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace Corvale_Qt {

namespace {

constexpr LimitState kLimits[] = {LimitState::LowAlarm,
                                  LimitState::LowWarning,
                                  LimitState::HighWarning,
                                  LimitState::HighAlarm};

constexpr int kMostChanges = 10000;
constexpr int kJudgedAtOnce = 512; // rows

} // namespace

ScopeLimits::ScopeLimits(QwtPlot *plot, const ScopeModel &model, const ScopeAxes &axes)
    : m_plot(plot)
    , m_model(model)
    , m_axes(axes)
{
    for (const int axis : {QwtPlot::yLeft, QwtPlot::yRight})
        m_lines[size_t(axis)].setYAxis(axis);
}

void ScopeLimits::set(int channel, const ChannelLimits &limits)
{
    const LimitState before = state(channel);
    if (limits.isEmpty())
        m_watches.remove(channel);
    else
        m_watches.insert(channel, watchAnew(channel, limits));
    if (state(channel) != before)
        note(channel, state(channel));
}

QVector<int> ScopeLimits::follow(const ChannelMoves &now)
{
    const QMap<int, LimitWatch> before = m_watches;
    m_watches.clear();
    for (auto watch = before.begin(); watch != before.end(); ++watch) {
        if (const int channel = now(watch.key()))
            m_watches.insert(channel, *watch);
    }
    QVector<int> changed;
    const QList<int> touched = before.keys() + m_watches.keys();
    for (const int channel : touched) {
        const LimitWatch former = before.value(channel);
        if (changed.contains(channel) || former.limits() == of(channel))
            continue;
        changed.append(channel);
        if (former.state() != state(channel))
            note(channel, state(channel));
    }
    return changed;
}

//! Returns a watch that has judged nothing but the newest row.
LimitWatch ScopeLimits::watchAnew(int channel, const ChannelLimits &limits) const
{
    LimitWatch watch(limits);
    const int last = m_model.lastRow();
    if (last < 1 || channel > m_model.channelCount())
        return watch;
    double reading = 0.0;
    const PlotDataReader reader = m_model.reader();
    reader.read(channel, last, 1, &reading);
    watch.add(sampleX(reader, last), reading);
    return watch;
}

void ScopeLimits::note(int channel, LimitState state)
{
    if (m_changes.size() < kMostChanges)
        m_changes.append({channel, state});
    else
        m_cut.insert(channel, state);
}

void ScopeLimits::judge(RowRange rows)
{
    if (m_watches.isEmpty())
        return;
    const int channels = m_model.channelCount();
    const PlotDataReader reader = m_model.reader();
    double x[kJudgedAtOnce];
    for (int row = rows.first; row <= rows.last; row += kJudgedAtOnce) {
        const RowRange part{row, std::min(row + kJudgedAtOnce - 1, rows.last)};
        reader.read(0, row, part.size(), x);
        for (auto watch = m_watches.begin(); watch != m_watches.end() && watch.key() <= channels;
             ++watch)
            add(reader, watch.key(), *watch, part, x);
    }
}

//! Judges rows, of which there are kJudgedAtOnce at most, at the times \a x.
void ScopeLimits::add(const PlotDataReader &reader,
                      int channel,
                      LimitWatch &watch,
                      RowRange rows,
                      const double *x)
{
    double values[kJudgedAtOnce];
    reader.read(channel, rows.first, rows.size(), values);
    for (int i = 0; i < rows.size(); ++i) {
        if (watch.add(x[i], values[i]))
            note(channel, watch.state());
    }
}

void ScopeLimits::judgeAnew()
{
    for (auto watch = m_watches.begin(); watch != m_watches.end(); ++watch) {
        const LimitState before = watch->state();
        *watch = watchAnew(watch.key(), watch->limits());
        if (watch->state() != before)
            note(watch.key(), watch->state());
    }
}

QVector<ScopeLimits::Change> ScopeLimits::takeChanges()
{
    for (auto last = m_cut.constBegin(); last != m_cut.constEnd(); ++last)
        m_changes.append({last.key(), *last});
    m_cut.clear();
    return std::exchange(m_changes, {});
}

//! Draws the line that lineOf(channel, limit) gives for each limit of the channels that are shown.
template<typename LineOf>
void ScopeLimits::show(LineOf lineOf)
{
    for (LimitLines &lines : m_lines)
        lines.clear();
    const int channels = m_model.channelCount();
    for (auto watch = m_watches.constBegin();
         watch != m_watches.constEnd() && watch.key() <= channels;
         ++watch) {
        const int axis = m_axes.axisOf(watch.key());
        if (axis == ScopeAxes::noAxis)
            continue;
        LimitLines &drawn = m_lines[size_t(axis)];
        QVarLengthArray<LimitLines::Line, std::size(kLimits)> missing;
        for (const LimitState limit : kLimits) {
            const double y = watch->limits().limitOf(limit);
            if (std::isnan(y))
                continue;
            const LimitLines::Line line = lineOf(watch.key(), y, isAlarm(limit));
            if (!drawn.contains(line))
                missing.append(line);
        }
        // Most channels share their limits with another one, so that the model, which takes longer, need not be asked.
        if (missing.isEmpty() || !m_model.isShown(watch.key()))
            continue;
        for (const LimitLines::Line &line : missing)
            drawn.add(line);
    }
    for (LimitLines &lines : m_lines) {
        if (lines.lines().isEmpty())
            lines.detach();
        else if (!lines.plot())
            lines.attach(m_plot);
    }
}

void ScopeLimits::showOverTime()
{
    show([](int, double y, bool alarm) {
        return LimitLines::Line{y, alarm, {}};
    });
}

void ScopeLimits::showOverBars(double divisor, const std::function<QwtInterval(int channel)> &barOf)
{
    show([&](int channel, double y, bool alarm) {
        return LimitLines::Line{y / divisor, alarm, barOf(channel)};
    });
}

void ScopeLimits::hide()
{
    for (LimitLines &lines : m_lines)
        lines.detach();
}

} // namespace Corvale_Qt
