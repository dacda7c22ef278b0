// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/MonitorStatusBar.h"

#include "monitor/core/Clock.h"
#include "monitor/session/Session.h"
#include "monitor/window/Look.h"

#include <QFileInfo>
#include <QStorageInfo>

namespace Monitor {

namespace {

constexpr double refreshInterval = 0.25; // s
constexpr double littleSpace = 3600.0; // s of recording, when the operator is warned

QString sizeText(qint64 bytes)
{
    constexpr double mega = 1e6;
    return QStringLiteral("%1 MB").arg(double(bytes) / mega, 0, 'f', 1);
}

//! Returns the text in black on a light background, so that it is readable in dark and light palettes.
QString noticeOf(const QString &text, Look::State state)
{
    return QStringLiteral("<span style=\"background:%1; color:black;\">&nbsp;%2&nbsp;</span>&nbsp;")
        .arg(Look::ground(state).name(), text.toHtmlEscaped());
}

} // namespace

MonitorStatusBar::MonitorStatusBar(Session &session, QWidget *parent)
    : QStatusBar(parent)
    , m_session(session)
    , m_source(add("source", tr("Where the readings come from"), 1))
    , m_notices(add("notices", tr("Abnormal states")))
    , m_rate(add("rate", tr("Readings per second")))
    , m_bad(add("bad", tr("Lines that could not be used; the log lists them")))
    , m_gaps(add("gaps", tr("Pauses longer than three of the usual steps")))
    , m_recording(add("recording", tr("The file that is being recorded (Ctrl+R)")))
    , m_clock(add("clock", tr("Time, UTC")))
{
    m_source->setTextFormat(Qt::PlainText);
    m_recording->setTextFormat(Qt::PlainText);
    // Numbers that grow must not move their neighbours.
    for (QLabel *label : {m_rate, m_bad, m_gaps, m_clock})
        label->setFont(Look::figures(font()));
    keepRoomFor(m_rate, rateText(99999.9));
    keepRoomFor(m_bad, badText(9999));
    keepRoomFor(m_gaps, gapsText(999));
    keepRoomFor(m_clock, clockText());
    setSizeGripEnabled(false);
    setContentsMargins(Look::gap / 2, 0, Look::gap / 2, 0);
    connect(&session.clock(), &Clock::tick, this, &MonitorStatusBar::refreshIfDue);
    connect(&session, &Session::pausedChanged, this, &MonitorStatusBar::refresh);
    connect(&session, &Session::recordingChanged, this, &MonitorStatusBar::refresh);
    connect(&session, &Session::staleChanged, this, &MonitorStatusBar::refresh);
    connect(&session, &Session::sourceStateChanged, this, &MonitorStatusBar::refresh);
    connect(&session, &Session::sourceReplaced, this, &MonitorStatusBar::refresh);
    refresh();
}

QLabel *MonitorStatusBar::add(const char *name, const QString &toolTip, int stretch)
{
    auto *label = new QLabel(this);
    label->setObjectName(QLatin1String(name));
    label->setToolTip(toolTip);
    if (stretch > 0) {
        label->setMinimumWidth(100);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }
    addWidget(label, stretch);
    return label;
}

void MonitorStatusBar::keepRoomFor(QLabel *label, const QString &text)
{
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(text));
}

QString MonitorStatusBar::rateText(double rate)
{
    return tr("%1 /s").arg(rate, 0, 'f', 1);
}

QString MonitorStatusBar::badText(qint64 lines)
{
    return lines == 1 ? tr("1 bad line") : tr("%1 bad lines").arg(lines);
}

QString MonitorStatusBar::gapsText(qint64 gaps)
{
    return gaps == 1 ? tr("1 gap") : tr("%1 gaps").arg(gaps);
}

QString MonitorStatusBar::clockText() const
{
    return m_session.clock().wallTime().toUTC().toString(QStringLiteral("HH:mm:ss 'UTC'"));
}

void MonitorStatusBar::refreshIfDue()
{
    if (m_session.clock().seconds() - m_refreshedAt >= refreshInterval)
        refresh();
}

void MonitorStatusBar::refresh()
{
    m_refreshedAt = m_session.clock().seconds();
    const Source &source = m_session.source();
    const bool troubled = source.state() == Source::State::Retrying
        || source.state() == Source::State::Connecting || source.state() == Source::State::Failed
        || source.state() == Source::State::Finished;
    m_source->setText(troubled ? source.stateText() : source.description());

    noteSpace();
    m_notices->setText(noticesText());
    m_rate->setText(rateText(m_session.rate()));
    const qint64 bad = source.counts().bad();
    m_bad->setText(bad > 0 ? noticeOf(badText(bad), Look::State::Waiting) : badText(bad));
    m_gaps->setText(gapsText(m_session.gaps()));
    m_recording->setText(recordingText());
    m_clock->setText(clockText());
}

QString MonitorStatusBar::noticesText() const
{
    const Source &source = m_session.source();
    const Recorder *recorder = m_session.recorder();
    QString notices;
    if (source.isSimulated())
        notices += noticeOf(tr("SIMULATED"), Look::State::Simulated);
    if (m_session.isPaused())
        notices += noticeOf(tr("PAUSED, %1 readings wait").arg(m_session.model().waitingReadings()),
                            Look::State::Paused);
    if (m_session.isStale())
        notices += noticeOf(tr("STALE"), Look::State::Trouble);
    if (source.state() == Source::State::Finished)
        notices += noticeOf(tr("END"), Look::State::Ended);
    const std::optional<double> space = m_space.secondsLeft();
    if (recorder && space && *space < littleSpace)
        notices +=
            noticeOf(tr("DISK FULL IN %1").arg(SpaceForecast::text(*space)), Look::State::Waiting);
    if (recorder && !recorder->errorString().isEmpty())
        notices += noticeOf(tr("RECORDING FAILS"), Look::State::Trouble);
    notices += alarmText();
    return notices;
}

//! Returns the worst of what is beyond limits, and how much more there is.
QString MonitorStatusBar::alarmText() const
{
    const QVector<Alarms::Entry> entries = m_session.alarms().entries();
    if (entries.isEmpty())
        return {};
    const Alarms::Entry &first = entries.first();
    QString text = first.lasts() ? first.text : tr("%1 (over, F8 acknowledges)").arg(first.text);
    if (entries.size() > 1)
        text = tr("%1 and %2 more").arg(text).arg(entries.size() - 1);
    return noticeOf(text, isAlarm(first.worst) ? Look::State::Trouble : Look::State::Waiting);
}

QString MonitorStatusBar::recordingText() const
{
    const Recorder *recorder = m_session.recorder();
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
    const QStorageInfo disk(QFileInfo(recorder->fileName()).path());
    if (disk.isValid())
        m_space.note(m_refreshedAt, recorder->totalSize(), disk.bytesAvailable());
}

} // namespace Monitor
