// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include "corvale_qt/units/MeasurementUnit.h"

#include <QObject>

namespace Corvale_Qt {

/*! Passes unitsChanged() of source models on as unitsChanged() of a RVXMultichannelProxyModel: once for a model of the
    proxy, twice for a model that was removed, however often a model is inserted and removed. */
class UnitsRelay : public QObject
{
    Q_OBJECT

public:
    //! \a proxy has the signal unitsChanged().
    explicit UnitsRelay(QObject *proxy);

    //! Passes each signal of \a model on once.
    void relay(const QObject *model);
    //! Passes each signal of \a model on twice.
    void relayTwice(const QObject *model);

Q_SIGNALS:
    //! Leads to the proxy as well, for the second signal.
    void unitsChanged(const Corvale_Qt::Units::MeasurementUnit *unit);

private:
    QObject *const m_proxy;
};

} // namespace Corvale_Qt
