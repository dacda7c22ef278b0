// SPDX-License-Identifier: LGPL-2.1-or-later
// What a host reads and sets on a scope panel. The controls of the panel and the view hold the values.
#include "corvale_qt/scope/PlotModes_p.h"
#include "corvale_qt/scope/RVXScope.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXScope_p.h"

#include <QSignalBlocker>

#include <optional>

namespace Corvale_Qt {

void RVXScope::setPlotMode(PlotMode mode)
{
    Q_D(RVXScope);
    const PanelChange change(*d);
    d->ui.plotView->setPlotMode(RVXScopePlotView::PlotMode(mode));
    d->followMode();
}

RVXScope::PlotMode RVXScope::plotMode() const
{
    Q_D(const RVXScope);
    return PlotMode(d->ui.plotView->plotMode());
}

RVXScope::PlotTabs RVXScope::plotTabs() const
{
    Q_D(const RVXScope);
    return PlotTabs(d->tabs().flags());
}

void RVXScope::setPlotTabs(PlotTabs tabs)
{
    Q_D(RVXScope);
    const PanelChange change(*d);
    PlotModeTabs present = d->tabs();
    {
        // The first tab of an empty bar is selected, but the mode stays.
        const QSignalBlocker blocker(d->ui.modeSelect);
        for (int mode = 0; mode < kPlotModes; ++mode) {
            if (tabs.testFlag(PlotTab(1 << mode)) && present.indexOf(mode) < 0)
                present.insert(mode);
        }
        d->followMode();
    }
    for (int mode = 0; mode < kPlotModes; ++mode) {
        if (!tabs.testFlag(PlotTab(1 << mode)))
            present.remove(mode);
    }
}

void RVXScope::setYScaleMode(YScaleMode mode)
{
    Q_D(RVXScope);
    if (mode >= PercentRanges && mode <= AbsolutePositiveRanges)
        d->setYScaleList(mode);
}

RVXScope::YScaleMode RVXScope::yScaleMode() const
{
    Q_D(const RVXScope);
    return YScaleMode(d->yScaleMode);
}

int RVXScope::yScaleIndex() const
{
    Q_D(const RVXScope);
    return d->ui.scaleYCombo->currentIndex();
}

void RVXScope::setYScaleIndex(int index)
{
    Q_D(RVXScope);
    const PanelChange change(*d);
    if (index >= 0 && index < d->ui.scaleYCombo->count())
        d->ui.scaleYCombo->setCurrentIndex(index);
}

double RVXScope::yMinimum() const
{
    Q_D(const RVXScope);
    return d->ui.plotView->yMinimum();
}

double RVXScope::yMaximum() const
{
    Q_D(const RVXScope);
    return d->ui.plotView->yMaximum();
}

void RVXScope::setYMinimum(double minimum)
{
    SetRange(minimum, yMaximum());
}

void RVXScope::setYMaximum(double maximum)
{
    SetRange(yMinimum(), maximum);
}

bool RVXScope::isPositiveOnly() const
{
    Q_D(const RVXScope);
    return d->ui.plotView->isPositiveOnly();
}

int RVXScope::averaging() const
{
    Q_D(const RVXScope);
    return d->averaging->averaging();
}

void RVXScope::setAveraging(int length)
{
    Q_D(RVXScope);
    const PanelChange change(*d);
    const int entry = averagingEntry(length);
    if (entry >= 0)
        d->ui.averagingCombo->setCurrentIndex(entry);
}

bool RVXScope::isZeroed() const
{
    Q_D(const RVXScope);
    return d->zeroing->isZeroed();
}

int RVXScope::period() const
{
    Q_D(const RVXScope);
    return periodInMilliseconds(d->ui.comboBox_period->currentIndex());
}

void RVXScope::setPeriod(int milliseconds)
{
    Q_D(RVXScope);
    const int entry = periodEntry(milliseconds);
    if (entry < 0 || entry == d->ui.comboBox_period->currentIndex())
        return;
    const PanelChange change(*d);
    const QSignalBlocker blocker(d->ui.comboBox_period); // its signal clears the samples
    d->ui.comboBox_period->setCurrentIndex(entry);
    d->applyPeriod();
}

double RVXScope::timeSpan() const
{
    Q_D(const RVXScope);
    return d->ui.plotView->timeSpan();
}

void RVXScope::setTimeSpan(double span)
{
    Q_D(RVXScope);
    const PanelChange change(*d);
    d->ui.plotView->setTimeSpan(span);
}

int RVXScope::sampleSpan() const
{
    Q_D(const RVXScope);
    return d->ui.plotView->sampleSpan();
}

void RVXScope::setSampleSpan(int samples)
{
    Q_D(RVXScope);
    const PanelChange change(*d);
    d->ui.plotView->setSampleSpan(samples);
}

bool RVXScope::beginsAtFirst() const
{
    Q_D(const RVXScope);
    return d->ui.plotView->beginsAtFirst();
}

void RVXScope::setBeginAtFirst(bool begin)
{
    Q_D(RVXScope);
    d->ui.plotView->setBeginAtFirst(begin);
}

bool RVXScope::areMarkersEnabled() const
{
    Q_D(const RVXScope);
    return d->ui.plotView->areMarkersEnabled();
}

void RVXScope::setMarkersEnabled(bool enable)
{
    Q_D(RVXScope);
    const PanelChange change(*d);
    d->ui.plotView->enablePlotMarker(enable);
}

bool RVXScope::areControlsVisible() const
{
    Q_D(const RVXScope);
    return d->ui.confButton->isChecked();
}

void RVXScope::setControlsVisible(bool visible)
{
    Q_D(RVXScope);
    const PanelChange change(*d);
    d->ui.confButton->setChecked(visible);
}

bool RVXScope::isDerivativeVisible() const
{
    Q_D(const RVXScope);
    return !d->ui.derivativeButton->isHidden();
}

void RVXScope::setDerivativeVisible(bool visible)
{
    Q_D(RVXScope);
    d->ui.derivativeButton->setVisible(visible);
}

QByteArray RVXScope::saveState(int version) const
{
    Q_D(const RVXScope);
    return d->state().toBytes(version);
}

bool RVXScope::restoreState(const QByteArray &state, int version)
{
    Q_D(RVXScope);
    const std::optional<PanelState> wanted = PanelState::fromBytes(state, version);
    if (!wanted)
        return false;
    d->apply(*wanted);
    return true;
}

void RVXScope::zeroNow()
{
    ZeroNow();
}

void RVXScope::zeroClear()
{
    ZeroClear();
}

void RVXScope::clear()
{
    Q_D(RVXScope);
    d->clearSamples();
}

bool RVXScope::confirmsClear() const
{
    Q_D(const RVXScope);
    return d->confirmClear;
}

void RVXScope::setConfirmClear(bool confirm)
{
    Q_D(RVXScope);
    d->confirmClear = confirm;
}

bool RVXScope::saveDataToFile(const QString &path)
{
    Q_D(RVXScope);
    return !path.trimmed().isEmpty() && d->hasModel() && d->save(path);
}

} // namespace Corvale_Qt
