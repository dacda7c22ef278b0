// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/LoggedText.h"

#include <QCoreApplication>

namespace Monitor {

namespace {

/*! What the system and Qt say when files and connections fail. Qt translates some of it, in contexts of its own and where its
    catalogs are installed; the C library speaks the language of the desktop. */
struct SystemError
{
    const char *context; //!< in which Qt translates it; null where it comes from the C library
    const char *text;
};
constexpr SystemError systemErrors[] = {
    {"QAbstractSocket", QT_TRANSLATE_NOOP("Monitor::SystemError", "Connection refused")},
    {"QAbstractSocket", QT_TRANSLATE_NOOP("Monitor::SystemError", "Connection timed out")},
    {"QAbstractSocket", QT_TRANSLATE_NOOP("Monitor::SystemError", "Host not found")},
    {"QAbstractSocket", QT_TRANSLATE_NOOP("Monitor::SystemError", "Network unreachable")},
    {"QAbstractSocket", QT_TRANSLATE_NOOP("Monitor::SystemError", "Socket operation timed out")},
    {"QHostInfoAgent", QT_TRANSLATE_NOOP("Monitor::SystemError", "Host not found")},
    {"QHostInfoAgent", QT_TRANSLATE_NOOP("Monitor::SystemError", "Unknown error")},
    {"QIODevice", QT_TRANSLATE_NOOP("Monitor::SystemError", "No such file or directory")},
    {"QIODevice", QT_TRANSLATE_NOOP("Monitor::SystemError", "No space left on device")},
    {"QIODevice", QT_TRANSLATE_NOOP("Monitor::SystemError", "Permission denied")},
    {"QIODevice", QT_TRANSLATE_NOOP("Monitor::SystemError", "Too many open files")},
    {"QIODevice", QT_TRANSLATE_NOOP("Monitor::SystemError", "Unknown error")},
    {"QNativeSocketEngine", QT_TRANSLATE_NOOP("Monitor::SystemError", "Connection refused")},
    {"QNativeSocketEngine", QT_TRANSLATE_NOOP("Monitor::SystemError", "Connection timed out")},
    {"QNativeSocketEngine", QT_TRANSLATE_NOOP("Monitor::SystemError", "Host unreachable")},
    {"QNativeSocketEngine", QT_TRANSLATE_NOOP("Monitor::SystemError", "Network error")},
    {"QNativeSocketEngine", QT_TRANSLATE_NOOP("Monitor::SystemError", "Network unreachable")},
    {"QNativeSocketEngine", QT_TRANSLATE_NOOP("Monitor::SystemError", "Permission denied")},
    {"QNativeSocketEngine",
     QT_TRANSLATE_NOOP("Monitor::SystemError", "The address is not available")},
    {"QNativeSocketEngine", QT_TRANSLATE_NOOP("Monitor::SystemError", "The address is protected")},
    {"QNativeSocketEngine",
     QT_TRANSLATE_NOOP("Monitor::SystemError", "The bound address is already in use")},
    {"QNativeSocketEngine",
     QT_TRANSLATE_NOOP("Monitor::SystemError", "The remote host closed the connection")},
    {nullptr, QT_TRANSLATE_NOOP("Monitor::SystemError", "Device or resource busy")},
    {nullptr, QT_TRANSLATE_NOOP("Monitor::SystemError", "Disk quota exceeded")},
    {nullptr, QT_TRANSLATE_NOOP("Monitor::SystemError", "File too large")},
    {nullptr, QT_TRANSLATE_NOOP("Monitor::SystemError", "Input/output error")},
    {nullptr, QT_TRANSLATE_NOOP("Monitor::SystemError", "Is a directory")},
    {nullptr, QT_TRANSLATE_NOOP("Monitor::SystemError", "No such device")},
    {nullptr, QT_TRANSLATE_NOOP("Monitor::SystemError", "Not a directory")},
    {nullptr, QT_TRANSLATE_NOOP("Monitor::SystemError", "Operation not permitted")},
    {nullptr, QT_TRANSLATE_NOOP("Monitor::SystemError", "Read-only file system")},
};

QString inThisLanguage(const SystemError &known)
{
    return QCoreApplication::translate("Monitor::SystemError", known.text);
}

//! Returns whether this is what is known, in whichever language and from whoever has translated it.
bool isSame(const SystemError &known, const QString &error)
{
    return error == QLatin1String(known.text) || error == inThisLanguage(known)
        || (known.context && error == QCoreApplication::translate(known.context, known.text));
}

} // namespace

LoggedText LoggedText::ofSystem(const QString &error)
{
    for (const SystemError &known : systemErrors)
        if (isSame(known, error))
            return of([&known] {
                return inThisLanguage(known);
            });
    return error;
}

} // namespace Monitor
