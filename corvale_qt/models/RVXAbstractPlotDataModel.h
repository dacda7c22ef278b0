// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <qwt_series_data.h>

#include <QString>

namespace Corvale_Qt {

namespace Units {
class MeasurementUnit;
} // namespace Units

/*! What every model and proxy offers to plots: a table of numbers.

    Column 0 is x (time, in seconds for device models), columns 1 and up are channels. Row 0 is a header: there
    doubleData(0, c) is c, and the item model's side holds each channel's name, colour and check state. Samples are
    rows 1 to rowCount() - 1, oldest first.

    This is not a QObject. Concrete models derive from QAbstractItemModel as well, and each side is found from the
    other by dynamic_cast. Nothing here is owned by the model unless it says so. */
class CORVALE_QT_EXPORT RVXAbstractPlotDataModel
{
public:
    //! Item roles of plot models, beside Qt's own.
    enum ItemRole {
        //! A cell's doubleData() as a double.
        NumericValueRole = 33,
        /*! At the cell (last row, 0): fits that the device made, a QVariantList of mean, sigma and peak height
            for each group of channels; means are 0-based within the group. */
        DeviceFitRole = 34,
        /*! At the cell (0, c): the unit of channel c, a const Units::MeasurementUnit *. Invalid where the channel is in
            units(), as all channels of a device are. The model keeps the unit as it keeps units(). */
        ChannelUnitRole = 35,
    };

    RVXAbstractPlotDataModel();
    RVXAbstractPlotDataModel(const RVXAbstractPlotDataModel &other);
    RVXAbstractPlotDataModel &operator=(const RVXAbstractPlotDataModel &other);
    virtual ~RVXAbstractPlotDataModel();

    //! Writes the buffered samples to a file; false where that failed.
    virtual bool SaveDataToFile(const QString &fileName) const = 0;
    //! Drops all samples.
    virtual void Clear() = 0;
    //! 1 unless a host's model says otherwise. Views count channels by columnCount() instead.
    virtual int NumberOfChannels() const;
    //! How many samples a plot should show at once.
    virtual int PlotWidthHintPoints() const = 0;
    //! The same as a width in units of x; 0 where the model gives none.
    virtual double PlotWidthHint() const = 0;
    //! Unit of the channels' values. Kept by the model; may be null.
    virtual const Units::MeasurementUnit *units() const = 0;
    //! Unit of column 0. Kept by the model; may be null.
    virtual const Units::MeasurementUnit *xUnits() const = 0;
    //! The number of one cell, in the unit of display. A cell that holds none gives 0.0.
    virtual double doubleData(int row, int column) const = 0;
    /*! A column as a Qwt series, from \a startRow to \a endRow, both inclusive; an \a endRow that the model does
        not have, by custom -1, stands for the last row. The caller owns the series, which must not outlive the
        model. */
    virtual QwtSeriesData<QPointF> *seriesData(int column, int startRow, int endRow) const = 0;
    //! How many samples the buffer holds at most.
    virtual int MaxBufferSize() const = 0;
};

} // namespace Corvale_Qt
