// SPDX-License-Identifier: LGPL-2.1-or-later
// The numbers of frames apart from the picture.
#include "corvale_qt/beam/profile/BeamFrame.h"
#include "corvale_qt/beam/profile/BeamRaster_p.h"
#include "corvale_qt/beam/profile/CellPicture_p.h"
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

//! Records "frame at its time: mean X" of every result that a display announces.
class ResultLog
{
public:
    explicit ResultLog(RVXSpectrogram &display)
        : m_spy(&display, &RVXSpectrogram::frameCalculated)
    {
    }
    QString take()
    {
        QStringList lines;
        for (const QList<QVariant> &call : qAsConst(m_spy)) {
            const auto result = call.first().value<SpectrogramResult>();
            lines << QStringLiteral("%1 at %2 s: %3 mm")
                         .arg(result.frame)
                         .arg(result.time)
                         .arg(qRound(result.calc.meanX));
        }
        m_spy.clear();
        return lines.join(", ");
    }

private:
    QSignalSpy m_spy;
};

} // namespace

//! What the profile's picture is made of: colours, the raster of cells, and the means over time; the numbers apart from it.
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
        QCOMPARE(differingArea(asOne, inParts), QRect());
        QVERIFY(aGap || differingArea(inParts, empty).height() > side / 2);
    }

    //! Copied to whole pixels it is drawn in bands, and otherwise at once.
    void bandsMeet_data()
    {
        columns<double, bool>("ratio", "smoothing");
        row("cells", 1.0, false);
        row("blended", 1.0, true);
        row("blended, doubled pixels", 2.0, true);
    }
    void bandsMeet()
    {
        QFETCH(double, ratio);
        QFETCH(bool, smoothing);
        constexpr int side = 150, cells = 41;
        const QVector<double> positions = BeamProfile::uniform(noise(cells)).positions;
        const CellEdges edges(positions, QVector<double>(cells, 1.0), QVector<double>(cells, 1.0));
        CellPicture item;
        item.setCells(edges, edges);
        item.setValues(noise(cells * cells));
        item.setColors(colors(), QwtInterval(0, 1));
        item.setSmoothing(smoothing);
        const QwtScaleMap map = scaleMap(0, cells - 1, side);
        const auto drawn = [&](int away) {
            QImage image(QSize(side + away, side + away) * ratio, QImage::Format_RGB32);
            image.setDevicePixelRatio(ratio);
            QPainter painter(&image);
            if (away > 0)
                painter.translate(away, away);
            item.draw(&painter, map, map, QRectF(0, 0, side, side));
            painter.end();
            const int first = int(away * ratio);
            return image.copy(first, first, int(side * ratio), int(side * ratio));
        };
        QCOMPARE(differingArea(drawn(0), drawn(1)), QRect());
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

    void everyFrameIsAnnounced_data()
    {
        QTest::addColumn<bool>("sidebar");
        QTest::newRow("with the side bar") << true;
        QTest::newRow("without it") << false;
    }
    //! A beam that moves by one strip, 2 mm, from frame to frame, although the display shows only the last frame.
    void everyFrameIsAnnounced()
    {
        BeamDisplay display(Detector::Strips);
        display.widget.sidebarEnabled(cell<bool>("sidebar"));
        ResultLog log(display.widget);
        for (double x : {13.5, 14.5, 15.5, 16.5})
            display.feedBetweenTicks(Frames::strips(x, 2, 15.5, 2));
        QCOMPARE(log.take(),
                 QString("1 at 1 s: -4 mm, 2 at 2 s: -2 mm, 3 at 3 s: 0 mm, "
                         "4 at 4 s: 2 mm"));
        QCOMPARE(display.widget.shownResult().status, FitStatus::NotComputed);
        display.tick();
        QTRY_COMPARE(display.widget.shownResult().frame, qint64(4));
        QCOMPARE(display.widget.shownResult().calc.meanX, display.widget.getCalc().meanX);
        display.tick();
        QCOMPARE(log.take(), QString()); // showing a frame does not announce it again
    }

    void ignoredFramesLeaveAGap()
    {
        BeamDisplay display;
        ResultLog log(display.widget);
        const QVector<double> frame = Frames::strips(15.5, 2, 15.5, 2);
        display.widget.setData(frame, 1); // without a layout
        display.choose(Detector::Strips);
        display.widget.setData(frame, 2);
        display.widget.setData(frame, 2);
        display.widget.setData(frame, qQNaN());
        display.widget.setData(QVector<double>(128, 0.0), 3);
        QCOMPARE(display.widget.result().frame, qint64(2));
        display.widget.setData(frame, 4);
        QCOMPARE(log.take(), QString("2 at 2 s: 0 mm, 6 at 4 s: 0 mm"));
    }

    void notComputedIsToldFromAFailure()
    {
        BeamDisplay display(Detector::Strips);
        const auto statuses = [&display] {
            return QStringLiteral("%1 %2")
                .arg(int(display.widget.result().status))
                .arg(int(display.widget.shownResult().status));
        };
        QCOMPARE(statuses(), QString("-9 -9"));
        QVERIFY(std::isnan(display.widget.result().time));
        display.feed(Frames::strips(15.5, 2, 31, 2));
        QCOMPARE(statuses(), QString("-3 -3")); // the peak of Y is on the edge
        display.feedBetweenTicks(Frames::strips(15.5, 2, 15.5, 2));
        QCOMPARE(statuses(), QString("0 -3"));
        display.choose(Detector::Pixels);
        QCOMPARE(statuses(), QString("-9 -9"));
        display.feed(QVector<double>(128, 0.0));
        QCOMPARE(statuses(), QString("-4 -4"));
        display.feed(QVector<double>(128, 1e307));
        QCOMPARE(statuses(), QString("-8 -8"));
    }

    //! Nobody listens and nothing is shown, so the numbers are computed when they are asked for.
    void newestFrameOnDemand()
    {
        BeamDisplay display(Detector::Pixels);
        display.widget.sidebarEnabled(false);
        display.feedBetweenTicks(Frames::pixels(4, -6, 3, 3, 0));
        display.feedBetweenTicks(Frames::pixels(5, -6, 3, 3, 0));
        QVERIFY(near(display.widget.result().calc.meanX, 5, 0.02));
        QCOMPARE(display.widget.result().frame, qint64(2));
        QVERIFY(!display.widget.getCalc().valid);
        display.check("checkBox_invertX", true);
        QVERIFY(near(display.widget.result().calc.meanX, -5, 0.02));
        QVERIFY(!display.widget.result().isCurrent);
        const double charge = display.widget.result().calc.integral;
        display.widget.setSampleRate(1000);
        display.widget.currentEnabled(true);
        QVERIFY(display.widget.result().isCurrent);
        QVERIFY(near(display.widget.result().calc.integral / charge, 1000, 1e-9));
        display.widget.setSampleRate(500);
        QVERIFY(near(display.widget.result().calc.integral / charge, 500, 1e-9));
    }

    //! The minimum peak is a charge, whatever is shown.
    void sameFitsInCoulombAndAmpere()
    {
        BeamDisplay display(Detector::Strips);
        display.widget.setSampleRate(1000);
        for (bool current : {false, true, false}) {
            display.widget.currentEnabled(current);
            for (const auto &[limit, status] : {std::pair(2e-9, -2), std::pair(0.5e-9, 0)}) {
                display.widget.SetRegressionOptions(true, {0, 1024, limit, 0}, 1);
                QVERIFY(display.feed(Frames::strips(15, 2, 15, 2, 1e-9)).valid == (status == 0));
                QCOMPARE(int(display.widget.result().status), status);
            }
        }
    }

    void displayMayBeDeletedByASlot()
    {
        for (bool deletedByShown : {false, true}) {
            QPointer<RVXSpectrogram> display = new RVXSpectrogram;
            display->setPixelated(true);
            display->sidebarEnabled(false);
            QMetaObject::invokeMethod(display, "update");
            const auto remove = [&display] { delete display; };
            int announced = 0;
            if (deletedByShown)
                connect(display, &RVXSpectrogram::calcUpdate, this, remove);
            connect(display, &RVXSpectrogram::frameCalculated, this, [&] {
                ++announced;
                remove();
            });
            display->setData(Frames::pixels(0, 0, 3, 3, 0), 1);
            QVERIFY(!display);
            QCOMPARE(announced, deletedByShown ? 0 : 1);
        }
    }

    void framesWithoutADisplay()
    {
        const QVector<double> pixels = Frames::pixels(4, -6, 3.5, 3, 0);
        FrameOptions options;
        BeamFrame frame =
            computeFrame(ProfileLayout::PixelMatrix, pixels.constData(), pixels.size(), options);
        QCOMPARE(frame.status, FitStatus::Ok);
        QVERIFY(near(frame.calc.meanX, 4, 0.02) && near(frame.calc.meanY, -6, 0.02));
        QVERIFY(near(frame.calc.sigmaX, 3.5, 0.05) && near(frame.calc.sigmaY, 3, 0.05));
        QCOMPARE(frame.raster.size(), 144);
        options.invertY = true;
        frame = computeFrame(ProfileLayout::PixelMatrix, pixels.constData(), 128, options);
        QVERIFY(near(frame.calc.meanY, 6, 0.02));

        const QVector<double> strips = Frames::strips(20.5, 2, 12.5, 3) + QVector<double>(100, 7.0);
        frame = computeFrame(ProfileLayout::StripPair, strips.constData(), strips.size());
        QVERIFY(near(frame.calc.meanX, 10, 1e-9) && near(frame.calc.meanY, -6, 1e-9));
        QVERIFY(near(frame.calc.sigmaX, 4, 1e-9) && near(frame.calc.sigmaY, 6, 1e-9));
        // Without the readings of Y there is nothing to fit.
        frame = computeFrame(ProfileLayout::StripPair, strips.constData(), 32);
        QCOMPARE(frame.status, FitStatus::PeakOnEdge);
        QVERIFY(near(frame.calc.meanX, 10, 1e-9));
        QCOMPARE(frame.calc.meanY, SpectrogramCalc::invalid);
        QCOMPARE(computeFrame(ProfileLayout::None, nullptr, 0).status, FitStatus::NotComputed);
    }
};

CORVALE_QT_TEST_MAIN(tst_SpectrogramParts)
#include "tst_SpectrogramParts.moc"
