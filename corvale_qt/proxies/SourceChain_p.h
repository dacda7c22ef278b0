// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

class QAbstractItemModel;

namespace Corvale_Qt {

/*! Whether \a model is \a other or a proxy that reads it, directly or by way of other proxies. A model that stands on a
    proxy cannot be its source: each would ask the other for ever. */
bool standsOn(const QAbstractItemModel *model, const QAbstractItemModel *other);

} // namespace Corvale_Qt
