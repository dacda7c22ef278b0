// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/numerics/ProfileNoise.h"
#include "corvale_qt/scope/statistics/PlacedFit_p.h"
#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h"

#include <qwt_plot_marker.h>
#include <qwt_scale_div.h>

#include <QPointer>

#include <limits>
#include <optional>

namespace Corvale_Qt {

class RVX_HistogramItemAxisWidget;

//! Computes statistics items from the newest sample when one of them is asked for its result.
class StatisticsSource
{
public:
    virtual ~StatisticsSource() = default;
    virtual void bringUpToDate() = 0;
};

//! The outcome of a computation, and what an item needs to show it.
class RVX_StatisticsHistogramItemPrivate
{
public:
    //! Returns the private part of an item, for the view that owns it.
    static RVX_StatisticsHistogramItemPrivate &of(RVX_StatisticsHistogramItem &item)
    {
        return *item.d_func();
    }
    static const RVX_StatisticsHistogramItemPrivate &of(const RVX_StatisticsHistogramItem &item)
    {
        return *item.d_func();
    }
    //! Returns the private part of an item with the result for the newest sample.
    static const RVX_StatisticsHistogramItemPrivate &
    upToDate(const RVX_StatisticsHistogramItem &item)
    {
        const RVX_StatisticsHistogramItemPrivate *d = item.d_func();
        if (d->source)
            d->source->bringUpToDate();
        return *d;
    }

    //! Replaces an item's result in channels by one on the places of a detector, and shows it if results are shown.
    static void place(RVX_StatisticsHistogramItem &item, const PlacedFit &fit);

    QwtScaleDiv ticks(double axisUpper) const;

    QPointer<RVX_HistogramItemAxisWidget> axisWidget;
    QColor color;
    QwtPlotMarker marker;
    ProfileFit fit;
    FitStatus status = FitStatus::NotComputed;
    QString message;
    double position = 0.0;
    SignalToNoise signalToNoise;
    std::optional<PlacedFit> placed; //!< instead of the fit, if the channels have places
    double channel = 0.0; //!< position in channels
    double time = std::numeric_limits<double>::quiet_NaN(); //!< x of the sample
    int row = 0; //!< of the sample in the model; 0 for none
    int firstChannel = 0;
    QString valueUnit;
    bool hasSiPrefix = false; //!< the label shows values with a prefix of their unit
    //! The unit of the values in the label, where their quantity has it; if it is empty, each has the one that suits it.
    QString fixedUnit;
    double plotDivisor = 1.0;
    double limitFactor = 1.0;

    StatisticsSource *source = nullptr; //!< of the view that owns the item
    bool fullStatistics = false;
    bool computed = false;
    bool showsResults = true; //!< false while a result is computed only to be read
};

} // namespace Corvale_Qt
