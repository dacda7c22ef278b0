// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/LeftOutNotice.h"

#include "monitor/core/Text.h"
#include "monitor/session/Session.h"
#include "monitor/window/DisplayTabs.h"

namespace Monitor {

LeftOutNotice::LeftOutNotice(Session &session, DisplayTabs &displays, QWidget *parent)
    : NoticeLine(parent)
    , m_session(session)
{
    setObjectName(QStringLiteral("leftOutNotice"));
    connect(&session, &Session::streamStarted, this, &LeftOutNotice::refresh);
    connect(&session, &Session::frameShown, this, &LeftOutNotice::refresh);
    connect(&displays, &DisplayTabs::leftOutChanged, this, &LeftOutNotice::noteInDisplays);
}

//! Shows what the displays leave out, and tells the log when that begins.
void LeftOutNotice::noteInDisplays(const LoggedText &text)
{
    if (m_inDisplays.shown().isEmpty() && !text.shown().isEmpty())
        Q_EMIT m_session.noted(QStringLiteral("WARNING 2D profile: %1").arg(text.logged()));
    m_inDisplays = text;
    refresh();
}

void LeftOutNotice::refresh()
{
    QStringList texts;
    if (const int columns = m_session.statistics().header().leftOutChannels)
        texts.append(Text::counted(
                         "%n column(s) beyond the first %1 is/are left out; a stream of frames may "
                         "have more",
                         nullptr,
                         columns)
                         .arg(StreamHeader::maxChannels));
    for (const QString &text : {m_session.statistics().leftOut().text(), m_inDisplays.shown()})
        if (!text.isEmpty())
            texts.append(text);
    tell(texts.join(QStringLiteral("; ")), Kind::Trouble);
}

} // namespace Monitor
