// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/ChannelUnits_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"

#include <algorithm>
#include <utility>

namespace Corvale_Qt {

ChannelUnits::ChannelUnits(const ScopeModel &model)
    : m_model(model)
{
}

void ChannelUnits::setApart(bool on)
{
    m_areApart = on;
    ++m_version;
    outdate();
}

int ChannelUnits::version() const
{
    if (m_areApart)
        update();
    return m_version;
}

//! Asks the model again if it may have other answers. A hidden channel takes no place; it has that of its unit if there is one.
void ChannelUnits::update() const
{
    if (!std::exchange(m_isOutdated, false))
        return;
    const QVector<Place> formerPlaces = m_places;
    const QStringList formerSymbols = m_symbols;
    m_symbols.clear();
    m_firstChannel = 0;
    m_places.resize(m_model.channelCount());
    for (int channel = 1; channel <= m_places.size(); ++channel) {
        if (!m_model.isShown(channel))
            continue;
        if (m_firstChannel == 0)
            m_firstChannel = channel;
        const QString symbol = m_model.unitName(channel);
        if (!m_symbols.contains(symbol))
            m_symbols.append(symbol);
    }
    for (int channel = 1; channel <= m_places.size(); ++channel) {
        const int found = m_symbols.indexOf(m_model.unitName(channel));
        m_places[channel - 1] = found < 0 ? Further : Place(std::min(found, int(Further)));
    }
    if (m_places != formerPlaces || m_symbols != formerSymbols)
        ++m_version;
}

ChannelUnits::Place ChannelUnits::placeOf(int channel) const
{
    if (!m_areApart)
        return First;
    update();
    return m_places.value(channel - 1, Further);
}

bool ChannelUnits::hasFirst() const
{
    update();
    return m_firstChannel > 0;
}

bool ChannelUnits::hasSecond() const
{
    if (!m_areApart)
        return false;
    update();
    return m_symbols.size() > Second;
}

QString ChannelUnits::symbol(Place place) const
{
    if (m_areApart)
        update();
    const bool isOfModel = !m_areApart || m_symbols.isEmpty();
    if (isOfModel)
        return place == First ? m_model.unitName() : QString();
    return m_symbols.value(place);
}

double ChannelUnits::scaleOfFirst() const
{
    if (m_areApart)
        update();
    return m_areApart && m_firstChannel > 0 ? m_model.unitScale(m_firstChannel)
                                            : m_model.unitScale();
}

QStringList ChannelUnits::namesFrom(Place least) const
{
    QStringList names;
    if (!m_areApart)
        return names;
    update();
    for (int channel = 1; channel <= m_places.size(); ++channel) {
        if (m_places[channel - 1] >= least && m_model.isShown(channel))
            names << m_model.name(channel);
    }
    return names;
}

} // namespace Corvale_Qt
