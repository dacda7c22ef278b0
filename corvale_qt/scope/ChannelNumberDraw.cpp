// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/ChannelNumberDraw.h"

#include <QFont>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

ChannelNumberDraw::ChannelNumberDraw(int channelCount)
    : m_step(std::max(channelCount / 32, 1))
{
}

QwtText ChannelNumberDraw::label(double channel) const
{
    if (channel != std::floor(channel) || std::fmod(channel, m_step) != 0.0)
        return QwtText();
    QwtText text(QString::number(channel, 'f', 0));
    text.setFont(QFont("Arial", 8));
    return text;
}

} // namespace Corvale_Qt
