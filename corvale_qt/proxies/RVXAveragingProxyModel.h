// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/proxies/RVXPlotProxyModel.h"

namespace Corvale_Qt {

class RVXBulkPlotData;
class RVXPlotHistory;
class RVXAveragingProxyModelPrivate;

/*! Smooths every channel of a plot model with an exponential moving average of length N:

        A(1) = x(1),   A(r) = (1 - 1/N) A(r - 1) + (1/N) x(r)

    for sample row r, in the order written, without fused multiply-add. Header row and time column pass through.

    Averages are stored: reading one costs no arithmetic, a new row costs one step for each channel, and rows that the
    source drops at its front do not change the averages of the others. A sample that is changed, inserted or
    removed elsewhere renews the averages from there to the newest row, and dataChanged() is emitted for all of
    them. Files contain the samples of the source.

    A reading that is not finite is shown as it is. The average continues from the last finite one, even if the
    row of that one has been dropped. The first finite reading of a channel starts its average.

    \code
    RVXAveragingProxyModel averaging;
    averaging.setSourceModel(&model);
    averaging.setAveraging(16);
    \endcode */
class CORVALE_QT_EXPORT RVXAveragingProxyModel : public RVXPlotProxyModel
{
    Q_OBJECT
    //! What RVXBulkPlotData::of() returns for this class.
    Q_PROPERTY(const Corvale_Qt::RVXBulkPlotData *bulkPlotData READ bulkPlotData
                   DESIGNABLE false STORED false)
    /*! What RVXPlotHistory::of() returns for this class: the source's history at length 1. Averages of rows that are gone
        cannot be told from blocks of readings, so there is none at any other length. */
    Q_PROPERTY(const Corvale_Qt::RVXPlotHistory *plotHistory READ plotHistory
                   DESIGNABLE false STORED false)

public:
    //! Creates a proxy of length 1 without a source.
    explicit RVXAveragingProxyModel(QObject *parent = nullptr);
    ~RVXAveragingProxyModel() override;

    //! Returns the length N in rows. It is 1 by default: no averaging.
    int averaging() const;
    //! Sets the length N, at least 1, and recomputes all averages in one reset. Values below 1 are ignored.
    void setAveraging(int length);

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    void Clear() override;
    double doubleData(int row, int column) const override;

protected:
    void sourceRowsInserted(const QModelIndex &parent, int first, int last) override;
    void sourceRowsRemoved(const QModelIndex &parent, int first, int last) override;
    void sourceModelReset() override;
    void sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight) override;

private:
    const RVXBulkPlotData *bulkPlotData() const;
    const RVXPlotHistory *plotHistory() const;

    Q_DECLARE_PRIVATE(RVXAveragingProxyModel)
    const std::unique_ptr<RVXAveragingProxyModelPrivate> d_ptr;
};

} // namespace Corvale_Qt
