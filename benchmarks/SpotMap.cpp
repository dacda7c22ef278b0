// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 11 compares painting a growing spot map with drawing it anew.
#include "Goal.h"
#include "Goals.h"
#include "SpotChart.h"
#include "corvale_qt/beam/spots/SpotList_p.h"
#include "corvale_qt/beam/spots/SpotPictureCache_p.h"

#include <QCoreApplication>
#include <QPainter>

using namespace Corvale_Qt;

namespace {

//! The fastest possible repaint: it draws a ready picture on a widget of the same size.
class Picture : public QWidget
{
public:
    explicit Picture(const QSize &size)
        : m_image(size, QImage::Format_RGB32)
    {
        m_image.fill(Qt::darkBlue);
        resize(size);
        setAttribute(Qt::WA_OpaquePaintEvent);
        show();
        QCoreApplication::processEvents();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.drawImage(0, 0, m_image);
    }

private:
    QImage m_image;
};

} // namespace

namespace {

void measureFrames()
{
    SpotChart map(10000);
    Picture picture(map.viewport()->size());
    const Work drawImage = [&] {
        picture.repaint();
    };
    const double repaint = timesFaster(
        drawImage,
        50,
        [&] {
            map.viewport()->repaint();
        },
        50);
    report({"11a repaint of 10000 spots, times one drawImage", repaint, Goal::AtMost, 3.0});
    const double grown = timesFaster(
        drawImage,
        50,
        [&] {
            map.addSpot();
            map.viewport()->repaint();
        },
        50);
    report({"11b repaint with one more spot, times one drawImage", grown, Goal::AtMost, 3.0});
    require(map.isAsDrawnAnew(), "11b the picture of a map that grew");
}

//! Measures painting the kept picture alone, without the copy to the window that every frame needs.
void measurePainting()
{
    SpotList spots;
    spots.assign(mapSpots(10000));
    SpotStyle style{QSize(600, 600),
                    1.0,
                    spots.extent(),
                    spots.largestDose(),
                    Qt::white,
                    Qt::black};
    SpotPictureCache picture(makeImageBuffer(), drawSpots);
    picture.update(spots, style);
    int next = spots.size();
    const double cheaper = timesFaster(
        [&] {
            spots.insert(spots.size(), {mapSpot(next++)});
            picture.update(spots, style);
        },
        200,
        [&] {
            picture.reset();
            picture.update(spots, style);
        },
        1);
    require(style.bounds == spots.extent() && style.fullScaleDose == spots.largestDose(),
            "11c the scene of a map that grew");
    report({"11c painting one more of 10000 spots, times cheaper than all",
            cheaper,
            Goal::AtLeast,
            1000.0});
}

} // namespace

void measureSpotMap()
{
    measureFrames();
    measurePainting();
}
