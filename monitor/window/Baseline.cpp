// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/Baseline.h"

#include "monitor/session/Session.h"
#include <corvale_qt/proxies/RVXZeroingProxyModel.h>
#include <corvale_qt/scope/RVXScope.h>

namespace Monitor {

using namespace Corvale_Qt;

Baseline::Baseline(Session &session, RVXScope &scope, QObject *parent)
    : QObject(parent)
    , m_session(session)
    , m_scope(scope)
{
    // The panel has a button for the zero, too: whatever changes it resets the model.
    connect(scope.topLevelModel(), &QAbstractItemModel::modelReset, this, &Baseline::follow);
}

RVXZeroingProxyModel *Baseline::proxy() const
{
    return qobject_cast<RVXZeroingProxyModel *>(m_scope.topLevelModel());
}

QVector<double> Baseline::zeros() const
{
    return m_zeros;
}

void Baseline::follow()
{
    const QVector<double> zeros = proxy()->zeros();
    if (zeros == m_zeros)
        return;
    m_zeros = zeros;
    m_kind = zeros.isEmpty() ? Kind::None : m_takingBackground ? Kind::Background : Kind::Zero;
    Q_EMIT changed();
}

void Baseline::takeZero()
{
    m_scope.zeroNow();
    if (m_kind != Kind::Background)
        return;
    m_kind = Kind::Zero; // which happens to equal the background
    Q_EMIT changed();
}

//! The zero of averaged readings is the background; it stays when the average is set back.
void Baseline::takeBackground()
{
    const int length = m_scope.averaging();
    m_takingBackground = true;
    m_scope.zeroClear();
    m_scope.setAveraging(backgroundLength);
    m_scope.zeroNow();
    m_scope.setAveraging(length);
    m_takingBackground = false;
    if (m_kind != Kind::None)
        Q_EMIT m_session.noted(
            tr("background taken: the mean of the last %1 readings of each channel is "
               "subtracted from what is shown")
                .arg(qMin(backgroundLength, m_session.model().rowCount() - 1)));
}

void Baseline::remove()
{
    m_scope.zeroClear();
}

QString Baseline::text() const
{
    switch (m_kind) {
    case Kind::Zero:
        return tr("ZEROED");
    case Kind::Background:
        return tr("BACKGROUND SUBTRACTED");
    case Kind::None:
        break;
    }
    return {};
}

} // namespace Monitor
