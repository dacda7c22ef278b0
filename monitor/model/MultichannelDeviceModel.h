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

/*! All channels of one instrument: one time column, one column for each channel.

    | | column 0 | column c |
    |---|---|---|
    | row 0 | "Time (s)" | name of channel c, with its unit where the channels' units differ |
    | row r | time of reading r | value of channel c; NaN where it gave none |

    A block of readings is one row insertion, whatever the number of channels. It keeps the latest 100000. While
    the model is paused (auto update off), readings wait unseen and nothing that is shown changes; UpdateView()
    or setPaused(false) shows all of them at once, as if there had been no pause. */
class MultichannelDeviceModel : public Corvale_Qt::RVXAbstractDeviceDataModel
{
    Q_OBJECT

public:
    explicit MultichannelDeviceModel(QObject *parent = nullptr);
    ~MultichannelDeviceModel() override;

    //! A new acquisition: empties the model and gives it that header's channels, units and limits.
    void startStream(const StreamHeader &header);
    //! Readings of the header's channels, all of them or, with a sampling period, those that are due.
    void addReadings(const ReadingBlock &readings);
    void addReading(double time, const double *values);

    void setPaused(bool paused);
    bool isPaused() const { return !autoUpdate(); }
    //! Readings that arrived since the model was paused.
    qint64 waitingReadings() const { return m_arrivedWaiting; }

    //! How many samples, and how many seconds, a plot should show at once; 0 for no wish.
    void setPlotWidth(int points, double seconds);
    const StreamHeader &header() const { return m_header; }
    //! The value in sample row \a row of channel \a channel, counted from 0, as it was received.
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

    //! Saves what is shown as a recording that the monitor and any reader of CSV can open.
    bool SaveDataToFile(const QString &fileName) const override;
    void Clear() override;

public Q_SLOTS:
    //! Shows the readings that wait.
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
