// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/QuietMessages.h"

#include "monitor/core/LogTail.h"

#include <QLoggingCategory>

namespace Monitor {

namespace {

QtMessageHandler formerHandler = nullptr;

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    // The warning has the default category, so that a filter rule cannot tell it from others.
    const bool isAboutSizeHints =
        text == QLatin1String("This plugin does not support propagateSizeHints()");
    if (isAboutSizeHints)
        return;
    LogTail::add(text); // before the program ends, if the message is fatal
    formerHandler(type, context, text);
}

} // namespace

void installQuietMessages()
{
    QLoggingCategory::setFilterRules(QStringLiteral("corvale.beam.debug=false"));
    formerHandler = qInstallMessageHandler(handleMessage);
}

} // namespace Monitor
