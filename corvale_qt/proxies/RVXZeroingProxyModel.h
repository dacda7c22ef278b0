// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/proxies/RVXPlotProxyModel.h"

#include <QVector>

namespace Corvale_Qt {

class RVXBulkPlotData;
class RVXPlotHistory;
class RVXZeroingProxyModelPrivate;

/*! Subtracts from every sample of a channel the zero of that channel, which zeroNow() captures.

    Zeros are kept in the base unit, so that they stay correct when the unit of the source changes. They apply to all
    rows, including older ones. Header row and time column pass through. Files contain the samples of the source.

    A reset of the source keeps the zeros unless the number of channels changes. A channel that is appended has no
    zero until the next zeroNow(); any other change of the channels ends the zeros of all of them. isZeroed()
    changes only together with a reset of this model. */
class CORVALE_QT_EXPORT RVXZeroingProxyModel : public RVXPlotProxyModel
{
    Q_OBJECT
    //! What RVXBulkPlotData::of() returns for this class.
    Q_PROPERTY(const Corvale_Qt::RVXBulkPlotData *bulkPlotData READ bulkPlotData
                   DESIGNABLE false STORED false)
    //! What RVXPlotHistory::of() returns for this class.
    Q_PROPERTY(const Corvale_Qt::RVXPlotHistory *plotHistory READ plotHistory
                   DESIGNABLE false STORED false)

public:
    //! Creates a proxy without a source, which subtracts nothing.
    explicit RVXZeroingProxyModel(QObject *parent = nullptr);
    ~RVXZeroingProxyModel() override;

    /*! Takes the newest finite sample of each channel as its zero, in one reset. Does nothing without a source. For a
        channel without samples the zero is what the source returns for row -1: 0 with the models of this library. */
    void zeroNow();
    //! Stops subtracting, in one reset.
    void zeroClear();
    //! Returns whether zeros are being subtracted.
    bool isZeroed() const;
    //! Returns the zero of each channel in its base unit; empty while nothing is subtracted.
    QVector<double> zeros() const;
    /*! Subtracts these zeros, one for each channel in its base unit, in one reset: those of another proxy on the same
        instrument, or what was kept. A channel without a zero in the list keeps its readings. No zeros end the subtraction. */
    void setZeros(const QVector<double> &zeros);

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    double doubleData(int row, int column) const override;

protected:
    void sourceModelReset() override;

private:
    const RVXBulkPlotData *bulkPlotData() const;
    const RVXPlotHistory *plotHistory() const;

    Q_DECLARE_PRIVATE(RVXZeroingProxyModel)
    const std::unique_ptr<RVXZeroingProxyModelPrivate> d_ptr;
};

} // namespace Corvale_Qt
