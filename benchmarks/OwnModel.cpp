// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 15 compares a frame of a host's own model, which offers the bulk interface, with one of the library's model of the
// same samples.
#include "ChannelStack.h"
#include "Goal.h"
#include "Goals.h"
#include "Points.h"
#include "ScopeChart.h"
#include <corvale_qt/RVXBulkPlotData>
#include <corvale_qt/RVXMultichannelDeviceModel>

using namespace Corvale_Qt;

namespace {

constexpr int channels = 64;

//! A host's model over memory of its own: a piece for each column.
class OwnModel : public RVXAbstractDeviceDataModel, public RVXBulkPlotData
{
public:
    explicit OwnModel(RVXAbstractPlotDataModel &source, int samples)
        : m_samples(samples)
        , m_columns(channels + 1, std::vector<double>(std::size_t(samples)))
        , m_xVersion(newXVersion())
    {
        for (int column = 0; column <= channels; ++column) {
            for (int row = 1; row <= samples; ++row)
                m_columns[std::size_t(column)][std::size_t(row - 1)] =
                    source.doubleData(row, column);
        }
    }

    const std::type_info &vouchedType() const override { return typeid(OwnModel); }
    bool xRises() const override { return true; }
    quint64 xVersion() const override { return m_xVersion; }
    void read(int column, int firstRow, int count, double *out) const override
    {
        for (int i = 0; i < count; ++i)
            out[i] = OwnModel::doubleData(firstRow + i, column);
    }
    bool spans(int column, int firstRow, int count, Spans &spans) const override
    {
        if (firstRow < 1 || firstRow + count - 1 > m_samples)
            return false;
        spans.piece[0] = m_columns[std::size_t(column)].data() + firstRow - 1;
        spans.size[0] = count;
        return true;
    }

    double doubleData(int row, int column) const override
    {
        return row < 1 ? column : m_columns[std::size_t(column)][std::size_t(row - 1)];
    }
    int NumberOfChannels() const override { return channels; }
    int PlotWidthHintPoints() const override { return m_samples; }
    int rowCount(const QModelIndex &parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : m_samples + 1;
    }
    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override
    {
        return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
    }
    QVariant deviceSpecificData(const QModelIndex &, int) const override { return QVariant(); }
    bool isOverrange(int, int) const override { return false; }
    bool SaveDataToFile(const QString &) const override { return false; }
    void Clear() override { }

private:
    int m_samples;
    std::vector<std::vector<double>> m_columns;
    quint64 m_xVersion;
};

//! Copies the samples of \a source to a model of the library.
void feed(RVXMultichannelDeviceModel &model, RVXAbstractPlotDataModel &source, int samples)
{
    std::vector<double> values(channels);
    model.setAutoUpdate(false);
    for (int row = 1; row <= samples; ++row) {
        for (int column = 1; column <= channels; ++column)
            values[std::size_t(column - 1)] = source.doubleData(row, column);
        model.appendRow(source.doubleData(row, 0), values.data());
    }
    model.UpdateView();
    model.setPlotWidthHintPoints(samples);
}

void measure(const QString &name, int samples)
{
    MergedChannels merged(channels, samples);
    RVXMultichannelDeviceModel library(channels);
    feed(library, merged.table(), samples);
    OwnModel own(merged.table(), samples);
    ScopeChart ofLibrary(library, ScopeChart::FullRange);
    ScopeChart ofHost(own, ScopeChart::FullRange);
    const double share = timesFaster(
        [&] {
            ofLibrary.drawFrame();
        },
        [&] {
            ofHost.drawFrame();
        },
        25);
    report({name + ", share of the library's model's time", share, Goal::AtMost, 1.05});
    require(shownCurves(*ofHost.plot()).size() == channels, name + ", all channels are shown");
    report({name + ", pixels other than of the library's model",
            double(differingPixels(ofHost.picture(), ofLibrary.picture())),
            Goal::AtMost,
            0.0});
}

} // namespace

void measureOwnModel()
{
    measure("15a own model 64 x 10k", 10000);
    measure("15b own model 64 x 100k", 100000);
}
