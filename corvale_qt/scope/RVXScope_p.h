// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/scope/PanelState_p.h"
#include "corvale_qt/scope/PlotModeTabs_p.h"
#include "corvale_qt/scope/RVXScope.h"
#include "corvale_qt/widgets/LabelRoom_p.h"

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
    void connectView();
    void connectNavigation();

    //! Returns what the controls, the view and the proxies are set to.
    PanelState state() const;
    void apply(const PanelState &wanted);
    //! Emits the signals of the properties that have changed since they were announced last.
    void announceChanges();
    template<typename Value, typename Argument>
    void announceChange(Value PanelState::*field, void (RVXScope::*changed)(Argument));

    void followMode();
    void followYScale();
    void followPositiveOnly();
    void followAveraging();
    bool offerMode(int mode, bool offer);
    void setYScaleList(int list);
    void announceYScale();
    void applyPeriod();
    void showZeroed();
    QString averagingText() const;
    void showState();
    void reserveBufferSizeWidth();
    bool save(const QString &fileName);

    // Clearing, and asking before it, are in ClearQuestion.cpp.
    bool hasSamples() const;
    bool mayClear(const QString &title, const QString &text);
    void clearSamples();
    void choosePeriod(int index);

    void retranslate();

    RVXScope *const q_ptr;
    Q_DECLARE_PUBLIC(RVXScope)
    Ui::RVXScope ui{};
    LabelRoom *bufferSizeRoom = nullptr; //!< a widget of the form
    QPointer<QAbstractItemModel> baseModel;
    RVXAveragingProxyModel *const averaging;
    RVXZeroingProxyModel *const zeroing;
    int yScaleMode = RVXScope::PercentRanges;
    PanelState announced;
    int changesUnderway = 0; //!< they are announced when all of them are made
    bool saving = false;
    bool confirmClear = false;
    QString lastSaveDirectory;
};

/*! A change of several settings of a panel. The signals come when the outermost change is complete, because a slot may
    delete the panel. */
class PanelChange
{
public:
    explicit PanelChange(RVXScopePrivate &d)
        : m_panel(d.q_ptr)
        , m_d(d)
    {
        ++m_d.changesUnderway;
    }
    ~PanelChange()
    {
        if (m_panel && --m_d.changesUnderway == 0)
            m_d.announceChanges();
    }
    Q_DISABLE_COPY(PanelChange)

private:
    const QPointer<RVXScope> m_panel;
    RVXScopePrivate &m_d;
};

} // namespace Corvale_Qt
