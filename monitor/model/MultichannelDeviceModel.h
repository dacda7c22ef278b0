// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/model/ReadingRing.h"
#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"
#include <corvale_qt/models/RVXAbstractDeviceDataModel.h>

#include <functional>
#include <memory>
#include <vector>

namespace Monitor {

/*! All channels of one instrument: one column of times and one column for each channel.

    | | column 0 | column c |
    |---|---|---|
    | row 0 | "Time (s)" | name of channel c, with its unit if the channels have different units |
    | row r | time of reading r | value of channel c; NaN for a missing value |

    A block of readings is one row insertion, whatever the number of channels. The model keeps the latest 100000
    readings. While it is paused (auto update off), new readings wait and the rows do not change; UpdateView() or
    setPaused(false) then shows all of them at once, as if there had been no pause. */
class MultichannelDeviceModel : public Corvale_Qt::RVXAbstractDeviceDataModel
{
    Q_OBJECT

public:
    explicit MultichannelDeviceModel(QObject *parent = nullptr);
    ~MultichannelDeviceModel() override;

    //! Begins a new acquisition: empties the model and adopts the channels, units and limits of the header.
    void startStream(const StreamHeader &header);
    /*! Adds readings, or only those that are due if there is a sampling period. Readings with another number of
        channels than the header are ignored. */
    void addReadings(const ReadingBlock &readings);
    //! Adds one reading; \a values points to one value per channel.
    void addReading(double time, const double *values);

    //! Pauses the model, or shows the readings that waited and goes on.
    void setPaused(bool paused);
    bool isPaused() const { return !autoUpdate(); }
    //! Returns how many readings arrived since the model was paused.
    qint64 waitingReadings() const { return m_arrivedWaiting; }

    //! Sets how many samples and how many seconds a plot should show at once; 0 for the default.
    void setPlotWidth(int points, double seconds);
    const StreamHeader &header() const { return m_header; }
    //! Returns the value in row \a row (from 1) of channel \a channel (from 0), in the unit in which it was received.
    double receivedValue(int row, int channel) const { return m_visible.value(row - 1, channel); }

    int NumberOfChannels() const override;
    int PlotWidthHintPoints() const override;
    double PlotWidthHint() const override;
    double doubleData(int row, int column) const override;
    bool isOverrange(int channel, int sample) const override;
    QVariant deviceSpecificData(const QModelIndex &index, int role) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex
    index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;

    //! Saves the rows as a recording, which the monitor and any reader of CSV can open.
    bool SaveDataToFile(const QString &fileName) const override;
    void Clear() override;

public Q_SLOTS:
    //! Shows the readings that waited while the model was paused.
    void UpdateView();

private:
    using Unit = Corvale_Qt::Units::MeasurementUnit;

    void appendVisible(int count, const std::function<void(int i)> &append);
    bool has(int row, int column) const;
    double shown(double value, int channel) const;
    QVariant text(int row, int column) const;
    QVariant toolTip(int row, int column) const;
    void adoptUnits();

    StreamHeader m_header;
    std::vector<std::unique_ptr<Unit>> m_units;
    std::vector<std::unique_ptr<Unit>> m_formerUnits;
    ReadingRing m_visible;
    ReadingRing m_waiting;
    qint64 m_arrivedWaiting = 0;
    int m_widthPoints = 0;
    double m_widthSeconds = 0.0;
};

} // namespace Monitor
