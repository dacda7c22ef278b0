// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/session/Alarms.h"

#include "monitor/core/EnglishTexts.h"
#include "monitor/core/NumberText.h"
#include "monitor/core/Text.h"
#include "monitor/readings/LimitTexts.h"
#include <corvale_qt/units/SiPrefix.h>

#include <algorithm>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

//! Returns a value with the prefix that it has in the window as well, and with enough digits for a limit as it was typed.
QString quantity(double value, const QString &unit)
{
    constexpr int digits = 6;
    Units::SiPrefix prefix(unit);
    prefix.follow(value);
    const QString number = numberText(prefix.shown(value), digits);
    return unit.isEmpty() ? number : number + QLatin1Char(' ') + prefix.symbol();
}

} // namespace

Alarms::Alarms(QObject *parent)
    : QObject(parent)
{
}

void Alarms::startStream(const StreamHeader &header)
{
    m_header = header;
    for (Entry &entry : m_entries) {
        entry.channel = -1;
        entry.state = LimitState::Normal;
    }
    dropSettled();
    Q_EMIT changed();
}

void Alarms::update(LimitLog &log)
{
    const std::vector<LimitLog::Change> changes = log.takeChanges();
    for (const LimitLog::Change &change : changes)
        take(change);
    if (const qint64 more = log.takeUnlisted())
        Q_EMIT noted(tr("WARNING not listed: %1")
                         .arg(Text::countedInEnglish("%n more limit crossing(s)", nullptr, more)));
    bool isOther = !changes.empty();
    for (Entry &entry : m_entries) {
        const LimitState now = entry.channel >= 0 ? log.state(entry.channel) : LimitState::Normal;
        isOther = isOther || now != entry.state;
        entry.state = now;
    }
    if (!isOther)
        return;
    dropSettled();
    Q_EMIT changed();
}

void Alarms::take(const LimitLog::Change &change)
{
    const EnglishTexts english; // of the log
    const Channel &channel = m_header.channels[change.channel];
    if (change.state == LimitState::Normal) {
        const LimitExcursion &past = change.excursion;
        const double lasted = past.ended - past.began;
        const QString later = m_header.hasTimes
            ? tr("after %1 s").arg(lasted, 0, 'g', 6)
            : Text::countedInEnglish("%n reading(s) later", nullptr, qint64(lasted));
        Q_EMIT noted(tr("%1 is within its limits again %2, at worst %3")
                         .arg(channel.name, later, quantity(past.worst, channel.unit)));
        return;
    }
    Entry &entry = entryOf(change.channel);
    const QString limit =
        quantity(m_header.limitsOf(change.channel).limitOf(change.state), channel.unit);
    const bool isWorse = isAlarm(change.state) || !isAlarm(entry.worst);
    const bool isRelieved = isAlarm(change.before) && !isAlarm(change.state)
        && isHigh(change.before) == isHigh(change.state);
    if (isWorse) {
        entry.worst = change.state;
        entry.limit = limit;
    }
    entry.state = change.state;
    if (isRelieved) {
        Q_EMIT noted(tr("%1 is no longer in alarm").arg(channel.name));
        return;
    }
    entry.isUnacknowledged = entry.isUnacknowledged || isAlarm(change.state);
    Q_EMIT noted((m_header.hasTimes ? tr("%1: %2 at t = %3 s") : tr("%1: %2 at reading %3"))
                     .arg(passedLimitText(change.state, channel.name, limit),
                          quantity(change.reading, channel.unit),
                          QString::number(change.time, 'g', 10)));
}

Alarms::Entry &Alarms::entryOf(int channel)
{
    const QString name = m_header.channels[channel].name;
    const auto at = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry &entry) {
        return entry.name == name;
    });
    if (at != m_entries.end()) {
        at->channel = channel;
        return *at;
    }
    Entry entry;
    entry.channel = channel;
    entry.name = name;
    m_entries.append(entry);
    return m_entries.last();
}

//! Removes the entries of channels that are within their limits and need no acknowledgement.
void Alarms::dropSettled()
{
    m_entries.erase(std::remove_if(m_entries.begin(),
                                   m_entries.end(),
                                   [](const Entry &entry) {
                                       return !entry.lasts() && !entry.isUnacknowledged;
                                   }),
                    m_entries.end());
}

void Alarms::acknowledge()
{
    if (!isUnacknowledged())
        return;
    const EnglishTexts english; // of the log
    for (Entry &entry : m_entries) {
        if (entry.isUnacknowledged)
            Q_EMIT noted(
                tr("acknowledged: %1").arg(passedLimitText(entry.worst, entry.name, entry.limit)));
        entry.isUnacknowledged = false;
    }
    dropSettled();
    Q_EMIT changed();
}

QVector<Alarms::Entry> Alarms::entries() const
{
    QVector<Entry> sorted = m_entries;
    std::stable_partition(sorted.begin(), sorted.end(), [](const Entry &entry) {
        return isAlarm(entry.worst);
    });
    return sorted;
}

LimitState Alarms::state(int channel) const
{
    const auto at = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry &entry) {
        return entry.channel == channel;
    });
    return at == m_entries.end() ? LimitState::Normal : at->state;
}

bool Alarms::isUnacknowledged() const
{
    return std::any_of(m_entries.begin(), m_entries.end(), [](const Entry &entry) {
        return entry.isUnacknowledged;
    });
}

} // namespace Monitor
