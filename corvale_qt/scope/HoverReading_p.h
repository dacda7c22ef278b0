// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QColor>
#include <QString>
#include <QVector>

namespace Corvale_Qt {

//! What the plot shows at a place of its x axis.
struct HoverReading
{
    //! The reading of one channel.
    struct Channel
    {
        QString name;
        QString value; //!< with its unit
        QColor colour;

        bool operator==(const Channel &other) const
        {
            return name == other.name && value == other.value && colour == other.colour;
        }
    };

    double x = 0.0; //!< of the nearest sample
    QString place; //!< the time of the sample, or what stands for it
    QVector<Channel> channels; //!< those that are shown, in order

    bool operator==(const HoverReading &other) const
    {
        return x == other.x && place == other.place && channels == other.channels;
    }
};

} // namespace Corvale_Qt
