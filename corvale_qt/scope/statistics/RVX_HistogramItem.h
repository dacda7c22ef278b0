// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QVector>

#include <vector>

class QwtPlot;

namespace Corvale_Qt {

//! Something computed from the bars of a histogram and shown over them. The order of the operations is fixed.
class CORVALE_QT_EXPORT RVX_HistogramItem
{
public:
    //! Shows the item on a plot, which does not own it.
    virtual void attach(QwtPlot *plot) = 0;
    virtual void detach() = 0;
    /*! Computes from the values of the bars. The first bar stands at \a offset + 1 on the plot; \a axisUpper is the
        upper bound of the axis widget's scale. False where there is no result. */
    virtual bool compute(int offset, const QVector<float> &values, double axisUpper) = 0;
    //! Whether the item wants the fit that the device made.
    virtual bool usesDeviceFit() const;
    //! Whether the energy is shown that the calibration table gives; nothing here.
    virtual void toggleMLFC(bool enable);
    //! Energy in MeV of each channel, channel 1 first. It is copied; null takes it away. Nothing here.
    virtual void upload_MLFC_calibration_table(std::vector<double> *table);
    virtual ~RVX_HistogramItem();
};

} // namespace Corvale_Qt
