// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/RVXAveragingProxyModel>
#include <corvale_qt/RVXMultichannelProxyModel>
#include <corvale_qt/RVXSingleChannelDataModel>
#include <corvale_qt/RVXZeroingProxyModel>

#include <memory>
#include <vector>

//! Adds \a samples readings at 1 s, 2 s, ... to \a model: a slow wave that differs by channel, with coloured noise.
void feedWave(Corvale_Qt::RVXSingleChannelDataModel &model, int channel, int samples);

//! A model for each channel, merged in one table.
class MergedChannels
{
public:
    MergedChannels(int channels, int samples);

    int channels() const { return int(m_models.size()); }
    Corvale_Qt::RVXSingleChannelDataModel &model(int channel) { return *m_models[size_t(channel)]; }
    Corvale_Qt::RVXMultichannelProxyModel &table() { return m_merged; }
    //! Adds one reading to each channel.
    void tick();

private:
    std::vector<std::unique_ptr<Corvale_Qt::RVXSingleChannelDataModel>> m_models;
    Corvale_Qt::RVXMultichannelProxyModel m_merged;
    double m_now;
};

//! Merged channels that are averaged over 4 samples and zeroed. A plot shows all of the samples at once.
class ChannelStack
{
public:
    //! \a shown is how many of the \a samples a strip chart shows.
    ChannelStack(int channels, int samples, int shown);
    ChannelStack(int channels, int samples)
        : ChannelStack(channels, samples, samples)
    {
    }

    int channels() const { return m_merged.channels(); }
    int shown() const { return m_shown; }
    Corvale_Qt::RVXZeroingProxyModel &top() { return m_zeroing; }
    MergedChannels &merged() { return m_merged; }

private:
    MergedChannels m_merged;
    Corvale_Qt::RVXAveragingProxyModel m_averaging;
    Corvale_Qt::RVXZeroingProxyModel m_zeroing;
    int m_shown;
};
