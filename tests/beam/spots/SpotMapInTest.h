// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/beam/spots/SpotMapView.h"
#include "tests/beam/spots/SpotTable.h"
#include "tests/support/Pixels.h"

#include <QApplication>
#include <QDebug>
#include <QImage>

constexpr int mapSide = 200;

//! A map of 200 x 200 pixels that is shown at once.
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

    //! Returns the colour of the pixel at a point of the map.
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

/*! Prints how maps are painted, and returns false if they are painted without OpenGL on a display: a fallback that
    hides a broken OpenGL path would make the tests worthless. */
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

//! Returns the largest difference of a colour channel of all pixels, or 256 if the sizes differ.
inline int largestDifference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return 256;
    int largest = 0;
    forEachPixel(a, [&](int x, int y) {
        const QRgb p = a.pixel(x, y);
        const QRgb q = b.pixel(x, y);
        largest = qMax(largest, qAbs(qRed(p) - qRed(q)));
        largest = qMax(largest, qAbs(qGreen(p) - qGreen(q)));
        largest = qMax(largest, qAbs(qBlue(p) - qBlue(q)));
    });
    return largest;
}

//! Adds spots inside the bounds of the cornerSpots, with smaller doses.
inline void addRandomSpots(SpotTable &table, int count)
{
    QRandomGenerator random(7);
    for (int i = 0; i < count; ++i)
        table.appendRow(SpotTable::row(random.bounded(40.0) - 20, random.bounded(40.0) - 20,
                                       random.bounded(9.0), 2.0));
}

//! Two tables of spots, and a map that shows the difference of the first from the second.
struct Comparison
{
    Comparison(const QString &actualSpots, const QString &plannedSpots)
        : actual(actualSpots)
        , planned(plannedSpots)
        , target(&planned)
        , map(&actual)
    {
        map.setDiffTarget(&target);
        map.setDisplayMode(Corvale_Qt::SpotMapView::Difference);
    }

    SpotTable actual;
    SpotTable planned;
    MapInTest target;
    MapInTest map;
};

//! Spots at the corners of a map, in the format of SpotTable.
const QString cornerSpots = "-30 -30 10 3; 30 -30 10 3; -30 30 10 3; 30 30 10 3";
