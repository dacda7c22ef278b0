// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <qwt_scale_draw.h>

namespace Corvale_Qt {

//! Labels every n-th channel with its number, where n is chosen such that the axis has about 32 labels.
class CORVALE_QT_EXPORT ChannelNumberDraw : public QwtScaleDraw
{
public:
    //! Prepares labels for an axis of \a channelCount channels; n is channelCount / 32, at least 1.
    explicit ChannelNumberDraw(int channelCount);

    QwtText label(double channel) const override;

private:
    int m_step;
};

} // namespace Corvale_Qt
