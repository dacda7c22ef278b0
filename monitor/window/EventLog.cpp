// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/EventLog.h"

#include "monitor/core/Clock.h"
#include "monitor/core/LogTail.h"
#include "monitor/session/Session.h"
#include "monitor/window/Look.h"
#include "monitor/window/SessionLines.h"
#include "monitor/window/Symbols.h"

#include <QEvent>
#include <QLabel>

namespace Monitor {

namespace {

constexpr int mostLines = 5000;

} // namespace

EventLog::EventLog(Session &session, QWidget *parent)
    : RVXLogBrowser(parent)
    , m_session(session)
{
    titleLabel()->hide(); // the dock has it
    giveSymbols(this);
    setMaximumBlockCount(mostLines);
    addErrorKeywords({QStringLiteral("ERROR"), QStringLiteral("ALARM")});
    addWarningKeywords({QStringLiteral("WARNING")});
    adoptPalette();
    connect(new SessionLines(session, this),
            &SessionLines::written,
            this,
            [this](const QString &text) {
                write(m_name.isEmpty() ? text : m_name + QStringLiteral(": ") + text);
            });
}

void EventLog::changeEvent(QEvent *event)
{
    RVXLogBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        adoptPalette();
}

void EventLog::adoptPalette()
{
    const bool isDark = Look::isDark(this);
    setErrorColor(Look::word(Look::State::Trouble, isDark));
    setWarningColor(Look::word(Look::State::Waiting, isDark));
}

void EventLog::follow(Session &session, const QString &name)
{
    auto *lines = new SessionLines(session, this);
    connect(&session, &QObject::destroyed, lines, &QObject::deleteLater);
    connect(lines, &SessionLines::written, this, [this, name](const QString &text) {
        write(name + QStringLiteral(": ") + text);
    });
}

void EventLog::write(const QString &text)
{
    const QString time =
        m_session.clock().wallTime().toUTC().toString(QStringLiteral("HH:mm:ss.zzz"));
    const QString line = time + QStringLiteral("  ") + text;
    appendLine(line);
    LogTail::add(line);
}

} // namespace Monitor
