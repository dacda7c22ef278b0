// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

class QAbstractItemModel;

namespace Corvale_Qt {

/*! Returns the model that the proxy \a model reads; null if it is not a proxy, and while that model is being destroyed: Qt still names
    it as the source then, although no item model is left of it. */
QAbstractItemModel *sourceOf(const QAbstractItemModel *model);

/*! Returns whether \a model is \a other or a proxy that reads \a other, directly or through other proxies. A model that
    stands on a proxy cannot become its source: the two would ask each other for ever. */
bool standsOn(const QAbstractItemModel *model, const QAbstractItemModel *other);

} // namespace Corvale_Qt
