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

SpotStyle styleOf(const SpotList &spots, int ratio)
{
    return {ratio * QSize(600, 600),
            double(ratio),
            spots.extent(),
            spots.largestDose(),
            Qt::white,
            Qt::black};
}

//! Measures painting the kept picture alone, without the copy to the window that every frame needs.
void measurePainting()
{
    SpotList spots;
    spots.assign(mapSpots(10000));
    const SpotStyle style = styleOf(spots, 1);
    SpotPictureCache picture(makeShadedLayer());
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

//! A picture that is drawn anew at one of two sizes.
class Map
{
public:
    Map(std::unique_ptr<SpotLayer> layer, const SpotList &spots)
        : m_spots(spots)
        , m_picture(std::move(layer))
    {
    }
    Work at(int ratio)
    {
        return [this, ratio] {
            m_picture.reset();
            m_picture.update(m_spots, styleOf(m_spots, ratio));
            m_picture.image();
        };
    }
    QImage image() const { return m_picture.image(); }

private:
    const SpotList &m_spots;
    SpotPictureCache m_picture;
};

int largestDifference(const QImage &one, const QImage &other)
{
    int largest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            largest = qMax(largest, qAbs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))));
    }
    return largest;
}

//! Compares all spots drawn anew with a painter that draws a gradient for each, on usual and on finer pixels.
void measureGradients()
{
    SpotList spots;
    spots.assign(mapSpots(10000));
    Map ours(makeShadedLayer(), spots);
    Map gradients(makePaintedLayer(makeImageBuffer(), drawSpots), spots);
    const double plain = timesFaster(ours.at(1), gradients.at(1));
    report({"21a 10000 spots anew, times faster than gradients", plain, Goal::AtLeast, 5.0});
    // A painter rounds each of the many spots over a pixel, to one of 256 levels.
    report({"21a largest difference from the gradients, of 255",
            double(largestDifference(ours.image(), gradients.image())),
            Goal::AtMost,
            8.0});
    report({"17 map of 10000, two pixels to one, times one's time",
            timesFaster(ours.at(1), ours.at(2)),
            Goal::AtMost,
            2.5});
    report({"17 map of 10000, lead over gradients on finer pixels",
            timesFaster(ours.at(2), gradients.at(2)) / plain,
            Goal::AtLeast,
            1.0});
}

} // namespace

void measureSpotMap()
{
    measureFrames();
    measurePainting();
    measureGradients();
}
