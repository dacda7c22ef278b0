// SPDX-License-Identifier: LGPL-2.1-or-later
#include "designer/Previews.h"

#include <corvale_qt/RVXLogBrowser>
#include <corvale_qt/RVXPositionErrorPlot>
#include <corvale_qt/RVXPositionPlot>
#include <corvale_qt/RVXScope>
#include <corvale_qt/RVXScopePlotView>
#include <corvale_qt/RVXSingleChannelDataModel>
#include <corvale_qt/RVXSpectrogram>
#include <corvale_qt/RVXSplitPlot>
#include <corvale_qt/RVXTableView>
#include <corvale_qt/SpotMapView>
#include <corvale_qt/SpotMapWidget>
#include <corvale_qt/TreeComboBox>
#include <corvale_qt/units/Units.h>

#include <QStandardItemModel>
#include <QTimer>
#include <QVector>

#include <cmath>

using namespace Corvale_Qt;

namespace {

//! Returns a model with ten seconds of one channel, in ampere.
RVXSingleChannelDataModel *wave(QObject *parent)
{
    static const Units::nA nA;
    auto *model = new RVXSingleChannelDataModel(parent);
    model->SetUnits(&nA);
    for (int i = 0; i < 200; ++i)
        model->AddData(0.05 * i, 1e-9 * (std::sin(0.1 * i) + 0.2 * std::sin(1.3 * i)));
    return model;
}

//! Returns a model that holds \a rows in Qt::UserRole from column 1 on, where the views read them.
QStandardItemModel *numbers(const QVector<QVector<double>> &rows, QObject *parent)
{
    auto *model = new QStandardItemModel(rows.size(), rows.value(0).size() + 1, parent);
    for (int row = 0; row < rows.size(); ++row)
        for (int column = 0; column < rows.at(row).size(); ++column)
            model->setData(model->index(row, column + 1), rows.at(row).at(column), Qt::UserRole);
    return model;
}

//! Returns a model of the spots of a round field: sigma, x and y in millimetres, and dose.
QStandardItemModel *spots(QObject *parent)
{
    QVector<QVector<double>> rows;
    for (int y = -3; y <= 3; ++y)
        for (int x = -3; x <= 3; ++x)
            if (x * x + y * y <= 10)
                rows.append({3.0, 6.0 * x, 6.0 * y, 1.0 + 0.1 * x - 0.05 * y});
    return numbers(rows, parent);
}

//! Returns a Gaussian with the height \a peak; its centre and sigma are in strips.
double gaussian(double strip, double center, double sigma, double peak)
{
    const double distance = (strip - center) / sigma;
    return peak * std::exp(-0.5 * distance * distance);
}

} // namespace

void previewScope(QWidget *widget)
{
    static_cast<RVXScope *>(widget)->setModel(wave(widget));
}

void previewScopePlotView(QWidget *widget)
{
    static_cast<RVXScopePlotView *>(widget)->setModel(wave(widget));
}

void previewSpectrogram(QWidget *widget)
{
    auto *profile = static_cast<RVXSpectrogram *>(widget);
    constexpr int kValues = 128;
    constexpr int kFirstY = 64;
    QVector<double> charges(kValues, 0.0);
    for (int strip = 0; strip < 32; ++strip) {
        charges[strip] = gaussian(strip, 17.0, 3.0, 5e-10);
        charges[kFirstY + strip] = gaussian(strip, 14.0, 4.0, 4e-10);
    }
    profile->setL408(true);
    profile->setRange(1e-6, 1e-9);
    profile->setData(charges, 0.1);
    // The profile shows a frame at the next tick of its timer after the frame came.
    constexpr int kAfterTick = 150;
    QTimer::singleShot(kAfterTick, profile, [profile, charges] {
        profile->setData(charges, 0.2);
    });
}

void previewPositionPlot(QWidget *widget)
{
    auto *plot = static_cast<RVXPositionPlot *>(widget);
    plot->setScale(1);
    for (int i = 0; i < 20; ++i)
        plot->setData(0.5 * std::cos(0.3 * i), 0.5 * std::sin(0.3 * i));
}

void previewSplitPlot(QWidget *widget)
{
    auto *plot = static_cast<RVXSplitPlot *>(widget);
    plot->setNumberPlots(2);
    plot->setData(0.4, 0);
    plot->setData(-0.2, 1);
}

void previewPositionErrorPlot(QWidget *widget)
{
    auto *plot = static_cast<RVXPositionErrorPlot *>(widget);
    QVector<QVector<double>> rows;
    for (int i = 0; i < 40; ++i)
        rows.append({150.0, double(i), 0.9 * std::sin(1.7 * i), 0.7 * std::cos(2.3 * i), 0.0, 0.0});
    plot->setTolerance(1.5F, 1.5F);
    plot->setModel(numbers(rows, plot));
}

void previewSpotMapView(QWidget *widget)
{
    static_cast<SpotMapView *>(widget)->setModel(spots(widget));
}

void previewSpotMapWidget(QWidget *widget)
{
    static_cast<SpotMapWidget *>(widget)->spotMapView()->setModel(spots(widget));
}

void previewLogBrowser(QWidget *widget)
{
    auto *log = static_cast<RVXLogBrowser *>(widget);
    log->addErrorKeywords({"ERROR"});
    log->addWarningKeywords({"WARNING"});
    for (const char *line : {"12:00:01 beam on",
                             "12:00:02 WARNING: gain is at its limit",
                             "12:00:03 ERROR: no answer"})
        log->appendLine(line);
}

void previewTableView(QWidget *widget)
{
    auto *model = new QStandardItemModel(3, 3, widget);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            model->setItem(row, column, new QStandardItem(QString::number(10 * row + column)));
    static_cast<RVXTableView *>(widget)->setModel(model);
}

void previewTreeComboBox(QWidget *widget)
{
    auto *model = new QStandardItemModel(widget);
    for (const char *device : {"Device 1", "Device 2"}) {
        auto *branch = new QStandardItem(device);
        for (const char *channel : {"Channel 1", "Channel 2"})
            branch->appendRow(new QStandardItem(channel));
        model->appendRow(branch);
    }
    static_cast<TreeComboBox *>(widget)->setModel(model);
}
