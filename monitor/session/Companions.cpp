// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/session/Companions.h"

#include "monitor/core/Clock.h"

#include <algorithm>
#include <cmath>

namespace Monitor {

struct Companions::Companion
{
    Companion(const NamedAddress &source, Clock &clock, std::unique_ptr<Source> reader)
        : name(source.name)
        , address(source.address)
        , session(clock, std::move(reader))
        , time(session)
    {
    }

    const QString name;
    const QString address;
    Session session;
    StreamClock time;
};

Companions::Companions(Session &lead, QObject *parent)
    : QObject(parent)
    , m_lead(lead)
    , m_leadClock(lead)
    , m_leadName(QStringLiteral("source"))
{
    connect(&lead, &Session::sourceClosing, this, &Companions::closeAll);
    connect(&lead, &Session::recordingChanged, this, &Companions::recordAsLead);
    connect(&lead, &Session::pausedChanged, this, [this](bool paused) {
        for (const auto &companion : m_companions)
            companion->session.setPaused(paused);
    });
    listenTo(m_leadClock, lead);
}

Companions::~Companions() = default;

void Companions::setLeadName(const QString &name)
{
    m_leadName = name;
    nameLead();
    Q_EMIT changed();
}

//! The files of a lead that is alone are named as always.
void Companions::nameLead()
{
    m_lead.setRecordingLabel(isEmpty() ? QString() : m_leadName);
}

QString Companions::freeName(const NamedAddress &source) const
{
    QVector<NamedAddress> names;
    for (const Member &member : members())
        names.append({member.name, QString()});
    names.append(source);
    // The others keep theirs: they come first.
    nameSources(&names);
    return names.last().name;
}

Session &Companions::add(const NamedAddress &source, std::unique_ptr<Source> reader)
{
    const bool isFirst = isEmpty();
    const NamedAddress named{freeName(source), source.address};
    auto companion = std::make_unique<Companion>(named, m_lead.clock(), std::move(reader));
    Session &session = companion->session;
    session.setRecordingLabel(companion->name);
    session.compressWith(m_lead); // that goes on when the companion is closed
    session.setPaused(m_lead.isPaused());
    listenTo(companion->time, session);
    m_companions.push_back(std::move(companion));
    nameLead();
    if (m_lead.recorder())
        record(*m_companions.back());
    Q_EMIT added(session);
    Q_EMIT changed();
    if (isFirst)
        noteOrigin(m_leadClock, m_lead);
    return session;
}

std::vector<std::unique_ptr<Companions::Companion>>::iterator
Companions::find(const Session *session)
{
    return std::find_if(m_companions.begin(), m_companions.end(), [session](const auto &companion) {
        return &companion->session == session;
    });
}

void Companions::close(Session *session)
{
    const auto found = find(session);
    if (found == m_companions.end())
        return;
    session->stopRecording();
    m_incompleteRecordings += session->incompleteRecordings();
    Q_EMIT closing(*session);
    m_companions.erase(found);
    nameLead();
    Q_EMIT changed();
}

void Companions::closeAll()
{
    while (!isEmpty())
        close(&m_companions.back()->session);
}

std::vector<Companions::Member> Companions::members() const
{
    std::vector<Member> members{{m_leadName, &m_lead, &m_leadClock, &m_lead}};
    for (const auto &companion : m_companions)
        members.push_back({companion->name, &companion->session, &companion->time, &m_lead});
    return members;
}

QVector<NamedAddress> Companions::addresses() const
{
    QVector<NamedAddress> addresses;
    for (const auto &companion : m_companions)
        addresses.append({companion->name, companion->address});
    return addresses;
}

QString Companions::nameOf(const Session *session) const
{
    if (isEmpty())
        return {};
    for (const Member &member : members())
        if (member.session == session)
            return member.name;
    return {};
}

std::optional<double> Companions::present() const
{
    std::optional<double> present;
    for (const Member &member : members()) {
        const std::optional<double> newest =
            member.clock->isInStep() ? member.clock->newest() : std::nullopt;
        if (newest && (!present || *newest > *present))
            present = newest;
    }
    return present;
}

QStringList Companions::incompleteRecordings() const
{
    QStringList lines = m_incompleteRecordings;
    for (const auto &companion : m_companions)
        lines += companion->session.incompleteRecordings();
    return lines;
}

//! Begins and ends the recordings of the companions with that of the lead.
void Companions::recordAsLead()
{
    for (const auto &companion : m_companions) {
        if (!m_lead.recorder())
            companion->session.stopRecording();
        else if (!companion->session.recorder())
            record(*companion);
    }
}

void Companions::record(Companion &companion)
{
    Session &session = companion.session;
    Recorder::Options options = m_lead.recorder()->options();
    // Without a label, somebody was asked about the file of the lead alone.
    options.overwrite = options.overwrite && !options.label.isEmpty();
    const QString path = RecordingNames(options.path, companion.name).path();
    QString error = tr("%1 is a source; record to another file").arg(path);
    session.setRecordingMode(options.mode);
    if (!m_lead.source().readsFrom(path) && session.startRecording(options, &error))
        return;
    m_incompleteRecordings.append(
        QStringLiteral("the source %1 was not recorded: %2").arg(companion.name, error));
    Q_EMIT session.noted(QStringLiteral("ERROR the source is not recorded: %1. Stop the "
                                        "recording and begin another one")
                             .arg(error));
}

void Companions::listenTo(const StreamClock &clock, Session &session)
{
    connect(&clock, &StreamClock::originChanged, this, [this, &clock, &session] {
        noteOrigin(clock, session);
    });
    connect(&clock, &StreamClock::inStepChanged, this, [this, &clock, &session] {
        noteStep(clock, session);
    });
}

//! Says how a source is placed in time, if it is not by its own clock, or if that clock is wrong.
void Companions::noteOrigin(const StreamClock &clock, Session &session) const
{
    if (isEmpty() || !clock.origin())
        return;
    if (clock.isByArrival())
        Q_EMIT session.noted(QStringLiteral(
            "the source states no time of day: its readings are dated by their arrival"));
    noteStep(clock, session);
}

void Companions::noteStep(const StreamClock &clock, Session &session) const
{
    if (isEmpty() || clock.isInStep())
        return;
    Q_EMIT session.noted(
        QStringLiteral(
            "WARNING the clock of the source is %1 s %2 this computer's; its chart shows its own "
            "time")
            .arg(QString::number(std::abs(clock.lead()), 'f', 1),
                 clock.lead() > 0.0 ? QStringLiteral("ahead of") : QStringLiteral("behind")));
}

} // namespace Monitor
