// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QStringList>

#include <optional>

namespace Corvale_Qt {

//! Returns the entries of a list, an RVXScope::YScaleMode, in the language of the application.
QStringList yRangeTexts(int list);

//! The effect of an entry on the view.
struct YRangeChoice
{
    int scaleMode = 0; //!< an RVXScopePlotView::PlotScales value
    //! Full scale in the unit of the data.
    struct Range
    {
        double minimum;
        double maximum;
    };
    std::optional<Range> range; //!< set if the entry names a range
    //! Whether the button for positive values has an effect.
    bool canBePositiveOnly = false;
};

//! Returns the effect of the entry \a text at \a index of a list.
YRangeChoice yRangeChoice(int list, int index, const QString &text);

} // namespace Corvale_Qt
