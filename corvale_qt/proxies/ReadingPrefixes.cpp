// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/Acquisition_p.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/proxies/ReadingPrefixes_p.h"
#include "corvale_qt/proxies/UpstreamChain_p.h"

#include <algorithm>
#include <vector>

namespace Corvale_Qt {

namespace {

//! Readings, whichever proxies pass them on.
struct Readings
{
    const QAbstractItemModel *model = nullptr;
    QVector<double> zeros;
};

//! Follows proxies that pass readings on, or subtract zeros from them, down to the model that they come from.
Readings readingsOf(const QAbstractItemModel *model)
{
    Readings readings{model, {}};
    while (const auto *proxy = qobject_cast<const QAbstractProxyModel *>(readings.model)) {
        const auto *zeroing = qobject_cast<const RVXZeroingProxyModel *>(proxy);
        const auto *averaging = qobject_cast<const RVXAveragingProxyModel *>(proxy);
        const bool passesOn = (zeroing && (!zeroing->isZeroed() || readings.zeros.isEmpty()))
            || (averaging && averaging->averaging() == 1);
        const QAbstractItemModel *const source = sourceOf(proxy);
        if (!passesOn || !source)
            break;
        if (zeroing && zeroing->isZeroed())
            readings.zeros = zeroing->zeros();
        readings.model = source;
    }
    return readings;
}

} // namespace

std::shared_ptr<ReadingPrefixes> ReadingPrefixes::of(const QAbstractItemModel *model)
{
    static std::vector<std::weak_ptr<ReadingPrefixes>> known;
    const Readings readings = readingsOf(model);
    const QVariant acquisition = acquisitionOf(readings.model);
    const auto isGone = [](const std::weak_ptr<ReadingPrefixes> &each) {
        return each.expired();
    };
    known.erase(std::remove_if(known.begin(), known.end(), isGone), known.end());
    for (const std::weak_ptr<ReadingPrefixes> &each : known) {
        auto found = each.lock();
        if (found && found->m_model == readings.model && found->m_zeros == readings.zeros
            && found->m_acquisition == acquisition)
            return found;
    }
    auto made = std::make_shared<ReadingPrefixes>();
    made->m_model = readings.model;
    made->m_zeros = readings.zeros;
    made->m_acquisition = acquisition;
    known.push_back(made);
    return made;
}

bool ReadingPrefixes::outlastReset(const QAbstractItemModel *model) const
{
    const Readings readings = readingsOf(model);
    return m_acquisition.isValid() && m_acquisition == acquisitionOf(readings.model)
        && m_model == readings.model && m_zeros == readings.zeros;
}

Units::SiPrefix ReadingPrefixes::follow(const PrefixedReading &newest)
{
    if (newest.channel < 1)
        return Units::SiPrefix(newest.unit);
    if (newest.channel > m_prefixes.size())
        m_prefixes.resize(newest.channel);
    return m_prefixes[newest.channel - 1] = alike(newest);
}

Units::SiPrefix ReadingPrefixes::alike(const PrefixedReading &reading) const
{
    Units::SiPrefix prefix = m_prefixes.value(reading.channel - 1);
    if (prefix.givenSymbol() != reading.unit)
        prefix = Units::SiPrefix(reading.unit);
    prefix.follow(reading.value, reading.noise);
    return prefix;
}

QString readingText(Units::SiPrefix prefix, double value, const QString &fixedUnit)
{
    if (!fixedUnit.isEmpty())
        prefix.fix(fixedUnit);
    return prefix.text(value);
}

} // namespace Corvale_Qt
