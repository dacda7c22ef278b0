// SPDX-License-Identifier: LGPL-2.1-or-later
// Draws the PNG files of this folder: most of them from the SVG of the same name, and the noise of the login background
// from a fixed seed. The target "draw-images" runs this program; its results are committed.
#include <QDebug>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QSvgRenderer>

namespace {

QImage drawn(const QString &svgFile, int scale)
{
    QSvgRenderer renderer(svgFile);
    QImage image(renderer.defaultSize() * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

/*! Returns a half-transparent grey grain. It tiles without a seam, because each pixel is independent, and is visible on
    light and on dark backgrounds. */
QImage noise()
{
    QRandomGenerator random(20u);
    QImage image(64, 64, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int grey = random.bounded(2) ? 255 : 0;
            image.setPixel(x, y, qRgba(grey, grey, grey, random.bounded(24)));
        }
    }
    return image;
}

bool saved(const QImage &image, const QString &pngFile)
{
    if (image.save(pngFile))
        return true;
    qCritical() << "cannot write" << pngFile;
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    if (argc != 2) {
        qCritical("usage: draw_images <folder of icons/ and images/>");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const bool ok =
        saved(drawn(folder + "/icons/cleartext.svg", 4), folder + "/icons/cleartext.png")
        && saved(drawn(folder + "/images/loginText.svg", 2), folder + "/images/loginText.png")
        && saved(noise(), folder + "/images/noisebck.png");
    return ok ? 0 : 1;
}
