// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/units/MeasurementUnit.h"

#include <QObject>

namespace Corvale_Qt {

/*! Passes unitsChanged() of the sources of a RVXMultichannelProxyModel on to its own: once for a model that is heard,
    twice for one that was removed. However often a model comes and goes, it does not become more. */
class UnitsRelay : public QObject
{
    Q_OBJECT

public:
    //! \a proxy has the signal unitsChanged().
    explicit UnitsRelay(QObject *proxy);

    void relay(const QObject *model);
    void relayTwice(const QObject *model);

Q_SIGNALS:
    //! The second way to the proxy.
    void unitsChanged(const Corvale_Qt::Units::MeasurementUnit *unit);

private:
    QObject *const m_proxy;
};

} // namespace Corvale_Qt
