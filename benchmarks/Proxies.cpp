// SPDX-License-Identifier: LGPL-2.1-or-later
// What proxies cost: a sample in a merged table of few and of many channels, and averages computed anew.
#include "Goal.h"
#include "Goals.h"
#include <corvale_qt/RVXAveragingProxyModel>
#include <corvale_qt/RVXMultichannelProxyModel>
#include <corvale_qt/RVXSingleChannelDataModel>

#include <QVector>

#include <cmath>
#include <memory>
#include <vector>

using namespace Corvale_Qt;

namespace {

// Device models with full buffers, side by side in one table.
class MergedChannels
{
public:
    explicit MergedChannels(int channels)
    {
        for (int i = 0; i < channels; ++i) {
            m_models.push_back(std::make_unique<RVXSingleChannelDataModel>());
            RVXSingleChannelDataModel &model = *m_models.back();
            model.setAutoUpdate(false);
            for (unsigned int n = 1; n <= RVXAbstractDeviceDataModel::maxBufferSize; ++n)
                model.AddData(n, std::sin(n * 0.01 + i));
            model.UpdateView();
            model.setAutoUpdate(true);
            merged.addSourceModel(&model, 1);
        }
    }

    //! \a samples in all, in rounds over the channels.
    void tick(int samples)
    {
        for (int i = 0; i < samples; i += int(m_models.size())) {
            m_now += 1.0;
            for (const auto &model : m_models)
                model->AddData(m_now, m_now);
        }
    }

    RVXMultichannelProxyModel merged;

private:
    std::vector<std::unique_ptr<RVXSingleChannelDataModel>> m_models;
    double m_now = 1e6;
};

//! The recurrence cell by cell, into plain memory.
void averageCellByCell(const RVXMultichannelProxyModel &source,
                       int length,
                       QVector<double> &averages)
{
    const double alpha = 1.0 / length;
    const int rows = source.rowCount() - 1;
    averages.resize(rows);
    for (int column = 1; column < source.columnCount(); ++column) {
        averages[0] = source.doubleData(1, column);
        for (int row = 2; row <= rows; ++row)
            averages[row - 1] =
                (1.0 - alpha) * averages[row - 2] + alpha * source.doubleData(row, column);
    }
}

} // namespace

void measureProxies()
{
    constexpr int samples = 256 * 40;
    MergedChannels few(8);
    MergedChannels many(256);
    const double growth = timesFaster(
        [&] {
            few.tick(samples);
        },
        [&] {
            many.tick(samples);
        });
    report({"a sample among 256 channels, against one among 8", growth, Goal::AtMost, 3.0});

    RVXAveragingProxyModel averaging;
    averaging.setSourceModel(&few.merged);
    QVector<double> averages;
    const double faster = timesFaster(
        [&] {
            averaging.setAveraging(16);
        },
        [&] {
            averageCellByCell(few.merged, 16, averages);
        });
    report({"averages anew, against cell by cell", faster, Goal::AtLeast, 1.5});
}
