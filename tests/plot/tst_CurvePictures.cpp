// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/models/RVXSeriesData.h"
#include "corvale_qt/plot/CurveLayer_p.h"
#include "corvale_qt/plot/GridLines_p.h"
#include "corvale_qt/plot/PixelGrid_p.h"
#include "corvale_qt/plot/RVXDiscontinuousPlotCurve.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/scope/SampleRows_p.h"
#include "tests/support/TestMain.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_div.h>
#include <qwt_scale_map.h>

using namespace Corvale_Qt;

namespace {

constexpr double missing = std::numeric_limits<double>::quiet_NaN();
constexpr int channels = 4;

//! A strip chart of readings with all that a day brings, which is drawn by a layer that keeps its picture or by a new one.
class Chart
{
public:
    explicit Chart(unsigned seed)
        : random(seed)
    {
        // With two models merged, the rows of one leave earlier than those of the other, whose readings then move along x.
        device.setCapacity(6000);
        other.setCapacity(seed % 4 == 1 ? 5000 : 6000);
        for (int c = 1; c <= channels && isMerged(seed); ++c)
            merged.addSourceModel(c % 2 == 1 ? &device : &other, c);
        averages.setSourceModel(isMerged(seed) ? static_cast<QAbstractItemModel *>(&merged)
                                               : &device);
        zeroed.setSourceModel(&averages);
        for (int i = 0; i < channels; ++i)
            curves.push_back(std::make_unique<RVXDiscontinuousPlotCurve>());
    }

    static bool isMerged(unsigned seed) { return seed % 2 == 1; }
    int upTo(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); }
    double noise(double sigma) { return std::normal_distribution<double>(0.0, sigma)(random); }

    void append(int rows)
    {
        std::vector<double> times;
        std::vector<double> values;
        for (int i = 0; i < rows; ++i) {
            time += 0.001 * (0.5 + 0.001 * upTo(1000));
            times.push_back(time);
            for (int c = 0; c < channels; ++c) {
                const bool isFar = upTo(40) == 0;
                const bool isMissing = isDead[c] || upTo(300) == 0;
                values.push_back(isMissing ? missing : c + noise(isFar ? 20.0 : 0.2));
            }
        }
        device.appendRows(times.data(), values.data(), rows);
        other.appendRows(times.data(), values.data(), rows);
    }
    //! Shows the newest readings, unless the chart is held.
    void follow()
    {
        if (!isHeld)
            grid = PixelGrid::endingAt(time, width, canvas.width() - 4);
    }
    void change();

    //! Draws all with a layer; without the grid it keeps nothing.
    QImage drawn(CurveLayer &layer, bool withGrid)
    {
        QImage image(canvas, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        const int last = zeroed.rowCount() - 1;
        if (last < 2)
            return image;
        painter.translate(-moved);
        const double left = grid.x(grid.left);
        const double right = grid.x(grid.left + grid.width);
        const RowRange rows = rowsAround(PlotDataReader(&zeroed), {1, last}, left, right);
        layer.setGrid(withGrid ? grid : PixelGrid());
        layer.breaks() = breaksOf(rows);
        QwtScaleMap x;
        x.setScaleInterval(left, right);
        // The canvas is wider than the axis.
        x.setPaintInterval(moved.x() + 2.0, moved.x() + 2.0 + grid.width);
        QwtScaleMap y;
        y.setScaleInterval(yRange[0], yRange[1]);
        y.setPaintInterval(canvas.height() - 1.0, 0.0);
        for (int c = 0; c < channels; ++c) {
            if (!isShown[c])
                continue;
            curves[size_t(c)]->setPen(QPen(colors[c], 1.0));
            curves[size_t(c)]->setLayer(&layer);
            curves[size_t(c)]->setSamples(zeroed.seriesData(c + 1, rows.first, rows.last));
            curves[size_t(c)]->draw(&painter, x, y, QRectF(moved, canvas));
        }
        layer.flush(&painter);
        return image;
    }

    QPoint moved; //!< where the canvas begins, for the painter

    double columnWidth() const { return grid.step; }
    //! Shows all readings from now on, with lines across outages.
    void holdAll()
    {
        isHeld = true;
        breakAfter = 2.01;
        grid = PixelGrid::between(1.0, time, canvas.width() - 4);
    }
    void waitFor(double seconds) { time += seconds; }

    RVXMultichannelDeviceModel device{channels};
    RVXMultichannelDeviceModel other{channels};
    RVXMultichannelProxyModel merged;
    RVXAveragingProxyModel averages;
    RVXZeroingProxyModel zeroed;

private:
    QVector<int> breaksOf(const RowRange &rows) const
    {
        QVector<int> breaks;
        for (int row = rows.first + 1; row <= rows.last && breakAfter > 0.0; ++row) {
            if (zeroed.doubleData(row, 0) - zeroed.doubleData(row - 1, 0) > breakAfter)
                breaks.append(row - rows.first);
        }
        return breaks;
    }

    std::mt19937 random;
    std::vector<std::unique_ptr<RVXDiscontinuousPlotCurve>> curves;
    double time = 1.0;
    double width = 2.0;
    QSize canvas{60, 90};
    PixelGrid grid = PixelGrid::endingAt(1.0, 2.0, 60);
    bool isHeld = false;
    double breakAfter = 0.01;
    double yRange[2] = {-2.0, 6.0};
    bool isShown[channels] = {true, true, true, true};
    bool isDead[channels] = {};
    QColor colors[channels] = {Qt::red, Qt::green, Qt::blue, Qt::yellow};
};

int differingPixels(const QImage &a, const QImage &b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            count += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    }
    return count;
}

//! Does one of the things that happen to a chart; mostly some rows come.
void Chart::change()
{
    const int channel = upTo(channels);
    if (upTo(5) == 0)
        std::fill_n(isShown, channels, true);
    switch (upTo(28)) {
    case 0:
        append(3000);
        break;
    case 1: // an outage, of less than a pixel or of most of the chart
        time += upTo(2) == 0 ? 0.02 : 1.5;
        append(50);
        break;
    case 2:
        yRange[upTo(2)] += noise(0.5);
        break;
    case 3:
        isShown[channel] = false;
        break;
    case 4:
        colors[channel] = QColor::fromHsv(upTo(360), 255, 255);
        break;
    case 5:
        upTo(2) == 0 ? zeroed.zeroNow() : zeroed.zeroClear();
        break;
    case 6:
        averages.setAveraging(1 + upTo(3));
        break;
    case 7:
        isDead[channel] = !isDead[channel];
        break;
    case 8:
        width = 0.5 + 0.01 * upTo(200);
        break;
    case 9:
        canvas = {50 + upTo(20), 80 + upTo(20)};
        break;
    case 10:
    case 11: // stands still, perhaps elsewhere
        isHeld = !isHeld;
        grid = PixelGrid::between(time - 0.01 * upTo(300) - 1.0, time - 0.01 * upTo(90),
                                  canvas.width() - 4);
        break;
    case 12: // the clock begins anew, and may reach the times of before
        device.Clear();
        other.Clear();
        time = std::max(1.0, time - 1.0);
        break;
    case 13:
        for (RVXMultichannelDeviceModel *model : {&device, &other})
            model->setReadings(channel + 1,
                               QVector<double>(model->rowCount() - 1, channel + noise(1.0)));
        break;
    case 14:
        breakAfter = 2.01 - breakAfter;
        break;
    case 15: // another channel takes its place
        std::swap(curves[0], curves[size_t(channel)]);
        break;
    case 16: // a later end than the newest reading
        time += 0.3;
        break;
    case 17: // the canvas begins elsewhere, but its scales stay
        moved.ry() = upTo(4);
        break;
    default:
        append(1 + upTo(80));
    }
    follow();
}

const double kNan = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

/*! A canvas of 101 x 101 pixels that shows 0 to 100 on either axis, one pixel a unit. */
class Canvas
{
public:
    explicit Canvas(const QVector<QPointF> &samples,
                    QwtPlotCurve::CurveStyle style = QwtPlotCurve::Lines)
    {
        auto *canvas = new QwtPlotCanvas(&m_plot);
        canvas->setFrameStyle(QFrame::NoFrame);
        m_plot.setCanvas(canvas);
        m_plot.setCanvasBackground(Qt::white);
        m_plot.plotLayout()->setCanvasMargin(0);
        m_plot.enableAxis(QwtPlot::xBottom, false);
        m_plot.enableAxis(QwtPlot::yLeft, false);
        m_plot.setAxisScale(QwtPlot::xBottom, 0, 100);
        m_plot.setAxisScale(QwtPlot::yLeft, 0, 100);
        curve = new RVXDiscontinuousPlotCurve;
        curve->setPen(Qt::black);
        curve->setStyle(style);
        curve->setSamples(samples);
        curve->attach(&m_plot);
        m_plot.resize(101, 101);
        m_plot.replot();
        m_image = canvas->grab().toImage();
    }

    //! The columns that have a dark pixel, as runs: "10-20 35".
    QString inked() const
    {
        QStringList runs;
        int first = -1;
        for (int x = 0; x <= m_image.width(); ++x) {
            const bool dark = x < m_image.width() && columnIsDark(x);
            if (dark && first < 0)
                first = x;
            if (!dark && first >= 0) {
                runs << (first == x - 1 ? QString::number(first)
                                        : QString("%1-%2").arg(first).arg(x - 1));
                first = -1;
            }
        }
        return runs.join(' ');
    }
    bool isDark(int x, int y) const { return qGray(m_image.pixel(x, 100 - y)) < 128; }

    RVXDiscontinuousPlotCurve *curve; // belongs to the plot

private:
    bool columnIsDark(int x) const
    {
        for (int y = 0; y < m_image.height(); ++y) {
            if (qGray(m_image.pixel(x, y)) < 128)
                return true;
        }
        return false;
    }

    QwtPlot m_plot;
    QImage m_image;
};

} // namespace

//! How curves look: their lines, and the picture of dense ones that is kept.
class tst_CurvePictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    //! A grid that is filled as areas looks as one that Qwt draws, also where a pen is not as thin as a pixel.
    void gridIsThatOfLines()
    {
        QwtScaleMap xMap, yMap;
        xMap.setScaleInterval(0.0, 7.3);
        xMap.setPaintInterval(3.0, 190.0);
        yMap.setScaleInterval(-1.0, 2.2);
        yMap.setPaintInterval(140.0, 2.0);
        const QwtScaleDiv x(0.0, 7.3, {0.5, 1.5, 7.3}, {2.5}, {0.0, 3.0, 6.1});
        const QwtScaleDiv y(-1.0, 2.2, {-0.9, 2.2}, {0.6}, {-1.0, 1.1});
        const auto drawn = [&](QwtPlotGrid &&grid, const QPen &major, QPoint moved, double ratio) {
            grid.enableXMin(moved.isNull());
            grid.enableYMin(true);
            grid.setMajorPen(major);
            grid.setMinorPen(QPen(Qt::darkGray, 0.0));
            grid.updateScaleDiv(x, y);
            QImage image(QSize(200, 150) * ratio, QImage::Format_RGB32);
            image.setDevicePixelRatio(ratio);
            image.fill(Qt::black);
            QPainter painter(&image);
            painter.translate(moved);
            grid.draw(&painter, xMap, yMap, QRectF(3, 2, 188, 139));
            return image;
        };
        for (const QPen &pen : {QPen(Qt::red, 0.0), QPen(Qt::red, 1.0), QPen(Qt::red, 3.0),
                                QPen(QColor(255, 0, 0, 90)), QPen(Qt::red, 1.0, Qt::DashLine)}) {
            for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
                for (const QPoint moved : {QPoint(), QPoint(-4, 7)})
                    QVERIFY(drawn(GridLines(), pen, moved, ratio)
                            == drawn(QwtPlotGrid(), pen, moved, ratio));
            }
        }
    }

    void isThatOfAFrameDrawnAfresh_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 8; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }
    void isThatOfAFrameDrawnAfresh()
    {
        Chart chart(cell<unsigned>("seed"));
        CurveLayer kept;
        chart.append(4000);
        chart.follow();
        for (int step = 0; step < 400; ++step) {
            chart.change();
            if (chart.upTo(6) == 0) { // another painter wants a picture between two frames
                const QScopedValueRollback<QPoint> elsewhere(chart.moved, {9, 5});
                CurveLayer fresh;
                QVERIFY(chart.drawn(kept, true) == chart.drawn(fresh, true));
            }
            const QImage picture = chart.drawn(kept, true);
            CurveLayer fresh;
            QVERIFY2(picture == chart.drawn(fresh, true), qPrintable(QString::number(step)));
            // Where a painter cuts a long line off depends on the place at which it is drawn.
            QVERIFY(differingPixels(picture, chart.drawn(fresh, false)) <= 8);
        }
    }

    void survivesAClockThatIsSetForward()
    {
        Chart chart(2);
        CurveLayer kept;
        chart.append(4000);
        chart.follow();
        chart.drawn(kept, true);
        // So far that the number of columns, as an int, would be a large positive one.
        chart.waitFor(((1LL << 32) - (1 << 20)) * chart.columnWidth());
        chart.append(1000);
        chart.follow();
        CurveLayer fresh;
        QVERIFY(chart.drawn(kept, true) == chart.drawn(fresh, true));
    }

    void forgetsTheLineFromAReadingThatLeft()
    {
        Chart chart(2);
        CurveLayer kept;
        chart.append(100);
        chart.waitFor(1.5);
        chart.append(chart.device.capacity() - 100);
        chart.holdAll();
        chart.drawn(kept, true);
        chart.append(100);
        CurveLayer fresh;
        QVERIFY(chart.drawn(kept, true) == chart.drawn(fresh, true));
    }

    void isNotWaitedForWhereItsLayerIsOnNoPlot()
    {
        RVXMultichannelDeviceModel device(1);
        for (int i = 1; i <= 1000; ++i)
            device.appendRows(QVector<double>{double(i)}, QVector<double>{double(i % 2)});
        QwtPlot plot;
        CurveLayer layer;
        auto *const curve = new RVXDiscontinuousPlotCurve;
        curve->setLayer(&layer);
        curve->setPen(QPen(Qt::red, 1.0));
        curve->setSamples(device.seriesData(1, 1, 1000));
        curve->attach(&plot);
        QImage image(60, 60, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        QwtScaleMap x;
        x.setScaleInterval(1.0, 1000.0);
        x.setPaintInterval(0.0, 59.0);
        QwtScaleMap y;
        y.setScaleInterval(-1.0, 2.0);
        y.setPaintInterval(59.0, 0.0);
        curve->draw(&painter, x, y, QRectF(0, 0, 60, 60));
        QCOMPARE(image.pixel(30, 30), QColor(Qt::red).rgb());
    }

    void linesBreakAtMissingSamples_data()
    {
        tableFrom(R"(
            | samples | inked
            none missing          | 10,50 40,50 90,20                | 10-90
            one missing           | 10,50 30,50 50,nan 70,50 90,50   | 10-30 70-90
            infinite              | 10,50 30,50 50,inf 60,-inf 70,50 90,50 | 10-30 70-90
            time missing          | 10,50 30,50 nan,50 70,50 90,50   | 10-30 70-90
            point between gaps    | 10,nan 30,50 50,nan 70,50 90,inf | 30 70
            gaps at both ends     | 10,nan 30,50 50,60 90,nan        | 30-50
            all missing           | 10,nan inf,3                     |
            none at all           |                                  |
            one                   | 42,42                            | 42
        )");
    }
    void linesBreakAtMissingSamples()
    {
        QVector<QPointF> points;
        for (const QString &sample : cell("samples").split(' ', Qt::SkipEmptyParts))
            points << QPointF(sample.section(',', 0, 0).toDouble(),
                              sample.section(',', 1).toDouble());
        QTEST(Canvas(points).inked(), "inked");
    }

    void otherStylesSkipThemToo()
    {
        const QVector<QPointF> samples{{10, 50}, {30, kNan}, {50, 50}, {70, 50}};
        QCOMPARE(Canvas(samples, QwtPlotCurve::Sticks).inked(), QString("10 50 70"));
        QCOMPARE(Canvas(samples, QwtPlotCurve::Dots).inked(), QString("10 50 70"));
        QCOMPARE(Canvas(samples, QwtPlotCurve::Steps).inked(), QString("50-70"));
    }

    void valuesFarAwayAreLines()
    {
        const Canvas canvas({{20, 50}, {40, 50}, {60, 1e300}, {80, 50}});
        QVERIFY(canvas.isDark(30, 50));
        QVERIFY(canvas.isDark(40, 90)); // straight up, as far as a pixel can tell
        QVERIFY(canvas.isDark(79, 90) || canvas.isDark(80, 90));
        QVERIFY(!canvas.isDark(60, 50));
    }

    void theBoundsHoldWhatIsFinite()
    {
        RVXDiscontinuousPlotCurve curve;
        curve.setSamples({{kNan, kNan}, {1, 5}, {2, kInf}, {3, -4}, {kInf, 8}});
        QCOMPARE(curve.boundingRect(), QRectF(QPointF(1, -4), QPointF(3, 5)));
        curve.setSamples({{1, kNan}});
        QVERIFY(curve.boundingRect().width() < 0);
        curve.setSamples(QVector<QPointF>{{1, 2}, {3, 5}});
        QCOMPARE(curve.boundingRect(), QRectF(1, 2, 2, 3));
    }
};

CORVALE_QT_TEST_MAIN(tst_CurvePictures)
#include "tst_CurvePictures.moc"
