// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QVector>

#include <vector>

class QwtPlot;

namespace Corvale_Qt {

/*! Interface of what is computed from the bars of a histogram and shown over them.

    The order of the virtual functions is fixed, because hosts were compiled against it. */
class CORVALE_QT_EXPORT RVX_HistogramItem
{
public:
    //! Shows the item on \a plot, which does not take ownership.
    virtual void attach(QwtPlot *plot) = 0;
    //! Removes the item from its plot.
    virtual void detach() = 0;
    /*! Computes the item from the values of the bars and returns whether there is a result. The first bar lies at
        x = \a offset + 1 on the plot. \a axisUpper is the upper bound of the axis widget's scale, in channels. */
    virtual bool compute(int offset, const QVector<float> &values, double axisUpper) = 0;
    //! Returns whether the item shows a fit made by the device. The default is false.
    virtual bool usesDeviceFit() const;
    //! Shows or hides the beam energy from the calibration table. The default implementation does nothing.
    virtual void toggleMLFC(bool enable);
    /*! Sets the calibration table: the beam energy in MeV of each channel, channel 1 first. The table is copied; null
        removes it. The default implementation does nothing. */
    virtual void upload_MLFC_calibration_table(std::vector<double> *table);
    virtual ~RVX_HistogramItem();
};

} // namespace Corvale_Qt
