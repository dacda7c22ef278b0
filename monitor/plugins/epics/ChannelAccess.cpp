// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/epics/ChannelAccess.h"

#include "monitor/plugins/epics/EpicsText.h"
#include "monitor/plugins/support/ReaderThreads.h"

#include <QDir>
#include <QLibrary>

namespace ChannelAccess {

namespace {

//! Returns the names under which the library may be found, those of an installation of one's own first.
QStringList libraryNames()
{
    QStringList names;
    const QString base = qEnvironmentVariable("EPICS_BASE");
    if (!base.isEmpty()) {
        const QDir folders(base + QStringLiteral("/lib"));
        for (const QString &folder : folders.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            names.append(folders.filePath(folder + QStringLiteral("/libca")));
    }
    // The links are missing where only what is needed to run programs is installed.
    names.append({QStringLiteral("libca"),
                  QStringLiteral("libca.so.4.14.4"),
                  QStringLiteral("libca.so.4.14.2"),
                  QStringLiteral("libca.so.4.13.5")});
    return names;
}

template<typename Function>
bool resolve(QLibrary &library, const char *name, Function *function)
{
    *function = reinterpret_cast<Function>(library.resolve(name));
    return *function != nullptr;
}

bool resolveAll(QLibrary &library, Library *functions)
{
    return resolve(library, "ca_context_create", &functions->context_create)
        && resolve(library, "ca_context_destroy", &functions->context_destroy)
        && resolve(library, "ca_add_exception_event", &functions->add_exception_event)
        && resolve(library, "ca_create_channel", &functions->create_channel)
        && resolve(library, "ca_create_subscription", &functions->create_subscription)
        && resolve(library, "ca_array_get_callback", &functions->array_get_callback)
        && resolve(library, "ca_flush_io", &functions->flush_io)
        && resolve(library, "ca_element_count", &functions->element_count)
        && resolve(library, "ca_get_host_name", &functions->get_host_name)
        && resolve(library, "ca_puser", &functions->puser)
        && resolve(library, "ca_message", &functions->message);
}

Library functions; // all null until they are found

} // namespace

const Library &Library::loaded()
{
    return functions;
}

const Library *Library::load(QString *error)
{
    if (functions.message) // the last that is resolved
        return &functions;
    // If threads cannot start, the library waits for itself without end while it is being loaded.
    ReaderThreads::run([] {});
    for (const QString &name : libraryNames()) {
        QLibrary library(name);
        if (!library.load())
            continue;
        if (resolveAll(library, &functions))
            return &functions;
        *error = EpicsText::tr("%1 is not a Channel Access client library that can be used")
                     .arg(library.fileName());
        return nullptr;
    }
    *error = EpicsText::tr(
        "the Channel Access client library (libca) was not found; install the package "
        "libca4.13.5, or set EPICS_BASE to the folder of an installation");
    return nullptr;
}

} // namespace ChannelAccess
