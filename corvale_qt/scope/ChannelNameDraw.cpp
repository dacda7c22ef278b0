// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/ChannelNameDraw.h"

#include <QString>

#include <cmath>

namespace Corvale_Qt {

QwtText ChannelNameDraw::label(double channel) const
{
    static const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    const bool named =
        channel >= 1.0 && channel <= letters.size() && channel == std::floor(channel);
    return named ? QwtText(letters.mid(int(channel) - 1, 1)) : QwtText();
}

} // namespace Corvale_Qt
