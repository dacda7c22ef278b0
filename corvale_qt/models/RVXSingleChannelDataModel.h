// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXAbstractDeviceDataModel.h"

namespace Corvale_Qt {

class RVXBulkPlotData;
class RVXSingleChannelDataModelPrivate;

/*! The readings of one channel: the newest 100000 samples, each with its time stamp.

    Values are passed in the base unit and shown in units(). If autoUpdate() is on, as it is at first, views hear of each
    sample; otherwise they hear of new samples when the host calls UpdateView(). Table views are expensive, so switch
    autoUpdate() off for them and call UpdateView() from a timer.

    If autoUpdate() is on, rowCount() counts a new row already while the row is announced; hosts rely on this order. A proxy
    that maps its source's rows, as QSortFilterProxyModel does, then counts the new row twice and shows a row that does not
    exist. Under such a proxy keep autoUpdate() off and call UpdateView().

    When the buffer is full, a new sample is announced as an insertion at the end with the removal of row 1 inside it. An
    index of the last row therefore moves to the newest sample; other indexes keep their samples.

    \code
    RVXSingleChannelDataModel model;
    model.AddData(0.0, 1.2e-9); // a time of exactly 0 starts a new acquisition
    model.AddData(0.1, 1.3e-9);
    \endcode */
class CORVALE_QT_EXPORT RVXSingleChannelDataModel : public RVXAbstractDeviceDataModel
{
    Q_OBJECT
    //! What RVXBulkPlotData::of() returns for this class.
    Q_PROPERTY(const Corvale_Qt::RVXBulkPlotData *bulkPlotData READ bulkPlotData
                   DESIGNABLE false STORED false)

public:
    //! Constructs an empty model of one channel, with autoUpdate() on.
    explicit RVXSingleChannelDataModel(QObject *parent = nullptr);
    ~RVXSingleChannelDataModel() override;

    /*! Appends a reading. \a timestamp is in seconds, \a value in the base unit. A time of exactly 0.0 clears the model
        first. A reading with the time of the newest sample is a repetition and is ignored. Any other is stored, also with a
        NaN or an earlier time. A full buffer drops its oldest sample. */
    void AddData(double timestamp, double value);
    //! Announces the samples that were stored since the last announcement as one insertion of rows.
    void UpdateView();

    void Clear() override;
    /*! Writes the visible samples as CSV: the time with nine decimals and the value in the base unit with six significant
        digits, whatever units() is. Returns false if the file cannot be opened. If it cannot be written to the end, logs a
        warning and returns true, which hosts rely on. */
    bool SaveDataToFile(const QString &fileName) const override;

    //! Returns the number of setPlotWidthHintPoints(), or 256 if that is 0.
    int PlotWidthHintPoints() const override;
    //! Sets how many samples a plot should show at once; 0 means the default. The number is not checked.
    void setPlotWidthHintPoints(int points);

    /*! Returns the name that the host has set, which is empty at first. Neither the table nor the file shows it;
        RVXMultichannelProxyModel::setShowNames() does. */
    QString channelName() const;
    //! Sets the name that channelName() returns, and announces the header as changed.
    void setChannelName(const QString &name);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex
    index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    double doubleData(int row, int column) const override;
    bool isOverrange(int channel, int sample) const override;
    QVariant deviceSpecificData(const QModelIndex &index, int role) const override;

private:
    void addVisibly(double timestamp, double value);

    const RVXBulkPlotData *bulkPlotData() const;

    Q_DECLARE_PRIVATE(RVXSingleChannelDataModel)
    const std::unique_ptr<RVXSingleChannelDataModelPrivate> d_ptr;
};

} // namespace Corvale_Qt
