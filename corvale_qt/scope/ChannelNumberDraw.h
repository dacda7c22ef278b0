// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <qwt_scale_draw.h>

namespace Corvale_Qt {

//! Labels channels with their numbers, so many that about 32 stand on the axis: all, or every second, third ...
class CORVALE_QT_EXPORT ChannelNumberDraw : public QwtScaleDraw
{
public:
    explicit ChannelNumberDraw(int channelCount);

    QwtText label(double channel) const override;

private:
    int m_step;
};

} // namespace Corvale_Qt
