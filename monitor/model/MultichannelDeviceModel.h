// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"
#include <corvale_qt/models/RVXBulkPlotData.h>
#include <corvale_qt/models/RVXMultichannelDeviceModel.h>

#include <functional>
#include <memory>
#include <vector>

namespace Monitor {

/*! The readings of one stream: the library's model of several channels, with the names, units and limits of a stream's
    header. Values are kept in the unit in which they were received.

    While it is paused, new readings wait and the rows do not change; setPaused(false) then shows all of them at once, as if
    there had been no pause. */
class MultichannelDeviceModel : public Corvale_Qt::RVXMultichannelDeviceModel,
                                public Corvale_Qt::RVXBulkPlotVoucher
{
    Q_OBJECT

public:
    //! How long readings are remembered in blocks after the newest 100000 rows, in seconds: a week.
    static constexpr double historySeconds = 7.0 * 86400.0;

    explicit MultichannelDeviceModel(QObject *parent = nullptr);
    ~MultichannelDeviceModel() override;

    //! Begins a new acquisition: empties the model and adopts the channels, units and limits of the header.
    void startStream(const StreamHeader &header);
    /*! Goes on with the present acquisition under a header with other computed channels. Column c keeps the readings and the
        blocks of column \a former[c - 1], 0 for none. Readings that wait in a pause are dropped. */
    void goOnWith(const StreamHeader &header, const QVector<int> &former);
    //! Gives the rows the readings of their computed channels; \a readings are those of all channels in all rows.
    void setComputed(const ReadingBlock &readings);
    /*! Adds readings, or only those that are due if there is a sampling period. Readings with another number of
        channels than the header are ignored. */
    void addReadings(const ReadingBlock &readings);
    //! Adds one reading; \a values points to one value per channel.
    void addReading(double time, const double *values);

    //! Pauses the model, or shows the readings that waited and goes on.
    void setPaused(bool paused);
    //! Shows the readings that wait; a pause goes on.
    void showWaiting();
    bool isPaused() const { return m_isPaused; }
    //! Returns how many readings arrived since the model was paused.
    qint64 waitingReadings() const { return m_arrivedWaiting; }

    //! Replaces the limits of the channels, which files that are saved from now on have.
    void setLimits(const QVector<Corvale_Qt::ChannelLimits> &limits) { m_header.limits = limits; }
    //! Returns the rows as they were received.
    ReadingBlock shownReadings() const;

    const StreamHeader &header() const { return m_header; }
    //! Returns the value in row \a row (from 1) of channel \a channel (from 0), in the unit in which it was received.
    double receivedValue(int row, int channel) const { return givenValue(row, channel + 1); }

    bool isOverrange(int channel, int sample) const override;
    QVariant deviceSpecificData(const QModelIndex &index, int role) const override;
    const std::type_info &vouchedType() const override { return typeid(MultichannelDeviceModel); }

    //! Returns seconds, or "spot" or "reading" if they are only counted.
    const Corvale_Qt::Units::MeasurementUnit *xUnits() const override;
    //! Saves the rows as a recording, which the monitor and any reader of CSV can open.
    bool SaveDataToFile(const QString &fileName) const override;
    void Clear() override;

private:
    void addDue(const ReadingBlock &readings);
    bool has(int row, int column) const;
    void adopt(const StreamHeader &header,
               const std::function<void(const QVector<Channel> &)> &give);
    Channel channelOf(const StreamHeader &header, int index);
    QVariant text(const QModelIndex &index) const;
    QVariant toolTip(int row, int column) const;
    void forgetWaiting();
    bool writeRows(QIODevice &file) const;

    StreamHeader m_header;
    std::unique_ptr<Corvale_Qt::Units::MeasurementUnit> m_unit;
    //! The units of the computed channels that differ from m_unit.
    std::vector<std::unique_ptr<Corvale_Qt::Units::MeasurementUnit>> m_ownUnits;
    ReadingBlock m_due;
    ReadingBlock m_waiting;
    bool m_isPaused = false;
    qint64 m_arrivedWaiting = 0;
};

} // namespace Monitor
