// SPDX-License-Identifier: LGPL-2.1-or-later
// Shows a strip detector through a model that the host implements: a bar for the newest reading of each strip, and the
// position and width of the beam from the centre of gravity and from a Gaussian fit.

#include "../common/RunExample.h"
#include <corvale_qt/RVXAbstractDeviceDataModel>
#include <corvale_qt/RVXScopePlotView>
#include <corvale_qt/units/Units.h>

#include <cmath>
#include <random>

using namespace Corvale_Qt;

namespace {

constexpr int kStrips = 32;

//! Holds the newest frame of the detector, which is all that a histogram needs.
class StripModel : public RVXAbstractDeviceDataModel
{
public:
    void setFrame(double time, const QVector<double> &currents)
    {
        const bool first = m_currents.isEmpty();
        if (first)
            beginInsertRows(QModelIndex(), 1, 1);
        m_time = time;
        m_currents = currents;
        if (first)
            endInsertRows();
        else
            Q_EMIT dataChanged(index(1, 0), index(1, kStrips));
    }

    int NumberOfChannels() const override { return kStrips; }
    int rowCount(const QModelIndex &parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : 1 + !m_currents.isEmpty();
    }
    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override
    {
        return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
    }
    double doubleData(int row, int column) const override
    {
        if (row == 0 || column == 0)
            return row == 0 ? column : m_time;
        return units()->scale(m_currents.value(column - 1));
    }
    QVariant deviceSpecificData(const QModelIndex &index, int) const override
    {
        return doubleData(index.row(), index.column());
    }
    bool isOverrange(int, int) const override { return false; }
    bool SaveDataToFile(const QString &) const override { return false; }
    void Clear() override { }

private:
    double m_time = 0.0;
    QVector<double> m_currents;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const Units::nA nA;
    StripModel model;
    model.SetUnits(&nA);

    RVXScopePlotView view;
    view.setModel(&model);
    view.SetPlotMode(RVXScopePlotView::HistogramMode);
    // Bars above 10 % of the largest, then: window, smallest peak and sum in ampere, weights, window of the residual noise.
    view.enableHistogramItem(RVXScopePlotView::CenterOfGravityItem, 1, {0, 0.1}, true);
    view.enableHistogramItem(RVXScopePlotView::RegressionItem,
                             1,
                             {0.1, 10, 1e-11, 1e-10, 2, 5},
                             true);

    // A beam of 10 nA that wanders by two strips, with some noise.
    std::mt19937 generator(1);
    std::normal_distribution<double> noise(0.0, 5e-11);
    double time = 0.0;
    QTimer detector;
    QObject::connect(&detector, &QTimer::timeout, &model, [&] {
        time += 0.1;
        const double position = 15.0 + 2.0 * std::sin(time);
        QVector<double> currents;
        for (int i = 0; i < kStrips; ++i)
            currents << 1e-8 * std::exp(-0.5 * std::pow((i - position) / 2.5, 2))
                    + noise(generator);
        model.setFrame(time, currents);
    });
    detector.start(100);

    view.resize(900, 600);
    return runExample(view);
}
