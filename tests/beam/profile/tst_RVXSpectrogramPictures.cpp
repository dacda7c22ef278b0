// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXPositionPlot.h"
#include "corvale_qt/beam/profile/RVXSplitPlot.h"
#include "corvale_qt/beam/profile/SpectrogramPlot_p.h"
#include "corvale_qt/beam/spots/RVXPositionErrorPlot.h"
#include "corvale_qt/beam/spots/SpotMapWidget.h"
#include "tests/beam/profile/BeamDisplay.h"
#include "tests/support/PaintCounter.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestMain.h"

#include <qwt_plot_item.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>

using namespace Corvale_Qt;

namespace {

/*! Position and direction of a shape in a picture. */
struct Blob
{
    double weight = 0;
    QPointF centre; //!< pixels
    double angle = 0; //!< direction of the longer axis, degrees counter-clockwise from the right
};

Blob measure(const QImage &image, const std::function<double(int, int)> &weightAt)
{
    double sum = 0, x = 0, y = 0, xx = 0, yy = 0, xy = 0;
    forEachPixel(image, [&](int column, int row) {
        const double weight = weightAt(column, row);
        sum += weight;
        x += weight * column;
        y += weight * row;
        xx += weight * column * column;
        yy += weight * row * row;
        xy += weight * column * row;
    });
    Blob blob;
    blob.weight = sum;
    blob.centre = QPointF(x, y) / sum;
    const double cxx = xx / sum - blob.centre.x() * blob.centre.x();
    const double cyy = yy / sum - blob.centre.y() * blob.centre.y();
    const double cxy = xy / sum - blob.centre.x() * blob.centre.y();
    blob.angle = -std::atan2(2 * cxy, cxx - cyy) / 2 * 180 / M_PI;
    return blob;
}

Blob brightness(const QImage &image)
{
    return measure(image, [&image](int x, int y) { return qGray(image.pixel(x, y)); });
}

Blob difference(const QImage &one, const QImage &other)
{
    return measure(one, [&](int x, int y) { return one.pixel(x, y) != other.pixel(x, y); });
}

/*! A grey display of the raster alone. Items that a test switches on show as a difference between two pictures. */
struct PictureDisplay : BeamDisplay
{
    explicit PictureDisplay(Detector detector)
        : BeamDisplay(detector)
    {
        widget.sidebarEnabled(false);
        widget.resize(420, 420);
        control<QComboBox>("comboBox_color")->setCurrentIndex(0);
        check("checkBox_smoothing", true);
        check("checkBox_ellipse", false);
        check("checkBox_meanX", false);
        check("checkBox_meanY", false);
        plot = widget.findChild<SpectrogramPlot *>();
    }

    QImage canvas()
    {
        widget.grab(); // lays it out
        return plot->canvas()->grab().toImage();
    }
    //! Returns a picture with an item that is switched on for it alone.
    QImage canvasWith(const char *item)
    {
        check(item, true);
        QImage picture = canvas();
        check(item, false);
        return picture;
    }
    //! Returns the pixel of the picture at a position in raster units.
    QPointF pixelOf(double rasterX, double rasterY) const
    {
        return widget.devicePixelRatioF()
            * QPointF(plot->canvasMap(QwtPlot::xBottom).transform(rasterX),
                      plot->canvasMap(QwtPlot::yLeft).transform(rasterY));
    }

    SpectrogramPlot *plot;
};

} // namespace

class tst_RVXSpectrogramPictures : public QObject
{
    Q_OBJECT

private:
    static void bothDetectors()
    {
        columns<bool>("strips");
        row("pixels", false);
        row("strips", true);
    }

private Q_SLOTS:
    //! Labels that grow while the display is behind another tab leave room for the title of the colour bar.
    void colorBarHasRoom()
    {
        PictureDisplay display(Detector::Strips);
        display.widget.show();
        display.feed(Frames::strips(0, 1.0));
        display.widget.hide();
        display.feed(Frames::strips(0, 1.37e-13));
        display.widget.show();
        const QwtScaleWidget *bar = display.plot->axisWidget(QwtPlot::yRight);
        QTRY_VERIFY(bar->isVisible());
        QVERIFY2(
            bar->width() >= bar->minimumSizeHint().width(),
            qPrintable(
                QStringLiteral("%1 < %2").arg(bar->width()).arg(bar->minimumSizeHint().width())));
    }

    void theEllipseLiesAlongTheBeam_data()
    {
        columns<bool, double, bool, bool>("strips", "degrees", "invertX", "invertY");
        for (int inversion = 0; inversion < 4; ++inversion) {
            for (double degrees : {0, 30, 45, 90, 135}) {
                for (bool strips : {false, true}) {
                    QTest::addRow("%s, %g degrees, inverted %d", strips ? "strips" : "pixels",
                                  degrees, inversion)
                        << strips << degrees << bool(inversion & 1) << bool(inversion & 2);
                }
            }
        }
    }
    void theEllipseLiesAlongTheBeam()
    {
        QFETCH(bool, strips);
        QFETCH(double, degrees);
        QFETCH(bool, invertX);
        QFETCH(bool, invertY);
        PictureDisplay display(strips ? Detector::Strips : Detector::Pixels);
        display.check("checkBox_invertX", invertX);
        display.check("checkBox_invertY", invertY);
        // Strips see the beam's projections.
        const double turn = degrees * M_PI / 180;
        const double sigmaX = std::hypot(4 * std::cos(turn), 1.6 * std::sin(turn));
        const double sigmaY = std::hypot(4 * std::sin(turn), 1.6 * std::cos(turn));
        display.feed(strips ? Frames::strips(17, sigmaX, 14, sigmaY)
                            : Frames::pixels(1.9, -1.9, 6.5, 2.8, degrees));
        const QImage bare = display.canvas();
        const Blob beam = brightness(bare);
        const Blob ellipse = difference(display.canvasWith("checkBox_ellipse"), bare);
        QVERIFY(ellipse.weight > 100);

        // The strips' raster is drawn half a cell off its centre.
        const double cell = bare.width() / (strips ? 32.0 : 12.0);
        const QPointF off = ellipse.centre - beam.centre;
        QVERIFY(std::hypot(off.x(), off.y()) < (strips ? 0.85 : 0.4) * cell);
        // A beam of 45 degrees has two equal projections: the strips' ellipse is a circle.
        const bool round = strips && (degrees == 45 || degrees == 135);
        QVERIFY(round || near(apart(ellipse.angle, beam.angle), 0, 5));
        // The picture is mirrored as often as an axis is.
        const double expected = invertX != invertY ? -degrees : degrees;
        QVERIFY(strips || near(apart(ellipse.angle, expected), 0, 5));
        QCOMPARE(beam.centre.x() > bare.width() / 2.0, !invertX);
        QCOMPARE(beam.centre.y() > bare.height() / 2.0, !invertY);
    }

    void theEllipseGrowsWithItsSigmas_data() { bothDetectors(); }
    void theEllipseGrowsWithItsSigmas()
    {
        QFETCH(bool, strips);
        PictureDisplay display(strips ? Detector::Strips : Detector::Pixels);
        // 5 mm wide and 4 mm high, in the middle.
        display.feed(strips ? Frames::strips(15.5, 2.5, 15.5, 2) : Frames::pixels(0, 0, 5, 4, 0));
        const QImage bare = display.canvas();
        display.check("checkBox_ellipse", true);
        for (int sigmas : {1, 3}) {
            display.control<QSpinBox>("spinBox_sigma")->setValue(sigmas);
            const QRectF ellipse = differingArea(display.canvas(), bare);
            const double millimetre = bare.width() / (strips ? 32 * 2.0 : 12 * 3.8);
            const double line = 4 * bare.devicePixelRatio(); // the width of the outline
            const QPointF off = ellipse.center() - QPointF(bare.width(), bare.height()) / 2;
            QVERIFY(std::hypot(off.x(), off.y()) < line);
            // The matrix sees a little less of a beam than there is: it is round, and has an edge.
            QVERIFY(std::abs((ellipse.width() - line) / (2 * 5 * sigmas * millimetre) - 1) < 0.06);
            QVERIFY(std::abs((ellipse.height() - line) / (2 * 4 * sigmas * millimetre) - 1) < 0.06);
        }
    }

    void belowTheThresholdThereIsNoEllipse()
    {
        PictureDisplay display(Detector::Pixels);
        display.check("checkBox_arrow", true);
        display.control<QDoubleSpinBox>("threshold_QScienceSpinBox")->setValue(5e-10);
        display.feed(Frames::pixels(6, 4, 4, 4, 0, 1e-9));
        display.check("checkBox_arrow", false);
        const QImage bare = display.canvas();
        display.check("checkBox_arrow", true);
        display.check("checkBox_ellipse", true);
        QVERIFY(display.canvas() != bare);

        display.check("checkBox_threshold", true);
        display.widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&display.widget));
        display.feed(Frames::pixels(-6, 0, 4, 4, 0, 1e-10));
        QCOMPARE(display.canvas(), bare);
        QCoreApplication::processEvents();
        // Nothing else changes, so nothing is painted.
        PaintCounter paints(display.plot->canvas());
        for (int i = 0; i < 5; ++i) {
            display.feed(Frames::pixels(-6, 0, 4, 4, 0, 1e-10));
            QCoreApplication::processEvents();
        }
        QCOMPARE(paints.count, 0);
        display.feed(Frames::pixels(6, 4, 4, 4, 0, 1e-9));
        QVERIFY(display.canvas() != bare);
        QTRY_VERIFY(paints.count > 0);
    }

    void coloursStandForReadings_data()
    {
        columns<int>("mode");
        QTest::addColumn<QString>("colours"); // at 0, 0.05, 0.1, 0.2, 0.3 ... 1 of full scale
        row("colour", 1,
            "000000 000080 0000ff 0080ff 00ffff 00ff80 00ff00 80ff00 ffff00 "
            "ff8000 ff0000 ff0000");
        row("grey", 0,
            "000000 0d0d0d 1a1a1a 333333 4d4d4d 666666 808080 999999 b3b3b3 "
            "cccccc e6e6e6 ffffff");
    }
    void coloursStandForReadings()
    {
        const double shares[] = {0, 0.05, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 1};
        PictureDisplay display(Detector::Pixels);
        display.control<QComboBox>("comboBox_color")->setCurrentIndex(cell<int>("mode"));
        display.check("checkBox_smoothing", false);
        display.widget.setRange(1e-6, 2e-9);
        display.widget.setScale(2);
        QVector<double> frame(128, 0.0);
        for (int column = 0; column < 12; ++column)
            frame[PixelWiring::readingAt(5, column)] = shares[column] * 2e-9;
        display.feed(frame);
        const QImage image = display.canvas();
        for (int column = 0; column < 12; ++column) {
            const QColor seen = image.pixelColor(display.pixelOf(column + 0.5, 5.5).toPoint());
            const QColor expected("#" + cell("colours").section(' ', column, column));
            // Halves may be rounded either way.
            for (const auto part : {&QColor::red, &QColor::green, &QColor::blue})
                QVERIFY2(std::abs((seen.*part)() - (expected.*part)()) <= 1,
                         qPrintable(QString("%1: %2").arg(shares[column]).arg(seen.name())));
        }
    }

    void axesCountCells()
    {
        for (Detector detector : {Detector::Strips, Detector::Pixels}) {
            PictureDisplay display(detector);
            QString ticks;
            for (int axis : {QwtPlot::xBottom, QwtPlot::yLeft}) {
                const QwtScaleDiv div = display.plot->axisScaleDiv(axis);
                QList<double> values = div.ticks(QwtScaleDiv::MajorTick);
                std::sort(values.begin(), values.end());
                ticks += div.isIncreasing() ? "up" : "down";
                for (double value : values)
                    ticks += ' ' + QString::number(value);
                ticks += ". ";
            }
            QCOMPARE(ticks,
                     QString(detector == Detector::Strips
                                 ? "up 0 4 8 12 16 20 24 28 32. "
                                   "down 0 2 4 6 8 10 12 14 16 18 20 22 24 26 28 30 32. "
                                 : "up 0 2 4 6 8 10 12. down 0 2 4 6 8 10 12. "));
        }
    }

    void numbersHaveADecimalPointInEveryLocale()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QWidget window;
        auto *profile = new RVXSpectrogram(&window);
        new RVXPositionPlot(&window);
        (new RVXSplitPlot(&window))->setNumberPlots(1);
        new RVXPositionErrorPlot(&window);
        new SpotMapWidget(&window);
        window.setLocale(QLocale());
        const auto axes = window.findChildren<QwtScaleWidget *>();
        const auto boxes = window.findChildren<QDoubleSpinBox *>();
        QVERIFY(axes.size() == 5 * 4 + 2 && boxes.size() >= 14);
        profile->setPixelated(true);
        QMetaObject::invokeMethod(profile, "update");
        profile->setData(Frames::pixels(3, 4, 5, 4, 30), 1);
        for (const QwtScaleWidget *axis : axes) {
            const QString text = axis->scaleDraw()->label(4328.5).text();
            QVERIFY2(axis->isHidden() || !text.contains(','), qPrintable(text));
        }
        for (const QDoubleSpinBox *box : boxes) {
            const QString text = box->text();
            QVERIFY2(!text.contains(','), qPrintable(box->objectName() + ": " + text));
        }
        // The operator may type the decimal sign of the locale.
        auto *threshold = window.findChild<QDoubleSpinBox *>("threshold_QScienceSpinBox");
        QCOMPARE(threshold->valueFromText("1,5e-9 C"), 1.5e-9);
        QLocale::setDefault(before);
    }

    void theBrightestSpotIsTheBeam()
    {
        PictureDisplay display(Detector::Pixels);
        display.check("checkBox_smoothing", false);
        display.feed(Frames::pixels(9.5, 5.7, 3, 3, 0)); // the middle of column 8, row 4
        const QImage image = display.canvas();
        const QPoint spot = display.pixelOf(8.5, 4.5).toPoint();
        QCOMPARE(qGray(image.pixel(spot)), 255);
        const int white =
            countPixels(image, [](const QColor &color) { return color == QColor(Qt::white); });
        const double cell = image.width() / 12.0;
        QVERIFY(std::abs(white - cell * cell) < 0.2 * cell * cell); // that cell and no other
    }

    void meansAndArrowAreWhereTheyBelong()
    {
        PictureDisplay display(Detector::Pixels);
        display.feed(Frames::pixels(7.6, 3.8, 3, 3, 0)); // two cells right of the middle, one up
        const QImage bare = display.canvas();
        const Blob meanX = difference(display.canvasWith("checkBox_meanX"), bare);
        QVERIFY(near(meanX.centre.x(), display.pixelOf(8, 0).x(), 4));
        QVERIFY(apart(meanX.angle, 90) < 1);
        const Blob meanY = difference(display.canvasWith("checkBox_meanY"), bare);
        QVERIFY(near(meanY.centre.y(), display.pixelOf(0, 5).y(), 4));

        // The arrow points from the middle to the beam: two to the right and one up.
        Blob arrow = difference(display.canvasWith("checkBox_arrow"), bare);
        QVERIFY(apart(arrow.angle, std::atan(0.5) * 180 / M_PI) < 4);
        display.box("xorigin_doubleSpinBox")->setValue(7.6);
        display.box("yorigin_doubleSpinBox")->setValue(-11.4);
        arrow = difference(display.canvasWith("checkBox_arrow"), bare);
        QVERIFY(apart(arrow.angle, 90) < 2);
        QVERIFY(near(arrow.centre.x(), display.pixelOf(8, 0).x(), 6));
        // The coordinates of the origin are mirrored as the means are.
        display.check("checkBox_invertX", true);
        const QImage mirrored = display.canvas();
        display.box("xorigin_doubleSpinBox")->setValue(-7.6);
        arrow = difference(display.canvasWith("checkBox_arrow"), mirrored);
        QVERIFY(apart(arrow.angle, 90) < 2);
    }

    void theCanvasStaysSquare()
    {
        PictureDisplay display(Detector::Strips);
        display.plot->setTitle(
            "a title that is broken into several lines where it has not much room");
        for (const QSize &size :
             {QSize(900, 400), QSize(350, 800), QSize(1600, 1600), QSize(400, 300)}) {
            display.widget.resize(size);
            // Each frame changes the labels of the colour bar.
            display.feed(Frames::strips(15, 3, 15, 3, 1e-9 * display.time));
            const QSize canvas = display.canvas().size();
            QVERIFY(std::abs(canvas.width() - canvas.height()) <= 2);
        }
        display.widget.scaleEnabled(false);
        const QSize canvas = display.canvas().size();
        QVERIFY(std::abs(canvas.width() - canvas.height()) <= 2);
    }

    void narrowCanvasesCanBePainted()
    {
        PictureDisplay display(Detector::Strips);
        display.feed(Frames::strips(15, 3, 15, 3));
        display.widget.resize(1, 400);
        display.canvas();
        QVERIFY(display.plot->canvas()->width() > 60); // the narrowest that the form allows
        // A host may allow less, down to where nothing is left between the colour bar and the labels.
        display.control<QWidget>("frame_plot")->setMinimumSize(0, 0);
        int narrowest = 1000;
        for (int width = 400; width >= 20; --width) {
            display.widget.resize(width, 400);
            display.canvas();
            narrowest = std::min(narrowest, display.plot->canvas()->width());
        }
        QVERIFY(narrowest < 10);
    }

    void theSideBarShowsAllOfItself()
    {
        BeamDisplay display;
        const auto *timePlot = display.control<QWidget>("frame_timePlot");
        for (const QSize &size : {display.widget.size(), display.widget.sizeHint()}) {
            display.widget.resize(size);
            display.widget.show();
            QVERIFY(QTest::qWaitForWindowExposed(&display.widget));
            QCOMPARE(timePlot->visibleRegion().boundingRect(), timePlot->rect());
        }
        for (const QSize &size : {display.widget.sizeHint(), QSize(700, 500)}) {
            display.widget.resize(size);
            display.widget.grab();
            auto *sidebar = display.control<QWidget>("sidebar");
            auto *area = display.control<QScrollArea>("scrollArea_sidebar");
            QVERIFY(sidebar->width() >= sidebar->minimumSizeHint().width());
            QVERIFY(sidebar->width() <= area->viewport()->width());
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXSpectrogramPictures)
#include "tst_RVXSpectrogramPictures.moc"
