// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXAbstractDeviceDataModel.h"

namespace Corvale_Qt {

class RVXSingleChannelDataModelPrivate;

/*! The readings of one channel: the newest 100000 samples, each with its time stamp.

    Values are given in the base unit and shown in units(). With autoUpdate() on, which it is at first, views hear
    of each sample; with it off, they hear when the host calls UpdateView(). A table view costs more per sample
    than anything else here, so feed tables the second way, from a timer.

    With autoUpdate() on, the rows are counted before a new one is announced, an order that hosts rely on. A proxy
    that keeps a map of its source's rows, as QSortFilterProxyModel does, then counts the new row twice and shows one
    that is not there. Under such a proxy keep autoUpdate() off and call UpdateView().

    While the buffer is full, a sample that arrives is announced as an insertion at the end with the removal of row
    1 inside it. An index on the last row therefore moves to the newest sample; the others keep theirs.

    \code
    RVXSingleChannelDataModel model;
    model.AddData(0.0, 1.2e-9); // a time of exactly 0 starts a new acquisition
    model.AddData(0.1, 1.3e-9);
    \endcode */
class CORVALE_QT_EXPORT RVXSingleChannelDataModel : public RVXAbstractDeviceDataModel
{
    Q_OBJECT

public:
    explicit RVXSingleChannelDataModel(QObject *parent = nullptr);
    ~RVXSingleChannelDataModel() override;

    /*! Appends a reading. \a timestamp is in seconds: exactly 0.0 clears the model first, the newest one again is
        a repeated reading and is dropped, anything else is stored, NaN and steps back included. */
    void AddData(double timestamp, double value);
    //! Announces what was stored since the last time, in one insertion.
    void UpdateView();

    void Clear() override;
    /*! Writes the visible samples as CSV: time with nine decimals and the value in the base unit with six digits,
        whatever units() is. A file that cannot be opened gives false; one that cannot be written to the end leaves
        a warning on the debug stream and gives true, which hosts rely on. */
    bool SaveDataToFile(const QString &fileName) const override;

    //! The number set here, or 256 while it is 0.
    int PlotWidthHintPoints() const override;
    //! Not checked.
    void setPlotWidthHintPoints(int points);

    //! A name for whoever wants to know it; neither the table nor the file shows it.
    QString channelName() const;
    void setChannelName(const QString &name);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex
    index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    double doubleData(int row, int column) const override;
    bool isOverrange(int channel, int sample) const override;
    QVariant deviceSpecificData(const QModelIndex &index, int role) const override;

private:
    void addVisibly(double timestamp, double value);

    Q_DECLARE_PRIVATE(RVXSingleChannelDataModel)
    const std::unique_ptr<RVXSingleChannelDataModelPrivate> d_ptr;
};

} // namespace Corvale_Qt
