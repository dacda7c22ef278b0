// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/session/StreamClock.h"

#include "monitor/core/Clock.h"
#include "monitor/session/Session.h"

#include <cmath>

namespace Monitor {

namespace {

constexpr double secondsEach = 1e-3; // millisecond

double secondsOf(const QDateTime &moment)
{
    return double(moment.toMSecsSinceEpoch()) * secondsEach;
}

} // namespace

StreamClock::StreamClock(Session &session, QObject *parent)
    : QObject(parent)
    , m_session(session)
{
    connect(&session, &Session::streamStarted, this, &StreamClock::begin);
    connect(&session.model(), &QAbstractItemModel::rowsInserted, this, &StreamClock::follow);
    begin(session.model().header());
    follow();
}

QDateTime StreamClock::originDate() const
{
    return m_origin && m_isDated
        ? QDateTime::fromMSecsSinceEpoch(qint64(std::round(*m_origin / secondsEach)), Qt::UTC)
        : QDateTime();
}

void StreamClock::begin(const StreamHeader &header)
{
    m_hasTimes = !header.isList();
    m_origin.reset();
    m_isByArrival = false;
    m_isDated = true;
    m_lead = 0.0;
    m_isInStep = true;
    m_isLateSince.reset();
    Q_EMIT originChanged();
}

//! Dates the stream by its first readings, and compares its clock with this computer's by those that follow.
void StreamClock::follow()
{
    const MultichannelDeviceModel &model = m_session.model();
    const int last = model.rowCount() - 1;
    if (!m_hasTimes || last < 1)
        return;
    const bool wasInStep = isInStep();
    const std::optional<Source::PlacedOrigin> placed = m_session.source().placedOrigin();
    const bool isPlacedAnew = placed && m_origin != placed->seconds;
    const bool isFirst = !m_origin || isPlacedAnew;
    if (placed)
        place(*placed);
    else if (isFirst)
        date(model.doubleData(1, 0), model.doubleData(last, 0));
    compare();
    if (isFirst)
        Q_EMIT originChanged();
    else if (isInStep() != wasInStep)
        Q_EMIT inStepChanged();
}

//! Takes over where the source was placed in time.
void StreamClock::place(const Source::PlacedOrigin &origin)
{
    m_isByArrival = false;
    m_isDated = origin.isDated;
    m_origin = origin.seconds;
}

//! Dates a stream whose first readings, from one time to another, have just arrived.
void StreamClock::date(double firstTime, double newestTime)
{
    const std::optional<double> stated = m_session.model().header().statedOrigin(firstTime);
    m_isByArrival = !stated;
    m_origin = stated ? *stated : secondsOf(m_session.clock().wallTime()) - newestTime;
}

/*! Compares the newest reading with this computer's clock. A reading that is ahead cannot have waited. What was recorded is not
    compared. */
void StreamClock::compare()
{
    if (!m_session.source().isLive())
        return;
    m_lead = *newest() - secondsOf(m_session.clock().wallTime());
    const double now = m_session.clock().seconds();
    if (m_lead >= -tolerance)
        m_isLateSince.reset();
    else if (!m_isLateSince)
        m_isLateSince = now;
    const bool isTooLate = m_isLateSince && now - *m_isLateSince >= patience;
    m_isInStep = m_lead <= tolerance && !isTooLate;
}

std::optional<double> StreamClock::newest() const
{
    const MultichannelDeviceModel &model = m_session.model();
    const int last = model.rowCount() - 1;
    if (!m_origin || last < 1)
        return std::nullopt;
    return *m_origin + model.doubleData(last, 0);
}

} // namespace Monitor
