// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/ChannelMoves_p.h"

#include <QHash>
#include <QSet>
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
    // Where the channels of a name are now, the last one first.
    QHash<QString, QVector<int>> placesOf;
    for (int i = now.size(); i >= 1; --i)
        placesOf[now[i - 1]].append(i);
    QVector<int> places(old.size(), 0);
    QSet<int> taken;
    for (int i = 0; i < old.size(); ++i) {
        QVector<int> &left = placesOf[old[i]];
        if (left.isEmpty())
            continue;
        places[i] = left.takeLast();
        taken.insert(places[i]);
    }
    bool isOther = false;
    for (int i = 0; i < old.size(); ++i) {
        if (places[i] == 0 && !taken.contains(i + 1))
            places[i] = i + 1;
        isOther = isOther || places[i] != i + 1;
    }
    if (!isOther)
        return nullptr;
    return [places](int channel) {
        return places.value(channel - 1, channel);
    };
}

} // namespace Corvale_Qt
