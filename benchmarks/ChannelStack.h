// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/RVXAveragingProxyModel>
#include <corvale_qt/RVXMultichannelProxyModel>
#include <corvale_qt/RVXSingleChannelDataModel>
#include <corvale_qt/RVXZeroingProxyModel>

#include <memory>
#include <vector>

/*! Channels as an operator has them: a model each, merged, averaged over 4 samples and zeroed. */
class ChannelStack
{
public:
    //! Each channel holds \a samples readings, 1 s apart: a slow wave of its own with noise.
    ChannelStack(int channels, int samples);

    int channels() const { return int(m_models.size()); }
    Corvale_Qt::RVXSingleChannelDataModel &model(int channel) { return *m_models[size_t(channel)]; }
    Corvale_Qt::RVXZeroingProxyModel &top() { return m_zeroing; }

private:
    std::vector<std::unique_ptr<Corvale_Qt::RVXSingleChannelDataModel>> m_models;
    Corvale_Qt::RVXMultichannelProxyModel m_merged;
    Corvale_Qt::RVXAveragingProxyModel m_averaging;
    Corvale_Qt::RVXZeroingProxyModel m_zeroing;
};
