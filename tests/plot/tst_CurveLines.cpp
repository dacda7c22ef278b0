// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXSeriesData.h"
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/plot/CurveLayer_p.h"
#include "corvale_qt/plot/CurveLines_p.h"
#include "corvale_qt/plot/KeptText_p.h"
#include "corvale_qt/plot/PixelRuns_p.h"
#include "corvale_qt/plot/RVXDiscontinuousPlotCurve.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/TestMain.h"

#include <qwt_plot.h>
#include <qwt_scale_map.h>

using namespace Corvale_Qt;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr QSize canvas(1000, 600);

QwtScaleMap scaleMap(double s1, double s2, double p1, double p2)
{
    QwtScaleMap map;
    map.setScaleInterval(s1, s2);
    map.setPaintInterval(p1, p2);
    return map;
}

const QwtScaleMap upwards = scaleMap(-1.5, 1.5, 599.0, 0.0); // y
const QwtScaleMap wholeSignal = scaleMap(1001.0, 21000.0, 0.0, 999.0); // x of a plain Signal

QImage emptyCanvas()
{
    QImage image(canvas, QImage::Format_RGB32);
    image.fill(Qt::black);
    return image;
}

QPen yellowPen()
{
    return QPen(Qt::yellow, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
}

// The promise itself: each pair of neighbouring samples is a line of its own, a lonely sample a point.
QImage everySegment(const QwtSeriesData<QPointF> &series, const QwtScaleMap &x,
                    const QwtScaleMap &y, const QVector<int> &breaks = {})
{
    QImage image = emptyCanvas();
    QPainter painter(&image);
    painter.setPen(yellowPen());
    const int count = int(series.size());
    const auto isMissing = [&](int i) {
        if (i < 0 || i >= count)
            return true;
        const QPointF point = series.sample(size_t(i));
        return !std::isfinite(point.x()) || !std::isfinite(point.y());
    };
    const auto pixel = [&](int i) {
        const QPointF point = series.sample(size_t(i));
        return QPoint(pixelOf(x, point.x()), pixelOf(y, point.y()));
    };
    const auto isJoined = [&](int i) { // to the sample after it
        return !isMissing(i) && !isMissing(i + 1) && !breaks.contains(i + 1);
    };
    for (int i = 0; i < count; ++i) {
        if (isJoined(i))
            painter.drawLine(pixel(i), pixel(i + 1));
        else if (!isMissing(i) && !isJoined(i - 1))
            painter.drawPoint(pixel(i));
    }
    return image;
}

void prepare(QwtPlotCurve &curve, const RVXSeriesData &series)
{
    curve.setPen(yellowPen());
    // With FilterPoints, Qwt's curve leaves samples out.
    curve.setPaintAttribute(QwtPlotCurve::FilterPoints, false);
    curve.setSamples(new RVXSeriesData(series));
}

QImage drawn(const QwtPlotCurve &curve, const QwtScaleMap &x, const QwtScaleMap &y,
             QImage image = emptyCanvas())
{
    QPainter painter(&image);
    curve.draw(&painter, x, y, QRectF(QPointF(0, 0), canvas));
    return image;
}

//! Draws the curve into a layer, and the layer at once.
QImage drawnInLayer(RVXDiscontinuousPlotCurve &curve, const QwtScaleMap &x, const QwtScaleMap &y,
                    QImage image = emptyCanvas(), const QVector<int> &breaks = {})
{
    CurveLayer layer;
    layer.breaks() = breaks;
    curve.setLayer(&layer);
    QPainter painter(&image);
    curve.draw(&painter, x, y, QRectF(QPointF(0, 0), canvas));
    layer.flush(&painter);
    curve.setLayer(nullptr);
    return image;
}

int differingPixels(const QImage &a, const QImage &b)
{
    int count = 0;
    for (int row = 0; row < a.height(); ++row) {
        for (int column = 0; column < a.width(); ++column)
            count += a.pixel(column, row) != b.pixel(column, row) ? 1 : 0;
    }
    return count;
}

int litPixels(const QImage &image)
{
    return differingPixels(image, emptyCanvas());
}

int wrongPixels(const RVXSeriesData &series, const QwtScaleMap &x, const QwtScaleMap &y)
{
    RVXDiscontinuousPlotCurve curve;
    prepare(curve, series);
    return differingPixels(drawn(curve, x, y), everySegment(series, x, y));
}

// Readings with everything that a day brings, chosen by the case.
struct Signal
{
    int samples = 20000;
    double amplitude = 1.0;
    int gapEvery = 0;
    double gap = notANumber;
    double jitter = 0.0; // of the time step; above 1 time runs backwards now and then
    int skipped = 0; // readings that came and went before
    int jumpEvery = 0; // a pause of 500 steps; the canvas begins and ends in one
};

void feed(RVXSingleChannelDataModel &model, const Signal &signal)
{
    std::mt19937 random(5);
    std::normal_distribution<double> noise(0.0, 0.2);
    model.setAutoUpdate(false);
    double time = 1000.0;
    for (int i = 0; i < signal.skipped + signal.samples; ++i) {
        time += signal.jumpEvery > 0 && i % signal.jumpEvery == 0 ? 500.0 : 1.0;
        const double stamp = time + signal.jitter * noise(random);
        const bool missing = signal.gapEvery > 0 && i % signal.gapEvery < 2;
        const double value = std::sin(i * 0.0013) + noise(random);
        model.AddData(stamp, missing ? signal.gap : signal.amplitude * value);
    }
    model.UpdateView();
}

} // namespace

class tst_CurveLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void denseIsEverySegment_data()
    {
        tableFrom(R"(
            | int samples | double amplitude | int gapEvery | double gap | double jitter | int skipped | int jumpEvery
            plain                       | 20000 | 1     | 0  | nan   | 0   | 0     | 0
            just dense                  | 2200  | 1     | 0  | nan   | 0   | 0     | 0
            gaps                        | 20000 | 1     | 37 | nan   | 0   | 0     | 0
            single samples between gaps | 20000 | 1     | 3  | nan   | 0   | 0     | 0
            infinities                  | 20000 | 1     | 41 | -inf  | 0   | 0     | 0
            enormous values             | 20000 | 1     | 41 | 1e300 | 0   | 0     | 0
            all of it enormous          | 20000 | 1e300 | 0  | nan   | 0   | 0     | 0
            clipped                     | 20000 | 8     | 0  | nan   | 0   | 0     | 0
            mostly outside              | 20000 | 1e5   | 0  | nan   | 0   | 0     | 0
            wrapped ring                | 20000 | 1     | 0  | nan   | 0   | 92223 | 0
            pauses                      | 20000 | 1     | 0  | nan   | 0   | 0     | 500
            time backwards              | 20000 | 1     | 0  | nan   | 4   | 0     | 0
            time far backwards, gaps    | 20000 | 1     | 50 | nan   | 300 | 0     | 0
        )");
    }
    void denseIsEverySegment()
    {
        QFETCH(int, samples);
        QFETCH(double, amplitude);
        QFETCH(double, gap);
        QFETCH(double, jitter);
        QFETCH(int, skipped);
        QFETCH(int, jumpEvery);
        RVXSingleChannelDataModel model;
        feed(model, {samples, amplitude, cell<int>("gapEvery"), gap, jitter, skipped, jumpEvery});
        const int last = model.rowCount() - 1;
        const RVXSeriesData series(model, 1, 1, -1);
        RVXDiscontinuousPlotCurve curve;
        prepare(curve, series);
        const double from = model.doubleData(1, 0);
        const double to = model.doubleData(last, 0);
        // The whole of it, and a window that begins and ends among the samples.
        const double inset = (to - from) * 0.02;
        for (double shift : {0.0, inset}) {
            const QwtScaleMap x = scaleMap(from + shift, to - shift, 0.0, 999.0);
            const QImage picture = drawn(curve, x, upwards);
            QVERIFY(litPixels(picture) > 0);
            QCOMPARE(differingPixels(picture, everySegment(series, x, upwards)), 0);
            QCOMPARE(differingPixels(picture, drawnInLayer(curve, x, upwards)), 0);
        }
    }

    void linesBreakWhereTold_data()
    {
        tableFrom(R"(
            | int samples | int gapEvery | double jitter
            a sample for each few pixels     | 300   | 0  | 0
            with missing samples             | 300   | 7  | 0
            time backwards                   | 300   | 0  | 4
            many samples for each pixel      | 20000 | 0  | 0
            many samples and missing ones    | 20000 | 37 | 0
            many samples, time backwards     | 20000 | 0  | 4
        )");
    }
    void linesBreakWhereTold()
    {
        QFETCH(int, samples);
        RVXSingleChannelDataModel model;
        feed(model, {samples, 1.0, cell<int>("gapEvery"), notANumber, cell<double>("jitter")});
        // The series begins in the middle of the buffer; some breaks follow each other, one is at its end.
        const RVXSeriesData series(model, 1, 11, -1);
        const int count = int(series.size());
        QVector<int> breaks{1, 2, 5, count / 2, count / 2 + 1, count - 1};
        std::mt19937 random(9);
        for (int i = 6; i < count / 2; i += 1 + int(random() % 40))
            breaks.append(i);
        std::sort(breaks.begin(), breaks.end());
        RVXDiscontinuousPlotCurve curve;
        prepare(curve, series);
        const double to = model.doubleData(model.rowCount() - 1, 0);
        const int fifth = samples / 5;
        for (const double from : {1001.0, 1001.0 + fifth}) {
            const QwtScaleMap x = scaleMap(from, to, 0.0, 999.0);
            const QImage picture = drawnInLayer(curve, x, upwards, emptyCanvas(), breaks);
            QVERIFY(differingPixels(picture, drawn(curve, x, upwards)) > 0);
            QImage pieces = emptyCanvas();
            QPainter painter(&pieces);
            for (int i = 0; i <= breaks.size(); ++i) {
                const int first = i > 0 ? breaks[i - 1] : 0;
                const int last = (i < breaks.size() ? breaks[i] : count) - 1;
                curve.drawSeries(&painter, x, upwards, QRectF(QPointF(0, 0), canvas), first, last);
            }
            // Each piece of many samples is drawn by another method alone than in the whole.
            const bool dense = samples > 1000;
            QCOMPARE(
                differingPixels(picture, dense ? everySegment(series, x, upwards, breaks) : pieces),
                0);
        }
    }

    void axesTurnedRound()
    {
        RVXSingleChannelDataModel model;
        feed(model, Signal());
        QCOMPARE(wrongPixels(RVXSeriesData(model, 1, 1, -1), scaleMap(21001.0, 1001.0, 0.0, 999.0),
                             scaleMap(-1.5, 1.5, 0.0, 599.0)),
                 0);
    }

    void partOfTheBuffer()
    {
        RVXSingleChannelDataModel model;
        feed(model, {50000});
        const Units::mA mA;
        model.SetUnits(&mA);
        RVXSeriesData series(model, 1, 20000, 26000);
        series.setScale(700.0);
        QCOMPARE(wrongPixels(series, scaleMap(21010.0, 26990.0, 0.0, 999.0), upwards), 0);
    }

    void newDataUnderTheSameColumns()
    {
        // Two channels share a chart's columns; what is kept for the second must not outlive the data.
        RVXSingleChannelDataModel model;
        for (double bend : {1.0, 2.0, 3.0}) {
            model.Clear();
            // A whole buffer each time, so that the samples lie in the same memory.
            for (int i = 0; i < 100000; ++i)
                model.AddData(9999.0 * std::pow(i / 99999.0, bend), std::sin(i * 0.001));
            const RVXSeriesData series(model, 1, 1, -1);
            QCOMPARE(wrongPixels(series, scaleMap(0.0, 9999.0, 0.0, 999.0), upwards), 0);
        }
    }

    void hostsNumbers()
    {
        struct Halved : RVXSingleChannelDataModel
        {
            double doubleData(int row, int column) const override
            {
                const double value = RVXSingleChannelDataModel::doubleData(row, column);
                return column == 1 ? 0.5 * value : value;
            }
        };
        Halved model;
        feed(model, Signal());
        QCOMPARE(wrongPixels(RVXSeriesData(model, 1, 1, -1), wholeSignal, upwards), 0);
    }

    void sparseIsQwtsOwn()
    {
        RVXSingleChannelDataModel model;
        RVXDiscontinuousPlotCurve curve;
        QwtPlotCurve stock;
        for (double bend : {1.0, 2.0, 3.0}) {
            // New data under the same positions, some of it beyond the canvas.
            model.Clear();
            for (int i = 0; i < 300; ++i)
                model.AddData(299.0 * std::pow(i / 299.0, bend), 4.0 * std::sin(i * 0.1));
            for (bool clipped : {false, true}) {
                for (QwtPlotCurve *each : {static_cast<QwtPlotCurve *>(&curve), &stock}) {
                    prepare(*each, RVXSeriesData(model, 1, 1, -1));
                    each->setPaintAttribute(QwtPlotCurve::ClipPolygons, clipped);
                }
                // The same samples under another map, too.
                for (double right : {299.0, 150.0}) {
                    const QwtScaleMap x = scaleMap(0.0, right, 0.0, 999.0);
                    QCOMPARE(differingPixels(drawn(curve, x, upwards), drawn(stock, x, upwards)),
                             0);
                }
            }
        }
    }

    void lonelySamplesAreSeen()
    {
        RVXSingleChannelDataModel model;
        for (int i = 1; i <= 30; ++i)
            model.AddData(i, i % 2 == 0 ? 0.5 : notANumber);
        RVXDiscontinuousPlotCurve curve;
        prepare(curve, RVXSeriesData(model, 1, 1, -1));
        const QwtScaleMap x = scaleMap(1.0, 30.0, 10.0, 990.0);
        const QwtScaleMap y = scaleMap(0.0, 1.0, 599.0, 0.0);
        const QImage picture = drawn(curve, x, y);
        QCOMPARE(litPixels(picture), 15);
        QCOMPARE(picture.pixelColor(pixelOf(x, 16.0), pixelOf(y, 0.5)), QColor(Qt::yellow));
    }

    void penThatBlends()
    {
        // Runs would lie over each other's ends and blend twice; such a pen takes the plain way.
        RVXSingleChannelDataModel model;
        feed(model, Signal());
        RVXDiscontinuousPlotCurve curve;
        prepare(curve, RVXSeriesData(model, 1, 1, -1));
        for (const QPen &pen : {QPen(QColor(255, 255, 0, 100), 1.0), QPen(Qt::yellow, 3.0)}) {
            curve.setPen(pen);
            QVERIFY(litPixels(drawn(curve, wholeSignal, upwards)) > 10000);
        }
    }

    void orderOfCurvesInALayer()
    {
        // Dense, sparse, dense: what is drawn later lies above, as without the layer.
        RVXSingleChannelDataModel dense;
        RVXSingleChannelDataModel sparse;
        feed(dense, Signal());
        for (int i = 0; i < 400; ++i)
            sparse.AddData(1000.0 + 50.0 * i, i % 2 == 0 ? -1.0 : 1.0);
        const auto picture = [&](CurveLayer *layer) {
            QwtPlot plot;
            plot.setAxisScale(QwtPlot::yLeft, -1.5, 1.5);
            plot.setAxisScale(QwtPlot::xBottom, 1000.0, 21000.0);
            const struct
            {
                const RVXAbstractPlotDataModel &model;
                QColor colour;
            } shown[] = {{dense, Qt::red}, {sparse, Qt::green}, {dense, Qt::blue}};
            for (const auto &each : shown) {
                auto *curve = new RVXDiscontinuousPlotCurve;
                curve->setPen(QPen(each.colour, 1.0));
                curve->setSamples(
                    new RVXSeriesData(each.model, 1, 1, each.colour == Qt::blue ? 9000 : -1));
                curve->setLayer(layer);
                curve->attach(&plot);
            }
            if (layer)
                layer->attach(&plot);
            plot.resize(800, 500);
            plot.replot();
            return plot.grab().toImage().convertToFormat(QImage::Format_RGB32);
        };
        const QImage without = picture(nullptr);
        QCOMPARE(differingPixels(picture(new CurveLayer), without), 0);
    }

    void moreColoursThanALayerHolds()
    {
        // They lie over each other, each a little lower: of every one a strip is seen.
        RVXSingleChannelDataModel model;
        for (int i = 0; i < 60; ++i)
            model.AddData(i, i % 2 == 0 ? -1.0 : 1.0);
        const QRectF narrow(0.0, 0.0, 20.0, canvas.height());
        const QwtScaleMap x = scaleMap(0.0, 59.0, 0.0, 19.0);
        const auto picture = [&](CurveLayer *layer) {
            QImage image = emptyCanvas();
            QPainter painter(&image);
            for (int i = 0; i < 300; ++i) {
                RVXDiscontinuousPlotCurve curve;
                curve.setPen(QPen(QColor(i % 256, 255 - i / 2, i / 2), 1.0));
                curve.setSamples(new RVXSeriesData(model, 1, 1, -1));
                curve.setLayer(layer);
                const QwtScaleMap y = scaleMap(-1.5, 1.5, 500.0 + i / 4.0, i + 1.0);
                curve.draw(&painter, x, y, narrow);
            }
            if (layer)
                layer->flush(&painter);
            return image;
        };
        CurveLayer layer;
        const QImage gathered = picture(&layer);
        QCOMPARE(differingPixels(gathered, picture(nullptr)), 0);
        QSet<QRgb> colours;
        for (int row = 0; row < canvas.height(); ++row)
            colours.insert(gathered.pixel(10, row));
        QVERIFY2(colours.size() > 256, qPrintable(QString::number(colours.size())));
    }

    //! A painter has its own corners there; but a layer must lie where it would, and have no seams.
    void onFinerPixels()
    {
        RVXSingleChannelDataModel model;
        feed(model, Signal());
        RVXDiscontinuousPlotCurve curve;
        prepare(curve, RVXSeriesData(model, 1, 1, -1));
        for (const double ratio : {1.5, 2.0, 3.0}) {
            QImage empty(ratio * canvas, QImage::Format_RGB32);
            empty.setDevicePixelRatio(ratio);
            empty.fill(Qt::black);
            const QImage plain = drawn(curve, wholeSignal, upwards, empty);
            const QImage layered = drawnInLayer(curve, wholeSignal, upwards, empty);
            const int lit = differingPixels(plain, empty);
            QVERIFY(lit > 100000);
            QVERIFY2(differingPixels(layered, plain) < lit / 100,
                     qPrintable(QString::number(ratio)));
        }
    }

    //! There each pair of samples is a line, whose caps differ from the corners of a polyline in a few pixels.
    void fewSamplesOnFinerPixels()
    {
        RVXSingleChannelDataModel model;
        for (int i = 0; i < 250; ++i)
            model.AddData(i + 1, std::sin(0.7 * i) + 0.3 * std::cos(2.9 * i));
        const RVXSeriesData series(model, 1, 1, -1);
        const QwtScaleMap x = scaleMap(1.0, 250.0, 0.0, 999.0);
        RVXDiscontinuousPlotCurve curve;
        prepare(curve, series);
        QImage empty(2 * canvas, QImage::Format_RGB32);
        empty.setDevicePixelRatio(2.0);
        empty.fill(Qt::black);
        QPolygonF points;
        for (size_t i = 0; i < series.size(); ++i) {
            const QPointF point = series.sample(i);
            points << QPointF(pixelOf(x, point.x()), pixelOf(upwards, point.y()));
        }
        QImage lines = empty;
        QImage polyline = empty;
        QPainter ofLines(&lines);
        ofLines.setPen(yellowPen());
        for (int i = 1; i < points.size(); ++i)
            ofLines.drawLine(points[i - 1], points[i]);
        ofLines.end();
        QPainter ofPolyline(&polyline);
        ofPolyline.setPen(yellowPen());
        ofPolyline.drawPolyline(points);
        ofPolyline.end();
        const QImage picture = drawn(curve, x, upwards, empty);
        QVERIFY(differingPixels(picture, empty) > 50000);
        QCOMPARE(differingPixels(picture, lines), 0);
        const int atCorners =
            differingPixels(picture, polyline); // these are as sharp as corners get
        QVERIFY2(atCorners < 5 * points.size(), qPrintable(QString::number(atCorners)));
    }

    void textThatIsKeptHasThePixelsOfDrawText_data()
    {
        columns<QString, double>("text", "ratio");
        row("a line", "-1.5 nA", 1.0);
        row("a line that begins with a slim letter", "1", 1.0);
        row("lines of different lengths", "12:00:01\nChannel left\n\n  Mean: -3.5e-07", 1.0);
        row("letters of another font", QString::fromUtf8("12:00\n水平 and more\nend"), 1.0);
        row("on finer pixels", "12:00:01\nChannel left\n -5", 2.0);
    }
    void textThatIsKeptHasThePixelsOfDrawText()
    {
        QFETCH(QString, text);
        QFETCH(double, ratio);
        KeptText kept;
        const auto picture = [&](const QPointF &place, bool isKept, bool isLine = false) {
            QImage image(QSize(300, 120) * ratio, QImage::Format_RGB32);
            image.setDevicePixelRatio(ratio);
            QLinearGradient ground(0.0, 0.0, 300.0, 120.0);
            ground.setColorAt(0.0, Qt::darkBlue);
            ground.setColorAt(1.0, Qt::yellow);
            QPainter painter(&image);
            painter.fillRect(image.rect(), ground);
            painter.setFont(QFont("Monospace", 9));
            painter.setPen(QColor(255, 230, 230));
            if (isKept && isLine)
                kept.drawLine(painter, place, text);
            else if (isLine)
                painter.drawText(place, text);
            else if (isKept)
                kept.draw(painter, place, text);
            else
                painter.drawText(QRectF(place, QSizeF(290, 110)),
                                 int(Qt::AlignLeft | Qt::AlignTop) | Qt::TextForceLeftToRight,
                                 text);
            return image;
        };
        QCOMPARE(picture(QPointF(8.25, 4), true), picture(QPointF(8.25, 4), false));
        // From the second time on, a picture of the letters is blended.
        for (const QPointF &place : {QPointF(3, 4), QPointF(17, 9)})
            QCOMPARE(picture(place, true), picture(place, false));
        for (const QPointF &place : {QPointF(3, 40), QPointF(17, 60), QPointF(5, 70)})
            QCOMPARE(picture(place, true, true), picture(place, false, true));
    }
};

CORVALE_QT_TEST_MAIN(tst_CurveLines)
#include "tst_CurveLines.moc"
