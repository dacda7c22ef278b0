// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/MonitorStatusBar.h"

#include "monitor/core/Clock.h"
#include "monitor/core/Text.h"
#include "monitor/readings/LimitTexts.h"
#include "monitor/session/Companions.h"
#include "monitor/window/MemberNotices.h"

#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>

namespace Monitor {

namespace {

constexpr double refreshInterval = 0.25; // s
constexpr double littleSpace = 3600.0; // s of recording, when the operator is warned

QString sizeText(qint64 bytes)
{
    constexpr double mega = 1e6;
    return QStringLiteral("%1 MB").arg(double(bytes) / mega, 0, 'f', 1);
}

} // namespace

MonitorStatusBar::MonitorStatusBar(Session &session, QWidget *parent)
    : QStatusBar(parent)
    , m_session(session)
    , m_source(add("source", tr("Where the readings come from"), 1))
    , m_notices(add("notices", tr("Abnormal states")))
    , m_rate(add("rate", tr("Readings per second")))
    , m_bad(add("bad", tr("Lines that could not be used; the log lists them")))
    , m_gaps(add("gaps", tr("Pauses longer than three of the usual intervals")))
    , m_recording(add("recording", tr("The file that is being recorded (Ctrl+R)")))
    , m_clock(add("clock", tr("Time, UTC")))
{
    // Numbers that grow must not move their neighbours.
    for (StatusField *field : {m_rate, m_bad, m_gaps, m_clock})
        field->setFont(Look::figures(font()));
    keepRoomFor(m_rate, rateText(99999.9));
    keepRoomFor(m_bad, badText(9999));
    keepRoomFor(m_gaps, gapsText(999));
    keepRoomFor(m_clock, clockText());
    setSizeGripEnabled(false);
    setContentsMargins(Look::gap / 2, 0, Look::gap / 2, 0);
    connect(&session.clock(), &Clock::tick, this, &MonitorStatusBar::refreshIfDue);
    connect(&session.clock(), &Clock::backgroundChanged, this, &MonitorStatusBar::refresh);
    connect(&session, &Session::pausedChanged, this, &MonitorStatusBar::refresh);
    connect(&session, &Session::recordingChanged, this, &MonitorStatusBar::refresh);
    connect(&session, &Session::staleChanged, this, &MonitorStatusBar::refresh);
    connect(&session, &Session::sourceStateChanged, this, &MonitorStatusBar::refresh);
    connect(&session, &Session::sourceReplaced, this, &MonitorStatusBar::refresh);
    refresh();
}

StatusField *MonitorStatusBar::add(const char *name, const QString &meaning, int stretch)
{
    auto *field = new StatusField(meaning, this);
    field->setObjectName(QLatin1String(name));
    if (stretch > 0) {
        field->setMinimumWidth(100);
        field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }
    addWidget(field, stretch);
    return field;
}

void MonitorStatusBar::keepRoomFor(StatusField *field, const QString &text)
{
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance(text) + Look::gap);
}

QString MonitorStatusBar::rateText(double rate)
{
    return tr("%1 /s").arg(rate, 0, 'f', 1);
}

QString MonitorStatusBar::badText(qint64 lines)
{
    return Text::counted("%n bad line(s)", nullptr, lines);
}

QString MonitorStatusBar::gapsText(qint64 gaps)
{
    return Text::counted("%n gap(s)", nullptr, gaps);
}

QString MonitorStatusBar::pausedText(qint64 readings)
{
    return Text::counted("PAUSED, %n reading(s) wait(s)", nullptr, readings);
}

QString MonitorStatusBar::clockText() const
{
    return m_session.clock().wallTime().toUTC().toString(QStringLiteral("HH:mm:ss 'UTC'"));
}

void MonitorStatusBar::refreshIfDue()
{
    const Clock &clock = m_session.clock();
    if (!clock.isBackground() && clock.seconds() - m_refreshedAt >= refreshInterval)
        refresh();
}

void MonitorStatusBar::refresh()
{
    m_refreshedAt = m_session.clock().seconds();
    const Source &source = m_session.source();
    const bool troubled = source.state() == Source::State::Retrying
        || source.state() == Source::State::Connecting || source.state() == Source::State::Failed
        || source.state() == Source::State::Finished;
    m_source->tell(troubled ? source.stateText() : sourceText());

    noteSpace();
    m_notices->tell(notices());
    m_rate->tell(rateText(m_session.rate()));
    qint64 bad = source.counts().bad();
    qint64 gaps = m_session.gaps();
    for (const Companions::Member &member : companions()) {
        bad += member.session->source().counts().bad();
        gaps += member.session->gaps();
    }
    if (bad > 0)
        m_bad->tell(QVector<StatusField::Part>{{badText(bad), {}, Look::State::Waiting}});
    else
        m_bad->tell(badText(bad));
    m_gaps->tell(gapsText(gaps));
    m_recording->tell(recordingText());
    m_clock->tell(clockText());
}

QVector<StatusField::Part> MonitorStatusBar::notices() const
{
    using Look::State;
    const Source &source = m_session.source();
    QVector<StatusField::Part> notices;
    // In a narrow window the first ones are seen in any case.
    if (source.isSimulated())
        notices.append({tr("SIMULATED"),
                        tr("no instrument is read; File > Connect... reads one"),
                        State::Simulated});
    const auto own = [this](const QString &text) {
        return companions().empty() ? text
                                    : tr("%1: %2").arg(m_companions->nameOf(&m_session), text);
    };
    for (StatusField::Part part : alarmNotice(m_session)) {
        part.text = own(part.text);
        notices.append(part);
    }
    notices += recordingNotices() + companionNotices();
    if (m_session.isStale())
        notices.append({own(tr("STALE")),
                        source.isLive()
                            ? tr("no reading has come for three of the usual intervals; check the "
                                 "beam and the instrument")
                            : tr("the recording has a gap here: the values shown are from before "
                                 "it"),
                        State::Trouble});
    if (const auto clock = companions().empty()
            ? std::nullopt
            : clockNotice(*m_companions->members().front().clock))
        notices.append({own(clock->text), clock->help, clock->state});
    if (m_session.isPaused())
        notices.append({pausedText(m_session.model().waitingReadings()),
                        tr("what is shown stands still; Space shows the readings that wait"),
                        State::Paused});
    if (source.state() == Source::State::Finished)
        notices.append({own(tr("END")),
                        tr("the source has delivered everything; File > Open... opens another one"),
                        State::Ended});
    return notices;
}

QVector<StatusField::Part> MonitorStatusBar::recordingNotices() const
{
    using Look::State;
    const Recorder *recorder = m_session.recorder();
    if (!recorder)
        return {};
    QVector<StatusField::Part> notices;
    if (!recorder->error().isEmpty())
        notices.append({tr("RECORDING FAILS"),
                        tr("%1. Make room, or record to another disk; readings wait meanwhile")
                            .arg(recorder->error().shown()),
                        State::Trouble});
    const std::optional<double> space = m_space.secondsLeft();
    if (space && *space < littleSpace)
        notices.append({tr("DISK FULL IN %1").arg(SpaceForecast::text(*space)),
                        tr("make room, or record to another disk"),
                        State::Waiting});
    return notices;
}

void MonitorStatusBar::setCompanions(const Companions &companions)
{
    m_companions = &companions;
    connect(&companions, &Companions::changed, this, &MonitorStatusBar::refresh);
    refresh();
}

//! Returns the sources beside that of the session; none if it is alone.
std::vector<Companions::Member> MonitorStatusBar::companions() const
{
    if (!m_companions || m_companions->isEmpty())
        return {};
    std::vector<Companions::Member> members = m_companions->members();
    members.erase(members.begin());
    return members;
}

//! Returns where the readings come from: one source, or several by their names.
QString MonitorStatusBar::sourceText() const
{
    if (!m_companions || m_companions->isEmpty())
        return m_session.source().description();
    QStringList texts;
    for (const Companions::Member &member : m_companions->members())
        texts.append(tr("%1: %2, %3")
                         .arg(member.name,
                              member.session->source().description(),
                              rateText(member.session->rate())));
    return texts.join(QStringLiteral("; "));
}

//! Returns what is abnormal about the sources beside, the worst first.
QVector<StatusField::Part> MonitorStatusBar::companionNotices() const
{
    QVector<StatusField::Part> notices;
    for (const Companions::Member &member : companions()) {
        for (StatusField::Part part : memberNotices(member)) {
            if (part.state == Look::State::Simulated)
                continue; // its pane says so
            part.text = tr("%1: %2").arg(member.name, part.text);
            notices.append(part);
        }
    }
    std::stable_partition(notices.begin(), notices.end(), [](const StatusField::Part &part) {
        return part.state == Look::State::Trouble;
    });
    return notices;
}

QVector<StatusField::Part> MonitorStatusBar::alarmNotice(const Session &session)
{
    const QVector<Alarms::Entry> entries = session.alarms().entries();
    if (entries.isEmpty())
        return {};
    const Alarms::Entry &first = entries.first();
    QString text = passedLimitText(first.worst, first.name, first.limit);
    if (!first.lasts())
        text = tr("%1 (over, F8 acknowledges)").arg(text);
    if (entries.size() > 1)
        text = tr("%1 and %2 more").arg(text, QString::number(entries.size() - 1));
    return {{text,
             tr("F8 acknowledges, Measure > Limits changes the limits; the log says when each was "
                "passed"),
             isAlarm(first.worst) ? Look::State::Trouble : Look::State::Waiting}};
}

QString MonitorStatusBar::recordingText() const
{
    const Recorder *recorder = m_session.recorder();
    const QStringList pending = m_session.compressor().pending();
    if (!recorder && !pending.isEmpty())
        return tr("compressing %1, %2 %")
            .arg(QFileInfo(pending.first()).fileName(),
                 QString::number(int(m_session.compressor().progress() * 100.0)));
    if (!recorder)
        return tr("not recording");
    const QString text =
        tr("REC %1, %2")
            .arg(QFileInfo(recorder->fileName()).fileName(), sizeText(recorder->size()));
    const std::optional<double> space = m_space.secondsLeft();
    return space ? tr("%1, room for %2").arg(text, SpaceForecast::text(*space)) : text;
}

//! Follows how fast the recording's disk fills up.
void MonitorStatusBar::noteSpace()
{
    const Recorder *recorder = m_session.recorder();
    if (!recorder || recorder->fileName().isEmpty()) {
        m_space.reset();
        return;
    }
    qint64 written = recorder->totalSize();
    for (const Companions::Member &member : companions()) // their files are beside
        if (member.session->recorder())
            written += member.session->recorder()->totalSize();
    const QStorageInfo disk(QFileInfo(recorder->fileName()).path());
    if (disk.isValid())
        m_space.note(m_refreshedAt, written, disk.bytesAvailable());
}

} // namespace Monitor
