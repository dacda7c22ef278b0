// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QString>

#include <limits>
#include <optional>

namespace Corvale_Qt {

/*! Reads and writes lengths of time as people write them: "90 s", "2 h", "1.5 min", "1 h 30 min" or "all". Numbers have a
    decimal point in every locale. The units are us, ms, s, min, h and d, also written out; a number alone is in seconds.

    \code
    TimeSpan::fromText("1.5 min"); // 90.0
    TimeSpan::text(5400.0);        // "90 min"
    \endcode */
class CORVALE_QT_EXPORT TimeSpan
{
public:
    //! The span that has no limit, written as "all".
    static constexpr double all = std::numeric_limits<double>::infinity();
    //! The shortest span, in seconds.
    static constexpr double shortest = 1e-6;
    //! The longest span except all, in seconds: 10000 days.
    static constexpr double longest = 864e6;

    /*! Returns the span in seconds, infinity for "all". Returns nothing for any other text, and for a span that is too short or
        too long; \a error, if there is one, then says what is wrong in words. */
    static std::optional<double> fromText(const QString &text, QString *error = nullptr);
    /*! Returns the text of a span in seconds, with up to 12 digits, in the unit that needs the fewest: "90 s", "5 min", "all".
        fromText() reads it. Returns an empty text if isPossible() is false. */
    static QString text(double seconds);
    //! Returns whether a number of seconds is a span: from the shortest to the longest, or all.
    static bool isPossible(double seconds);
};

} // namespace Corvale_Qt
