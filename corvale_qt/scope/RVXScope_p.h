// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/scope/PlotModeTabs_p.h"
#include "corvale_qt/scope/RVXScope.h"
#include "corvale_qt/scope/YRanges_p.h"

#include "ui_RVXScope.h"

#include <QPointer>

namespace Corvale_Qt {

class RVXScopePrivate
{
public:
    explicit RVXScopePrivate(RVXScope *scope)
        : q_ptr(scope)
        , averaging(new RVXAveragingProxyModel(scope))
        , zeroing(new RVXZeroingProxyModel(scope))
    {
    }

    PlotModeTabs tabs() const { return PlotModeTabs(ui.modeSelect); }
    //! Returns whether the proxies show the host's model, rather than none or a previous one.
    bool hasModel() const { return baseModel && averaging->sourceModel() == baseModel; }

    void setUpButtons();
    void connectControls();

    void showMode(int mode);
    bool offerMode(int mode, bool offer);
    void announceYScale();
    void applyPeriod();
    void showZeroed();
    void showState();
    void reserveBufferSizeWidth();
    bool save(const QString &fileName);
    void retranslate();

    RVXScope *const q_ptr;
    Q_DECLARE_PUBLIC(RVXScope)
    Ui::RVXScope ui{};
    QPointer<QAbstractItemModel> baseModel;
    RVXAveragingProxyModel *const averaging;
    RVXZeroingProxyModel *const zeroing;
    int yScaleMode = PercentRanges;
    int plotMode = RVXScope::StripMode;
    bool saving = false;
    QString lastSaveDirectory;
};

} // namespace Corvale_Qt
