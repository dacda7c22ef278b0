// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/GaussianRadialGradientBrush.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

using Brush = std::unique_ptr<GaussianRadialGradientBrush>;

namespace {

constexpr int side = 560; // ten pixels for each step of the gradient

//! Returns the opacity at a distance from the centre: exact every 1/56 within 2.6 sigma, linear between.
double opacityAt(double distance, double amplitude, double sigma)
{
    const auto exact = [&](int step) {
        const double r = step / 56.0;
        return r < 2.6 * sigma ? amplitude * std::exp(-r * r / (2 * sigma * sigma)) : 0.0;
    };
    const int step = int(distance * 56);
    const double part = distance * 56 - step;
    return (1 - part) * exact(step) + part * exact(step + 1);
}

QImage pictureOf(const QBrush &brush)
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.scale(side, side);
    painter.fillRect(QRectF(0, 0, 1, 1), brush);
    return image;
}

} // namespace

class tst_GaussianRadialGradientBrush : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opacityFollowsTheGaussian()
    {
        // Amplitude and sigma: narrower than a step, some steps, nearly all of the radius, wider than it.
        for (const auto &[amplitude, sigma] :
             {std::pair(1.0, 0.001), {0.7, 0.1}, {0.5, 0.38}, {0.95, 0.5}}) {
            const Brush brush(
                GaussianRadialGradientBrush::create({0.25, 0.5}, Qt::green, amplitude, sigma));
            const QImage image = pictureOf(*brush);
            for (int x = 0; x < side; ++x) {
                const double distance = std::hypot(x + 0.5 - side / 4.0, 0.5) / side;
                const double expected = 255 * opacityAt(distance, amplitude, sigma);
                // Qt paints a gradient from a table of 1024 colours.
                const double next = 255 * opacityAt(distance + 1.0 / 1024, amplitude, sigma);
                const QColor color = image.pixelColor(x, side / 2);
                QVERIFY(qAbs(color.green() - expected) < 2 + qAbs(next - expected));
                QCOMPARE(color.red() + color.blue(), 0);
            }
        }
    }

    void itCoversFivePointTwoSigma()
    {
        const Brush brush(GaussianRadialGradientBrush::create({0.3, 0.6}, Qt::white, 1.0, 0.1));
        QCOMPARE(brush->center(), QPointF(0.3, 0.6));
        const GaussianRadialGradientBrush copy = *brush;
        QCOMPARE(copy.boundingRect(), QRectF(0.04, 0.34, 0.52, 0.52));
    }

    void withoutAmplitudeItIsTransparent()
    {
        for (const double amplitude : {0.0, -1e-12, qQNaN(), qInf()}) {
            const Brush brush(
                GaussianRadialGradientBrush::create({0.3, 0.6}, Qt::red, amplitude, 0.1));
            QVERIFY(brush->boundingRect().isEmpty());
            QCOMPARE(pictureOf(*brush), pictureOf(Qt::NoBrush));
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_GaussianRadialGradientBrush)
#include "tst_GaussianRadialGradientBrush.moc"
