// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/SweepTrigger.h"
#include "corvale_qt/scope/ValueRange.h"

#include <QByteArray>
#include <QMap>
#include <QString>

#include <optional>

namespace Corvale_Qt {

class RVXScopePlotView;

/*! How a plot view shows its samples, as far as a user would expect it back: part of the state of a panel. A zoomed window is
    not, because it belongs to samples.

    A choice that is not known stays as it is in the view. As bytes, each choice has a name, so that a program reads those that
    it knows and leaves out those of a newer one. */
struct ViewChoices
{
    std::optional<bool> beginAtFirst;
    std::optional<bool> siPrefix;
    std::optional<QString> valueUnit;
    std::optional<bool> secondAxis;
    std::optional<QString> rangeUnit; //!< not known where no unit belongs to the range
    std::optional<std::optional<ValueRange>> rightRange; //!< the inner one is empty if none was set
    std::optional<bool> hysteresis;
    std::optional<bool> fullScaleFromData;
    std::optional<bool> logarithmic;
    std::optional<bool> legendVisible;
    std::optional<bool> barNames;
    std::optional<double> gapIntervals;
    std::optional<qint32> timeAxis;
    std::optional<SweepTrigger> trigger;

    using Named = QMap<QByteArray, QByteArray>;

    //! Returns what a view is set to.
    static ViewChoices of(const RVXScopePlotView &view);
    //! Reads choices; those that have another size than their value are unknown.
    static ViewChoices fromNamed(const Named &named);
    //! Returns the choices that are known as bytes, by their names.
    Named toNamed() const;
    //! Sets a view. It ignores values that no view has.
    void applyTo(RVXScopePlotView &view) const;
};

} // namespace Corvale_Qt
