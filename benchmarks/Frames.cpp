// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 20 compares the moments of a camera's frame with a plain read of it, and its picture with one computed pixel by pixel. Goal 17
// compares the picture on finer pixels.
#include "CameraFrames.h"
#include "Goal.h"
#include "Goals.h"
#include "Points.h"
#include "corvale_qt/beam/profile/CellPicture_p.h"
#include "corvale_qt/beam/profile/ColorMaps_p.h"
#include <corvale_qt/ImageMoments>

#include <qwt_matrix_raster_data.h>
#include <qwt_plot_spectrogram.h>
#include <qwt_scale_map.h>

#include <QPainter>

#include <array>
#include <cmath>
#include <numeric>

using namespace Corvale_Qt;

namespace {

constexpr int canvasSide = 600;
constexpr int repeats = 20; // a frame is read in less time than a clock tells exactly

//! Returns the moments by the textbook, in wider numbers.
ImageMoments slowMoments(const BeamImage &image)
{
    using Wide = long double;
    const auto sum = [&](auto term) {
        Wide total = 0;
        for (int row = 0; row < image.rows; ++row) {
            for (int column = 0; column < image.columns; ++column)
                total += Wide(image.charges[row * image.columns + column])
                    * term(Wide(image.x[column]), Wide(image.y[row]));
        }
        return total;
    };
    const Wide total = sum([](Wide, Wide) {
        return Wide(1);
    });
    const Wide x = sum([](Wide place, Wide) {
                       return place;
                   })
        / total;
    const Wide y = sum([](Wide, Wide place) {
                       return place;
                   })
        / total;
    ImageMoments moments;
    moments.total = double(total);
    moments.meanX = double(x);
    moments.meanY = double(y);
    moments.sigmaX = double(std::sqrt(sum([x](Wide place, Wide) {
                                          return (place - x) * (place - x);
                                      })
                                      / total));
    moments.sigmaY = double(std::sqrt(sum([y](Wide, Wide place) {
                                          return (place - y) * (place - y);
                                      })
                                      / total));
    return moments;
}

void measureMoments(const DetectorFrame &frame)
{
    const BeamImage image = frame.image();
    double sum = 0.0;
    ImageMoments moments;
    const double times = timesFaster(
        [&] {
            sum = std::accumulate(frame.values.begin(), frame.values.end(), 0.0);
        },
        repeats,
        [&] {
            moments = imageMoments(image);
        },
        repeats);
    report({"20a moments of 256 x 256, times a plain read of the frame", times, Goal::AtMost, 1.5});
    const ImageMoments slow = slowMoments(image);
    const auto equals = [](double one, double other) {
        return std::abs(one - other) <= 1e-9 * (1.0 + std::abs(other));
    };
    require(equals(moments.total, slow.total) && equals(moments.total, sum)
                && equals(moments.meanX, slow.meanX) && equals(moments.meanY, slow.meanY)
                && equals(moments.sigmaX, slow.sigmaX) && equals(moments.sigmaY, slow.sigmaY),
            "20a the moments of a frame");
}

QwtScaleMap mapOf(const CellEdges &edges)
{
    QwtScaleMap map;
    map.setScaleInterval(edges.lower(0), edges.upper(edges.count() - 1));
    map.setPaintInterval(0.0, canvasSide);
    return map;
}

//! The picture of a frame, and the same picture with each pixel's cell looked for and its colour computed.
class FramePicture
{
public:
    explicit FramePicture(const DetectorFrame &frame)
        : m_columns(cellEdges(frame.layout, true))
        , m_rows(cellEdges(frame.layout, false))
        , m_x(mapOf(m_columns))
        , m_y(mapOf(m_rows))
        , m_colors(makeColorMap(ColorMapChoice::Color))
    {
        m_picture.setCells(m_columns, m_rows);
        m_picture.setValues(frame.values);
        m_picture.setColors(makeColorMap(ColorMapChoice::Color), m_range);
        setUpStock(frame);
    }

    //! Draws with as many device pixels to a pixel, along each axis, as \a ratio says.
    const QImage &draw(int ratio = 1) { return drawItem(m_picture, ratio); }
    //! Draws the same cells with stock Qwt.
    const QImage &drawStock(int ratio) { return drawItem(m_stock, ratio); }
    QImage drawSlowly() const
    {
        QImage image(canvasSide, canvasSide, QImage::Format_RGB32);
        for (int y = 0; y < canvasSide; ++y) {
            for (int x = 0; x < canvasSide; ++x)
                image.setPixel(x,
                               y,
                               m_colors->rgb(m_range,
                                             m_picture.valueAt(m_x.invTransform(x + 0.5),
                                                               m_y.invTransform(y + 0.5))));
        }
        return image;
    }

private:
    static QImage emptyCanvas(int ratio)
    {
        QImage image(ratio * QSize(canvasSide, canvasSide), QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        return image;
    }
    //! Draws on a canvas that stays, as that of a window does: new memory for each frame would cost more than the picture.
    const QImage &drawItem(const QwtPlotItem &item, int ratio)
    {
        QImage &image = m_canvases[size_t(ratio - 1)];
        image.fill(Qt::black);
        QPainter painter(&image);
        item.draw(&painter, m_x, m_y, QRectF(0, 0, canvasSide, canvasSide));
        return image;
    }
    void setUpStock(const DetectorFrame &frame)
    {
        auto *cells = new QwtMatrixRasterData;
        cells->setInterval(Qt::XAxis, {m_x.s1(), m_x.s2()});
        cells->setInterval(Qt::YAxis, {m_y.s1(), m_y.s2()});
        cells->setInterval(Qt::ZAxis, m_range);
        cells->setValueMatrix(frame.values, m_columns.count());
        m_stock.setData(cells);
        m_stock.setColorMap(makeColorMap(ColorMapChoice::Color));
        m_stock.setRenderThreadCount(1);
    }

    const CellEdges m_columns;
    const CellEdges m_rows;
    const QwtScaleMap m_x;
    const QwtScaleMap m_y;
    const std::unique_ptr<QwtLinearColorMap> m_colors;
    const QwtInterval m_range{0.0, 200.0};
    std::array<QImage, 2> m_canvases{emptyCanvas(1), emptyCanvas(2)};
    CellPicture m_picture;
    QwtPlotSpectrogram m_stock;
};

void measurePicture(const DetectorFrame &frame)
{
    FramePicture picture(frame);
    QImage fast, slow;
    const double faster = timesFaster(
        [&] {
            fast = picture.draw();
        },
        [&] {
            slow = picture.drawSlowly();
        });
    report(
        {"20b picture of 256 x 256, times faster than pixel by pixel", faster, Goal::AtLeast, 5.0});
    report({"20b pixels other than pixel by pixel",
            double(differingPixels(fast, slow)),
            Goal::AtMost,
            0.0});
}

void measureFinerPicture(const DetectorFrame &frame)
{
    FramePicture picture(frame);
    const auto ours = [&](int ratio) {
        return [&picture, ratio] {
            picture.draw(ratio);
        };
    };
    const auto stock = [&](int ratio) {
        return [&picture, ratio] {
            picture.drawStock(ratio);
        };
    };
    report({"17 picture of 256 x 256, two pixels to one, times one's time",
            timesFaster(ours(1), ours(2), 21),
            Goal::AtMost,
            2.5});
    report({"17 picture of 256 x 256, lead over Qwt on finer pixels",
            timesFaster(ours(2), stock(2), 21) / timesFaster(ours(1), stock(1), 21),
            Goal::AtLeast,
            1.0});
}

} // namespace

void measureCameraFrames()
{
    const QVector<double> readings = cameraReadings(0);
    const DetectorFrame frame = DetectorFrame::of(camera(), readings.constData(), readings.size());
    measureMoments(frame);
    measurePicture(frame);
    measureFinerPicture(frame);
}
