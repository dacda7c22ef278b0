// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/LoggedText.h"

#include <QCoreApplication>

namespace Monitor {

namespace {

//! What Qt says when files and connections fail, where it translates that.
struct SystemError
{
    const char *context;
    const char *text;
};
constexpr SystemError systemErrors[] = {
    {"QAbstractSocket", "Connection refused"},
    {"QAbstractSocket", "Connection timed out"},
    {"QAbstractSocket", "Host not found"},
    {"QAbstractSocket", "Network unreachable"},
    {"QAbstractSocket", "Socket operation timed out"},
    {"QHostInfoAgent", "Host not found"},
    {"QHostInfoAgent", "Unknown error"},
    {"QIODevice", "No such file or directory"},
    {"QIODevice", "Permission denied"},
    {"QIODevice", "Too many open files"},
    {"QIODevice", "Unknown error"},
    {"QNativeSocketEngine", "Connection refused"},
    {"QNativeSocketEngine", "Connection timed out"},
    {"QNativeSocketEngine", "Host unreachable"},
    {"QNativeSocketEngine", "Network error"},
    {"QNativeSocketEngine", "Network unreachable"},
    {"QNativeSocketEngine", "Permission denied"},
    {"QNativeSocketEngine", "The address is not available"},
    {"QNativeSocketEngine", "The address is protected"},
    {"QNativeSocketEngine", "The bound address is already in use"},
    {"QNativeSocketEngine", "The remote host closed the connection"},
};

} // namespace

LoggedText LoggedText::ofSystem(const QString &error)
{
    LoggedText text(error);
    for (const SystemError &known : systemErrors)
        if (QCoreApplication::translate(known.context, known.text) == error)
            text.m_logged = QString::fromLatin1(known.text);
    return text;
}

} // namespace Monitor
