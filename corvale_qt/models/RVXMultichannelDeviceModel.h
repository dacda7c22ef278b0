// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXAbstractDeviceDataModel.h"

#include <QVariantList>
#include <QVector>

#include <memory>

namespace Corvale_Qt {

class RVXBulkPlotData;
class RVXMultichannelDeviceModelPrivate;
class RVXPlotHistory;

/*! The readings of an instrument with several channels (at most 256) that are read together: the newest rows, each with one
    time stamp and one value for each channel.

    | | column 0 | column c |
    |---|---|---|
    | row 0 | "Time (s)" | name of channel c, with its unit if it has one of its own |
    | row r | time of row r, in seconds | reading of channel c; NaN if there is none |

    Values are passed in the base unit, or in Channel::givenIn, and shown in the channel's unit, or else in units(). A block
    of rows is announced as one insertion, after the removal of the oldest rows that it displaces. If autoUpdate() is off,
    rows are stored and announced by UpdateView(), but the removal of announced rows is announced at once.

    Charts read the model in place. A subclass that does not override doubleData() should say so with RVXBulkPlotVoucher.

    The model belongs to one thread. A worker's block comes in by one call, from a slot that a queued connection calls:

    \code
    connect(worker, &Worker::blockReady, model, // void blockReady(QVector<double> times, QVector<double> values)
            qOverload<const QVector<double> &, const QVector<double> &>(&RVXMultichannelDeviceModel::appendRows));
    \endcode */
class CORVALE_QT_EXPORT RVXMultichannelDeviceModel : public RVXAbstractDeviceDataModel
{
    Q_OBJECT
    //! What RVXBulkPlotData::of() returns for this class.
    Q_PROPERTY(const Corvale_Qt::RVXBulkPlotData *bulkPlotData READ bulkPlotData
                   DESIGNABLE false STORED false)
    //! What RVXPlotHistory::of() returns for this class.
    Q_PROPERTY(const Corvale_Qt::RVXPlotHistory *plotHistory READ plotHistory
                   DESIGNABLE false STORED false)

public:
    //! The memory that a history takes at most unless a host sets another limit: 7 days of 16 channels at 1 kHz need less.
    static constexpr qint64 usualHistoryMemory = 280'000'000;

    //! What is known of a channel. The model does not own units, so they must live as long as it uses them.
    struct Channel
    {
        QString name; //!< shown in row 0; empty: the column's number
        const Units::MeasurementUnit *unit = nullptr; //!< unit of display; null: units()
        /*! The unit in which values are passed, null for the base unit. Values that are given and shown in the same unit are
            shown, and saved, to the last bit as they came. */
        const Units::MeasurementUnit *givenIn = nullptr;
    };

    //! Constructs an empty model of \a channels channels without names, with room for 100000 rows and with autoUpdate() on.
    explicit RVXMultichannelDeviceModel(int channels = 1, QObject *parent = nullptr);
    ~RVXMultichannelDeviceModel() override;

    //! Replaces the channels and removes all rows, in one reset. Beyond 256, channels are ignored with a line on the debug stream.
    void setChannels(const QVector<Channel> &channels);
    //! Replaces the channels by \a count channels without names and units; see setChannels().
    void setChannelCount(int count);
    /*! Replaces the channels in one reset that keeps the rows and the history. The channel in column c goes on with what the
        channel in column \a former[c - 1] had; where that is 0, or no such column, or missing, its readings are NaN, and the
        blocks of the history have none of it. Both channels must be given in the same unit. */
    void exchangeChannels(const QVector<Channel> &channels, const QVector<int> &former);
    /*! Replaces the readings of the channel in \a column in all announced rows, the oldest first; the history keeps its
        blocks. Another number of readings is refused with a line on the debug stream. Emits dataChanged(). */
    void setReadings(int column, const QVector<double> &readings);
    //! Returns a channel; \a column is 1 or more. An empty one if there is no such channel.
    Channel channel(int column) const;
    //! Names the channel in \a column, 1 or more. Emits headerDataChanged() and dataChanged() if the name is another one.
    void setChannelName(int column, const QString &name);
    //! Sets the unit of display of the channel in \a column, or units() for null, in one reset that keeps the rows.
    void setChannelUnit(int column, const Units::MeasurementUnit *unit);

    /*! Appends a reading. \a time is in seconds; \a values points to a value for each channel, NaN for no reading. A time of
        exactly 0.0 clears the model first. A row with the time of the newest row is a repetition and is ignored, and so is
        one that is not due yet (setPeriod()). Any other is stored, also with a NaN or an earlier time.

        \a deviceFits are what the device calculated for the row: the row's DeviceFitRole. Only the last fits are kept. */
    void
    appendRow(double time, const double *values, const QVariantList &deviceFits = QVariantList());
    /*! Appends \a rows rows by the rules of appendRow(), as one insertion of rows. Row r of the channel in column c is
        \a values[r * NumberOfChannels() + c - 1]. Of more rows than capacity() the newest are kept. \a deviceFits belong to
        the last row.

        Called from another thread than the model's, it hands a copy over to that thread, and says so once on the debug
        stream (category "corvale.models"); a debug build stops at an assertion. */
    void appendRows(const double *times,
                    const double *values,
                    int rows,
                    const QVariantList &deviceFits = QVariantList());
    //! Announces the rows that were stored since the last announcement as one insertion.
    void UpdateView();

    //! Returns how many rows the model keeps.
    int capacity() const;
    //! Sets how many rows the model keeps, in one reset; the newest stay. Less than 1 is ignored.
    void setCapacity(int rows);
    //! Returns the number that was passed for a channel, whatever the units; NaN if there is none. \a row and \a column from 1.
    double givenValue(int row, int column) const;

    //! Returns how long rows are remembered in blocks after they have left the model, in seconds; 0, as at first, for not at all.
    double historySpan() const;
    /*! Sets how long rows are remembered after they have left the model because of its capacity: as the smallest, the largest
        and the mean reading of blocks of 64 rows, and the longer ago the more (RVXPlotHistory). Strip charts show them before
        the rows. 0 or less keeps nothing. Clear(), setChannels() and a time that steps back by more than a second forget the
        history, and so does each call with another span. */
    void setHistorySpan(double seconds);
    //! Returns the most memory that a history takes, in bytes.
    qint64 historyMemory() const;
    /*! Sets the most memory that a history takes, in bytes, and forgets what it holds. Each of its 8 levels has
        bytes / (8 * 32 * (NumberOfChannels() + 1)) blocks, but at least 64, and memory is taken as they fill. Level 0 holds
        blocks of 64 rows, each further level blocks four times as long. If readings come so fast that the last level does not
        reach back for historySpan(), the history is shorter. Less than 1 is ignored. */
    void setHistoryMemory(qint64 bytes);
    //! Returns the memory that the history takes now, in bytes.
    qint64 historyMemoryInUse() const;

    //! Sets how many samples a plot should show at once; 0, the default, means 256.
    void setPlotWidthHintPoints(int points);
    //! Sets the width that a plot should show at once, in seconds; 0, the default, if only the points count.
    void setPlotWidthHint(double seconds);

    //! The rows and the history that takeReadings() removed from a model.
    class TakenReadings;
    /*! Removes all rows and the history, as Clear() does, and returns them for putReadingsBefore(). Nothing is copied; their
        memory is free when the last pointer to them goes. */
    std::shared_ptr<TakenReadings> takeReadings();
    /*! Puts readings that were taken before the present ones, in one reset, and leaves \a taken empty. Rows beyond capacity()
        go into the history, and the history forgets what is before a step back in time, as if all had been appended in turn.
        Readings of another number of channels are refused with a line on the debug stream; null is ignored. */
    void putReadingsBefore(const std::shared_ptr<TakenReadings> &taken);

    void Clear() override;
    /*! Writes the announced rows as CSV: a line of titles, "timestamp(s)" and the names of the channels with their givenIn
        unit in brackets, then a line for each row: the time with nine decimals, and the values as they were given, with as
        many digits as restore them; empty for NaN. Returns false if the file cannot be opened or not be written to its
        end. */
    bool SaveDataToFile(const QString &fileName) const override;
    int NumberOfChannels() const override;
    int MaxBufferSize() const override;
    int PlotWidthHintPoints() const override;
    double PlotWidthHint() const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex
    index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    double doubleData(int row, int column) const override;
    bool isOverrange(int channel, int sample) const override;
    QVariant deviceSpecificData(const QModelIndex &index, int role) const override;

public Q_SLOTS:
    /*! Appends a row for each time; \a values holds NumberOfChannels() values for each, row after row. Values of another size
        are refused with a line on the debug stream. */
    void appendRows(const QVector<double> &times, const QVector<double> &values);

protected:
    /*! Appends rows like appendRows(), but every one of them, whatever its time and the period: for subclasses that decide
        themselves which readings to store. */
    void storeRows(const double *times, const double *values, int rows);

private:
    const RVXBulkPlotData *bulkPlotData() const;
    const RVXPlotHistory *plotHistory() const;

    Q_DECLARE_PRIVATE(RVXMultichannelDeviceModel)
    const std::unique_ptr<RVXMultichannelDeviceModelPrivate> d_ptr;
};

} // namespace Corvale_Qt
