// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/beam/spots/SpotMapView.h"
#include "tests/beam/spots/SpotTable.h"

#include <QApplication>
#include <QDebug>
#include <QImage>
#include <QRandomGenerator>

constexpr int mapSide = 200;

//! A shown map of 200 x 200 pixels.
class MapInTest : public Corvale_Qt::SpotMapView
{
public:
    explicit MapInTest(QAbstractItemModel *model = nullptr)
    {
        setFrameShape(NoFrame);
        resize(mapSide, mapSide);
        if (model)
            setModel(model);
        show();
    }

    QImage picture() { return grab().toImage().convertToFormat(QImage::Format_RGB32); }

    //! Of the pixel at a point of the map.
    QColor colorAt(double x, double y)
    {
        const QImage image = picture();
        const double column = (x - bounds().left()) / bounds().width() * image.width();
        const double row = (bounds().bottom() - y) / bounds().height() * image.height();
        return image.pixelColor(qMin(int(column), image.width() - 1),
                                qMin(int(row), image.height() - 1));
    }
};

inline bool onOpenGl(const Corvale_Qt::SpotMapView &view)
{
    return view.viewport()->inherits("QGLWidget");
}

/*! Says how maps are painted here. False where there is a display and they are painted without OpenGL: a fallback
    that hides a broken OpenGL path would make their tests worthless. */
inline bool paintsAsItShould()
{
    const bool isOnOpenGl = onOpenGl(MapInTest());
    qInfo() << "device pixel ratio" << qApp->devicePixelRatio() << "OpenGL" << isOnOpenGl;
    return isOnOpenGl || QGuiApplication::platformName() != "xcb";
}

inline QRectF around(double x, double y, double reach)
{
    return QRectF(x - reach, y - reach, 2 * reach, 2 * reach);
}

//! Largest difference of any channel of any pixel.
inline int largestDifference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return 256;
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            largest = qMax(largest, qAbs(qRed(p) - qRed(q)));
            largest = qMax(largest, qAbs(qGreen(p) - qGreen(q)));
            largest = qMax(largest, qAbs(qBlue(p) - qBlue(q)));
        }
    }
    return largest;
}

//! Spots at random places of a map whose corners and largest dose are fixed.
inline void addRandomSpots(SpotTable &table, int count)
{
    QRandomGenerator random(7);
    for (int i = 0; i < count; ++i)
        table.appendRow(SpotTable::row(random.bounded(40.0) - 20,
                                       random.bounded(40.0) - 20,
                                       random.bounded(9.0),
                                       2.0));
}

//! Spots at the corners of a map, as SpotTable reads them.
const QString cornerSpots = "-30 -30 10 3; 30 -30 10 3; -30 30 10 3; 30 30 10 3";
