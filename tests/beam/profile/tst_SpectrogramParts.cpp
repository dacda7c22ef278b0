// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/BeamRaster_p.h"
#include "corvale_qt/beam/profile/ColorTable_p.h"
#include "corvale_qt/beam/profile/MeanHistory_p.h"
#include "corvale_qt/beam/profile/MeanTimePlot_p.h"
#include "corvale_qt/beam/profile/ProjectionItem_p.h"
#include "tests/beam/profile/BeamDisplay.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestMain.h"

#include <qwt_color_map.h>
#include <qwt_matrix_raster_data.h>
#include <qwt_plot_curve.h>
#include <qwt_scale_map.h>

#include <QPainter>
#include <QPicture>

using namespace Corvale_Qt;

namespace {

constexpr int steps = 400000;

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

PlaneResult noisyPlane(int cells)
{
    PlaneResult plane;
    QVector<double> readings = noise(cells);
    for (int i = 0; i < cells; ++i)
        readings[i] += 20.0 * std::exp(-0.5 * std::pow((i - 0.4 * cells) / (0.1 * cells), 2));
    plane.profile = BeamProfile::uniform(readings);
    plane.estimate.status = EstimateStatus::Ok;
    plane.estimate.position.value = 0.4 * cells;
    plane.estimate.sigma.value = 0.1 * cells;
    plane.estimate.height.value = 20.0;
    plane.verdict.validity = BeamValidity::Valid;
    return plane;
}

} // namespace

//! What the profile's picture is made of: colours, the raster of cells, and the means over time.
class tst_SpectrogramParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyColourIsTheMapsOwn_data()
    {
        columns<double, double, bool>("low", "high", "fixedColours");
        row("usual", 0.0, 1.0, false);
        row("charges", 0.0, 3.7e-11, false);
        row("not from zero", -2.5, 17.0, false);
        row("no range", 1.0, 1.0, false);
        row("range below what has a reciprocal", 0.0, 5e-324, false);
        row("enormous", 0.0, 1e300, false);
        row("bands", 0.0, 1.0, true);
    }
    void everyColourIsTheMapsOwn()
    {
        QFETCH(double, low);
        QFETCH(double, high);
        QwtLinearColorMap map(Qt::black, Qt::red);
        // The map has a narrow peak within one interval of the table, and stops on and beside the borders.
        map.addColorStop(0.3, Qt::cyan);
        map.addColorStop(0.30003, Qt::white);
        map.addColorStop(0.30006, Qt::cyan);
        map.addColorStop(0.5, Qt::darkGreen);
        map.addColorStop(0.7, Qt::yellow);
        if (cell<bool>("fixedColours"))
            map.setMode(QwtLinearColorMap::FixedColors);
        const QwtInterval range(low, high);
        ColorTable table;
        // The table does not keep the colours of another map that differs little.
        QwtLinearColorMap other(Qt::black, Qt::red);
        other.addColorStop(0.5, Qt::darkGreen);
        table.setMap(other);
        table.setMap(map);

        QVector<double> values;
        const double width = high - low;
        for (int i = -10; i <= steps + 10; ++i) {
            const double value = low + width * i / steps;
            values << std::nextafter(value, -1e308) << value << std::nextafter(value, 1e308);
        }
        const double infinity = std::numeric_limits<double>::infinity();
        values << infinity << -infinity << std::nan("") << 1e308 << -1e308 << -0.0;
        QVector<QRgb> colors(values.size());
        table.lookUp(range, values.constData(), values.size(), colors.data());
        int different = 0;
        for (int i = 0; i < values.size(); ++i)
            different += colors[i] != map.rgb(range, values[i]);
        QCOMPARE(different, 0);
    }

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

    void projectionsAreDrawnAsOneLine_data()
    {
        columns<double, double, bool>("from", "to", "aGap");
        row("more pixels than cells", 0.0, 256.0, false);
        row("less pixels than cells", -400.0, 800.0, false);
        row("falling", 256.0, 0.0, false);
        row("zoomed", 90.25, 103.5, false);
        row("places that are no number", 0.0, 256.0, true);
    }
    void projectionsAreDrawnAsOneLine()
    {
        QFETCH(double, from);
        QFETCH(double, to);
        QFETCH(bool, aGap);
        constexpr int side = 333;
        PlaneResult plane = noisyPlane(256);
        if (aGap)
            plane.profile.positions[100] = std::nan("");
        ProjectionItem item;
        item.setPlanes(plane, plane);
        const auto drawOn = [&](QPaintDevice &device) {
            QPainter painter(&device);
            painter.setRenderHint(QPainter::Antialiasing);
            const QwtScaleMap map = scaleMap(from, to, side);
            item.draw(&painter, map, map, QRectF(0, 0, side, side));
        };
        QImage inParts(side, side, QImage::Format_RGB32);
        inParts.fill(Qt::darkGreen);
        const QImage empty = inParts;
        QImage asOne = empty;
        drawOn(inParts);
        QPicture lines; // which the item draws as they are
        drawOn(lines);
        QPainter(&asOne).drawPicture(0, 0, lines);
        QCOMPARE(differingArea(inParts, asOne), QRect());
        QVERIFY(aGap || differingArea(inParts, empty).height() > side / 2);
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

    void oneOutForOneIn()
    {
        MeanHistory history;
        for (int i = 0; i < 3000; ++i)
            history.append({i * 0.01, double(i), 0});
        QCOMPARE(history.entries().size(), std::size_t(3000));
        QCOMPARE(history.entries().front().meanX, 0.0);
        history.append({30.0, 3000, 0});
        QCOMPARE(history.entries().size(), std::size_t(3000));
        QCOMPARE(history.entries().front().meanX, 1.0);
        QCOMPARE(history.entries().back().meanX, 3000.0);

        history.setUnlimited(true);
        for (int i = 0; i < 100; ++i)
            history.append({31.0 + i, 0, 0});
        QCOMPARE(history.entries().size(), std::size_t(3100));
    }

    void onlyTheNewestSecondsAreRead()
    {
        auto history = std::make_shared<MeanHistory>();
        const MeanSeries series(history, &MeanHistory::Entry::meanX);
        QCOMPARE(series.size(), std::size_t(0));
        for (int i = 0; i < 5000; ++i) {
            history->append({i * 0.1, double(i), 0});
            const std::size_t expected =
                std::min(i + 1, 52); // 5 s with both ends, and the entry before
            if (series.size() != expected && series.size() != expected - 1)
                QCOMPARE(series.size(), expected);
            QCOMPARE(series.sample(series.size() - 1).y(), double(i));
        }
        history->clear();
        QCOMPARE(series.size(), std::size_t(0));
    }

    void timeOnlyRises()
    {
        MeanHistory history;
        for (double time : {10.0, 11.0, 12.0, 3.0})
            history.append({time, 0, 0});
        QCOMPARE(history.entries().size(), std::size_t(1));
        QCOMPARE(history.entries().back().time, 3.0);
    }

    void aFrameWithoutAMeanIsAGap()
    {
        auto history = std::make_shared<MeanHistory>();
        history->append({1, 2, -10000});
        history->mirror(true, true);
        QCOMPARE(MeanSeries(history, &MeanHistory::Entry::meanX).sample(0), QPointF(1, -2));
        QVERIFY(std::isnan(MeanSeries(history, &MeanHistory::Entry::meanY).sample(0).y()));
    }

    void theDisplayKeepsItWhileItsSideBarShows()
    {
        BeamDisplay display(Detector::Strips);
        auto *plot = display.widget.findChild<MeanTimePlot *>();
        const auto samples = [plot] {
            auto *curve =
                static_cast<QwtPlotCurve *>(plot->itemList(QwtPlotItem::Rtti_PlotCurve).first());
            return curve->dataSize();
        };
        display.time = 1618446887;
        for (int i = 0; i < 3; ++i)
            display.feedBetweenTicks(Frames::strips(15, 3, 15, 3)); // each frame, not each redraw
        QCOMPARE(samples(), std::size_t(3));
        plot->replot();
        QCOMPARE(plot->axisInterval(QwtPlot::xBottom), QwtInterval(display.time - 5, display.time));

        display.widget.sidebarEnabled(false);
        display.feed(Frames::strips(15, 3, 15, 3));
        QCOMPARE(samples(), std::size_t(3));
        display.widget.sidebarEnabled(true);
        display.time = 10;
        display.feed(Frames::strips(15, 3, 15, 3));
        QCOMPARE(samples(), std::size_t(1)); // time stepped back
        display.widget.setPixelated(true);
        QCOMPARE(samples(), std::size_t(0));
        QVERIFY(!display.widget.property("unlimitedHistory").toBool());
    }
};

CORVALE_QT_TEST_MAIN(tst_SpectrogramParts)
#include "tst_SpectrogramParts.moc"
