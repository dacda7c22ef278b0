// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/SpotMapView>

#include <QImage>
#include <QStandardItemModel>

//! Spots over 100 mm by steps that do not repeat, the corners and the highest dose first.
Corvale_Qt::SpotMapView::MapSpot mapSpot(int number);
QVector<Corvale_Qt::SpotMapView::MapSpot> mapSpots(int count);

/*! A spot map of 600 x 600 pixels over a model of its own. */
class SpotChart : public Corvale_Qt::SpotMapView
{
public:
    explicit SpotChart(int spots);

    //! One more row, inside of the bounds and below the largest dose.
    void addSpot();
    //! Everything again, as after another colour.
    void drawAnew();
    //! Whether drawing anew changes no pixel.
    bool isAsDrawnAnew();

private:
    QImage picture();

    QStandardItemModel m_spots;
    bool m_white = true;
};
