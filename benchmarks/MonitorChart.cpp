// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 14 compares a frame of the monitor's strip chart, one model of 64 channels under the proxies of a scope, with one of
// the same samples in 64 merged models, as in goal 1.
#include "ChannelStack.h"
#include "Goal.h"
#include "Goals.h"
#include "Points.h"
#include "ScopeChart.h"
#include "monitor/model/MultichannelDeviceModel.h"

using namespace Corvale_Qt;

namespace {

constexpr int channels = 64;
constexpr int samples = 60 * 1000; // 60 s at 1 kHz

//! Copies the samples of \a merged to \a model, as if a source had delivered them in blocks.
void feed(Monitor::MultichannelDeviceModel &model, MergedChannels &merged)
{
    Monitor::StreamHeader header;
    header.channels =
        Monitor::StreamHeader::defaultChannels(Monitor::StreamKind::Channels, channels);
    for (Monitor::Channel &channel : header.channels)
        channel.unit = QStringLiteral("A");
    model.startStream(header);
    constexpr int blockRows = 40;
    std::vector<double> values(channels);
    for (int row = 1; row <= samples;) {
        Monitor::ReadingBlock block(channels);
        for (int i = 0; i < blockRows && row <= samples; ++i, ++row) {
            for (int c = 0; c < channels; ++c)
                values[std::size_t(c)] = merged.model(c).doubleData(row, 1);
            block.append(merged.model(0).doubleData(row, 0), values.data());
        }
        model.addReadings(block);
    }
}

} // namespace

void measureMonitorChart()
{
    ChannelStack stack(channels, samples);
    Monitor::MultichannelDeviceModel model;
    feed(model, stack.merged());
    model.setPlotWidthHintPoints(samples);
    RVXAveragingProxyModel averaging;
    RVXZeroingProxyModel zeroing;
    averaging.setSourceModel(&model);
    averaging.setAveraging(4);
    zeroing.setSourceModel(&averaging);
    zeroing.zeroNow();
    ScopeChart merged(stack.top(), ScopeChart::FullRange);
    ScopeChart ofMonitor(zeroing, ScopeChart::FullRange);
    const double share = timesFaster(
        [&] {
            merged.drawFrame();
        },
        [&] {
            ofMonitor.drawFrame();
        },
        15);
    report(
        {"14 monitor's chart 64 x 60k, share of merged models' time", share, Goal::AtMost, 1.15});
    require(shownCurves(*ofMonitor.plot()).size() == channels, "14 all channels are shown");
    report({"14 pixels other than of merged models",
            double(differingPixels(ofMonitor.picture(), merged.picture())),
            Goal::AtMost,
            0.0});
}
