// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QColor>
#include <QWidget>

#include <memory>

/*! A plain window of a plotting library: the curves of all channels over the last minute, on a black canvas with axes and a grid. */
class WindowPeer
{
public:
    static constexpr int channels = 64;
    static constexpr double span = 60.0; // s

    virtual ~WindowPeer() = default;
    virtual QWidget &widget() = 0;
    //! Takes a reading of each channel.
    virtual void append(double time, const double *values) = 0;
    //! Draws what there is, up to \a newest.
    virtual void draw(double newest) = 0;

    static QColor color(int channel) { return QColor::fromHsv(channel * 360 / channels, 255, 255); }
};

std::unique_ptr<WindowPeer> makeQwtWindow();
std::unique_ptr<WindowPeer> makeCustomPlotWindow();
