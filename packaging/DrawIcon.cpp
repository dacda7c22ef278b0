// SPDX-License-Identifier: LGPL-2.1-or-later
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

/*  Draws an icon at one size, for desktops that take no drawings:

        corvale_monitor_icon DRAWING.svg SIZE PICTURE.png
*/
int main(int argc, char **argv)
{
    if (argc != 4) {
        std::fprintf(stderr, "usage: corvale_monitor_icon DRAWING.svg SIZE PICTURE.png\n");
        return 1;
    }
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    const int size = QByteArray(argv[2]).toInt();
    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    painter.end();
    if (drawing.isValid() && picture.save(QString::fromLocal8Bit(argv[3])))
        return 0;
    std::fprintf(stderr, "corvale_monitor_icon: %s could not be drawn as %s\n", argv[1], argv[3]);
    return 1;
}
