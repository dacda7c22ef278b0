// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/LegendModel_p.h"
#include "corvale_qt/scope/PlotModeTabs_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/ScopeSpeech_p.h"

#include <QStringList>

namespace Corvale_Qt {

namespace {

//! A list of more values is more than a person can follow.
constexpr int mostChannels = 16;

} // namespace

ChartWords wordsOf(const RVXScopePlotView &view)
{
    LegendModel channels;
    channels.setSource(view.model());
    channels.setSiPrefix(view.hasSiPrefix());
    channels.setValueUnit(view.valueUnit());
    channels.setAxes([&view](int channel) {
        return view.channelAxis(channel);
    });
    channels.setLimits({nullptr, [&view](int channel) {
                            return view.limitState(channel);
                        }});
    QStringList values;
    int shown = 0;
    for (int row = 0; row < channels.rowCount(); ++row) {
        const QModelIndex channel = channels.index(row);
        if (channel.data(Qt::CheckStateRole).toInt() == Qt::Unchecked)
            continue;
        if (++shown <= mostChannels)
            values.append(channel.data(Qt::AccessibleTextRole).toString());
    }
    if (shown > mostChannels)
        values.append(RVXScopePlotView::tr("and %n more", nullptr, shown - mostChannels));
    const QString mode = PlotModeTabs::titleOf(view.plotMode());
    return {view.isHeld() ? RVXScopePlotView::tr("%1, held").arg(mode)
                          : RVXScopePlotView::tr("%1, live").arg(mode),
            values.join(QStringLiteral("; "))};
}

} // namespace Corvale_Qt
