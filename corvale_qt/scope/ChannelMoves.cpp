// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/ChannelMoves_p.h"

#include <QVector>

namespace Corvale_Qt {

ChannelMoves movesOfInsertion(int first, int last)
{
    return [first, last](int channel) {
        return channel < first ? channel : channel + last - first + 1;
    };
}

ChannelMoves movesOfRemoval(int first, int last)
{
    return [first, last](int channel) {
        if (channel < first)
            return channel;
        return channel <= last ? 0 : channel - (last - first + 1);
    };
}

ChannelMoves movesOfMove(int first, int last, int before)
{
    const int count = last - first + 1;
    return [first, last, before, count](int channel) {
        const bool isMoved = channel >= first && channel <= last;
        if (before > last)
            return isMoved ? channel + before - last - 1
                           : channel - (channel > last && channel < before ? count : 0);
        return isMoved ? channel - (first - before)
                       : channel + (channel >= before && channel < first ? count : 0);
    };
}

ChannelMoves movesOfNames(const QStringList &old, const QStringList &now)
{
    if (old == now)
        return nullptr;
    QVector<int> places;
    bool isOther = false;
    for (int i = 0; i < old.size(); ++i) {
        int place = i + 1;
        const bool isUnique = old.count(old[i]) == 1 && now.count(old[i]) == 1;
        if (isUnique)
            place = now.indexOf(old[i]) + 1;
        else if (!now.contains(old[i]) && old.contains(now.value(i)))
            place = 0;
        isOther = isOther || place != i + 1;
        places.append(place);
    }
    if (!isOther)
        return nullptr;
    return [places](int channel) {
        return places.value(channel - 1, channel);
    };
}

} // namespace Corvale_Qt
