// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScope_p.h"

#include "corvale_qt/models/RVXAbstractDeviceDataModel.h"
#include "corvale_qt/numerics/ClampedInt_p.h"
#include "corvale_qt/scope/PanelShortcuts_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/YRanges_p.h"
#include "corvale_qt/widgets/CheckedTint_p.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSignalBlocker>

#include <cmath>
#include <utility>

namespace Corvale_Qt {

namespace {

const QLatin1String activeStyle("background-color:#88ff8a;");

QIcon themeIcon(const QString &name)
{
    // If the theme lacks a name, fromTheme() takes an icon whose name begins alike: the button that undoes the zero
    // would look like the one that clears the data. hasThemeIcon() checks the full name.
    if (QIcon::hasThemeIcon(name))
        return QIcon::fromTheme(name);
    return QIcon(":/resources/icons/" + name + ".svg");
}

//! Ignores the wheel over the period, because a change of the period drops all samples.
class WheelFilter : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::Wheel)
            return false;
        event->ignore();
        return true;
    }
};

int roundedToInt(double value)
{
    return clampedToInt(std::round(value));
}

class BusyCursor
{
public:
    BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY(BusyCursor)
};

} // namespace

void RVXScopePrivate::setUpButtons()
{
    ui.saveButton->setIcon(themeIcon("document-save"));
    ui.clearButton->setIcon(themeIcon("edit-clear"));
    ui.confButton->setIcon(themeIcon("configure"));
    ui.zeroButton->setIcon(themeIcon("align-vertical-bottom-out"));
    ui.clearZeroButton->setIcon(themeIcon("edit-clear-locationbar-rtl"));
    // The background is the same in every palette, so the text must be too.
    ui.stateLabel->setStyleSheet(QString(activeStyle) + "color:black;");
    ui.stateLabel->setMargin(3);
    QPalette palette = ui.clearZeroButton->palette();
    palette.setColor(QPalette::ButtonText, Qt::black);
    ui.clearZeroButton->setPalette(palette);
    for (QAbstractButton *button : {ui.positiveOnlyButton, ui.derivativeButton})
        new CheckedTint(button);
    ui.comboBox_period->installEventFilter(new WheelFilter(ui.comboBox_period));
    ui.derivativeButton->hide();
    ui.position_frame->hide();
    reserveBufferSizeWidth();
}

void RVXScopePrivate::connectControls()
{
    Q_Q(RVXScope);
    q->connect(ui.scaleYCombo, SIGNAL(currentIndexChanged(int)), SLOT(SetYScale(int)));
    q->connect(ui.averagingCombo, SIGNAL(currentIndexChanged(int)), SLOT(SetAveragingMode(int)));
    q->connect(ui.zeroButton, SIGNAL(clicked()), SLOT(ZeroNow()));
    q->connect(ui.clearZeroButton, SIGNAL(clicked()), SLOT(ZeroClear()));
    q->connect(ui.modeSelect, SIGNAL(currentChanged(int)), SLOT(SetPlotMode(int)));
    q->connect(ui.clearButton, SIGNAL(clicked()), SLOT(Clear()));
    q->connect(ui.saveButton, SIGNAL(clicked()), SLOT(SaveDataToFile()));
    QObject::connect(ui.positiveOnlyButton,
                     SIGNAL(toggled(bool)),
                     ui.plotView,
                     SLOT(SetPositiveOnly(bool)));
    QObject::connect(ui.positiveOnlyButton, &QAbstractButton::toggled, q, [this] {
        announceYScale();
    });
    // While a mode without a tab is shown, a click on the current tab returns to the mode of that tab.
    QObject::connect(ui.modeSelect, &QTabBar::tabBarClicked, q, [this](int index) {
        if (index >= 0 && index == ui.modeSelect->currentIndex())
            q_func()->SetPlotMode(index);
    });
    QObject::connect(ui.confButton, &QAbstractButton::toggled, q, [this](bool shown) {
        ui.configFrame->setVisible(shown);
        showState();
        announceChanges();
    });
    QObject::connect(zeroing, &QAbstractItemModel::modelReset, q, [this] {
        showZeroed();
        followAveraging();
        announceChanges();
    });
    auto *shortcuts = new PanelShortcuts(q);
    shortcuts->add(Qt::Key_S, ui.saveButton);
    shortcuts->add(Qt::Key_L, ui.clearButton);
    shortcuts->add(Qt::Key_0, ui.zeroButton);
}

//! Hears of what a host changes on the view itself, and of what the controls have changed there.
void RVXScopePrivate::connectView()
{
    Q_Q(RVXScope);
    RVXScopePlotView *const view = ui.plotView;
    const auto on = [&](auto signal, void (RVXScopePrivate::*follow)()) {
        QObject::connect(view, signal, q, [this, follow] {
            (this->*follow)();
            announceChanges();
        });
    };
    on(&RVXScopePlotView::plotModeChanged, &RVXScopePrivate::followMode);
    on(&RVXScopePlotView::yScaleModeChanged, &RVXScopePrivate::followYScale);
    on(&RVXScopePlotView::positiveOnlyChanged, &RVXScopePrivate::followPositiveOnly);
    const auto announce = [this] {
        announceChanges();
    };
    QObject::connect(view, &RVXScopePlotView::rangeChanged, q, announce);
    QObject::connect(view, &RVXScopePlotView::timeSpanChanged, q, announce);
    QObject::connect(view, &RVXScopePlotView::sampleSpanChanged, q, announce);
    QObject::connect(view, &RVXScopePlotView::markersEnabledChanged, q, announce);
    // The state has it among the choices of the view.
    QObject::connect(view,
                     &RVXScopePlotView::beginAtFirstChanged,
                     q,
                     &RVXScope::beginAtFirstChanged);
}

PanelState RVXScopePrivate::state() const
{
    PanelState state;
    state.plotMode = ui.plotView->plotMode();
    state.tabs = tabs().flags();
    state.yScaleMode = yScaleMode;
    state.yScaleIndex = ui.scaleYCombo->currentIndex();
    state.range = ui.plotView->range();
    state.positiveOnly = ui.plotView->isPositiveOnly();
    state.averaging = averaging->averaging();
    state.zeroed = zeroing->isZeroed();
    state.period = periodInMilliseconds(ui.comboBox_period->currentIndex());
    state.timeSpan = ui.plotView->timeSpan();
    state.sampleSpan = ui.plotView->sampleSpan();
    state.markersEnabled = ui.plotView->areMarkersEnabled();
    state.controlsVisible = ui.confButton->isChecked();
    state.view = ViewChoices::of(*ui.plotView);
    return state;
}

void RVXScopePrivate::apply(const PanelState &wanted)
{
    Q_Q(RVXScope);
    const PanelChange change(*this);
    q->setPlotTabs(RVXScope::PlotTabs(wanted.tabs));
    q->setPlotMode(RVXScope::PlotMode(wanted.plotMode));
    if (wanted.yScaleMode != yScaleMode)
        setYScaleList(wanted.yScaleMode);
    // In the list from 0 the button is hidden, and keeps its state for the other lists.
    if (wanted.yScaleMode != RVXScope::AbsolutePositiveRanges)
        ui.positiveOnlyButton->setChecked(wanted.positiveOnly);
    ui.plotView->SetPositiveOnly(wanted.positiveOnly);
    q->setYScaleIndex(wanted.yScaleIndex);
    if (wanted.range != ui.plotView->range()) // a range that was never set stays so
        q->SetRange(wanted.range.first, wanted.range.second);
    q->setAveraging(wanted.averaging);
    q->setPeriod(wanted.period);
    q->setTimeSpan(wanted.timeSpan);
    q->setSampleSpan(wanted.sampleSpan);
    q->setMarkersEnabled(wanted.markersEnabled);
    q->setControlsVisible(wanted.controlsVisible);
    wanted.view.applyTo(*ui.plotView);
}

template<typename Value, typename Argument>
void RVXScopePrivate::announceChange(Value PanelState::*field, void (RVXScope::*changed)(Argument))
{
    // The value is read anew for each signal: a slot may have changed it again.
    const Value value = state().*field;
    if (std::exchange(announced.*field, value) != value)
        (q_ptr->*changed)(Argument(value));
}

void RVXScopePrivate::announceChanges()
{
    if (changesUnderway > 0)
        return;
    const QPointer<RVXScope> panel(q_ptr); // a slot may delete it
    const auto tell = [&](auto field, auto changed) {
        if (panel)
            announceChange(field, changed);
    };
    tell(&PanelState::plotMode, &RVXScope::plotModeChanged);
    tell(&PanelState::tabs, &RVXScope::plotTabsChanged);
    tell(&PanelState::yScaleMode, &RVXScope::yScaleModeChanged);
    tell(&PanelState::yScaleIndex, &RVXScope::yScaleIndexChanged);
    tell(&PanelState::positiveOnly, &RVXScope::positiveOnlyChanged);
    tell(&PanelState::averaging, &RVXScope::averagingChanged);
    tell(&PanelState::zeroed, &RVXScope::zeroedChanged);
    tell(&PanelState::period, &RVXScope::periodChanged);
    tell(&PanelState::timeSpan, &RVXScope::timeSpanChanged);
    tell(&PanelState::sampleSpan, &RVXScope::sampleSpanChanged);
    tell(&PanelState::markersEnabled, &RVXScope::markersEnabledChanged);
    tell(&PanelState::controlsVisible, &RVXScope::controlsVisibleChanged);
    if (!panel)
        return;
    const auto range = ui.plotView->range();
    if (std::exchange(announced.range, range) != range)
        Q_EMIT q_ptr->rangeChanged(range.first, range.second);
}

//! Selects the tab of the mode that the view shows, if there is one.
void RVXScopePrivate::followMode()
{
    const int tab = tabs().indexOf(ui.plotView->plotMode());
    if (tab >= 0)
        ui.modeSelect->setCurrentIndex(tab);
}

//! Selects the percentage that the view shows. The other lists have no entry for a scale that a host sets on the view.
void RVXScopePrivate::followYScale()
{
    const int mode = ui.plotView->yScaleMode();
    if (yScaleMode != RVXScope::PercentRanges || mode < 0 || mode >= ui.scaleYCombo->count())
        return;
    const QSignalBlocker blocker(ui.scaleYCombo);
    ui.scaleYCombo->setCurrentIndex(mode);
    ui.positiveOnlyButton->setEnabled(
        yRangeChoice(yScaleMode, mode, ui.scaleYCombo->currentText()).canBePositiveOnly);
}

void RVXScopePrivate::followPositiveOnly()
{
    if (!ui.positiveOnlyButton->isHidden())
        ui.positiveOnlyButton->setChecked(ui.plotView->isPositiveOnly());
}

//! Selects the length of the proxy, which a host may have set; no entry for a length that the list lacks.
void RVXScopePrivate::followAveraging()
{
    const QSignalBlocker blocker(ui.averagingCombo);
    ui.averagingCombo->setCurrentIndex(averagingEntry(averaging->averaging()));
    showState();
}

//! Adds or removes the tab of a mode. Returns whether this changed the tabs.
bool RVXScopePrivate::offerMode(int mode, bool offer)
{
    if (offer == (tabs().indexOf(mode) >= 0))
        return false;
    if (offer)
        tabs().add(mode);
    else
        tabs().remove(mode);
    announceChanges();
    return true;
}

void RVXScopePrivate::setYScaleList(int list)
{
    const PanelChange change(*this);
    yScaleMode = list;
    {
        const QSignalBlocker blocker(ui.scaleYCombo);
        ui.scaleYCombo->clear();
        ui.scaleYCombo->addItems(yRangeTexts(list));
    }
    const bool hasButton = list == RVXScope::PercentRanges || list == RVXScope::AbsoluteRanges;
    ui.positiveOnlyButton->setVisible(hasButton);
    if (hasButton)
        ui.plotView->SetPositiveOnly(ui.positiveOnlyButton->isChecked());
    else if (list == RVXScope::AbsolutePositiveRanges)
        ui.plotView->SetPositiveOnly(true);
    q_ptr->SetYScale(0);
}

void RVXScopePrivate::announceYScale()
{
    Q_Q(RVXScope);
    const int mode = ui.plotView->yScaleMode();
    const bool fixed = mode >= RVXScopePlotView::FullRange && mode <= RVXScopePlotView::Percent0_01;
    const auto range = ui.plotView->range();
    Q_EMIT q->yScaleChanged(fixed, roundedToInt(range.first), roundedToInt(range.second));
}

void RVXScopePrivate::applyPeriod()
{
    if (auto *device = dynamic_cast<RVXAbstractDeviceDataModel *>(baseModel.data()))
        device->setPeriod(periodInMilliseconds(ui.comboBox_period->currentIndex()));
}

//! Shows whether the proxy subtracts a zero; the host may have changed that too.
void RVXScopePrivate::showZeroed()
{
    Q_Q(RVXScope);
    const bool zeroed = zeroing->isZeroed();
    if (zeroed == ui.clearZeroButton->isEnabledTo(q))
        return;
    if (!zeroed && ui.clearZeroButton->hasFocus())
        ui.zeroButton->setFocus(); // disabling a button moves its focus to an arbitrary control
    ui.clearZeroButton->setEnabled(zeroed);
    ui.clearZeroButton->setStyleSheet(zeroed ? activeStyle : QString());
    showState();
}

//! Returns the entry of the average, or a text like it for a length that the list lacks.
QString RVXScopePrivate::averagingText() const
{
    return ui.averagingCombo->currentIndex() >= 0
        ? ui.averagingCombo->currentText()
        : RVXScope::tr("%1x Avg").arg(averaging->averaging());
}

//! Shows how the data is processed while the controls that show it are hidden.
void RVXScopePrivate::showState()
{
    QStringList states;
    if (zeroing->isZeroed())
        states << RVXScope::tr("Zeroed");
    if (averaging->averaging() > 1)
        states << averagingText();
    ui.stateLabel->setText(states.join(", "));
    ui.stateLabel->setVisible(!states.isEmpty() && ui.configFrame->isHidden());
}

//! Makes the label wide enough for the largest number, so that the row does not move while the number grows.
void RVXScopePrivate::reserveBufferSizeWidth()
{
    const QString widest =
        RVXScopePlotView::tr("%1 Samples").arg(RVXAbstractDeviceDataModel::maxBufferSize);
    bufferSizeRoom->reserve(ui.bufferSizeLabel->fontMetrics().horizontalAdvance(widest));
}

bool RVXScopePrivate::save(const QString &fileName)
{
    const BusyCursor cursor;
    return averaging->SaveDataToFile(fileName);
}

void RVXScopePrivate::retranslate()
{
    Q_Q(RVXScope);
    // retranslateUi() resets the title and the number of samples to those of the form.
    const QString title = q->windowTitle();
    ui.retranslateUi(q);
    q->setWindowTitle(title);
    ui.plotView->SetBufferSizeLabel(ui.bufferSizeLabel);
    tabs().retranslate();
    const QStringList texts = yRangeTexts(yScaleMode);
    for (int i = 0; i < texts.size(); ++i)
        ui.scaleYCombo->setItemText(i, texts.at(i));
    reserveBufferSizeWidth();
    showState();
}

} // namespace Corvale_Qt
