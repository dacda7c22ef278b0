// SPDX-License-Identifier: LGPL-2.1-or-later
// How a scope plot view tells its channels apart: the legend, the raised curve, the names of bars.
#include "corvale_qt/scope/CanvasLook_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"
#include "corvale_qt/scope/ScopeLegend.h"

#include <qwt_plot.h>
#include <qwt_plot_picker.h>

#include <QPointer>
#include <QVBoxLayout>

namespace Corvale_Qt {

void RVXScopePlotViewPrivate::followChannels(const ChannelMoves &now)
{
    const SweepTrigger trigger = q_ptr->trigger();
    const int raised = q_ptr->raisedChannel();
    const QVector<int> limits = context.followChannels(now);
    announceLimitsLater();
    // A slot may delete the view, which is in the middle of a change.
    const bool isOtherTrigger = trigger != q_ptr->trigger();
    const bool isOtherRaised = raised != q_ptr->raisedChannel();
    if (limits.isEmpty() && !isOtherTrigger && !isOtherRaised)
        return;
    QMetaObject::invokeMethod(
        q_ptr,
        [=, view = QPointer<RVXScopePlotView>(q_ptr)] {
            for (const int channel : limits) {
                if (view)
                    Q_EMIT view->channelLimitsChanged(channel);
            }
            if (view && isOtherTrigger)
                Q_EMIT view->triggerChanged();
            if (view && isOtherRaised)
                Q_EMIT view->raisedChannelChanged(view->raisedChannel());
        },
        Qt::QueuedConnection);
}

void RVXScopePlotViewPrivate::followNames()
{
    const QStringList names = context.model.names();
    const ChannelMoves now = channelsFollowed ? nullptr : movesOfNames(context.channelNames, names);
    context.channelNames = names;
    if (now)
        followChannels(now);
}

void RVXScopePlotViewPrivate::showLegend()
{
    if (legend)
        legend->setVisible(isLegendWanted && !plot->isHidden());
}

void RVXScopePlotViewPrivate::removeLegend()
{
    delete legend;
}

bool RVXScopePlotView::isLegendVisible() const
{
    Q_D(const RVXScopePlotView);
    return d->isLegendWanted;
}

void RVXScopePlotView::setLegendVisible(bool visible)
{
    Q_D(RVXScopePlotView);
    if (visible == d->isLegendWanted)
        return;
    d->isLegendWanted = visible;
    if (!d->legend) {
        d->legend = new ScopeLegend(this, viewport());
        d->layout->addWidget(d->legend);
    }
    d->showLegend();
    Q_EMIT legendVisibleChanged(visible);
}

int RVXScopePlotView::raisedChannel() const
{
    Q_D(const RVXScopePlotView);
    return d->context.curves.raised();
}

void RVXScopePlotView::setRaisedChannel(int channel)
{
    Q_D(RVXScopePlotView);
    if (channel < 0 || channel == raisedChannel())
        return;
    d->context.curves.setRaised(channel);
    RequestReplotRefresh();
    Q_EMIT raisedChannelChanged(channel);
}

void RVXScopePlotViewPrivate::showLook(const CanvasLook &look)
{
    const auto pen = [](const QColor &color) {
        return QPen(color, 0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    };
    plot->setCanvasBackground(look.ground);
    grid.setMajorPen(pen(look.majorGrid));
    grid.setMinorPen(pen(look.minorGrid));
    for (QwtPlotPicker *picker : plot->canvas()->findChildren<QwtPlotPicker *>())
        picker->setTrackerPen(QPen(look.text));
    context.histogram.setBrush(look.bars);
    context.histogram.setPen(look.bars.color().darker(130));
}

bool RVXScopePlotView::hasLightCanvas() const
{
    Q_D(const RVXScopePlotView);
    return d->context.model.isOnWhite();
}

void RVXScopePlotView::setLightCanvas(bool light)
{
    Q_D(RVXScopePlotView);
    if (light == hasLightCanvas())
        return;
    d->context.model.setOnWhite(light);
    d->showLook(light ? CanvasLook::onWhite() : CanvasLook::onBlack());
    RequestReplotRefresh();
    Q_EMIT lightCanvasChanged(light);
}

bool RVXScopePlotView::hasBarNames() const
{
    Q_D(const RVXScopePlotView);
    return d->context.hasBarNames;
}

void RVXScopePlotView::setBarNames(bool on)
{
    Q_D(RVXScopePlotView);
    if (on == d->context.hasBarNames)
        return;
    d->context.hasBarNames = on;
    if (d->mode == HistogramMode)
        d->currentMode().enter();
    RequestReplotRefresh();
    Q_EMIT barNamesChanged(on);
}

} // namespace Corvale_Qt
