// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/ClockOffsets_p.h"

#include <QDateTime>

#include <limits>

namespace Corvale_Qt {

namespace {

// Beyond these the calendar of QDateTime ends, and no instrument's clock goes.
constexpr qint64 kEarliest = -200LL * 366 * kDay;
constexpr qint64 kLatest = 800LL * 366 * kDay;

QDateTime toDateTime(qint64 moment)
{
    qint64 milliseconds = moment / kMillisecond;
    if (moment % kMillisecond < 0)
        --milliseconds;
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC);
}

qint64 toMoment(const QTimeZone::OffsetData &change, qint64 otherwise)
{
    return change.atUtc.isValid() ? change.atUtc.toMSecsSinceEpoch() * kMillisecond : otherwise;
}

} // namespace

ClockOffsets::ClockOffsets(const QTimeZone &zone)
    : m_zone(zone.isValid() ? zone : QTimeZone::utc())
{
}

ClockStretch ClockOffsets::stretchAt(qint64 moment) const
{
    const QDateTime time = toDateTime(moment);
    ClockStretch stretch{kEarliest, kLatest, m_zone.offsetFromUtc(time) * kSecond};
    if (m_zone.hasTransitions()) {
        // Both are asked for from a little later: the one before may be at this very moment, and from the moment of the
        // last one in the table of the zone, Qt does not go on to the rule for later years.
        const QDateTime later = time.addMSecs(1);
        stretch.begin = toMoment(m_zone.previousTransition(later), kEarliest);
        stretch.end = toMoment(m_zone.nextTransition(later), kLatest);
    }
    if (stretch.begin > moment)
        stretch.begin = moment;
    if (stretch.end <= moment)
        stretch.end = kLatest;
    return stretch;
}

QVector<ClockStretch> ClockOffsets::stretches(qint64 first, qint64 last)
{
    first = qBound(kEarliest, first, kLatest - 1);
    last = qBound(first, last, kLatest - 1);
    const bool isFound =
        !m_found.isEmpty() && m_found.first().begin <= first && last < m_found.last().end;
    if (!isFound) {
        m_found = {stretchAt(first)};
        while (m_found.last().end <= last) {
            const ClockStretch next = stretchAt(m_found.last().end);
            if (next.offset == m_found.last().offset) // only the name of the zone has changed
                m_found.last().end = next.end;
            else
                m_found.append(next);
        }
    }
    QVector<ClockStretch> covering;
    for (const ClockStretch &stretch : qAsConst(m_found)) {
        if (stretch.end > first && stretch.begin <= last)
            covering.append(stretch);
    }
    return covering;
}

qint64 ClockOffsets::offsetAt(qint64 moment)
{
    return stretches(moment, moment).first().offset;
}

} // namespace Corvale_Qt
