// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/proxies/RVXPlotProxyModel.h"

namespace Corvale_Qt {

class RVXAveragingProxyModelPrivate;

/*! Smooths every channel of a plot model by an exponential moving average of length N:

        A(1) = x(1),   A(r) = (1 - 1/N) A(r - 1) + (1/N) x(r)

    for sample row r, in the order written, without fused multiply-add. Header row and time column pass through.

    Averages are stored: reading costs no arithmetic, a new row one step per channel, and rows that the source
    drops at its front leave the averages of the others as they are. A sample that changes, comes or goes anywhere
    else renews the averages from there to the newest row, and dataChanged() is emitted for all of them. Files hold
    the raw samples.

    A reading that is not finite is shown as it is in its own row. The average goes on from the last finite one,
    even when that one's row has left the table; where there is none yet, the first finite reading starts it.

    \code
    RVXAveragingProxyModel averaging;
    averaging.setSourceModel(&model);
    averaging.setAveraging(16);
    \endcode */
class CORVALE_QT_EXPORT RVXAveragingProxyModel : public RVXPlotProxyModel
{
    Q_OBJECT

public:
    explicit RVXAveragingProxyModel(QObject *parent = nullptr);
    ~RVXAveragingProxyModel() override;

    //! The length N, 1 at first, which does not average.
    int averaging() const;
    //! Resets; what is not greater than 0 is ignored.
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
    Q_DECLARE_PRIVATE(RVXAveragingProxyModel)
    const std::unique_ptr<RVXAveragingProxyModelPrivate> d_ptr;
};

} // namespace Corvale_Qt
