// SPDX-License-Identifier: LGPL-2.1-or-later
#include "ChannelStack.h"

#include <cmath>
#include <random>

using namespace Corvale_Qt;

ChannelStack::ChannelStack(int channels, int samples)
{
    std::mt19937 random(1);
    std::normal_distribution<double> noise(0.0, 0.05);
    for (int channel = 0; channel < channels; ++channel) {
        m_models.push_back(std::make_unique<RVXSingleChannelDataModel>());
        RVXSingleChannelDataModel &model = *m_models.back();
        model.setAutoUpdate(false);
        double coloured = 0.0;
        for (int i = 1; i <= samples; ++i) {
            coloured = 0.9 * coloured + noise(random);
            const double wave = std::sin(6.0 * i / samples + channel);
            model.AddData(i, 0.7 * wave + coloured);
        }
        model.UpdateView();
        model.setAutoUpdate(true);
        m_merged.addSourceModel(&model, 1);
    }
    m_averaging.setSourceModel(&m_merged);
    m_averaging.setAveraging(4);
    m_zeroing.setSourceModel(&m_averaging);
    m_zeroing.zeroNow();
}
