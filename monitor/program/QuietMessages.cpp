// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/QuietMessages.h"

#include <QLoggingCategory>

namespace Monitor {

namespace {

QtMessageHandler formerHandler = nullptr;

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const bool aboutNobody =
        text == QLatin1String("This plugin does not support propagateSizeHints()");
    if (!aboutNobody)
        formerHandler(type, context, text);
}

} // namespace

void installQuietMessages()
{
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    formerHandler = qInstallMessageHandler(handleMessage);
}

} // namespace Monitor
