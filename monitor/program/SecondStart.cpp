// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/SecondStart.h"

#include "monitor/core/Text.h"
#include "monitor/program/CommandLine.h"
#include "monitor/window/SourceSwitch.h"

namespace Monitor {

SecondStart::SecondStart(const CommandLine &commandLine, const QString &settings)
    : m_options(commandLine.givenOptions)
{
    if (!commandLine.sourceGiven)
        return;
    for (const NamedAddress &source : commandLine.sources) {
        // The open window may read its own standard input, and never that of another program.
        const bool isStandardInput = source.address == QLatin1String("-");
        if (isStandardInput || !SourceSwitch::isOpenIn(settings, source.address))
            m_closedSources.append(source.address);
    }
}

QString SecondStart::message() const
{
    const QString separator = QStringLiteral(", ");
    QString text =
        Text::tr("a window with these settings is open already and was brought to the front.");
    if (!m_closedSources.isEmpty())
        text += Text::tr(" Not opened: %1. File > Open... and File > Connect... of that window "
                         "open it.")
                    .arg(m_closedSources.join(separator));
    if (!m_options.isEmpty())
        text += Text::tr(" Without effect: %1. Use the menus of that window instead.")
                    .arg(m_options.join(separator));
    return text + Text::tr(" --settings FILE opens another window.");
}

} // namespace Monitor
