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
    tellShortly(texts);
}

//! Shows the first faults, and how many there are besides; the log has them all, and so has the tool tip.
void LeftOutNotice::tellShortly(const QStringList &texts)
{
    constexpr int most = 2; // two lines of a small window each
    QStringList shown = texts.mid(0, most);
    const int others = texts.size() - shown.size();
    if (others > 0)
        shown.append(Text::counted("%n more in the log", nullptr, others));
    tell(shown.join(QStringLiteral("; ")), Kind::Trouble);
    QStringList lines;
    for (const QString &text : texts)
        lines.append(text.toHtmlEscaped()); // a channel may be called anything
    const QString all = lines.join(QStringLiteral("<br>"));
    setToolTip(others > 0 ? QStringLiteral("<qt>%1</qt>").arg(all) : QString());
}

} // namespace Monitor
