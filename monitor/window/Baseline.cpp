// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/Baseline.h"

#include "monitor/core/Text.h"
#include "monitor/session/Session.h"
#include <corvale_qt/proxies/RVXZeroingProxyModel.h>
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/units/MeasurementUnit.h>

#include <algorithm>
#include <cmath>

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
    correctKind(Kind::Background, Kind::Zero);
}

//! A zero may happen to equal the background before it, and the other way round: then the model has not changed.
void Baseline::correctKind(Kind before, Kind now)
{
    if (m_kind != before)
        return;
    m_kind = now;
    Q_EMIT changed();
}

void Baseline::takeBackground()
{
    const QVector<double> means = newestMeans();
    if (means.isEmpty())
        return;
    m_takingBackground = true;
    proxy()->setZeros(means);
    m_takingBackground = false;
    correctKind(Kind::Zero, Kind::Background);
    const int readings = qMin(backgroundLength, m_session.model().rowCount() - 1);
    const QString what =
        Text::countedInEnglish("the mean of the last %n reading(s)", nullptr, readings);
    Q_EMIT m_session.noted(
        QStringLiteral("background taken: %1 of each channel is subtracted from what is shown")
            .arg(what));
}

//! Returns the mean of the newest readings of each channel, in its base unit, without gaps; empty without readings.
QVector<double> Baseline::newestMeans() const
{
    const MultichannelDeviceModel &model = m_session.model();
    const int last = model.rowCount() - 1;
    if (last < 1)
        return {};
    QVector<double> means;
    for (int column = 1; column <= model.NumberOfChannels(); ++column) {
        double sum = 0.0;
        int readings = 0;
        for (int row = std::max(1, last - backgroundLength + 1); row <= last; ++row) {
            const double value = model.doubleData(row, column);
            readings += std::isfinite(value) ? 1 : 0;
            sum += std::isfinite(value) ? value : 0.0;
        }
        const double mean = readings > 0 ? sum / readings : 0.0;
        means.append(model.units() ? model.units()->unscale(mean) : mean);
    }
    return means;
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
