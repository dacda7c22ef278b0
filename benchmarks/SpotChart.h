// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/SpotMapView>

#include <QImage>
#include <QStandardItemModel>

//! Returns a spot within 100 mm. Spots do not repeat; the first ones lie in the corners and have the highest dose.
Corvale_Qt::SpotMapView::MapSpot mapSpot(int number);
QVector<Corvale_Qt::SpotMapView::MapSpot> mapSpots(int count);

//! A spot map of 600 x 600 pixels and its model.
class SpotChart : public Corvale_Qt::SpotMapView
{
public:
    explicit SpotChart(int spots);

    //! Appends a row inside the bounds and below the largest dose.
    void addSpot();
    //! Moves the spot in \a row a little, inside the bounds.
    void moveSpot(int row);
    //! Selects what a rubber band over \a rect selects.
    void selectBand(const QRect &rect);
    //! Makes the next frame draw all spots again.
    void drawAnew();
    //! Returns whether drawing all spots again changes no pixel.
    bool isAsDrawnAnew();

private:
    QImage picture();

    QStandardItemModel m_spots;
    bool m_white = true;
};
