// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 10 compares the smoothed beam profile with Qwt's spectrogram on one thread.
#include "Goal.h"
#include "Goals.h"
#include "Points.h"
#include <corvale_qt/RVXSpectrogram>

#include <qwt_color_map.h>
#include <qwt_matrix_raster_data.h>
#include <qwt_plot.h>
#include <qwt_plot_spectrogram.h>
#include <qwt_scale_map.h>

#include <QCheckBox>
#include <QCoreApplication>
#include <QPainter>

#include <cmath>

using namespace Corvale_Qt;

namespace {

constexpr int canvasSide = 600;

//! Returns a frame of the strip pair with a beam spot: X strips in values 0 to 31, Y strips in 64 to 95.
QVector<double> strips()
{
    QVector<double> readings(128, 0.0);
    for (int i = 0; i < 32; ++i) {
        readings[i] = 1e-9 * std::exp(-0.5 * std::pow((i - 14.3) / 3.1, 2)) + 1e-12 * (i % 5);
        readings[64 + i] = 1e-9 * std::exp(-0.5 * std::pow((i - 17.8) / 4.2, 2)) + 1e-12 * (i % 3);
    }
    return readings;
}

const QwtPlotSpectrogram *rasterOf(const RVXSpectrogram &display)
{
    for (const QwtPlot *plot : display.findChildren<QwtPlot *>()) {
        for (const QwtPlotItem *item : plot->itemList(QwtPlotItem::Rtti_PlotSpectrogram))
            return static_cast<const QwtPlotSpectrogram *>(item);
    }
    qFatal("The display has no raster");
}

QwtLinearColorMap *copyOf(const QwtLinearColorMap &map)
{
    auto *copy = new QwtLinearColorMap(map.color1(), map.color2());
    for (double stop : map.colorStops()) {
        if (stop > 0.0 && stop < 1.0)
            copy->addColorStop(stop, map.rgb(QwtInterval(0.0, 1.0), stop));
    }
    return copy;
}

//! Gives \a stock the values, colours and interpolation of \a raster.
void copyRaster(const QwtPlotSpectrogram &raster, QwtPlotSpectrogram &stock)
{
    const auto *data = dynamic_cast<const QwtMatrixRasterData *>(raster.data());
    const auto *colors = dynamic_cast<const QwtLinearColorMap *>(raster.colorMap());
    if (!data || !colors)
        qFatal("The display's raster is not a matrix");
    auto *copy = new QwtMatrixRasterData;
    for (Qt::Axis axis : {Qt::XAxis, Qt::YAxis, Qt::ZAxis})
        copy->setInterval(axis, data->interval(axis));
    copy->setValueMatrix(data->valueMatrix(), data->numColumns());
    copy->setResampleMode(data->resampleMode());
    stock.setData(copy);
    stock.setColorMap(copyOf(*colors));
    stock.setRenderThreadCount(1);
}

void draw(const QwtPlotSpectrogram &raster, QImage &image)
{
    QwtScaleMap x;
    x.setScaleInterval(0.0, 32.0);
    x.setPaintInterval(0.0, canvasSide);
    QPainter painter(&image);
    raster.draw(&painter, x, x, QRectF(0, 0, canvasSide, canvasSide));
}

void compare(const QString &name, const QwtPlotSpectrogram &raster, bool smoothed)
{
    QwtPlotSpectrogram stock;
    copyRaster(raster, stock);
    QImage ours(canvasSide, canvasSide, QImage::Format_RGB32);
    QImage theirs(ours.size(), ours.format());
    const double faster = timesFaster(
        [&] {
            draw(raster, ours);
        },
        [&] {
            draw(stock, theirs);
        },
        21);
    if (smoothed)
        report({name + ", times faster than Qwt's", faster, Goal::AtLeast, 4.5});
    else
        report({name + ", share of Qwt's time", 1.0 / faster, Goal::AtMost, 1.1});
    QImage empty(ours.size(), ours.format());
    empty.fill(ours.pixel(0, 0));
    require(differingPixels(ours, empty) > 10000, name + ": something is drawn");
    report(
        {name + ", pixels other than its", double(differingPixels(ours, theirs)), Goal::AtMost, 0});
}

//! Goal 17: the same canvas with two device pixels to a pixel.
void compareFiner(const QString &name, const QwtPlotSpectrogram &raster)
{
    QwtPlotSpectrogram stock;
    copyRaster(raster, stock);
    QImage plain(canvasSide, canvasSide, QImage::Format_RGB32);
    QImage finer(2 * plain.size(), plain.format());
    finer.setDevicePixelRatio(2.0);
    const auto drawing = [](const QwtPlotSpectrogram &item, QImage &image) {
        return [&item, &image] {
            draw(item, image);
        };
    };
    report({name + ", two pixels to one, times one's time",
            timesFaster(drawing(raster, plain), drawing(raster, finer), 21),
            Goal::AtMost,
            2.5});
    report({name + ", lead over Qwt on finer pixels",
            timesFaster(drawing(raster, finer), drawing(stock, finer), 21)
                / timesFaster(drawing(raster, plain), drawing(stock, plain), 21),
            Goal::AtLeast,
            1.0});
}

} // namespace

void measureSpectrogram()
{
    RVXSpectrogram display;
    display.setL408(true);
    display.setRange(1e-9, 1e-9);
    display.resize(900, 700);
    display.show();
    auto *smoothing = display.findChild<QCheckBox *>("checkBox_smoothing");
    if (!smoothing)
        qFatal("The display has no check box for smoothing");
    // At most ten frames per second are shown.
    for (double now = 1.0; !rasterOf(display)->isVisible(); now += 1.0) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        display.setData(strips(), now);
    }
    smoothing->setChecked(true);
    compare("10a smoothed 32 x 32 at 600 x 600", *rasterOf(display), true);
    compareFiner("17 smoothed 32 x 32", *rasterOf(display));
    smoothing->setChecked(false);
    compare("10b not smoothed", *rasterOf(display), false);
}
