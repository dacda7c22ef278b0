// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/NexusTree.h"

#include "monitor/core/LoggedText.h"
#include "monitor/core/Text.h"
#include "monitor/input/CleanText.h"
#include "monitor/nexus/NexusWriter.h"

namespace Monitor {

namespace {

herr_t takeName(hid_t, const char *name, const H5L_info_t *, void *names)
{
    auto *list = static_cast<QStringList *>(names);
    list->append(QString::fromUtf8(name));
    return list->size() < NexusWriter::maxEntries ? 0 : 1;
}

//! Returns the names in a group, in their order, up to the most entries that a file may have.
QStringList namesIn(hid_t group)
{
    QStringList names;
    hsize_t from = 0;
    H5Literate(group, H5_INDEX_NAME, H5_ITER_INC, &from, takeName, &names);
    return names;
}

bool isOfClass(hid_t parent, const QString &name, const char *nexusClass)
{
    const Hdf5Object group = openObject(parent, name, H5I_GROUP);
    return group.isOpen() && attributeText(group.id(), "NX_class") == QLatin1String(nexusClass);
}

//! Returns the name of the NXdata of a group that is to be shown; empty if it has none.
QString dataIn(hid_t group)
{
    QString stated = attributeText(group, "default");
    if (isOfClass(group, stated, "NXdata"))
        return stated;
    for (const QString &name : namesIn(group))
        if (isOfClass(group, name, "NXdata"))
            return name;
    return {};
}

//! Returns what an entry or a group with NXdata is read as; without NXdata if the monitor has written it.
NexusPlace placeOf(hid_t file, const QString &name)
{
    NexusPlace place;
    place.entry = name;
    const Hdf5Object group = openObject(file, name, H5I_GROUP);
    QString ignored;
    if (!NexusEntry::ofMonitor(group.id(), &ignored) && ignored.isEmpty())
        place.data = dataIn(group.id());
    return place;
}

} // namespace

std::unique_ptr<NexusEntry> NexusTree::open(hid_t file, const NexusPlace &place, QString *error)
{
    const Hdf5Object group = openObject(file, place.entry, H5I_GROUP);
    if (place.data.isEmpty()) {
        std::unique_ptr<NexusEntry> entry = NexusEntry::ofMonitor(group.id(), error);
        if (!entry && error->isEmpty())
            *error = Text::tr("it has no NXdata");
        return entry;
    }
    const Hdf5Object data = openObject(group.id(), place.data, H5I_GROUP);
    return NexusEntry::ofOthers(data.id(), group.id(), error);
}

bool NexusTree::find(hid_t file, QString *error)
{
    std::vector<NexusPlace> found;
    const Hdf5Object root = openObject(file, QStringLiteral("/"), H5I_GROUP);
    for (const QString &name : namesIn(file))
        if (isOfClass(file, name, "NXentry"))
            found.push_back(placeOf(file, name));
    if (found.empty()) {
        NexusPlace place;
        place.entry = QStringLiteral("/");
        place.data = dataIn(file);
        if (!place.data.isEmpty())
            found.push_back(place);
    }
    if (found.empty())
        *error = Text::tr("it has no NXentry and no NXdata, which tell what its numbers are");
    LoggedText firstFault;
    for (NexusPlace &place : found) {
        QString fault;
        const std::unique_ptr<NexusEntry> entry = open(file, place, &fault);
        if (!entry) {
            const QString name = cleanText(place.entry, maxNameLength);
            if (firstFault.isEmpty())
                firstFault = LoggedText::of([&] {
                    open(file, place, &fault);
                    return Text::tr("%1: %2").arg(name, fault);
                });
            continue;
        }
        place.rows = entry->rows;
        place.values = entry->header.valuesPerReading();
        place.begin = places.empty() ? 0 : places.back().end();
        places.push_back(place);
    }
    if (places.empty() && error->isEmpty())
        *error = firstFault.shown();
    else if (!firstFault.isEmpty())
        notice = QStringLiteral("a part of the file is left out: %1").arg(firstFault.logged());
    return !places.empty();
}

} // namespace Monitor
