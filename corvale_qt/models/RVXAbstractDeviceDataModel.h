// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QAbstractItemModel>
#include <QFont>

#include <memory>

namespace Corvale_Qt {

class RVXAbstractDeviceDataModelPrivate;

/*! Base of the models that hold readings of an instrument: an item model for tables and a plot model in one.

    | | column 0 | column c |
    |---|---|---|
    | row 0 | "Time (s)" | the channel: its name, colour and check box |
    | row r | time of sample r | reading of channel c |

    It keeps the unit of the readings, which channels are switched on (at most 256), the sampling timer and the
    looks of the table. A subclass adds the samples: index(), rowCount(), doubleData(), deviceSpecificData(),
    isOverrange(), Clear() and SaveDataToFile(), and NumberOfChannels() where it has more than one channel. */
class CORVALE_QT_EXPORT RVXAbstractDeviceDataModel : public QAbstractItemModel,
                                                     public RVXAbstractPlotDataModel
{
    Q_OBJECT

public:
    //! Capacity of a model's buffer, in samples.
    static const unsigned int maxBufferSize;

    explicit RVXAbstractDeviceDataModel(QObject *parent = nullptr);
    ~RVXAbstractDeviceDataModel() override;

    QModelIndex parent(const QModelIndex &child) const override;
    using QObject::parent;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    //! Takes Qt::CheckStateRole on a channel's cell of row 0, nothing else.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant
    headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /*! What the device knows of a cell: asked for Qt::DisplayRole, Qt::EditRole, Qt::ToolTipRole,
        NumericValueRole and Qt::UserRole. */
    virtual QVariant deviceSpecificData(const QModelIndex &index, int role) const = 0;
    //! Font of the samples.
    virtual QFont dataFont() const;
    //! Whether a reading lies outside the instrument's range; channel and sample count from 0.
    virtual bool isOverrange(int channel, int sample) const = 0;
    /*! The unit of the readings from now on. It is not owned and must live as long as the model uses it; null is
        taken, numbers are then shown as they are. Emits unitsChanged() and, where there are samples, dataChanged()
        over all of them. */
    virtual void SetUnits(const Units::MeasurementUnit *units);

    int MaxBufferSize() const override;
    double PlotWidthHint() const override;
    int PlotWidthHintPoints() const override;
    const Units::MeasurementUnit *units() const override;
    const Units::MeasurementUnit *xUnits() const override;
    QwtSeriesData<QPointF> *seriesData(int column, int startRow, int endRow) const override;

    /*! Sampling period in milliseconds. At 1 or more, sampleDue() becomes true once a period; at 0 or less it is
        always true: every reading counts. */
    void setPeriod(int milliseconds);

    //! Whether each reading is shown at once; otherwise the host says when.
    bool autoUpdate() const;
    void setAutoUpdate(bool on);

Q_SIGNALS:
    void unitsChanged(const Corvale_Qt::Units::MeasurementUnit *units);

protected:
    //! Whether the next reading is to be taken, for subclasses that thin their readings by time.
    bool sampleDue() const;
    //! For a subclass that has taken a reading: the next one is due when the period is over.
    void sampleTaken();

private Q_SLOTS:
    void collectSample();

private:
    Q_DECLARE_PRIVATE(RVXAbstractDeviceDataModel)
    const std::unique_ptr<RVXAbstractDeviceDataModelPrivate> d_ptr;
};

} // namespace Corvale_Qt
