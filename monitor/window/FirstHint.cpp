// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/FirstHint.h"

#include "monitor/session/Session.h"
#include "monitor/window/WindowSettings.h"

namespace Monitor {

FirstHint::FirstHint(Session &session, WindowSettings &settings, QWidget *parent)
    : NoticeLine(parent)
    , m_session(session)
    , m_settings(settings)
{
    setObjectName(QStringLiteral("hint"));
    setDismissible(tr("Do not show again"));
    connect(this, &NoticeLine::dismissed, this, [&settings] {
        settings.dismissHint();
    });
    connect(&session, &Session::sourceReplaced, this, &FirstHint::refresh);
    refresh();
}

void FirstHint::refresh()
{
    if (m_settings.isHintDismissed())
        return;
    const QString what = m_session.source().isSimulated()
        ? tr("This beam is simulated.")
        : tr("This is %1.").arg(m_session.source().description());
    tell(what
             + tr(" File > Open... plays a recording, File > Connect... reads an instrument. Space "
                  "pauses, Ctrl+R records, F1 shows the first steps."),
         Kind::Hint);
}

} // namespace Monitor
