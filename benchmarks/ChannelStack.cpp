// SPDX-License-Identifier: LGPL-2.1-or-later
#include "ChannelStack.h"

#include <cmath>
#include <random>

using namespace Corvale_Qt;

void feedWave(RVXSingleChannelDataModel &model, int channel, int samples)
{
    std::mt19937 random(unsigned(channel) + 1);
    std::normal_distribution<double> noise(0.0, 0.05);
    model.setAutoUpdate(false);
    double colored = 0.0;
    for (int i = 1; i <= samples; ++i) {
        colored = 0.9 * colored + noise(random);
        model.AddData(i, 0.7 * std::sin(6.0 * i / samples + channel) + colored);
    }
    model.UpdateView();
    model.setAutoUpdate(true);
}

MergedChannels::MergedChannels(int channels, int samples)
    : m_now(samples)
{
    for (int channel = 0; channel < channels; ++channel) {
        m_models.push_back(std::make_unique<RVXSingleChannelDataModel>());
        feedWave(*m_models.back(), channel, samples);
        m_merged.addSourceModel(m_models.back().get(), 1);
    }
}

void MergedChannels::tick()
{
    m_now += 1.0;
    for (const auto &model : m_models)
        model->AddData(m_now, std::sin(m_now));
}

ChannelStack::ChannelStack(int channels, int samples, int shown)
    : m_merged(channels, samples)
    , m_shown(shown)
{
    m_merged.model(0).setPlotWidthHintPoints(shown);
    m_averaging.setSourceModel(&m_merged.table());
    m_averaging.setAveraging(4);
    m_zeroing.setSourceModel(&m_averaging);
    m_zeroing.zeroNow();
}
