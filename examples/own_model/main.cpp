// SPDX-License-Identifier: LGPL-2.1-or-later
// Shows memory that the program has anyway, 64 waveforms of a digitizer, by a model that is drawn in place.
#include "../common/RunExample.h"
#include <corvale_qt/RVXAbstractDeviceDataModel>
#include <corvale_qt/RVXBulkPlotData>
#include <corvale_qt/RVXScopePlotView>

#include <cmath>

using namespace Corvale_Qt;
constexpr int channels = 64;
constexpr int samples = 50000;

class Waveforms : public RVXAbstractDeviceDataModel, public RVXBulkPlotData
{
public:
    void acquire()
    {
        beginResetModel();
        for (int i = 0; i < samples; ++i) {
            m_columns[0][i] = i * 1e-6; // seconds
            for (int c = 1; c <= channels; ++c)
                m_columns[c][i] = 0.02 * c + 0.01 * std::sin(2e-3 * i + c); // ampere
        }
        m_xVersion = newXVersion();
        endResetModel();
    }
    // What tables read, and displays that know nothing better. Cells that do not exist are 0.
    double doubleData(int row, int column) const override
    {
        return row == 0 ? column : m_columns.at(column).value(row - 1);
    }
    // What displays read instead: the same numbers by the chunk, or in place.
    const std::type_info &vouchedType() const override { return typeid(Waveforms); }
    bool xRises() const override { return true; }
    quint64 xVersion() const override { return m_xVersion; }
    void read(int column, int firstRow, int count, double *out) const override
    {
        for (int i = 0; i < count; ++i)
            out[i] = Waveforms::doubleData(firstRow + i, column);
    }
    bool spans(int column, int firstRow, int count, Spans &spans) const override
    {
        if (firstRow < 1 || firstRow + count - 1 > samples)
            return false; // the header row, for one
        spans.piece[0] = m_columns.at(column).constData() + firstRow - 1;
        spans.size[0] = count;
        return true;
    }
    int NumberOfChannels() const override { return channels; }
    int PlotWidthHintPoints() const override { return samples; }
    int rowCount(const QModelIndex & = {}) const override { return samples + 1; }
    QModelIndex index(int row, int column, const QModelIndex & = {}) const override
    {
        return hasIndex(row, column) ? createIndex(row, column) : QModelIndex();
    }
    QVariant deviceSpecificData(const QModelIndex &index, int) const override
    {
        return doubleData(index.row(), index.column());
    }
    bool isOverrange(int, int) const override { return false; }
    bool SaveDataToFile(const QString &) const override { return false; }
    void Clear() override { }

private:
    QVector<QVector<double>> m_columns{channels + 1, QVector<double>(samples)};
    quint64 m_xVersion = 0;
};

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    Waveforms model;
    model.acquire();
    RVXScopePlotView view;
    view.setModel(&model);
    view.resize(1000, 600);
    return runExample(view);
}
