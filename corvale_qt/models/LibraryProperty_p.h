// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/RVXAbstractPlotDataModel.h"

#include <QMetaProperty>
#include <QObject>

#include <atomic>

namespace Corvale_Qt {

//! Returns whether the property with an index has a name and a type. An index below 0 is that of none.
inline bool isProperty(const QMetaObject &meta, int index, const char *name, const char *type)
{
    const QMetaProperty property = meta.property(index);
    return qstrcmp(property.name(), name) == 0 && qstrcmp(property.typeName(), type) == 0;
}

/*! Returns the pointer that \a model hands out by the property \a name of type \a type; null if it has no such property.

    The library's classes hand interfaces out in this way, since their virtual functions are settled: hosts are built with
    them. */
template<typename Interface>
const Interface *
interfaceByProperty(const RVXAbstractPlotDataModel &model, const char *name, const char *type)
{
    const auto *object = dynamic_cast<const QObject *>(&model);
    if (!object)
        return nullptr;
    // A view asks several times for each channel and picture, and most of its models are of one class.
    static std::atomic<int> foundLast{-1};
    const QMetaObject *const meta = object->metaObject();
    int index = foundLast.load(std::memory_order_relaxed);
    if (!isProperty(*meta, index, name, type)) {
        index = meta->indexOfProperty(name);
        if (!isProperty(*meta, index, name, type))
            return nullptr;
        foundLast.store(index, std::memory_order_relaxed);
    }
    // What QMetaProperty::read() does in the end; its QVariant costs more than all the rest.
    const Interface *found = nullptr;
    void *result[] = {&found, nullptr, nullptr};
    const_cast<QObject *>(object)->qt_metacall(QMetaObject::ReadProperty, index, result);
    return found;
}

} // namespace Corvale_Qt
