// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/UnitsRelay_p.h"
#include "corvale_qt/proxies/UpstreamSignals_p.h"

namespace Corvale_Qt {

namespace {

const char *const changed = SIGNAL(unitsChanged(const Corvale_Qt::Units::MeasurementUnit *));

} // namespace

UnitsRelay::UnitsRelay(QObject *proxy)
    : m_proxy(proxy)
{
    connectUnitsChanged(this, m_proxy, changed);
}

void UnitsRelay::relay(const QObject *model)
{
    connectUnitsChanged(model, m_proxy, changed, Qt::UniqueConnection);
    disconnect(model, nullptr, this, nullptr);
}

void UnitsRelay::relayTwice(const QObject *model)
{
    relay(model);
    connectUnitsChanged(model, this, changed);
}

} // namespace Corvale_Qt
