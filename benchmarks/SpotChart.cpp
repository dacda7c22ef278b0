// SPDX-License-Identifier: LGPL-2.1-or-later
#include "SpotChart.h"

#include <QCoreApplication>

namespace {

constexpr int side = 600;

// Spread over 100 mm by steps that do not repeat, the corners first.
QList<QStandardItem *> spot(int number)
{
    const double fields[] = {
        double(number),
        1.5,
        number < 2 ? 100.0 * number : (number * 7919 % 10007) * 0.01,
        number < 2 ? 100.0 * number : (number * 104729 % 10009) * 0.01,
        number < 2 ? 10.0 : 1.0 + number % 9,
    };
    QList<QStandardItem *> row;
    for (double field : fields) {
        auto *item = new QStandardItem;
        item->setData(field, Qt::UserRole);
        row.append(item);
    }
    return row;
}

} // namespace

SpotChart::SpotChart(int spots)
{
    for (int i = 0; i < spots; ++i)
        m_spots.appendRow(spot(i));
    setFrameStyle(QFrame::NoFrame);
    setModel(&m_spots);
    resize(side, side);
    show();
    QCoreApplication::processEvents();
    if (viewport()->size() != QSize(side, side))
        qFatal("The map is not 600 x 600");
}

void SpotChart::addSpot()
{
    m_spots.appendRow(spot(m_spots.rowCount()));
}

void SpotChart::drawAnew()
{
    m_white = !m_white;
    setSpotColor(m_white ? Qt::white : Qt::yellow);
    viewport()->repaint();
}

bool SpotChart::isAsDrawnAnew()
{
    const QImage grown = picture();
    drawAnew();
    drawAnew();
    return grown == picture();
}

QImage SpotChart::picture()
{
    return viewport()->grab().toImage();
}
