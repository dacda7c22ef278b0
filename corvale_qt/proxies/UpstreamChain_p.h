// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

class QAbstractItemModel;

namespace Corvale_Qt {

/*! Returns whether \a model is \a other or a proxy that reads \a other, directly or through other proxies. A model that
    stands on a proxy cannot become its source: the two would ask each other for ever. */
bool standsOn(const QAbstractItemModel *model, const QAbstractItemModel *other);

} // namespace Corvale_Qt
