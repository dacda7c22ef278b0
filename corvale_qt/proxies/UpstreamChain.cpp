// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RVXMultichannelProxyModel_p.h"
#include "corvale_qt/proxies/UpstreamChain_p.h"

#include <QAbstractProxyModel>
#include <QSet>

namespace Corvale_Qt {

QAbstractItemModel *sourceOf(const QAbstractItemModel *model)
{
    const auto *proxy = qobject_cast<const QAbstractProxyModel *>(model);
    QObject *const source = proxy ? proxy->sourceModel() : nullptr;
    return qobject_cast<QAbstractItemModel *>(source); // it may be no more than a QObject
}

bool standsOn(const QAbstractItemModel *model, const QAbstractItemModel *other)
{
    // Merged models may share sources, so each model is visited once, however many paths lead to it.
    QSet<const QAbstractItemModel *> seen;
    QVector<const QAbstractItemModel *> left{model};
    while (!left.isEmpty()) {
        const QAbstractItemModel *const next = left.takeLast();
        if (next == other)
            return true;
        if (!next || seen.contains(next))
            continue;
        seen.insert(next);
        if (const auto *merged = dynamic_cast<const RVXMultichannelProxyModel *>(next))
            left += RVXMultichannelProxyModelPrivate::models(*merged);
        else
            left += sourceOf(next);
    }
    return false;
}

} // namespace Corvale_Qt
