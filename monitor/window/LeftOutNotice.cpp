// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/LeftOutNotice.h"

#include "monitor/core/Text.h"
#include "monitor/readings/StreamHeader.h"
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
    const StreamHeader &header = m_session.statistics().header();
    QStringList texts;
    if (!header.detectorFault.isEmpty())
        texts.append(tr("the detector is not used: %1; correct its description, or choose another "
                        "one in File > Settings...")
                         .arg(header.detectorFault.shown()));
    if (!header.limitsFault.isEmpty())
        texts.append(
            tr("not all limits of the stream are used: %1; Measure > Limits sets them here")
                .arg(header.limitsFault.shown()));
    if (!m_session.computedFault().isEmpty())
        texts.append(m_session.computedFault().shown());
    if (const int columns = header.leftOutChannels)
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
