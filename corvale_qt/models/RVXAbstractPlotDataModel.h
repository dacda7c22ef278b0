// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <qwt_series_data.h>

#include <QString>

namespace Corvale_Qt {

namespace Units {
class MeasurementUnit;
} // namespace Units

/*! The table of numbers that every model and proxy offers to plots.

    Column 0 is x (time, in seconds for device models); columns 1 and up are channels. Row 0 is a header: doubleData(0, c)
    is c there, and the item model holds each channel's name, colour and check state. Samples are rows 1 to
    rowCount() - 1, the oldest first.

    This class is not a QObject. Concrete models derive from QAbstractItemModel as well; a dynamic_cast leads from either
    interface to the other. */
class CORVALE_QT_EXPORT RVXAbstractPlotDataModel
{
public:
    //! Item roles of plot models, in addition to Qt's.
    enum ItemRole : int {
        //! A cell's doubleData() as a double.
        NumericValueRole = 33,
        /*! At the cell (last row, 0): fits that the device calculated, a QVariantList with mean, sigma and peak height for
            each group of channels. A mean is the position in the group, counted from 0. */
        DeviceFitRole = 34,
        /*! At the cell (0, c): the unit of channel c, a const Units::MeasurementUnit * that the model owns. Invalid if the
            unit is units(), as it is for all channels of a device. */
        ChannelUnitRole = 35,
        /*! At the cell (0, c): the dash pattern of channel c's curve, a QVector<qreal> as QPen::setDashPattern() takes it. Empty
            or invalid for a solid line. */
        ChannelDashesRole = 40,
    };

    RVXAbstractPlotDataModel();
    //! Copies nothing; it exists so that concrete models may be copied.
    RVXAbstractPlotDataModel(const RVXAbstractPlotDataModel &other);
    //! Assigns nothing; it exists so that concrete models may be assigned.
    RVXAbstractPlotDataModel &operator=(const RVXAbstractPlotDataModel &other);
    virtual ~RVXAbstractPlotDataModel();

    //! Writes the buffered samples to a file; returns false if the file cannot be written.
    virtual bool SaveDataToFile(const QString &fileName) const = 0;
    //! Removes all samples.
    virtual void Clear() = 0;
    //! Returns the number of channels: 1 unless a model overrides it. Views use columnCount() - 1 instead.
    virtual int NumberOfChannels() const;
    //! Returns how many samples a plot should show at once.
    virtual int PlotWidthHintPoints() const = 0;
    //! Returns the width that a plot should show at once, in the unit of x; 0 if only PlotWidthHintPoints() counts.
    virtual double PlotWidthHint() const = 0;
    //! Returns the unit of the channels' values. The caller must not delete it; it may be null.
    virtual const Units::MeasurementUnit *units() const = 0;
    //! Returns the unit of column 0. The caller must not delete it; it may be null.
    virtual const Units::MeasurementUnit *xUnits() const = 0;
    //! Returns the number of a cell, converted to the unit of its column; 0.0 for a cell that holds no number.
    virtual double doubleData(int row, int column) const = 0;
    /*! Returns a column as a Qwt series, from \a startRow to \a endRow, both included. An \a endRow that the model does not
        have (-1 by convention) means the last row. The caller owns the series, which must not outlive the model. */
    virtual QwtSeriesData<QPointF> *seriesData(int column, int startRow, int endRow) const = 0;
    //! Returns the capacity of the buffer, in samples.
    virtual int MaxBufferSize() const = 0;
};

} // namespace Corvale_Qt
