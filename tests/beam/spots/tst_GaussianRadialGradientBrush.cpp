// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/GaussianRadialGradientBrush.h"
#include "tests/support/TestMain.h"

#include <QPainter>
#include <QRadialGradient>

#include <memory>

using namespace Corvale_Qt;

using Brush = std::unique_ptr<GaussianRadialGradientBrush>;

class tst_GaussianRadialGradientBrush : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stopsFollowTheGaussian_data()
    {
        QTest::addColumn<double>("amplitude");
        QTest::addColumn<double>("sigma");
        // Steps of 1/56 below 2.6 sigma, then one that is transparent.
        QTest::addColumn<int>("colored");
        QTest::addColumn<bool>("closed");
        QTest::newRow("narrower than a step") << 1.0 << 0.001 << 1 << true;
        QTest::newRow("some steps") << 0.7 << 0.1 << 15 << true;
        QTest::newRow("nearly all of the radius") << 0.5 << 0.38 << 56 << true;
        QTest::newRow("wider than the radius") << 0.95 << 0.5 << 57 << false;
        QTest::newRow("faint") << 1e-11 << 0.1 << 15 << true;
    }

    void stopsFollowTheGaussian()
    {
        QFETCH(double, amplitude);
        QFETCH(double, sigma);
        QFETCH(int, colored);
        QFETCH(bool, closed);
        const Brush brush(
            GaussianRadialGradientBrush::create({0.25, 0.5}, QColor(10, 20, 30), amplitude, sigma));
        const QGradientStops stops = brush->gradient()->stops();
        for (int i = 0; i < colored; ++i) {
            const double r = i / 56.0;
            QCOMPARE(stops[i].first, r);
            QCOMPARE(QColor(stops[i].second.rgb()), QColor(10, 20, 30));
            const double expected = amplitude * std::exp(-r * r / (2 * sigma * sigma));
            QVERIFY(qAbs(stops[i].second.alphaF() - expected) < 1e-4);
        }
        if (closed) {
            QCOMPARE(stops[colored].first, colored / 56.0);
            QCOMPARE(stops[colored].second.alpha(), 0);
        }
        QCOMPARE(stops.last().first, 1.0);
        QCOMPARE(stops.last().second.alpha() == 0, closed);
        QCOMPARE(brush->gradient()->coordinateMode(), QGradient::ObjectBoundingMode);
        QCOMPARE(static_cast<const QRadialGradient *>(brush->gradient())->radius(), 1.0);
    }

    void itCoversFivePointTwoSigma()
    {
        const Brush brush(GaussianRadialGradientBrush::create({0.3, 0.6}, Qt::white, 1.0, 0.1));
        QCOMPARE(brush->center(), QPointF(0.3, 0.6));
        QCOMPARE(brush->boundingRect(), QRectF(0.04, 0.34, 0.52, 0.52));
        const GaussianRadialGradientBrush copy = *brush;
        QCOMPARE(copy.boundingRect(), brush->boundingRect());
        QCOMPARE(copy.center(), brush->center());
    }

    void withoutAmplitudeItIsNothing_data()
    {
        QTest::addColumn<double>("amplitude");
        QTest::newRow("zero") << 0.0;
        QTest::newRow("next to it") << -1e-12;
        QTest::newRow("NaN") << qQNaN();
        QTest::newRow("infinite") << qInf();
    }

    void withoutAmplitudeItIsNothing()
    {
        QFETCH(double, amplitude);
        const Brush brush(GaussianRadialGradientBrush::create({0.3, 0.6}, Qt::red, amplitude, 0.1));
        QVERIFY(brush->boundingRect().isEmpty());
        QImage image(10, 10, QImage::Format_RGB32);
        image.fill(Qt::black);
        const QImage before = image;
        QPainter(&image).fillRect(image.rect(), *brush);
        QCOMPARE(image, before);
    }
};

CORVALE_QT_TEST_MAIN(tst_GaussianRadialGradientBrush)
#include "tst_GaussianRadialGradientBrush.moc"
