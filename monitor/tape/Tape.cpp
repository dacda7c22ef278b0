// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/tape/Tape.h"

#include <algorithm>

namespace Monitor {

Tape::Tape(QObject *parent)
    : QObject(parent)
{
}

QVector<double> Tape::speeds()
{
    return {0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0, 20.0, 50.0, 100.0, 0.0};
}

void Tape::toggle()
{
    if (isPlaying())
        pause();
    else
        play();
}

//! Returns where a person may want to go: to the events, and to where gaps begin and end.
QVector<double> Tape::stops() const
{
    QVector<double> stops;
    for (const TapeSurvey::Mark &mark : m_survey.marks) {
        stops.append(mark.position);
        // A little more, because the sum may round to a place before the reading that ends the gap.
        if (mark.kind == TapeMark::Kind::Gap)
            stops.append(mark.position + mark.length + 0.5 * tolerance());
    }
    return stops;
}

//! Returns by how much positions of the same place may differ.
double Tape::tolerance() const
{
    constexpr double share = 1e-9;
    return share * length();
}

void Tape::seekNextMark()
{
    const double here = position() + tolerance();
    double next = length();
    for (const double stop : stops())
        if (stop > here)
            next = std::min(next, stop);
    seek(next);
}

void Tape::seekFormerMark()
{
    const double here = position() - tolerance();
    double former = 0.0;
    for (const double stop : stops())
        if (stop < here)
            former = std::max(former, stop);
    seek(former);
}

void Tape::setLoop(const Loop &loop)
{
    if (!isIndexed())
        return;
    const Loop inside{std::clamp(loop.from, 0.0, length()), std::clamp(loop.to, 0.0, length())};
    m_loop.reset();
    if (inside.from < inside.to)
        m_loop = inside;
    takeLoop();
    Q_EMIT changed();
}

void Tape::beginLoopHere()
{
    const double here = position();
    setLoop({here, m_loop && m_loop->to > here ? m_loop->to : length()});
}

void Tape::endLoopHere()
{
    const double here = position();
    setLoop({m_loop && m_loop->from < here ? m_loop->from : 0.0, here});
}

void Tape::clearLoop()
{
    m_loop.reset();
    takeLoop();
    Q_EMIT changed();
}

} // namespace Monitor
