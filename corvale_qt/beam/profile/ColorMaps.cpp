// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/ColorMaps_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

/*! Every fifteenth of the 256 colours of viridis, the map by Stefan van der Walt and Nathaniel Smith
    (https://github.com/BIDS/colormap, option_d.py), which is in the public domain (CC0 1.0). */
constexpr QRgb kViridis[] = {0xff440154,
                             0xff481769,
                             0xff472a7a,
                             0xff433d84,
                             0xff3d4e8a,
                             0xff355e8d,
                             0xff2e6d8e,
                             0xff297b8e,
                             0xff23898e,
                             0xff1f978b,
                             0xff21a585,
                             0xff2eb37c,
                             0xff46c06f,
                             0xff65cb5e,
                             0xff89d548,
                             0xffb0dd2f,
                             0xffd8e219,
                             0xfffde725};
constexpr int kLastViridis = int(sizeof kViridis / sizeof kViridis[0]) - 1;

void addStops(QwtLinearColorMap &map, ColorMapChoice choice)
{
    switch (choice) {
    case ColorMapChoice::Greyscale:
        map.setColorInterval(Qt::black, Qt::white);
        return;
    case ColorMapChoice::Color:
        map.setColorInterval(Qt::black, Qt::red);
        map.addColorStop(0.1, Qt::blue);
        map.addColorStop(0.3, Qt::cyan);
        map.addColorStop(0.5, Qt::green);
        map.addColorStop(0.7, Qt::yellow);
        map.addColorStop(0.9, Qt::red);
        return;
    case ColorMapChoice::Viridis:
        map.setColorInterval(QColor(kViridis[0]), QColor(kViridis[kLastViridis]));
        for (int i = 1; i < kLastViridis; ++i)
            map.addColorStop(double(i) / kLastViridis, QColor(kViridis[i]));
        return;
    }
}

class LogColorMap : public QwtLinearColorMap
{
public:
    QRgb rgb(const QwtInterval &interval, double value) const override
    {
        if (std::isnan(value))
            return 0U;
        const double decades = std::log(interval.maxValue() / interval.minValue());
        const double place = value > 0 ? std::log(value / interval.minValue()) / decades : 0.0;
        return QwtLinearColorMap::rgb(QwtInterval(0, 1), std::clamp(place, 0.0, 1.0));
    }
};

} // namespace

QwtLinearColorMap *makeColorMap(ColorMapChoice choice)
{
    auto *map = new QwtLinearColorMap;
    addStops(*map, choice);
    return map;
}

QwtLinearColorMap *makeLogColorMap(ColorMapChoice choice)
{
    auto *map = new LogColorMap;
    addStops(*map, choice);
    return map;
}

} // namespace Corvale_Qt
