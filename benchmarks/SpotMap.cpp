// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 11: a spot map that grows, against one drawn anew.
#include "Goal.h"
#include "Goals.h"
#include "SpotChart.h"

#include <QCoreApplication>
#include <QPainter>

namespace {

//! The floor of a repaint: a ready picture onto the same widget.
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

void measureSpotMap()
{
    SpotChart map(10000);
    Picture picture(map.viewport()->size());
    const double repaint = timesFaster(
        [&] {
            picture.repaint();
        },
        50,
        [&] {
            map.viewport()->repaint();
        },
        50);
    report({"11a repaint of 10000 spots, times one drawImage", repaint, Goal::AtMost, 3.0});
    const double cheaper = timesFaster(
        [&] {
            map.addSpot();
            map.viewport()->repaint();
        },
        20,
        [&] {
            map.drawAnew();
        },
        1);
    require(map.isAsDrawnAnew(), "11b the picture of a map that grew");
    report({"11b one more spot, times cheaper than all anew", cheaper, Goal::AtLeast, 1000.0});
}
