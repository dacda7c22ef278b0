// SPDX-License-Identifier: LGPL-2.1-or-later
/* +------------------------------------------------------------------+
   | Not part of the interface: this header may change in any version. |
   +------------------------------------------------------------------+ */
#pragma once

#include <QStringList>

#include <optional>

namespace Corvale_Qt {

//! The lists of y ranges that the panel offers, by its y scale mode.
enum YRangeList {
    PercentRanges =
        0, //!< of the range that the host gave; the index is the view's PlotScales value
    AutomaticRange = 1,
    AbsoluteRanges = 2, //!< plus and minus a value in the unit of the data
    AbsolutePositiveRanges = 3, //!< from 0 to a value in the unit of the data
};

//! Texts of a list, in the language of the application.
QStringList yRangeTexts(int list);

//! What choosing an entry means to the view.
struct YRangeChoice
{
    int scaleMode = 0;
    //! Full scale, where the entry says it: from \a minimum to \a maximum.
    struct Range
    {
        double minimum;
        double maximum;
    };
    std::optional<Range> range;
    //! Whether it makes a difference to show positive values only.
    bool canBePositiveOnly = false;
};

YRangeChoice yRangeChoice(int list, int index, const QString &text);

} // namespace Corvale_Qt
