// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <qwt_scale_draw.h>

namespace Corvale_Qt {

//! Labels channels 1 to 26 with the letters "A" to "Z"; other values get no label. Suits axes of few channels.
class CORVALE_QT_EXPORT ChannelNameDraw : public QwtScaleDraw
{
public:
    QwtText label(double channel) const override;
};

} // namespace Corvale_Qt
