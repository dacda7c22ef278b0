// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// +------------------------------------------------------------------------------------+
// | This file is not part of the interface: it may change, or go, without notice.      |
// +------------------------------------------------------------------------------------+

#include <qwt_plot_picker.h>

namespace Corvale_Qt {

class SpectrogramPlot;

/*! Tells beside the mouse which channel it is on, and what that reads. */
class ChannelHover : public QwtPlotPicker
{
    Q_OBJECT

public:
    //! Belongs to the plot's canvas.
    explicit ChannelHover(SpectrogramPlot *plot);
    ~ChannelHover() override;

protected:
    QwtText trackerTextF(const QPointF &position) const override;

private:
    const SpectrogramPlot *m_plot;
};

} // namespace Corvale_Qt
