// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ComputedAction.h"

#include "monitor/session/Session.h"
#include "monitor/window/ComputedDialog.h"
#include "monitor/window/WindowSettings.h"

namespace Monitor {

using namespace Corvale_Qt;

namespace {

const QString computedKey = QStringLiteral("computed");

//! Returns a channel as --compute takes it.
QString textOf(const ComputedChannel &channel)
{
    const QString unit =
        channel.unit.isEmpty() ? QString() : QStringLiteral(" [%1]").arg(channel.unit);
    return channel.name + unit + QStringLiteral(" = ") + channel.expression;
}

} // namespace

ComputedAction::ComputedAction(Session &session, WindowSettings &settings, QWidget *window)
    : QAction(tr("&Computed channels..."), window)
    , m_session(session)
    , m_settings(settings)
    , m_window(window)
{
    setObjectName(QStringLiteral("computedChannels"));
    setShortcut(QKeySequence(Qt::CTRL + Qt::Key_K));
    setShortcutContext(Qt::ApplicationShortcut);
    setToolTip(tr("Channels that are computed from others: sums, ratios, positions (Ctrl+K)."));
    setEnabled(ChannelExpressions::isAvailable());
    connect(this, &QAction::triggered, this, &ComputedAction::edit);
    if (!session.computedChannels().isEmpty())
        return;
    QVector<ComputedChannel> kept;
    for (const QString &text : settings.list(computedKey)) {
        if (const auto channel = ComputedChannel::fromText(text))
            kept << *channel;
    }
    if (!kept.isEmpty())
        session.setComputedChannels(kept);
}

void ComputedAction::edit()
{
    ComputedDialog dialog(m_session.computedChannels(), m_session.statistics().header(), m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QStringList texts;
    for (const ComputedChannel &channel : dialog.channels())
        texts << textOf(channel);
    m_settings.setList(computedKey, texts);
    m_session.setComputedChannels(dialog.channels());
    Q_EMIT m_session.noted(texts.isEmpty()
                               ? QStringLiteral("no channel is computed")
                               : QStringLiteral("computed: ") + texts.join(QStringLiteral("; ")));
}

} // namespace Monitor
