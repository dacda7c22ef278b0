// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/RVXAbstractPlotDataModel.h"

#include <QMetaProperty>
#include <QObject>

namespace Corvale_Qt {

/*! Returns the pointer that \a model hands out by the property \a name of type \a type; null if it has no such property.

    The library's classes hand interfaces out in this way, since their virtual functions are settled: hosts are built with
    them. */
template<typename Interface>
const Interface *
interfaceByProperty(const RVXAbstractPlotDataModel &model, const char *name, const char *type)
{
    const auto *object = dynamic_cast<const QObject *>(&model);
    const QMetaObject *meta = object ? object->metaObject() : nullptr;
    const int index = meta ? meta->indexOfProperty(name) : -1;
    if (index < 0 || qstrcmp(meta->property(index).typeName(), type) != 0)
        return nullptr;
    // What QMetaProperty::read() does in the end; its QVariant costs more than all the rest.
    const Interface *found = nullptr;
    void *result[] = {&found, nullptr, nullptr};
    const_cast<QObject *>(object)->qt_metacall(QMetaObject::ReadProperty, index, result);
    return found;
}

} // namespace Corvale_Qt
