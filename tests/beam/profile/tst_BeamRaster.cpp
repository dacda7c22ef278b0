// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/BeamRaster_p.h"
#include "tests/support/Pixels.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

#include <qwt_color_map.h>
#include <qwt_matrix_raster_data.h>
#include <qwt_scale_map.h>

using namespace Corvale_Qt;

namespace {

//! Makes the protected renderImage() of an item public.
template<typename Item>
class Open : public Item
{
public:
    using Item::renderImage;
};

QVector<double> noise(int cells)
{
    std::mt19937 generator(3);
    QVector<double> values;
    for (int i = 0; i < cells; ++i)
        values << generator() / 4294967296.0;
    return values;
}

QwtLinearColorMap *colors()
{
    auto *map = new QwtLinearColorMap(Qt::black, Qt::red);
    map->addColorStop(0.3, Qt::cyan);
    map->addColorStop(0.7, Qt::yellow);
    return map;
}

QwtScaleMap scaleMap(double from, double to, int pixels)
{
    QwtScaleMap map;
    map.setScaleInterval(from, to);
    map.setPaintInterval(0, pixels - 1);
    return map;
}

} // namespace

class tst_BeamRaster : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void smoothedItEqualsTheStockItem_data()
    {
        columns<int>("size");
        QTest::addColumn<QRectF>("shown"); // in cells
        columns<QSize>("pixels");
        row("32 cells", 32, QRectF(0, 0, 32, 32), QSize(600, 600));
        row("12 cells, x inverted", 12, QRectF(12, 0, -12, 12), QSize(431, 431));
        row("12 cells, both inverted", 12, QRectF(12, 12, -12, -12), QSize(64, 48));
        row("less pixels than cells", 32, QRectF(0, 32, 32, -32), QSize(17, 17));
        row("beyond the edges", 12, QRectF(-3, -2, 20, 17), QSize(200, 150));
    }
    void smoothedItEqualsTheStockItem()
    {
        QFETCH(int, size);
        QFETCH(QRectF, shown);
        QFETCH(QSize, pixels);
        const QVector<double> values = noise(size * size);
        Open<BeamRaster> own;
        own.setColorMap(colors());
        own.setGrid(size);
        own.setSmoothing(true);
        own.setColorRange(0.9); // some values are above it
        own.setValues(values);

        Open<QwtPlotSpectrogram> stock;
        auto *matrix = new QwtMatrixRasterData;
        matrix->setInterval(Qt::XAxis, QwtInterval(0, size));
        matrix->setInterval(Qt::YAxis, QwtInterval(0, size));
        matrix->setInterval(Qt::ZAxis, QwtInterval(0, 0.9));
        matrix->setValueMatrix(values, size);
        matrix->setResampleMode(QwtMatrixRasterData::BilinearInterpolation);
        stock.setColorMap(colors());
        stock.setData(matrix);

        const QwtScaleMap xMap = scaleMap(shown.x(), shown.x() + shown.width(), pixels.width());
        const QwtScaleMap yMap = scaleMap(shown.y(), shown.y() + shown.height(), pixels.height());
        const QRectF area = shown.normalized();
        const QImage expected = stock.renderImage(xMap, yMap, area, pixels);
        const QImage actual = own.renderImage(xMap, yMap, area, pixels);
        QCOMPARE(actual.size(), expected.size());
        QCOMPARE(differingArea(actual, expected), QRect());
        // The pictures are not of one colour.
        QVERIFY(expected.pixel(pixels.width() / 2, pixels.height() / 2)
                != expected.pixel(pixels.width() / 3, pixels.height() / 3));
    }

    void itIsNotPaintedWithoutValues()
    {
        BeamRaster raster;
        const auto isVisible = [&raster](const QVector<double> &values) {
            raster.setValues(values);
            return raster.isVisible();
        };
        QVERIFY(!isVisible({1, 2, 3, 4}));
        raster.setGrid(2);
        QVERIFY(!isVisible({1, 2, 3}));
        QVERIFY(isVisible({1, 2, 3, 4}));
        raster.setGrid(3);
        QVERIFY(!raster.isVisible() && raster.values().isEmpty());
    }
};

CORVALE_QT_TEST_MAIN(tst_BeamRaster)
#include "tst_BeamRaster.moc"
