// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/proxies/RVXPlotProxyModel.h"

namespace Corvale_Qt {

class RVXZeroingProxyModelPrivate;

/*! Subtracts from every sample of a channel the channel's zero, which is captured on demand.

    Zeros are kept in the base unit, so that they stay right when the source's unit changes. They apply to all
    rows, older ones too. Header row and time column pass through. Files hold the samples as they came.

    A reset of the source keeps the zeros unless the number of channels changes. A channel that is appended has no
    zero of its own until the next zeroNow(); any other change of the channels ends the zero of all of them. Every
    reset of this model, and nothing else, may change isZeroed(). */
class CORVALE_QT_EXPORT RVXZeroingProxyModel : public RVXPlotProxyModel
{
    Q_OBJECT

public:
    explicit RVXZeroingProxyModel(QObject *parent = nullptr);
    ~RVXZeroingProxyModel() override;

    /*! Takes the newest finite sample of each channel as its zero, in one reset; does nothing without a source. Where
        there is no sample yet the zero is what the source answers for row -1, 0 for the models of this library. */
    void zeroNow();
    //! Shows the source's numbers again, in one reset.
    void zeroClear();
    //! Whether zeros are being subtracted.
    bool isZeroed() const;

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    double doubleData(int row, int column) const override;

protected:
    void sourceModelReset() override;

private:
    Q_DECLARE_PRIVATE(RVXZeroingProxyModel)
    const std::unique_ptr<RVXZeroingProxyModelPrivate> d_ptr;
};

} // namespace Corvale_Qt
