// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/UpstreamChain_p.h"
#include "corvale_qt/proxies/UpstreamSignals_p.h"
#include "corvale_qt/scope/UnitsWatch_p.h"

#include <QAbstractItemModel>

namespace Corvale_Qt {

UnitsWatch::~UnitsWatch() = default;

void UnitsWatch::follow(const QAbstractItemModel *model)
{
    stop();
    while (model) {
        m_connections.append(connectUnitsChanged(model, this, SIGNAL(changed())));
        model = sourceOf(model);
    }
}

void UnitsWatch::stop()
{
    for (const QMetaObject::Connection &connection : qAsConst(m_connections))
        disconnect(connection);
    m_connections.clear();
}

} // namespace Corvale_Qt
