// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/SimulatorSource.h"

#include "monitor/core/Clock.h"

namespace Monitor {

SimulatorSource::SimulatorSource(Clock &clock, const QString &name, unsigned seed, QObject *parent)
    : Source(clock, parent)
    , m_name(name)
    , m_instrument(SimulatedInstrument::make(name))
    , m_header(m_instrument->header())
    , m_beam(seed)
{
    connect(&clock, &Clock::tick, this, &SimulatorSource::play);
}

QString SimulatorSource::description() const
{
    return QStringLiteral("sim:") + m_name;
}

LineCounts SimulatorSource::counts() const
{
    LineCounts counts;
    counts.readings = m_next;
    return counts;
}

void SimulatorSource::start()
{
    m_startedAt = clock().seconds();
    m_header.startTime = clock().wallTime();
    setState(State::Running, description());
    Q_EMIT streamStarted(m_header);
}

void SimulatorSource::play()
{
    if (state() != State::Running)
        return;
    clock().stayAwake();
    const double elapsed = clock().seconds() - m_startedAt;
    m_block.clear(m_header.channels.size());
    for (;; ++m_next) {
        const double time = double(m_next) * m_instrument->period();
        if (time > elapsed)
            break;
        m_beam.advanceTo(time);
        m_instrument->read(m_next, m_beam, &m_values);
        m_block.append(time, m_values.data());
    }
    if (!m_block.isEmpty())
        Q_EMIT readingsArrived(m_block);
}

} // namespace Monitor
