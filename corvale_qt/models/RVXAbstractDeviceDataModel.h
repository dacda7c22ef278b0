// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/models/RVXPlotColors.h"
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

    It keeps the unit of the readings, the check states of the channels (at most 256), the sampling timer and the
    appearance of the table. A subclass adds the samples: it implements index(), rowCount(), doubleData(),
    deviceSpecificData(), isOverrange(), Clear() and SaveDataToFile(), and NumberOfChannels() if it has more than one
    channel. */
class CORVALE_QT_EXPORT RVXAbstractDeviceDataModel : public QAbstractItemModel,
                                                     public RVXAbstractPlotDataModel
{
    Q_OBJECT

public:
    //! Capacity of the buffer of the library's models, in samples: 100000.
    static const unsigned int maxBufferSize;

    //! Constructs a model whose unit is the ampere, with all channels checked, autoUpdate() on and no sampling period.
    explicit RVXAbstractDeviceDataModel(QObject *parent = nullptr);
    ~RVXAbstractDeviceDataModel() override;

    QModelIndex parent(const QModelIndex &child) const override;
    using QObject::parent;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /*! Sets the check state of a channel: Qt::CheckStateRole of its cell in row 0. Returns false for any other cell and role.
        Emits dataChanged() if the state has changed. */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant
    headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /*! Returns the device's data of a cell. data() calls it for Qt::DisplayRole, Qt::EditRole, Qt::ToolTipRole,
        NumericValueRole and Qt::UserRole. */
    virtual QVariant deviceSpecificData(const QModelIndex &index, int role) const = 0;
    //! Returns the font of the samples' cells.
    virtual QFont dataFont() const;
    //! Returns true if a reading lies outside the instrument's range; \a channel and \a sample are counted from 0.
    virtual bool isOverrange(int channel, int sample) const = 0;
    /*! Sets the unit of the readings. The model does not own it, so it must live as long as the model uses it. With null,
        numbers are shown as they are stored. Emits unitsChanged() and, if there are samples, dataChanged() for all of
        them. */
    virtual void SetUnits(const Units::MeasurementUnit *units);

    int MaxBufferSize() const override;
    double PlotWidthHint() const override;
    int PlotWidthHintPoints() const override;
    const Units::MeasurementUnit *units() const override;
    const Units::MeasurementUnit *xUnits() const override;
    QwtSeriesData<QPointF> *seriesData(int column, int startRow, int endRow) const override;

    /*! Sets the sampling period in milliseconds. If it is 1 or more, sampleDue() becomes true once a period; if it is 0 or
        less, sampleDue() is always true and every reading is taken. */
    void setPeriod(int milliseconds);

    //! Returns true, the default, if views hear of each reading at once; otherwise they hear when the host decides.
    bool autoUpdate() const;
    //! Sets whether views hear of each reading at once.
    void setAutoUpdate(bool on);

    //! Returns the set of colours of the channels; RVXPlotColors::EightColors at first.
    RVXPlotColors::Palette palette() const;
    //! Sets the colours of the channels, in row 0, and their dash patterns. All views of the model show them.
    void setPalette(RVXPlotColors::Palette palette);

Q_SIGNALS:
    //! Emitted by SetUnits() with the new unit of the readings, which may be null.
    void unitsChanged(const Corvale_Qt::Units::MeasurementUnit *units);

protected:
    //! Returns true if the next reading is to be stored, for subclasses that store readings once a period.
    bool sampleDue() const;
    //! Records that a reading was stored: the next one is due when the period is over.
    void sampleTaken();

private Q_SLOTS:
    void collectSample();

private:
    friend class RVXSingleChannelDataModelPrivate;
    const bool &autoUpdateFlag() const;

    Q_DECLARE_PRIVATE(RVXAbstractDeviceDataModel)
    const std::unique_ptr<RVXAbstractDeviceDataModelPrivate> d_ptr;
};

} // namespace Corvale_Qt
