// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 7 measures the cost of a reading with proxies and a view above the model.
#include "Goal.h"
#include "Goals.h"
#include "ScopeChart.h"
#include <corvale_qt/RVXAveragingProxyModel>
#include <corvale_qt/RVXSingleChannelDataModel>
#include <corvale_qt/RVXZeroingProxyModel>

#include <boost/circular_buffer.hpp>

using namespace Corvale_Qt;

namespace {

constexpr int samples = 100000;

void fill(RVXSingleChannelDataModel &model)
{
    model.setAutoUpdate(false);
    for (int i = 1; i <= samples; ++i)
        model.AddData(i, i % 1000);
    model.UpdateView();
    model.setAutoUpdate(true);
}

//! An averaging and a zeroing proxy above a model.
struct Proxies
{
    explicit Proxies(RVXSingleChannelDataModel &model)
    {
        averaging.setSourceModel(&model);
        zeroing.setSourceModel(&averaging);
    }

    RVXAveragingProxyModel averaging;
    RVXZeroingProxyModel zeroing;
};

void measureFullBuffer()
{
    RVXSingleChannelDataModel bare;
    RVXSingleChannelDataModel watched;
    fill(bare);
    fill(watched);
    Proxies proxies(watched);
    ScopeChart view(proxies.zeroing, ScopeChart::FullRange);
    double now = samples;
    const auto add = [&now](RVXSingleChannelDataModel &model) {
        for (int i = 0; i < samples; ++i)
            model.AddData(now += 1.0, i % 1000);
    };
    const double share = timesFaster(
        [&] {
            add(bare);
        },
        [&] {
            add(watched);
        });
    require(bare.rowCount() == watched.rowCount() && watched.rowCount() == samples + 1,
            "7a full buffers");
    require(proxies.zeroing.doubleData(samples, 0) == now, "7a the newest reading");
    report(
        {"7a a reading with 2 proxies and a view, times the bare one", share, Goal::AtMost, 7.5});
}

void measureBatches()
{
    RVXSingleChannelDataModel model;
    model.setAutoUpdate(false);
    Proxies proxies(model);
    boost::circular_buffer<double> times(samples);
    boost::circular_buffer<double> values(samples);
    const double share = timesFaster(
        [&] {
            times.clear();
            values.clear();
            for (int i = 1; i <= samples; ++i) {
                times.push_back(i);
                values.push_back(i % 1000);
            }
        },
        [&] {
            model.Clear();
            for (int i = 1; i <= samples; ++i) {
                model.AddData(i, i % 1000);
                if (i % 1000 == 0)
                    model.UpdateView();
            }
        },
        15);
    require(proxies.zeroing.rowCount() == samples + 1, "7b all rows");
    require(proxies.zeroing.doubleData(samples, 1) == values.back(), "7b the newest value");
    report({"7b a reading told by the thousand, times two ring pushes", share, Goal::AtMost, 2.5});
}

} // namespace

void measureIngest()
{
    measureFullBuffer();
    measureBatches();
}
